#pragma once

#include "records/Highlight.h"

#include <QList>
#include <QPair>
#include <QVector>

/// What becomes of the highlights of a text while it is edited: values in, values out. Positions count UTF-16
/// units of the text. Lists are sorted by `highlightLessThan`.
namespace edits {

/// At `position`, `removed` characters gave way to `added` others.
struct Edit {
    int position = 0;
    int removed = 0;
    int added = 0;
};

/// Where the characters of the stretch [first, second) stand after the edit, with what was put between them;
/// empty when none is left.
QPair<int, int> moved(const QPair<int, int>& stretch, const Edit& edit);

/// Moves, grows, shrinks or removes the highlights that the edit concerns; those that it changes are marked
/// `modified`. What stands at or behind an insertion moves with it, and a highlight grows only from within.
/// One that lies wholly inside a replaced stretch that begins before it stays as it is. Tells whether a
/// highlight was changed.
///
/// A changed highlight gets a state of its own first, so copies of the list made before keep what they hold.
bool shift(QList<Highlight>& highlights, const Edit& edit);

/// Makes one of highlights of the same kerno that overlap or touch: the first takes the end of the last.
void join(QList<Highlight>& highlights);

/// The highlights after an edit.
struct HighlightChange {
    int position = 0;
    int added = 0;
    int removed = 0;
    int undoSteps = 0;  ///< of the document, after the edit
    QList<Highlight> highlights;
    bool changed = false;  ///< the edit changed a highlight
    int revision = 0;      ///< of the document, after the edit
    int path = 0;          ///< edits that lead from the first text to this one
};

/// Adds a step to a history. The document has given up what it could redo from here on, or will do it anew:
/// steps that no way leads back to are dropped, so that a history grows with the steps to undo and not with
/// the keys pressed.
void append(QVector<HighlightChange>& history, HighlightChange step);

/// The document went back to this many steps to undo, or came to them, without a highlight being concerned: a
/// change of formats alone is a step to undo, too, but none of the history.
void goBack(QVector<HighlightChange>& history, int undoSteps);

struct Base {
    QList<Highlight> highlights;
    bool undone = false;  ///< the document went back: these are the highlights, and no edit is to be applied
    int path = 0;         ///< edits that lead from the first text to this one
};

/// The highlights that belong to a document with this many steps to undo.
Base baseFor(const QVector<HighlightChange>& history, const QList<Highlight>& initial, int undoSteps);

}  // namespace edits
