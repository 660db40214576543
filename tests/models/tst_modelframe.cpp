#include "FakeProject.h"
#include "tests_support/TestMain.h"

namespace {

QList<Kerno> kernos(int count) {
    QList<Kerno> list;
    for (int id = 1; id <= count; ++id)
        list << testKerno(id);
    return list;
}

QJsonObject kernoJson(int id, const QString& title) {
    return {{"id"_s, id},
            {"parentKernoId"_s, -1},
            {"color"_s, "#ff0000"_s},
            {"title"_s, title},
            {"description"_s, QString()},
            {"timestamp"_s, "2024-05-01T10:00:00Z"_s},
            {"author"_s, "Ann"_s},
            {"x"_s, 1},
            {"y"_s, 1}};
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
        connect(model, &QAbstractItemModel::modelReset, this, [this] { entries << "reset"_s; });
        connect(model, &QAbstractItemModel::dataChanged, this,
                [this](const QModelIndex& first, const QModelIndex& last) {
                    add("change", first.row(), last.row());
                });
    }
    QStringList entries;

private:
    void add(const char* what, int first, int last) {
        entries << "%1 %2-%3"_s.arg(QLatin1String(what)).arg(first).arg(last);
    }
};

}  // namespace

/// The frame of all list models, seen through one of them.
class tst_ModelFrame : public QObject {
    Q_OBJECT

private slots:
    void replacingAnnouncesWhatItMust_data() {
        columns<int, int, QStringList>({"before", "after", "signalsSeen"});
        addRow("nothing", 0, 0, QStringList{});
        addRow("fill", 0, 3, QStringList{"reset"});
        addRow("same", 3, 3, QStringList{"change 0-2"});
        addRow("shrink", 5, 2, QStringList{"remove 2-4", "change 0-1"});
        addRow("grow", 2, 5, QStringList{"insert 2-4", "change 0-1"});
        addRow("empty", 2, 0, QStringList{"remove 0-1"});
    }

    void replacingAnnouncesWhatItMust() {
        FETCH(int, before, int, after, QStringList, signalsSeen);
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

    void arrivingRowsAreFoundAtOnce() {
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

    void jsonElementsAreMerged() {
        KernoModel model(nullptr);
        const QAbstractItemModelTester tester(&model);
        QSignalSpy first(&model, &IModelListBase::initialDataSet);
        {
            const RowLog log(&model);
            model.setFromJson(QJsonArray{kernoJson(1, "a"_s), kernoJson(2, "b"_s)});
            QCOMPARE(log.entries, (QStringList{"insert 0-0", "insert 1-1"}));
        }
        const RowLog log(&model);
        model.setFromJson(QJsonArray{kernoJson(2, "B"_s), QJsonValue(7), kernoJson(3, "c"_s)});
        QCOMPARE(log.entries, (QStringList{"change 1-1", "insert 2-2", "change 0-1"}));
        QCOMPARE(model.record(2).title(), "B"_s);
        model.setFromJson(kernoJson(4, "d"_s));
        QCOMPARE(idsOf(model), (QList<int>{1, 2, 3, 4}));
        QCOMPARE(first.count(), 1);
        QCOMPARE(model.toJson().size(), 4);
        QCOMPARE(model.toVariantList().at(3).toMap().value("title"_s).toString(), "d"_s);
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

    void outOfRangeGivesEmptyRecords() {
        QuestionModel questions(nullptr);
        questions.setData({Question(1, "Why?"_s, 1)});
        QVERIFY(!questions.at(1).isValid());
        QVERIFY(!questions.record(2).isValid());
        QVERIFY(questions.record(1).isValid());
        QVERIFY(!questions.contains(2));
        QCOMPARE(questions.indexOfKey(2), -1);
        QVERIFY(!questions.removeByKey(2));
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

    void variantsBecomeRows() {
        KernoModel model(nullptr);
        emit model.asyncDataFetched(QVariant::fromValue(kernos(2)));
        QCOMPARE(model.rowCount(), 2);
        emit model.asyncDataFetched(QVariant(5));
        QCOMPARE(model.rowCount(), 0);
    }
};

KERNOVA_TEST_MAIN(tst_ModelFrame)
#include "tst_modelframe.moc"
