#include "text/ChangesElsewhere.h"

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
}

void ChangesElsewhere::stop() {
    if (m_file) {
        disconnect(m_file, nullptr, this, nullptr);
        disconnect(m_file->answerModel(), nullptr, this, nullptr);
    }
    m_file = nullptr;
    m_saved.clear();
    m_deleted.clear();
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

void ChangesElsewhere::apply(QList<Highlight>& old, QList<Highlight>& fresh, const QList<Highlight>& initial,
                             const edits::Edit& edit) const {
    const auto isGone = [this](const Highlight& highlight) { return m_deleted.contains(highlight.id()); };
    for (QList<Highlight>* list : {&old, &fresh})
        list->erase(std::remove_if(list->begin(), list->end(), isGone), list->end());
    QSet<int> known;
    for (const Highlight& highlight : initial)
        known.insert(highlight.id());
    for (const Highlight& highlight : m_saved) {
        if (known.contains(highlight.id())) {
            const auto stored = withId(old, highlight.id());
            if (stored != old.end())
                *stored = highlight;
            const auto moved = withId(fresh, highlight.id());
            if (moved != fresh.end()) {
                moved->setKernoId(highlight.kernoId());
                moved->setColor(highlight.color());
            }
            continue;
        }
        QList<Highlight> list{highlight};
        if (edits::shift(list, edit)) {
            old.append(highlight);
            fresh.append(list);
        }
    }
}

#include "moc_ChangesElsewhere.cpp"
