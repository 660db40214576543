#include "FakeProject.h"
#include "tests_support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QLoggingCategory>
#include <QSignalSpy>

namespace {

QList<Kerno> kernos(int count) {
    QList<Kerno> list;
    for (int id = 1; id <= count; ++id)
        list << testKerno(id);
    return list;
}

QJsonObject kernoJson(int id, const QString& title) {
    return {{QStringLiteral("id"), id},
            {QStringLiteral("parentKernoId"), -1},
            {QStringLiteral("color"), QStringLiteral("#ff0000")},
            {QStringLiteral("title"), title},
            {QStringLiteral("description"), QString()},
            {QStringLiteral("timestamp"), QStringLiteral("2024-05-01T10:00:00Z")},
            {QStringLiteral("author"), QStringLiteral("Ann")},
            {QStringLiteral("x"), 1},
            {QStringLiteral("y"), 1}};
}

/// The row signals of a model in their order, such as "remove 2-4".
class RowLog : public QObject {
public:
    explicit RowLog(const QAbstractItemModel* model) {
        const auto rows = [this](const char* what) {
            return [this, what](const QModelIndex&, int first, int last) { add(what, first, last); };
        };
        connect(model, &QAbstractItemModel::rowsInserted, this, rows("insert"));
        connect(model, &QAbstractItemModel::rowsRemoved, this, rows("remove"));
        connect(model, &QAbstractItemModel::modelReset, this, [this] { entries << QStringLiteral("reset"); });
        connect(model, &QAbstractItemModel::dataChanged, this,
                [this](const QModelIndex& first, const QModelIndex& last) {
                    add("change", first.row(), last.row());
                });
    }
    QStringList entries;

private:
    void add(const char* what, int first, int last) {
        entries << QStringLiteral("%1 %2-%3").arg(QLatin1String(what)).arg(first).arg(last);
    }
};

}  // namespace

/// The frame of all list models, seen through one of them.
class tst_ModelFrame : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false")); }
    void replacingAnnouncesWhatItMust_data();
    void replacingAnnouncesWhatItMust();
    void firstRowsAreAnnouncedOncePerProject();
    void updatesNameTheirRoles();
    void arrivingRowsAreFoundAtOnce();
    void jsonElementsAreMerged();
    void oddJsonIsIgnored_data();
    void oddJsonIsIgnored();
    void rowsAreReadByName();
    void outOfRangeGivesEmptyRecords();
    void theLastOfEqualKeysIsFound();
    void variantsBecomeRows();
};

void tst_ModelFrame::replacingAnnouncesWhatItMust_data() {
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<QStringList>("signalsSeen");
    QTest::newRow("nothing") << 0 << 0 << QStringList{};
    QTest::newRow("fill") << 0 << 3 << QStringList{"reset"};
    QTest::newRow("same") << 3 << 3 << QStringList{"change 0-2"};
    QTest::newRow("shrink") << 5 << 2 << QStringList{"remove 2-4", "change 0-1"};
    QTest::newRow("grow") << 2 << 5 << QStringList{"insert 2-4", "change 0-1"};
    QTest::newRow("empty") << 2 << 0 << QStringList{"remove 0-1"};
}

void tst_ModelFrame::replacingAnnouncesWhatItMust() {
    QFETCH(int, before);
    QFETCH(int, after);
    QFETCH(QStringList, signalsSeen);
    KernoModel model(nullptr);
    const QAbstractItemModelTester tester(&model);
    model.setData(kernos(before));
    const RowLog log(&model);
    QSignalSpy updated(&model, &IModelListBase::modelUpdated);
    model.setData(kernos(after));
    QCOMPARE(log.entries, signalsSeen);
    QCOMPARE(updated.count(), signalsSeen.size());
    QCOMPARE(model.count(), after);
}

void tst_ModelFrame::firstRowsAreAnnouncedOncePerProject() {
    FakeProject project;
    QSignalSpy first(project.groups.get(), &IModelListBase::initialDataSet);
    project.groups->setData(QList<Group>{});
    QCOMPARE(first.count(), 0);
    project.groups->setData({Group(1, QStringLiteral("a"), true)});
    project.groups->setData({Group(2, QStringLiteral("b"), true)});
    QCOMPARE(first.count(), 1);
    emit project.fileClosed();
    QCOMPARE(project.groups->rowCount(), 0);
    QCOMPARE(first.count(), 1);
    emit project.fileOpened();
    project.groups->setFromJson(QJsonArray{});
    QCOMPARE(first.count(), 2);
}

void tst_ModelFrame::updatesNameTheirRoles() {
    KernoModel model(nullptr);
    const QAbstractItemModelTester tester(&model);
    model.setData(kernos(3));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    Kerno renamed = model.at(1);
    model.addOrUpdate(renamed);
    QCOMPARE(changed.count(), 0);
    renamed.setTitle(QStringLiteral("new"));
    model.addOrUpdate(renamed);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(0).toModelIndex().row(), 1);
    QCOMPARE(changed.first().at(2).value<QVector<int>>(), QVector<int>{260});
    QCOMPARE(model.at(1).title(), QStringLiteral("new"));
}

void tst_ModelFrame::arrivingRowsAreFoundAtOnce() {
    KernoModel model(nullptr);
    QList<int> children;
    connect(&model, &QAbstractItemModel::rowsInserted, [&](const QModelIndex&, int row) {
        QCOMPARE(model.indexOfKey(model.at(row).id()), row);
        children = model.childIdsOf(1);
    });
    model.addOrUpdate(testKerno(1));
    model.addOrUpdate(testKerno(2, 1));
    QCOMPARE(children, QList<int>{2});
}

void tst_ModelFrame::jsonElementsAreMerged() {
    KernoModel model(nullptr);
    const QAbstractItemModelTester tester(&model);
    QSignalSpy first(&model, &IModelListBase::initialDataSet);
    {
        const RowLog log(&model);
        model.setFromJson(QJsonArray{kernoJson(1, QStringLiteral("a")), kernoJson(2, QStringLiteral("b"))});
        QCOMPARE(log.entries, (QStringList{"insert 0-0", "insert 1-1"}));
    }
    const RowLog log(&model);
    model.setFromJson(
        QJsonArray{kernoJson(2, QStringLiteral("B")), QJsonValue(7), kernoJson(3, QStringLiteral("c"))});
    QCOMPARE(log.entries, (QStringList{"change 1-1", "insert 2-2", "change 0-1"}));
    QCOMPARE(model.record(2).title(), QStringLiteral("B"));
    model.setFromJson(kernoJson(4, QStringLiteral("d")));
    QCOMPARE(idsOf(model), (QList<int>{1, 2, 3, 4}));
    QCOMPARE(first.count(), 1);
    QCOMPARE(model.toJson().size(), 4);
    QCOMPARE(model.toVariantList().at(3).toMap().value(QStringLiteral("title")).toString(),
             QStringLiteral("d"));
}

void tst_ModelFrame::oddJsonIsIgnored_data() {
    QTest::addColumn<QJsonObject>("json");
    QTest::addColumn<int>("rows");
    QTest::newRow("no key") << QJsonObject{{QStringLiteral("kernoId"), 3}} << 0;
    QTest::newRow("null") << QJsonObject{{QStringLiteral("shortcutKey"), QJsonValue()}} << 0;
    QTest::newRow("zero") << QJsonObject{{QStringLiteral("shortcutKey"), 0}, {QStringLiteral("kernoId"), 3}}
                          << 0;
    QTest::newRow("invalid record") << QJsonObject{{QStringLiteral("shortcutKey"), QStringLiteral("A")}} << 0;
    QTest::newRow("a text of 0") << QJsonObject{{QStringLiteral("shortcutKey"), QStringLiteral("0")},
                                                {QStringLiteral("kernoId"), 3}}
                                 << 1;
}

void tst_ModelFrame::oddJsonIsIgnored() {
    QFETCH(QJsonObject, json);
    KernoShortcutKeyModel model(nullptr);
    model.addFromJson(json);
    QTEST(model.rowCount(), "rows");
}

void tst_ModelFrame::rowsAreReadByName() {
    KernoModel model(nullptr);
    model.setData(kernos(2));
    QCOMPARE(model.get(1).value(QStringLiteral("title")).toString(), QStringLiteral("kerno 2"));
    QCOMPARE(model.get(1, "kernoId"), QVariant(2));
    QVERIFY(!model.get(1, "Title").isValid());
    QVERIFY(!model.get(2, "title").isValid());
    QVERIFY(model.get(-1).isEmpty());
    QVERIFY(model.get(2).isEmpty());
}

void tst_ModelFrame::outOfRangeGivesEmptyRecords() {
    QuestionModel questions(nullptr);
    questions.setData({Question(1, QStringLiteral("Why?"), 1)});
    QVERIFY(!questions.at(1).isValid());
    QVERIFY(!questions.record(2).isValid());
    QVERIFY(questions.record(1).isValid());
    QVERIFY(!questions.contains(2));
    QCOMPARE(questions.indexOfKey(2), -1);
    QVERIFY(!questions.removeByKey(2));
}

void tst_ModelFrame::theLastOfEqualKeysIsFound() {
    KernoModel model(nullptr);
    model.setData(
        {testKerno(1, -1, QStringLiteral("a")), testKerno(2), testKerno(1, -1, QStringLiteral("b"))});
    QCOMPARE(model.indexOfKey(1), 2);
    QVERIFY(model.removeByKey(1));
    QCOMPARE(model.indexOfKey(1), 0);
    QCOMPARE(model.record(1).title(), QStringLiteral("a"));
    QVERIFY(model.removeByKey(1));
    QVERIFY(!model.contains(1));
    QCOMPARE(model.indexOfKey(2), 0);
}

void tst_ModelFrame::variantsBecomeRows() {
    KernoModel model(nullptr);
    emit model.asyncDataFetched(QVariant::fromValue(kernos(2)));
    QCOMPARE(model.rowCount(), 2);
    emit model.asyncDataFetched(QVariant(5));
    QCOMPARE(model.rowCount(), 0);
}

KERNOVA_TEST_MAIN(tst_ModelFrame)
#include "tst_modelframe.moc"
