#pragma once

#include "project/Progress.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/// What a zip archive is to hold: folders have a name that ends with "/", and no bytes.
struct ZipEntry {
    QString name;
    QByteArray bytes;
};

/// Writes an archive, deflated, over a file that is there. The file is complete or as it was. Gives why it
/// could not be written; empty on success. A `progress` that ends the work gives a failure, too.
QString writeZip(const QString& path, const QVector<ZipEntry>& entries, const Progress& progress = {});
