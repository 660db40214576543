#include "text/SourceHighlighter.h"

#include "project/KRNFile.h"
#include "records/ContrastColor.h"
#include "text/EditShift.h"
#include "text/HighlightPainting.h"
#include "text/KernovaTextEdit.h"
#include "text/TextLog.h"

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <private/qtextdocument_p.h>
#include <utility>

namespace {

constexpr int nearCharacters = 4000;
constexpr int alternation =
    QTextFormat::UserProperty + 1;  ///< tells the paint of a run from that of the next

/// Where the runs of characters of one look end. No paint goes on beyond such an end: the scene draws a
/// format from its own beginning with each run that it meets on a line, and letters that are drawn twice look
/// bold.
QVector<int> endsOfRuns(const QTextBlock& block) {
    QVector<int> ends;
    for (auto run = block.begin(); !run.atEnd(); ++run)
        ends.append(run.fragment().position() + run.fragment().length() - block.position());
    return ends;
}

/// What of the ranges lies in a text of that length, sorted.
QVector<QPair<int, int>> within(int length, QVector<QPair<int, int>> ranges) {
    for (QPair<int, int>& range : ranges)
        range = {std::max(range.first, 0), std::min(range.second, length)};
    const auto empty = [](const QPair<int, int>& range) { return range.first >= range.second; };
    ranges.erase(std::remove_if(ranges.begin(), ranges.end(), empty), ranges.end());
    std::sort(ranges.begin(), ranges.end());
    return ranges;
}

}  // namespace

SourceHighlighter::SourceHighlighter(QObject* parent)
    : QSyntaxHighlighter(parent), m_file(qobject_cast<KRNFile*>(ProjectEvents::current())) {
    QSyntaxHighlighter::setDocument(&m_noDocument);
    qCDebug(logHighlighter) << "highlighter ctor";
}

KernovaTextEdit* SourceHighlighter::target() const {
    return m_target;
}

void SourceHighlighter::setTarget(KernovaTextEdit* target) {
    if (m_target == target)
        return;
    if (m_document)
        disconnect(m_document, nullptr, this, nullptr);
    m_target = target;
    m_document = target ? target->textDocument()->textDocument() : nullptr;
    // Before the base class, so that it paints what is edited with its highlights where they have gone.
    if (m_document)
        connect(m_document, &QTextDocument::contentsChange, this, &SourceHighlighter::followEdit);
    setDocument(m_document ? m_document.data() : &m_noDocument);
    // The base class would paint the whole text later, block by block, and till then nothing else.
    QMetaObject::invokeMethod(this, "_q_delayedRehighlight");
    emit targetChanged();
}

QObject* SourceHighlighter::file() const {
    return m_file;
}

void SourceHighlighter::setFile(QObject* file) {
    m_file = qobject_cast<KRNFile*>(file);
    emit fileChanged();
    reloadModel();
}

void SourceHighlighter::setQuestionId(int questionId) {
    if (m_questionId == questionId)
        return;
    m_questionId = questionId;
    emit questionIdChanged();
}

void SourceHighlighter::setSourceId(int sourceId) {
    if (m_sourceId == sourceId)
        return;
    m_sourceId = sourceId;
    emit sourceIdChanged();
}

void SourceHighlighter::setOffset(int offset) {
    if (m_offset == offset)
        return;
    m_offset = offset;
    emit offsetChanged();
}

void SourceHighlighter::setCurrentHighlightOnly(bool on) {
    if (m_currentHighlightOnly == on)
        return;
    m_currentHighlightOnly = on;
    emit currentHighlightOnlyChanged();
}

void SourceHighlighter::setAutoRefreshHighlights(bool on) {
    if (m_autoRefreshHighlights == on)
        return;
    m_autoRefreshHighlights = on;
    emit autoRefreshHighlightsChanged();
    if (on)
        reloadModel();
}

void SourceHighlighter::pause() {
    if (!m_enabled)
        return;
    m_enabled = false;
    emit enabledChanged();
}

void SourceHighlighter::setEnabled(bool on) {
    if (m_enabled == on)
        return;
    m_enabled = on;
    emit enabledChanged();
    rehighlight();
}

int SourceHighlighter::currentHighlight() const {
    return m_currentHighlight.highlightId();
}

void SourceHighlighter::setCurrentHighlight(int id) {
    if (id == currentHighlight())
        return;
    const Highlight old = m_currentHighlight;
    m_currentHighlight = Highlight();
    if (id >= 1) {
        const auto found = std::find_if(m_highlights.cbegin(), m_highlights.cend(),
                                        [id](const Highlight& h) { return h.highlightId() == id; });
        if (found != m_highlights.cend())
            m_currentHighlight = *found;
    }
    const Highlight& now = m_currentHighlight;
    if (old.isValid() && now.isValid() && old.overlaps(now)) {
        repaint({{std::min(old.start(), now.start()), std::max(old.end(), now.end())}});
    } else {
        QVector<QPair<int, int>> ranges;
        for (const Highlight& highlight : {old, now}) {
            if (highlight.isValid())
                ranges.append({highlight.start(), highlight.end()});
        }
        repaint(ranges);
    }
    emit currentHighlightChanged();
}

bool SourceHighlighter::canPaint() const {
    return m_document && m_target && m_file;
}

void SourceHighlighter::updateOverlaps() {
    const QList<QPair<int, int>> overlaps = painting::markOverlaps(m_highlights);
    m_layers = painting::layersOf(m_highlights, overlaps);
}

/// Emitting the document's signal by hand makes the base class format just these blocks anew, and the item
/// draw them: the cost of coding a passage doesn't depend on the length of the text. Left to itself, the base
/// class would have the document go through all blocks behind for each block, so what is near one another is
/// laid out together.
void SourceHighlighter::repaint(QVector<QPair<int, int>> ranges) {
    if (!m_document)
        return;
    ranges = within(m_document->docHandle()->length(), ranges);
    for (int i = 0; i < ranges.size();) {
        QPair<int, int> all = ranges.at(i);
        bool& gathers = m_document->docHandle()->inContentsChange;
        const bool gathered = gathers;
        gathers = true;
        do {
            const QPair<int, int>& range = ranges.at(i);
            all = {std::min(all.first, range.first), std::max(all.second, range.second)};
            const int length = range.second - range.first;
            emit m_document->contentsChange(range.first, length, length);
        } while (++i < ranges.size() && std::abs(ranges.at(i).first - all.first) < nearCharacters);
        gathers = gathered;
        m_document->markContentsDirty(all.first, all.second - all.first);
    }
}

/// Told as one change, the document lays itself out once. The base class tells of each block by itself, and
/// the document goes through all its blocks for each: the cost would grow with the square of the length.
void SourceHighlighter::repaintWhole() {
    QTextDocumentPrivate* document = m_document->docHandle();
    document->beginEditBlock();
    document->documentChange(0, document->length());
    document->endEditBlock();
}

/// The blocks that were edited are painted at once. What overlapped there may show in others.
void SourceHighlighter::followEdit(int position, int removed, int added) {
    if (!m_enabled || removed == added)
        return;
    const edits::Edit edit{position, removed, added};
    for (QPair<int, int>& range : m_stale)
        range = edits::moved(range, edit);
    QVector<painting::Stretch> shown = painting::stretchesOf(m_layers);
    if (!edits::shift(m_highlights, edit))
        return;
    for (painting::Stretch& stretch : shown)
        stretch.range = edits::moved(stretch.range, edit);
    updateOverlaps();
    m_stale += painting::differences(shown, painting::stretchesOf(m_layers));
}

void SourceHighlighter::reloadModel() {
    if (!m_autoRefreshHighlights || !m_enabled || !canPaint())
        return;
    if (m_sourceId < 1 || m_questionId < 1) {
        m_highlights.clear();
        updateOverlaps();
        return;
    }
    qCDebug(logHighlighter) << "reloadmodel";
    QElapsedTimer timer;
    timer.start();
    updateOverlaps();
    rehighlight();
    qCDebug(logHighlighter) << "SourceHighlighter::reloadModel TIME:" << timer.elapsed() << "msec";
}

void SourceHighlighter::setModel(const QList<Highlight>& highlightsModel) {
    const QVector<painting::Stretch> shown = painting::stretchesOf(m_layers);
    m_highlights = highlightsModel;
    updateOverlaps();
    m_stale += painting::differences(shown, painting::stretchesOf(m_layers));
    if (m_enabled && canPaint())
        requestRehighlight(0);
}

void SourceHighlighter::requestRehighlight(int milliseconds) {
    qCDebug(logHighlighter) << "requesting delayed rehighlight";
    if (m_rehighlightPending) {
        qCDebug(logHighlighter) << "Rehighlight already pending. Ignoring.";
        return;
    }
    m_rehighlightPending = true;
    QTimer::singleShot(milliseconds, this, &SourceHighlighter::delayedRehighlight);
}

void SourceHighlighter::delayedRehighlight() {
    if (!m_rehighlightPending)
        return;
    m_rehighlightPending = false;
    keepSelection([this] { repaint(std::exchange(m_stale, {})); });
}

void SourceHighlighter::rehighlight() {
    m_stale.clear();
    keepSelection([this] { repaintWhole(); });
}

/// A selection has a format of its own, which painting would lose.
void SourceHighlighter::keepSelection(const std::function<void()>& repainting) {
    if (!m_document || !m_target)
        return;
    const int selectionStart = m_target->selectionStart();
    const int selectionEnd = m_target->selectionEnd();
    const bool hasSelection = selectionStart != selectionEnd;
    if (hasSelection)
        m_target->deselect();
    QElapsedTimer timer;
    timer.start();
    qCDebug(logHighlighter) << "REHIGHLIGHT: BEGIN";
    repainting();
    qCDebug(logHighlighter) << "REHIGHLIGHT: END";
    qCDebug(logHighlighter) << "REHIGHLIGHT TIME:" << timer.elapsed() << "msec";
    if (hasSelection)
        m_target->select(selectionStart, selectionEnd);
}

void SourceHighlighter::highlightAdded(const Highlight& highlight, const QPair<int, int>& affectedRange) {
    m_highlights.append(highlight);
    std::sort(m_highlights.begin(), m_highlights.end(), highlightLessThan);
    updateOverlaps();
    repaint({affectedRange});
}

void SourceHighlighter::highlightRemoved(const Highlight& highlight, const QPair<int, int>& affectedRange) {
    const int id = highlight.highlightId();
    const auto found = std::find_if(m_highlights.begin(), m_highlights.end(),
                                    [id](const Highlight& h) { return h.highlightId() == id; });
    if (found == m_highlights.end())
        return;
    m_highlights.erase(found);
    updateOverlaps();
    repaint({affectedRange});
}

void SourceHighlighter::highlightBlock(const QString& text) {
    // Before the block is laid out: drawing takes over what laying out has found for its characters.
    currentBlock().layout()->setCacheEnabled(true);
    if (!m_enabled || !canPaint() || m_highlights.isEmpty())
        return;
    const int blockStart = currentBlock().position();
    const int blockEnd = blockStart + text.length();
    if (blockStart == blockEnd)
        return;
    qCDebug(logHighlighter) << "BLOCK " << blockStart << blockEnd;
    const QVector<int> runEnds = endsOfRuns(currentBlock());
    const QVector<painting::Stroke> strokes =
        painting::strokesForBlock(m_layers, m_currentHighlight, blockStart, blockEnd);
    // Half of a character can't be painted: it goes with its first half.
    const auto whole = [&text](int at) {
        return at < text.size() && text.at(at).isLowSurrogate() ? at + 1 : at;
    };
    for (const painting::Stroke& stroke : strokes) {
        QTextCharFormat format;
        format.setBackground(QBrush(stroke.background, Qt::SolidPattern));
        format.setForeground(QBrush(contrastFontColor(stroke.background), Qt::SolidPattern));
        int at = whole(stroke.start);
        const int end = whole(stroke.start + stroke.count);
        const auto first = std::upper_bound(runEnds.cbegin(), runEnds.cend(), at);
        for (auto run = first; run != runEnds.cend() && at < end; ++run) {
            // Neighbours that are all alike would become one format again.
            format.setProperty(alternation, static_cast<int>(run - runEnds.cbegin()) % 2);
            const int until = qMin(end, *run);
            setFormat(at, until - at, format);
            at = until;
        }
        qCDebug(logHighlighter).nospace() << "NO" << blockStart + stroke.start << '\t' << stroke.count
                                          << "\t(" << blockStart + stroke.start + stroke.count << ")";
    }
}

#include "moc_SourceHighlighter.cpp"
