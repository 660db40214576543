#include "text/EditShift.h"

#include "text/TextLog.h"

#include <algorithm>
#include <cstdlib>

namespace edits {

namespace {

bool differsInKerno(const Highlight& a, const Highlight& b) {
    return a.kernoId() != b.kernoId();
}

class Shift {
public:
    Shift(QList<Highlight>& highlights, const Edit& edit)
        : m_highlights(highlights), m_edit(edit), m_delta(edit.added - edit.removed),
          m_reach(edit.position + std::abs(m_delta)) {}

    bool run() {
        for (int i = m_highlights.size() - 1; i >= 0; --i)
            apply(i);
        // What was cut at the front may stand behind what followed it.
        if (m_changed)
            sort();
        return m_changed;
    }

private:
    void apply(int i) {
        const int start = m_highlights.at(i).start();
        const int end = m_highlights.at(i).end();
        if (end <= m_edit.position)
            return;
        if (m_reach <= start || (start >= m_edit.position && m_edit.removed == 0))
            change(i, start + m_delta, end - start);
        else if (start > m_edit.position)
            cutFromTheFront(i, start, end);
        else
            editInside(i, start, end);
    }

    void cutFromTheFront(int i, int start, int end) {
        if (end < std::max(m_edit.added, m_edit.removed) + m_edit.position) {
            sort();
            return;
        }
        qCDebug(logDocumentChangeTracker)
            << "\n\n11 start" << start << "end" << end << "len" << end - start << "pos" << m_edit.position
            << "added" << m_edit.added << "removed" << m_edit.removed;
        const int newStart = m_edit.position + m_edit.added;
        change(i, newStart, end - start + std::abs(newStart - start) - m_edit.removed);
    }

    void editInside(int i, int start, int end) {
        if (end < m_reach) {
            change(i, start, m_edit.position - start);
            return;
        }
        qCDebug(logDocumentChangeTracker) << "increasing length" << end - start << "by" << m_delta;
        if (end - start + m_delta <= 0)
            qCDebug(logDocumentChangeTracker) << "increased length is <= 0 - removing Highlight";
        change(i, start, end - start + m_delta);
    }

    void sort() { std::stable_sort(m_highlights.begin(), m_highlights.end(), highlightLessThan); }

    /// A highlight without a character left goes.
    void change(int i, int start, int length) {
        m_changed = true;
        if (length <= 0) {
            m_highlights.removeAt(i);
            return;
        }
        Highlight& highlight = m_highlights[i];
        highlight.detach();
        highlight.setModified(true);
        highlight.setStart(start);
        highlight.setLength(length);
    }

    QList<Highlight>& m_highlights;
    const Edit m_edit;
    const int m_delta;
    const int m_reach;
    bool m_changed = false;
};

/// Joins what follows the highlight at `i` to it; tells whether it did.
bool joinInto(QList<Highlight>& highlights, int i) {
    bool joined = false;
    for (int j = i + 1; j < highlights.size();) {
        const Highlight& a = highlights.at(i);
        const Highlight& b = highlights.at(j);
        if (b.start() > a.end())
            break;
        if (differsInKerno(a, b)) {
            ++j;
            continue;
        }
        if (!a.overlaps(b) && a.end() != b.start()) {
            if (!joined)
                break;
            ++j;
            continue;
        }
        const int end = b.end();
        Highlight& grown = highlights[i];
        grown.detach();
        grown.setModified(true);
        grown.setLength(end - grown.start());
        highlights.removeAt(j);
        joined = true;
    }
    return joined;
}

}  // namespace

QPair<int, int> moved(const QPair<int, int>& stretch, const Edit& edit) {
    const int behind = edit.position + edit.removed;
    const int delta = edit.added - edit.removed;
    const auto& [first, second] = stretch;
    return {first < edit.position ? first : std::max(first, behind) + delta, second <= edit.position ? second
                                                                             : second >= behind
                                                                                 ? second + delta
                                                                                 : edit.position};
}

bool shift(QList<Highlight>& highlights, const Edit& edit) {
    return Shift(highlights, edit).run();
}

void join(QList<Highlight>& highlights) {
    bool sortNeeded = false;
    for (int i = 0; i < highlights.size(); ++i)
        sortNeeded = joinInto(highlights, i) || sortNeeded;
    if (sortNeeded)
        std::sort(highlights.begin(), highlights.end(), highlightLessThan);
}

void append(QVector<HighlightChange>& history, HighlightChange step) {
    while (!history.isEmpty() && history.last().undoSteps >= step.undoSteps)
        history.removeLast();
    history.append(std::move(step));
}

void goBack(QVector<HighlightChange>& history, int undoSteps) {
    if (history.isEmpty() || history.last().undoSteps <= undoSteps)
        return;
    HighlightChange step = history.last();
    step.undoSteps = undoSteps;
    append(history, step);
}

// The number of steps to undo need not be one of the history's, which knows nothing of formats: then the
// highlights are those of the step before.
Base baseFor(const QVector<HighlightChange>& history, const QList<Highlight>& initial, int undoSteps) {
    qCDebug(logDocumentChangeTracker) << "mostRecentHighlightsForUndoStepCount uc" << undoSteps;
    if (history.isEmpty())
        return {initial, false, 0};
    qCDebug(logDocumentChangeTracker) << "last aus" << history.last().undoSteps;
    if (history.last().undoSteps <= undoSteps)
        return {history.last().highlights, false, history.last().path};
    qCDebug(logDocumentChangeTracker) << "got undo op";
    for (int i = history.size() - 2; i >= 0; --i) {
        if (history.at(i).undoSteps > undoSteps)
            continue;
        qCDebug(logDocumentChangeTracker) << "returning highlights at index" << i;
        return {history.at(i).highlights, true, history.at(i).path};
    }
    return {initial, true, 0};
}

}  // namespace edits
