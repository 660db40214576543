#pragma once

#include "records/Highlight.h"
#include "records/QuestionAnswer.h"
#include "undo/FileManipulationCommand.h"

#include <QList>

/// Stores what the editing of an answer has made of its text and its highlights, as one step. The new
/// highlights get ids of their own and the current author. Invalid when nothing has changed.
class SaveDocumentTrackerChangesUndoCommand : public FileManipulationCommand {
public:
    /// `oldHighlights`: those that give way, as they are stored; `newHighlights`: what comes in their place.
    SaveDocumentTrackerChangesUndoCommand(const QuestionAnswer& answer, const QList<Highlight>& oldHighlights,
                                          const QList<Highlight>& newHighlights, KRNFile* file,
                                          QUndoCommand* parent = nullptr);

    void redo() override { run(true); }
    void undo() override { run(false); }

private:
    void run(bool forward);

    QuestionAnswer m_answer;
    bool m_answerChanged = false;  ///< in the length of its plain text
    bool m_highlightsChanged = false;
};
