#include "RandomRecords.h"
#include "RecordFacts.h"
#include "merge/Merging.h"
#include "merge/SourceSimilarity.h"
#include "tests_support/TestMain.h"

#include <QTest>

class tst_Merging : public QObject {
    Q_OBJECT

private slots:
    void nothingIsLost_data();
    void nothingIsLost();
    void oneTitleIsKeptOrRenamedByItsText_data();
    void oneTitleIsKeptOrRenamedByItsText();
    void highlightsOfOneKernoJoin();
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

ProjectRecords oneSource(const QString& title, const QString& text) {
    ProjectRecords r;
    r.sources = {Source(7, title, {}, {}, {})};
    r.questions = {Question(4, {}, 1)};
    r.answers = {QuestionAnswer(1, 4, 7, {}, text, {})};
    return r;
}

}  // namespace

void tst_Merging::nothingIsLost_data() {
    QTest::addColumn<int>("projects");
    QTest::addColumn<int>("questions");
    QTest::newRow("pairs") << 2 << 1;
    QTest::newRow("triples") << 3 << 1;
    QTest::newRow("pairs of several questions") << 2 << 3;
}

void tst_Merging::nothingIsLost() {
    QFETCH(int, projects);
    QFETCH(int, questions);
    for (quint32 seed = 0; seed < 150; ++seed) {
        QList<ProjectRecords> inputs;
        for (int i = 0; i < projects; ++i)
            inputs << RandomRecords(seed * 10 + static_cast<quint32>(i)).make(questions);
        Merging merging(RandomRecords(seed * 10).make(questions));
        for (int i = 1; i < projects; ++i)
            merging.add(RandomRecords(seed * 10 + static_cast<quint32>(i)).make(questions));
        const ProjectRecords& r = merging.result();
        const RecordFacts out(r);
        for (const ProjectRecords& input : qAsConst(inputs)) {
            const QString lost = lostFrom(RecordFacts(input), out);
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

void tst_Merging::oneTitleIsKeptOrRenamedByItsText_data() {
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("titles");
    const QString text(200, 'x');
    QTest::newRow("equal") << QStringList{text, text} << QStringList{"Title"};
    QTest::newRow("equal in three") << QStringList{text, text, text} << QStringList{"Title"};
    QTest::newRow("one letter") << QStringList{text, text.left(199) + 'y'}
                                << QStringList{"Title", "Title (1)"};
    QTest::newRow("three") << QStringList{text, "a" + text, "b" + text}
                           << QStringList{"Title", "Title (1)", "Title (2)"};
    QTest::newRow("empty beside a text") << QStringList{text, ""} << QStringList{"Title", "Title (1)"};
    QTest::newRow("one character, the master's sorts later") << QStringList{"b", "a"} << QStringList{"Title"};
    QTest::newRow("one character, the added one sorts later")
        << QStringList{"a", "b"} << QStringList{"Title", "Title (1)"};
}

void tst_Merging::oneTitleIsKeptOrRenamedByItsText() {
    QFETCH(QStringList, texts);
    const int distinct = QSet<QString>(texts.cbegin(), texts.cend()).size();
    Merging merging(oneSource("Title", texts.takeFirst()));
    for (const QString& text : qAsConst(texts))
        merging.add(oneSource("Title", text));
    QStringList titles;
    for (const Source& source : merging.result().sources)
        titles << source.title();
    QTEST(titles, "titles");
    QCOMPARE(merging.result().answers.size(), distinct);
}

void tst_Merging::highlightsOfOneKernoJoin() {
    const auto highlight = [](int kerno, const QString& author, int start, int end) {
        return Highlight(1, kerno, 7, 4, {}, start, end - start, end, author, {}, 0, 0, 0, false);
    };
    ProjectRecords records = oneSource("Title", "twenty characters !!");
    records.kernos = {Kerno(1, -1, {}, "A", {}, {}, {}, 0, 0), Kerno(2, -1, {}, "B", {}, {}, {}, 0, 0)};
    records.highlights = {highlight(1, "Ann", 5, 10)};
    ProjectRecords added = records;
    added.highlights = {highlight(1, "Ann", 10, 12),  // touches
                        highlight(1, "Ann", 0, 20), highlight(1, "Bob", 5, 10), highlight(2, "Ann", 5, 10),
                        highlight(2, "Ann", 11, 16)};
    Merging merging(records);
    merging.add(added);
    QStringList ranges;
    for (const Highlight& h : merging.result().highlights)
        ranges << QString("%1 %2 %3-%4").arg(h.kernoId()).arg(h.author()).arg(h.start()).arg(h.end());
    QCOMPARE(ranges, (QStringList{"1 Ann 0-20", "1 Bob 5-10", "2 Ann 5-10", "2 Ann 11-16"}));
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
