#include "tests_support/TestMain.h"
#include "wire/AccessLevel.h"
#include "wire/Frames.h"
#include "wire/Operations.h"
#include "wire/QueryParser.h"
#include "wire/QueryText.h"

#include <QJsonDocument>
#include <QRandomGenerator>

using namespace wire;

class QueryTextTest : public QObject {
    Q_OBJECT

private slots:
    void writesTheTextOfEachForm_data();
    void writesTheTextOfEachForm();
    void readsBackWhatItWrites();
    void readsBackAnyString();
    void refusesBrokenTexts_data();
    void refusesBrokenTexts();
    void boundsNesting();
    void namesOperations();
    void dispatchesTheFirstNotificationOfTheTable();
    void readsFrames();
};

void QueryTextTest::writesTheTextOfEachForm_data() {
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("expected");
    const QStringList fields{QStringLiteral("id"), QStringLiteral("title")};
    QTest::newRow("all") << read(QStringLiteral("kernoQueryList"), QStringList(), fields)
                         << "{kernoQueryList{id title}}";
    QTest::newRow("arguments") << read(QStringLiteral("highlightQueryList"),
                                       {argument(QStringLiteral("sourceId"), 3),
                                        argument(QStringLiteral("questionId"), 1)},
                                       {QStringLiteral("id")})
                               << "{highlightQueryList(sourceId:3 questionId:1){id}}";
    QTest::newRow("next id") << maxId(QStringLiteral("kerno"), true) << "{kernoMaxId(next: true)}";
    QTest::newRow("highest id") << maxId(QStringLiteral("groupKerno"), false)
                                << "{groupKernoMaxId(next: false)}";
    QTest::newRow("mutation")
        << mutation(QStringLiteral("groupCreateOrUpdate"),
                    {argument(QStringLiteral("id"), 1),
                     argument(QStringLiteral("description"), QStringLiteral("a\\\"b\nc %2"))},
                    fields)
        << "mutation{groupCreateOrUpdate(id:1 description:\"a\\\\\\\"b\\nc %2\"){id title}}";
    QTest::newRow("batch") << batchMutation(
                                  Record::Memo, Operation::BatchRemove,
                                  {{argument(QStringLiteral("id"), 1)}, {argument(QStringLiteral("id"), 2)}})
                           << "mutation{memoBatchRemove(memos:[{id:1},{id:2}]){sourceIds questionIds}}";
    QTest::newRow("open") << openProject(QStringLiteral("a%2.krn"), QStringLiteral("u"))
                          << "mutation{dbOpen(name:\"a%2.krn\", uuid:\"u\"){name, uuid, status, access}}";
    QTest::newRow("overview of kernos")
        << sourceMetadataOverviewForKeyAndKernosId(4, {3, 7})
        << "{sourceMetadataOverviewForKeyAndKernosId(keyId: 4, kernoIds: [3 7 ])"
           "{value valueOccurrences sourcesOccurrences}}";
    QTest::newRow("no kernos") << sourceMetadataOverviewForKeyAndKernosId(4, {})
                               << "{sourceMetadataOverviewForKeyAndKernosId(keyId: 4, kernoIds: [])"
                                  "{value valueOccurrences sourcesOccurrences}}";
    QTest::newRow("quote counts") << quoteCountsInKernos()
                                  << "{quoteCountsInKernosQueryList{key value subvalue}}";
}

void QueryTextTest::writesTheTextOfEachForm() {
    QFETCH(QString, written);
    QFETCH(QString, expected);
    QCOMPARE(written, expected);
    const QueryReading reading = parseQuery(written);
    QVERIFY2(reading.ok, qPrintable(reading.error.message));
    QCOMPARE(reading.query.isMutation, expected.startsWith(QLatin1String("mutation")));
}

void QueryTextTest::readsBackWhatItWrites() {
    const QueryReading batch =
        parseQuery(batchMutation(Record::Highlight, Operation::BatchCreateOrUpdate,
                                 {{argument(QStringLiteral("id"), 1),
                                   argument(QStringLiteral("author"), QStringLiteral("A, {b} [c]"))}}));
    QVERIFY(batch.ok);
    const QueryValue* records = batch.query.argument(QStringLiteral("highlights"));
    QVERIFY(records);
    QCOMPARE(records->list.size(), size_t(1));
    QCOMPARE(records->list[0].member(QStringLiteral("id"))->integer, 1);
    QCOMPARE(records->list[0].member(QStringLiteral("author"))->text, QStringLiteral("A, {b} [c]"));
    QCOMPARE(batch.query.fields.size(), size_t(2));

    const QueryReading nested =
        parseQuery(QStringLiteral("{kernoQueryListWithHighlightsAndCriteria(fieldName: \"value\" operator: "
                                  "\">\" value: \"30\" keyId: 7)"
                                  "{id title highlights{ id start }}}"));
    QVERIFY2(nested.ok, qPrintable(nested.error.message));
    QCOMPARE(nested.query.argument(QStringLiteral("keyId"))->integer, 7);
    QCOMPARE(nested.query.fields.back().name, QStringLiteral("highlights"));
    QCOMPARE(nested.query.fields.back().fields.size(), size_t(2));

    QVERIFY(parseQuery(kernoIdsForKernosWithOverlap()).ok);
    QVERIFY(parseQuery(closeProject()).ok);
    const QueryReading values = parseQuery(QStringLiteral("{a(x: -2.5e1 y: true z: null w: [1 2,3])}"));
    QVERIFY(values.ok);
    QCOMPARE(values.query.argument(QStringLiteral("x"))->real, -25.0);
    QCOMPARE(values.query.argument(QStringLiteral("y"))->kind, QueryValue::Kind::Boolean);
    QCOMPARE(values.query.argument(QStringLiteral("w"))->list.size(), size_t(3));
}

void QueryTextTest::readsBackAnyString() {
    QRandomGenerator random(7);
    const QString alphabet =
        QStringLiteral("ab\\\"\n{}()[],: %1\u00fc\u2028") + QString::fromUtf8("\U0001F331");
    for (int round = 0; round < 2000; ++round) {
        QString text;
        for (int i = random.bounded(12); i > 0; --i)
            text += alphabet.at(random.bounded(alphabet.size()));
        const QueryReading reading = parseQuery(
            mutation(QStringLiteral("x"), {argument(QStringLiteral("t"), text)}, {QStringLiteral("id")}));
        QVERIFY2(reading.ok, qPrintable(text));
        QCOMPARE(reading.query.argument(QStringLiteral("t"))->text, text);
    }
}

void QueryTextTest::refusesBrokenTexts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("no brace") << "kernoQueryList" << 0;
    QTest::newRow("unclosed") << "{kernoQueryList{id}" << 19;
    QTest::newRow("quote in a value") << "{x(value: \"a\"b\"){id}}" << 14;
    QTest::newRow("string without end") << "{x(value: \"abc){id}}" << 10;
    QTest::newRow("unknown escape") << "{x(value: \"a\\tb\"){id}}" << 13;
    QTest::newRow("more behind the end") << "{x{id}} {y{id}}" << 8;
    QTest::newRow("number too large") << "{x(id:99999999999999999999){id}}" << 6;
    QTest::newRow("no value") << "{x(id:){id}}" << 6;
}

void QueryTextTest::refusesBrokenTexts() {
    QFETCH(QString, text);
    QFETCH(int, position);
    const QueryReading reading = parseQuery(text);
    QVERIFY(!reading.ok);
    QVERIFY(!reading.error.message.isEmpty());
    QCOMPARE(reading.error.position, position);
}

void QueryTextTest::boundsNesting() {
    const auto nested = [](int depth) {
        return QLatin1String("{x(v:") + QString(depth, QLatin1Char('[')) + QString(depth, QLatin1Char(']')) +
               QLatin1String("){id}}");
    };
    QVERIFY(parseQuery(nested(maxQueryDepth - 1)).ok);
    QVERIFY(!parseQuery(nested(maxQueryDepth)).ok);
    QVERIFY(!parseQuery(nested(1000000)).ok);
}

void QueryTextTest::namesOperations() {
    const auto batch = recordOperation(QStringLiteral("memoBatchCreateOrUpdate"));
    QVERIFY(batch);
    QCOMPARE(batch->record, Record::Memo);
    QCOMPARE(batch->operation, Operation::BatchCreateOrUpdate);
    QVERIFY(!recordOperation(QStringLiteral("kernoQueryById")));
    QVERIFY(!recordOperation(QStringLiteral("sourceBatchRemove")));
    QVERIFY(!recordOperation(QStringLiteral("preferenceQueryList")));
    QCOMPARE(operationName(Record::KernoGroup, Operation::MaxId), QStringLiteral("groupKernoMaxId"));
    QCOMPARE(accessLevelFromName(QStringLiteral("owner")), AccessLevel::Owner);
    QCOMPARE(accessLevelFromName(QStringLiteral("admin")), AccessLevel::Revoked);
    QCOMPARE(accessLevelName(AccessLevel::Write), QStringLiteral("write"));
}

void QueryTextTest::dispatchesTheFirstNotificationOfTheTable() {
    const QJsonObject two{{QStringLiteral("memoRemove"), 1}, {QStringLiteral("sourceRemove"), 2}};
    QCOMPARE(findNotification(two)->notification, Notification::SourceDeleted);
    QVERIFY(!findNotification({{QStringLiteral("preferenceCreateOrUpdate"), 1}}));
}

void QueryTextTest::readsFrames() {
    const QString sent = RequestFrame{QString(), 1, QStringLiteral("{x}")}.toText();
    QCOMPARE(sent, QStringLiteral("{\"auth\":\"\",\"json_data\":\"{x}\",\"msg_id\":\"i_1\"}"));
    QCOMPARE(requestFromJson(readFrame(sent).object).messageId, 1);

    QCOMPARE(readFrame(QStringLiteral("{\"a\":")).error, FrameError::InvalidJson);
    QCOMPARE(readFrame(QStringLiteral("[1]")).error, FrameError::NotAnObject);
    QCOMPARE(responseFromJson({}).messageId, 0);
    QCOMPARE(responseFromJson({{QStringLiteral("msg_id"), QStringLiteral("i_x")}}).messageId, 0);
    QVERIFY(!readFrame(ResponseFrame{0, 200, {}}.toText()).object.contains(QStringLiteral("msg_id")));
}

KERNOVA_TEST_MAIN(QueryTextTest)
#include "tst_querytext.moc"
