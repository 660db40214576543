#pragma once

#include "models/TextGeometry.h"
#include "records/Highlight.h"

#include <QAbstractItemModel>
#include <QClipboard>
#include <QString>
#include <memory>
#include <private/qquicktextedit_p.h>

class HighlightsModel;
class MemosModel;
class QTextDocument;
class SourceHighlighter;

/// Shows and edits the text of an answer, or a window of it. It owns the painting of the coded passages and
/// the models of the stripes and memos beside the text, and tells when text, highlights and memos are
/// together.
///
/// Main thread. Positions count from the start of the window.
class KernovaTextEdit : public QQuickTextEdit, public TextGeometry {
    Q_OBJECT
    Q_PROPERTY(QAbstractItemModel* highlightsModel READ highlightsModel CONSTANT)
    Q_PROPERTY(QAbstractItemModel* memosModel READ memosModel CONSTANT)
    Q_PROPERTY(SourceHighlighter* highlighter READ highlighter CONSTANT)
    Q_PROPERTY(int sourceId READ sourceId NOTIFY sourceIdChanged)
    Q_PROPERTY(int questionId READ questionId NOTIFY questionIdChanged)
    Q_PROPERTY(int currentHighlight READ currentHighlight WRITE setCurrentHighlight)
    Q_PROPERTY(int sourceOffset READ sourceOffset NOTIFY sourceOffsetChanged)
    Q_PROPERTY(bool autoRefreshHighlights READ autoRefreshHighlights WRITE setAutoRefreshHighlights NOTIFY
                   autoRefreshHighlightsChanged)
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
    Q_PROPERTY(double lineHeight READ lineHeight WRITE setLineHeight NOTIFY lineHeightChanged)

public:
    /// Works with the project of the process.
    explicit KernovaTextEdit(QQuickItem* parent = nullptr);
    ~KernovaTextEdit() override;

    /// Shows an answer: emits `answerLoaded` when the text is there and the bars are empty, and again when
    /// both bars are filled. Showing what is shown already only emits `answerLoaded`.
    Q_INVOKABLE void setAnswer(int questionId, int sourceId, const QString& answer, int offset);

    /// The text as it is stored, with bold, italic and underlined runs; all other formats are left out.
    Q_INVOKABLE QString convertDocToRichtText();

    /// Where a text stands in the plain text, case aside; occurrences don't overlap.
    Q_INVOKABLE QList<int> positionsOf(const QString& text);

    /// Toggle the style of the characters [start, end).
    Q_INVOKABLE void setBold(int start, int end);
    Q_INVOKABLE void setItalic(int start, int end);
    Q_INVOKABLE void setUnderline(int start, int end);

    /// Hands the highlights of an edited text over, sorted by `highlightLessThan`.
    void setHighlights(const QList<Highlight>& list);

    QAbstractItemModel* highlightsModel() const;
    QAbstractItemModel* memosModel() const;
    SourceHighlighter* highlighter() const { return m_highlighter.get(); }
    int sourceId() const { return m_sourceId; }
    int questionId() const { return m_questionId; }
    int sourceOffset() const { return m_sourceOffset; }
    int currentHighlight() const;
    void setCurrentHighlight(int id);
    bool autoRefreshHighlights() const;
    void setAutoRefreshHighlights(bool on);
    void setLineHeight(double value);

    QRectF rectangleAt(int position) const override { return positionToRectangle(position); }
    double lineHeight() const override;
    int textLength() const override { return length(); }
    bool isReadOnlyText() const override { return isReadOnly(); }
    bool isComplete() const override { return isComponentComplete(); }
    QObject* item() override { return this; }

public slots:
    void rehighlight();

signals:
    void sourceIdChanged();
    void questionIdChanged();
    void sourceOffsetChanged();
    void offsetChanged();
    void autoRefreshHighlightsChanged();
    void lineHeightChanged();
    void answerLoaded();
    /// The text of an editable item is there; its highlights and memos are to be handed over.
    void answerPreloaded();

protected:
    /// Leaves the keys of undo and redo to the program while the text can't be edited, and keeps a persistent
    /// selection when the focus goes.
    bool event(QEvent* event) override;
    /// What is pasted comes as plain text: formats, tables and pictures have no place in a stored text, and
    /// nothing is fetched.
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// On the thread that draws, while the main thread waits.
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

private:
    struct PendingAnswer {
        int questionId = -1;
        int sourceId = -1;
        QString answer;
        int offset = 0;
    };

    void doSetAnswer();
    void pasteText(QClipboard::Mode mode);
    void setHighlightEnabled(bool on);
    bool isStale(int sourceId, int questionId, int offset, int length) const;
    void takeHighlights(int sourceId, int questionId, int offset, int length);
    void takeMemos(int sourceId, int questionId, int offset, int length);
    QTextDocument* document();

    PendingAnswer m_pendingAnswer;
    std::unique_ptr<SourceHighlighter> m_highlighter;
    std::unique_ptr<HighlightsModel> m_highlightsModel;
    std::unique_ptr<MemosModel> m_memosModel;
    int m_sourceId = -1;
    int m_questionId = -1;
    int m_sourceOffset = 0;
    bool m_memosReady = false;
    bool m_highlightsReady = false;
};
