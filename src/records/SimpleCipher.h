#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// The project's text cipher: a chained exclusive-or with a 64-bit key over optionally compressed text with a
/// check in front. It keeps casual readers out; it is not strong cryptography.
///
/// Form of a cipher text: version byte 3, flags byte, then the chained bytes of one random byte, the check,
/// and the (compressed) text.
class SimpleCipher {
public:
    enum CompressionMode { CompressionAuto = 0, CompressionAlways = 1, CompressionNever = 2 };
    enum ProtectionMode { ProtectionNone = 0, ProtectionChecksum = 1, ProtectionHash = 2 };
    enum Error { ErrorNone = 0, ErrorNoKeySet = 1, ErrorUnknownVersion = 2, ErrorIntegrityFailed = 3 };

    SimpleCipher() = default;
    explicit SimpleCipher(quint64 key) { setKey(key); }

    void setKey(quint64 key);
    void clearKey();
    bool hasKey() const { return !m_keyParts.isEmpty(); }

    void setCompressionMode(CompressionMode mode) { m_compressionMode = mode; }
    void setProtectionMode(ProtectionMode mode) { m_protectionMode = mode; }

    /// The outcome of the last call.
    Error lastError() const { return m_lastError; }

    /// Empty when no key is set.
    QByteArray encrypt(const QByteArray& plain);

    /// Empty when no key is set, the bytes are no cipher text, or the check fails.
    QByteArray decrypt(const QByteArray& cipher);

    /// The UTF-8 form of the text, enciphered and written as base 64.
    QString encryptToString(const QString& plain);
    QString decryptToString(const QString& cipher);
    /// Of bytes that aren't base 64.
    QString decryptToString(const QByteArray& cipher);

private:
    quint64 m_key = 0;
    QVector<char> m_keyParts;  ///< the key's bytes, least significant first; empty without a key
    CompressionMode m_compressionMode = CompressionAuto;
    ProtectionMode m_protectionMode = ProtectionChecksum;
    Error m_lastError = ErrorNone;
};

/// The cipher key of a project password's hash: the MD5 of the password's UTF-8 form, as 32 hexadecimal
/// digits.
quint64 cipherKeyFromHash(const QByteArray& hexadecimalHash);
