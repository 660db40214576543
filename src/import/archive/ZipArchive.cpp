#include "import/archive/ZipArchive.h"

#include <QFile>
#include <QFileInfo>
#include <array>
#include <zip.h>

namespace {

struct EntryCloser {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};

constexpr std::size_t chunkBytes = 64 * 1024;

}  // namespace

void ZipArchive::Closer::operator()(zip* archive) const {
    zip_discard(archive);
}

ZipArchive::ZipArchive(const QString& path, const ZipLimits& limits) : m_limits(limits) {
    // Anything but a file, such as a pipe, could have the reading wait for ever.
    if (!QFileInfo(path).isFile()) {
        fail(QStringLiteral("not a file"));
        return;
    }
    int code = 0;
    m_zip.reset(zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &code));
    if (!m_zip) {
        fail(QStringLiteral("not a readable archive (%1)").arg(code));
    } else if (zip_get_num_entries(m_zip.get(), 0) > m_limits.entries) {
        fail(QStringLiteral("too many entries"));
        m_zip.reset();
    }
}

ZipArchive::~ZipArchive() = default;

bool ZipArchive::fail(const QString& why) {
    m_error = why;
    return false;
}

QStringList ZipArchive::names() const {
    QStringList all;
    const zip_int64_t count = m_zip ? zip_get_num_entries(m_zip.get(), 0) : 0;
    for (zip_int64_t i = 0; i < count; ++i)
        all << QString::fromUtf8(zip_get_name(m_zip.get(), static_cast<zip_uint64_t>(i), 0));
    return all;
}

bool ZipArchive::contains(const QString& name) const {
    return m_zip && zip_name_locate(m_zip.get(), name.toUtf8().constData(), 0) >= 0;
}

bool ZipArchive::unpack(const QString& name, const Sink& sink) {
    if (!m_zip)
        return false;
    m_error.clear();
    const QByteArray entry = name.toUtf8();
    zip_stat_t about;
    if (zip_stat(m_zip.get(), entry.constData(), 0, &about) != 0)
        return fail(QStringLiteral("no such entry"));
    const std::unique_ptr<zip_file_t, EntryCloser> file(zip_fopen(m_zip.get(), entry.constData(), 0));
    if (!file)
        return fail(QString::fromUtf8(zip_strerror(m_zip.get())));
    const auto packed = static_cast<qint64>(about.comp_size);
    std::array<char, chunkBytes> chunk{};
    qint64 unpacked = 0;
    for (;;) {
        const zip_int64_t got = zip_fread(file.get(), chunk.data(), chunk.size());
        if (got < 0)
            return fail(QString::fromUtf8(zip_file_strerror(file.get())));
        if (got == 0)
            return true;
        unpacked += got;
        m_unpacked += got;
        if (unpacked > m_limits.entryBytes || m_unpacked > m_limits.totalBytes)
            return fail(QStringLiteral("too large"));
        if (unpacked > m_limits.freeBytes && unpacked / m_limits.ratio > packed)
            return fail(QStringLiteral("packed suspiciously well"));
        if (!sink(chunk.data(), got))
            return fail(QStringLiteral("cannot write what is unpacked"));
    }
}

QByteArray ZipArchive::read(const QString& name) {
    // An entry without content is an empty text, not a missing one.
    QByteArray bytes("");
    const bool complete = unpack(name, [&bytes](const char* chunk, qint64 size) {
        bytes.append(chunk, static_cast<int>(size));
        return true;
    });
    return complete ? bytes : QByteArray();
}

bool ZipArchive::unpack(const QString& name, QIODevice& out) {
    return unpack(name, [&out](const char* chunk, qint64 size) { return out.write(chunk, size) == size; });
}
