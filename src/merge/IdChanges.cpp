#include "merge/IdChanges.h"

#include "project/ProjectPreferences.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <algorithm>

namespace idchanges {

namespace {

constexpr int noParent = -1;

template <typename T> void give(QList<T>& list, void (T::*setId)(int), const IdMap& ids, const char* kind) {
    for (T& record : list) {
        const int before = record.id();
        const int after = ids.value(before, before);
        if (before == after)
            continue;
        qDebug() << kind << " id changed from " << before << " to " << after;
        (record.*setId)(after);
    }
}

template <typename T, typename Base>
void follow(QList<T>& list, int (Base::*reference)() const, void (Base::*set)(int), const IdMap& ids) {
    const auto stranded = [&](T& record) {
        const auto found = ids.constFind((record.*reference)());
        if (found == ids.cend())
            return true;
        (record.*set)(*found);
        return false;
    };
    list.erase(std::remove_if(list.begin(), list.end(), stranded), list.end());
}

template <typename T> IdMap inOrder(const QList<T>& list) {
    IdMap ids;
    ids.reserve(list.size());
    for (const T& record : list)
        ids.insert(record.id(), ids.size() + 1);
    return ids;
}

template <typename T> void number(QList<T>& list, void (T::*setId)(int), const char* kind) {
    give(list, setId, inOrder(list), kind);
}

// The list of the shown sources names them by their ids.
void followShownSources(QList<Preference>& preferences, const IdMap& ids) {
    for (Preference& entry : preferences) {
        if (entry.key() != preference::currentSources)
            continue;
        QJsonArray shown;
        const QJsonArray former = QJsonDocument::fromJson(entry.value().toString().toUtf8()).array();
        for (const QJsonValue& id : former) {
            if (ids.contains(id.toInt()))
                shown.append(ids.value(id.toInt()));
        }
        entry.setValue(QString::fromUtf8(QJsonDocument(shown).toJson(QJsonDocument::Compact)));
    }
}

}  // namespace

void changeSources(ProjectRecords& records, const IdMap& ids) {
    give(records.sources, &Source::setSourceId, ids, "source");
    follow(records.answers, &QuestionAnswer::sourceId, &QuestionAnswer::setSourceId, ids);
    follow(records.highlights, &Highlight::sourceId, &Highlight::setSourceId, ids);
    follow(records.memos, &Memo::sourceId, &Memo::setSourceId, ids);
    follow(records.metadatas, &SourceMetadata::sourceId, &SourceMetadata::setSourceId, ids);
    followShownSources(records.preferences, ids);
}

void changeMetadataKeys(ProjectRecords& records, const IdMap& ids) {
    give(records.metadataKeys, &SourceMetadataKey::setKeyId, ids, "sourceMetadataKey");
    follow(records.metadataValues, &SourceMetadataValue::keyId, &SourceMetadataValue::setKeyId, ids);
    follow(records.metadatas, &SourceMetadata::keyId, &SourceMetadata::setKeyId, ids);
}

void changeMetadataValues(ProjectRecords& records, const IdMap& ids) {
    give(records.metadataValues, &SourceMetadataValue::setValueId, ids, "sourceMetadataValue");
    follow(records.metadatas, &SourceMetadata::valueId, &SourceMetadata::setValueId, ids);
}

void changeQuestions(ProjectRecords& records, const IdMap& ids) {
    give(records.questions, &Question::setQuestionId, ids, "question");
    follow(records.answers, &QuestionAnswer::questionId, &QuestionAnswer::setQuestionId, ids);
    follow(records.highlights, &Highlight::questionId, &Highlight::setQuestionId, ids);
    follow(records.memos, &Memo::questionId, &Memo::setQuestionId, ids);
}

void changeKernos(ProjectRecords& records, const IdMap& ids) {
    give(records.kernos, &Kerno::setKernoId, ids, "kerno");
    for (Kerno& kerno : records.kernos)
        kerno.setParentKernoId(ids.value(kerno.parentKernoId(), noParent));
    follow(records.highlights, &Highlight::kernoId, &Highlight::setKernoId, ids);
    follow(records.groupKernos, &KernoGroup::kernoId, &KernoGroup::setKernoId, ids);
    follow(records.shortcuts, &KernoShortcutKey::kernoId, &KernoShortcutKey::setKernoId, ids);
}

void changeGroups(ProjectRecords& records, const IdMap& ids) {
    give(records.groups, &Group::setGroupId, ids, "group");
    follow(records.groupKernos, &KernoGroup::groupId, &KernoGroup::setGroupId, ids);
}

void renumber(ProjectRecords& records) {
    changeSources(records, inOrder(records.sources));
    changeMetadataKeys(records, inOrder(records.metadataKeys));
    changeMetadataValues(records, inOrder(records.metadataValues));
    number(records.metadatas, &SourceMetadata::setMetadataId, "sourceMetadata");
    changeQuestions(records, inOrder(records.questions));
    number(records.answers, &QuestionAnswer::setAnswerId, "answer");
    changeGroups(records, inOrder(records.groups));
    changeKernos(records, inOrder(records.kernos));
    number(records.highlights, &Highlight::setHighlightId, "highlight");
    number(records.groupKernos, &KernoGroup::setId, "groupkerno");
}

void breakKernoCircles(QList<Kerno>& kernos) {
    QHash<int, int> parents;
    for (const Kerno& kerno : qAsConst(kernos))
        parents.insert(kerno.kernoId(), kerno.parentKernoId());
    QSet<int> sound;
    for (Kerno& kerno : kernos) {
        QSet<int> way;
        int at = kerno.kernoId();
        while (at != noParent && !sound.contains(at) && !way.contains(at)) {
            way.insert(at);
            at = parents.value(at, noParent);
        }
        if (at == kerno.kernoId() && way.contains(at)) {
            kerno.setParentKernoId(noParent);
            parents.insert(at, noParent);
        }
        if (at == noParent || sound.contains(at) || at == kerno.kernoId())
            sound += way;
    }
}

}  // namespace idchanges
