#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/HttpHandler.h"
#include "link/ServiceConfig.h"
#include "link/Waiter.h"
#include "link/WebSocketHandler.h"
#include "tests_support/ScriptedHttp.h"
#include "tests_support/TestMain.h"

namespace {

/// Answers every request in the same way, until told otherwise.
class OneAnswer {
public:
    OneAnswer() : m_server([this](const HttpAsked&) { return answer; }) {}

    QUrl url() const { return QUrl("http://127.0.0.1:%1/v1"_s.arg(m_server.port())); }
    HttpAsked lastAsked() const { return m_server.asked().value(m_server.asked().size() - 1); }

    HttpAnswer answer;  ///< changed between two requests only

private:
    ScriptedHttp m_server;
};

}  // namespace

/// Blocking HTTP calls and where they go.
class tst_Http : public QObject {
    Q_OBJECT

private slots:
    void callsReachTheServer() {
        OneAnswer server;
        Connection link(calmTimings());
        server.answer.body = R"({"status":true,"ticket":"t"})";
        const Message got = link.getBlocking(link.httpRequestFor(server.url(), true));
        QCOMPARE(got.statusCode, 200);
        QVERIFY(got.status);
        QCOMPARE(got.json.value("ticket"_s).toString(), "t"_s);
        QCOMPARE(server.lastAsked().verb, QByteArray("GET"));
        QCOMPARE(server.lastAsked().header("User-Agent"), QByteArray("KernovaClient/2.5.3 Windows"));
        QCOMPARE(server.lastAsked().header("Authorization"), QByteArray("Bearer"));

        server.answer.body = R"({"status":false,"message":"wrong"})";
        const Message posted = link.postBlocking(link.httpRequestFor(server.url(), false), {{"a"_s, 1}});
        QCOMPARE(posted.message, "wrong"_s);
        QVERIFY(!posted.status);
        QCOMPARE(server.lastAsked().body, QByteArray(R"({"a":1})"));
        QCOMPARE(server.lastAsked().header("Content-Type"), QByteArray("application/json"));
        QVERIFY(!server.lastAsked().head.contains("Authorization"));
    }

    void aLateAnswerIsNotTheNextCalls() {
        WebSocketHandler socket(calmTimings());
        HttpHandler http;
        Waiter waiter(&socket, &http);
        const int first = waiter.expectMessage();
        QCOMPARE(waiter.awaitMessage(1).statusCode, -1);
        const int second = waiter.expectMessage();
        emit http.finished({200, true, "late"_s, {}}, first);
        emit http.finished({200, true, "right"_s, {}}, second);
        QCOMPARE(waiter.awaitMessage(0).message, "right"_s);
    }

    void failuresAreMessages() {
        OneAnswer server;
        Connection link(calmTimings());
        server.answer = {404, R"({"status":true,"message":"ignored","a":1})"};
        const Message missing = link.getBlocking(link.httpRequestFor(server.url(), false));
        QCOMPARE(missing.statusCode, 404);
        QVERIFY(!missing.status);
        QVERIFY(missing.json.isEmpty());
        QVERIFY(!missing.message.contains("ignored"_s) && !missing.message.isEmpty());
        for (const char* body : {R"({"status":"true","message":3})", "<html>", ""}) {
            server.answer = {200, body};
            const Message odd = link.getBlocking(link.httpRequestFor(server.url(), false));
            QVERIFY(odd.statusCode == 200 && !odd.status && odd.message.isEmpty() && odd.json.isEmpty());
        }
        const QUrl nobody("http://127.0.0.1:1/"_s);
        const Message refused = link.getBlocking(link.httpRequestFor(nobody, false));
        QCOMPARE(refused.statusCode, 0);
        QVERIFY(!refused.status);
        QVERIFY(!refused.message.isEmpty());
    }
};

KERNOVA_TEST_MAIN(tst_Http)
#include "tst_http.moc"
