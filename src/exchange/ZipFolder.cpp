#include "exchange/ZipFolder.h"

#include <QDebug>
#include <QFile>
#include <memory>
#include <zip.h>

namespace {

struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};

// libzip tells how far it is and asks whether to go on by two calls.
struct Report {
    const Progress& progress;
    bool cancelled = false;
};

void told(zip_t*, double share, void* data) {
    auto* const report = static_cast<Report*>(data);
    report->cancelled = report->cancelled || !goesOn(report->progress, static_cast<qint64>(share * 100), 100);
}

int isCancelled(zip_t*, void* data) {
    return static_cast<Report*>(data)->cancelled ? 1 : 0;
}

bool addFile(zip_t* zip, const QString& path, const QByteArray& name) {
    zip_source_t* const source = zip_source_file(zip, QFile::encodeName(path).constData(), 0, -1);
    if (!source)
        return false;
    if (zip_file_add(zip, name.constData(), source, ZIP_FL_ENC_UTF_8) >= 0)
        return true;
    zip_source_free(source);
    return false;
}

}  // namespace

bool zipFolder(const QString& folder, const QStringList& files, const QStringList& folders,
               const QString& archive, const Progress& progress) {
    int code = 0;
    std::unique_ptr<zip_t, Discard> zip(
        zip_open(QFile::encodeName(archive).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code));
    if (!zip) {
        qDebug() << "Cannot make the archive" << archive << code;
        return false;
    }
    for (const QString& name : folders) {
        if (zip_dir_add(zip.get(), name.toUtf8().constData(), ZIP_FL_ENC_UTF_8) < 0)
            return false;
    }
    for (const QString& name : files) {
        if (!addFile(zip.get(), folder + QLatin1Char('/') + name, name.toUtf8()))
            return false;
    }
    Report report{progress};
    constexpr double precision = 0.01;
    zip_register_progress_callback_with_state(zip.get(), precision, told, nullptr, &report);
    zip_register_cancel_callback_with_state(zip.get(), isCancelled, nullptr, &report);
    if (zip_close(zip.get()) != 0) {
        qDebug() << "Cannot write the archive" << archive << zip_strerror(zip.get());
        return false;
    }
    zip.release();
    return true;
}
