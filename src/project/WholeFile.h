#pragma once

#include <QSaveFile>

/// Writes all bytes. What can't be written makes `putInPlace` fail: on a full disk a write stops short
/// without an error, which only the next one tells of.
inline void writeWhole(QSaveFile& file, const QByteArray& bytes) {
    for (qint64 at = 0, written = 0; at < bytes.size(); at += written) {
        written = file.write(bytes.constData() + at, bytes.size() - at);
        if (written <= 0)
            return;
    }
}

/// Puts a file that was written into its place, if every byte of it was; `QSaveFile::commit` overlooks those
/// that the last flush can't write. Empty on success, otherwise why not; then nothing has changed.
inline QString putInPlace(QSaveFile& file) {
    const bool flushed = file.flush() && file.error() == QFileDevice::NoError;
    const QString error = file.errorString();
    if (!flushed)
        file.cancelWriting();
    return file.commit() ? QString() : flushed ? file.errorString() : error;
}
