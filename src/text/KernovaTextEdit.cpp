#include "text/KernovaTextEdit.h"

#include "models/HighlightsModel.h"
#include "models/MemosModel.h"
#include "project/KRNFile.h"
#include "records/RichTextFragment.h"
#include "text/DisplayText.h"
#include "text/RichText.h"
#include "text/SourceHighlighter.h"
#include "text/TextLog.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QQuickTextDocument>
#include <QTextBlock>
#include <QTextCursor>
#include <private/qquicktextedit_p_p.h>
#include <private/qquicktextnode_p.h>

namespace {

DataHelper* linkOfProject() {
    const ProjectEvents* project = ProjectEvents::current();
    return project ? project->dataHelper() : nullptr;
}

}  // namespace

KernovaTextEdit::KernovaTextEdit(QQuickItem* parent)
    : QQuickTextEdit(parent), m_highlighter(std::make_unique<SourceHighlighter>()),
      m_highlightsModel(std::make_unique<HighlightsModel>(this, linkOfProject())),
      m_memosModel(std::make_unique<MemosModel>(this, linkOfProject())) {
    setTextFormat(RichText);
    m_highlighter->setTarget(this);

    HighlightsModel* const highlights = m_highlightsModel.get();
    SourceHighlighter* const painter = m_highlighter.get();
    connect(highlights, &HighlightsModel::modelReady, this, &KernovaTextEdit::takeHighlights);
    connect(highlights, &HighlightsModel::highlightAdded, painter, &SourceHighlighter::highlightAdded);
    connect(highlights, &HighlightsModel::highlightRemoved, painter, &SourceHighlighter::highlightRemoved);
    connect(highlights, &HighlightsModel::colorsChanged, painter, &SourceHighlighter::rehighlight);
    connect(m_memosModel.get(), &MemosModel::modelReady, this, &KernovaTextEdit::takeMemos);
    connect(highlights, &HighlightsModel::lineHeightChanged, this, &KernovaTextEdit::lineHeightChanged);
    connect(painter, &SourceHighlighter::autoRefreshHighlightsChanged, this,
            &KernovaTextEdit::autoRefreshHighlightsChanged);
}

KernovaTextEdit::~KernovaTextEdit() {
    m_highlighter->pause();
    // The highlighter takes its formats off the document as it goes. In an edit that never ends nothing is
    // laid out again for that, which would cost the whole text when another is shown.
    QTextCursor(document()).beginEditBlock();
}

QTextDocument* KernovaTextEdit::document() {
    return textDocument()->textDocument();
}

QAbstractItemModel* KernovaTextEdit::highlightsModel() const {
    return m_highlightsModel.get();
}

QAbstractItemModel* KernovaTextEdit::memosModel() const {
    return m_memosModel.get();
}

int KernovaTextEdit::currentHighlight() const {
    return m_highlighter->currentHighlight();
}

void KernovaTextEdit::setCurrentHighlight(int id) {
    qCDebug(logHighlighter) << "setCurrentHighlight";
    if (id != m_highlighter->currentHighlight())
        m_highlighter->setCurrentHighlight(id);
}

bool KernovaTextEdit::autoRefreshHighlights() const {
    return m_highlighter->autoRefreshHighlights();
}

void KernovaTextEdit::setAutoRefreshHighlights(bool on) {
    m_highlighter->setAutoRefreshHighlights(on);
}

double KernovaTextEdit::lineHeight() const {
    return m_highlightsModel->lineHeight();
}

void KernovaTextEdit::setLineHeight(double value) {
    qCDebug(logHighlighter) << "setLineHeight";
    if (value != lineHeight())
        m_highlightsModel->setLineHeight(value);
}

void KernovaTextEdit::setAnswer(int questionId, int sourceId, const QString& answer, int offset) {
    m_pendingAnswer = {questionId, sourceId, answer, offset};
    doSetAnswer();
}

void KernovaTextEdit::doSetAnswer() {
    qCDebug(logHighlighter) << "doSetAnswer";
    const PendingAnswer pending = m_pendingAnswer;
    const bool textChanges =
        pending.answer != document()->toPlainText() && pending.answer != convertDocToRichtText();
    const bool questionChanges = pending.questionId != m_questionId;
    const bool sourceChanges = pending.sourceId != m_sourceId;
    const bool offsetChanges = pending.offset != m_sourceOffset;
    if (textChanges) {
        m_highlighter->pause();
        setText(displayHtml(pending.answer));
    } else if (questionChanges || sourceChanges || offsetChanges) {
        setHighlightEnabled(false);
    }
    m_questionId = pending.questionId;
    m_sourceId = pending.sourceId;
    m_sourceOffset = pending.offset;
    m_highlighter->setQuestionId(m_questionId);
    m_highlighter->setSourceId(m_sourceId);
    m_highlighter->setOffset(m_sourceOffset);
    qCDebug(logHighlighter, "%i %i %i %i", textChanges, questionChanges, sourceChanges, offsetChanges);

    if (!textChanges && !questionChanges && !sourceChanges && !offsetChanges) {
        setHighlightEnabled(true);
        emit answerLoaded();
        return;
    }
    m_highlightsModel->setData(QList<Highlight>());
    m_memosModel->setData(QList<Memo>());
    emit answerLoaded();
    m_memosReady = false;
    m_highlightsReady = false;
    m_highlightsModel->setSource(m_sourceId, m_questionId, m_sourceOffset, length());
    m_memosModel->setSource(m_sourceId, m_questionId, m_sourceOffset, length());
    if (!isReadOnly())
        emit answerPreloaded();

    if (textChanges)
        emit textChanged();
    if (questionChanges)
        emit questionIdChanged();
    if (sourceChanges)
        emit sourceIdChanged();
    if (offsetChanges) {
        emit offsetChanged();
        emit sourceOffsetChanged();
    }
}

void KernovaTextEdit::setHighlightEnabled(bool on) {
    qCDebug(logHighlighter) << "setHighlightEnabled";
    // The document is laid out anew with it. To change the width and back for that takes as long twice more.
    m_highlighter->setEnabled(on);
}

bool KernovaTextEdit::isStale(int sourceId, int questionId, int offset, int length) const {
    const bool isOther = sourceId != m_sourceId || questionId != m_questionId;
    return isOther && isReadOnly() && (offset != m_sourceOffset || length != this->length());
}

void KernovaTextEdit::takeHighlights(int sourceId, int questionId, int offset, int length) {
    qCDebug(logHighlighter) << "highlightsReady";
    if (isStale(sourceId, questionId, offset, length))
        return;
    m_highlightsReady = true;
    m_highlighter->setModel(m_highlightsModel->snapshot());
    setHighlightEnabled(true);
    if (m_memosReady) {
        qCDebug(logHighlighter) << "answerloaded";
        emit answerLoaded();
    }
}

void KernovaTextEdit::takeMemos(int sourceId, int questionId, int offset, int length) {
    qCDebug(logHighlighter) << "memosReady";
    if (isStale(sourceId, questionId, offset, length))
        return;
    m_memosReady = true;
    if (m_highlightsReady) {
        qCDebug(logHighlighter) << "answerloaded";
        emit answerLoaded();
    }
}

void KernovaTextEdit::setHighlights(const QList<Highlight>& list) {
    m_highlighter->setModel(list);
    m_highlightsModel->setHighlights(list, m_sourceId, m_questionId);
}

void KernovaTextEdit::rehighlight() {
    qCDebug(logHighlighter) << "rehighlight";
    if (isComponentComplete())
        m_highlighter->reloadModel();
}

QString KernovaTextEdit::convertDocToRichtText() {
    return editedTextFromDocument(document());
}

QList<int> KernovaTextEdit::positionsOf(const QString& text) {
    QList<int> positions;
    if (text.isEmpty())
        return positions;
    const QString plain = plainTextOf(document());
    for (int at = plain.indexOf(text, 0, Qt::CaseInsensitive); at >= 0;
         at = plain.indexOf(text, at + text.size(), Qt::CaseInsensitive))
        positions.append(at);
    return positions;
}

void KernovaTextEdit::setBold(int start, int end) {
    toggleBold(document(), start, end);
}

void KernovaTextEdit::setItalic(int start, int end) {
    toggleItalic(document(), start, end);
}

void KernovaTextEdit::setUnderline(int start, int end) {
    toggleUnderline(document(), start, end);
}

bool KernovaTextEdit::event(QEvent* event) {
    if (isReadOnly() && event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    if (event->type() != QEvent::FocusOut || !persistentSelection())
        return QQuickTextEdit::event(event);
    // Once keys have moved the cursor, the base takes a lost focus for the end of the selection.
    const int start = selectionStart();
    const int end = selectionEnd();
    const bool handled = QQuickTextEdit::event(event);
    if (start != end && selectionStart() == selectionEnd())
        select(start, end);
    return handled;
}

void KernovaTextEdit::keyPressEvent(QKeyEvent* event) {
    if (isReadOnly() || !event->matches(QKeySequence::Paste)) {
        QQuickTextEdit::keyPressEvent(event);
        return;
    }
    pasteText(QClipboard::Clipboard);
    event->accept();
}

void KernovaTextEdit::mouseReleaseEvent(QMouseEvent* event) {
    if (isReadOnly() || event->button() != Qt::MiddleButton ||
        !QGuiApplication::clipboard()->supportsSelection()) {
        QQuickTextEdit::mouseReleaseEvent(event);
        return;
    }
    setCursorPosition(positionAt(event->localPos().x(), event->localPos().y()));
    pasteText(QClipboard::Selection);
    event->accept();
}

/// The base gives every line behind a change its place again, also where it stands: in a long text that costs
/// more than the change. Such lines are hidden from it, but for the first, by which it measures.
QSGNode* KernovaTextEdit::updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) {
    QList<QQuickTextEditPrivate::Node>& lines =
        static_cast<QQuickTextEditPrivate*>(QQuickItemPrivate::get(this))->textNodeMap;
    int changed = lines.size();
    while (changed > 0 && !lines.at(changed - 1).dirty())
        --changed;
    QList<QQuickTextEditPrivate::Node> unchanged;
    if (node && changed > 0 && changed < lines.size()) {
        const QTextBlock block = document()->findBlock(lines.at(changed).startPos());
        const QPointF place = document()->documentLayout()->blockBoundingRect(block).topLeft();
        QMatrix4x4 matrix;
        matrix.translate(static_cast<float>(place.x()), static_cast<float>(place.y()));
        if (lines.at(changed).textNode()->matrix() == matrix) {
            unchanged = lines.mid(changed + 1);
            lines.erase(lines.begin() + changed + 1, lines.end());
        }
    }
    node = QQuickTextEdit::updatePaintNode(node, data);
    lines += unchanged;
    return node;
}

void KernovaTextEdit::pasteText(QClipboard::Mode mode) {
    QTextCursor cursor(document());
    cursor.setPosition(selectionStart());
    cursor.setPosition(selectionEnd(), QTextCursor::KeepAnchor);
    cursor.insertText(QGuiApplication::clipboard()->text(mode));
    setCursorPosition(cursor.position());
}

#include "moc_KernovaTextEdit.cpp"
