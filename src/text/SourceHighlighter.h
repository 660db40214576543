#pragma once

#include "text/HighlightPainting.h"

#include <QList>
#include <QPair>
#include <QPointer>
#include <QSyntaxHighlighter>
#include <QTextDocument>
#include <functional>

class KRNFile;
class KernovaTextEdit;

/// Paints the coded passages of a text as backgrounds. The formats lie beside the document, so that painting
/// touches neither its text nor its undo history. Overlapping passages get one colour of their own, in their
/// whole extent; the passage that the user points at is painted on top, in its own colour.
///
/// Main thread. Positions are those of the target's document.
class SourceHighlighter : public QSyntaxHighlighter {
    Q_OBJECT
    Q_PROPERTY(KernovaTextEdit* target READ target WRITE setTarget NOTIFY targetChanged)
    Q_PROPERTY(QObject* file READ file WRITE setFile NOTIFY fileChanged)
    Q_PROPERTY(int questionId READ questionId WRITE setQuestionId NOTIFY questionIdChanged)
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId NOTIFY sourceIdChanged)
    Q_PROPERTY(
        int currentHighlight READ currentHighlight WRITE setCurrentHighlight NOTIFY currentHighlightChanged)
    Q_PROPERTY(int offset READ offset WRITE setOffset NOTIFY offsetChanged)
    Q_PROPERTY(bool autoRefreshHighlights READ autoRefreshHighlights WRITE setAutoRefreshHighlights NOTIFY
                   autoRefreshHighlightsChanged)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(bool currentHighlightOnly READ currentHighlightOnly WRITE setCurrentHighlightOnly NOTIFY
                   currentHighlightOnlyChanged)

public:
    /// Paints nothing until it has a target. The file is the project of the process.
    explicit SourceHighlighter(QObject* parent = nullptr);

    KernovaTextEdit* target() const;
    /// Switches to the document of `target`, which isn't owned; null takes it back.
    void setTarget(KernovaTextEdit* target);

    QObject* file() const;
    void setFile(QObject* file);

    int questionId() const { return m_questionId; }
    void setQuestionId(int questionId);
    int sourceId() const { return m_sourceId; }
    void setSourceId(int sourceId);
    int offset() const { return m_offset; }
    void setOffset(int offset);

    /// Id of the passage painted on top; -1 for none.
    int currentHighlight() const;
    /// An id that isn't in the list counts as none.
    void setCurrentHighlight(int id);

    bool autoRefreshHighlights() const { return m_autoRefreshHighlights; }
    void setAutoRefreshHighlights(bool on);
    bool isEnabled() const { return m_enabled; }
    /// Disables it without taking the colours away: the text is about to be replaced.
    void pause();
    void setEnabled(bool on);
    bool currentHighlightOnly() const { return m_currentHighlightOnly; }
    void setCurrentHighlightOnly(bool on);

    /// Paints the list anew, or forgets it while no answer is shown.
    Q_INVOKABLE void reloadModel();

    /// Takes over a list that is sorted by `highlightLessThan` and soon repaints what looks different with
    /// it.
    Q_INVOKABLE void setModel(const QList<Highlight>& highlightsModel);

public slots:
    /// Repaints the whole text; keeps the selection.
    void rehighlight();

    /// Repaints [first, second) of `affectedRange` alone.
    void highlightAdded(const Highlight& highlight, const QPair<int, int>& affectedRange);
    void highlightRemoved(const Highlight& highlight, const QPair<int, int>& affectedRange);

    void delayedRehighlight();

signals:
    void targetChanged();
    void fileChanged();
    void questionIdChanged();
    void sourceIdChanged();
    void currentHighlightChanged();
    void offsetChanged();
    void autoRefreshHighlightsChanged();
    void enabledChanged();
    void currentHighlightOnlyChanged();

protected:
    void highlightBlock(const QString& text) override;

private:
    bool canPaint() const;
    void followEdit(int position, int removed, int added);
    void updateOverlaps();
    void repaint(QVector<QPair<int, int>> ranges);
    void repaintWhole();
    void keepSelection(const std::function<void()>& repainting);
    void requestRehighlight(int milliseconds);

    QTextDocument m_noDocument;  ///< what is painted without a target
    QPointer<KernovaTextEdit> m_target;
    QPointer<KRNFile> m_file;
    QPointer<QTextDocument> m_document;
    QList<Highlight> m_highlights;
    int m_questionId = -1;
    int m_sourceId = -1;
    int m_offset = 0;
    bool m_currentHighlightOnly = false;
    bool m_autoRefreshHighlights = true;
    bool m_enabled = true;
    bool m_rehighlightPending = false;
    painting::Layers m_layers;
    QVector<QPair<int, int>> m_stale;  ///< outside of these the document shows the layers
    Highlight m_currentHighlight;
};
