#pragma once

#include <QStringList>

/// The absolute path of the project file that the last argument names, when it is a file with the suffix
/// "krn", in any case, that can be written; empty otherwise. The first argument is the program.
QString projectFileOf(const QStringList& arguments);
