#include "project/KRNFile.h"

#include "project/ProjectPassword.h"
#include "project/ProjectPreferences.h"

bool KRNFile::acquirePassword(const QString& password, bool exists) {
    if (password.isEmpty()) {
        m_passwordHash.clear();
        if (!exists)
            return savePreference(preference::encrypted, false) || failPassword();
        if (!getPreference(preference::encrypted, false).toBool())
            return true;
        m_lastError = tr("Project is encrypted but no password provided!");
        return false;
    }
    m_passwordHash = projectpassword::hash(password);
    m_cipher->setKey(cipherKeyFromHash(m_passwordHash));
    if (!exists) {
        return (savePreference(preference::hash, projectpassword::proof(*m_cipher)) &&
                savePreference(preference::encrypted, true)) ||
               failPassword();
    }
    if (projectpassword::proves(*m_cipher, getPreference(preference::hash, QString()).toString()))
        return true;
    m_lastError = tr("Invalid password supplied!");
    return false;
}

// A project whose texts are enciphered but that keeps no proof could never be opened again.
bool KRNFile::failPassword() {
    m_lastError = tr("Failed to save whether the project has a password.");
    return false;
}

SimpleCipher KRNFile::textCipher() const {
    return m_passwordHash.isEmpty() ? SimpleCipher() : *m_cipher;
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
