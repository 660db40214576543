#pragma once

#include "records/Group.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "records/KernoGroup.h"
#include "records/Memo.h"
#include "records/Question.h"
#include "records/QuestionAnswer.h"
#include "records/Source.h"
#include "records/SourceMetadata.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"

#include <QObject>
#include <QVariant>
#include <functional>
#include <memory>

class FileManipulationCommand;
class KRNFile;
class QUndoStack;

/// The one way in which a user's change reaches the project: each operation builds a command, and pushing the
/// command runs it. A command that would change nothing, or can't work, is thrown away before it reaches the
/// stack; so is every command while the project is closed, out of reach or may only be read (the user is told
/// of the last).
///
/// Lives on the main thread. Operations block while the commands they build ask the service.
class UndoManager : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY canRedoChanged)
    Q_PROPERTY(QString undoText READ undoText NOTIFY undoTextChanged)
    Q_PROPERTY(QString redoText READ redoText NOTIFY redoTextChanged)
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int index READ index NOTIFY indexChanged)

public:
    /// `file` stays the caller's and must outlive the manager.
    explicit UndoManager(KRNFile* file, QObject* parent = nullptr);
    ~UndoManager() override;

    KRNFile* file() const { return m_file; }

    bool canUndo() const;
    bool canRedo() const;
    QString undoText() const;
    QString redoText() const;
    int count() const;
    /// Number of steps that are done; the step below it is the next to be undone.
    int index() const;

    using Command = std::unique_ptr<FileManipulationCommand>;
    using Builder = std::function<Command()>;

    /// Builds a command and runs it, unless no mutation would be sent: then nothing is built, since building
    /// may reserve ids. A builder may give null. True when the command became a step, or a part of a macro.
    bool perform(const Builder& build);
    /// The same with a command that is there already.
    bool push(Command command);

    /// What is pushed until `endMacro` becomes one step; a macro in which nothing was pushed leaves none. One
    /// within another is a part of it.
    Q_INVOKABLE void beginMacro(const QString& text);
    Q_INVOKABLE void endMacro();

    Q_INVOKABLE void addHighlight(const Highlight& highlight);
    /// Codes into the kerno that the key stands for, in either case; without one nothing happens.
    Q_INVOKABLE void tryAddHighlightByShortcut(const Highlight& highlight, const QString& shortcutKey);
    /// Both in one step.
    Q_INVOKABLE void addHighlightToNewKerno(const Highlight& highlight, const Kerno& kerno);
    Q_INVOKABLE void deleteHighlight(int id);

    Q_INVOKABLE void addMemo(const Memo& memo);
    Q_INVOKABLE void updateMemo(const Memo& memo);
    Q_INVOKABLE void deleteMemo(int id);

    // `async` exists for QML and has no effect, here and below.
    Q_INVOKABLE void addSource(const Source& data, bool async = false);
    Q_INVOKABLE void deleteSource(int sourceId);
    Q_INVOKABLE void updateSourceIcon(int sourceId, const QString& icon);
    Q_INVOKABLE void updateSourceTitle(int sourceId, const QString& title);

    /// Reads the keys `title`, `parentKernoId`, `x` and `y`.
    Q_INVOKABLE void addKerno(const QVariantMap& data);
    /// `groups` exists for QML: links are added and deleted by operations of their own.
    Q_INVOKABLE void updateKerno(const Kerno& kerno, const QVariantList& groups);
    Q_INVOKABLE void updateKerno(const Kerno& kerno);
    Q_INVOKABLE void deleteKerno(int kernoId);
    Q_INVOKABLE void duplicateKerno(int kernoId);
    Q_INVOKABLE void mergeKernos(int kernoId1, int kernoId2, const QString& newKernoName);

    Q_INVOKABLE void addQuestion(const Question& data, bool async = false);
    Q_INVOKABLE void updateQuestion(const Question& data);
    /// Changes nothing: the order is saved with the questions themselves.
    Q_INVOKABLE void updateQuestionsOrder(const QVariantList& orderedQuestionIds);
    Q_INVOKABLE void deleteQuestion(int questionId, bool async = false);
    Q_INVOKABLE void addAnswer(const QuestionAnswer& data);
    Q_INVOKABLE void updateAnswer(const QuestionAnswer& data, bool async = false);

    /// Renames the group of that id, or makes a new one when there is none.
    Q_INVOKABLE void addGroup(int groupId, const QString& title);
    Q_INVOKABLE void deleteGroup(int modelId);
    Q_INVOKABLE void addKernoGroup(int kernoId, int groupId);
    Q_INVOKABLE void deleteKernoGroup(int kernoId, int groupId);
    /// Binds the key to the kerno; an id of 0 or below frees the key.
    Q_INVOKABLE void setKernoShortcut(const QString& key, int kernoId);

    Q_INVOKABLE void addMetadataKey(const SourceMetadataKey& key);
    Q_INVOKABLE void updateMetadataKey(const SourceMetadataKey& key);
    Q_INVOKABLE void deleteMetadataKey(int keyId);
    Q_INVOKABLE void addMetadataValue(const SourceMetadataValue& value);
    Q_INVOKABLE void updateMetadataValue(const SourceMetadataValue& value);
    Q_INVOKABLE void deleteMetadataValue(int valueId);
    /// Makes the property and the value where they are missing; with a `sourceId` above 0 gives them to the
    /// source.
    Q_INVOKABLE void addMetadataKeyAndValue(const QString& key, const QVariant& value, int sourceId = -1);
    Q_INVOKABLE void addMetadataKeyAndValues(const QString& key, const QVariantList& values,
                                             int sourceId = -1);
    /// Gives a value to a source. A property that takes one value only has its value replaced.
    Q_INVOKABLE void addMetadata(int keyId, int valueId, int sourceId);
    Q_INVOKABLE void deleteMetadata(int metadataId);
    /// Takes all values of the property from the source, in one step.
    Q_INVOKABLE void deleteMetadata(int keyId, int sourceId);

    /// Makes sources of a table, a `SourceTable`, in one step. False for null, for a table without rows, and
    /// when nothing was made.
    Q_INVOKABLE bool importSourcesFromCSV(QObject* model);

    Q_INVOKABLE void clearStack();

public slots:
    void undo();
    void redo();

signals:
    void canUndoChanged();
    void canRedoChanged();
    void undoTextChanged();
    void redoTextChanged();
    void countChanged();
    void indexChanged();
    /// A change the user asked for isn't made, because the service didn't answer what it has to know first.
    void changeRefused();

private:
    /// Whether mutations would be sent; tells the user when only the access level forbids it.
    bool mayChange() const;
    /// The same as `push`, once it is known that mutations would be sent.
    bool run(Command command);
    void performAndFinish(const Builder& build);
    /// What nearly every operation ends with.
    void finish();

    QUndoStack* m_undoStack = nullptr;
    KRNFile* m_file = nullptr;
    QString m_macroText;
    int m_failedReads = 0;
    int m_macros = 0;          ///< how many are begun and not ended
    bool m_macroOpen = false;  ///< and something was pushed
};
