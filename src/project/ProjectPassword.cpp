#include "project/ProjectPassword.h"

#include <QCryptographicHash>

namespace projectpassword {

namespace {

const QString marker = QStringLiteral("_projectsAreHashedWithThisValue___");

}  // namespace

QByteArray hash(const QString& password) {
    return QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex();
}

QString proof(SimpleCipher& cipher) {
    return cipher.encryptToString(marker);
}

bool proves(SimpleCipher& cipher, const QString& proof) {
    return cipher.decryptToString(proof) == marker;
}

}  // namespace projectpassword
