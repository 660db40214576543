#pragma once

#include "project/Progress.h"

#include <QString>
#include <QStringList>

class KRNFile;

namespace csv {

/// What became of an export.
struct Result {
    int written = 0;         ///< files that are in their place
    bool cancelled = false;  ///< then none is
    QString sentence = {};   ///< what could not be written, and why; empty when everything was
};

/// The names of the files, in the order in which they are written.
QStringList fileNames();

/// Writes the open project as five CSV files into a folder, over files that are there. No file stands there
/// before all are complete; one that can't be written keeps no other from it. Waits for texts that are still
/// on their way. Runs on the main thread; `progress` may handle events.
Result exportProject(KRNFile& file, const QString& folder, const Progress& progress = {});

}  // namespace csv
