#pragma once

#include "merge/ProjectRecords.h"

/// Merging as slowly as it can be told: one record after the other, looked for from the beginning of a list,
/// and its id changed with all that refers to it.
class LinearWalk {
public:
    explicit LinearWalk(const ProjectRecords& master) : m(master) {
        const auto number = [this](auto& list) {
            for (int i = 0; i < list.size(); ++i)
                change(m, list, list[i], i + 1);
        };
        number(m.sources), number(m.metadataKeys), number(m.metadataValues), number(m.metadatas);
        number(m.questions), number(m.answers), number(m.highlights), number(m.groups);
        number(m.groupKernos), number(m.kernos);
    }

    void add(ProjectRecords a) {
        addSources(a);
        take(a, a.metadataKeys, m.metadataKeys, [](auto& x, auto& y) { return x.key() == y.key(); });
        take(a, a.metadataValues, m.metadataValues,
             [](auto& x, auto& y) { return x.keyId() == y.keyId() && x.value() == y.value(); });
        take(a, a.metadatas, m.metadatas, [](auto& x, auto& y) {
            return x.sourceId() == y.sourceId() && x.keyId() == y.keyId() && x.valueId() == y.valueId();
        });
        take(a, a.questions, m.questions, [](auto& x, auto& y) { return x.question() == y.question(); });
        take(a, a.answers, m.answers, [](auto& x, auto& y) {
            return x.sourceId() == y.sourceId() && x.questionId() == y.questionId() &&
                   x.plainAnswer() == y.plainAnswer();
        });
        addKernos(a);
        addHighlights(a);
        take(a, a.memos, m.memos, [](auto& x, auto& y) {
            return x.sourceId() == y.sourceId() && x.questionId() == y.questionId() &&
                   x.content() == y.content() && x.start() == y.start() && x.length() == y.length();
        });
        take(a, a.groups, m.groups, [](auto& x, auto& y) { return x.title() == y.title(); });
        take(a, a.groupKernos, m.groupKernos,
             [](auto& x, auto& y) { return x.groupId() == y.groupId() && x.kernoId() == y.kernoId(); });
        for (const KernoShortcutKey& s : qAsConst(a.shortcuts)) {
            if (first(m.shortcuts, [&](auto& x) { return x.shortcutKey() == s.shortcutKey(); }) < 0)
                m.shortcuts.append(s);
        }
        take(a, a.chatMessages, m.chatMessages, [](auto&, auto&) { return false; });
    }

    ProjectRecords m;  ///< the master, and in the end the result

private:
    using R = ProjectRecords;

    template <typename T, typename Is> static int first(const QList<T>& list, Is is) {
        for (int i = 0; i < list.size(); ++i) {
            if (is(list.at(i)))
                return i;
        }
        return -1;
    }
    template <typename T> static int nextOf(const QList<T>& l) { return l.isEmpty() ? 1 : l.last().id() + 1; }

    template <typename T, typename Get, typename Set>
    static void refer(QList<T>& list, Get get, Set set, int from, int to) {
        for (T& record : list) {
            if ((record.*get)() == from)
                (record.*set)(to);
        }
    }
    static void give(R& r, Source& s, int to) {
        refer(r.answers, &QuestionAnswer::sourceId, &QuestionAnswer::setSourceId, s.id(), to);
        refer(r.highlights, &Highlight::sourceId, &Highlight::setSourceId, s.id(), to);
        refer(r.memos, &Memo::sourceId, &Memo::setSourceId, s.id(), to);
        refer(r.metadatas, &SourceMetadata::sourceId, &SourceMetadata::setSourceId, s.id(), to);
        s.setSourceId(to);
    }
    static void give(R& r, Question& q, int to) {
        refer(r.answers, &QuestionAnswer::questionId, &QuestionAnswer::setQuestionId, q.id(), to);
        refer(r.highlights, &Highlight::questionId, &Highlight::setQuestionId, q.id(), to);
        refer(r.memos, &Memo::questionId, &Memo::setQuestionId, q.id(), to);
        q.setQuestionId(to);
    }
    static void give(R& r, Kerno& k, int to) {
        refer(r.highlights, &Highlight::kernoId, &Highlight::setKernoId, k.id(), to);
        refer(r.kernos, &Kerno::parentKernoId, &Kerno::setParentKernoId, k.id(), to);
        refer(r.groupKernos, &KernoGroup::kernoId, &KernoGroup::setKernoId, k.id(), to);
        refer(r.shortcuts, &KernoShortcutKey::kernoId, &KernoShortcutKey::setKernoId, k.id(), to);
        k.setKernoId(to);
    }
    static void give(R& r, Group& g, int to) {
        refer(r.groupKernos, &KernoGroup::groupId, &KernoGroup::setGroupId, g.id(), to);
        g.setGroupId(to);
    }
    static void give(R& r, SourceMetadataKey& k, int to) {
        refer(r.metadataValues, &SourceMetadataValue::keyId, &SourceMetadataValue::setKeyId, k.id(), to);
        refer(r.metadatas, &SourceMetadata::keyId, &SourceMetadata::setKeyId, k.id(), to);
        k.setKeyId(to);
    }
    static void give(R& r, SourceMetadataValue& v, int to) {
        refer(r.metadatas, &SourceMetadata::valueId, &SourceMetadata::setValueId, v.id(), to);
        v.setValueId(to);
    }
    static void give(R&, SourceMetadata& x, int to) { x.setMetadataId(to); }
    static void give(R&, QuestionAnswer& x, int to) { x.setAnswerId(to); }
    static void give(R&, Highlight& x, int to) { x.setHighlightId(to); }
    static void give(R&, Memo& x, int to) { x.setMemoId(to); }
    static void give(R&, KernoGroup& x, int to) { x.setId(to); }
    static void give(R&, ChatMessage& x, int to) { x.setChatMessageId(to); }

    /// Another record with that id goes out of the way first.
    template <typename T> static void change(R& r, QList<T>& others, T& record, int to) {
        for (T& other : others) {
            if (other.id() == to && record.id() != to)
                change(r, others, other, to + 1000);
        }
        give(r, record, to);
    }

    template <typename T, typename Same> void take(R& a, QList<T>& added, QList<T>& master, Same same) {
        int next = nextOf(master);
        while (!added.isEmpty()) {
            T record = added.takeFirst();
            const int at = first(master, [&](auto& known) { return same(known, record); });
            change(a, added, record, at < 0 ? next++ : master.at(at).id());
            if (at < 0)
                master.append(record);
        }
    }

    static QString textOf(const R& r, int sourceId) {
        QString text;
        for (const QuestionAnswer& answer : r.answers)
            text += answer.sourceId() == sourceId ? answer.plainAnswer() : QString();
        return text;
    }
    static bool masterStays(const QString& t1, const QString& t2) {
        const int shorter = qMin(t1.size(), t2.size());
        int d = 0;
        for (int i = 0; i < shorter && static_cast<float>(d) / static_cast<float>(shorter) <= 0.05F; ++i)
            d += t1[i] != t2[i];
        return t1 == t2 || (d / (shorter + 0.01) > 0.95 && !(t1 < t2));
    }
    void addSources(R& a) {
        int next = nextOf(m.sources);
        while (!a.sources.isEmpty()) {
            Source s = a.sources.takeFirst();
            const auto isNamed = [&](auto& x) { return x.title() == s.title(); };
            const int at = first(m.sources, isNamed);
            if (at >= 0 && masterStays(textOf(m, m.sources[at].id()), textOf(a, s.id()))) {
                change(a, a.sources, s, m.sources[at].id());
                continue;
            }
            const QString title = s.title();
            for (int n = 1; first(m.sources, isNamed) >= 0; ++n)
                s.setTitle(title + QStringLiteral(" (%1)").arg(n));
            change(a, a.sources, s, next++);
            m.sources.append(s);
        }
    }

    void addKernos(R& a) {
        QMap<QString, int> ids;
        int next = nextOf(m.kernos);
        for (int i = 0; i < a.kernos.size();) {
            const QString title = a.kernos[i].title();
            const int at = first(m.kernos, [&](auto& x) { return x.title() == title; });
            if (ids.contains(title)) {
                Kerno twin = a.kernos.takeAt(i);
                give(a, twin, ids[title]);
                continue;
            }
            ids[title] = at < 0 ? next++ : m.kernos[at].id();
            change(a, a.kernos, a.kernos[i++], ids[title]);
        }
        for (const Kerno& kerno : qAsConst(a.kernos)) {
            if (first(m.kernos, [&](auto& x) { return x.title() == kerno.title(); }) < 0)
                m.kernos.append(kerno);
        }
    }

    void addHighlights(R& a) {
        int next = nextOf(m.highlights);
        for (Highlight& h : a.highlights) {
            const int at = first(m.highlights, [&](auto& x) {
                return x.sourceId() == h.sourceId() && x.questionId() == h.questionId() &&
                       x.author() == h.author() && x.kernoId() == h.kernoId() && h.start() <= x.end() &&
                       x.start() <= h.end();
            });
            h.setHighlightId(next);
            if (at < 0) {
                m.highlights.append(h);
                ++next;
                continue;
            }
            Highlight& x = m.highlights[at];
            const int end = qMax(x.end(), h.end());
            x.setStart(qMin(x.start(), h.start()));
            x.setLength(end - x.start());
        }
    }
};
