#include "undo/RecodingCommands.h"

#include "link/IdManager.h"
#include "models/KernoModel.h"
#include "project/KRNFile.h"
#include "undo/Dependants.h"
#include "undo/HighlightCommands.h"
#include "undo/HighlightMerge.h"
#include "undo/KernoBatch.h"
#include "undo/KernoCommands.h"

#include <QCoreApplication>

QList<Highlight> RecodingCommand::rewritten(const QList<Highlight>& highlights, const Rewriting& rewrite) {
    const QHash<Place, QList<Highlight>> found = byPlace(highlights);
    QList<Highlight> all;
    for (const Place& place : allPlaces(*file()->sourceModel(), *file()->questionListModel())) {
        const QList<Highlight> here = rewrite(found.value(place));
        if (here.isEmpty())
            continue;
        m_affectedPairs.append(place);
        all += here;
    }
    return all;
}

void RecodingCommand::run(bool forward) {
    for (const Place& place : qAsConst(m_affectedPairs))
        batches()->startHighlightBatch(place.first, place.second);
    {
        const KernoBatch batch(batches());
        forward ? redoChildren() : undoChildren();
    }
    for (const Place& place : qAsConst(m_affectedPairs))
        batches()->finishHighlightBatch(place.first, place.second);
}

// The kernos below the two are only given to the merged one. They keep their own codings, groups, keys and
// what lies below them, so the two are deleted without them.
MergeKernosCommand::MergeKernosCommand(int kernoId1, int kernoId2, const QString& newName, KRNFile* file,
                                       QUndoCommand* parent)
    : RecodingCommand(file, parent) {
    const Kerno first = file->kerno(kernoId1);
    const Kerno second = file->kerno(kernoId2);
    const bool areTwo = first.id() >= 1 && second.id() >= 1 && first.id() != second.id();
    const auto firsts = areTwo ? dependants::highlightsOfKerno(*file, kernoId1) : std::nullopt;
    const auto seconds = firsts ? dependants::highlightsOfKerno(*file, kernoId2) : std::nullopt;
    const int mergedId = seconds ? IdManager::instance()->nextKernoId() : 0;
    if (mergedId < 1) {
        invalidate();
        return;
    }
    Kerno merged(second);
    merged.setKernoId(mergedId);
    merged.setParentKernoId(parentOfMerged(first, second));
    merged.setTitle(newName);
    QList<Highlight> highlights = rewritten(*firsts + *seconds, coding::joinOverlapping);
    for (Highlight& highlight : highlights)
        highlight.setKernoId(mergedId);
    const QList<Kerno> below = kernosBelow(kernoId1, kernoId2);

    using Cascade = DeleteKernoCommand::Cascade;
    new DeleteKernoCommand(kernoId1, file, this, Cascade::KeepBelow);
    new DeleteKernoCommand(kernoId2, file, this, Cascade::KeepBelow);
    new AddKernoCommand(merged, file, this);
    new BatchCreateHighlightsCommand(highlights, file, this);
    for (Kerno kerno : below) {
        kerno.setParentKernoId(mergedId);
        new UpdateKernoCommand(kerno, file, this);
    }
}

// Where the second lay below the first, the way up to it vanishes with the first. Parents in a circle lead
// nowhere: the merged kerno stands on top then, where it can be seen.
int MergeKernosCommand::parentOfMerged(const Kerno& first, const Kerno& second) const {
    int parent = second.parentKernoId();
    QSet<int> seen{second.id()};
    for (int id = parent; id > 0; id = file()->kerno(id).parentKernoId()) {
        if (seen.contains(id))
            return -1;
        seen.insert(id);
        if (id == first.id())
            parent = first.parentKernoId();
    }
    return parent;
}

QList<Kerno> MergeKernosCommand::kernosBelow(int kernoId1, int kernoId2) const {
    const KernoModel* kernos = file()->kernoModel();
    QList<Kerno> below;
    const QList<Kerno> all = kernos->childrenOf(kernoId1) + kernos->childrenOf(kernoId2);
    for (const Kerno& kerno : all) {
        if (kerno.id() != kernoId1 && kerno.id() != kernoId2)
            below.append(kerno);
    }
    return below;
}

// The copies have no id yet: the batch command reserves one for each, so that it can take them back.
DuplicateKernoCommand::DuplicateKernoCommand(int kernoId, KRNFile* file, QUndoCommand* parent)
    : RecodingCommand(file, parent) {
    Kerno kerno = file->kerno(kernoId);
    const auto originals = isUsable(kerno) ? dependants::highlightsOfKerno(*file, kernoId) : std::nullopt;
    if (!originals) {
        invalidate();
        return;
    }
    kerno.setKernoId(-1);
    kerno.setParentKernoId(-1);
    kerno.setTitle(QStringLiteral("%1 %2").arg(
        kerno.title(), QCoreApplication::translate("DuplicateKernoCommand", "Duplicate")));
    kerno.setColor(QColor());
    const auto* const added = new AddKernoCommand(kerno, file, this);
    if (!added->isValid())
        return;
    const int copyId = added->record().id();
    const auto copied = [copyId](QList<Highlight> highlights) {
        for (Highlight& highlight : highlights) {
            highlight.detach();
            highlight.setHighlightId(0);
            highlight.setKernoId(copyId);
        }
        return highlights;
    };
    new BatchCreateHighlightsCommand(rewritten(*originals, copied), file, this);
}
