#pragma once

#include "store/Migrations.h"
#include "store/Outcome.h"

#include <QByteArray>
#include <QString>
#include <memory>

class Database;

/// Making, checking and opening project files.
namespace projectfile {

/// Opens an existing project file after it passed every check, and brings it to the current version. A file
/// that is refused is left as it is. Null with a sentence in `message` on any failure.
std::unique_ptr<Database> open(const QString& path, QString* message,
                               const Migrations& history = migrations());

/// Opens an existing project file to read a few rows, at a cost that doesn't grow with the file: its pages
/// are not gone through and it is not migrated. Nothing can be written through what is given back.
std::unique_ptr<Database> openToLook(const QString& path, QString* message);

/// Makes an empty project in a new file, to be filled and then moved into place. Fails when the file exists.
std::unique_ptr<Database> createAt(const QString& path, QString* message);

/// A name for a new file beside `path`, free at the time of the call.
QString temporaryNameBeside(const QString& path);

/// Forces the closed file to the disk and renames it into place; on failure the temporary file is removed.
Outcome moveIntoPlace(const QString& temporary, const QString& path);

/// Makes an empty project at a path where there is none.
Outcome create(const QString& path);

/// Tells one file from another whatever its name; empty when there is no file.
QByteArray identity(const QString& path);

}  // namespace projectfile
