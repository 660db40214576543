#pragma once

#include "store/Outcome.h"

#include <QStringList>
#include <vector>

class Database;

/// The history of the schema: for each version the SQL that leads to it from the one before, the first from
/// an empty file.
using Migrations = std::vector<QStringList>;

/// This program's.
const Migrations& migrations();

/// Takes the schema from one version to a later one, each step in a transaction of its own. Version 0 is an
/// empty file.
Outcome migrate(Database& database, const Migrations& history, int from, int to);

/// Whether the file defines exactly what a file of that version does; `Refused` with a sentence otherwise.
Outcome checkSchema(Database& database, const Migrations& history, int version);
