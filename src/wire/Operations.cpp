#include "wire/Operations.h"

#include <QHash>
#include <array>

namespace wire {
namespace {

constexpr unsigned bit(Operation operation) {
    return 1u << static_cast<unsigned>(operation);
}

constexpr unsigned list = bit(Operation::QueryList);
constexpr unsigned byId = bit(Operation::QueryById);
constexpr unsigned maxId = bit(Operation::MaxId);
constexpr unsigned save = bit(Operation::CreateOrUpdate);
constexpr unsigned removal = bit(Operation::Remove);
constexpr unsigned batch = bit(Operation::BatchCreateOrUpdate) | bit(Operation::BatchRemove);
constexpr unsigned window = bit(Operation::QueryListWithOffset);
constexpr unsigned plain = list | maxId | save | removal;
constexpr unsigned passage = plain | byId | batch | window;
constexpr unsigned inTables = plain | batch;

struct RecordRow {
    Record record;
    QLatin1String word;
    unsigned operations;
};

const std::array<RecordRow, 14> records{{
    {Record::Kerno, QLatin1String("kerno"), plain},
    {Record::Source, QLatin1String("source"), inTables},
    {Record::Highlight, QLatin1String("highlight"), passage},
    {Record::Memo, QLatin1String("memo"), passage},
    {Record::Question, QLatin1String("question"), plain},
    {Record::QuestionAnswer, QLatin1String("questionAnswer"), inTables},
    {Record::SourceMetadata, QLatin1String("sourceMetadata"), inTables},
    {Record::SourceMetadataKey, QLatin1String("sourceMetadataKey"), plain},
    {Record::SourceMetadataValue, QLatin1String("sourceMetadataValue"), inTables},
    {Record::Group, QLatin1String("group"), plain},
    {Record::KernoGroup, QLatin1String("groupKerno"), plain},
    {Record::KernoShortcutKey, QLatin1String("kernoShortcutKey"), list | save | removal},
    {Record::Preference, QLatin1String("preference"), byId | save},
    {Record::ChatMessage, QLatin1String("chatMessage"), plain},
}};

const std::array<QLatin1String, 8> suffixes{
    QLatin1String("QueryList"), QLatin1String("QueryById"),      QLatin1String("QueryListWithOffset"),
    QLatin1String("MaxId"),     QLatin1String("CreateOrUpdate"), QLatin1String("BatchCreateOrUpdate"),
    QLatin1String("Remove"),    QLatin1String("BatchRemove")};

const RecordRow& row(Record record) {
    const RecordRow& found = records[static_cast<size_t>(record)];
    Q_ASSERT(found.record == record);
    return found;
}

std::vector<NotificationRow> makeNotificationTable() {
    using N = Notification;
    struct Pair {
        N saved;
        Record record;
        bool batch;
    };
    // A deletion always follows its saving, so one row here stands for both.
    const std::array<Pair, 14> pairs{{{N::KernoSaved, Record::Kerno, false},
                                      {N::GroupSaved, Record::Group, false},
                                      {N::KernoGroupSaved, Record::KernoGroup, false},
                                      {N::SourceSaved, Record::Source, false},
                                      {N::HighlightSaved, Record::Highlight, false},
                                      {N::BatchHighlightsSaved, Record::Highlight, true},
                                      {N::MemoSaved, Record::Memo, false},
                                      {N::BatchMemosSaved, Record::Memo, true},
                                      {N::QuestionSaved, Record::Question, false},
                                      {N::AnswerSaved, Record::QuestionAnswer, false},
                                      {N::MetadataSaved, Record::SourceMetadata, false},
                                      {N::MetadataKeySaved, Record::SourceMetadataKey, false},
                                      {N::MetadataValueSaved, Record::SourceMetadataValue, false},
                                      {N::ChatMessageSaved, Record::ChatMessage, false}}};
    std::vector<NotificationRow> table;
    for (const Pair& pair : pairs) {
        const Operation saving = pair.batch ? Operation::BatchCreateOrUpdate : Operation::CreateOrUpdate;
        const Operation removing = pair.batch ? Operation::BatchRemove : Operation::Remove;
        Q_ASSERT(static_cast<size_t>(pair.saved) == table.size());
        table.push_back({pair.saved, pair.record, saving, operationName(pair.record, saving)});
        table.push_back({static_cast<N>(static_cast<int>(pair.saved) + 1), pair.record, removing,
                         operationName(pair.record, removing)});
    }
    return table;
}

QHash<QString, RecordOperation> makeNames() {
    QHash<QString, RecordOperation> names;
    for (const RecordRow& record : records) {
        for (size_t i = 0; i < suffixes.size(); ++i) {
            const auto operation = static_cast<Operation>(i);
            if (isSupported(record.record, operation))
                names.insert(operationName(record.record, operation), {record.record, operation});
        }
    }
    return names;
}

}  // namespace

const std::vector<Record>& allRecords() {
    static const std::vector<Record> all = [] {
        std::vector<Record> found;
        for (const RecordRow& record : records)
            found.push_back(record.record);
        return found;
    }();
    return all;
}

QString word(Record record) {
    return row(record).word;
}

QString suffix(Operation operation) {
    return suffixes[static_cast<size_t>(operation)];
}

QString operationName(Record record, Operation operation) {
    Q_ASSERT(isSupported(record, operation));
    return word(record) + suffix(operation);
}

QString batchArgument(Record record) {
    return word(record) + QLatin1Char('s');
}

bool isSupported(Record record, Operation operation) {
    return row(record).operations & bit(operation);
}

bool isAnsweredWithPlaces(Record record) {
    return isSupported(record, Operation::QueryListWithOffset);
}

std::optional<RecordOperation> recordOperation(const QString& name) {
    static const QHash<QString, RecordOperation> names = makeNames();
    const auto found = names.constFind(name);
    if (found == names.constEnd())
        return std::nullopt;
    return *found;
}

const std::vector<NotificationRow>& notificationTable() {
    static const std::vector<NotificationRow> table = makeNotificationTable();
    return table;
}

const NotificationRow* findNotification(const QJsonObject& data) {
    for (const NotificationRow& candidate : notificationTable()) {
        if (data.contains(candidate.key))
            return &candidate;
    }
    return nullptr;
}

std::optional<RecordOperation> findRecordBatch(const QJsonObject& data) {
    for (const QString& name : data.keys()) {
        const std::optional<RecordOperation> found = recordOperation(name);
        const bool isBatch = found && (bit(found->operation) & batch) != 0;
        if (isBatch && !isAnsweredWithPlaces(found->record))
            return found;
    }
    return std::nullopt;
}

}  // namespace wire
