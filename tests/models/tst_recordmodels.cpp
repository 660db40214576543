#include "FakeProject.h"
#include "models/KernoShortcutKeyProxyModel.h"
#include "models/QuestionAnswerProxyModel.h"
#include "models/SourceMetadataProxyModels.h"
#include "models/SourceProxyModel.h"
#include "tests_support/TestMain.h"

namespace {

QString text(int length) {
    return QString(length, QLatin1Char('x'));
}

Question question(int id, int order) {
    return Question(id, "Q%1"_s.arg(id), order);
}

SourceMetadata testLink(int id, int sourceId, int keyId, int valueId) {
    return SourceMetadata(id, sourceId, keyId, valueId, "Ann"_s, {});
}

}  // namespace

/// What sources, questions, answers, properties and shortcut keys show besides their records, and in which
/// order. What is looked up in them stands in the storm.
class tst_RecordModels : public QObject {
    Q_OBJECT

private slots:
    void init() { m_project = std::make_unique<FakeProject>(); }
    void cleanup() { m_project.reset(); }

    void sharesAreWholePercents() {
        SourceModel& sources = *m_project->sources;
        SourceProxyModel proxy;
        m_project->answers->setData({testAnswer(1, 1, 1, text(100)), testAnswer(2, 1, 2, text(50)),
                                     testAnswer(3, 2, 1, text(50)), testAnswer(4, 3, 1, QString())});
        for (int id = 1; id <= 4; ++id)
            sources.addOrUpdate(Source(id, "S%1"_s.arg(id), {}, {}, {}));
        QCOMPARE(sources.globalPercentageCoded(), 0);
        QSignalSpy global(&proxy, &SourceProxyModel::globalPercentageCodedChanged);
        QSignalSpy changed(&sources, &QAbstractItemModel::dataChanged);
        const QJsonArray reply{QJsonObject{{"id"_s, 1}, {"coded_length"_s, 50}},
                               QJsonObject{{"id"_s, 2}, {"coded_length"_s, 49}},
                               QJsonObject{{"id"_s, 3}, {"coded_length"_s, 5}},
                               QJsonObject{{"id"_s, 9}, {"coded_length"_s, 99}}};
        sources.applyCodedLengths(SourceModel::codedLengthsFromJson(reply));
        QList<int> shares;
        for (int id = 1; id <= 4; ++id)
            shares << sources.percentageCoded(id);
        QCOMPARE(shares, (QList<int>{33, 98, 0, 0}));
        QCOMPARE(proxy.globalPercentageCoded(), 52);
        QCOMPARE(global.count(), 1);
        QCOMPARE(
            changed.last().at(2).value<QVector<int>>(),
            (QVector<int>{SourceModel::SourcePercentageCodedRole, SourceModel::GlobalPercentageCodedRole}));
        // The row's role of the project's name gives the row's own share.
        QCOMPARE(proxy.get(0, "globalPercentageCoded"), QVariant(33));
        emit m_project->fileClosed();
        QCOMPARE(sources.globalPercentageCoded(), 0);
    }

    void sourcesAreSorted_data() {
        columns<int, QList<int>>({"mode", "order"});
        addRow("default", 0, QList<int>{1, 2, 3});
        addRow("default down", 1, QList<int>{3, 2, 1});
        addRow("title", 2, QList<int>{2, 3, 1});
        addRow("title down", 3, QList<int>{1, 3, 2});
        addRow("author", 4, QList<int>{3, 1, 2});
        addRow("author down", 5, QList<int>{2, 1, 3});
        addRow("share", 6, QList<int>{2, 1, 3});
        addRow("share down", 7, QList<int>{3, 1, 2});
        addRow("unknown", 8, QList<int>{1, 2, 3});
    }

    void sourcesAreSorted() {
        QFETCH(int, mode);
        m_project->sources->setData({Source(3, "b"_s, {}, "Ann"_s, {}), Source(1, "c"_s, {}, "Bob"_s, {}),
                                     Source(2, "a"_s, {}, "Cy"_s, {})});
        m_project->answers->setData(
            {testAnswer(1, 1, 1, text(10)), testAnswer(2, 2, 1, text(10)), testAnswer(3, 3, 1, text(10))});
        m_project->sources->applyCodedLengths({{1, 5}, {2, 1}, {3, 9}});
        SourceProxyModel proxy;
        proxy.setSortMode(mode == 0 ? 3 : 0);
        proxy.setSortMode(mode);
        QTEST(idsOf(proxy), "order");
        QCOMPARE(proxy.getSortModes().size(), 8);
    }

    void aNewOrderMovesRows() {
        QuestionModel& questions = *m_project->questions;
        const QAbstractItemModelTester tester(&questions);
        for (const auto& [id, order] : {std::pair{1, 5}, {2, 3}, {3, 5}, {4, 9}, {5, 3}})
            questions.addOrUpdate(question(id, order));
        QCOMPARE(idsOf(questions), (QList<int>{2, 5, 1, 3, 4}));
        QSignalSpy moved(&questions, &QAbstractItemModel::rowsMoved);
        QSignalSpy reset(&questions, &QAbstractItemModel::modelReset);
        QSignalSpy ordered(&questions, &QuestionModel::questionsOrderChanged);
        questions.addOrUpdate(question(2, 10));
        QCOMPARE(idsOf(questions), (QList<int>{5, 1, 3, 4, 2}));
        questions.addOrUpdate(question(2, 11));
        questions.addOrUpdate(Question(2, "other"_s, 11));
        QCOMPARE(moved.count() + ordered.count(), 2);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(questions.indexOfKey(2), 4);
    }

    void partsLieWithinTheirAnswer() {
        m_project->answers->setData({testAnswer(2, 2, 1, text(7))});
        QCOMPARE(m_project->answers->partialAnswer(2, 1, 3, 2).offset(), 3);
        for (const auto& [start, length] : {std::pair{2, 0}, {7, 1}, {-1, 3}})
            QVERIFY(m_project->answers->partialAnswer(2, 1, start, length).answerId() < 1);
    }

    void answersStandInTheOrderOfTheirQuestions() {
        m_project->questions->setData({question(2, 1), question(1, 2)});
        m_project->answers->setData(
            {testAnswer(1, 1, 1, text(5)), testAnswer(2, 2, 1, text(7)), testAnswer(3, 1, 2, text(4))});
        QuestionAnswerProxyModel proxy;
        proxy.setSourceId(1);
        QCOMPARE(idsOf(proxy), (QList<int>{3, 1}));
        QCOMPARE(proxy.index(0, 0).data(QuestionAnswerModelBase::QuestionRole).toString(), "Q2"_s);
        m_project->questions->addOrUpdate(question(2, 5));
        QCOMPARE(idsOf(proxy), (QList<int>{1, 3}));
    }

    void propertiesAreSortedAndFound() {
        const auto key = [](int id, const QString& name) {
            return SourceMetadataKey(id, false, false, name);
        };
        m_project->keys->setData({key(2, "age"_s), key(1, "town"_s), key(3, "age"_s), key(4, "job"_s)});
        SourceMetadataKeyProxyModel proxy;
        QCOMPARE(idsOf(proxy), (QList<int>{1, 2, 3, 4}));
        QCOMPARE(proxy.findKeyId("age"_s), 3);
        QVERIFY(proxy.findKeyId("Job"_s) == -1 && !proxy.hasKey("Job"_s));
        proxy.setSortType(SourceMetadataKeyProxyModel::SortAlphaNumericDescending);
        QCOMPARE(idsOf(proxy).mid(0, 2), (QList<int>{1, 4}));
        proxy.setSortType(SourceMetadataKeyProxyModel::SortAlphaNumericAscending);
        QCOMPARE(idsOf(proxy).last(), 1);
        QCOMPARE(proxy.findKeyWithId(1).key(), "town"_s);
        QCOMPARE(proxy.getSortTypesDropDown().size(), 3);
        m_project->values->setData({SourceMetadataValue(1, 1, "young"_s), SourceMetadataValue(3, 2, 40)});
        SourceMetadataValueProxyModel values;
        values.setKeyId(2);
        QVERIFY(values.hasValue(40) && !values.hasValue("young"_s));
        QCOMPARE(values.findValueWithId(3).value(), QVariant(40));
    }

    void everyPossibleShortcutIsOffered() {
        KernoShortcutKeyProxyModel proxy;
        QSignalSpy changed(&proxy, &QAbstractItemModel::dataChanged);
        m_project->shortcuts->addOrUpdate(KernoShortcutKey("A"_s, 7, {}));
        m_project->shortcuts->addOrUpdate(KernoShortcutKey("+"_s, 8, {}));
        QCOMPARE(m_project->shortcuts->keysOfKerno(8).size(), 1);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(idsOf(proxy, KernoShortcutKeyProxyModel::KernoIdRole).mid(9, 3), (QList<int>{0, 7, 0}));
        QCOMPARE(proxy.index(35).data(KernoShortcutKeyProxyModel::ShortcutKeyRole).toString(), "Z"_s);
        QVERIFY(proxy.findKernoIdForShortcut("+"_s) == 8 && proxy.findKernoIdForShortcut("a"_s) == 0);
    }

    void valuesOfLinksStayFreshButForTheFirst() {
        m_project->values->setData({SourceMetadataValue(1, 1, "young"_s), SourceMetadataValue(2, 1, "old"_s),
                                    SourceMetadataValue(3, 2, 40)});
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
    }

private:
    std::unique_ptr<FakeProject> m_project;
};

KERNOVA_GUI_TEST_MAIN(tst_RecordModels)
#include "tst_recordmodels.moc"
