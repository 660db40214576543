#include "ServiceClient.h"
#include "store/Table.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"
#include "wire/QueryText.h"

using wire::Operation;
using wire::Record;

namespace {

const QString awkward = "quote \" back \\ line\nemoji \U0001F600 n\\n \u2028 tab\t end"_s;

/// A value for a column, other for each `variant`.
QString argumentFor(const Column& column, int variant) {
    switch (column.type) {
    case FieldType::Integer:
        return wire::argument(column.name, variant + 10);
    case FieldType::Boolean:
        return wire::argument(column.name, variant % 2);
    case FieldType::Color:
        return wire::argument(column.name, "#00ff%1"_s.arg(variant + 10));
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
        return "#00ff%1"_s.arg(variant + 10);
    default:
        return awkward + QString::number(variant);
    }
}

QString idArgument(const Table& table, int id) {
    return table.hasTextId() ? wire::argument(table.id().name, "key%1"_s.arg(id))
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
            found << (value.isObject() ? value.toObject().value("id"_s).toInt() : value.toInt());
        return found;
    }

private slots:
    void init() {
        m_service = std::make_unique<RealService>();
        QVERIFY(m_service->start());
        m_client = std::make_unique<ServiceClient>();
        QVERIFY(m_client->connectTo(m_service->port()));
        const QString file = path(QString::fromLatin1(QTest::currentTestFunction()) + ".krn"_s);
        QFile::remove(file);
        QVERIFY(m_client->open(file));
    }

    void storesEveryRecord_data() {
        QTest::addColumn<int>("record");
        for (Record record : wire::allRecords())
            addRow(qPrintable(wire::word(record)), static_cast<int>(record));
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
        save(Record::Kerno, "id:1 parentKernoId:3 color:\"#102030\" title:\"a\" description:\"b\" x:5 y:6"_s);
        const QJsonObject reply =
            m_client->ask(ServiceClient::saving(Record::Kerno, "id:1 title:\"c\""_s)).toObject();
        QCOMPARE(reply.value("title"_s).toString(), "c"_s);
        QCOMPARE(reply.value("description"_s).toString(), "b"_s);
        QCOMPARE(reply.value("parentKernoId"_s).toInt(), 3);
        QCOMPARE(reply.value("x"_s).toInt(), 5);
    }

    void keepsTextsExactly() {
        const QString half(QChar(0xD800));
        const QStringList texts{""_s,
                                QString(QChar(0xFEFF)) + QLatin1Char('a'),
                                QString(QChar(0xFFFE)) + QChar(0xFFFF),
                                QString(QChar(0)) + QLatin1Char('a'),
                                "'; DROP TABLE tbl_kerno; --"_s,
                                half + QLatin1Char('b')};
        for (QString text : texts) {
            // Written out by hand: a frame may hold any text as an escape.
            QString escaped;
            for (QChar c : text)
                escaped += "\\u%1"_s.arg(c.unicode(), 4, 16, QLatin1Char('0'));
            m_client->sendRaw("{\"auth\":\"\",\"msg_id\":\"i_900\",\"json_data\":\"mutation{"
                              "sourceCreateOrUpdate(id:1 title:\\\"%1\\\"){id title}}\"}"_s.arg(escaped));
            QCOMPARE(list(Record::Source).at(0).toObject().value("title"_s).toString(),
                     text.replace(half, QString(QChar(0xFFFD))));
        }
    }

    void givesScalarsBackAsTheirKind_data() {
        columns<QString, QJsonValue>({"text", "value"});
        addRow("whole", "5"_s, QJsonValue(5));
        addRow("real", "-2.25"_s, QJsonValue(-2.25));
        addRow("true", "true"_s, QJsonValue(true));
        addRow("text", "\"5\""_s, QJsonValue("5"_s));
        addRow("quotes", "\"a\\\"b\""_s, QJsonValue("a\"b"_s));
        addRow("null", "null"_s, QJsonValue());
    }

    void givesScalarsBackAsTheirKind() {
        FETCH(QString, text, QJsonValue, value);
        save(Record::Preference, "key:\"k\" value:"_s + text);
        save(Record::SourceMetadataValue, "id:1 keyId:1 value:"_s + text);
        const QJsonObject preference =
            m_client->ask("{preferenceQueryById(key:\"k\"){key value}}"_s).toObject();
        QCOMPARE(preference.value("value"_s), value);
        QCOMPARE(list(Record::SourceMetadataValue).at(0).toObject().value("value"_s), value);
    }

    void ordersAndFilters() {
        save(Record::Kerno, "id:9 parentKernoId:-1 color:\"#ff0000\""_s);
        save(Record::Kerno, "id:2 parentKernoId:9 color:\"#00ff00\""_s);
        const char* rows[] = {"id:1 kernoId:2 sourceId:1 questionId:1 start:5 length:5",
                              "id:2 kernoId:2 sourceId:1 questionId:2 start:0 length:3",
                              "id:3 kernoId:9 sourceId:1 questionId:1 start:5 length:9",
                              "id:4 kernoId:9 sourceId:2 questionId:1 start:5 length:9",
                              "id:5 kernoId:7 sourceId:1 questionId:1 start:20 length:1"};
        for (const char* row : rows)
            save(Record::Highlight, QString::fromLatin1(row));
        QCOMPARE(ids("{kernoQueryList{id}}"_s), (QList<int>{2, 9}));
        QCOMPARE(ids("{kernoQueryList(parentKernoId:9){id}}"_s), (QList<int>{2}));
        QCOMPARE(ids("{highlightQueryList{id}}"_s), (QList<int>{2, 3, 4, 1, 5}));
        QCOMPARE(ids("{highlightQueryList(sourceId:1 questionId:1){id}}"_s), (QList<int>{3, 1, 5}));
        QCOMPARE(ids("{highlightQueryListBySourceQuestionAndKernos(sourceId:1 questionId:1 "
                     "kernoIds:\"2,7\"){id}}"_s),
                 (QList<int>{1, 5}));
        const QString window =
            "{highlightQueryListWithOffset(sourceId:1 questionId:1 sourceOffset:%1 sourceLength:%2){id}}"_s;
        QCOMPARE(ids(window.arg(0).arg(5)), (QList<int>{}));
        QCOMPARE(ids(window.arg(0).arg(6)), (QList<int>{3, 1}));
        QCOMPARE(ids(window.arg(10).arg(10)), (QList<int>{3}));
        QCOMPARE(ids(window.arg(13).arg(-1)), (QList<int>{3, 5}));
        QCOMPARE(ids(window.arg(21).arg(-1)), (QList<int>{}));
        QCOMPARE(ids("{highlightQueryListWithOffset(sourceId:1 questionId:1 sourceOffset:13){id}}"_s),
                 (QList<int>{3, 5}));

        // The colour is that of the kerno as it is now; a highlight without its kerno is still whole.
        save(Record::Kerno, "id:2 color:\"#0000ff\""_s);
        const QString colors = "{highlightQueryList(sourceId:1){id color}}"_s;
        QHash<int, QString> found;
        for (const QJsonValue& value : m_client->ask(colors).toArray())
            found.insert(value["id"_s].toInt(), value["color"_s].toString());
        QCOMPARE(found, (QHash<int, QString>{
                            {1, "#0000ff"_s}, {2, "#0000ff"_s}, {3, "#ff0000"_s}, {5, "#000000"_s}}));
    }

    void joinsQuestions() {
        save(Record::Question, "id:4 question:\"Why?\" questionOrder:1"_s);
        // An answer may come before its source, and before its question.
        save(Record::QuestionAnswer, "id:2 questionId:4 sourceId:8 author:\"A\" answer:\"so\""_s);
        save(Record::QuestionAnswer, "id:1 questionId:5 sourceId:8 author:\"B\" answer:\"thus\""_s);
        const QJsonArray both = m_client->ask(wire::answersWithQuestion(8)).toArray();
        QCOMPARE(both.size(), 2);
        QCOMPARE(both[0]["question"_s].toString(), QString());
        QCOMPARE(both[1]["question"_s].toString(), "Why?"_s);
        QCOMPARE(both[1]["answer"_s].toString(), "so"_s);
        QCOMPARE(m_client->ask(wire::answersWithQuestion(8, 4)).toArray().size(), 1);
    }

    void namesTouchedPlacesOnce() {
        const QString batch =
            "mutation{memoBatchCreateOrUpdate(memos:[{id:1 sourceId:3 questionId:1 content:\"a\" start:0 "
            "length:1},"
            "{id:2 sourceId:3 questionId:2 content:\"b\" start:0 length:1}]){sourceIds questionIds}}"_s;
        QJsonObject places = m_client->ask(batch).toObject();
        QCOMPARE(places.value("sourceIds"_s).toArray(), (QJsonArray{3}));
        QCOMPARE(places.value("questionIds"_s).toArray(), (QJsonArray{1, 2}));
        QCOMPARE(list(Record::Memo).size(), 2);
        places = m_client
                     ->ask("mutation{memoBatchRemove(memos:[{id:2 sourceId:3},{id:77 "
                           "sourceId:5}]){sourceIds questionIds}}"_s)
                     .toObject();
        QCOMPARE(places.value("sourceIds"_s).toArray(), (QJsonArray{3, 5}));
        QCOMPARE(places.value("questionIds"_s).toArray(), (QJsonArray{2}));
        QCOMPARE(list(Record::Memo).size(), 1);
    }

    void answersWithTheRecordsOfATable() {
        const QString word = "source"_s;
        QCOMPARE(m_client->ask(wire::reserveIds(word, 5)), QJsonValue(5));
        QCOMPARE(m_client->ask(wire::maxId(word, true)), QJsonValue(6));
        QVERIFY(m_client->errorOf(wire::reserveIds(word, 0)).contains("from 1 to"_s));
        const QJsonObject saved =
            m_client
                ->ask(
                    "mutation{sourceBatchCreateOrUpdate(sources:[{id:2 title:\"a\"},{id:9 title:\"b\"},{id:2 "
                    "title:\"c\"}]){id title}}"_s)
                .toObject();
        const auto source = [](int id, const QString& title) {
            return QJsonObject{{"id"_s, id}, {"title"_s, title}};
        };
        QCOMPARE(saved, (QJsonObject{{"sources"_s,
                                      QJsonArray{source(2, "a"_s), source(9, "b"_s), source(2, "c"_s)}}}));
        const QJsonArray before = list(Record::Source);
        const QJsonObject removed =
            m_client->ask("mutation{sourceBatchRemove(sources:[{id:9},{id:77}]){id}}"_s).toObject();
        QCOMPARE(removed["sources"_s].toArray().size(), 2);
        QCOMPARE(ids("{sourceQueryList{id}}"_s), QList<int>{2});
        save(Record::Source, "id:9 title:\"b\""_s);
        QCOMPARE(list(Record::Source).at(1)["timestamp"_s], before.at(1)["timestamp"_s]);
        QCOMPARE(m_client->ask(wire::reserveIds(word, 5)), QJsonValue(14));
    }

    void refusesABatchAsAWhole() {
        const QString error = m_client->errorOf(
            "mutation{highlightBatchCreateOrUpdate(highlights:[{id:1 kernoId:1 sourceId:1 questionId:1 "
            "start:0 length:1},"
            "{id:2 kernoId:\"x\" sourceId:1 questionId:1 start:0 length:1}]){sourceIds questionIds}}"_s);
        QVERIFY2(error.contains("kernoId"_s), qPrintable(error));
        QVERIFY(list(Record::Highlight).isEmpty());
    }
};

KERNOVA_TEST_MAIN(TestRecords)
#include "tst_records.moc"
