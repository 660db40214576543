#include "merge/Project.h"

#include "project/ProjectPassword.h"
#include "project/ProjectPreferences.h"

#include <QJsonArray>

namespace {

const QString keyProjectJson = QStringLiteral("project_json");

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
    SimpleCipher cipher(cipherKeyFromHash(projectpassword::hash(password)));
    return projectpassword::proves(cipher, preference(::preference::hash).toString());
}
