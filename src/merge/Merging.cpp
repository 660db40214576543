#include "merge/Merging.h"

#include "merge/SourceSimilarity.h"

#include <QDebug>
#include <algorithm>

namespace {

template <typename T> int nextId(const QList<T>& list) {
    int last = 0;
    for (const T& record : list)
        last = std::max(last, record.id());
    return last + 1;
}

template <typename Key> void insertFirst(QHash<Key, int>& map, const Key& key, int id) {
    if (!map.contains(key))
        map.insert(key, id);
}

QPair<int, QString> keyOf(const SourceMetadataValue& value) {
    return {value.keyId(), value.value().toString()};
}

QPair<QPair<int, int>, int> keyOf(const SourceMetadata& metadata) {
    return {{metadata.sourceId(), metadata.keyId()}, metadata.valueId()};
}

QPair<QPair<QPair<int, int>, int>, QPair<int, QString>> keyOf(const Memo& memo) {
    return {{{memo.sourceId(), memo.questionId()}, memo.start()}, {memo.length(), memo.content()}};
}

QPair<int, int> keyOf(const KernoGroup& link) {
    return {link.groupId(), link.kernoId()};
}

QHash<int, QVector<int>> rowsBySource(const QList<QuestionAnswer>& answers) {
    QHash<int, QVector<int>> rows;
    for (int row = 0; row < answers.size(); ++row)
        rows[answers.at(row).sourceId()].append(row);
    return rows;
}

QString joined(const QList<QuestionAnswer>& answers, const QVector<int>& rows) {
    QString text;
    for (int row : rows) {
        const QString plain = answers.at(row).plainAnswer();
        text = text.isEmpty() ? plain : text + plain;
    }
    return text;
}

/// Takes over the records whose key the master lacks. Their ids and those of the others go into `ids`.
template <typename T, typename KeyOf, typename Key>
void sortOut(const QList<T>& added, const QList<T>& master, KeyOf keyOf, QHash<Key, int>& known,
             idchanges::IdMap& ids, QList<T>& isNew) {
    int next = nextId(master);
    for (const T& record : added) {
        const Key key = keyOf(record);
        const auto found = known.constFind(key);
        if (found != known.cend()) {
            ids.insert(record.id(), *found);
        } else {
            known.insert(key, next);
            ids.insert(record.id(), next++);
            isNew.append(record);
        }
    }
}

}  // namespace

Merging::Merging(ProjectRecords master)
    : m_master((idchanges::renumber(master), std::move(master))), m_highlights(m_master.highlights) {
    qDebug() << "master prepared";
    for (const Source& source : qAsConst(m_master.sources))
        insertFirst(m_sources, source.title(), source.id());
    m_answerRows = rowsBySource(m_master.answers);
    for (const SourceMetadataKey& key : qAsConst(m_master.metadataKeys))
        insertFirst(m_keys, key.key(), key.id());
    for (const SourceMetadataValue& value : qAsConst(m_master.metadataValues))
        insertFirst(m_values, keyOf(value), value.id());
    for (const SourceMetadata& metadata : qAsConst(m_master.metadatas))
        m_metadatas.insert(keyOf(metadata));
    for (const Question& question : qAsConst(m_master.questions))
        insertFirst(m_questions, question.question(), question.id());
    for (const Kerno& kerno : qAsConst(m_master.kernos))
        insertFirst(m_kernos, kerno.title(), kerno.id());
    for (const Memo& memo : qAsConst(m_master.memos))
        m_memos.insert(keyOf(memo));
    for (const Group& group : qAsConst(m_master.groups))
        insertFirst(m_groups, group.title(), group.id());
    for (const KernoGroup& link : qAsConst(m_master.groupKernos))
        m_groupKernos.insert(keyOf(link));
    for (const KernoShortcutKey& shortcut : qAsConst(m_master.shortcuts))
        m_shortcuts.insert(shortcut.shortcutKey());
}

void Merging::add(ProjectRecords added) {
    addSources(added);
    addMetadataKeys(added);
    addMetadataValues(added);
    addMetadatas(added);
    addQuestions(added);
    addAnswers(added);
    addKernos(added);
    addHighlights(added);
    addMemos(added);
    addGroups(added);
    addGroupKernos(added);
    addShortcuts(added);
    addChatMessages(added);
}

QString Merging::masterText(int sourceId) const {
    return joined(m_master.answers, m_answerRows.value(sourceId));
}

QString Merging::uniqueTitle(const QString& title) const {
    QString candidate = title;
    for (int n = 1; m_sources.contains(candidate); ++n)
        candidate = title + QStringLiteral(" (%1)").arg(n);
    return candidate;
}

void Merging::addSources(ProjectRecords& added) {
    const QHash<int, QVector<int>> addedRows = rowsBySource(added.answers);
    idchanges::IdMap ids;
    QList<Source> kept;
    int next = nextId(m_master.sources);
    for (Source source : qAsConst(added.sources)) {
        const auto same = m_sources.constFind(source.title());
        if (same != m_sources.cend()) {
            const QString text = joined(added.answers, addedRows.value(source.id()));
            if (winnerOf(masterText(*same), text) == Winner::Master) {
                qDebug() << "already present, delete";
                ids.insert(source.id(), *same);
                continue;
            }
            qDebug() << "rename and add";
            source.setTitle(uniqueTitle(source.title()));
        } else {
            qDebug() << "new source added";
        }
        m_sources.insert(source.title(), next);
        ids.insert(source.id(), next++);
        kept.append(source);
    }
    added.sources = kept;
    idchanges::changeSources(added, ids);
    m_master.sources += added.sources;
    qDebug() << "sources merged";
}

void Merging::addMetadataKeys(ProjectRecords& added) {
    idchanges::IdMap ids;
    QList<SourceMetadataKey> isNew;
    sortOut(
        added.metadataKeys, m_master.metadataKeys, [](const auto& key) { return key.key(); }, m_keys, ids,
        isNew);
    added.metadataKeys = isNew;
    idchanges::changeMetadataKeys(added, ids);
    m_master.metadataKeys += added.metadataKeys;
    qDebug() << "metadatakeys merged";
}

void Merging::addMetadataValues(ProjectRecords& added) {
    idchanges::IdMap ids;
    QList<SourceMetadataValue> isNew;
    sortOut(
        added.metadataValues, m_master.metadataValues, [](const auto& value) { return keyOf(value); },
        m_values, ids, isNew);
    added.metadataValues = isNew;
    idchanges::changeMetadataValues(added, ids);
    m_master.metadataValues += added.metadataValues;
}

// The same value of another source is no reason to drop one.
void Merging::addMetadatas(ProjectRecords& added) {
    int next = nextId(m_master.metadatas);
    for (SourceMetadata& metadata : added.metadatas) {
        if (m_metadatas.contains(keyOf(metadata)))
            continue;
        m_metadatas.insert(keyOf(metadata));
        metadata.setMetadataId(next++);
        m_master.metadatas.append(metadata);
    }
}

void Merging::addQuestions(ProjectRecords& added) {
    idchanges::IdMap ids;
    QList<Question> isNew;
    sortOut(
        added.questions, m_master.questions, [](const auto& question) { return question.question(); },
        m_questions, ids, isNew);
    added.questions = isNew;
    idchanges::changeQuestions(added, ids);
    m_master.questions += added.questions;
}

bool Merging::hasAnswer(const QuestionAnswer& answer) const {
    const QVector<int> rows = m_answerRows.value(answer.sourceId());
    return std::any_of(rows.cbegin(), rows.cend(), [&](int row) {
        const QuestionAnswer& present = m_master.answers.at(row);
        return present.questionId() == answer.questionId() && present.plainAnswer() == answer.plainAnswer();
    });
}

// A source has one answer to a question: that of a source which stands in both projects is there already.
void Merging::addAnswers(ProjectRecords& added) {
    int next = nextId(m_master.answers);
    for (QuestionAnswer& answer : added.answers) {
        if (hasAnswer(answer))
            continue;
        answer.setAnswerId(next++);
        m_answerRows[answer.sourceId()].append(m_master.answers.size());
        m_master.answers.append(answer);
    }
}

void Merging::addKernos(ProjectRecords& added) {
    idchanges::IdMap ids;
    QHash<QString, int> titles;
    QList<Kerno> remaining;
    int next = nextId(m_master.kernos);
    for (const Kerno& kerno : qAsConst(added.kernos)) {
        const auto twin = titles.constFind(kerno.title());
        if (twin != titles.cend()) {
            qDebug() << "kerno removed" << kerno.id() << " replaced with" << *twin;
            ids.insert(kerno.id(), *twin);
            continue;
        }
        const auto known = m_kernos.constFind(kerno.title());
        const int id = known != m_kernos.cend() ? *known : next++;
        titles.insert(kerno.title(), id);
        ids.insert(kerno.id(), id);
        if (known == m_kernos.cend())
            remaining.append(kerno);
    }
    added.kernos = remaining;
    idchanges::changeKernos(added, ids);
    // A kerno that has followed its twin can have come under its own child.
    idchanges::breakKernoCircles(added.kernos);
    m_master.kernos += added.kernos;
    for (const Kerno& kerno : qAsConst(added.kernos))
        m_kernos.insert(kerno.title(), kerno.id());
}

void Merging::addHighlights(ProjectRecords& added) {
    int next = nextId(m_master.highlights);
    for (Highlight& highlight : added.highlights) {
        highlight.setHighlightId(next);
        next += m_highlights.add(highlight);
    }
}

void Merging::addMemos(ProjectRecords& added) {
    int next = nextId(m_master.memos);
    for (Memo& memo : added.memos) {
        if (m_memos.contains(keyOf(memo)))
            continue;
        m_memos.insert(keyOf(memo));
        memo.setMemoId(next++);
        m_master.memos.append(memo);
    }
}

void Merging::addGroups(ProjectRecords& added) {
    idchanges::IdMap ids;
    QList<Group> isNew;
    sortOut(
        added.groups, m_master.groups, [](const auto& group) { return group.title(); }, m_groups, ids, isNew);
    added.groups = isNew;
    idchanges::changeGroups(added, ids);
    m_master.groups += added.groups;
}

void Merging::addGroupKernos(ProjectRecords& added) {
    int next = nextId(m_master.groupKernos);
    for (KernoGroup& link : added.groupKernos) {
        if (m_groupKernos.contains(keyOf(link)))
            continue;
        m_groupKernos.insert(keyOf(link));
        link.setId(next++);
        m_master.groupKernos.append(link);
    }
}

void Merging::addShortcuts(ProjectRecords& added) {
    for (const KernoShortcutKey& shortcut : qAsConst(added.shortcuts)) {
        if (m_shortcuts.contains(shortcut.shortcutKey()))
            continue;
        m_shortcuts.insert(shortcut.shortcutKey());
        m_master.shortcuts.append(shortcut);
    }
}

void Merging::addChatMessages(ProjectRecords& added) {
    int next = nextId(m_master.chatMessages);
    for (ChatMessage& message : added.chatMessages) {
        message.setChatMessageId(next++);
        m_master.chatMessages.append(message);
    }
}
