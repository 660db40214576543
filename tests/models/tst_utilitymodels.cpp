#include "OwnRolesOnly.h"
#include "models/ComboBoxProxyModel.h"
#include "models/DelayedSignalTrigger.h"
#include "models/FetchMoreListModel.h"
#include "models/ModelDelays.h"
#include "models/VariantListModel.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"

#include <QAbstractItemModelTester>
#include <QFont>
#include <QSignalSpy>
#include <QStringListModel>

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

    void assignedListsKeepRows_data();
    void assignedListsKeepRows();
    void variantListIsEdited();
    void removalPastTheEnd();
    void variantPropertiesNotifyOnce();
    void batchesGrow_data();
    void batchesGrow();
    void shownRowsFollowAReset_data();
    void shownRowsFollowAReset();
    void aSourceMayGo();
    void dummyRowStandsFirst();
    void aBurstResetsTheComboBoxOnce();
    void triggerRestarts();
};

void tst_UtilityModels::assignedListsKeepRows_data() {
    QTest::addColumn<bool>("simplified");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<QList<int>>("signalsSeen");  // resets, insertions, removals, changes
    QTest::newRow("first") << false << 0 << 3 << QList<int>{1, 0, 0, 0};
    QTest::newRow("emptied") << false << 3 << 0 << QList<int>{1, 0, 0, 0};
    QTest::newRow("same") << false << 3 << 3 << QList<int>{0, 0, 0, 1};
    QTest::newRow("more") << false << 3 << 5 << QList<int>{0, 1, 0, 1};
    QTest::newRow("fewer") << false << 5 << 3 << QList<int>{0, 0, 1, 1};
    QTest::newRow("simplified") << true << 5 << 3 << QList<int>{1, 0, 0, 0};
}

void tst_UtilityModels::assignedListsKeepRows() {
    QFETCH(bool, simplified);
    QFETCH(int, before);
    QFETCH(int, after);
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

void tst_UtilityModels::variantListIsEdited() {
    VariantListModel model;
    OwnRolesOnly watched(&model);
    const QAbstractItemModelTester tester(&watched);
    model.append(QVariant(1));
    model.append(QVariantList{2, 3, 4});
    model.insert(0, QVariant(0));
    model.insert(2, QVariantList{8, 9});
    model.insert(2, QVariantList{});
    QCOMPARE(joined(model), QStringLiteral("0189234"));
    model.move(0, 3);
    QCOMPARE(joined(model), QStringLiteral("1890234"));
    model.move(6, 0);
    model.move(2, 2);
    QCOMPARE(joined(model), QStringLiteral("4189023"));
    model.replace(0, 7);
    QCOMPARE(model.takeAt(1).toInt(), 1);
    QVERIFY(!model.takeAt(9).isValid());
    QVERIFY(model.remove(9));
    QVERIFY(!model.remove(9));
    model.removeAt(0);
    QCOMPARE(joined(model), QStringLiteral("8023"));
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

void tst_UtilityModels::removalPastTheEnd() {
    VariantListModel model;
    model.setItems(numbers(5));
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    model.removeAt(3, 4);
    QCOMPARE(joined(model), QStringLiteral("012"));
    QCOMPARE(removed.first().at(2).toInt(), 6);  // all that were asked for are announced
    model.removeAt(7);
    model.removeAt(-1);
    QCOMPARE(removed.count(), 1);
}

void tst_UtilityModels::variantPropertiesNotifyOnce() {
    VariantListModel model;
    QSignalSpy dummy(&model, &VariantListModel::dummyChanged);
    QSignalSpy field(&model, &VariantListModel::itemIdFieldChanged);
    QVERIFY(!model.duplicatesAllowed());
    model.toggleDummy();
    QVERIFY(model.dummy());
    model.setItemIdField(QStringLiteral("id"));
    model.setItemIdField(QStringLiteral("id"));
    QCOMPARE(dummy.count(), 1);
    QCOMPARE(field.count(), 1);
    QCOMPARE(model.roleNames().value(257), QByteArray("modelData"));
}

void tst_UtilityModels::batchesGrow_data() {
    QTest::addColumn<int>("rows");
    QTest::addColumn<QList<int>>("shown");
    QTest::newRow("few") << 15 << QList<int>{15};
    QTest::newRow("many") << 250 << QList<int>{20, 120, 220, 250};
    QTest::newRow("none") << 0 << QList<int>{0};
}

void tst_UtilityModels::batchesGrow() {
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

void tst_UtilityModels::shownRowsFollowAReset_data() {
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<QList<int>>("signalsSeen");
    QTest::newRow("from none") << 0 << 5 << QList<int>{1, 0, 0, 0};
    QTest::newRow("same") << 30 << 40 << QList<int>{0, 0, 0, 1};
    QTest::newRow("more") << 5 << 40 << QList<int>{0, 1, 0, 1};
    QTest::newRow("fewer") << 30 << 5 << QList<int>{0, 0, 1, 1};
    QTest::newRow("to none") << 30 << 0 << QList<int>{0, 0, 1, 0};
}

void tst_UtilityModels::shownRowsFollowAReset() {
    QFETCH(int, before);
    QFETCH(int, after);
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

void tst_UtilityModels::aSourceMayGo() {
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

void tst_UtilityModels::dummyRowStandsFirst() {
    ComboBoxProxyModel combo;
    QCOMPARE(combo.rowCount(), 1);
    QSignalSpy changed(&combo, &QAbstractItemModel::dataChanged);
    QSignalSpy textChanged(&combo, &ComboBoxProxyModel::dummyEntryTextChanged);
    combo.setDummyEntryText(QStringLiteral("none"));
    combo.setDummyEntryText(QStringLiteral("none"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(textChanged.count(), 1);
    QStringListModel source({QStringLiteral("a"), QStringLiteral("b")});
    combo.setSourceModel(&source);
    QCOMPARE(combo.rowCount(), 3);
    const QModelIndex dummy = combo.index(0, 0);
    QCOMPARE(dummy.data(Qt::DisplayRole).toString(), QStringLiteral("none"));
    QCOMPARE(dummy.data(300).toString(), QStringLiteral("none"));
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
    QCOMPARE(combo.get(2).value(QStringLiteral("display")).toString(), QStringLiteral("b"));
    QVERIFY(combo.get(3).isEmpty());
}

void tst_UtilityModels::aBurstResetsTheComboBoxOnce() {
    QStringListModel source({QStringLiteral("a")});
    ComboBoxProxyModel combo;
    combo.setSourceModel(&source);
    QSignalSpy reset(&combo, &QAbstractItemModel::modelReset);
    source.insertRows(1, 3);
    source.setData(source.index(2), QStringLiteral("c"));
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

void tst_UtilityModels::triggerRestarts() {
    QCOMPARE(ModelDelays().positions, 50);
    QCOMPARE(ModelDelays().comboBox, 200);
    QCOMPARE(ModelDelays().hierarchy, 500);
    DelayedSignalTrigger trigger(0);
    QSignalSpy fired(&trigger, &QTimer::timeout);
    for (int i = 0; i < 5; ++i)
        trigger.restart();
    QVERIFY(waitFor([&] { return fired.count() > 0; }));
    QCoreApplication::processEvents();
    QCOMPARE(fired.count(), 1);
}

KERNOVA_GUI_TEST_MAIN(tst_UtilityModels)
#include "tst_utilitymodels.moc"
