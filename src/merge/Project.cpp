#include "merge/Project.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "link/ReplyBase.h"
#include "merge/FullProjectJson.h"
#include "merge/RunAside.h"
#include "models/QuestionAnswerMainModel.h"
#include "project/KRNFile.h"
#include "project/ProjectPassword.h"
#include "project/ProjectPreferences.h"
#include "records/FreeMemory.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEventLoop>
#include <QJsonArray>
#include <QTemporaryFile>
#include <functional>

namespace {

const QString keyProjectJson = QStringLiteral("project_json");
const QString keyName = QStringLiteral("name");
constexpr int refused = 400;

SimpleCipher cipherOf(const QString& password) {
    return password.isEmpty() ? SimpleCipher()
                              : SimpleCipher(cipherKeyFromHash(projectpassword::hash(password)));
}

/// So many sources are asked for at a time.
constexpr int atOnce = 12;

// Source by source, because the list of all would be larger than the project's texts while it is made into
// records.
bool readHighlights(DataHelper& helper, const QList<Source>& sources, QList<Highlight>& highlights,
                    const Progress& progress) {
    const QString key = wire::operationName(Highlight::record(), wire::Operation::QueryList);
    QEventLoop loop;
    QObject replies;
    int sent = 0;
    int taken = 0;
    bool good = true;
    const auto end = [&](bool well) {
        good = well;
        loop.quit();
    };
    const std::function<void()> sendMore = [&] {
        while (good && sent < sources.size() && sent - taken < atOnce) {
            ReplyBase* const reply =
                helper.queryListAsync(reads::highlightsOfSource(sources.at(sent++).id()), &replies);
            if (!reply)
                return end(false);
            QObject::connect(reply, &ReplyBase::finished, &loop, [&, reply] {
                highlights += DataHelper::records<Highlight>(reply->data(), {key});
                reply->deleteLater();
                if (!reply->errors().isEmpty() || !goesOn(progress, ++taken, sources.size()))
                    end(false);
                sendMore();
            });
        }
        if (taken == sources.size())
            end(good);
    };
    QObject::connect(&helper, &DataHelper::wsDisconnected, &loop, [&] { end(false); });
    sendMore();
    if (good && taken < sources.size())
        loop.exec();
    return good;
}

QString flag(bool on) {
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

}  // namespace

Project::Project(const QJsonObject& identity) : m_identity(identity) {
    const QJsonObject json = m_identity.take(keyProjectJson).toObject();
    const QJsonArray preferences = json.value(QLatin1String("preferences")).toArray();
    for (const QJsonValue& value : preferences) {
        const Preference preference(value.toObject(), "project_json");
        if (preference.isValid())
            m_records.preferences.append(preference);
    }
}

QString Project::name() const {
    return m_identity.value(keyName).toString();
}

QString Project::key() const {
    const QString uuid = m_identity.value(QLatin1String("project_uuid")).toString();
    return uuid.isEmpty() ? name() : uuid;
}

QVariant Project::preference(const QString& key) const {
    for (const Preference& preference : m_records.preferences) {
        if (preference.key() == key)
            return preference.value();
    }
    return {};
}

int Project::singleQuestion() const {
    const QVariant flag = preference(::preference::singleQuestion);
    return flag.isValid() ? int(flag.toBool()) : -1;
}

bool Project::acceptsPassword(const QString& password) const {
    if (!preference(::preference::encrypted).toBool())
        return true;
    SimpleCipher cipher(cipherKeyFromHash(projectpassword::hash(password)));
    return projectpassword::proves(cipher, preference(::preference::hash).toString());
}

bool Project::loadFromJson(const QByteArray& reply, const QString& password, const Progress& progress) {
    qDebug() << "Load from full project JSON";
    SimpleCipher cipher = preference(::preference::encrypted).toBool() ? cipherOf(password) : SimpleCipher();
    m_records = {};
    if (fullprojectjson::read(reply, fullprojectjson::contentOf(reply), cipher, m_records, progress))
        return true;
    m_records = {};
    return false;
}

bool Project::loadFrom(KRNFile& file, const Progress& progress) {
    m_identity = file.currentProject();
    DataHelper& helper = *file.dataHelper();
    bool read = file.allTextsHere();
    eachList(m_records, [&](const char*, auto& list) {
        using List = std::decay_t<decltype(list)>;
        // Preferences are read one by one, and the texts are here already.
        constexpr bool isListed = !std::is_same_v<List, QList<QuestionAnswer>> &&
                                  !std::is_same_v<List, QList<Preference>> &&
                                  !std::is_same_v<List, QList<Highlight>>;
        if constexpr (isListed)
            read = read && helper.findAll(list);
    });
    for (const Source& source : qAsConst(m_records.sources))
        m_records.answers += file.answerModel()->answers(source.id());
    return read && readHighlights(helper, m_records.sources, m_records.highlights, progress);
}

QJsonObject Project::toJson() const {
    SimpleCipher none;
    return fullprojectjson::toJson(m_records, none);
}

QList<Preference> Project::storedPreferences(const QString& password) const {
    SimpleCipher cipher = cipherOf(password);
    QList<Preference> stored{
        {::preference::dbVersion, QStringLiteral("5")},
        {::preference::cloudVersion, QStringLiteral("1")},
        {::preference::singleQuestion, flag(singleQuestion() != 0)},
        {::preference::openLock, flag(false)},
        {::preference::encrypted, flag(cipher.hasKey())},
        {::preference::hash, cipher.hasKey() ? projectpassword::proof(cipher) : QString()},
    };
    const int own = stored.size();
    for (const Preference& kept : m_records.preferences) {
        const auto replaced = [&kept](const Preference& other) { return other.key() == kept.key(); };
        if (std::none_of(stored.cbegin(), stored.cbegin() + own, replaced))
            stored.append(kept);
    }
    return stored;
}

Message Project::save(DataHelper& helper, const QJsonObject& target, const QString& password,
                      const Progress& progress) {
    if (target.value(keyName).toString().isEmpty())
        return {refused, false, QCoreApplication::translate("Project", "The project needs a name."), {}};
    ProjectRecords stored = m_records;
    stored.preferences = storedPreferences(password);
    QTemporaryFile body;
    if (!body.open())
        return {0, false, body.errorString(), {}};
    QJsonObject identity = target;
    identity.remove(QStringLiteral("project_uuid"));
    const bool written = runAside([&] {
        SimpleCipher cipher = cipherOf(password);
        return fullprojectjson::write(body, identity, stored, cipher, progress) && body.flush();
    });
    // The service needs room for the same once more.
    m_records = {};
    stored = {};
    giveBackFreeMemory();
    if (!written)
        return {0, false, body.error() == QFileDevice::NoError ? QString() : body.errorString(), {}};
    return helper.writeProject(body.fileName());
}
