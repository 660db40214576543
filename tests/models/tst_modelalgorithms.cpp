#include "models/KernoLevels.h"
#include "models/PassageRange.h"
#include "models/RowIndex.h"
#include "models/StripeLayout.h"
#include "records/Highlight.h"
#include "tests_support/TestMain.h"

namespace {

struct Entry {
    int id = 0;
    int group = 0;
};

}  // namespace

/// The algorithms of the models, on values.
class tst_ModelAlgorithms : public QObject {
    Q_OBJECT

private slots:
    void randomStripesNeverCollide() {
        QRandomGenerator random(7);
        for (int round = 0; round < 50; ++round) {
            QVector<StripeExtent> stripes;
            int y = 0;
            for (int i = 0; i < 60; ++i) {
                y += random.bounded(3) * 16;
                stripes.append({y, y + 16 * (1 + random.bounded(6))});
            }
            const StripeColumns result = stripeColumns(stripes);
            int highest = 0;
            for (int i = 0; i < stripes.size(); ++i) {
                highest = qMax(highest, result.columns.at(i) + 1);
                // Each lower column is taken by the last stripe that was put there.
                for (int column = 0; column <= result.columns.at(i); ++column) {
                    int last = i - 1;
                    while (last >= 0 && result.columns.at(last) != column)
                        --last;
                    const bool free = last < 0 || stripes.at(i).y1 >= stripes.at(last).y2;
                    QCOMPARE(free, column == result.columns.at(i));
                }
            }
            QCOMPARE(result.count, highest);
        }
    }

    void repaintRangeTakesInNeighbours_data() {
        columns<int, int, int, int, int>({"start", "length", "row", "first", "last"});
        // Among [0,10) [5,30) [40,50) [45,48) [60,70).
        addRow("alone", 52, 5, 4, 52, 57);
        addRow("touching isn't enough", 50, 10, 4, 50, 60);
        addRow("both before", 8, 2, 2, 0, 30);
        addRow("stops at the first that is apart", 46, 1, 4, 40, 50);
        addRow("before and after", 25, 16, 2, 5, 50);
        addRow("longer comes first", 40, 20, 2, 40, 60);
        addRow("at the end", 65, 20, 5, 60, 85);
    }

    void repaintRangeTakesInNeighbours() {
        FETCH(int, start, int, length, int, row);
        QList<Highlight> stored;
        for (const QPair<int, int>& range :
             QList<QPair<int, int>>{{0, 10}, {5, 30}, {40, 50}, {45, 48}, {60, 70}})
            stored.append(Highlight(1, 1, 1, 1, {}, range.first, range.second - range.first, range.second, {},
                                    {}, 0, 0, 0, false));
        QList<const Highlight*> rows;
        for (const Highlight& highlight : qAsConst(stored))
            rows.append(&highlight);
        const Highlight added(2, 1, 1, 1, {}, start, length, start + length, {}, {}, 0, 0, 0, false);
        QCOMPARE(passages::insertionRow(rows, added, highlightLessThan), row);
        const QPair<int, int> range = passages::affectedRange(rows, row, added);
        QTEST(range.first, "first");
        QTEST(range.second, "last");
    }

    void levelsAreListedDepthFirst() {
        const QHash<int, QList<int>> children{{1, {2, 5}}, {2, {3, 4}}, {4, {9}}, {5, {1}}};
        const KernoLevels found = kernoLevels(1, [&children](int id) { return children.value(id); });
        QCOMPARE(found.ids, (QList<int>{1, 2, 3, 4, 5}));
        QCOMPARE(found.levels, (QHash<int, int>{{1, 0}, {2, 1}, {3, 2}, {4, 2}, {5, 1}}));
    }

    void anglesShareTheCircle() {
        const QHash<int, int> overlaps{{2, 5}, {3, 5}, {4, 5}, {5, 1}, {6, 1}, {7, 8}};
        QCOMPARE(angleForOverlap(overlaps, 5, 1), 120);
        QCOMPARE(angleForOverlap(overlaps, 5, 2), 180);
        QCOMPARE(angleForOverlap(overlaps, 1, 1), 180);
        QCOMPARE(angleForOverlap(overlaps, 8, 1), 30);
        QCOMPARE(angleForOverlap({}, 0, 1), 30);
    }

    void indexFollowsTheRows() {
        QRandomGenerator random(11);
        RowIndex<Entry, int> index([](const Entry& entry) { return entry.group; });
        std::vector<std::unique_ptr<ModelRow<Entry>>> rows;
        const auto renumber = [&rows] {
            for (size_t i = 0; i < rows.size(); ++i)
                rows[i]->row = static_cast<int>(i);
        };
        for (int step = 0; step < 2000; ++step) {
            if (rows.empty() || random.bounded(5) > 1) {
                const auto place = static_cast<int>(random.bounded(static_cast<int>(rows.size()) + 1));
                auto added = std::make_unique<ModelRow<Entry>>(Entry{step, random.bounded(4)});
                ModelRow<Entry>* row = added.get();
                rows.insert(rows.begin() + place, std::move(added));
                renumber();
                index.add(row);
            } else {
                const int place = random.bounded(static_cast<int>(rows.size()));
                index.remove(rows[static_cast<size_t>(place)].get());
                rows.erase(rows.begin() + place);
                renumber();
            }
            if (step % 50 != 0)
                continue;
            for (int group = 0; group < 5; ++group) {
                QList<int> expected;
                for (const auto& row : rows) {
                    if (row->group == group)
                        expected << row->id;
                }
                QList<int> found;
                for (const ModelRow<Entry>* row : index.rows(group))
                    found << row->id;
                QCOMPARE(found, expected);
            }
        }
    }
};

KERNOVA_TEST_MAIN(tst_ModelAlgorithms)
#include "tst_modelalgorithms.moc"
