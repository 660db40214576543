#include "merge/ProjectMerger.h"

#include "link/DataHelper.h"
#include "merge/FullProjectJson.h"
#include "merge/Merging.h"
#include "merge/ProgressPart.h"
#include "merge/RunAside.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>
#include <algorithm>

namespace {

constexpr int unusable = 400;
constexpr int notFound = 404;
/// The share of reading and merging in the whole work, in percent, and where the service begins to store.
constexpr int mergingShare = 55;
constexpr int storedShare = 70;

const QString keyName = QStringLiteral("name");

}  // namespace

ProjectMerger::ProjectMerger(DataHelper* helper, QObject* parent) : QObject(parent), m_helper(helper) {}

const Project* ProjectMerger::load(const QJsonObject& identity) {
    m_lastError.clear();
    const QDateTime modified = QFileInfo(identity.value(keyName).toString()).lastModified();
    if (m_scratch && m_scratch->identity() == identity && m_scratchModified == modified)
        return m_scratch.get();
    const Message message = m_helper->exportPreferences(identity);
    const QJsonValue json = message.json.value(QLatin1String("project_json"));
    if (!message.status || !json.isObject()) {
        m_lastError = reasonOf(message, identity);
        return nullptr;
    }
    QJsonObject whole = identity;
    whole.insert(QStringLiteral("project_json"), json);
    m_scratch = std::make_unique<Project>(whole);
    m_scratchModified = modified;
    return m_scratch.get();
}

// The text of a refused request names the request, which tells nobody what to do.
QString ProjectMerger::reasonOf(const Message& message, const QJsonObject& identity) {
    const QString name = QFileInfo(identity.value(keyName).toString()).fileName();
    if (message.statusCode == notFound)
        return tr("There is no project \"%1\" any more.").arg(name);
    if (message.statusCode == unusable)
        return tr("\"%1\" is not a Kernova project, or it is damaged.").arg(name);
    return message.message.isEmpty() ? tr("The project could not be read.") : message.message;
}

bool ProjectMerger::tryProjectPassword(const QJsonObject& project, const QString& password) {
    const Project* loaded = load(project);
    return loaded && loaded->acceptsPassword(password);
}

bool ProjectMerger::tryProjectSingleQuestion(const QJsonObject& project, bool master) {
    const Project* loaded = load(project);
    if (!loaded || loaded->singleQuestion() == -1)
        return false;
    if (master)
        return true;
    return m_master ? loaded->singleQuestion() == m_master->singleQuestion : m_added.empty();
}

std::unique_ptr<ProjectMerger::Input> ProjectMerger::opened(const QJsonObject& project,
                                                            const QString& password) {
    const Project* loaded = load(project);
    if (!loaded)
        return nullptr;
    if (!loaded->acceptsPassword(password)) {
        m_lastError = tr("Incorrect password");
        return nullptr;
    }
    return std::make_unique<Input>(Input{project, password, loaded->singleQuestion()});
}

bool ProjectMerger::setMaster(const QJsonObject& project, const QString& password) {
    std::unique_ptr<Input> input = opened(project, password);
    if (!input)
        return false;
    m_master = std::move(input);
    return true;
}

bool ProjectMerger::addProject(const QJsonObject& project, const QString& password) {
    std::unique_ptr<Input> input = opened(project, password);
    if (!input)
        return false;
    m_added.push_back(std::move(input));
    return true;
}

bool ProjectMerger::removeProject(const QJsonObject& project) {
    const auto found = std::find_if(m_added.cbegin(), m_added.cend(),
                                    [&](const auto& input) { return input->identity == project; });
    if (found == m_added.cend())
        return false;
    m_added.erase(found);
    return true;
}

bool ProjectMerger::exists(const QJsonObject& proj) {
    const QString name = proj.value(keyName).toString();
    if (!m_helper->isRemote())
        return QFile::exists(name);
    const QJsonArray projects = m_helper->projects().json.value(QLatin1String("projects")).toArray();
    return std::any_of(projects.cbegin(), projects.cend(), [&name](const QJsonValue& project) {
        return project.toObject().value(keyName).toString() == name;
    });
}

std::unique_ptr<Project> ProjectMerger::read(const Input& input, const Progress& progress) {
    QByteArray reply;
    const Message message = m_helper->readProject(input.identity, reply);
    if (!message.status) {
        m_lastError = reasonOf(message, input.identity);
        return nullptr;
    }
    std::unique_ptr<Project> project;
    const bool good = runAside([&] {
        QJsonObject whole = input.identity;
        // The preferences tell whether the texts are enciphered.
        const jsonscan::Span content = fullprojectjson::contentOf(reply);
        jsonscan::eachMember(reply, content, [&](const QByteArray& key, jsonscan::Span span) {
            if (key == "preferences")
                whole.insert(QStringLiteral("project_json"),
                             QJsonObject{{QStringLiteral("preferences"),
                                          QJsonDocument::fromJson(jsonscan::part(reply, span)).array()}});
            return key != "preferences";
        });
        project = std::make_unique<Project>(whole);
        return project->acceptsPassword(input.password) &&
               project->loadFromJson(reply, input.password, progress);
    });
    if (good)
        return project;
    m_lastError = tr("\"%1\" is not a Kernova project, or it is damaged.")
                      .arg(QFileInfo(input.identity.value(keyName).toString()).fileName());
    return nullptr;
}

std::vector<const ProjectMerger::Input*> ProjectMerger::inputs() const {
    std::vector<const Input*> all;
    if (m_master)
        all.push_back(m_master.get());
    for (const auto& input : m_added)
        all.push_back(input.get());
    return all;
}

void ProjectMerger::tell(int percent) {
    if (percent == m_progress)
        return;
    m_progress = percent;
    emit progressed();
}

bool ProjectMerger::merge(const QJsonObject& proj, const QString& password) {
    m_lastError.clear();
    m_cancelled = false;
    if (!m_master || m_added.empty() || m_merging)
        return false;
    if (exists(proj)) {
        m_lastError = tr("Project with this title already exists! Please rename the merge result.");
        return false;
    }
    const auto isOther = [this](const auto& input) {
        return input->singleQuestion != m_master->singleQuestion;
    };
    if (std::any_of(m_added.cbegin(), m_added.cend(), isOther)) {
        m_lastError = tr("The projects cannot be merged because question types are different.");
        return false;
    }
    m_merging = true;
    m_progress = 0;
    emit progressed();
    const bool merged = mergeInputs(proj, password);
    m_merging = false;
    emit progressed();
    return merged;
}

bool ProjectMerger::mergeInputs(const QJsonObject& proj, const QString& password) {
    const Progress progress = [this](qint64 done, qint64 of) {
        QMetaObject::invokeMethod(this, [this, done, of] { tell(static_cast<int>(done * 100 / of)); });
        return !m_cancelled;
    };
    QElapsedTimer timer;
    timer.start();
    const std::vector<const Input*> all = inputs();
    std::unique_ptr<Project> result;
    std::unique_ptr<Merging> merging;
    int done = 0;
    for (const Input* input : all) {
        const int from = mergingShare * done / static_cast<int>(all.size());
        const int to = mergingShare * ++done / static_cast<int>(all.size());
        std::unique_ptr<Project> project = read(*input, progressPart(progress, from, to));
        if (!project || m_cancelled)
            return false;
        runAside([&] {
            ProjectRecords records;
            std::swap(records, project->records());
            if (merging)
                merging->add(std::move(records));
            else
                merging = std::make_unique<Merging>(std::move(records));
            return true;
        });
        if (!result)
            result = std::move(project);
    }
    result->records() = merging->result();
    merging.reset();
    const qint64 mergeTime = timer.restart();
    const Message message =
        result->save(*m_helper, proj, password, progressPart(progress, mergingShare, storedShare));
    const qint64 writeTime = timer.elapsed();
    QTextStream(stdout) << "merging " << mergeTime << "\nwriting " << writeTime << "\nratio "
                        << static_cast<double>(mergeTime) /
                               static_cast<double>(std::max<qint64>(writeTime, 1))
                        << '\n';
    if (!message.status) {
        m_lastError = message.message;
        return false;
    }
    const QJsonObject stored = message.json.value(QLatin1String("project")).toObject();
    if (m_cancelled) {
        m_helper->isRemote()
            ? void(m_helper->removeProject(stored.value(QLatin1String("project_uuid")).toString()))
            : void(QFile::remove(proj.value(keyName).toString()));
        return false;
    }
    m_result = m_helper->isRemote() ? stored : proj;
    return true;
}

void ProjectMerger::clearMerger() {
    if (m_merging)
        return;
    m_scratch.reset();
    m_master.reset();
    m_added.clear();
}

QVariantList ProjectMerger::compareAllSourceByName() {
    QTextStream out(stdout);
    out << "compare\nfinding sources with the same name\n";
    QMap<QString, QStringList> holders;
    for (const Input* input : inputs()) {
        const std::unique_ptr<Project> project = read(*input, {});
        if (!project)
            return {};
        for (const Source& source : qAsConst(project->records().sources)) {
            QStringList& names = holders[source.title()];
            if (!names.contains(project->name()))
                names << project->name();
        }
    }
    QVariantList found;
    for (auto it = holders.cbegin(); it != holders.cend(); ++it) {
        if (it->size() < 2)
            continue;
        out << it.key() << ": " << it->join(QStringLiteral(", ")) << '\n';
        found << QVariantMap{{QStringLiteral("title"), it.key()}, {QStringLiteral("projects"), *it}};
    }
    return found;
}
