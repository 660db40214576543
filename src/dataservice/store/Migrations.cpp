#include "store/Migrations.h"

#include "store/Database.h"
#include "store/Dialect.h"
#include "store/Sql.h"

#include <vector>

namespace {

QStringList firstTables() {
    QStringList texts{sql::createCounterTable(), sql::createRemovedTable()};
    for (wire::Record record : wire::allRecords())
        texts << sql::createTable(tableOf(record));
    for (const TableIndex& index : tableIndices())
        texts << sql::createIndex(index);
    return texts;
}

/// One step for each version, the first making an empty file a project. Released steps are never changed: a
/// field that is added to a record gets a step that adds its column.
const std::vector<QStringList (*)()> steps{&firstTables};

Outcome runStep(Database& database, int version) {
    Outcome outcome = database.run(dialect::beginText());
    if (!outcome.ok())
        return outcome;
    for (const QString& text : steps[static_cast<size_t>(version - 1)]()) {
        outcome = database.run(text);
        if (!outcome.ok())
            break;
    }
    if (outcome.ok())
        outcome = dialect::setVersion(database, version);
    if (outcome.ok())
        outcome = database.run(QStringLiteral("COMMIT"));
    if (!outcome.ok())
        database.run(QStringLiteral("ROLLBACK"));
    return outcome;
}

}  // namespace

int currentSchemaVersion() {
    return static_cast<int>(steps.size());
}

Outcome migrate(Database& database, int from, int to) {
    for (int version = from + 1; version <= to; ++version) {
        const Outcome outcome = runStep(database, version);
        if (!outcome.ok())
            return outcome;
    }
    return Outcome::done();
}

Outcome checkSchema(Database& database, int version) {
    // The model to compare with is a file of that version, made in memory by the same steps.
    QString message;
    const std::unique_ptr<Database> model = Database::open(QStringLiteral(":memory:"), &message);
    if (!model)
        return Outcome::failed(message);
    Outcome outcome = migrate(*model, 0, version);
    std::vector<dialect::SchemaEntry> expected;
    if (outcome.ok())
        outcome = dialect::readSchema(*model, &expected);
    std::vector<dialect::SchemaEntry> found;
    if (outcome.ok())
        outcome = dialect::readSchema(database, &found);
    if (!outcome.ok())
        return outcome;
    for (const dialect::SchemaEntry& entry : found) {
        if (std::find(expected.begin(), expected.end(), entry) == expected.end()) {
            return Outcome::refused(
                QStringLiteral("It holds the unknown or altered %1 \"%2\".").arg(entry.type, entry.name));
        }
    }
    if (found.size() != expected.size())
        return Outcome::refused(QStringLiteral("Some of its tables or indices are missing."));
    return Outcome::done();
}
