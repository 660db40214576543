#pragma once

#include <QString>

/// Copies a file, or a folder with all that is in it, over what is there; false when any step fails. A folder
/// is not copied into itself.
bool copyRecursively(const QString& source, const QString& target);
