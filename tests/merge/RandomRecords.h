#pragma once

#include "merge/ProjectRecords.h"
#include "project/ProjectPreferences.h"

#include <QRandomGenerator>
#include <QSet>

/// Makes projects that have much in common with one another: few titles, texts that are mostly equal under
/// one title, and everything that can hang on them. Equal seeds give equal projects.
class RandomRecords {
public:
    explicit RandomRecords(quint32 seed) : m_random(seed) {}

    int below(int limit) { return static_cast<int>(m_random.bounded(limit)); }
    QString word(const char* stem, int of) { return QString::fromLatin1(stem) + QString::number(below(of)); }
    QDateTime time() { return QDateTime::fromSecsSinceEpoch(1500000000 + below(100000000), Qt::UTC); }
    QString author() { return word("Author ", 3); }

    /// Awkward characters, so that every way of counting gives another number.
    QString text(int title) {
        static const QStringList pieces{"plain words ",
                                        "a & b; ",
                                        "1 < 2 > 0 ",
                                        "\"quoted\" ",
                                        QString::fromUtf8("emoji \U0001F600 "),
                                        QString::fromUtf8("ümläut ’ "),
                                        "line\nline ",
                                        "&amp; <laughs> "};
        RandomRecords own(static_cast<quint32>(title * 7 + (below(4) == 0)));
        QString text;
        for (int i = 0; i < 8; ++i)
            text += pieces[own.below(pieces.size())];
        return text + QString::number(own.below(1000));
    }

    /// A passage that doesn't cut a character in two.
    template <typename Passage> void place(Passage& passage, const QString& plain) {
        int start = below(plain.size() - 1);
        int end = start + 1 + below(plain.size() - start);
        start -= plain[start].isLowSurrogate();
        end += end < plain.size() && plain[end].isLowSurrogate();
        passage.setStart(start);
        passage.setLength(end - start);
    }

    ProjectRecords make(int questions = 1, int highlights = 30, int titles = 5) {
        ProjectRecords r;
        r.preferences = {{preference::singleQuestion, questions == 1 ? 1 : 0}, {"kept", "yes"}};
        for (int i = 1; i <= questions; ++i)
            r.questions.append(Question(i * 2, questions == 1 ? QString() : QStringLiteral("Q%1").arg(i), i));
        QSet<int> taken;
        for (int i = 0; i < 4; ++i) {
            const int title = below(titles);
            if (taken.contains(title))
                continue;
            taken.insert(title);
            const int id = 3 + i * 5;
            r.sources.append(
                Source(id, QStringLiteral("Talk %1").arg(title), "md_generic", author(), time()));
            for (const Question& question : qAsConst(r.questions))
                r.answers.append(QuestionAnswer(r.answers.size() * 2 + 1, question.id(), id, author(),
                                                text(title * 10 + question.id()).toHtmlEscaped(), time()));
        }
        for (int i = 0; i < 6; ++i) {
            const int parent = i > 0 && below(2) == 0 ? r.kernos.at(below(i)).id() : -1;
            r.kernos.append(Kerno(20 - i * 3, parent, QColor::fromRgb(m_random.bounded(0x1000000u)),
                                  word("Kerno & ", 6), word("about < ", 3), time(), author(), 5, 6));
        }
        for (int i = 0; i < 3; ++i) {
            r.metadataKeys.append(
                SourceMetadataKey(i + 2, false, false, QStringLiteral("Key \"%1\"").arg(i)));
            r.metadataValues.append(SourceMetadataValue(i * 2 + 1, i + 2, word("value > ", 2)));
            r.groups.append(Group(9 - i, QStringLiteral("Group %1").arg(i + below(3)), true));
            r.chatMessages.append(ChatMessage(i + 1, word("message ", 1000000), author(), time()));
            r.shortcuts.append(KernoShortcutKey(QString::number(below(9)), anyOf(r.kernos), author()));
        }
        for (const Source& source : qAsConst(r.sources)) {
            const int key = below(3);
            r.metadatas.append(
                SourceMetadata(r.metadatas.size() + 1, source.id(), key + 2, key * 2 + 1, author(), time()));
        }
        QSet<QPair<int, int>> links;
        for (int i = 0; i < 5; ++i)
            links.insert({anyOf(r.groups), anyOf(r.kernos)});
        for (const auto& link : qAsConst(links))
            r.groupKernos.append(KernoGroup(r.groupKernos.size() + 4, link.first, link.second));
        for (int i = 0; i < highlights; ++i) {
            const QuestionAnswer& answer = r.answers.at(below(r.answers.size()));
            Highlight h(i * 2 + 1, anyOf(r.kernos), answer.sourceId(), answer.questionId(), {}, 0, 1, 1,
                        author(), time(), 0, 0, 0, false);
            place(h, answer.plainAnswer());
            r.highlights.append(h);
            if (i % 5 != 0)
                continue;
            Memo memo(i + 1, answer.sourceId(), answer.questionId(), word("memo & <note> ", 4), 0, 1, 1,
                      author(), time(), 0, 0);
            place(memo, answer.plainAnswer());
            r.memos.append(memo);
        }
        return r;
    }

private:
    template <typename T> int anyOf(const QList<T>& list) { return list.at(below(list.size())).id(); }

    QRandomGenerator m_random;
};
