#pragma once

#include "records/Kerno.h"
#include "undo/FileManipulationCommand.h"
#include "undo/HighlightMerge.h"

/// Base of commands that write the codings of whole kernos anew, over many answers. Listeners keep quiet
/// while it runs, and each answer's highlights are announced once afterwards.
class RecodingCommand : public FileManipulationCommand {
public:
    void redo() override { run(true); }
    void undo() override { run(false); }

protected:
    RecodingCommand(KRNFile* file, QUndoCommand* parent) : FileManipulationCommand(file, parent) {}

    /// The answers of the project, source by source, each in the order of the questions.
    QList<coding::Place> places() const;
    void addAffected(const coding::Place& place) { m_affectedPairs.append(place); }

private:
    void run(bool forward);

    QList<coding::Place> m_affectedPairs;
};

/// Puts a new kerno in the place of two: it takes over the codings of both, those that overlap joined, and
/// the kernos below both.
class MergeKernosCommand : public RecodingCommand {
public:
    /// The new kerno looks like the second one and stands where it stood.
    MergeKernosCommand(int kernoId1, int kernoId2, const QString& newName, KRNFile* file,
                       QUndoCommand* parent = nullptr);

private:
    Kerno mergedRecord(const Kerno& first, const Kerno& second, const QString& newName) const;
    QList<Kerno> kernosBelow(int kernoId1, int kernoId2) const;
    QList<Highlight> mergedHighlights(int kernoId1, int kernoId2, int mergedId);
};

/// Adds a copy of a kerno at the top level, with copies of all its codings.
class DuplicateKernoCommand : public RecodingCommand {
public:
    DuplicateKernoCommand(int kernoId, KRNFile* file, QUndoCommand* parent = nullptr);

private:
    QList<Highlight> copiedHighlights(int kernoId, int copyId);
};
