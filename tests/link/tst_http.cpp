#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/HttpHandler.h"
#include "link/ServiceConfig.h"
#include "link/Waiter.h"
#include "link/WebSocketHandler.h"
#include "tests_support/ScriptedHttp.h"
#include "tests_support/TestMain.h"

#include <QElapsedTimer>

namespace {

/// Answers every request in the same way, until told otherwise.
class OneAnswer {
public:
    OneAnswer() : m_server([this](const HttpAsked&) { return answer; }) {}

    QUrl url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/v1").arg(m_server.port())); }
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
    void bodiesAreSorted_data();
    void bodiesAreSorted();
    void aMessageGoesToScreensAsAMap();
    void callsReachTheServer();
    void aCallWithoutAnswerEndsInTime();
    void aLateAnswerIsNotTheNextCalls();
    void failuresAreMessages();
    void endpoints_data();
    void endpoints();
    void regionalAddresses();
};

void tst_Http::bodiesAreSorted_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("status");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QJsonObject>("json");
    QTest::newRow("all") << QByteArray(R"({"status":true,"message":"m","a":1})") << true << "m"
                         << QJsonObject{{QStringLiteral("a"), 1}};
    QTest::newRow("wrong types") << QByteArray(R"({"status":"true","message":3})") << false << ""
                                 << QJsonObject();
    QTest::newRow("no JSON") << QByteArray("<html>") << false << "" << QJsonObject();
    QTest::newRow("nothing") << QByteArray() << false << "" << QJsonObject();
}

void tst_Http::bodiesAreSorted() {
    QFETCH(QByteArray, body);
    const Message message = Message::fromBody(200, body);
    QCOMPARE(message.statusCode, 200);
    QTEST(message.status, "status");
    QTEST(message.message, "message");
    QTEST(message.json, "json");
}

void tst_Http::aMessageGoesToScreensAsAMap() {
    const QVariantMap map =
        Message{404, false, QStringLiteral("gone"), {{QStringLiteral("a"), 1}}}.toVariantMap();
    QCOMPARE(map, (QVariantMap{{QStringLiteral("status_code"), 404},
                               {QStringLiteral("status"), false},
                               {QStringLiteral("message"), QStringLiteral("gone")},
                               {QStringLiteral("value"), QStringLiteral("{\"a\":1}")}}));
}

void tst_Http::callsReachTheServer() {
    OneAnswer server;
    Connection link(calmTimings());
    server.answer.body = R"({"status":true,"ticket":"t"})";
    const Message got = link.getBlocking(link.httpRequestFor(server.url(), true));
    QCOMPARE(got.statusCode, 200);
    QVERIFY(got.status);
    QCOMPARE(got.json.value(QStringLiteral("ticket")).toString(), QStringLiteral("t"));
    QCOMPARE(server.lastAsked().verb, QByteArray("GET"));
    QCOMPARE(server.lastAsked().header("User-Agent"), QByteArray("KernovaClient/2.5.3 Windows"));
    QCOMPARE(server.lastAsked().header("Authorization"), QByteArray("Bearer"));

    server.answer.body = R"({"status":false,"message":"wrong"})";
    const Message posted =
        link.postBlocking(link.httpRequestFor(server.url(), false), {{QStringLiteral("a"), 1}});
    QCOMPARE(posted.message, QStringLiteral("wrong"));
    QVERIFY(!posted.status);
    QCOMPARE(server.lastAsked().body, QByteArray(R"({"a":1})"));
    QCOMPARE(server.lastAsked().header("Content-Type"), QByteArray("application/json"));
    QVERIFY(!server.lastAsked().head.contains("Authorization"));
}

void tst_Http::aCallWithoutAnswerEndsInTime() {
    OneAnswer server;
    LinkTimings timings = calmTimings();
    timings.http = 200;
    Connection link(timings);
    server.answer = {200, R"({"status":true})"};
    QVERIFY(link.getBlocking(link.httpRequestFor(server.url(), false)).status);
    server.answer.silent = true;
    QElapsedTimer time;
    time.start();
    const Message none = link.getBlocking(link.httpRequestFor(server.url(), false));
    QVERIFY(time.elapsed() >= timings.http);
    QCOMPARE(none.statusCode, -1);
    QVERIFY(!none.status);
    server.answer.silent = false;
    QVERIFY(link.getBlocking(link.httpRequestFor(server.url(), false)).status);
}

void tst_Http::aLateAnswerIsNotTheNextCalls() {
    WebSocketHandler socket(calmTimings());
    HttpHandler http;
    Waiter waiter(&socket, &http);
    const int first = waiter.expectMessage();
    QCOMPARE(waiter.awaitMessage(1).statusCode, -1);
    const int second = waiter.expectMessage();
    emit http.finished({200, true, QStringLiteral("late"), {}}, first);
    emit http.finished({200, true, QStringLiteral("right"), {}}, second);
    QCOMPARE(waiter.awaitMessage(0).message, QStringLiteral("right"));
}

void tst_Http::failuresAreMessages() {
    OneAnswer server;
    Connection link(calmTimings());
    server.answer = {404, R"({"status":true,"message":"ignored","a":1})"};
    const Message missing = link.getBlocking(link.httpRequestFor(server.url(), false));
    QCOMPARE(missing.statusCode, 404);
    QVERIFY(!missing.status);
    QVERIFY(missing.json.isEmpty());
    QVERIFY(!missing.message.contains(QStringLiteral("ignored")) && !missing.message.isEmpty());
    const QUrl nobody(QStringLiteral("http://127.0.0.1:1/"));
    const Message refused = link.getBlocking(link.httpRequestFor(nobody, false));
    QCOMPARE(refused.statusCode, 0);
    QVERIFY(!refused.status);
    QVERIFY(!refused.message.isEmpty());
}

void tst_Http::endpoints_data() {
    QTest::addColumn<int>("service");
    QTest::addColumn<QString>("test");
    QTest::addColumn<QString>("staging");
    QTest::addColumn<QString>("production");
    using S = ServiceConfig::Service;
    const auto row = [](const char* name, S service, const char* test, const char* staging,
                        const char* production) {
        QTest::newRow(name) << static_cast<int>(service) << test << staging << production;
    };
    row("auth", S::Auth, "http://localhost:8000/v1", "https://h/auth", "https://h/cloud/auth/v1");
    row("project", S::Project, "http://localhost:8003/v1/projects", "https://h/projects",
        "https://h/cloud/project/v1/projects");
    row("version", S::Version, "http://localhost:8004/version", "https://h/cloud/version/",
        "https://h/cloud/version/");
    row("service", S::DataService, "http://localhost:8002/v1/kernova", "https://h/v1/kernova",
        "https://h/cloud/{region}/service/v1/kernova");
    row("socket", S::Socket, "ws://localhost:8002/v1/kernova", "wss://h:8002/v1/kernova",
        "wss://h/cloud/{region}/service/connect");
}

void tst_Http::endpoints() {
    QFETCH(int, service);
    const auto url = [service](ServiceConfig::Variant variant) {
        return ServiceConfig::baseUrl(static_cast<ServiceConfig::Service>(service), variant,
                                      QStringLiteral("h"));
    };
    QTEST(url(ServiceConfig::Variant::Test), "test");
    QTEST(url(ServiceConfig::Variant::Staging), "staging");
    QTEST(url(ServiceConfig::Variant::Production), "production");
}

void tst_Http::regionalAddresses() {
    ServiceConfig& config = ServiceConfig::instance();
    config.setRegionalServiceMap({{QStringLiteral("euv2"), QStringLiteral("eu.example.org")}});
    config.setRegion(QStringLiteral("EU"));
    QCOMPARE(config.url(CloudCall::Ticket), QUrl(QStringLiteral("https://eu.example.org/v1/kernova/ticket")));
    QCOMPARE(config.socketUrl(QStringLiteral("a b")),
             QUrl(QStringLiteral("wss://eu.example.org/v1/kernova?ticket=a%20b")));
    config.setRegion({});
    config.setRegionalServiceMap({});
}

KERNOVA_TEST_MAIN(tst_Http)
#include "tst_http.moc"
