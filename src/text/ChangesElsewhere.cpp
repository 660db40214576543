#include "text/ChangesElsewhere.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "models/QuestionAnswerMainModel.h"
#include "project/KRNFile.h"

#include <algorithm>

namespace {

QList<Highlight>::iterator withId(QList<Highlight>& list, int id) {
    return std::find_if(list.begin(), list.end(), [id](const Highlight& h) { return h.id() == id; });
}

}  // namespace

void ChangesElsewhere::follow(KRNFile* file, int sourceId, int questionId) {
    stop();
    m_file = file;
    m_sourceId = sourceId;
    m_questionId = questionId;
    QuestionAnswerMainModel* const answers = file->answerModel();
    m_text = answers->answer(sourceId, questionId).storedAnswer();
    connect(answers, &QuestionAnswerMainModel::modelUpdated, this, &ChangesElsewhere::compareText);
    connect(answers, &QAbstractItemModel::rowsRemoved, this, &ChangesElsewhere::compareText);
    connect(file, &ProjectEvents::highlightSaved, this, [this](const Highlight& highlight) {
        if (!concerns(highlight))
            return;
        m_saved.insert(highlight.id(), highlight);
        m_deleted.remove(highlight.id());
    });
    connect(file, &ProjectEvents::highlightDeleted, this, [this](const Highlight& highlight) {
        m_saved.remove(highlight.id());
        m_deleted.insert(highlight.id());
    });
    connect(file, &ProjectEvents::batchHighlightSaved, this, &ChangesElsewhere::noteMany);
    connect(file, &ProjectEvents::batchHighlightDeleted, this, &ChangesElsewhere::noteMany);
}

void ChangesElsewhere::stop() {
    if (m_file) {
        disconnect(m_file, nullptr, this, nullptr);
        disconnect(m_file->answerModel(), nullptr, this, nullptr);
    }
    m_file = nullptr;
    m_saved.clear();
    m_deleted.clear();
    m_manyChanged = false;
    if (m_textChanged) {
        m_textChanged = false;
        emit textChangedChanged();
    }
}

void ChangesElsewhere::compareText() {
    const QuestionAnswer answer = m_file->answerModel()->answer(m_sourceId, m_questionId);
    const bool changed = answer.id() < 1 || answer.storedAnswer() != m_text;
    if (changed == m_textChanged)
        return;
    m_textChanged = changed;
    emit textChangedChanged();
}

void ChangesElsewhere::noteMany(const QSet<int>& sources, const QSet<int>& questions) {
    m_manyChanged |= sources.contains(m_sourceId) && questions.contains(m_questionId);
}

// What the highlights that are stored now differ in. When they can't be read, what was told of them holds.
void ChangesElsewhere::readChanges(const QList<Highlight>& initial) {
    QList<Highlight> stored;
    if (!m_file->dataHelper()->queryList(reads::highlights(m_sourceId, m_questionId), stored))
        return;
    QHash<int, Highlight> known;
    for (const Highlight& highlight : initial)
        known.insert(highlight.id(), highlight);
    m_saved.clear();
    for (const Highlight& highlight : qAsConst(stored)) {
        const Highlight before = known.take(highlight.id());
        if (before.kernoId() != highlight.kernoId() || before.start() != highlight.start() ||
            before.length() != highlight.length())
            m_saved.insert(highlight.id(), highlight);
    }
    const QList<int> gone = known.keys();
    m_deleted = QSet<int>(gone.cbegin(), gone.cend());
}

void ChangesElsewhere::apply(QList<Highlight>& old, QList<Highlight>& fresh, const QList<Highlight>& initial,
                             const edits::Edit& edit) {
    if (m_manyChanged)
        readChanges(initial);
    const auto isGone = [this](const Highlight& highlight) { return m_deleted.contains(highlight.id()); };
    for (QList<Highlight>* list : {&old, &fresh})
        list->erase(std::remove_if(list->begin(), list->end(), isGone), list->end());
    QHash<int, Highlight> known;
    for (const Highlight& highlight : initial)
        known.insert(highlight.id(), highlight);
    for (const Highlight& highlight : m_saved) {
        const auto stored = withId(old, highlight.id());
        const auto moved = withId(fresh, highlight.id());
        const Highlight before = known.value(highlight.id());
        if (before.isValid() && before.start() == highlight.start() &&
            before.length() == highlight.length()) {
            if (stored != old.end())
                *stored = highlight;
            if (moved != fresh.end()) {
                moved->setKernoId(highlight.kernoId());
                moved->setColor(highlight.color());
            }
            continue;
        }
        if (stored != old.end())
            old.erase(stored);
        if (moved != fresh.end())
            fresh.erase(moved);
        QList<Highlight> list{highlight};
        if (edits::shift(list, edit)) {
            old.append(highlight);
            fresh.append(list);
        }
    }
}

#include "moc_ChangesElsewhere.cpp"
