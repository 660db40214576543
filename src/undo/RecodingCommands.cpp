#include "undo/RecodingCommands.h"

#include "models/KernoModel.h"
#include "models/QuestionModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "link/IdManager.h"
#include "undo/HighlightCommands.h"
#include "undo/KernoBatch.h"
#include "undo/KernoCommands.h"

#include <QCoreApplication>

QList<coding::Place> RecodingCommand::places() const {
    const QList<Source> sources = file()->sourceModel()->snapshot();
    const QList<Question> questions = file()->questionListModel()->snapshot();
    QList<coding::Place> places;
    places.reserve(sources.size() * questions.size());
    for (const Source& source : sources) {
        for (const Question& question : questions)
            places.append({source.id(), question.id()});
    }
    return places;
}

void RecodingCommand::run(bool forward) {
    for (const coding::Place& place : qAsConst(m_affectedPairs))
        batches()->startHighlightBatch(place.first, place.second);
    {
        const KernoBatch batch(batches());
        forward ? redoChildren() : undoChildren();
    }
    for (const coding::Place& place : qAsConst(m_affectedPairs))
        batches()->finishHighlightBatch(place.first, place.second);
}

// The kernos below the two are only given to the merged one. They keep their own codings, groups, keys and
// what lies below them, so the two are deleted without them.
MergeKernosCommand::MergeKernosCommand(int kernoId1, int kernoId2, const QString& newName, KRNFile* file,
                                       QUndoCommand* parent)
    : RecodingCommand(file, parent) {
    const Kerno first = file->kerno(kernoId1);
    const Kerno second = file->kerno(kernoId2);
    if (first.id() < 1 || second.id() < 1 || first.id() == second.id()) {
        invalidate();
        return;
    }
    const QList<Kerno> below = kernosBelow(kernoId1, kernoId2);
    const Kerno merged = mergedRecord(first, second, newName);
    const QList<Highlight> highlights = mergedHighlights(kernoId1, kernoId2, merged.id());

    using Cascade = DeleteKernoCommand::Cascade;
    new DeleteKernoCommand(kernoId1, file, this, Cascade::KeepBelow);
    new DeleteKernoCommand(kernoId2, file, this, Cascade::KeepBelow);
    new AddKernoCommand(merged, file, this);
    new BatchCreateHighlightsCommand(highlights, file, this);
    for (Kerno kerno : below) {
        kerno.setParentKernoId(merged.id());
        new UpdateKernoCommand(kerno, file, this);
    }
}

Kerno MergeKernosCommand::mergedRecord(const Kerno& first, const Kerno& second,
                                       const QString& newName) const {
    Kerno merged(second);
    merged.setKernoId(IdManager::instance()->nextKernoId());
    merged.setTitle(newName);
    // Where the second lay below the first, the way up to it vanishes with the first.
    QSet<int> seen;
    for (int id = second.parentKernoId(); id > 0 && !seen.contains(id);
         id = file()->kerno(id).parentKernoId()) {
        seen.insert(id);
        if (id == first.id())
            merged.setParentKernoId(first.parentKernoId());
    }
    return merged;
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

QList<Highlight> MergeKernosCommand::mergedHighlights(int kernoId1, int kernoId2, int mergedId) {
    const auto firsts = coding::byPlace(file()->highlightsOfKerno(kernoId1));
    const auto seconds = coding::byPlace(file()->highlightsOfKerno(kernoId2));
    QList<Highlight> all;
    for (const coding::Place& place : places()) {
        const QList<Highlight> joined = coding::joinOverlapping(firsts.value(place) + seconds.value(place));
        if (joined.isEmpty())
            continue;
        addAffected(place);
        all += joined;
    }
    for (Highlight& highlight : all)
        highlight.setKernoId(mergedId);
    return all;
}

DuplicateKernoCommand::DuplicateKernoCommand(int kernoId, KRNFile* file, QUndoCommand* parent)
    : RecodingCommand(file, parent) {
    Kerno kerno = file->kerno(kernoId);
    if (!isUsable(kerno)) {
        invalidate();
        return;
    }
    kerno.setKernoId(IdManager::instance()->nextKernoId());
    kerno.setParentKernoId(-1);
    kerno.setTitle(QStringLiteral("%1 %2").arg(
        kerno.title(), QCoreApplication::translate("DuplicateKernoCommand", "Duplicate")));
    kerno.setColor(QColor());
    const QList<Highlight> highlights = copiedHighlights(kernoId, kerno.id());
    new AddKernoCommand(kerno, file, this);
    new BatchCreateHighlightsCommand(highlights, file, this);
}

// The copies have no id yet: the batch command reserves one for each, so that it can take them back.
QList<Highlight> DuplicateKernoCommand::copiedHighlights(int kernoId, int copyId) {
    const auto originals = coding::byPlace(file()->highlightsOfKerno(kernoId));
    QList<Highlight> copies;
    for (const coding::Place& place : places()) {
        const QList<Highlight> here = originals.value(place);
        if (here.isEmpty())
            continue;
        addAffected(place);
        for (const Highlight& original : here) {
            Highlight copy = ownCopy(original);
            copy.setHighlightId(0);
            copy.setKernoId(copyId);
            copies.append(copy);
        }
    }
    return copies;
}
