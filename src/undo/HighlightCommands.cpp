#include "undo/HighlightCommands.h"

#include "link/IdManager.h"
#include "project/KRNFile.h"
#include "undo/Dependants.h"
#include "undo/HighlightMerge.h"

#include <QDebug>
#include <algorithm>

AddHighlightCommand::AddHighlightCommand(const Highlight& highlight, KRNFile* file, bool skipMerge,
                                         QUndoCommand* parent)
    : RecordCommand(Does::Save, file, parent) {
    if (!highlight.isValid()) {
        invalidate();
        return;
    }
    Highlight added = ownCopy(highlight);
    if (!skipMerge)
        merge(added);
    if (!isValid())
        return;
    added.setHighlightId(-1);
    factsOf<Highlight>().create(added, currentAuthor());
    take(added);
}

// The author compared is the one of the record that was passed in: a screen's record has none yet, and so
// joins only with highlights that have none.
void AddHighlightCommand::merge(Highlight& added) {
    const auto existing =
        dependants::highlightsOfKerno(*file(), added.kernoId(), added.sourceId(), added.questionId());
    if (!existing) {
        invalidate();
        return;
    }
    const coding::Addition addition = coding::add(*existing, {added.start(), added.end()}, added.author());
    if (addition.alreadyCoded) {
        invalidate();
        return;
    }
    if (addition.swallowed.isEmpty())
        return;
    for (const Highlight& swallowed : addition.swallowed)
        new DeleteHighlightCommand(swallowed, file(), this);
    added.setStart(addition.range.first);
    added.setLength(addition.range.second - addition.range.first);
}

BatchCreateHighlightsCommand::BatchCreateHighlightsCommand(const QList<Highlight>& highlights, KRNFile* file,
                                                           QUndoCommand* parent)
    : BatchCommand(Does::Save, highlights, file, parent) {
    if (!isValid())
        return;
    const auto isNew = [](const Highlight& highlight) { return highlight.id() < 1; };
    const auto count = static_cast<int>(std::count_if(records().cbegin(), records().cend(), isNew));
    QList<int> ids = IdManager::instance()->nextHighlightIds(count);
    if (ids.size() < count) {
        invalidate();
        return;
    }
    for (Highlight& highlight : records()) {
        if (isNew(highlight))
            highlight.setHighlightId(ids.takeFirst());
    }
}

BatchDeleteHighlightsCommand::BatchDeleteHighlightsCommand(const QList<Highlight>& highlights, KRNFile* file,
                                                           QUndoCommand* parent)
    : BatchCommand(Does::Remove, highlights, file, parent) {}

void BatchDeleteHighlightsCommand::undo() {
    qDebug() << "UNDOING DELETE HIGHLIGHTS";
    BatchCommand::undo();
}
