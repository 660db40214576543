#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/WebSocketHandler.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"
#include "wire/Operations.h"

/// What the socket makes of the frames that the service sends.
class tst_Frames : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_service = std::make_unique<ScriptedService>();
        m_link = std::make_unique<Connection>();
        m_log = std::make_unique<SignalLog>();
        m_ids.clear();
        QVERIFY(m_link->connect(false));
        WebSocketHandler* handler = m_link->webSocketHandler();
        m_log->listen(handler, &WebSocketHandler::messageReceived, "messageReceived"_s);
        m_log->listen(handler, &WebSocketHandler::errorOccurred, "errorOccurred"_s);
        m_log->listen(handler, &WebSocketHandler::connectionCountChanged, "connectionCountChanged"_s);
        QObject::connect(handler, &WebSocketHandler::accessChanged, m_log.get(),
                         [this](const QString& access) { m_log->names << "accessChanged "_s + access; });
        QObject::connect(handler, &WebSocketHandler::messageReceived, m_log.get(),
                         [this](int id) { m_ids << id; });
    }

    void cleanup() {
        m_link.reset();
        m_service.reset();
        m_log.reset();
    }

    void onlyTheFirstMemberCounts_data() {
        columns<QJsonObject, int, QStringList>({"payload", "status", "expected"});
        const QJsonArray errors{QJsonObject{{"message"_s, "no"_s}}};
        const QJsonObject kerno{{"kernoRemove"_s, QJsonObject()}, {"kernoCreateOrUpdate"_s, QJsonObject()}};
        const QString message = "messageReceived"_s;
        QJsonObject payload{{"data"_s, kerno}};
        addRow("two notifications", payload, 200, QStringList{message, "kernoSaved"});
        payload.insert("access_privilege"_s, "read"_s);
        addRow("access before data", payload, 200, QStringList{message, "accessChanged read"});
        payload.insert("connection_count"_s, 2);
        addRow("count before access", payload, 200, QStringList{message, "connectionCountChanged"});
        payload.insert("errors"_s, errors);
        addRow("errors before all", payload, 500, QStringList{message, "errorOccurred"});
        addRow("revoked", payload, 403, QStringList{"accessChanged revoked"});
        addRow("nothing known", QJsonObject{{"other"_s, 1}}, 200, QStringList{message});
    }

    void onlyTheFirstMemberCounts() {
        FETCH(QJsonObject, payload, int, status, QStringList, expected);
        m_log->listen(m_link->webSocketHandler(), &WebSocketHandler::kernoSaved, "kernoSaved"_s);
        m_log->listen(m_link->webSocketHandler(), &WebSocketHandler::kernoDeleted, "kernoDeleted"_s);
        m_service->push(payload, status);
        m_service->push({{"access_privilege"_s, "owner"_s}});
        QVERIFY(m_log->waitFor("accessChanged owner"_s));
        QCOMPARE(m_log->names, expected + QStringList({"messageReceived", "accessChanged owner"}));
    }

    void aFrameThatCannotBeReadIsAnEmptyReply() {
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

    void aLongFrameArrivesWhole() {
        constexpr int length = 10 * 1000 * 1000;
        const QString answer(length, QChar(0xe4));
        m_service->on("sourceQueryList"_s, [&](ScriptedClient& client, const ScriptedRequest& request) {
            client.reply(request, {{"text"_s, answer}});
        });
        const ReplyBase reply = m_link->request("{sourceQueryList{id}}"_s);
        QVERIFY(reply.data().value("text"_s).toString() == answer);
    }

private:
    std::unique_ptr<ScriptedService> m_service;
    std::unique_ptr<Connection> m_link;
    std::unique_ptr<SignalLog> m_log;
    QList<int> m_ids;
};

KERNOVA_TEST_MAIN(tst_Frames)
#include "tst_frames.moc"
