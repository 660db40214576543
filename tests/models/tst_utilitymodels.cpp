#include "OwnRolesOnly.h"
#include "models/ComboBoxProxyModel.h"
#include "models/DelayedSignalTrigger.h"
#include "models/FetchMoreListModel.h"
#include "models/ModelDelays.h"
#include "models/VariantListModel.h"
#include "tests_support/TestMain.h"

#include <QFont>

namespace {

QVariantList numbers(int count) {
    QVariantList list;
    for (int i = 0; i < count; ++i)
        list << i;
    return list;
}

QString joined(const VariantListModel& model) {
    QString all;
    for (int row = 0; row < model.rowCount(); ++row)
        all += model.index(row).data(VariantListModel::ModelDataRole).toString();
    return all;
}

/// Counts the kinds of row signals.
struct RowSpies {
    explicit RowSpies(QAbstractItemModel* model)
        : reset(model, &QAbstractItemModel::modelReset), inserted(model, &QAbstractItemModel::rowsInserted),
          removed(model, &QAbstractItemModel::rowsRemoved), changed(model, &QAbstractItemModel::dataChanged) {
    }
    QList<int> counts() const { return {reset.count(), inserted.count(), removed.count(), changed.count()}; }
    QSignalSpy reset, inserted, removed, changed;
};

}  // namespace

class tst_UtilityModels : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { modelDelays().comboBox = 1; }

    void assignedListsKeepRows_data() {
        // resets, insertions, removals, changes
        columns<bool, int, int, QList<int>>({"simplified", "before", "after", "signalsSeen"});
        addRow("first", false, 0, 3, QList<int>{1, 0, 0, 0});
        addRow("emptied", false, 3, 0, QList<int>{1, 0, 0, 0});
        addRow("same", false, 3, 3, QList<int>{0, 0, 0, 1});
        addRow("more", false, 3, 5, QList<int>{0, 1, 0, 1});
        addRow("fewer", false, 5, 3, QList<int>{0, 0, 1, 1});
        addRow("simplified", true, 5, 3, QList<int>{1, 0, 0, 0});
    }

    void assignedListsKeepRows() {
        FETCH(bool, simplified, int, before, int, after);
        VariantListModel model;
        OwnRolesOnly watched(&model);
        const QAbstractItemModelTester tester(&watched);
        model.setSimplifiedItemManagement(simplified);
        model.setItems(numbers(before));
        const RowSpies spies(&model);
        QSignalSpy counted(&model, &VariantListModel::countChanged);
        QSignalSpy items(&model, &VariantListModel::itemsChanged);
        model.setItems(numbers(after));
        QTEST(spies.counts(), "signalsSeen");
        QCOMPARE(counted.count(), 1);
        QCOMPARE(items.count(), 1);
        QCOMPARE(model.count(), after);
    }

    void variantListIsEdited() {
        VariantListModel model;
        OwnRolesOnly watched(&model);
        const QAbstractItemModelTester tester(&watched);
        model.append(QVariant(1));
        model.append(QVariantList{2, 3, 4});
        model.insert(0, QVariant(0));
        model.insert(2, QVariantList{8, 9});
        model.insert(2, QVariantList{});
        QCOMPARE(joined(model), "0189234"_s);
        model.move(0, 3);
        QCOMPARE(joined(model), "1890234"_s);
        model.move(6, 0);
        model.move(2, 2);
        QCOMPARE(joined(model), "4189023"_s);
        model.replace(0, 7);
        QCOMPARE(model.takeAt(1).toInt(), 1);
        QVERIFY(!model.takeAt(9).isValid());
        QVERIFY(model.remove(9));
        QVERIFY(!model.remove(9));
        model.removeAt(0);
        QCOMPARE(joined(model), "8023"_s);
        model.append(QVariant(8));
        QVERIFY(model.contains(8));
        QCOMPARE(model.indexOf(8), 0);
        QCOMPARE(model.indexOf(8, 1), 4);
        QCOMPARE(model.lastIndexOf(8), 4);
        QCOMPARE(model.lastIndexOf(8, 3), 0);
        QVERIFY(!model.get(5).isValid());
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.notifyItemChanged(8);
        model.notifyItemChanged(77);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), 0);
        model.clear();
        QCOMPARE(model.count(), 0);
    }

    void removalPastTheEnd() {
        VariantListModel model;
        model.setItems(numbers(5));
        QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
        model.removeAt(3, 4);
        QCOMPARE(joined(model), "012"_s);
        QCOMPARE(removed.first().at(2).toInt(), 6);  // all that were asked for are announced
        model.removeAt(7);
        model.removeAt(-1);
        QCOMPARE(removed.count(), 1);
    }

    void batchesGrow_data() {
        columns<int, QList<int>>({"rows", "shown"});
        addRow("few", 15, QList<int>{15});
        addRow("many", 250, QList<int>{20, 120, 220, 250});
        addRow("none", 0, QList<int>{0});
    }

    void batchesGrow() {
        QFETCH(int, rows);
        VariantListModel source;
        source.setItems(numbers(rows));
        FetchMoreListModel model;
        QSignalSpy changed(&model, &FetchMoreListModel::sourceModelChanged);
        model.setSourceModel(&source);
        model.setSourceModel(&source);
        QCOMPARE(changed.count(), 1);
        QList<int> shown{model.rowCount()};
        while (model.canFetchMore()) {
            model.fetchMore();
            shown << model.rowCount();
        }
        QTEST(shown, "shown");
        QCOMPARE(model.index(14, 0).data(257).toInt(), rows ? 14 : 0);
        QCOMPARE(model.roleNames(), source.roleNames());
    }

    void shownRowsFollowAReset_data() {
        columns<int, int, QList<int>>({"before", "after", "signalsSeen"});
        addRow("from none", 0, 5, QList<int>{1, 0, 0, 0});
        addRow("same", 30, 40, QList<int>{0, 0, 0, 1});
        addRow("more", 5, 40, QList<int>{0, 1, 0, 1});
        addRow("fewer", 30, 5, QList<int>{0, 0, 1, 1});
        addRow("to none", 30, 0, QList<int>{0, 0, 1, 0});
    }

    void shownRowsFollowAReset() {
        FETCH(int, before, int, after);
        VariantListModel source;
        source.setSimplifiedItemManagement(true);
        source.setItems(numbers(before));
        FetchMoreListModel model;
        model.setSourceModel(&source);
        const RowSpies spies(&model);
        source.setItems(numbers(after));
        QTEST(spies.counts(), "signalsSeen");
        QCOMPARE(model.rowCount(), qMin(after, 20));
    }

    void aSourceMayGo() {
        FetchMoreListModel model;
        OwnRolesOnly watched(&model);
        const QAbstractItemModelTester tester(&watched);
        {
            VariantListModel source;
            source.setItems(numbers(30));
            model.setSourceModel(&source);
        }
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.sourceModel());
    }

    void dummyRowStandsFirst() {
        ComboBoxProxyModel combo;
        QCOMPARE(combo.rowCount(), 1);
        QSignalSpy changed(&combo, &QAbstractItemModel::dataChanged);
        QSignalSpy textChanged(&combo, &ComboBoxProxyModel::dummyEntryTextChanged);
        combo.setDummyEntryText("none"_s);
        combo.setDummyEntryText("none"_s);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(textChanged.count(), 1);
        QStringListModel source({"a"_s, "b"_s});
        combo.setSourceModel(&source);
        QCOMPARE(combo.rowCount(), 3);
        const QModelIndex dummy = combo.index(0, 0);
        QCOMPARE(dummy.data(Qt::DisplayRole).toString(), "none"_s);
        QCOMPARE(dummy.data(300).toString(), "none"_s);
        QVERIFY(!dummy.data(Qt::DecorationRole).isValid());
        QVERIFY(dummy.data(Qt::FontRole).value<QFont>().italic());
        QCOMPARE(dummy.flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QVERIFY(!combo.mapToSource(dummy).isValid());
        QCOMPARE(combo.mapToSource(combo.index(2, 0)).row(), 1);
        QCOMPARE(combo.mapFromSource(source.index(0)).row(), 1);
        QVERIFY(combo.index(3, 0).isValid());
        QVERIFY(!combo.index(4, 0).isValid());
        QVERIFY(!combo.index(3, 0).data().isValid());
        QCOMPARE(combo.getAllItems().size(), 3);
        QCOMPARE(combo.get(2).value("display"_s).toString(), "b"_s);
        QVERIFY(combo.get(3).isEmpty());
    }

    void aBurstResetsTheComboBoxOnce() {
        QStringListModel source({"a"_s});
        ComboBoxProxyModel combo;
        combo.setSourceModel(&source);
        QSignalSpy reset(&combo, &QAbstractItemModel::modelReset);
        source.insertRows(1, 3);
        source.setData(source.index(2), "c"_s);
        source.removeRows(0, 1);
        QCOMPARE(reset.count(), 0);
        QVERIFY(waitFor([&] { return reset.count() > 0; }));
        QCoreApplication::processEvents();
        QCOMPARE(reset.count(), 1);
        QCOMPARE(combo.rowCount(), 4);
        // A source that was replaced has no say any more.
        QStringListModel other;
        combo.setSourceModel(&other);
        reset.clear();
        source.insertRows(0, 1);
        other.insertRows(0, 1);
        QVERIFY(waitFor([&] { return reset.count() == 1; }));
    }
};

KERNOVA_GUI_TEST_MAIN(tst_UtilityModels)
#include "tst_utilitymodels.moc"
