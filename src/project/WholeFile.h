#pragma once

#include <QSaveFile>

/// Puts a file that was written into its place, if every byte of it was; `QSaveFile::commit` overlooks those
/// that the last flush can't write. Empty on success, otherwise why not; then nothing has changed.
inline QString putInPlace(QSaveFile& file) {
    const bool flushed = file.flush() && file.error() == QFileDevice::NoError;
    const QString error = file.errorString();
    if (!flushed)
        file.cancelWriting();
    return file.commit() ? QString() : flushed ? file.errorString() : error;
}
