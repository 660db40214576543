#include "FakeProject.h"
#include "models/ComboBoxProxyModel.h"
#include "models/KernoHierarchyModel.h"
#include "models/KernoLevels.h"
#include "models/KernoOverlapModel.h"
#include "models/KernoProxyModel.h"
#include "models/ModelDelays.h"
#include "tests_support/TestMain.h"

namespace {

/// 1 has 2 and 3, 3 has 4, 5 and 6 stand alone.
QList<Kerno> tree() {
    return {testKerno(1, -1, "Work"_s),  testKerno(2, 1, "cabin"_s), testKerno(3, 1, "Boss"_s),
            testKerno(4, 3, "Praise"_s), testKerno(5, -1, "Home"_s), testKerno(6, -1, "apple"_s)};
}

}  // namespace

class tst_KernoModel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        modelDelays().hierarchy = 1;
        modelDelays().comboBox = 1;
    }

    void init() {
        m_project = std::make_unique<FakeProject>();
        kernos()->setData(tree());
    }

    void cleanup() { m_project.reset(); }

    void scaleFollowsTheCounts_data() {
        // of the kernos 1, 2 and so on; the first may be counted twice
        columns<QList<int>, double, double>({"counts", "first", "second"});
        addRow("none", QList<int>{}, 0.7, 0.7);
        addRow("one coding spreads nothing", QList<int>{1}, 0.7, 0.7);
        addRow("two", QList<int>{2, 1}, 1.5, 1.1);
        addRow("many", QList<int>{3, 8}, 1.0, 1.5);
    }

    void scaleFollowsTheCounts() {
        QFETCH(QList<int>, counts);
        // Counts of kernos that aren't there have no say.
        QList<KeyVariantValue<int>> values{{99, 1000, {}}};
        for (int i = 0; i < counts.size(); ++i)
            values.append({i + 1, counts.at(i), {}});
        kernos()->quoteCounts()->replace(values);
        QTEST(kernos()->index(0, 0).data(KernoModel::ScaleRole).toDouble(), "first");
        QTEST(kernos()->index(1, 0).data(KernoModel::ScaleRole).toDouble(), "second");
        QCOMPARE(kernos()->index(5, 0).data(KernoModel::HighlightsCountRole), QVariant(0));
    }

    void reparenting_data() {
        columns<int, int, bool>({"kernoId", "newParentId", "allowed"});
        addRow("itself", 5, 5, false);
        addRow("unknown", 5, 77, false);
        addRow("no kerno", -1, 5, false);
        addRow("grandchildren stay", 1, 5, false);
        addRow("children to the top", 3, 5, true);
        addRow("children not below a child", 3, 2, false);
        addRow("childless below a child", 5, 2, true);
    }

    void reparenting() {
        FETCH(int, kernoId, int, newParentId);
        QTEST(kernos()->canReparent(kernoId, newParentId), "allowed");
    }

    void aCircleOfParentsIsCountedOnce() {
        kernos()->quoteCounts()->replace({{1, 1, {}}, {2, 2, {}}, {4, 4, {}}, {5, 8, {}}});
        kernos()->addOrUpdate(testKerno(1, 4));
        QCOMPARE(kernos()->highlightsCountWithChildren(3), 7);
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

    void proxySorts_data() {
        columns<int, QList<int>>({"sortType", "order"});
        using P = KernoProxyModel;
        addRow("none", int(P::NoSort), QList<int>{1, 5, 6});
        addRow("manual", int(P::ManualSort), QList<int>{1, 5, 6});
        addRow("title", int(P::ByTitle), QList<int>{5, 1, 6});
        addRow("title down", int(P::ByTitleDescending), QList<int>{6, 1, 5});
        addRow("time", int(P::ByTimestampAscending), QList<int>{6, 5, 1});
        addRow("time down", int(P::ByTimestampDescending), QList<int>{1, 5, 6});
        addRow("codings", int(P::ByNumberOfHighlights), QList<int>{5, 6, 1});
        addRow("codings down", int(P::ByNumberOfHighlightsDescending), QList<int>{1, 6, 5});
    }

    void proxySorts() {
        QFETCH(int, sortType);
        QList<Kerno> list = tree();
        for (Kerno& kerno : list)
            kerno.setTimestamp(QDateTime::fromSecsSinceEpoch(1000000 - kerno.kernoId()));
        kernos()->setData(list);
        kernos()->quoteCounts()->replace({{1, 9, {}}, {6, 4, {}}});
        KernoProxyModel proxy;
        QSignalSpy changed(&proxy, &KernoProxyModel::sortTypeChanged);
        proxy.setSortType(sortType == KernoProxyModel::NoSort ? KernoProxyModel::ByTitle
                                                              : KernoProxyModel::NoSort);
        proxy.setSortType(sortType);
        QTEST(proxy.currentSortOrder(), "order");
        QVERIFY(changed.count() >= 1);
        QCOMPARE(proxy.getAllItems().size(), proxy.count());
        QCOMPARE(proxy.get(2).value("kernoId"_s), proxy.get(2, "kernoId"));
        QVERIFY(proxy.get(9).isEmpty() && !proxy.get(0, "nothing").isValid());
    }

    void manualOrderPutsUnknownOnesFirst() {
        KernoProxyModel proxy;
        QSignalSpy changed(&proxy, &KernoProxyModel::manualSortOrderChanged);
        proxy.setManualSortOrder({6, 1, 5});
        QCOMPARE(proxy.currentSortOrder(), (QList<int>{1, 5, 6}));
        proxy.setManualSort(true);
        QCOMPARE(proxy.currentSortOrder(), (QList<int>{6, 1, 5}));
        proxy.setManualSortOrder({6, 1});
        QCOMPARE(proxy.currentSortOrder(), (QList<int>{5, 6, 1}));
        kernos()->addOrUpdate(testKerno(7));
        QCOMPARE(proxy.currentSortOrder(), (QList<int>{5, 7, 6, 1}));
        proxy.setManualSortOrder({6, 1});
        QCOMPARE(changed.count(), 2);
        proxy.setManualSort(false);
        QCOMPARE(proxy.currentSortOrder(), (QList<int>{1, 5, 6, 7}));
    }

    void updatedKernoJoinsTheHierarchyAtOnce() {
        KernoHierarchyModel proxy;
        proxy.setKernoId(1);
        QSignalSpy added(&proxy, &KernoHierarchyModel::kernoAdded);
        kernos()->addOrUpdate(testKerno(7, 2));
        emit m_project->kernoUpdated(7);
        emit m_project->kernoUpdated(7);
        emit m_project->kernoUpdated(5);
        QCOMPARE(added.count(), 1);
        QCOMPARE(idsOf(proxy), (QList<int>{1, 2, 7, 3, 4}));
        QCOMPARE(idsOf(proxy, KernoHierarchyModel::LevelRole), (QList<int>{0, 1, 2, 1, 2}));
    }

    void overlapsSortTheKernos() {
        m_project->overlap = [](int mainId, int id) { return mainId == 1 && id >= 4 ? 2 * id - 7 : 0; };
        KernoOverlapModel proxy;
        QSignalSpy computed(&proxy, &KernoOverlapModel::newAsyncResultComputed);
        proxy.setKernoId(1);
        QCOMPARE(computed.count(), 1);
        QCOMPARE(idsOf(proxy).mid(0, 3), (QList<int>{6, 5, 4}));
        QCOMPARE(proxy.index(0, 0).data(KernoOverlapModel::OverlapFactorRole), QVariant(1.0));
        QCOMPARE(proxy.index(1, 0).data(KernoOverlapModel::OverlapFactorRole), QVariant(3 / 5.0));
        QCOMPARE(proxy.rowCount(), 6);
        QCOMPARE(proxy.getAngleForOverlap(0), 180);
        proxy.setKernoId(2);
        QCOMPARE(idsOf(proxy, KernoOverlapModel::OverlapsRole), (QList<int>{0, 0, 0, 0, 0, 0}));
        QCOMPARE(proxy.index(0, 0).data(KernoOverlapModel::OverlapFactorRole), QVariant(0.0));
    }

    void overlapsAreCountedOncePerBurst() {
        int reads = 0;
        m_project->overlap = [&reads](int, int) { return ++reads; };
        KernoOverlapModel proxy;
        proxy.setKernoId(0);
        QCOMPARE(reads, 0);
        proxy.setKernoId(1);
        QCOMPARE(reads, 5);
        for (int i = 0; i < 20; ++i)
            kernos()->addOrUpdate(testKerno(5, -1, QString::number(i)));
        QVERIFY(waitFor([&] { return reads == 10; }));
        QCoreApplication::processEvents();
        QCOMPARE(reads, 10);
    }

    void aChangeWhileOverlapsAreCountedWaits() {
        KernoOverlapModel proxy;
        int running = 0;
        m_project->overlap = [&](int mainId, int) {
            if (++running > 1)
                qFatal("counted within a count");
            proxy.setKernoId(2);
            --running;
            return mainId;
        };
        proxy.setKernoId(1);
        QVERIFY(waitFor([&] { return idsOf(proxy, KernoOverlapModel::OverlapsRole).value(0) == 2; }));
    }

    void comboBoxFindsKernos() {
        KernoComboBoxModel combo;
        QCOMPARE(combo.getKernoId(1), 3);  // "Boss" comes first
        QCOMPARE(combo.findIndex(3), 1);
        QCOMPARE(combo.findIndex(77), 0);
        QCOMPARE(combo.getKernoId(0), -1);
        QCOMPARE(combo.getKernoId(7), -1);
    }

private:
    KernoModel* kernos() const { return m_project->kernos.get(); }

    std::unique_ptr<FakeProject> m_project;
};

KERNOVA_GUI_TEST_MAIN(tst_KernoModel)
#include "tst_kernomodel.moc"
