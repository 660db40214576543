#pragma once

#include "models/ProjectEvents.h"
#include "project/ProjectTimings.h"
#include "records/ChatMessage.h"
#include "records/Group.h"
#include "records/KernoGroup.h"
#include "records/KernoShortcutKey.h"
#include "records/ProjectContext.h"
#include "records/Question.h"
#include "records/QuestionAnswer.h"
#include "records/Source.h"
#include "records/SourceMetadata.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QUrl>
#include <QVariantList>
#include <functional>
#include <memory>

class AnswerCache;
class QEventLoop;
class SimpleCipher;
struct LinkTimings;
struct ProjectModels;

/// The project as the rest of the program sees it: the context object `krnFile`. It opens and closes
/// projects, answers reads, sends writes, and turns the service's notifications into changes of the models
/// and into the signals that it inherits. It holds no project data beside its models.
///
/// Everything runs on the main thread. Reads block until the service has answered; on a closed project they
/// give empty results. Ids are those of the records, results for QML are lists of maps with the records' role
/// names.
class KRNFile : public ProjectEvents, public ProjectContext {
    Q_OBJECT
    Q_PROPERTY(bool isOpened READ isOpened NOTIFY isOpenedChanged)
    Q_PROPERTY(bool singleQuestionMode READ singleQuestionMode NOTIFY singleQuestionModeChanged)
    Q_PROPERTY(
        bool awaitingOpenConfirmation READ awaitingOpenConfirmation NOTIFY awaitingOpenConfirmationChanged)
    Q_PROPERTY(QJsonObject currentProject READ currentProject NOTIFY isOpenedChanged)
    Q_PROPERTY(bool isOwner READ isOwner NOTIFY isOwnerChanged)
    Q_PROPERTY(bool canMutate READ canMutate NOTIFY canMutateChanged)
    Q_PROPERTY(int connectedUserCount READ connectedUserCount NOTIFY connectedUsersChanged)
    Q_PROPERTY(QObject* questionModel READ questionModel CONSTANT)
    Q_PROPERTY(int textsHere READ textsHere NOTIFY textsChanged)
    Q_PROPERTY(int textsExpected READ textsExpected NOTIFY textsChanged)
    Q_PROPERTY(int textsFailed READ textsFailed NOTIFY textsChanged)
    Q_PROPERTY(bool allTextsHere READ allTextsHere NOTIFY textsChanged)
    Q_PROPERTY(bool waitsForTexts READ waitsForTexts NOTIFY textsChanged)

public:
    explicit KRNFile(QObject* parent = nullptr, const ProjectTimings& timings = {});
    KRNFile(const LinkTimings& linkTimings, const ProjectTimings& timings, QObject* parent = nullptr);
    /// Closes an open project, then ends the link and the local service with it.
    ~KRNFile() override;

    /// The one project object of the process: made on first use as a child of the application object.
    static KRNFile* instance();

    /// Makes the models, once; later calls do nothing.
    void initModels();

    // Lifecycle. A project object has `name` (of a local project: the path of its file), `project_uuid`
    // (empty for a local project) and, in the cloud, `region`.

    /// Opens or creates a project. Runs event loops inside, and waits for `confirmOpenAlreadyOpenedFile` when
    /// the project is marked as open elsewhere, unless `ignoreLock`. On false the project is closed and
    /// `getLastOpenError` says why; it is empty when the user decided against opening.
    Q_INVOKABLE bool openProject(const QJsonObject& project, bool createNew, const QString& password,
                                 bool singleQuestion, bool ignoreLock = false);
    Q_INVOKABLE void close();
    /// Closes the project and the link, and logs out of the cloud.
    Q_INVOKABLE void closeAndReset();
    Q_INVOKABLE QString getLastOpenError() const { return m_lastError; }
    Q_INVOKABLE void confirmOpenAlreadyOpenedFile(bool shouldOpen);
    /// Copies a local project's file to the same name with ".bak"; a copy that fails leaves the one before.
    Q_INVOKABLE bool makeBackup(const QUrl& project);
    /// Copies the open local project to `outputFile`, over a file that is there, and opens the copy. When the
    /// copying fails the project stays open; when the opening fails, no project is.
    Q_INVOKABLE bool saveAs(const QString& outputFile);
    /// Copies the open cloud project and opens the copy; gives success and, on failure, a sentence.
    Q_INVOKABLE QVariantList saveAsRemote(const QString& newName);

    /// Write a part of the open project as a new one, and leave this one as it is: a local project's into the
    /// file `name`, over one that is there, a cloud project's into the cloud under the title `name`. The part
    /// has this project's kind and password. They give success and, on failure, a sentence; then nothing is
    /// written.
    Q_INVOKABLE QVariantList exportKRNSources(const QString& name);
    Q_INVOKABLE QVariantList exportKRNStructure(const QString& name);

    /// Writes the project as CSV files into a folder, and shows the folder when one was written. False when
    /// one could not be; what the user cancels is no failure.
    Q_INVOKABLE bool exportAsCSV(const QString& outputFolder);
    struct TablesWritten {
        int files = 0;
        bool complete = false;
    };
    /// What does the writing: the program's rooms above.
    using TableWriter = std::function<TablesWritten(KRNFile& file, const QString& folder)>;
    void setTableWriter(const TableWriter& writer) { m_tableWriter = writer; }

    bool isOpened() const override;
    bool isOwner() const;
    /// Whether the access level allows changes; `notify` tells the user when it doesn't.
    bool canMutate(bool notify = false) const;
    bool singleQuestionMode() const { return m_singleQuestion; }
    bool awaitingOpenConfirmation() const { return m_awaitingConfirmation; }
    int connectedUserCount() const { return m_userCount; }
    QJsonObject currentProject() const;
    /// Whether this client marked the project as open.
    bool holdsLock() const { return m_holdsLock; }

    // The texts of an opened project arrive source by source while the screens are in use. Reads of single
    // answers (`answer`, `partialAnswer`) always find them; what goes over all texts waits first.

    /// Number of sources whose texts are in memory, are to come into it, and could not be read.
    int textsHere() const;
    int textsExpected() const;
    int textsFailed() const;
    bool allTextsHere() const;
    /// Whether something waits for all texts.
    bool waitsForTexts() const { return m_textWaits > 0; }
    /// Calls `then` once: with true when all texts are in memory, at once if they are; with false when one
    /// can't be read, the project closes, or the user gives up. Never, once `context` is gone.
    void whenTextsAreHere(QObject* context, const std::function<void(bool allHere)>& then);
    /// The same as a call that runs an event loop until then.
    Q_INVOKABLE bool waitForTexts();
    /// The user gives up: everything that waits for all texts ends with false.
    Q_INVOKABLE void cancelTextWait();

    // The project's text cipher; without a password texts pass unchanged.

    QString encryptIfNeeded(const QString& text) const override;
    QString decryptIfNeeded(const QString& text) const override;
    QString decryptIfNeeded(const QByteArray& bytes) const override;
    QString questionText(int questionId) const override;
    QString titleOfSource(int sourceId) const override;

    // Parts

    DataHelper* dataHelper() const override { return m_dataHelper.get(); }
    BatchOperationManager* batchOperationManager() const override { return m_batchOperationManager; }
    SimpleCipher textCipher() const override;
    KernoModel* kernoModel() const override;
    SourceModel* sourceModel() const override;
    QuestionModel* questionListModel() const override;
    QuestionAnswerMainModel* answerModel() const override;
    SourceMetadataKeyModel* metadataKeyModel() const override;
    SourceMetadataValueModel* metadataValueModel() const override;
    SourceMetadataModel* metadataModel() const override;
    GroupModel* groupModel() const override;
    KernoGroupModel* kernoGroupModel() const override;
    KernoShortcutKeyModel* shortcutKeyModel() const override;
    ChatModel* chatModel() const override;
    QObject* questionModel() const;
    Q_INVOKABLE KernoModel* getKernoModel() const { return kernoModel(); }
    Q_INVOKABLE SourceModel* getSourceModel() const { return sourceModel(); }
    Q_INVOKABLE SourceMetadataKeyModel* getSourceMetadataKeyModel() const { return metadataKeyModel(); }
    Q_INVOKABLE SourceMetadataValueModel* getSourceMetadataValueModel() const { return metadataValueModel(); }
    Q_INVOKABLE GroupModel* getGroupModel() const { return groupModel(); }
    Q_INVOKABLE ChatModel* getChatModel() const { return chatModel(); }

    // Reads: kernos

    Q_INVOKABLE QVariantList kernoIds() const;
    Q_INVOKABLE QVariantList kernoIds(int parentKernoId) const;
    Q_INVOKABLE QVariantList kernoIds(const QVariant& parentKernoId) const;
    /// The children of a kerno; `orderBy` is a `KernovaQML::KernoOrder`, `order` true for descending.
    Q_INVOKABLE QVariantList kernoIds(const QVariant& parentKernoId, const QVariantList& manualSortOrder,
                                      int orderBy, int order) const;
    Q_INVOKABLE QVariantList kernoIdsForKernosWithChildren() const;
    Q_INVOKABLE QVariantList kernoIdsForKernosWithOverlaps() const;
    Q_INVOKABLE bool kernoHasChildren(int parentKernoId) const;
    Q_INVOKABLE QVariantList kernos() const;
    Q_INVOKABLE QVariantList kernos(const QVariantList& excludeIds) const;
    Q_INVOKABLE QVariantList kernosWithoutParent() const;
    Q_INVOKABLE QVariantList kernosWithoutParent(const QVariantList& excludeIds) const;
    Q_INVOKABLE QList<Kerno> allKernos() const;
    Q_INVOKABLE QList<Kerno> kernosForParent(int parentKernoId) const;
    /// The kerno of that id, or an empty one.
    Q_INVOKABLE Kerno kerno(int kernoId) const;
    Kerno kernoById(int kernoId) const override { return kerno(kernoId); }
    Q_INVOKABLE bool anyVisibleChildren(int parentKernoId) const;
    Q_INVOKABLE QStringList kernosAuthors() const;
    Q_INVOKABLE bool canReparent(int kernoId, int newParentId) const;
    Q_INVOKABLE void filterKernosByName(const QString& name);
    Q_INVOKABLE void applyGroupFilter(bool apply);
    /// Shows or hides the kernos of a group; a kerno stays shown while another shown group holds it.
    Q_INVOKABLE void setGroupVisible(int groupId, bool visible);
    Q_INVOKABLE QVariantList getAssociatedGroups(int kernoId) const;
    Q_INVOKABLE int getOverlap(int kerno1Id, int kerno2Id) const;
    QList<int> overlapsOf(int kernoId, const QList<int>& others) override;
    Q_INVOKABLE int getOverlappingKernosCount(int kernoId) const;

    // Reads: highlights and memos

    Q_INVOKABLE QVariantList highlightIds() const;
    Q_INVOKABLE QVariantList highlights() const;
    Q_INVOKABLE QVariantList highlights(int sourceId) const;
    Q_INVOKABLE QList<Highlight> highlights(int sourceId, int questionId) const;
    /// Those that meet the `length` characters from `offset`, with their stored positions; -1 means to the
    /// end.
    Q_INVOKABLE QVariantList highlights(int sourceId, int questionId, int offset, int length) const;
    QList<Highlight> highlightsOfKerno(int kernoId) const;
    QList<Highlight> highlightsOfKerno(int kernoId, int sourceId, int questionId) const;
    Q_INVOKABLE Highlight highlight(int highlightId) const;
    Q_INVOKABLE QVariantList highlightIdsByKernoId(int kernoId) const;
    Q_INVOKABLE QVariantList highlightIdsByQuestionId(int questionId) const;
    Q_INVOKABLE QVariantList highlightIdsByQuestionAndSourceId(int questionId, int sourceId) const;
    Q_INVOKABLE QVariantList highlightIdsByKernoIdAndSourceId(int kernoId, int sourceId) const;
    Q_INVOKABLE QStringList highlightsAuthors() const;
    Q_INVOKABLE int highlightsCount(int sourceId) const;
    Q_INVOKABLE int highlightsCountForKerno(int kernoId) const;
    Q_INVOKABLE int highlightsCountForKernoWithChildren(int kernoId) const;
    Q_INVOKABLE int totalHighlightsCount() const;
    Q_INVOKABLE int maxHighlightsCount() const;
    Q_INVOKABLE int totalHighlightsCountByKernoId(int kernoId) const;
    Q_INVOKABLE int totalHighlightsCountByKernoIdAndSourceId(int kernoId, int sourceId) const;
    Q_INVOKABLE Memo memo(int memoId) const;
    Q_INVOKABLE QVariantList memos(int sourceId) const;
    Q_INVOKABLE QList<Memo> memos(int sourceId, int questionId) const;

    // Reads: sources, answers, questions

    Q_INVOKABLE QVariantList sourceIds() const;
    Q_INVOKABLE QVariantList sources() const;
    Q_INVOKABLE Source source(int sourceId) const;
    Q_INVOKABLE bool sourceExists(int sourceId) const;
    Q_INVOKABLE QString sourceTitle(int sourceId) const;
    Q_INVOKABLE QVariantList answers(int sourceId) const;
    Q_INVOKABLE QuestionAnswer answer(int answerId) const;
    Q_INVOKABLE QVariantMap answer(int sourceId, int questionId) const;
    Q_INVOKABLE QStringList answerAuthors() const;
    /// A cut of an answer's plain text, or an empty record when nothing lies in the range.
    Q_INVOKABLE QuestionAnswer partialAnswer(int sourceId, int questionId, int start, int length) const;
    Q_INVOKABLE QuestionAnswer partialAnswer(const QVariant& sourceId, const QVariant& questionId,
                                             const QVariant& start, const QVariant& length) const;
    Q_INVOKABLE QVariantList questionIds() const;
    Q_INVOKABLE QVariantList questions() const;
    Q_INVOKABLE Question question(int questionId) const;
    Q_INVOKABLE bool hasQuestion(const QString& question) const;

    // Reads: metadata, groups, preferences

    Q_INVOKABLE QVariantList metadataKeys() const;
    /// `orderBy` is a `KernovaQML::MetadataKeysOrder`, `order` a `KernovaQML::Order`.
    Q_INVOKABLE QVariantList metadataKeys(int orderBy) const;
    Q_INVOKABLE QVariantList metadataKeys(int orderBy, int order) const;
    Q_INVOKABLE SourceMetadataKey metadataKey(int keyId) const;
    Q_INVOKABLE QVariantMap metadataKeyByKeyName(const QString& keyName) const;
    Q_INVOKABLE QVariantList metadataValues(int keyId) const;
    Q_INVOKABLE QVariantList metadataValues(int keyId, bool sortAlphabetically) const;
    Q_INVOKABLE QVariantList metadataKeyValuesForKey(int keyId) const;
    Q_INVOKABLE QVariantList groups() const;
    Q_INVOKABLE QVariant getPreference(const QString& key, const QVariant& defaultValue = {}) const;
    /// Not known to the service: -1.
    Q_INVOKABLE int getLastModification() const;

    // Criteria and passages

    /// One map for each kerno, with `kerno` and the `highlights` that pass.
    Q_INVOKABLE QVariantList kernosWithHighlightsAndCriteria(const QVariantList& criteria) const;
    Q_INVOKABLE QVariantList partialAnswersForKernos(const QList<int>& kernoIds) const;
    Q_INVOKABLE QVariantList partialAnswersForOverlapsBetweenKernos(int kerno1Id, int kerno2Id) const;

    // Statistics. `totalLength` is the number of characters of all sources.

    Q_INVOKABLE QVariantList metadataOverviewForKeyId(const QVariant& keyId) const;
    Q_INVOKABLE QVariantList metadataOverviewForKeyAndKernoId(const QVariant& keyId,
                                                              const QList<int>& kernoIds) const;
    Q_INVOKABLE QVariantList highlightsOverviewPerSourceForKerno(const QVariant& kernoId) const;
    Q_INVOKABLE QVariantList highlightsCoverageByAuthor(int totalLength) const;
    Q_INVOKABLE QVariantList highlightsCoverageByKerno(int totalLength) const;
    Q_INVOKABLE QVariantList highlightsCoverageByKernoAndAuthor(int totalLength) const;
    Q_INVOKABLE QVariantList sourceMetadataListForReport(const QVariant& sourceId) const;

    // Writes. The caller has given the record its id. What is only sent takes effect when its notification
    // comes back; false means that nothing was sent.

    /// Blocks, and updates the kerno model at once.
    Q_INVOKABLE void saveKerno(const Kerno& kerno);
    Q_INVOKABLE int saveHighlight(const Highlight& data);
    Q_INVOKABLE int saveMemo(const Memo& data);
    Q_INVOKABLE int saveSource(const Source& source);
    Q_INVOKABLE int saveAnswer(const QuestionAnswer& answer);
    /// Gives the id, or -1. Blocks and updates the question model at once, unless `async`.
    Q_INVOKABLE int saveQuestion(const Question& data, bool async = false);
    Q_INVOKABLE int saveMetadataKey(const SourceMetadataKey& model);
    Q_INVOKABLE int saveMetadata(const SourceMetadata& model);
    Q_INVOKABLE int saveMetadataValue(const SourceMetadataValue& model);
    Q_INVOKABLE int saveGroup(const Group& model);
    Q_INVOKABLE int saveKernoGroup(const KernoGroup& model);
    Q_INVOKABLE int saveChatMessage(const ChatMessage& model);
    /// Blocks, and updates the shortcut model at once; a key without a kerno leaves that model.
    Q_INVOKABLE bool saveKernoShortcutKey(const KernoShortcutKey& model);
    /// Blocks.
    Q_INVOKABLE bool savePreference(const QString& key, const QVariant& value);
    /// The service keeps no list of this: always false.
    Q_INVOKABLE bool saveQuestionsOrder(const QVariantList& orderedQuestionIds);

    Q_INVOKABLE bool deleteHighlight(const Highlight& highlight);
    Q_INVOKABLE bool deleteMemo(const Memo& memo);
    Q_INVOKABLE bool deleteMetadata(const SourceMetadata& model);
    Q_INVOKABLE bool deleteMetadataKey(const SourceMetadataKey& model);
    Q_INVOKABLE bool deleteMetadataValue(const SourceMetadataValue& model);
    Q_INVOKABLE bool deleteGroup(const Group& model);
    Q_INVOKABLE bool deleteKernoGroup(const KernoGroup& model);
    /// The shortcut model is updated at once, as on saving: no notification tells of keys.
    Q_INVOKABLE bool deleteKernoShortcutKey(const KernoShortcutKey& model);
    Q_INVOKABLE bool deleteChatMessage(const ChatMessage& model);
    Q_INVOKABLE bool deleteKerno(const Kerno& kerno);
    Q_INVOKABLE bool deleteSource(int id);
    Q_INVOKABLE bool deleteAnswer(int answerId);
    Q_INVOKABLE bool deleteQuestion(int id);

    bool batchSaveHighlights(const QList<Highlight>& highlights);
    bool batchDeleteHighlights(const QList<Highlight>& highlights);
    bool batchSaveMemos(const QList<Memo>& memos);
    bool batchDeleteMemos(const QList<Memo>& memos);
    /// Many sources, answers, property values, or links of these, as a table brings them.
    template <typename T> bool saveAll(const QList<T>& records);
    template <typename T> bool deleteAll(const QList<T>& records);

    /// The name that new records carry.
    Q_INVOKABLE void setCurrentAuthor(const QString& currentAuthor) { m_currentAuthor = currentAuthor; }
    Q_INVOKABLE QString getCurrentAuthor() const { return m_currentAuthor; }

public slots:
    // The service's notifications, in the order in which their frames arrived.
    void onKernoSaved(const QJsonObject& json);
    void onKernoDeleted(const QJsonObject& json);
    void onGroupSaved(const QJsonObject& json);
    void onGroupDeleted(const QJsonObject& json);
    void onKernoGroupSaved(const QJsonObject& json);
    void onKernoGroupDeleted(const QJsonObject& json);
    void onSourceSaved(const QJsonObject& json);
    void onSourceDeleted(const QJsonObject& json);
    void onHighlightSaved(const QJsonObject& json);
    void onHighlightDeleted(const QJsonObject& json);
    void onBatchHighlightsSaved(const QJsonObject& json);
    void onBatchHighlightsDeleted(const QJsonObject& json);
    void onMemoSaved(const QJsonObject& json);
    void onMemoDeleted(const QJsonObject& json);
    void onBatchMemosSaved(const QJsonObject& json);
    void onBatchMemosDeleted(const QJsonObject& json);
    void onQuestionSaved(const QJsonObject& json);
    void onQuestionDeleted(const QJsonObject& json);
    void onAnswerSaved(const QJsonObject& json);
    void onAnswerDeleted(const QJsonObject& json);
    void onMetadataSaved(const QJsonObject& json);
    void onMetadataDeleted(const QJsonObject& json);
    void onMetadataKeySaved(const QJsonObject& json);
    void onMetadataKeyDeleted(const QJsonObject& json);
    void onMetadataValueSaved(const QJsonObject& json);
    void onMetadataValueDeleted(const QJsonObject& json);
    void onChatMessageSaved(const QJsonObject& json);
    void onChatMessageDeleted(const QJsonObject& json);
    void onRecordsSaved(int kind, const QJsonArray& records);
    void onRecordsDeleted(int kind, const QJsonArray& records);
    void onConnectionCountChanged(int count);
    void onErrorOccurred(const QJsonArray& errors);
    void onAccessChanged(const QString& name);
    void onAccessRevoked();
    void onReopenFailed(const QString& error);

signals:
    void isOpenedChanged();
    void isOwnerChanged();
    void canMutateChanged();
    void connectedUsersChanged();
    void singleQuestionModeChanged();
    void awaitingOpenConfirmationChanged();
    void connected();
    void disconnected();
    void closedDueToAnotherSession();
    void notifyUser(QString noti);
    void textsChanged();
    /// What waits for all texts ends: whether they are here.
    void textWaitEnded(bool allHere);
    void errorOccurred(QString error);

private slots:
    void handleFileOpenChanged();

private:
    void connectLink();
    void connectNotifications();
    void connectTexts();
    bool failOpen(const QString& error);
    bool prepareFile(const QJsonObject& project, bool createNew, bool& exists);
    bool createContents(bool singleQuestion);
    bool readContents();
    bool readLists();
    bool acquirePassword(const QString& password, bool exists);
    bool failPassword();
    bool acquireLock();
    bool askWhetherToOpen();
    void setSingleQuestionMode(bool singleQuestion);
    void settle(int milliseconds);
    void reset();
    void leaveProject();
    /// Returns when the service has stored everything that was sent before.
    void awaitStored() const;
    QVariantList exportPart(const QString& name, QJsonObject (*partOf)(const QJsonObject& project));
    void putKerno(const Kerno& kerno);
    bool isInShownGroup(int kernoId) const;
    /// Shows or hides a kerno that has joined or left a group, while the group filter is on.
    void followGroupFilter(int kernoId);
    QVariantList readStatistics(const QString& text, const QString& name,
                                const std::function<QVariantList(const QJsonArray&)>& arithmetic) const;
    QVariantMap readAnswer(const QJsonObject& element) const;

    ProjectTimings m_timings;
    std::unique_ptr<DataHelper> m_dataHelper;
    QString m_lastError;
    QByteArray m_passwordHash;  ///< hexadecimal MD5; empty: no password is in force
    std::unique_ptr<SimpleCipher> m_cipher;
    std::unique_ptr<AnswerCache> m_answerCache;
    bool m_singleQuestion = false;
    bool m_confirmOpen = false;
    bool m_awaitingConfirmation = false;
    bool m_holdsLock = false;
    bool m_hasProject = false;  ///< from an open to its close; losses of the link between them don't matter
    QString m_currentAuthor;
    int m_userCount = 0;
    int m_textWaits = 0;
    BatchOperationManager* m_batchOperationManager = nullptr;
    QEventLoop* m_confirmLoop = nullptr;
    std::unique_ptr<ProjectModels> m_models;
    TableWriter m_tableWriter;
    QSet<int> m_shownGroups;  ///< groups whose kernos the group filter lets through
};
