#pragma once

#include <QJsonObject>
#include <QString>
#include <optional>
#include <vector>

/// The names that both programs use: record words, operations built from them, and notifications.
/// Nothing else in the tree spells an operation's name.
namespace wire {

enum class Record {
    Kerno,
    Source,
    Highlight,
    Memo,
    Question,
    QuestionAnswer,
    SourceMetadata,
    SourceMetadataKey,
    SourceMetadataValue,
    Group,
    KernoGroup,
    KernoShortcutKey,
    Preference,
    ChatMessage
};

enum class Operation {
    QueryList,
    QueryById,
    QueryListWithOffset,
    MaxId,
    CreateOrUpdate,
    BatchCreateOrUpdate,
    Remove,
    BatchRemove
};

/// All records, in the order of `Record`.
const std::vector<Record>& allRecords();

/// The word that operations of the record are built from, such as "kerno".
QString word(Record record);

/// The part of an operation's name that follows the word, such as "QueryList".
QString suffix(Operation operation);

/// Word and suffix: "kernoQueryList". The protocol has the operation: see `isSupported`.
QString operationName(Record record, Operation operation);

/// The argument that holds the records of a batch: the word and "s".
QString batchArgument(Record record);

/// Whether the protocol has this operation for this record.
bool isSupported(Record record, Operation operation);

/// How batches of a record are answered: with the places that they touched, or, of the kinds whose batches
/// are our own, with the records, which stand under `batchArgument`.
bool isAnsweredWithPlaces(Record record);

struct RecordOperation {
    Record record;
    Operation operation;
};

/// Reads an operation's name back; nothing for a name that isn't a supported generic operation.
std::optional<RecordOperation> recordOperation(const QString& name);

/// A change that the service announces. The order is that in which a frame's keys are tested.
enum class Notification {
    KernoSaved,
    KernoDeleted,
    GroupSaved,
    GroupDeleted,
    KernoGroupSaved,
    KernoGroupDeleted,
    SourceSaved,
    SourceDeleted,
    HighlightSaved,
    HighlightDeleted,
    BatchHighlightsSaved,
    BatchHighlightsDeleted,
    MemoSaved,
    MemoDeleted,
    BatchMemosSaved,
    BatchMemosDeleted,
    QuestionSaved,
    QuestionDeleted,
    AnswerSaved,
    AnswerDeleted,
    MetadataSaved,
    MetadataDeleted,
    MetadataKeySaved,
    MetadataKeyDeleted,
    MetadataValueSaved,
    MetadataValueDeleted,
    ChatMessageSaved,
    ChatMessageDeleted
};

struct NotificationRow {
    Notification notification;
    Record record;
    Operation operation;
    QString key;
};

/// One row for each notification, in the order of `Notification`.
const std::vector<NotificationRow>& notificationTable();

/// The first row whose key stands in `data`, or null when the frame announces no change.
const NotificationRow* findNotification(const QJsonObject& data);

/// The batch of our own that a frame tells of; nothing when it tells of none.
std::optional<RecordOperation> findRecordBatch(const QJsonObject& data);

/// Names of the reads and project mutations that aren't made of a record's word and a suffix.
namespace name {
inline const QString dbOpen = QStringLiteral("dbOpen");
inline const QString dbClose = QStringLiteral("dbClose");
inline const QString id = QStringLiteral("id");
inline const QString author = QStringLiteral("author");
inline const QString kernoHasChildren = QStringLiteral("kernoHasChildren");
inline const QString kernoIdsForKernosWithOverlap = QStringLiteral("kernoIdsForKernosWithOverlap");
inline const QString maxHighlightsCount = QStringLiteral("maxHighlightsCount");
inline const QString highlightOverlapCount = QStringLiteral("highlightOverlapCount");
inline const QString kernoOverlapCount = QStringLiteral("kernoOverlapCount");
inline const QString highlightQueryListBySourceQuestionAndKernos =
    QStringLiteral("highlightQueryListBySourceQuestionAndKernos");
inline const QString questionAnswerWithQuestionQueryList =
    QStringLiteral("questionAnswerWithQuestionQueryList");
inline const QString highlightsCoverageByKerno = QStringLiteral("highlightsCoverageByKerno");
inline const QString highlightsCoverageByAuthor = QStringLiteral("highlightsCoverageByAuthor");
inline const QString highlightsCoverageByKernoAndAuthor =
    QStringLiteral("highlightsCoverageByKernoAndAuthor");
inline const QString highlightsOverviewPerSourceForKerno =
    QStringLiteral("highlightsOverviewPerSourceForKerno");
inline const QString sourceMetadataListForReport = QStringLiteral("sourceMetadataListForReport");
inline const QString sourceMetadataOverviewForKeyId = QStringLiteral("sourceMetadataOverviewForKeyId");
inline const QString sourceMetadataOverviewForKeyAndKernosId =
    QStringLiteral("sourceMetadataOverviewForKeyAndKernosId");
inline const QString sourceCodedLengthById = QStringLiteral("sourceCodedLengthById");
inline const QString quoteCountsInKernos = QStringLiteral("quoteCountsInKernosQueryList");
inline const QString kernoQueryListWithHighlightsAndCriteria =
    QStringLiteral("kernoQueryListWithHighlightsAndCriteria");
/// Our own: many criteria in one read. Each highlight says in `passes` which of them it passes, the first in
/// the lowest bit.
inline const QString kernoQueryListWithHighlightsAndManyCriteria =
    QStringLiteral("kernoQueryListWithHighlightsAndManyCriteria");
inline const QString passes = QStringLiteral("passes");
/// Our own: how many ids a `MaxId` reserves. The answer is the last; they have no gaps.
inline const QString count = QStringLiteral("count");
}  // namespace name

/// The most criteria of one read, and the most ids of one reservation.
constexpr int maxCriteria = 31;
constexpr int maxReservedIds = 1000000;

/// The uuid of a project that has none: what the service answers for local projects and after a close.
inline const QString nullUuid = QStringLiteral("00000000-0000-0000-0000-000000000000");

/// `status` of an opened project in the reply to `dbOpen`.
inline const QString statusOpen = QStringLiteral("open");

/// Root `status` of a frame which says that access to the project is revoked.
constexpr int statusRevoked = 403;

/// Web socket close code: the same account opened the project in another session.
constexpr int closeCodeOtherSession = 4000;

}  // namespace wire
