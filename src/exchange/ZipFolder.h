#pragma once

#include "project/Progress.h"

#include <QString>
#include <QStringList>

/// Packs files of a folder into a new archive, in that order; `folders` become entries of their own. The
/// archive is written beside its name and takes the place of a file there when it is complete. False when
/// something can't be read or written, or the progress ends it.
bool zipFolder(const QString& folder, const QStringList& files, const QStringList& folders,
               const QString& archive, const Progress& progress = {});
