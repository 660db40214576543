#include "merge/ProjectMerger.h"

#include "link/DataHelper.h"

#include <QFileInfo>

namespace {

constexpr int unusable = 400;
constexpr int notFound = 404;

}  // namespace

ProjectMerger::ProjectMerger(DataHelper* helper, QObject* parent) : QObject(parent), m_helper(helper) {}

const Project* ProjectMerger::load(const QJsonObject& identity) {
    m_lastError.clear();
    const QDateTime modified = QFileInfo(identity.value(QLatin1String("name")).toString()).lastModified();
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
    const QString name = QFileInfo(identity.value(QLatin1String("name")).toString()).fileName();
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
    return m_master ? loaded->singleQuestion() == m_master->singleQuestion() : m_added.empty();
}
