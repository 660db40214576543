#include "records/SimpleCipher.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDebug>
#include <QRandomGenerator>

namespace {

constexpr char version = 3;
constexpr int flagCompressed = 1;
constexpr int flagChecksum = 2;
constexpr int flagHash = 4;
constexpr int hashLength = 20;
constexpr int compressionLevel = 9;

QByteArray checksum(const QByteArray& data) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << qChecksum(data.constData(), static_cast<uint>(data.size()));
    return bytes;
}

QByteArray hash(const QByteArray& data) {
    return QCryptographicHash::hash(data, QCryptographicHash::Sha1);
}

// Takes `check(rest)` off the front of `data`; false when it isn't there.
bool takeCheck(QByteArray& data, int length, QByteArray (*check)(const QByteArray&)) {
    if (data.size() < length)
        return false;
    const QByteArray stored = data.left(length);
    data = data.mid(length);
    return check(data) == stored;
}

quint32 fold(const QByteArray& text) {
    quint32 h = 0;
    for (char c : text) {
        h = static_cast<uchar>(c) + h * 16;
        const quint32 g = h & 0xF0000000u;
        if (g != 0)
            h = (h ^ (g >> 24)) & ~g;
    }
    return h;
}

}  // namespace

void SimpleCipher::setKey(quint64 key) {
    m_key = key;
    m_keyParts.clear();
    for (int i = 0; i < 8; ++i)
        m_keyParts.append(static_cast<char>((m_key >> (8 * i)) & 0xFF));
}

void SimpleCipher::clearKey() {
    m_key = 0;
    m_keyParts.clear();
}

QByteArray SimpleCipher::encrypt(const QByteArray& plain) {
    if (m_keyParts.isEmpty()) {
        qWarning("No key set.");
        m_lastError = ErrorNoKeySet;
        return {};
    }
    QByteArray data = plain;
    int flags = 0;
    if (m_compressionMode != CompressionNever) {
        const QByteArray compressed = qCompress(data, compressionLevel);
        if (m_compressionMode == CompressionAlways || compressed.size() < data.size()) {
            data = compressed;
            flags |= flagCompressed;
        }
    }
    QByteArray prefix;
    if (m_protectionMode == ProtectionChecksum) {
        flags |= flagChecksum;
        prefix = checksum(data);
    } else if (m_protectionMode == ProtectionHash) {
        flags |= flagHash;
        prefix = hash(data);
    }
    data.prepend(prefix);
    data.prepend(static_cast<char>(QRandomGenerator::global()->bounded(256)));

    char last = 0;
    for (int p = 0; p < data.size(); ++p) {
        data[p] = static_cast<char>(data.at(p) ^ m_keyParts.at(p % 8) ^ last);
        last = data.at(p);
    }
    data.prepend(static_cast<char>(flags));
    data.prepend(version);
    m_lastError = ErrorNone;
    return data;
}

QByteArray SimpleCipher::decrypt(const QByteArray& cipher) {
    if (m_keyParts.isEmpty()) {
        qWarning("No key set.");
        m_lastError = ErrorNoKeySet;
        return {};
    }
    if (cipher.size() < 3)
        return {};
    if (cipher.at(0) != version) {
        m_lastError = ErrorUnknownVersion;
        qWarning("Invalid version or not a cyphertext.");
        return {};
    }
    const int flags = cipher.at(1);
    QByteArray data = cipher.mid(2);
    char last = 0;
    for (int p = 0; p < data.size(); ++p) {
        const char current = data.at(p);
        data[p] = static_cast<char>(current ^ last ^ m_keyParts.at(p % 8));
        last = current;
    }
    data = data.mid(1);

    bool intact = true;
    if (flags & flagChecksum)
        intact = takeCheck(data, 2, checksum);
    if (intact && (flags & flagHash))
        intact = takeCheck(data, hashLength, hash);
    if (!intact) {
        m_lastError = ErrorIntegrityFailed;
        return {};
    }
    if (flags & flagCompressed)
        data = qUncompress(data);
    m_lastError = ErrorNone;
    return data;
}

QString SimpleCipher::encryptToString(const QString& plain) {
    return QString::fromLatin1(encrypt(plain.toUtf8()).toBase64());
}

QString SimpleCipher::decryptToString(const QString& cipher) {
    return decryptToString(QByteArray::fromBase64(cipher.toLatin1()));
}

QString SimpleCipher::decryptToString(const QByteArray& cipher) {
    return QString::fromUtf8(decrypt(cipher));
}

quint64 cipherKeyFromHash(const QByteArray& hexadecimalHash) {
    const int half = hexadecimalHash.size() / 2;
    const quint64 first = fold(hexadecimalHash.left(half)) & 0x7FFFFFFFu;
    const quint64 second = fold(hexadecimalHash.mid(half)) & 0x7FFFFFFFu;
    return second + (first << 32);
}
