#include "LinearWalk.h"
#include "RandomRecords.h"
#include "RecordFacts.h"
#include "merge/FullProjectJson.h"
#include "merge/Merging.h"
#include "records/SimpleCipher.h"
#include "tests_support/TestMain.h"

class tst_Merging : public QObject {
    Q_OBJECT

private slots:
    void nothingIsLost_data();
    void nothingIsLost();
    void kernosOfOneTitleNeverGoRoundInACircle();
};

namespace {

// Every reference leads to a record, and no id is given twice.
template <typename T> bool idsAreUnique(const QList<T>& list) {
    QSet<int> ids;
    for (const T& record : list)
        ids.insert(record.id());
    return ids.size() == list.size();
}

QString lostFrom(const RecordFacts& in, const RecordFacts& out) {
    for (const Highlight& h : in.r.highlights) {
        const bool found =
            std::any_of(out.r.highlights.cbegin(), out.r.highlights.cend(), [&](const Highlight& o) {
                return out.kerno(o.kernoId()) == in.kerno(h.kernoId()) && o.author() == h.author() &&
                       o.start() <= h.start() && o.end() >= h.end() && out.text(o) == in.text(h) &&
                       out.title(o.sourceId()) == in.title(h.sourceId());
            });
        if (!found)
            return "passage: " + in.words(h);
    }
    for (const KernoShortcutKey& s : in.r.shortcuts) {
        // A key that the master uses already keeps the master's kerno, on purpose.
        if (std::none_of(out.r.shortcuts.cbegin(), out.r.shortcuts.cend(),
                         [&](const auto& o) { return o.shortcutKey() == s.shortcutKey(); }))
            return "shortcut " + s.shortcutKey();
    }
    for (const Kerno& kerno : in.r.kernos) {
        if (std::none_of(out.r.kernos.cbegin(), out.r.kernos.cend(),
                         [&](const auto& o) { return o.title() == kerno.title(); }))
            return "kerno " + kerno.title();
    }
    for (const ChatMessage& message : in.r.chatMessages) {
        if (std::none_of(out.r.chatMessages.cbegin(), out.r.chatMessages.cend(),
                         [&](const auto& o) { return o.message() == message.message(); }))
            return "chat " + message.message();
    }
    // A memo of the same words on the same place stands once, on purpose.
    const QStringList lost = ((in.memos() - out.memos()) + (in.properties() - out.properties()) +
                              (in.groupLinks() - out.groupLinks()))
                                 .values();
    return lost.join("; ");
}

// One title has texts so short that a letter decides whether they are one.
ProjectRecords input(quint32 seed, int questions) {
    ProjectRecords r = RandomRecords(seed).make(questions);
    static const char* const texts[] = {"", "a", "b", "ab"};
    r.sources.append(Source(90, "Short", {}, {}, {}));
    r.answers.append(QuestionAnswer(99, 2, 90, {}, texts[seed % 4], {}));
    return r;
}

QJsonObject jsonOf(const ProjectRecords& records) {
    SimpleCipher none;
    return fullprojectjson::toJson(records, none);
}

}  // namespace

void tst_Merging::nothingIsLost_data() {
    columns<int, int>({"projects", "questions"});
    QTest::newRow("pairs") << 2 << 1;
    QTest::newRow("triples") << 3 << 1;
    QTest::newRow("pairs of several questions") << 2 << 3;
}

void tst_Merging::nothingIsLost() {
    FETCH(int, projects, int, questions);
    for (quint32 seed = 0; seed < 150; ++seed) {
        // Made anew for each that takes it, because copies of a passage share what they hold.
        const auto project = [&](int i) {
            return input(seed * 10 + static_cast<quint32>(i) * (1 + seed % 3), questions);
        };
        Merging merging(project(0));
        LinearWalk walk(project(0));
        for (int i = 1; i < projects; ++i) {
            merging.add(project(i));
            walk.add(project(i));
        }
        QVERIFY2(jsonOf(merging.result()) == jsonOf(walk.m), qPrintable(QString("seed %1").arg(seed)));
        const ProjectRecords& r = merging.result();
        const RecordFacts out(r);
        for (int i = 0; i < projects; ++i) {
            const ProjectRecords given = project(i);
            const QString lost = lostFrom(RecordFacts(given), out);
            QVERIFY2(lost.isEmpty(), qPrintable(QString("seed %1: %2").arg(seed).arg(lost)));
        }
        QVERIFY(idsAreUnique(r.sources) && idsAreUnique(r.answers) && idsAreUnique(r.highlights) &&
                idsAreUnique(r.kernos) && idsAreUnique(r.memos) && idsAreUnique(r.metadatas) &&
                idsAreUnique(r.metadataValues) && idsAreUnique(r.groups) && idsAreUnique(r.groupKernos) &&
                idsAreUnique(r.questions) && idsAreUnique(r.chatMessages));
        QCOMPARE(out.sources.values().size(), r.sources.size());
        for (const Highlight& h : r.highlights)
            QVERIFY(out.kernos.contains(h.kernoId()) && h.end() <= out.text(h).size());
    }
}

void tst_Merging::kernosOfOneTitleNeverGoRoundInACircle() {
    ProjectRecords added;
    added.kernos = {Kerno(1, 2, {}, "Twin", {}, {}, {}, 0, 0), Kerno(2, 3, {}, "Child", {}, {}, {}, 0, 0),
                    Kerno(3, -1, {}, "Twin", {}, {}, {}, 0, 0)};
    Merging merging({});
    merging.add(added);
    const QList<Kerno>& kernos = merging.result().kernos;
    QCOMPARE(kernos.size(), 2);
    QCOMPARE(kernos.at(0).parentKernoId(), -1);
    QCOMPARE(kernos.at(1).parentKernoId(), kernos.at(0).id());
}

KERNOVA_TEST_MAIN(tst_Merging)
#include "tst_merging.moc"
