#pragma once

#include "exchange/QDPXImporter.h"

#include <QTemporaryDir>

/// Has foreign bytes take the way of every exchange archive.
class ExchangeExercise {
public:
    using Entries = QVector<QPair<QByteArray, QByteArray>>;

    /// Imports an archive with these entries.
    QDPXImporter::Result import(const Entries& entries) const;
    /// One with a document and the texts "a.txt" (with a byte order mark and CR LF) and "b.txt".
    QDPXImporter::Result importDocument(const QByteArray& document) const;

    /// Imports the bytes, as an archive or as the document of one. Empty, or what of the project that came
    /// out isn't sound.
    QString faultOf(const QByteArray& bytes) const;

    QString path(const QString& name) const { return m_folder.filePath(name); }

private:
    QDPXImporter::Result importBytes(const QByteArray& archive) const;

    QTemporaryDir m_folder;
};
