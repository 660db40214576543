#include "FakeProject.h"
#include "models/ComboBoxProxyModel.h"
#include "models/KernoShortcutKeyProxyModel.h"
#include "models/ModelDelays.h"
#include "models/SourceMetadataProxyModels.h"
#include "tests_support/TestMain.h"

namespace {

SourceMetadataKey key(int id, const char* name) {
    return SourceMetadataKey(id, false, false, QString::fromLatin1(name));
}

SourceMetadata testLink(int id, int sourceId, int keyId, int valueId) {
    return SourceMetadata(id, sourceId, keyId, valueId, "Ann"_s, {});
}

}  // namespace

/// Properties, groups and shortcut keys.
class tst_SmallModels : public QObject {
    Q_OBJECT

private slots:
    void init() { m_project = std::make_unique<FakeProject>(); }
    void cleanup() { m_project.reset(); }

    void keysAreSortedAndFound() {
        m_project->keys->setData({key(2, "age"), key(1, "town"), key(3, "age"), key(4, "job")});
        SourceMetadataKeyProxyModel proxy;
        QSignalSpy changed(&proxy, &SourceMetadataKeyProxyModel::sortTypeChanged);
        QCOMPARE(idsOf(proxy), (QList<int>{1, 2, 3, 4}));
        QCOMPARE(proxy.findKeyId("age"_s), 3);
        proxy.setSortType(SourceMetadataKeyProxyModel::SortAlphaNumericDescending);
        QCOMPARE(idsOf(proxy).first(), 1);
        QCOMPARE(idsOf(proxy).at(1), 4);
        proxy.setSortType(SourceMetadataKeyProxyModel::SortAlphaNumericAscending);
        QCOMPARE(idsOf(proxy).last(), 1);
        proxy.setSortType(SourceMetadataKeyProxyModel::SortDefault);
        QCOMPARE(idsOf(proxy), (QList<int>{1, 2, 3, 4}));
        QCOMPARE(changed.count(), 3);
        QVERIFY(proxy.hasKey("job"_s));
        QVERIFY(!proxy.hasKey("Job"_s));
        QCOMPARE(proxy.findKeyId("size"_s), -1);
        QCOMPARE(proxy.findKeyWithId(1).key(), "town"_s);
        QVERIFY(proxy.findKeyWithId(9).keyId() < 1);
        const QVariantList types = proxy.getSortTypesDropDown();
        QCOMPARE(types.size(), 3);
        QCOMPARE(types.at(1).toMap().value("name"_s).toString(), "Alpha-Numerical - Ascending "_s);
        QCOMPARE(types.at(2).toMap().value("value"_s), QVariant(2));
    }

    void valuesOfAKey() {
        fillValues();
        const SourceMetadataValueModel& values = *m_project->values;
        QCOMPARE(values.valuesOfKey(1).size(), 2);
        QCOMPARE(values.valueMapsOfKey(2).first().toMap().value("value"_s), QVariant(40));
        QCOMPARE(values.value(1, 2).value().toString(), "old"_s);
        QVERIFY(values.value(2, 2).valueId() < 1);
        QVERIFY(values.hasValue(2, 40));
        QVERIFY(!values.hasValue(1, 40));
        SourceMetadataValueProxyModel proxy;
        const QAbstractItemModelTester tester(&proxy);
        QCOMPARE(proxy.rowCount(), 3);
        proxy.setKeyId(1);
        QCOMPARE(idsOf(proxy), (QList<int>{1, 2}));
        proxy.setSortAlphabetically(true);
        QCOMPARE(idsOf(proxy), (QList<int>{2, 1}));
        QVERIFY(proxy.hasValue("old"_s));
        QVERIFY(!proxy.hasValue(40));
        QCOMPARE(proxy.findValueWithId(3).value(), QVariant(40));
    }

    void linksAreLookedUp() {
        fillValues();
        SourceMetadataModel& links = *m_project->links;
        links.setData(
            {testLink(1, 5, 1, 1), testLink(2, 5, 1, 2), testLink(3, 6, 1, 1), testLink(4, 5, 2, 77)});
        QCOMPARE(links.link(1, 5).metadataId(), 1);
        QVERIFY(links.link(2, 6).metadataId() < 1);
        QCOMPARE(links.links(1, 5).size(), 2);
        QCOMPARE(links.linksOfValue(1).size(), 2);
        QCOMPARE(links.linksOfSource(5).size(), 3);
        QVERIFY(links.hasLink(1, 2, 5));
        QVERIFY(!links.hasLink(2, 2, 5));
        QCOMPARE(links.valuesOf(5, 1).size(), 2);
        QCOMPARE(links.valuesOf(5, 2).size(), 0);
        links.addOrUpdate(testLink(1, 6, 1, 2));
        QCOMPARE(links.link(1, 5).metadataId(), 2);
        QCOMPARE(links.links(1, 6).first().metadataId(), 1);
        QCOMPARE(links.linksOfValue(2).size(), 2);
    }

    void valuesOfLinksStayFreshButForTheFirst() {
        fillValues();
        SourceMetadataModel& links = *m_project->links;
        links.setData({testLink(1, 5, 1, 1), testLink(2, 5, 1, 2), testLink(3, 6, 1, 2)});
        QSignalSpy changed(&links, &QAbstractItemModel::dataChanged);
        m_project->values->addOrUpdate(SourceMetadataValue(1, 1, "small"_s));
        m_project->values->addOrUpdate(SourceMetadataValue(3, 2, 41));
        QCOMPARE(changed.count(), 0);
        m_project->values->addOrUpdate(SourceMetadataValue(2, 1, "aged"_s));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(0).toModelIndex().row(), 2);
        QCOMPARE(links.get(2, "value").toString(), "aged"_s);
        changed.clear();
        links.addOrUpdate(testLink(2, 5, 1, 1));
        QCOMPARE(changed.first().at(2).value<QVector<int>>(), QVector<int>{SourceMetadataModel::ValueRole});
        QCOMPARE(changed.count(), 2);
    }

    void linksAreFilteredByBothIds() {
        m_project->links->setData({testLink(1, 5, 1, 1), testLink(2, 5, 2, 3), testLink(3, 6, 1, 2)});
        SourceMetadataProxyModel proxy;
        QCOMPARE(proxy.rowCount(), 3);
        proxy.setSourceId(5);
        QCOMPARE(proxy.rowCount(), 0);
        proxy.setKeyId(2);
        QCOMPARE(idsOf(proxy), (QList<int>{2}));
        QCOMPARE(proxy.getAllItems().size(), 1);
    }

    void aNewValueCanBeChosen() {
        SourceMetadataValueProxyModel values;
        SourceMetadataValueComboBoxProxyModel combo;
        combo.setSourceModel(&values);
        QCOMPARE(combo.rowCount(), 1);
        QCOMPARE(combo.get(0).value("value"_s).toString(), "-- New Value --"_s);
        QCOMPARE(combo.get(0).value("valueId"_s), QVariant(-1));
        fillValues();
        QCOMPARE(combo.get(3).value("value"_s), QVariant(40));
    }

    void groupsCountTheirKernos() {
        KernoGroupModel& links = *m_project->kernoGroups;
        m_project->groups->setData({Group(1, "A"_s, true), Group(2, "B"_s, true)});
        links.setData({KernoGroup(1, 1, 10), KernoGroup(2, 1, 11), KernoGroup(3, 2, 10)});
        QCOMPARE(m_project->groups->get(0, "associatedKernosCount"), QVariant(2));
        QCOMPARE(links.linksOfKerno(10).size(), 2);
        QCOMPARE(links.linksOfGroup(1).size(), 2);
        QCOMPARE(links.link(10, 2).id(), 3);
        QVERIFY(links.link(11, 2).id() < 1);
        QSignalSpy changed(m_project->groups.get(), &QAbstractItemModel::dataChanged);
        links.removeByKey(3);
        m_project->groups->onShouldUpdateAssociatedKernosCount(2);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().at(2).value<QVector<int>>(),
                 QVector<int>{GroupModel::AssociatedKernosCountRole});
        QCOMPARE(m_project->groups->get(1, "associatedKernosCount"), QVariant(0));
    }

    void everyPossibleShortcutIsOffered() {
        KernoShortcutKeyProxyModel proxy;
        const QAbstractItemModelTester tester(&proxy);
        QSignalSpy changed(&proxy, &QAbstractItemModel::dataChanged);
        m_project->shortcuts->addOrUpdate(KernoShortcutKey("A"_s, 7, {}));
        m_project->shortcuts->addOrUpdate(KernoShortcutKey("+"_s, 8, {}));
        QCOMPARE(proxy.rowCount(), 36);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed.first().at(1).toModelIndex().row(), 35);
        QCOMPARE(proxy.index(10).data(257).toString(), "A"_s);
        QCOMPARE(proxy.index(10).data(258), QVariant(7));
        QCOMPARE(proxy.index(0).data(258), QVariant(0));
        QCOMPARE(proxy.findKernoIdForShortcut("+"_s), 8);
        QCOMPARE(proxy.findKernoIdForShortcut("a"_s), 0);
    }

private:
    void fillValues() {
        m_project->values->setData({SourceMetadataValue(1, 1, "young"_s), SourceMetadataValue(2, 1, "old"_s),
                                    SourceMetadataValue(3, 2, 40)});
    }

    std::unique_ptr<FakeProject> m_project;
};

KERNOVA_GUI_TEST_MAIN(tst_SmallModels)
#include "tst_smallmodels.moc"
