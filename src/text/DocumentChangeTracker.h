#pragma once

#include "text/ChangesElsewhere.h"
#include "text/EditShift.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QTimer>
#include <QVector>

class KernovaTextEdit;
class QTextDocument;
class UndoManager;

/// Follows the edits of a text, so that its highlights move with its words, and saves both as one step.
///
/// The element lives for one editing: `loadInitialHighlights` when the text is in its target, then
/// `trackChanges`, then `saveChanges` or `discardChanges`. Until it saves, nothing is sent. The document's
/// own undo and redo take the highlights along.
///
/// Main thread. Loading and saving block while they ask the service.
class DocumentChangeTracker : public QObject {
    Q_OBJECT
    Q_PROPERTY(QQuickItem* target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(QObject* undoManager READ undoManager WRITE setUndoManager NOTIFY undoManagerChanged)
    Q_PROPERTY(bool trackChanges READ trackChanges WRITE setTrackChanges NOTIFY trackChangesChanged)
    Q_PROPERTY(
        bool trackHighlights READ trackHighlights WRITE setTrackHighlights NOTIFY trackHighlightsChanged)
    /// The stored text has been changed by somebody else since it was loaded, or is gone: saving here would
    /// overwrite what they have written.
    Q_PROPERTY(bool outdated READ isOutdated NOTIFY outdatedChanged)

public:
    struct Timings {
        static constexpr int refresh = 500;  ///< ms without an edit, after which the highlights are drawn
    };

    explicit DocumentChangeTracker(QObject* parent = nullptr);

    QQuickItem* target() const;
    /// A `KernovaTextEdit`; it isn't owned.
    void setTarget(QQuickItem* target);
    QObject* undoManager() const;
    void setUndoManager(QObject* manager);
    bool trackChanges() const { return m_trackChanges; }
    void setTrackChanges(bool on);
    bool trackHighlights() const { return m_trackHighlights; }
    void setTrackHighlights(bool on);

    bool isOutdated() const { return m_elsewhere.isTextChanged(); }

    /// Reads the highlights of the target's answer and shows them.
    Q_INVOKABLE void loadInitialHighlights();
    /// Saves the text with its marks, and the highlights that have changed; nothing when nothing has.
    Q_INVOKABLE void saveChanges();
    /// Saves the text alone, without marks.
    Q_INVOKABLE void saveAnswer();
    /// Saves the text as the answer of a new source, which leaves the stored one as it is. The highlights
    /// stay there, too. False when nothing was saved.
    Q_INVOKABLE bool saveAsNewSource(const QString& title);
    /// Forgets all edits.
    Q_INVOKABLE void discardChanges();
    Q_INVOKABLE bool hasChanges() const { return !m_steps.isEmpty(); }

signals:
    void targetChanged();
    void undoManagerChanged();
    void trackChangesChanged();
    void trackHighlightsChanged();
    void outdatedChanged();
    void sourceIdChanged();
    void questionIdChanged();
    void highlightsChanged();
    void freshHighlightsAvailable(QList<Highlight> highlights);

private slots:
    void documentContentsChanged(int position, int removed, int added);
    void onFreshHighlightsAvailable(QList<Highlight> highlights);
    void applyFreshHighlights();

private:
    QPointer<KernovaTextEdit> m_target;
    QPointer<QTextDocument> m_document;
    QPointer<UndoManager> m_undoManager;
    bool m_trackChanges = false;
    bool m_trackHighlights = true;
    QTimer m_refreshTimer;
    QList<Highlight> m_initialHighlights;
    QList<Highlight> m_currentHighlights;
    QString m_initialText;  ///< as it would have been saved before the first edit
    QVector<edits::HighlightChange> m_steps;
    QVector<edits::Edit> m_path;  ///< what has led from the first text to the present one
    int m_lastRevision = -1;
    ChangesElsewhere m_elsewhere;
};
