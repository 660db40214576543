#include "tests_support/TestMain.h"
#include "wire/AccessLevel.h"
#include "wire/Frames.h"
#include "wire/Operations.h"
#include "wire/QueryParser.h"
#include "wire/QueryText.h"

using namespace wire;

class QueryTextTest : public QObject {
    Q_OBJECT

private slots:
    void writesTheTextOfEachForm_data() {
        columns<QString, QString>({"written", "expected"});
        const QStringList fields{"id"_s, "title"_s};
        addRow(
            "arguments",
            read("highlightQueryList"_s, {argument("sourceId"_s, 3), argument("questionId"_s, 1)}, {"id"_s}),
            "{highlightQueryList(sourceId:3 questionId:1){id}}");
        addRow("mutation",
               mutation("groupCreateOrUpdate"_s,
                        {argument("id"_s, 1), argument("description"_s, "a\\\"b\nc %2"_s)}, fields),
               "mutation{groupCreateOrUpdate(id:1 description:\"a\\\\\\\"b\\nc %2\"){id title}}");
        addRow("batch",
               batchMutation(Record::Memo, Operation::BatchRemove,
                             {{argument("id"_s, 1)}, {argument("id"_s, 2)}}),
               "mutation{memoBatchRemove(memos:[{id:1},{id:2}]){sourceIds questionIds}}");
        addRow("open", openProject("a%2.krn"_s, "u"_s),
               "mutation{dbOpen(name:\"a%2.krn\", uuid:\"u\"){name, uuid, status, access}}");
        addRow("overview of kernos", sourceMetadataOverviewForKeyAndKernosId(4, {3, 7}),
               "{sourceMetadataOverviewForKeyAndKernosId(keyId: 4, kernoIds: [3 7 ])"
               "{value valueOccurrences sourcesOccurrences}}");
    }

    void writesTheTextOfEachForm() {
        FETCH(QString, written, QString, expected);
        QCOMPARE(written, expected);
        const QueryReading reading = parseQuery(written);
        QVERIFY2(reading.ok, qPrintable(reading.error.message));
        QCOMPARE(reading.query.isMutation, expected.startsWith(QLatin1String("mutation")));
    }

    void readsBackWhatItWrites() {
        const QueryReading batch =
            parseQuery(batchMutation(Record::Highlight, Operation::BatchCreateOrUpdate,
                                     {{argument("id"_s, 1), argument("author"_s, "A, {b} [c]"_s)}}));
        QVERIFY(batch.ok);
        const QueryValue* records = batch.query.argument("highlights"_s);
        QVERIFY(records);
        QCOMPARE(records->list.size(), size_t(1));
        QCOMPARE(records->list[0].member("id"_s)->integer, 1);
        QCOMPARE(records->list[0].member("author"_s)->text, "A, {b} [c]"_s);
        QCOMPARE(batch.query.fields.size(), size_t(2));

        const QueryReading nested =
            parseQuery("{kernoQueryListWithHighlightsAndCriteria(fieldName: \"value\" operator: "
                       "\">\" value: \"30\" keyId: 7)"
                       "{id title highlights{ id start }}}"_s);
        QVERIFY2(nested.ok, qPrintable(nested.error.message));
        QCOMPARE(nested.query.argument("keyId"_s)->integer, 7);
        QCOMPARE(nested.query.fields.back().name, "highlights"_s);
        QCOMPARE(nested.query.fields.back().fields.size(), size_t(2));

        const QueryReading values = parseQuery("{a(x: -2.5e1 y: true z: null w: [1 2,3])}"_s);
        QVERIFY(values.ok);
        QCOMPARE(values.query.argument("x"_s)->real, -25.0);
        QCOMPARE(values.query.argument("y"_s)->kind, QueryValue::Kind::Boolean);
        QCOMPARE(values.query.argument("w"_s)->list.size(), size_t(3));
    }

    void readsBackAnyString() {
        QRandomGenerator random(7);
        const QString alphabet = "ab\\\"\n{}()[],: %1\u00fc\u2028"_s + "\U0001F331"_s;
        for (int round = 0; round < 2000; ++round) {
            QString text;
            for (int i = random.bounded(12); i > 0; --i)
                text += alphabet.at(random.bounded(alphabet.size()));
            const QueryReading reading = parseQuery(mutation("x"_s, {argument("t"_s, text)}, {"id"_s}));
            QVERIFY2(reading.ok, qPrintable(text));
            QCOMPARE(reading.query.argument("t"_s)->text, text);
        }
    }

    void refusesBrokenTexts_data() {
        columns<QString, int>({"text", "position"});
        addRow("empty", "", 0);
        addRow("no brace", "kernoQueryList", 0);
        addRow("unclosed", "{kernoQueryList{id}", 19);
        addRow("quote in a value", "{x(value: \"a\"b\"){id}}", 14);
        addRow("string without end", "{x(value: \"abc){id}}", 10);
        addRow("unknown escape", "{x(value: \"a\\tb\"){id}}", 13);
        addRow("more behind the end", "{x{id}} {y{id}}", 8);
        addRow("number too large", "{x(id:99999999999999999999){id}}", 6);
        addRow("no value", "{x(id:){id}}", 6);
    }

    void refusesBrokenTexts() {
        FETCH(QString, text, int, position);
        const QueryReading reading = parseQuery(text);
        QVERIFY(!reading.ok);
        QVERIFY(!reading.error.message.isEmpty());
        QCOMPARE(reading.error.position, position);
    }

    void boundsNesting_data() {
        columns<QString, QString, QString, QString>({"before", "open", "close", "after"});
        addRow("lists", "{x(v:", "[", "]", "){id}}");
        addRow("objects", "{x(v:", "{a:", "}", "){id}}");
        addRow("fields", "{x", "{a", "}", "}");
    }

    void boundsNesting() {
        FETCH(QString, before, QString, open, QString, close, QString, after);
        const QString innermost = open.endsWith(QLatin1Char(':')) ? "1"_s : QString();
        const auto isRead = [&](int depth) {
            return parseQuery(before + open.repeated(depth) + innermost + close.repeated(depth) + after).ok;
        };
        QVERIFY(isRead(maxQueryDepth - 1));
        QVERIFY(!isRead(maxQueryDepth));
        QVERIFY(!isRead(1000000));
    }

    void readsFrames() {
        const QString sent = RequestFrame{QString(), 1, "{x}"_s}.toText();
        QCOMPARE(sent, "{\"auth\":\"\",\"json_data\":\"{x}\",\"msg_id\":\"i_1\"}"_s);
        QCOMPARE(requestFromJson(readFrame(sent).object).messageId, 1);

        QCOMPARE(readFrame("{\"a\":"_s).error, FrameError::InvalidJson);
        QCOMPARE(readFrame("[1]"_s).error, FrameError::NotAnObject);
        QCOMPARE(responseFromJson({}).messageId, 0);
        QCOMPARE(responseFromJson({{"msg_id"_s, "i_x"_s}}).messageId, 0);
        QVERIFY(!readFrame(ResponseFrame{0, 200, {}}.toText()).object.contains("msg_id"_s));
    }
};

KERNOVA_TEST_MAIN(QueryTextTest)
#include "tst_querytext.moc"
