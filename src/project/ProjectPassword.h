#pragma once

#include "records/SimpleCipher.h"

/// A project's password. The project doesn't keep it: it keeps a proof, a fixed text in the cipher whose key
/// is made of the password.
namespace projectpassword {

/// The MD5 of the password's UTF-8 form, as 32 hexadecimal digits.
QByteArray hash(const QString& password);

/// What a project with the cipher's password keeps as its proof.
QString proof(SimpleCipher& cipher);

/// Whether a project with that proof has the cipher's password.
bool proves(SimpleCipher& cipher, const QString& proof);

}  // namespace projectpassword
