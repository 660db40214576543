#pragma once

#include "project/Places.h"
#include "records/Kerno.h"
#include "undo/FileManipulationCommand.h"

#include <functional>

/// Base of commands that write the codings of whole kernos anew, over many answers. Listeners keep quiet
/// while it runs, and each answer's highlights are announced once afterwards.
class RecodingCommand : public FileManipulationCommand {
public:
    void redo() override { run(true); }
    void undo() override { run(false); }

protected:
    RecodingCommand(KRNFile* file, QUndoCommand* parent) : FileManipulationCommand(file, parent) {}

    using Rewriting = std::function<QList<Highlight>(const QList<Highlight>&)>;
    /// What `rewrite` makes of the highlights of each answer, in the order of sources and questions; the
    /// answers that have some are those that are announced.
    QList<Highlight> rewritten(const QList<Highlight>& highlights, const Rewriting& rewrite);

private:
    void run(bool forward);

    QList<Place> m_affectedPairs;
};

/// Puts a new kerno in the place of two: it takes over the codings of both, those that overlap joined, and
/// the kernos below both.
class MergeKernosCommand : public RecodingCommand {
public:
    /// The new kerno looks like the second one and stands where it stood.
    MergeKernosCommand(int kernoId1, int kernoId2, const QString& newName, KRNFile* file,
                       QUndoCommand* parent = nullptr);

private:
    int parentOfMerged(const Kerno& first, const Kerno& second) const;
    QList<Kerno> kernosBelow(int kernoId1, int kernoId2) const;
};

/// Adds a copy of a kerno at the top level, with copies of all its codings.
class DuplicateKernoCommand : public RecodingCommand {
public:
    DuplicateKernoCommand(int kernoId, KRNFile* file, QUndoCommand* parent = nullptr);
};
