#include "store/Migrations.h"

#include "store/Database.h"
#include "store/Dialect.h"

#include <algorithm>

namespace {

/// As every file of the first version has them. The schema is compared as text, so that not a blank may
/// change.
const QStringList firstVersion{
    QString::fromLatin1(
        R"(CREATE TABLE tbl_id_counter ("record" TEXT NOT NULL PRIMARY KEY, "lastId" INTEGER NOT NULL))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_removed_record ("record" TEXT NOT NULL, "id" INTEGER NOT NULL, "timestamp" )"
        R"(TEXT NOT NULL, PRIMARY KEY ("record", "id")))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_kerno ("id" INTEGER PRIMARY KEY, "parentKernoId" INTEGER NOT NULL DEFAULT -1, )"
        R"("color" TEXT NOT NULL DEFAULT '#ffffff', "title" TEXT NOT NULL DEFAULT '', "description" TEXT )"
        R"(NOT NULL DEFAULT '', "timestamp" TEXT NOT NULL DEFAULT '', "author" TEXT NOT NULL DEFAULT '', )"
        R"("x" INTEGER NOT NULL DEFAULT -1, "y" INTEGER NOT NULL DEFAULT -1))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_source ("id" INTEGER PRIMARY KEY, "title" TEXT NOT NULL DEFAULT '', "icon" )"
        R"(TEXT NOT NULL DEFAULT '', "author" TEXT NOT NULL DEFAULT '', "timestamp" TEXT NOT NULL DEFAULT )"
        R"(''))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_highlight ("id" INTEGER PRIMARY KEY, "kernoId" INTEGER NOT NULL DEFAULT -1, )"
        R"("sourceId" INTEGER NOT NULL DEFAULT -1, "questionId" INTEGER NOT NULL DEFAULT -1, "start" )"
        R"(INTEGER NOT NULL DEFAULT -1, "length" INTEGER NOT NULL DEFAULT -1, "author" TEXT NOT NULL )"
        R"(DEFAULT '', "timestamp" TEXT NOT NULL DEFAULT ''))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_memo ("id" INTEGER PRIMARY KEY, "sourceId" INTEGER NOT NULL DEFAULT -1, )"
        R"("questionId" INTEGER NOT NULL DEFAULT -1, "content" TEXT NOT NULL DEFAULT '', "start" INTEGER )"
        R"(NOT NULL DEFAULT -1, "length" INTEGER NOT NULL DEFAULT -1, "author" TEXT NOT NULL DEFAULT '', )"
        R"("timestamp" TEXT NOT NULL DEFAULT ''))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_question ("id" INTEGER PRIMARY KEY, "question" TEXT NOT NULL DEFAULT '', )"
        R"("questionOrder" INTEGER NOT NULL DEFAULT -1))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_question_answer ("id" INTEGER PRIMARY KEY, "questionId" INTEGER NOT NULL )"
        R"(DEFAULT -1, "sourceId" INTEGER NOT NULL DEFAULT -1, "author" TEXT NOT NULL DEFAULT '', "answer" )"
        R"(TEXT NOT NULL DEFAULT '', "timestamp" TEXT NOT NULL DEFAULT ''))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_source_metadata ("id" INTEGER PRIMARY KEY, "sourceId" INTEGER NOT NULL DEFAULT )"
        R"(-1, "keyId" INTEGER NOT NULL DEFAULT -1, "valueId" INTEGER NOT NULL DEFAULT -1, "author" TEXT )"
        R"(NOT NULL DEFAULT '', "timestamp" TEXT NOT NULL DEFAULT ''))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_source_metadata_key ("id" INTEGER PRIMARY KEY, "multipleChoice" BOOLEAN NOT )"
        R"(NULL DEFAULT FALSE, "sortValuesAlphabetically" BOOLEAN NOT NULL DEFAULT FALSE, "key" TEXT NOT )"
        R"(NULL DEFAULT ''))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_source_metadata_value ("id" INTEGER PRIMARY KEY, "keyId" INTEGER NOT NULL )"
        R"(DEFAULT -1, "value" TEXT NOT NULL DEFAULT 'null'))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_level ("id" INTEGER PRIMARY KEY, "description" TEXT NOT NULL DEFAULT ''))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_level_kerno ("id" INTEGER PRIMARY KEY, "groupId" INTEGER NOT NULL DEFAULT -1, )"
        R"("kernoId" INTEGER NOT NULL DEFAULT -1))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_kerno_shortcut_key ("shortcutKey" TEXT NOT NULL PRIMARY KEY, "kernoId" INTEGER )"
        R"(NOT NULL DEFAULT -1))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_preference ("key" TEXT NOT NULL PRIMARY KEY, "value" TEXT NOT NULL DEFAULT )"
        R"('null'))"),
    QString::fromLatin1(
        R"(CREATE TABLE tbl_chat_message ("id" INTEGER PRIMARY KEY, "message" TEXT NOT NULL DEFAULT '', )"
        R"("author" TEXT NOT NULL DEFAULT '', "timestamp" TEXT NOT NULL DEFAULT ''))"),
    QString::fromLatin1(R"(CREATE INDEX idx_kerno_parentKernoId ON tbl_kerno ("parentKernoId"))"),
    QString::fromLatin1(
        R"(CREATE INDEX idx_highlight_sourceId_questionId ON tbl_highlight ("sourceId", "questionId"))"),
    QString::fromLatin1(
        R"(CREATE INDEX idx_highlight_kernoId_sourceId ON tbl_highlight ("kernoId", "sourceId"))"),
    QString::fromLatin1(R"(CREATE INDEX idx_highlight_questionId ON tbl_highlight ("questionId"))"),
    QString::fromLatin1(
        R"(CREATE INDEX idx_memo_sourceId_questionId ON tbl_memo ("sourceId", "questionId"))"),
    QString::fromLatin1(
        R"(CREATE INDEX idx_question_answer_sourceId_questionId ON tbl_question_answer ("sourceId", )"
        R"("questionId"))"),
    QString::fromLatin1(R"(CREATE INDEX idx_source_metadata_sourceId ON tbl_source_metadata ("sourceId"))"),
    QString::fromLatin1(
        R"(CREATE INDEX idx_source_metadata_keyId_valueId ON tbl_source_metadata ("keyId", "valueId"))"),
    QString::fromLatin1(
        R"(CREATE INDEX idx_source_metadata_value_keyId ON tbl_source_metadata_value ("keyId"))"),
    QString::fromLatin1(R"(CREATE INDEX idx_level_kerno_kernoId ON tbl_level_kerno ("kernoId"))")};

Outcome runStep(Database& database, const QStringList& step, int version) {
    Outcome outcome = database.run(dialect::beginText());
    if (!outcome.ok())
        return outcome;
    for (const QString& text : step) {
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

const Migrations& migrations() {
    // A released step is never changed. A field that is added to a record gets a step of its own:
    // ALTER TABLE ... ADD COLUMN "name" ... NOT NULL DEFAULT ...
    static const Migrations history{firstVersion};
    return history;
}

Outcome migrate(Database& database, const Migrations& history, int from, int to) {
    for (int version = from + 1; version <= to; ++version) {
        const Outcome outcome = runStep(database, history[static_cast<size_t>(version - 1)], version);
        if (!outcome.ok())
            return outcome;
    }
    return Outcome::done();
}

Outcome checkSchema(Database& database, const Migrations& history, int version) {
    // The model to compare with is a file of that version, made in memory by the same steps.
    QString message;
    const std::unique_ptr<Database> model = Database::open(QStringLiteral(":memory:"), &message);
    if (!model)
        return Outcome::failed(message);
    Outcome outcome = migrate(*model, history, 0, version);
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
