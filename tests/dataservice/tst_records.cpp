#include "ServiceClient.h"
#include "store/Table.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"
#include "wire/QueryText.h"

#include <QDateTime>
#include <QTemporaryDir>

using wire::Operation;
using wire::Record;

namespace {

const QString awkward = QStringLiteral("quote \" back \\ line\nemoji \U0001F600 n\\n \u2028 tab\t end");

/// A value for a column, other for each `variant`.
QString argumentFor(const Column& column, int variant) {
    switch (column.type) {
    case FieldType::Integer:
        return wire::argument(column.name, variant + 10);
    case FieldType::Boolean:
        return wire::argument(column.name, variant % 2);
    case FieldType::Color:
        return wire::argument(column.name, QStringLiteral("#00ff%1").arg(variant + 10));
    default:
        return wire::argument(column.name, awkward + QString::number(variant));
    }
}

QJsonValue expectedFor(const Column& column, int variant) {
    switch (column.type) {
    case FieldType::Integer:
        return variant + 10;
    case FieldType::Boolean:
        return variant % 2 == 1;
    case FieldType::Color:
        return QStringLiteral("#00ff%1").arg(variant + 10);
    default:
        return awkward + QString::number(variant);
    }
}

QString idArgument(const Table& table, int id) {
    return table.hasTextId() ? wire::argument(table.id().name, QStringLiteral("key%1").arg(id))
                             : wire::argument(table.id().name, id);
}

QString argumentsFor(const Table& table, int id, int variant) {
    QStringList arguments{idArgument(table, id)};
    for (const Column& column : table.columns) {
        if (column.sent && column.name != table.id().name)
            arguments << argumentFor(column, variant);
    }
    return arguments.join(QLatin1Char(' '));
}

}  // namespace

class TestRecords : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    std::unique_ptr<RealService> m_service;
    std::unique_ptr<ServiceClient> m_client;

    QString path(const QString& name) const { return m_folder.filePath(name); }
    void save(Record record, const QString& arguments) {
        QVERIFY(m_client->ask(ServiceClient::saving(record, arguments)).isObject());
    }
    QJsonArray list(Record record, const QString& arguments = {}) {
        return m_client->ask(ServiceClient::listing(record, arguments)).toArray();
    }
    QList<int> ids(const QString& query) {
        QList<int> found;
        for (const QJsonValue& value : m_client->ask(query).toArray())
            found << (value.isObject() ? value.toObject().value(QStringLiteral("id")).toInt()
                                       : value.toInt());
        return found;
    }

private slots:
    void init() {
        m_service = std::make_unique<RealService>();
        QVERIFY(m_service->start());
        m_client = std::make_unique<ServiceClient>();
        QVERIFY(m_client->connectTo(m_service->port()));
        const QString file = path(QString::fromLatin1(QTest::currentTestFunction()) + QStringLiteral(".krn"));
        QFile::remove(file);
        QVERIFY(m_client->open(file));
    }

    void storesEveryRecord_data() {
        QTest::addColumn<int>("record");
        for (Record record : wire::allRecords())
            QTest::newRow(qPrintable(wire::word(record))) << static_cast<int>(record);
    }

    void storesEveryRecord() {
        QFETCH(int, record);
        const auto kind = static_cast<Record>(record);
        const Table& table = tableOf(kind);
        const QDateTime before = QDateTime::currentDateTimeUtc().addSecs(-2);

        QJsonObject reply;
        for (int variant : {0, 1}) {
            reply = m_client->ask(ServiceClient::saving(kind, argumentsFor(table, 7, variant))).toObject();
            for (const Column& column : table.columns) {
                if (column.sent && column.name != table.id().name)
                    QCOMPARE(reply.value(column.name), expectedFor(column, variant));
                if (column.type == FieldType::Timestamp) {
                    const QString text = reply.value(column.name).toString();
                    QVERIFY(text.size() == 20 && text.endsWith(QLatin1Char('Z')));
                    QVERIFY(QDateTime::fromString(text, Qt::ISODate) >= before);
                }
            }
        }
        if (wire::isSupported(kind, Operation::QueryList))
            QCOMPARE(list(kind), QJsonArray{reply});
        if (wire::isSupported(kind, Operation::QueryById)) {
            const QString byId = wire::operationName(kind, Operation::QueryById);
            const QStringList fields{ServiceClient::allFields(kind)};
            QCOMPARE(m_client->ask(wire::read(byId, {idArgument(table, 7)}, fields)).toObject(), reply);
            QVERIFY(m_client->ask(wire::read(byId, {idArgument(table, 8)}, fields)).isNull());
        }
        if (!wire::isSupported(kind, Operation::Remove))
            return;
        const QString removal = ServiceClient::removing(kind, argumentsFor(table, 7, 0));
        QCOMPARE(m_client->ask(removal).toObject(), reply);
        QCOMPARE(list(kind), QJsonArray());
        // A second removal is no error and repeats what was sent.
        const QJsonObject again = m_client->ask(removal).toObject();
        for (const Column& column : table.columns) {
            if (column.sent && column.name != table.id().name)
                QCOMPARE(again.value(column.name), expectedFor(column, 0));
        }
    }

    void keepsWhatIsNotSent() {
        save(Record::Kerno,
             QStringLiteral("id:1 parentKernoId:3 color:\"#102030\" title:\"a\" description:\"b\" x:5 y:6"));
        const QJsonObject reply =
            m_client->ask(ServiceClient::saving(Record::Kerno, QStringLiteral("id:1 title:\"c\"")))
                .toObject();
        QCOMPARE(reply.value(QStringLiteral("title")).toString(), QStringLiteral("c"));
        QCOMPARE(reply.value(QStringLiteral("description")).toString(), QStringLiteral("b"));
        QCOMPARE(reply.value(QStringLiteral("parentKernoId")).toInt(), 3);
        QCOMPARE(reply.value(QStringLiteral("x")).toInt(), 5);
    }

    void keepsTextsExactly() {
        const QString half(QChar(0xD800));
        const QStringList texts{QStringLiteral(""),
                                QString(QChar(0xFEFF)) + QLatin1Char('a'),
                                QString(QChar(0xFFFE)) + QChar(0xFFFF),
                                QString(QChar(0)) + QLatin1Char('a'),
                                QStringLiteral("'; DROP TABLE tbl_kerno; --"),
                                half + QLatin1Char('b')};
        for (QString text : texts) {
            // Written out by hand: a frame may hold any text as an escape.
            QString escaped;
            for (QChar c : text)
                escaped += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
            m_client->sendRaw(QStringLiteral("{\"auth\":\"\",\"msg_id\":\"i_900\",\"json_data\":\"mutation{"
                                             "sourceCreateOrUpdate(id:1 title:\\\"%1\\\"){id title}}\"}")
                                  .arg(escaped));
            QCOMPARE(list(Record::Source).at(0).toObject().value(QStringLiteral("title")).toString(),
                     text.replace(half, QString(QChar(0xFFFD))));
        }
    }

    void givesScalarsBackAsTheirKind_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QJsonValue>("value");
        QTest::newRow("whole") << QStringLiteral("5") << QJsonValue(5);
        QTest::newRow("real") << QStringLiteral("-2.25") << QJsonValue(-2.25);
        QTest::newRow("true") << QStringLiteral("true") << QJsonValue(true);
        QTest::newRow("text") << QStringLiteral("\"5\"") << QJsonValue(QStringLiteral("5"));
        QTest::newRow("quotes") << QStringLiteral("\"a\\\"b\"") << QJsonValue(QStringLiteral("a\"b"));
        QTest::newRow("null") << QStringLiteral("null") << QJsonValue();
    }

    void givesScalarsBackAsTheirKind() {
        QFETCH(QString, text);
        QFETCH(QJsonValue, value);
        save(Record::Preference, QStringLiteral("key:\"k\" value:") + text);
        save(Record::SourceMetadataValue, QStringLiteral("id:1 keyId:1 value:") + text);
        const QJsonObject preference =
            m_client->ask(QStringLiteral("{preferenceQueryById(key:\"k\"){key value}}")).toObject();
        QCOMPARE(preference.value(QStringLiteral("value")), value);
        QCOMPARE(list(Record::SourceMetadataValue).at(0).toObject().value(QStringLiteral("value")), value);
    }

    void ordersAndFilters() {
        save(Record::Kerno, QStringLiteral("id:9 parentKernoId:-1 color:\"#ff0000\""));
        save(Record::Kerno, QStringLiteral("id:2 parentKernoId:9 color:\"#00ff00\""));
        const char* rows[] = {"id:1 kernoId:2 sourceId:1 questionId:1 start:5 length:5",
                              "id:2 kernoId:2 sourceId:1 questionId:2 start:0 length:3",
                              "id:3 kernoId:9 sourceId:1 questionId:1 start:5 length:9",
                              "id:4 kernoId:9 sourceId:2 questionId:1 start:5 length:9",
                              "id:5 kernoId:7 sourceId:1 questionId:1 start:20 length:1"};
        for (const char* row : rows)
            save(Record::Highlight, QString::fromLatin1(row));
        QCOMPARE(ids(QStringLiteral("{kernoQueryList{id}}")), (QList<int>{2, 9}));
        QCOMPARE(ids(QStringLiteral("{kernoQueryList(parentKernoId:9){id}}")), (QList<int>{2}));
        QCOMPARE(ids(QStringLiteral("{highlightQueryList{id}}")), (QList<int>{2, 3, 4, 1, 5}));
        QCOMPARE(ids(QStringLiteral("{highlightQueryList(sourceId:1 questionId:1){id}}")),
                 (QList<int>{3, 1, 5}));
        QCOMPARE(ids(QStringLiteral("{highlightQueryList(kernoId:9){id}}")), (QList<int>{3, 4}));
        QCOMPARE(ids(QStringLiteral("{highlightQueryList(sourceId:1 questionId:1 kernoId:2){id}}")),
                 (QList<int>{1}));
        QCOMPARE(ids(QStringLiteral("{highlightQueryListBySourceQuestionAndKernos(sourceId:1 questionId:1 "
                                    "kernoIds:\"2,7\"){id}}")),
                 (QList<int>{1, 5}));
        const QString window = QStringLiteral(
            "{highlightQueryListWithOffset(sourceId:1 questionId:1 sourceOffset:%1 sourceLength:%2){id}}");
        QCOMPARE(ids(window.arg(0).arg(5)), (QList<int>{}));
        QCOMPARE(ids(window.arg(0).arg(6)), (QList<int>{3, 1}));
        QCOMPARE(ids(window.arg(10).arg(10)), (QList<int>{3}));
        QCOMPARE(ids(window.arg(13).arg(-1)), (QList<int>{3, 5}));
        QCOMPARE(ids(window.arg(21).arg(-1)), (QList<int>{}));
        QCOMPARE(m_client->ask(QStringLiteral("{kernoHasChildren(parentKernoId: 9)}")).toInt(), 1);
        QCOMPARE(m_client->ask(QStringLiteral("{kernoHasChildren(parentKernoId: 2)}")).toInt(), 0);

        // The colour is that of the kerno as it is now; a highlight without its kerno is still whole.
        save(Record::Kerno, QStringLiteral("id:2 color:\"#0000ff\""));
        const QString colors = QStringLiteral("{highlightQueryList(sourceId:1){id color}}");
        QHash<int, QString> found;
        for (const QJsonValue& value : m_client->ask(colors).toArray())
            found.insert(value[QStringLiteral("id")].toInt(), value[QStringLiteral("color")].toString());
        QCOMPARE(found, (QHash<int, QString>{{1, QStringLiteral("#0000ff")},
                                             {2, QStringLiteral("#0000ff")},
                                             {3, QStringLiteral("#ff0000")},
                                             {5, QStringLiteral("#000000")}}));
    }

    void joinsQuestionsAndMetadata() {
        save(Record::Question, QStringLiteral("id:4 question:\"Why?\" questionOrder:1"));
        // An answer may come before its source, and before its question.
        save(Record::QuestionAnswer,
             QStringLiteral("id:2 questionId:4 sourceId:8 author:\"A\" answer:\"so\""));
        save(Record::QuestionAnswer,
             QStringLiteral("id:1 questionId:5 sourceId:8 author:\"B\" answer:\"thus\""));
        const QJsonArray both = m_client->ask(wire::answersWithQuestion(8)).toArray();
        QCOMPARE(both.size(), 2);
        QCOMPARE(both[0][QStringLiteral("question")].toString(), QString());
        QCOMPARE(both[1][QStringLiteral("question")].toString(), QStringLiteral("Why?"));
        QCOMPARE(both[1][QStringLiteral("answer")].toString(), QStringLiteral("so"));
        QCOMPARE(m_client->ask(wire::answersWithQuestion(8, 4)).toArray().size(), 1);

        save(Record::SourceMetadataKey,
             QStringLiteral("id:1 multipleChoice:0 sortValuesAlphabetically:1 key:\"age\""));
        save(Record::SourceMetadataValue, QStringLiteral("id:3 keyId:1 value:30"));
        save(Record::SourceMetadata, QStringLiteral("id:6 sourceId:8 keyId:1 valueId:3 author:\"A\""));
        QCOMPARE(ids(QStringLiteral("{sourceMetadataKeyQueryList(name:\"age\"){id}}")), (QList<int>{1}));
        QCOMPARE(ids(QStringLiteral("{sourceMetadataKeyQueryList(name:\"Age\"){id}}")), (QList<int>{}));
        const QJsonObject row =
            m_client->ask(wire::sourceMetadataListForReport(8)).toArray().at(0).toObject();
        QCOMPARE(row.value(QStringLiteral("key")).toString(), QStringLiteral("age"));
        QCOMPARE(row.value(QStringLiteral("value")), QJsonValue(30));
        QCOMPARE(row.value(QStringLiteral("valueId")).toInt(), 3);
        QVERIFY(row.contains(QStringLiteral("timestamp")));
    }

    void namesTouchedPlacesOnce() {
        const QString batch = QStringLiteral(
            "mutation{memoBatchCreateOrUpdate(memos:[{id:1 sourceId:3 questionId:1 content:\"a\" start:0 "
            "length:1},"
            "{id:2 sourceId:3 questionId:2 content:\"b\" start:0 length:1}]){sourceIds questionIds}}");
        QJsonObject places = m_client->ask(batch).toObject();
        QCOMPARE(places.value(QStringLiteral("sourceIds")).toArray(), (QJsonArray{3}));
        QCOMPARE(places.value(QStringLiteral("questionIds")).toArray(), (QJsonArray{1, 2}));
        QCOMPARE(list(Record::Memo).size(), 2);
        places = m_client
                     ->ask(QStringLiteral("mutation{memoBatchRemove(memos:[{id:2 sourceId:3},{id:77 "
                                          "sourceId:5}]){sourceIds questionIds}}"))
                     .toObject();
        QCOMPARE(places.value(QStringLiteral("sourceIds")).toArray(), (QJsonArray{3, 5}));
        QCOMPARE(places.value(QStringLiteral("questionIds")).toArray(), (QJsonArray{2}));
        QCOMPARE(list(Record::Memo).size(), 1);
    }

    void refusesABatchAsAWhole() {
        const QString error = m_client->errorOf(QStringLiteral(
            "mutation{highlightBatchCreateOrUpdate(highlights:[{id:1 kernoId:1 sourceId:1 questionId:1 "
            "start:0 length:1},"
            "{id:2 kernoId:\"x\" sourceId:1 questionId:1 start:0 length:1}]){sourceIds questionIds}}"));
        QVERIFY2(error.contains(QStringLiteral("kernoId")), qPrintable(error));
        QVERIFY(list(Record::Highlight).isEmpty());
    }
};

KERNOVA_TEST_MAIN(TestRecords)
#include "tst_records.moc"
