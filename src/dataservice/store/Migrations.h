#pragma once

#include "store/Outcome.h"

#include <QString>

class Database;

/// Version of the schema that this program writes.
int currentSchemaVersion();

/// Takes the schema from one version to a later one, each step in a transaction of its own. Version 0 is an
/// empty file.
Outcome migrate(Database& database, int from, int to);

/// Whether the file defines exactly what a file of that version does; `Refused` with a sentence otherwise.
Outcome checkSchema(Database& database, int version);
