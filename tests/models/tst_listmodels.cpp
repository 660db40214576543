#include "FakeProject.h"
#include "models/ComboBoxProxyModel.h"
#include "models/DelayedSignalTrigger.h"
#include "models/FetchMoreListModel.h"
#include "models/ModelDelays.h"
#include "models/VariantListModel.h"
#include "tests_support/OwnRolesOnly.h"
#include "tests_support/TestMain.h"

#include <QFont>
#include <numeric>

namespace {

QVariantList numbers(int count) {
    QVariantList list;
    for (int i = 0; i < count; ++i)
        list << i;
    return list;
}

/// The models whose rows are replaced as a whole.
enum Kind { Records, Values, ValuesAnew, SomeRows };

}  // namespace

/// What all lists share: the frame of the records' models, seen through one of them, and the lists that QML
/// fills itself.
class tst_ListModels : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { modelDelays().comboBox = 1; }

    void aReplacementKeepsRows_data() {
        // resets, insertions, removals, changes
        columns<int, int, int, QList<int>>({"kind", "before", "after", "announced"});
        addRow("nothing", int(Records), 0, 0, QList<int>{0, 0, 0, 0});
        addRow("first records", int(Records), 0, 3, QList<int>{1, 0, 0, 0});
        addRow("as many", int(Records), 3, 3, QList<int>{0, 0, 0, 1});
        addRow("fewer", int(Records), 5, 2, QList<int>{0, 0, 1, 1});
        addRow("more", int(Records), 2, 5, QList<int>{0, 1, 0, 1});
        addRow("none left", int(Records), 2, 0, QList<int>{0, 0, 1, 0});
        addRow("first values", int(Values), 0, 3, QList<int>{1, 0, 0, 0});
        addRow("no values left", int(Values), 3, 0, QList<int>{1, 0, 0, 0});
        addRow("as many values", int(Values), 3, 3, QList<int>{0, 0, 0, 1});
        addRow("more values", int(Values), 3, 5, QList<int>{0, 1, 0, 1});
        addRow("fewer values", int(Values), 5, 3, QList<int>{0, 0, 1, 1});
        addRow("values anew", int(ValuesAnew), 5, 3, QList<int>{1, 0, 0, 0});
        addRow("first of the rows shown", int(SomeRows), 0, 5, QList<int>{1, 0, 0, 0});
        addRow("as many shown", int(SomeRows), 30, 40, QList<int>{0, 0, 0, 1});
        addRow("more shown", int(SomeRows), 5, 40, QList<int>{0, 1, 0, 1});
        addRow("fewer shown", int(SomeRows), 30, 5, QList<int>{0, 0, 1, 1});
        addRow("none shown", int(SomeRows), 30, 0, QList<int>{0, 0, 1, 0});
    }

    void aReplacementKeepsRows() {
        FETCH(int, kind, int, before, int, after);
        KernoModel records(nullptr);
        VariantListModel values;
        FetchMoreListModel some;
        values.setSimplifiedItemManagement(kind == ValuesAnew || kind == SomeRows);
        if (kind == SomeRows)
            some.setSourceModel(&values);
        const auto replace = [&](int count) {
            QList<Kerno> list;
            for (int id = 1; id <= count; ++id)
                list << testKerno(id);
            records.setData(list);
            values.setItems(numbers(count));
        };
        QAbstractItemModel* const model = kind == Records    ? static_cast<QAbstractItemModel*>(&records)
                                          : kind == SomeRows ? static_cast<QAbstractItemModel*>(&some)
                                                             : &values;
        OwnRolesOnly watched(model);
        const QAbstractItemModelTester tester(&watched);
        replace(before);
        const QSignalSpy reset(model, &QAbstractItemModel::modelReset);
        const QSignalSpy inserted(model, &QAbstractItemModel::rowsInserted);
        const QSignalSpy removed(model, &QAbstractItemModel::rowsRemoved);
        const QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
        const QSignalSpy updated(&records, &IModelListBase::modelUpdated);
        const QSignalSpy counted(&values, &VariantListModel::countChanged);
        replace(after);
        const QList<int> announced{reset.count(), inserted.count(), removed.count(), changed.count()};
        QTEST(announced, "announced");
        QCOMPARE(model->rowCount(), kind == SomeRows ? qMin(after, 20) : after);
        QCOMPARE(counted.count(), 1);
        if (kind == Records)
            QCOMPARE(updated.count(), std::accumulate(announced.begin(), announced.end(), 0));
    }

    void firstRowsAreAnnouncedOncePerProject() {
        FakeProject project;
        QSignalSpy first(project.groups.get(), &IModelListBase::initialDataSet);
        project.groups->setData(QList<Group>{});
        QCOMPARE(first.count(), 0);
        project.groups->setData({Group(1, "a"_s, true)});
        project.groups->setData({Group(2, "b"_s, true)});
        QCOMPARE(first.count(), 1);
        emit project.fileClosed();
        QCOMPARE(project.groups->rowCount(), 0);
        QCOMPARE(first.count(), 1);
        emit project.fileOpened();
        project.groups->setFromJson(QJsonArray{});
        QCOMPARE(first.count(), 2);
    }

    void oddJsonIsIgnored_data() {
        columns<QJsonObject, int>({"json", "rows"});
        addRow("no key", QJsonObject{{"kernoId"_s, 3}}, 0);
        addRow("null", QJsonObject{{"shortcutKey"_s, QJsonValue()}}, 0);
        addRow("zero", QJsonObject{{"shortcutKey"_s, 0}, {"kernoId"_s, 3}}, 0);
        addRow("invalid record", QJsonObject{{"shortcutKey"_s, "A"_s}}, 0);
        addRow("a text of 0", QJsonObject{{"shortcutKey"_s, "0"_s}, {"kernoId"_s, 3}}, 1);
    }

    void oddJsonIsIgnored() {
        QFETCH(QJsonObject, json);
        KernoShortcutKeyModel model(nullptr);
        model.addFromJson(json);
        QTEST(model.rowCount(), "rows");
    }

    void theLastOfEqualKeysIsFound() {
        KernoModel model(nullptr);
        model.setData({testKerno(1, -1, "a"_s), testKerno(2), testKerno(1, -1, "b"_s)});
        QCOMPARE(model.indexOfKey(1), 2);
        QVERIFY(model.removeByKey(1));
        QCOMPARE(model.indexOfKey(1), 0);
        QCOMPARE(model.record(1).title(), "a"_s);
        QVERIFY(model.removeByKey(1));
        QVERIFY(!model.contains(1));
        QCOMPARE(model.indexOfKey(2), 0);
    }

    void itIsEditedLikeAList() {
        VariantListModel model;
        OwnRolesOnly watched(&model);
        const QAbstractItemModelTester tester(&watched);
        QVariantList list;
        QRandomGenerator random(3);
        for (int step = 0; step < 400; ++step) {
            const QVariant item = random.bounded(10);
            const int place = random.bounded(list.size() + 1);
            switch (list.size() > 1 ? random.bounded(7) : 0) {
            case 0:
                model.append(QVariantList{item, step});
                model.append(item);
                list << item << step << item;
                break;
            case 1:
                model.insert(place, item);
                list.insert(place, item);
                break;
            case 2:
                model.move(place % list.size(), step % list.size());
                list.move(place % list.size(), step % list.size());
                break;
            case 3:
                model.replace(place % list.size(), item);
                list[place % list.size()] = item;
                break;
            case 4:
                QCOMPARE(model.takeAt(place), list.value(place));
                if (place < list.size())
                    list.removeAt(place);
                break;
            case 5:
                QCOMPARE(model.remove(item), list.removeOne(item));
                break;
            default:
                QCOMPARE(model.indexOf(item, place), list.indexOf(item, place));
                QCOMPARE(model.lastIndexOf(item), list.lastIndexOf(item));
            }
            QCOMPARE(model.items(), list);
            QCOMPARE(model.get(place), list.value(place));
        }
        QVERIFY(model.contains(list.last()) && !model.contains(-77));
        model.insert(0, QVariantList{1, 2});
        model.removeAt(1);
        model.removeAt(0, 1);
        QCOMPARE(model.items(), list);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.notifyItemChanged(list.last());
        model.notifyItemChanged(-77);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), list.indexOf(list.last()));
        model.clear();
        QCOMPARE(model.count(), 0);
    }

    void batchesGrow() {
        VariantListModel source;
        source.setItems(numbers(250));
        FetchMoreListModel model;
        model.setSourceModel(&source);
        QList<int> shown{model.rowCount()};
        while (model.canFetchMore()) {
            model.fetchMore();
            shown << model.rowCount();
        }
        QCOMPARE(shown, (QList<int>{20, 120, 220, 250}));
        QCOMPARE(model.index(249, 0).data(VariantListModel::ModelDataRole).toInt(), 249);
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
        combo.setDummyEntryText("none"_s);
        combo.setDummyEntryText("none"_s);
        QCOMPARE(changed.count(), 1);
        QStringListModel source({"a"_s, "b"_s});
        combo.setSourceModel(&source);
        const QModelIndex dummy = combo.index(0, 0);
        QCOMPARE(dummy.data(Qt::DisplayRole).toString(), "none"_s);
        QCOMPARE(dummy.data(300).toString(), "none"_s);
        QVERIFY(!dummy.data(Qt::DecorationRole).isValid());
        QVERIFY(dummy.data(Qt::FontRole).value<QFont>().italic());
        QVERIFY(!combo.mapToSource(dummy).isValid());
        QCOMPARE(combo.mapToSource(combo.index(2, 0)).row(), 1);
        QCOMPARE(combo.mapFromSource(source.index(0)).row(), 1);
        QVERIFY(!combo.index(3, 0).data().isValid() && !combo.index(4, 0).isValid());
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

KERNOVA_GUI_TEST_MAIN(tst_ListModels)
#include "tst_listmodels.moc"
