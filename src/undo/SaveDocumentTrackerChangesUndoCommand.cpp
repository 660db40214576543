#include "undo/SaveDocumentTrackerChangesUndoCommand.h"

#include "link/IdManager.h"
#include "models/BatchOperationManager.h"
#include "project/KRNFile.h"
#include "project/ProjectPreferences.h"
#include "undo/HighlightCommands.h"
#include "undo/SourceCommands.h"

namespace {

/// From so many changes on, nothing is said to have finished before they have come back: each would have all
/// stripes laid out anew.
constexpr int manyChanges = 16;

}  // namespace

SaveDocumentTrackerChangesUndoCommand::SaveDocumentTrackerChangesUndoCommand(
    const QuestionAnswer& answer, const QList<Highlight>& oldHighlights,
    const QList<Highlight>& newHighlights, KRNFile* file, QUndoCommand* parent)
    : FileManipulationCommand(file, parent), m_answer(answer),
      m_highlightsChanged(!oldHighlights.isEmpty() || !newHighlights.isEmpty()) {
    if (!isUsable(m_answer)) {
        invalidate();
        return;
    }
    for (const Highlight& highlight : oldHighlights)
        new DeleteHighlightCommand(highlight, file, this);
    const QuestionAnswer stored = file->answer(m_answer.answerId());
    const bool textChanged = stored.storedAnswer() != m_answer.storedAnswer();
    if (textChanged) {
        m_answerChanged = stored.answerLength() != m_answer.answerLength();
        new UpdateAnswerCommand(m_answer, file, this);
    }
    if (newHighlights.size() > 1)
        IdManager::instance()->stock(wire::Record::Highlight, newHighlights.size());
    for (const Highlight& highlight : newHighlights)
        new AddHighlightCommand(highlight, file, true, this);
    if (!textChanged && !m_highlightsChanged)
        invalidate();
}

/// Views and counts keep quiet meanwhile, and read anew once at the end.
void SaveDocumentTrackerChangesUndoCommand::run(bool forward) {
    if (m_answerChanged)
        batches()->startAnswerEdit(m_answer.sourceId(), m_answer.questionId());
    if (m_highlightsChanged)
        batches()->startHighlightBatch(m_answer.sourceId(), m_answer.questionId());
    forward ? redoChildren() : undoChildren();
    const auto finish = [batches = batches(), sourceId = m_answer.sourceId(),
                         questionId = m_answer.questionId(), highlights = m_highlightsChanged,
                         answer = m_answerChanged] {
        if (highlights)
            batches->finishHighlightBatch(sourceId, questionId);
        if (answer)
            batches->finishAnswerEdit(sourceId, questionId);
    };
    if (childCount() < manyChanges) {
        finish();
        return;
    }
    // A read is answered after all notifications of what was sent before it; they wait to be handled then.
    file()->getPreference(preference::dbVersion);
    QMetaObject::invokeMethod(batches(), finish, Qt::QueuedConnection);
}
