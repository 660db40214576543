#pragma once

#include <QString>

/// Copies of project files.
namespace copies {

/// Copies the file to the same name with ".bak". The backup before is kept under another name until the copy
/// is complete, and comes back when it fails.
bool replaceBackup(const QString& path);

/// Copies the file to `target`, in place of a file that is there. The copy is written beside the target and
/// takes its name when it is complete, so that a copy that fails leaves the target as it was.
bool replace(const QString& path, const QString& target);

/// The name with the suffix ".krn", unless it has it in some spelling.
QString withProjectSuffix(const QString& path);

}  // namespace copies
