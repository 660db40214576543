#pragma once

#include "models/ModelClasses.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "records/Memo.h"
#include "records/RecordTypes.h"
#include "records/SimpleCipher.h"

#include <QObject>
#include <QSet>
#include <QVariant>

class BatchOperationManager;
class DataHelper;

/// What the models know of the project: the signals of its changes, and the look-ups that they need. The
/// project facade derives from it. All of it lives on the main thread.
class ProjectEvents : public QObject {
    Q_OBJECT

public:
    /// Registers itself as the one project of the process.
    explicit ProjectEvents(QObject* parent = nullptr);
    ~ProjectEvents() override;

    /// The project of the process, or null before it exists.
    static ProjectEvents* current();

    virtual bool isOpened() const = 0;
    virtual DataHelper* dataHelper() const = 0;
    virtual BatchOperationManager* batchOperationManager() const = 0;
    /// A copy of the cipher of the project's texts, for other threads; without a key texts pass unchanged.
    virtual SimpleCipher textCipher() const { return {}; }

    /// The models of the project; null until they have been made.
    virtual KernoModel* kernoModel() const = 0;
    virtual SourceModel* sourceModel() const = 0;
    virtual QuestionModel* questionListModel() const = 0;
    virtual QuestionAnswerMainModel* answerModel() const = 0;
    virtual SourceMetadataKeyModel* metadataKeyModel() const = 0;
    virtual SourceMetadataValueModel* metadataValueModel() const = 0;
    virtual SourceMetadataModel* metadataModel() const = 0;
    virtual GroupModel* groupModel() const = 0;
    virtual KernoGroupModel* kernoGroupModel() const = 0;
    virtual KernoShortcutKeyModel* shortcutKeyModel() const = 0;
    virtual ChatModel* chatModel() const = 0;

    /// The kerno of that id, or an empty one.
    virtual Kerno kernoById(int kernoId) const = 0;

    /// Number of overlapping pairs of highlights that a kerno has with each of the others. Blocks. Empty when
    /// they can't be read.
    virtual QList<int> overlapsOf(int kernoId, const QList<int>& others) = 0;

signals:
    void fileOpened();
    void fileClosed();
    void sourcesChanged();
    void sourceDeleted(int deletedId);
    void highlightsUpdated(int sourceId, int questionId);
    void newKernoAdded(int kernoId);
    void kernoUpdated(int kernoId);
    void kernoDeleted(int kernoId);
    void kernosUpdated();
    void groupsUpdated();
    void metadataUpdated(bool isKey = false, QVariant id = QVariant());
    void answerChanged(int sourceId, int questionId);
    void questionsChanged();
    void sourceIconUpdated(int sourceId, QString icon);
    void sourceTitleUpdated(int sourceId, QString title);
    void newSourceAdded(int sourceId);
    void kernoAppeared(int x, int y);
    void highlightSaved(Highlight highlight);
    void highlightDeleted(Highlight highlight);
    void batchHighlightSaved(QSet<int> sources, QSet<int> questions);
    void batchHighlightDeleted(QSet<int> sources, QSet<int> questions);
    void memoSaved(Memo memo);
    void memoDeleted(Memo memo);
    void batchMemoSaved(QSet<int> sources, QSet<int> questions);
    void batchMemoDeleted(QSet<int> sources, QSet<int> questions);
};
