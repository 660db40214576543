#include "project/KRNFile.h"

#include "project/ProjectPreferences.h"
#include "records/SimpleCipher.h"

#include <QCryptographicHash>

namespace {

/// What a project's password must be able to read back.
const QString marker = QStringLiteral("_projectsAreHashedWithThisValue___");

}  // namespace

bool KRNFile::acquirePassword(const QString& password, bool exists) {
    if (password.isEmpty()) {
        m_passwordHash.clear();
        if (!exists) {
            savePreference(preference::encrypted, false);
            return true;
        }
        if (!getPreference(preference::encrypted, false).toBool())
            return true;
        m_lastError = tr("Project is encrypted but no password provided!");
        return false;
    }
    m_passwordHash = QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex();
    m_cipher->setKey(cipherKeyFromHash(m_passwordHash));
    if (!exists) {
        savePreference(preference::hash, m_cipher->encryptToString(marker));
        savePreference(preference::encrypted, true);
        return true;
    }
    if (m_cipher->decryptToString(getPreference(preference::hash, QString()).toString()) == marker)
        return true;
    m_lastError = tr("Invalid password supplied!");
    return false;
}

QString KRNFile::encryptIfNeeded(const QString& text) const {
    return m_passwordHash.isEmpty() ? text : m_cipher->encryptToString(text);
}

QString KRNFile::decryptIfNeeded(const QString& text) const {
    return m_passwordHash.isEmpty() ? text : m_cipher->decryptToString(text);
}

QString KRNFile::decryptIfNeeded(const QByteArray& bytes) const {
    return m_passwordHash.isEmpty() ? QString::fromUtf8(bytes) : m_cipher->decryptToString(bytes);
}
