#pragma once

#include <QString>

/// Copies of project files.
namespace copies {

/// Copies the file to the same name with ".bak". The backup before is kept under another name until the copy
/// is complete, and comes back when it fails.
bool replaceBackup(const QString& path);

/// The name with the suffix ".krn", unless it has it in some spelling.
QString withProjectSuffix(const QString& path);

}  // namespace copies
