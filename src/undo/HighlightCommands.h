#pragma once

#include "records/Highlight.h"
#include "undo/BatchCommand.h"
#include "undo/RecordCommands.h"

/// Codes a passage into a kerno. A passage that overlaps others of the kerno in the same answer swallows
/// them; one that lies within another is coded already, which makes the command invalid.
class AddHighlightCommand : public RecordCommand<Highlight> {
public:
    /// `skipMerge`: for a kerno that can't have highlights yet.
    AddHighlightCommand(const Highlight& highlight, KRNFile* file, bool skipMerge = false,
                        QUndoCommand* parent = nullptr);

private:
    void merge(Highlight& added);
};

using DeleteHighlightCommand = DeleteRecordCommand<Highlight>;

/// Stores many highlights with one mutation. Those without an id get one.
class BatchCreateHighlightsCommand : public BatchCommand<Highlight> {
public:
    BatchCreateHighlightsCommand(const QList<Highlight>& highlights, KRNFile* file,
                                 QUndoCommand* parent = nullptr);
};

class BatchDeleteHighlightsCommand : public BatchCommand<Highlight> {
public:
    BatchDeleteHighlightsCommand(const QList<Highlight>& highlights, KRNFile* file,
                                 QUndoCommand* parent = nullptr);
    void undo() override;
};
