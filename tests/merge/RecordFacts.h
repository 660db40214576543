#pragma once

#include "merge/ProjectRecords.h"

#include <QHash>
#include <QSet>

/// What a project says, without its ids: texts instead of references.
struct RecordFacts {
    explicit RecordFacts(const ProjectRecords& records) : r(records) {
        for (const Source& source : r.sources)
            sources.insert(source.id(), source);
        for (const QuestionAnswer& answer : r.answers) {
            if (!texts.contains({answer.sourceId(), answer.questionId()}))
                texts.insert({answer.sourceId(), answer.questionId()}, answer.plainAnswer());
        }
        for (const Kerno& kerno : r.kernos)
            kernos.insert(kerno.id(), kerno);
        for (const SourceMetadataKey& key : r.metadataKeys)
            keys.insert(key.id(), key.key());
        for (const SourceMetadataValue& value : r.metadataValues)
            values.insert(value.id(), value.value().toString());
        for (const Group& group : r.groups)
            groups.insert(group.id(), group.title());
    }

    template <typename Passage> QString text(const Passage& p) const {
        return texts.value({p.sourceId(), p.questionId()});
    }
    template <typename Passage> QString words(const Passage& p) const {
        return text(p).mid(p.start(), p.length());
    }
    /// Title of the source, without the number that makes it unique.
    QString title(int sourceId) const { return sources.value(sourceId).title().section(" (", 0, 0); }
    QString kerno(int id) const { return kernos.value(id).title(); }

    QSet<QString> properties() const {
        QSet<QString> all;
        for (const SourceMetadata& m : r.metadatas)
            all.insert(title(m.sourceId()) + '|' + keys.value(m.keyId()) + '|' + values.value(m.valueId()));
        return all;
    }
    QSet<QString> groupLinks() const {
        QSet<QString> all;
        for (const KernoGroup& link : r.groupKernos)
            all.insert(groups.value(link.groupId()) + '|' + kerno(link.kernoId()));
        return all;
    }
    /// Where each memo stands, on which words.
    QSet<QString> memos() const {
        QSet<QString> all;
        for (const Memo& m : r.memos)
            all.insert(title(m.sourceId()) + '|' + text(m) + '|' + QString::number(m.start()) + '|' +
                       words(m) + '|' + m.content());
        return all;
    }

    const ProjectRecords& r;
    QHash<int, Source> sources;
    QHash<QPair<int, int>, QString> texts;  ///< by source and question
    QHash<int, Kerno> kernos;
    QHash<int, QString> keys;
    QHash<int, QString> values;
    QHash<int, QString> groups;
};
