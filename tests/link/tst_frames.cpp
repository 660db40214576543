#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/WebSocketHandler.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"
#include "wire/Operations.h"

#include <QMetaMethod>
#include <QSignalSpy>

/// What the socket makes of the frames that the service sends.
class tst_Frames : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void eachKeyFiresItsOwnSignal_data();
    void eachKeyFiresItsOwnSignal();
    void onlyTheFirstMemberCounts_data();
    void onlyTheFirstMemberCounts();
    void aFrameThatCannotBeReadIsAnEmptyReply();
    void aLongFrameArrivesWhole();

private:
    std::unique_ptr<ScriptedService> m_service;
    std::unique_ptr<Connection> m_link;
    std::unique_ptr<SignalLog> m_log;
    QList<int> m_ids;
    QJsonObject m_notified;
};

void tst_Frames::init() {
    m_service = std::make_unique<ScriptedService>();
    m_link = std::make_unique<Connection>();
    m_log = std::make_unique<SignalLog>();
    m_ids.clear();
    QVERIFY(m_link->connect(false));
    WebSocketHandler* handler = m_link->webSocketHandler();
    m_log->listen(handler, &WebSocketHandler::messageReceived, QStringLiteral("messageReceived"));
    m_log->listen(handler, &WebSocketHandler::errorOccurred, QStringLiteral("errorOccurred"));
    m_log->listen(handler, &WebSocketHandler::connectionCountChanged,
                  QStringLiteral("connectionCountChanged"));
    QObject::connect(handler, &WebSocketHandler::accessChanged, m_log.get(), [this](const QString& access) {
        m_log->names << QStringLiteral("accessChanged ") + access;
    });
    QObject::connect(handler, &WebSocketHandler::messageReceived, m_log.get(),
                     [this](int id) { m_ids << id; });
}

void tst_Frames::cleanup() {
    m_link.reset();
    m_service.reset();
    m_log.reset();
}

void tst_Frames::eachKeyFiresItsOwnSignal_data() {
    // Written out, so that the list in the code has another one to be compared with.
    const QList<QPair<const char*, const char*>> rows{
        {"kernoCreateOrUpdate", "kernoSaved"},
        {"kernoRemove", "kernoDeleted"},
        {"groupCreateOrUpdate", "groupSaved"},
        {"groupRemove", "groupDeleted"},
        {"groupKernoCreateOrUpdate", "kernoGroupSaved"},
        {"groupKernoRemove", "kernoGroupDeleted"},
        {"sourceCreateOrUpdate", "sourceSaved"},
        {"sourceRemove", "sourceDeleted"},
        {"highlightCreateOrUpdate", "highlightSaved"},
        {"highlightRemove", "highlightDeleted"},
        {"highlightBatchCreateOrUpdate", "batchHighlightsSaved"},
        {"highlightBatchRemove", "batchHighlightsDeleted"},
        {"memoCreateOrUpdate", "memoSaved"},
        {"memoRemove", "memoDeleted"},
        {"memoBatchCreateOrUpdate", "batchMemosSaved"},
        {"memoBatchRemove", "batchMemosDeleted"},
        {"questionCreateOrUpdate", "questionSaved"},
        {"questionRemove", "questionDeleted"},
        {"questionAnswerCreateOrUpdate", "answerSaved"},
        {"questionAnswerRemove", "answerDeleted"},
        {"sourceMetadataCreateOrUpdate", "metadataSaved"},
        {"sourceMetadataRemove", "metadataDeleted"},
        {"sourceMetadataKeyCreateOrUpdate", "metadataKeySaved"},
        {"sourceMetadataKeyRemove", "metadataKeyDeleted"},
        {"sourceMetadataValueCreateOrUpdate", "metadataValueSaved"},
        {"sourceMetadataValueRemove", "metadataValueDeleted"},
        {"chatMessageCreateOrUpdate", "chatMessageSaved"},
        {"chatMessageRemove", "chatMessageDeleted"},
        {"preferenceCreateOrUpdate", ""},
        {"kernoShortcutKeyCreateOrUpdate", ""},
        {"kernoQueryList", ""}};
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("signal");
    for (const auto& row : rows)
        QTest::newRow(row.first) << row.first << row.second;
    // Of several keys in a frame the first of the list counts.
    for (size_t i = 0; i < wire::notificationTable().size(); ++i)
        QCOMPARE(wire::notificationTable()[i].key, QLatin1String(rows[static_cast<int>(i)].first));
}

void tst_Frames::eachKeyFiresItsOwnSignal() {
    QFETCH(QString, key);
    QFETCH(QString, signal);
    // Every signal with one JSON object is watched.
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    const QMetaObject& meta = WebSocketHandler::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() == QMetaMethod::Signal && method.parameterCount() == 1 &&
            method.parameterType(0) == QMetaType::QJsonObject)
            spies.push_back(std::make_unique<QSignalSpy>(m_link->webSocketHandler(), method));
    }
    QCOMPARE(spies.size(), wire::notificationTable().size());
    const QJsonObject record{{QStringLiteral("id"), 7}};
    m_service->push({{QStringLiteral("data"), QJsonObject{{key, record}}}});
    QVERIFY(m_log->waitFor(QStringLiteral("messageReceived")));
    m_service->push({{QStringLiteral("connection_count"), 1}});
    QVERIFY(m_log->waitFor(QStringLiteral("connectionCountChanged")));
    QStringList fired;
    for (const auto& spy : spies) {
        for (const QList<QVariant>& arguments : *spy) {
            fired << QString::fromLatin1(spy->signal().split('(').first());
            QCOMPARE(arguments.first().toJsonObject(), record);
        }
    }
    QCOMPARE(fired, signal.isEmpty() ? QStringList() : QStringList{signal});
    QCOMPARE(m_ids, (QList<int>{0, 0}));
}

void tst_Frames::onlyTheFirstMemberCounts_data() {
    QTest::addColumn<QJsonObject>("payload");
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("expected");
    const QJsonArray errors{QJsonObject{{QStringLiteral("message"), QStringLiteral("no")}}};
    const QJsonObject kerno{{QStringLiteral("kernoRemove"), QJsonObject()},
                            {QStringLiteral("kernoCreateOrUpdate"), QJsonObject()}};
    const QString message = QStringLiteral("messageReceived");
    QJsonObject payload{{QStringLiteral("data"), kerno}};
    QTest::newRow("two notifications") << payload << 200 << QStringList{message, "kernoSaved"};
    payload.insert(QStringLiteral("access_privilege"), QStringLiteral("read"));
    QTest::newRow("access before data") << payload << 200 << QStringList{message, "accessChanged read"};
    payload.insert(QStringLiteral("connection_count"), 2);
    QTest::newRow("count before access") << payload << 200 << QStringList{message, "connectionCountChanged"};
    payload.insert(QStringLiteral("errors"), errors);
    QTest::newRow("errors before all") << payload << 500 << QStringList{message, "errorOccurred"};
    QTest::newRow("revoked") << payload << 403 << QStringList{"accessChanged revoked"};
    QTest::newRow("nothing known") << QJsonObject{{QStringLiteral("other"), 1}} << 200
                                   << QStringList{message};
}

void tst_Frames::onlyTheFirstMemberCounts() {
    QFETCH(QJsonObject, payload);
    QFETCH(int, status);
    QFETCH(QStringList, expected);
    m_log->listen(m_link->webSocketHandler(), &WebSocketHandler::kernoSaved, QStringLiteral("kernoSaved"));
    m_log->listen(m_link->webSocketHandler(), &WebSocketHandler::kernoDeleted,
                  QStringLiteral("kernoDeleted"));
    m_service->push(payload, status);
    m_service->push({{QStringLiteral("access_privilege"), QStringLiteral("owner")}});
    QVERIFY(m_log->waitFor(QStringLiteral("accessChanged owner")));
    QCOMPARE(m_log->names, expected + QStringList({"messageReceived", "accessChanged owner"}));
}

void tst_Frames::aFrameThatCannotBeReadIsAnEmptyReply() {
    const char* const notJson = "^Invalid JSON";
    const struct {
        const char* text;
        const char* warning;
        int id;
    } rows[]{{R"({"msg_id":)", notJson, 0},
             {" ", notJson, 0},
             {"[1]", "^Document is not an object", 0},
             {R"({"msg_id":"x"})", nullptr, 0},
             {R"({"msg_id":"i_12"})", nullptr, 12},
             {R"({"msg_id":3,"status":"a","json_data":[]})", nullptr, 0}};
    for (const auto& row : rows) {
        if (row.warning)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1String(row.warning)));
        m_ids.clear();
        m_service->pushText(QLatin1String(row.text));
        QVERIFY(waitFor([&] { return !m_ids.isEmpty(); }));
        QCOMPARE(m_ids, QList<int>{row.id});
        QVERIFY(m_link->isConnected());
    }
}

void tst_Frames::aLongFrameArrivesWhole() {
    constexpr int length = 40 * 1000 * 1000;
    const QString answer(length, QChar(0xe4));
    m_service->on(QStringLiteral("sourceQueryList"),
                  [&](ScriptedClient& client, const ScriptedRequest& request) {
                      client.reply(request, {{QStringLiteral("text"), answer}});
                  });
    const ReplyBase reply = m_link->request(QStringLiteral("{sourceQueryList{id}}"));
    QVERIFY(reply.data().value(QStringLiteral("text")).toString() == answer);
}

KERNOVA_TEST_MAIN(tst_Frames)
#include "tst_frames.moc"
