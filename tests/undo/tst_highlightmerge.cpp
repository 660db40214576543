#include "tests_support/TestMain.h"
#include "undo/HighlightMerge.h"

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
    void addingSwallowsTheOverlappingRun_data() {
        columns<QList<Range>, QStringList, QString, Range, bool, Range, QList<int>>(
            {"existing", "authors", "author", "range", "alreadyCoded", "result", "swallowed"});

        const QString ann = "Ann"_s;
        const QString bob = "Bob"_s;
        const Range added(10, 20);
        using Ranges = QList<Range>;
        const auto row = [&](const char* name, const Ranges& existing, const Range& result,
                             const QList<int>& swallowed, const QStringList& authors = {},
                             const QString& author = {}) {
            addRow(name, existing, authors, author, added, false, result, swallowed);
        };
        const auto coded = [&](const char* name, const Ranges& existing, const QStringList& authors = {},
                               const QString& author = {}) {
            addRow(name, existing, authors, author, added, true, added, QList<int>{});
        };
        coded("within another", {{5, 25}});
        coded("the same passage", {added});
        coded("within another's of another author", {{5, 25}}, {bob}, ann);
        coded("contained by a later one, overlapping an earlier", {{0, 12}, {8, 30}});
        row("nothing there", {}, added, {});
        row("touching on both sides", {{0, 10}, {20, 30}}, added, {});
        row("two overlap", {{15, 30}, {18, 40}}, {10, 40}, {1, 2}, {ann, ann}, ann);
        row("swallows what lies within", {{12, 14}, {15, 18}}, added, {1, 2});
        row("the run ends at a gap", {{5, 12}, {30, 40}, {11, 13}}, {5, 20}, {1});
        row("a widened range reaches further", {{15, 25}, {24, 30}}, {10, 30}, {1, 2});
        row("earlier ones are passed over", {{0, 5}, {2, 8}, {9, 15}}, {9, 20}, {3});
        row("another author stops the walk", {{5, 12}, {8, 15}, {11, 30}}, {5, 20}, {1}, {ann, bob, ann},
            ann);
        row("another author stops it before it begins", {{0, 2}, {8, 15}}, added, {}, {bob, ann}, ann);
        row("no author joins with no named one", {{5, 12}}, added, {}, {ann});
    }

    void addingSwallowsTheOverlappingRun() {
        FETCH(QList<Range>, existing, QStringList, authors, QString, author, Range, range);
        QList<Highlight> list;
        for (int i = 0; i < existing.size(); ++i)
            list.append(highlight(i + 1, existing.at(i), authors.value(i)));

        const coding::Addition addition = coding::add(list, range, author);
        QTEST(addition.alreadyCoded, "alreadyCoded");
        QTEST(addition.range, "result");
        QTEST(idsOf(addition.swallowed), "swallowed");
    }

    // The definition: as long as two of them overlap, put their union in their place. It is the record of the
    // one that is read first.
    void joiningEqualsRepeatedUnions() {
        QRandomGenerator random(20);
        for (int round = 0; round < 400; ++round) {
            QList<Range> ranges;
            for (int count = random.bounded(12); count > 0; --count) {
                const int start = random.bounded(60);
                ranges.append({start, start + 1 + random.bounded(12)});
            }
            const QList<Highlight> given = highlights(ranges);
            QList<Highlight> unions = given;
            for (Highlight& h : unions)
                h.detach();
            std::stable_sort(unions.begin(), unions.end(), highlightLessThan);
            for (bool changed = true; changed;) {
                changed = false;
                for (int i = 0; i < unions.size() && !changed; ++i) {
                    for (int j = i + 1; j < unions.size() && !changed; ++j) {
                        changed = unions[i].start() < unions[j].end() && unions[j].start() < unions[i].end();
                        if (changed)
                            unions[i].setLength(std::max(unions[i].end(), unions.takeAt(j).end()) -
                                                unions[i].start());
                    }
                }
            }
            QList<Highlight> joined = coding::joinOverlapping(given);
            QCOMPARE(rangesOf(joined), rangesOf(unions));
            QCOMPARE(idsOf(joined), idsOf(unions));
            // Nothing is written through to the records that were given.
            for (Highlight& h : joined)
                h.setKernoId(99);
            QCOMPARE(rangesOf(given), ranges);
            for (const Highlight& h : given)
                QCOMPARE(h.kernoId(), 7);
        }
    }
};

KERNOVA_TEST_MAIN(tst_HighlightMerge)
#include "tst_highlightmerge.moc"
