#include "export/ZipWriter.h"

#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>
#include <zip.h>

namespace {

constexpr zip_uint32_t folderMode = S_IFDIR | 0777;
constexpr zip_uint32_t fileMode = S_IFREG | 0666;
constexpr double progressPrecision = 0.005;
constexpr int progressSteps = 1000;

struct Work {
    const Progress& progress;
    bool cancelled = false;
};

void tell(zip_t*, double done, void* work) {
    auto* const w = static_cast<Work*>(work);
    w->cancelled = !goesOn(w->progress, static_cast<qint64>(done * progressSteps), progressSteps);
}

int isCancelled(zip_t*, void* work) {
    return static_cast<Work*>(work)->cancelled ? 1 : 0;
}

bool add(zip_t* archive, const ZipEntry& entry) {
    const QByteArray name = entry.name.toUtf8();
    const bool isFolder = name.endsWith('/');
    zip_int64_t index = -1;
    if (isFolder) {
        index = zip_dir_add(archive, name.constData(), ZIP_FL_ENC_UTF_8);
    } else {
        zip_source_t* const source = zip_source_buffer(archive, entry.bytes.constData(),
                                                       static_cast<zip_uint64_t>(entry.bytes.size()), 0);
        index = source ? zip_file_add(archive, name.constData(), source, ZIP_FL_ENC_UTF_8) : -1;
        if (source && index < 0)
            zip_source_free(source);
    }
    if (index < 0)
        return false;
    const auto at = static_cast<zip_uint64_t>(index);
    const zip_uint32_t mode = isFolder ? folderMode : fileMode;
    return zip_file_set_external_attributes(archive, at, 0, ZIP_OPSYS_UNIX, mode << 16u) == 0 &&
           (isFolder || zip_set_file_compression(archive, at, ZIP_CM_DEFLATE, 0) == 0);
}

}  // namespace

QString writeZip(const QString& path, const QVector<ZipEntry>& entries, const Progress& progress) {
    if (QFileInfo(path).isDir())
        return QStringLiteral("a folder has this name");
    int code = 0;
    zip_t* const archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!archive) {
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        const QString why = QString::fromLocal8Bit(zip_error_strerror(&error));
        zip_error_fini(&error);
        return why;
    }
    Work work{progress};
    zip_register_progress_callback_with_state(archive, progressPrecision, tell, nullptr, &work);
    zip_register_cancel_callback_with_state(archive, isCancelled, nullptr, &work);
    bool added = true;
    for (const ZipEntry& entry : entries)
        added = added && add(archive, entry);
    // The closing writes a file beside the name, and renames it when it is complete.
    if (added && zip_close(archive) == 0)
        return {};
    const QString why = QString::fromLocal8Bit(zip_strerror(archive));
    zip_discard(archive);
    return why;
}
