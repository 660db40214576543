#include "merge/Project.h"

#include "project/ProjectPreferences.h"
#include "records/SimpleCipher.h"

#include <QCryptographicHash>
#include <QJsonArray>

namespace {

const QString keyProjectJson = QStringLiteral("project_json");

bool proves(const QString& password, const QString& hash) {
    const QByteArray digest = QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex();
    SimpleCipher cipher(cipherKeyFromHash(digest));
    return cipher.decryptToString(hash) == QLatin1String("_projectsAreHashedWithThisValue___");
}

}  // namespace

Project::Project(const QJsonObject& identity) : m_identity(identity) {
    const QJsonObject json = m_identity.take(keyProjectJson).toObject();
    const QJsonArray preferences = json.value(QLatin1String("preferences")).toArray();
    for (const QJsonValue& value : preferences) {
        const Preference preference(value.toObject(), "project_json");
        if (preference.isValid())
            m_preferences.append(preference);
    }
}

QString Project::name() const {
    return m_identity.value(QLatin1String("name")).toString();
}

QVariant Project::preference(const QString& key) const {
    for (const Preference& preference : m_preferences) {
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
    const QString hash = preference(::preference::hash).toString();
    return !hash.isEmpty() && proves(password, hash);
}
