#include "store/Table.h"

namespace {

using wire::Record;

QString tableName(Record record) {
    switch (record) {
    case Record::Kerno:
        return QStringLiteral("tbl_kerno");
    case Record::Source:
        return QStringLiteral("tbl_source");
    case Record::Highlight:
        return QStringLiteral("tbl_highlight");
    case Record::Memo:
        return QStringLiteral("tbl_memo");
    case Record::Question:
        return QStringLiteral("tbl_question");
    case Record::QuestionAnswer:
        return QStringLiteral("tbl_question_answer");
    case Record::SourceMetadata:
        return QStringLiteral("tbl_source_metadata");
    case Record::SourceMetadataKey:
        return QStringLiteral("tbl_source_metadata_key");
    case Record::SourceMetadataValue:
        return QStringLiteral("tbl_source_metadata_value");
    case Record::Group:
        return QStringLiteral("tbl_level");
    case Record::KernoGroup:
        return QStringLiteral("tbl_level_kerno");
    case Record::KernoShortcutKey:
        return QStringLiteral("tbl_kerno_shortcut_key");
    case Record::Preference:
        return QStringLiteral("tbl_preference");
    case Record::ChatMessage:
        return QStringLiteral("tbl_chat_message");
    }
    return {};
}

Table makeTable(Record record) {
    Table table;
    table.record = record;
    table.name = tableName(record);
    for (const FieldInfo& field : recordFields(record)) {
        if (field.local)
            continue;
        // What is neither sent nor stamped belongs to another record.
        const bool joined = !field.sent && field.type != FieldType::Timestamp;
        if (field.type == FieldType::Timestamp)
            table.timestampColumn = static_cast<int>(table.columns.size());
        table.columns.push_back({field.wireName, field.roleName, field.type, field.sent, joined,
                                 '"' + field.wireName.toLatin1() + "\":"});
    }
    return table;
}

}  // namespace

bool Table::isPassage() const {
    return record == Record::Highlight || record == Record::Memo;
}

int Table::indexOf(const QString& columnName) const {
    for (size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].name == columnName)
            return static_cast<int>(i);
    }
    return -1;
}

const Table& tableOf(Record record) {
    static const std::vector<Table> tables = [] {
        std::vector<Table> made;
        for (Record each : wire::allRecords())
            made.push_back(makeTable(each));
        return made;
    }();
    return tables[static_cast<size_t>(record)];
}
