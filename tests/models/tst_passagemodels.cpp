#include "FakeProject.h"
#include "FakeText.h"
#include "models/HighlightsModel.h"
#include "models/MemosModel.h"
#include "models/ModelDelays.h"
#include "models/PassageRange.h"
#include "models/StripeLayout.h"
#include "tests_support/TestMain.h"

namespace {

Memo testMemo(int id, int start, int length) {
    return Memo(id, 1, 1, "note"_s, start, length, start + length, "Ann"_s, {}, 0, 0);
}

}  // namespace

class tst_PassageModels : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { modelDelays().positions = 1; }

    void init() {
        m_project = std::make_unique<FakeProject>();
        m_project->kernos->setData({testKerno(1), testKerno(2)});
        m_text = std::make_unique<FakeText>();
        m_model = std::make_unique<HighlightsModel>(m_text.get(), nullptr);
        m_model->setLineHeight(linePixels);
    }

    void cleanup() {
        m_model.reset();
        m_text.reset();
        m_project.reset();
    }

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
            stored.append(testHighlight(1, 1, range.first, range.second - range.first));
        QList<const Highlight*> rows;
        for (const Highlight& highlight : qAsConst(stored))
            rows.append(&highlight);
        const Highlight added = testHighlight(2, 1, start, length);
        QCOMPARE(passages::insertionRow(rows, added, highlightLessThan), row);
        const QPair<int, int> range = passages::affectedRange(rows, row, added);
        QTEST(range.first, "first");
        QTEST(range.second, "last");
    }

    void everyReplacementIsAnnounced() {
        const QAbstractItemModelTester tester(m_model.get());
        QSignalSpy ready(m_model.get(), &HighlightsModel::modelReady);
        QSignalSpy columns(m_model.get(), &HighlightsModel::columnsChanged);
        m_model->setSource(1, 1, 0, 100);
        m_model->doReloadData({}, 1, 1);
        QCOMPARE(ready.takeFirst(), (QVariantList{1, 1, 0, 100}));
        m_model->doReloadData({testHighlight(1, 1, 0, 5), testHighlight(2, 1, 3, 5)}, 1, 1);
        m_model->doReloadData({testHighlight(1, 1, 0, 5)}, 2, 1);
        QCOMPARE(ready.count(), 1);
        QCOMPARE(m_model->rowCount(), 2);
        QCOMPARE(columns.count(), 1);
        m_model->doReloadData({testHighlight(3, 1, 0, 5)}, 1, 1);
        QCOMPARE(ready.count(), 2);
        QCOMPARE(columns.count(), 2);
    }

    // Views of the bars are told of two rows for the one that comes, so a model tester can't watch here; the
    // numbers are compared instead.
    void savedHighlightTakesItsPlace() {
        show(*m_model,
             {testHighlight(1, 1, 0, 10), testHighlight(2, 1, 40, 10), testHighlight(3, 1, 45, 20)});
        QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy added(m_model.get(), &HighlightsModel::highlightAdded);
        emit m_project->highlightSaved(testHighlight(4, 2, 5, 38));
        QCOMPARE(idsOf(*m_model), (QList<int>{1, 4, 2, 3}));
        QCOMPARE(inserted.first().at(1).toInt(), 3);
        QCOMPARE(inserted.first().at(2).toInt(), 4);
        QCOMPARE(moved.first().at(1).toInt(), 3);
        QCOMPARE(moved.first().at(4).toInt(), 1);
        QCOMPARE(changed.last().at(2).value<QVector<int>>(), (QVector<int>{268, 269, 267}));
        QCOMPARE(added.count(), 1);
        QCOMPARE((added.first().at(1).value<QPair<int, int>>()), (QPair<int, int>(0, 50)));
        QCOMPARE(m_model->columns(), 3);
        moved.clear();
        emit m_project->highlightSaved(testHighlight(5, 2, 200, 10));
        QCOMPARE(idsOf(*m_model).last(), 5);
        QCOMPARE(moved.count(), 0);
        // What a view asks for the row that never came is empty.
        QVERIFY(!m_model->data(m_model->index(5, 0), 257).isValid());
        QVERIFY(!m_model->at(5).isValid());
    }

    void bulkChangesKeepItQuiet() {
        show(*m_model, {testHighlight(1, 1, 0, 10)});
        BatchOperationManager* batches = m_project->batchOperationManager();
        QSignalSpy columns(m_model.get(), &HighlightsModel::columnsChanged);
        batches->startHighlightBatch(1, 1);
        emit m_project->highlightSaved(testHighlight(2, 1, 0, 10));
        m_model->updatePositions();
        QCOMPARE(m_model->rowCount(), 1);
        batches->finishHighlightBatch(1, 1);
        emit m_project->highlightSaved(testHighlight(2, 1, 0, 10));
        QCOMPARE(m_model->rowCount(), 2);
        QCOMPARE(columns.count(), 1);
        // A batch of another answer is no obstacle.
        batches->startAnswerEdit(5, 5);
        emit m_project->highlightDeleted(testHighlight(2, 1, 0, 10));
        QCOMPARE(m_model->rowCount(), 1);
    }

    void editableTextsGetTheirListHanded() {
        m_model->setHighlights({testHighlight(1, 1, 0, 10)}, 1, 1);
        QCOMPARE(m_model->rowCount(), 0);
        emit m_text->readOnlyChanged(false);
        const QAbstractItemModelTester tester(m_model.get());
        QSignalSpy source(m_model.get(), &HighlightsModel::sourceIdChanged);
        m_model->setHighlights({testHighlight(1, 1, 0, 10)}, 3, 4);
        QCOMPARE(source.count(), 1);
        QCOMPARE(m_model->sourceId(), 3);
        QCOMPARE(m_model->questionId(), 4);
        QCOMPARE(m_model->rowCount(), 1);
        emit m_project->highlightSaved(testHighlight(2, 1, 0, 10, 3, 4));
        emit m_project->highlightDeleted(testHighlight(1, 1, 0, 10, 3, 4));
        QCOMPARE(idsOf(*m_model), (QList<int>{1}));
    }

    void coloursFollowTheKerno() {
        show(*m_model,
             {testHighlight(1, 1, 0, 10), testHighlight(2, 2, 20, 10), testHighlight(3, 1, 40, 10)});
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy colours(m_model.get(), &HighlightsModel::colorsChanged);
        Kerno green = m_project->kernos->record(1);
        green.setColor(Qt::green);
        m_project->kernos->addOrUpdate(green);
        QCOMPARE(colours.count(), 1);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), 2);
        QCOMPARE(changed.first().at(2).value<QVector<int>>(), QVector<int>{261});
        QCOMPARE(m_model->at(0).color(), QColor(Qt::green));
        QCOMPARE(m_model->at(1).color(), QColor(Qt::red));
        // A colour alone makes no other record, but a view must see it.
        Highlight blue = testHighlight(2, 2, 20, 10);
        blue.setColor(Qt::blue);
        changed.clear();
        m_model->addOrUpdate(blue);
        QVERIFY(changed.first().at(2).value<QVector<int>>().contains(261));
    }

    void positionsFollowTheText() {
        show(*m_model, {testHighlight(1, 1, 0, 10), testHighlight(2, 1, 45, 10)});
        QSignalSpy lineHeight(m_model.get(), &HighlightsModel::lineHeightChanged);
        m_model->setLineHeight(4 * linePixels);
        QCOMPARE(lineHeight.count(), 1);
        QCOMPARE(m_model->at(0).y2(), 4 * linePixels);
        QCOMPARE(m_model->columns(), 2);
        m_text->complete = false;
        m_model->setLineHeight(linePixels);
        QCOMPARE(m_model->columns(), 2);
    }

    void memosFollowTheirText() {
        MemosModel memos(m_text.get(), nullptr);
        QSignalSpy added(&memos, &MemosModel::memoAdded);
        QSignalSpy removed(&memos, &MemosModel::memoRemoved);
        memos.setSource(1, 1, 0, -1);
        memos.doReloadData({testMemo(1, 45, 5000)}, 1, 1);
        QCOMPARE(memos.at(0).y1(), 2 * linePixels);
        emit m_project->memoSaved(testMemo(2, 0, 10));
        QCOMPARE(idsOf(memos), (QList<int>{2, 1}));
        emit m_project->memoSaved(testMemo(2, 60, 5));
        QCOMPARE(removed.takeLast().first().value<Memo>().start(), 0);
        QCOMPARE(added.takeLast().first().value<Memo>().start(), 60);
    }

    void stormEndsLikeAFreshList() {
        QRandomGenerator random(5);
        const auto sorted = [](const QMap<int, Highlight>& byId) {
            QList<Highlight> list;
            for (const Highlight& stored : byId) {
                const Highlight clipped(stored, 100, 400);
                if (clipped.isValid())
                    list << clipped;
            }
            std::stable_sort(list.begin(), list.end(), highlightLessThan);
            return list;
        };
        QMap<int, Highlight> stored;
        m_model->setSource(1, 1, 100, 400);
        m_model->doReloadData({}, 1, 1);
        for (int step = 0; step < 600; ++step) {
            const int id = 1 + random.bounded(40);
            // No two share start and end, so that there is one order.
            const Highlight highlight =
                testHighlight(id, 1, 80 + id * 8 + random.bounded(8), 1 + random.bounded(60));
            if (random.bounded(4) == 0) {
                emit m_project->highlightDeleted(highlight);
                stored.remove(id);
            } else {
                emit m_project->highlightSaved(highlight);
                stored.insert(id, highlight);
            }
            if (step % 100 == 50)
                m_model->doReloadData(sorted(stored), 1, 1);
        }
        HighlightsModel fresh(m_text.get(), nullptr);
        fresh.setLineHeight(linePixels);
        fresh.setSource(1, 1, 100, 400);
        fresh.doReloadData(sorted(stored), 1, 1);
        QCOMPARE(idsOf(*m_model, static_cast<int>(HighlightField::start)),
                 idsOf(fresh, static_cast<int>(HighlightField::start)));
        for (HighlightField field : {HighlightField::highlightId, HighlightField::end, HighlightField::column,
                                     HighlightField::y1, HighlightField::y2})
            QCOMPARE(idsOf(*m_model, static_cast<int>(field)), idsOf(fresh, static_cast<int>(field)));
        QCOMPARE(m_model->columns(), fresh.columns());
    }

private:
    void show(HighlightsModel& model, const QList<Highlight>& list) {
        model.setSource(1, 1, 0, -1);
        model.doReloadData(list, 1, 1);
    }

    std::unique_ptr<FakeProject> m_project;
    std::unique_ptr<FakeText> m_text;
    std::unique_ptr<HighlightsModel> m_model;
};

KERNOVA_GUI_TEST_MAIN(tst_PassageModels)
#include "moc_FakeText.cpp"
#include "tst_passagemodels.moc"
