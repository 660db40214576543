#pragma once

#include <QString>
#include <QTemporaryDir>

/// Has a file of foreign bytes take the way of every import.
class ImportExercise {
public:
    /// Writes the bytes as a file of the kind. Gives the file's path.
    QString write(const QString& suffix, const QByteArray& bytes) const;

    /// The plain text of the source that becomes of a file.
    static QString plainTextOf(const QString& path);

    /// The same, of bytes. `source` becomes whether there would be a source at all.
    QString import(const QString& suffix, const QByteArray& bytes, bool* source = nullptr) const;

private:
    QTemporaryDir m_folder;
};
