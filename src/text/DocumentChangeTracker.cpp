#include "text/DocumentChangeTracker.h"

#include "models/QuestionAnswerMainModel.h"
#include "project/KRNFile.h"
#include "records/RichTextFragment.h"
#include "text/KernovaTextEdit.h"
#include "text/TextLog.h"
#include "undo/SaveDocumentTrackerChangesUndoCommand.h"
#include "undo/SourceCommands.h"
#include "undo/UndoManager.h"

#include <QQuickTextDocument>
#include <QSet>
#include <QTextDocument>
#include <algorithm>

namespace {

KRNFile* openProject() {
    return qobject_cast<KRNFile*>(ProjectEvents::current());
}

QList<Highlight> detached(QList<Highlight> highlights) {
    for (Highlight& highlight : highlights)
        highlight.detach();
    return highlights;
}

/// The former versions of what was changed or has vanished.
QList<Highlight> replaced(const QList<Highlight>& initial, const QList<Highlight>& current) {
    QSet<int> untouched;
    for (const Highlight& highlight : current) {
        if (!highlight.isModified())
            untouched.insert(highlight.id());
    }
    QList<Highlight> list;
    for (const Highlight& highlight : initial) {
        if (!untouched.contains(highlight.id()))
            list.append(highlight);
    }
    return detached(list);
}

QList<Highlight> modified(const QList<Highlight>& current) {
    QList<Highlight> list;
    std::copy_if(current.cbegin(), current.cend(), std::back_inserter(list),
                 [](const Highlight& highlight) { return highlight.isModified(); });
    return detached(list);
}

}  // namespace

DocumentChangeTracker::DocumentChangeTracker(QObject* parent) : QObject(parent) {
    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(Timings::refresh);
    connect(&m_refreshTimer, &QTimer::timeout, this, &DocumentChangeTracker::applyFreshHighlights);
    connect(this, &DocumentChangeTracker::freshHighlightsAvailable, this,
            &DocumentChangeTracker::onFreshHighlightsAvailable);
    connect(&m_elsewhere, &ChangesElsewhere::textChangedChanged, this,
            &DocumentChangeTracker::outdatedChanged);
}

QQuickItem* DocumentChangeTracker::target() const {
    return m_target;
}

void DocumentChangeTracker::setTarget(QQuickItem* target) {
    auto* text = qobject_cast<KernovaTextEdit*>(target);
    if (m_target == text)
        return;
    if (m_document)
        disconnect(m_document, nullptr, this, nullptr);
    if (m_target)
        disconnect(m_target, nullptr, this, nullptr);
    m_target = text;
    m_document = text ? text->textDocument()->textDocument() : nullptr;
    if (text) {
        connect(m_document.data(), &QTextDocument::contentsChange, this,
                &DocumentChangeTracker::documentContentsChanged);
        connect(text, &KernovaTextEdit::sourceIdChanged, this, &DocumentChangeTracker::sourceIdChanged);
        connect(text, &KernovaTextEdit::questionIdChanged, this, &DocumentChangeTracker::questionIdChanged);
    }
    emit targetChanged();
}

QObject* DocumentChangeTracker::undoManager() const {
    return m_undoManager;
}

void DocumentChangeTracker::setUndoManager(QObject* manager) {
    auto* undoManager = qobject_cast<UndoManager*>(manager);
    if (m_undoManager == undoManager)
        return;
    m_undoManager = undoManager;
    emit undoManagerChanged();
}

void DocumentChangeTracker::setTrackChanges(bool on) {
    if (m_trackChanges == on)
        return;
    m_trackChanges = on;
    emit trackChangesChanged();
}

void DocumentChangeTracker::setTrackHighlights(bool on) {
    if (m_trackHighlights == on)
        return;
    m_trackHighlights = on;
    emit trackHighlightsChanged();
}

void DocumentChangeTracker::loadInitialHighlights() {
    KRNFile* file = openProject();
    if (!m_target || !file)
        return;
    m_elsewhere.follow(file, m_target->sourceId(), m_target->questionId());
    m_initialHighlights = file->highlights(m_target->sourceId(), m_target->questionId());
    std::stable_sort(m_initialHighlights.begin(), m_initialHighlights.end(), highlightLessThan);
    m_currentHighlights = detached(m_initialHighlights);
    m_initialText = m_target->convertDocToRichtText();
    m_steps.clear();
    m_path.clear();
    qCDebug(logDocumentChangeTracker)
        << "Initial highlights loaded and detached. Count: " << m_initialHighlights.size();
    m_target->setHighlights(m_currentHighlights);
    emit highlightsChanged();
}

void DocumentChangeTracker::documentContentsChanged(int position, int removed, int added) {
    if (!m_trackChanges)
        return;
    const int undoSteps = m_document->availableUndoSteps();
    if (removed == added) {
        edits::goBack(m_steps, undoSteps);
        return;
    }
    if (m_document->revision() == m_lastRevision)
        return;
    m_lastRevision = m_document->revision();
    qCDebug(logDocumentChangeTracker)
        << "documentContentsChanged position:" << position << "added" << added << "removed" << removed
        << "revision" << m_lastRevision << "available redo steps" << m_document->availableRedoSteps()
        << "available undo" << undoSteps;
    edits::Base base = edits::baseFor(m_steps, m_initialHighlights, undoSteps);
    bool changed = base.undone;
    m_path.resize(base.path);
    if (!base.undone) {
        changed = edits::shift(base.highlights, {position, removed, added});
        edits::join(base.highlights);
        m_path.append({position, removed, added});
    }
    edits::append(m_steps, {position, added, removed, undoSteps, base.highlights, changed, m_lastRevision,
                            m_path.size()});
    qCDebug(logDocumentChangeTracker) << "Highlights changed?" << changed;
    qCDebug(logDocumentChangeTracker) << "Tracking highlights?" << m_trackHighlights;
    if (m_trackHighlights && changed)
        emit freshHighlightsAvailable(base.highlights);
}

void DocumentChangeTracker::onFreshHighlightsAvailable(QList<Highlight> highlights) {
    m_currentHighlights = std::move(highlights);
    m_refreshTimer.start();
}

void DocumentChangeTracker::applyFreshHighlights() {
    if (!m_target)
        return;
    m_target->setHighlights(m_currentHighlights);
    emit highlightsChanged();
}

void DocumentChangeTracker::discardChanges() {
    m_steps.clear();
    m_path.clear();
}

void DocumentChangeTracker::saveAnswer() {
    KRNFile* file = openProject();
    if (!m_target || !m_undoManager || !file)
        return;
    QuestionAnswer answer = file->answerModel()->answer(m_target->sourceId(), m_target->questionId());
    answer.setAnswer(richtext::escaped(plainTextOf(m_document)));
    m_elsewhere.stop();
    m_undoManager->perform([&] { return std::make_unique<UpdateAnswerCommand>(answer, file); });
}

void DocumentChangeTracker::saveChanges() {
    KRNFile* file = openProject();
    if (!m_target || !m_undoManager || !file)
        return;
    QuestionAnswer answer = file->answerModel()->answer(m_target->sourceId(), m_target->questionId());
    // A text may be stored in another form than it would be written in; that alone is no change.
    const QString text = m_target->convertDocToRichtText();
    if (text != m_initialText)
        answer.setAnswer(text);
    QList<Highlight> old = replaced(m_initialHighlights, m_currentHighlights);
    QList<Highlight> fresh = modified(m_currentHighlights);
    m_elsewhere.apply(old, fresh, m_initialHighlights, m_path);
    m_elsewhere.stop();
    m_undoManager->perform(
        [&] { return std::make_unique<SaveDocumentTrackerChangesUndoCommand>(answer, old, fresh, file); });
}

bool DocumentChangeTracker::saveAsNewSource(const QString& title) {
    KRNFile* file = openProject();
    if (!m_target || !m_undoManager || !file)
        return false;
    m_elsewhere.stop();
    return m_undoManager->perform([&] {
        return std::make_unique<AddAnsweredSourceCommand>(title, m_target->questionId(),
                                                          m_target->convertDocToRichtText(), file);
    });
}

#include "moc_DocumentChangeTracker.cpp"
