#include "tests_support/TestMain.h"
#include "undo/HighlightMerge.h"

#include <QRandomGenerator>

using Range = QPair<int, int>;

namespace {

Highlight highlight(int id, const Range& range, const QString& author = {}, int sourceId = 1) {
    return Highlight(id, 7, sourceId, 1, {}, range.first, range.second - range.first, range.second, author,
                     {}, 0, 0, 0, false);
}

QList<Highlight> highlights(const QList<Range>& ranges) {
    QList<Highlight> list;
    for (const Range& range : ranges)
        list.append(highlight(list.size() + 1, range));
    return list;
}

QList<Range> rangesOf(const QList<Highlight>& list) {
    QList<Range> ranges;
    for (const Highlight& h : list)
        ranges.append({h.start(), h.end()});
    return ranges;
}

QList<int> idsOf(const QList<Highlight>& list) {
    QList<int> ids;
    for (const Highlight& h : list)
        ids.append(h.id());
    return ids;
}

}  // namespace

/// What becomes of passages of one kerno that meet.
class tst_HighlightMerge : public QObject {
    Q_OBJECT

private slots:
    void addingSwallowsTheOverlappingRun_data();
    void addingSwallowsTheOverlappingRun();
    void joining_data();
    void joining();
    void joiningLeavesTheRecordsGivenAlone();
    void joiningEqualsRepeatedUnions();
};

void tst_HighlightMerge::addingSwallowsTheOverlappingRun_data() {
    QTest::addColumn<QList<Range>>("existing");
    QTest::addColumn<QStringList>("authors");
    QTest::addColumn<QString>("author");
    QTest::addColumn<Range>("range");
    QTest::addColumn<bool>("alreadyCoded");
    QTest::addColumn<Range>("result");
    QTest::addColumn<QList<int>>("swallowed");

    const QStringList none{QString(), QString(), QString()};
    const QString ann = QStringLiteral("Ann");
    const QString bob = QStringLiteral("Bob");
    const Range added(10, 20);
    using Ranges = QList<Range>;
    using Ids = QList<int>;

    QTest::newRow("nothing there") << Ranges{} << none << QString() << added << false << added << Ids{};
    QTest::newRow("within another") << Ranges{{5, 25}} << none << QString() << added << true << added
                                    << Ids{};
    QTest::newRow("the same passage")
        << Ranges{added} << none << QString() << added << true << added << Ids{};
    QTest::newRow("within another's of another author")
        << Ranges{{5, 25}} << QStringList{bob} << ann << added << true << added << Ids{};
    QTest::newRow("contained by a later one, overlapping an earlier")
        << Ranges{{0, 12}, {8, 30}} << none << QString() << added << true << added << Ids{};
    QTest::newRow("touching on both sides")
        << Ranges{{0, 10}, {20, 30}} << none << QString() << added << false << added << Ids{};
    QTest::newRow("two overlap") << Ranges{{15, 30}, {18, 40}} << QStringList{ann, ann} << ann << added
                                 << false << Range(10, 40) << Ids{1, 2};
    QTest::newRow("swallows what lies within")
        << Ranges{{12, 14}, {15, 18}} << none << QString() << added << false << added << Ids{1, 2};
    QTest::newRow("the run ends at a gap") << Ranges{{5, 12}, {30, 40}, {11, 13}} << none << QString()
                                           << added << false << Range(5, 20) << Ids{1};
    QTest::newRow("a widened range reaches further")
        << Ranges{{15, 25}, {24, 30}} << none << QString() << added << false << Range(10, 30) << Ids{1, 2};
    QTest::newRow("earlier ones are passed over")
        << Ranges{{0, 5}, {2, 8}, {9, 15}} << none << QString() << added << false << Range(9, 20) << Ids{3};
    QTest::newRow("another author stops the walk")
        << Ranges{{5, 12}, {8, 15}, {11, 30}} << QStringList{ann, bob, ann} << ann << added << false
        << Range(5, 20) << Ids{1};
    QTest::newRow("another author stops it before it begins")
        << Ranges{{0, 2}, {8, 15}} << QStringList{bob, ann} << ann << added << false << added << Ids{};
    QTest::newRow("no author joins with no named one")
        << Ranges{{5, 12}} << QStringList{ann} << QString() << added << false << added << Ids{};
}

void tst_HighlightMerge::addingSwallowsTheOverlappingRun() {
    QFETCH(QList<Range>, existing);
    QFETCH(QStringList, authors);
    QFETCH(QString, author);
    QFETCH(Range, range);
    QList<Highlight> list;
    for (int i = 0; i < existing.size(); ++i)
        list.append(highlight(i + 1, existing.at(i), authors.at(i)));

    const coding::Addition addition = coding::add(list, range, author);
    QTEST(addition.alreadyCoded, "alreadyCoded");
    QTEST(addition.range, "result");
    QTEST(idsOf(addition.swallowed), "swallowed");
}

void tst_HighlightMerge::joining_data() {
    QTest::addColumn<QList<Range>>("given");
    QTest::addColumn<QList<Range>>("joined");
    QTest::addColumn<QList<int>>("ids");
    using Ranges = QList<Range>;
    using Ids = QList<int>;

    QTest::newRow("none") << Ranges{} << Ranges{} << Ids{};
    QTest::newRow("one") << Ranges{{3, 5}} << Ranges{{3, 5}} << Ids{1};
    QTest::newRow("touching stay apart")
        << Ranges{{10, 20}, {0, 10}} << Ranges{{0, 10}, {10, 20}} << Ids{2, 1};
    QTest::newRow("overlapping join") << Ranges{{5, 15}, {0, 10}} << Ranges{{0, 15}} << Ids{2};
    QTest::newRow("contained") << Ranges{{0, 30}, {5, 10}, {12, 14}} << Ranges{{0, 30}} << Ids{1};
    QTest::newRow("the longer comes first") << Ranges{{0, 5}, {0, 9}} << Ranges{{0, 9}} << Ids{2};
    QTest::newRow("a chain, then a gap")
        << Ranges{{0, 10}, {8, 20}, {19, 25}, {25, 30}} << Ranges{{0, 25}, {25, 30}} << Ids{1, 4};
}

void tst_HighlightMerge::joining() {
    QFETCH(QList<Range>, given);
    const QList<Highlight> joined = coding::joinOverlapping(highlights(given));
    QTEST(rangesOf(joined), "joined");
    QTEST(idsOf(joined), "ids");
}

void tst_HighlightMerge::joiningLeavesTheRecordsGivenAlone() {
    const QList<Highlight> given = highlights({{0, 10}, {5, 15}});
    QList<Highlight> joined = coding::joinOverlapping(given);
    joined.first().setKernoId(99);
    QCOMPARE(rangesOf(given), (QList<Range>{{0, 10}, {5, 15}}));
    QCOMPARE(given.first().kernoId(), 7);
}

// The definition: as long as two of them overlap, put their union in their place.
void tst_HighlightMerge::joiningEqualsRepeatedUnions() {
    QRandomGenerator random(20);
    for (int round = 0; round < 200; ++round) {
        QList<Range> ranges;
        const int count = random.bounded(12);
        for (int i = 0; i < count; ++i) {
            const int start = random.bounded(60);
            ranges.append({start, start + 1 + random.bounded(12)});
        }
        const QList<Range> joined = rangesOf(coding::joinOverlapping(highlights(ranges)));

        for (bool changed = true; changed;) {
            changed = false;
            for (int i = 0; i < ranges.size() && !changed; ++i) {
                for (int j = i + 1; j < ranges.size() && !changed; ++j) {
                    changed = ranges[i].first < ranges[j].second && ranges[j].first < ranges[i].second;
                    if (changed) {
                        const Range other = ranges.takeAt(j);
                        ranges[i] = {std::min(ranges[i].first, other.first),
                                     std::max(ranges[i].second, other.second)};
                    }
                }
            }
        }
        std::sort(ranges.begin(), ranges.end());
        QCOMPARE(joined, ranges);
    }
}

KERNOVA_TEST_MAIN(tst_HighlightMerge)
#include "tst_highlightmerge.moc"
