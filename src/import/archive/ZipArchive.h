#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class QIODevice;
struct zip;

/// What an archive of unknown origin may cost. Bytes are counted while they are unpacked; what the archive
/// says of itself isn't trusted.
struct ZipLimits {
    int entries = 20000;
    qint64 entryBytes = qint64(48) << 20;  ///< of one entry, unpacked
    qint64 totalBytes = qint64(1) << 30;   ///< of all that is read from one archive, unpacked
    int ratio = 400;                       ///< of an entry's unpacked to its packed bytes...
    qint64 freeBytes = qint64(8) << 20;    ///< ... once it has given as much as this
};

/// Reads a zip archive from disk, within limits. Entries are taken by name into memory or a device, so no
/// name in the archive ever becomes a path. Encrypted entries, and those whose checksum is wrong, are
/// failures.
class ZipArchive {
public:
    explicit ZipArchive(const QString& path, const ZipLimits& limits = {});
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    bool isOpen() const { return m_zip != nullptr; }
    /// Why the archive isn't open or the last reading failed; empty after a success.
    QString error() const { return m_error; }

    /// The entries in the order of the archive, folders included (their names end with "/").
    QStringList names() const;
    bool contains(const QString& name) const;

    /// An entry's bytes. Null when it is missing, damaged, encrypted or too large; `error()` tells.
    QByteArray read(const QString& name);
    /// The same into a device that is open for writing. What was written before a failure stays there.
    bool unpack(const QString& name, QIODevice& out);

private:
    using Sink = std::function<bool(const char* bytes, qint64 size)>;
    bool unpack(const QString& name, const Sink& sink);
    bool fail(const QString& why);

    struct Closer {
        void operator()(zip* archive) const;
    };

    ZipLimits m_limits;
    qint64 m_unpacked = 0;
    QString m_error;
    std::unique_ptr<zip, Closer> m_zip;
};
