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

bool standsAlike(const Highlight& a, const Highlight& b) {
    return a.start() == b.start() && a.length() == b.length();
}

bool moveAlong(QList<Highlight>& highlights, const QVector<edits::Edit>& path) {
    bool changed = false;
    for (const edits::Edit& edit : path)
        changed = edits::shift(highlights, edit) || changed;
    return changed;
}

/// Highlights of one kerno that an edit has joined, each as it is stored and where the edits alone take it.
struct Joined {
    Highlight stored;
    QList<Highlight> moved;  ///< one, or none when its words are gone
};

QVector<Joined> joinedOf(const QList<Highlight>& stored, const QVector<edits::Edit>& path) {
    QVector<Joined> list;
    for (const Highlight& highlight : stored) {
        list.append({highlight, {highlight}});
        list.last().moved.first().detach();
        list.last().moved.first().setModified(true);
        moveAlong(list.last().moved, path);
    }
    return list;
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

// A highlight that somebody has changed is not saved in the state that it was edited to, and one of several
// that were joined to one takes that one along: the others go their own ways.
void ChangesElsewhere::separate(const QList<Highlight>& old, QList<Highlight>& fresh,
                                const QList<Highlight>& initial, const QVector<edits::Edit>& path) const {
    const auto isTouched = [this](const Highlight& highlight) {
        return m_deleted.contains(highlight.id()) || m_saved.contains(highlight.id());
    };
    QHash<int, Highlight> known;
    for (const Highlight& highlight : initial)
        known.insert(highlight.id(), highlight);
    QList<Highlight> vanished;
    std::copy_if(old.cbegin(), old.cend(), std::back_inserter(vanished),
                 [&fresh](const Highlight& h) { return withId(fresh, h.id()) == fresh.end(); });
    const QVector<Joined> candidates = joinedOf(vanished, path);
    const QList<Highlight> edited = fresh;
    for (const Highlight& whole : edited) {
        const Highlight before = known.value(whole.id());
        QVector<Joined> group;
        for (const Joined& joined : candidates) {
            if (joined.stored.kernoId() == before.kernoId() && !joined.moved.isEmpty() &&
                joined.moved.first().start() >= whole.start() && joined.moved.first().end() <= whole.end())
                group.append(joined);
        }
        const bool isShared = !group.isEmpty();
        if (isShared)
            group += joinedOf({before}, path);
        else
            group.append({before, {whole}});
        if (std::none_of(group.cbegin(), group.cend(), [&](const Joined& j) { return isTouched(j.stored); }))
            continue;
        const auto at = withId(fresh, whole.id());
        const auto now = m_saved.constFind(whole.id());
        if (!isShared && now != m_saved.cend() && standsAlike(*now, before)) {
            at->setKernoId(now->kernoId());
            at->setColor(now->color());
            continue;
        }
        fresh.erase(at);
        for (const Joined& joined : qAsConst(group)) {
            if (!isTouched(joined.stored))
                fresh.append(joined.moved);
        }
    }
}

void ChangesElsewhere::apply(QList<Highlight>& old, QList<Highlight>& fresh, const QList<Highlight>& initial,
                             const QVector<edits::Edit>& path) {
    if (m_manyChanged)
        readChanges(initial);
    if (m_saved.isEmpty() && m_deleted.isEmpty())
        return;
    separate(old, fresh, initial, path);
    old.erase(std::remove_if(old.begin(), old.end(),
                             [this](const Highlight& h) { return m_deleted.contains(h.id()); }),
              old.end());
    for (const Highlight& highlight : qAsConst(m_saved)) {
        const auto stored = withId(old, highlight.id());
        if (withId(fresh, highlight.id()) != fresh.end()) {
            *stored = highlight;
            continue;
        }
        if (stored != old.end())
            old.erase(stored);
        QList<Highlight> list{highlight};
        if (moveAlong(list, path)) {
            old.append(highlight);
            fresh.append(list);
        }
    }
}

#include "moc_ChangesElsewhere.cpp"
