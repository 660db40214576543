#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/HttpHandler.h"
#include "link/ServiceConfig.h"
#include "link/Waiter.h"
#include "link/WebSocketHandler.h"
#include "tests_support/TestMain.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

namespace {

/// Answers each HTTP request with the next prepared body, or not at all when there is none left. Works on a
/// thread of its own.
class TinyHttpServer : public QObject {
public:
    TinyHttpServer() {
        moveToThread(&m_thread);
        m_thread.start();
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_server = new QTcpServer(this);
                m_server->listen(QHostAddress::LocalHost);
                connect(m_server, &QTcpServer::newConnection, this, &TinyHttpServer::onConnection);
            },
            Qt::BlockingQueuedConnection);
    }
    ~TinyHttpServer() override {
        QMetaObject::invokeMethod(
            this, [this] { delete m_server; }, Qt::BlockingQueuedConnection);
        m_thread.quit();
        m_thread.wait();
    }
    QUrl url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/v1").arg(m_server->serverPort())); }
    void prepare(const QByteArray& statusLine, const QByteArray& body) {
        QMutexLocker locker(&m_mutex);
        m_answers << "HTTP/1.1 " + statusLine +
                         "\r\nConnection: close\r\nContent-Length: " + QByteArray::number(body.size()) +
                         "\r\n\r\n" + body;
    }
    QByteArray lastRequest() {
        QMutexLocker locker(&m_mutex);
        return m_request;
    }

private:
    void onConnection() {
        QTcpSocket* socket = m_server->nextPendingConnection();
        auto request = std::make_shared<QByteArray>();
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, request] {
            *request += socket->readAll();
            // Headers and body may come apart; the bodies of these tests are small objects.
            if (!request->endsWith(request->startsWith("POST") ? "}" : "\r\n\r\n"))
                return;
            QMutexLocker locker(&m_mutex);
            m_request = *request;
            if (!m_answers.isEmpty())
                socket->write(m_answers.takeFirst());
        });
    }

    QThread m_thread;
    QTcpServer* m_server = nullptr;
    QMutex m_mutex;
    QList<QByteArray> m_answers;
    QByteArray m_request;
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
    void thereIsNoCloudToLogInTo();
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
    TinyHttpServer server;
    Connection link(calmTimings());
    server.prepare("200 OK", R"({"status":true,"ticket":"t"})");
    const Message got = link.getBlocking(link.httpRequestFor(server.url(), true));
    QCOMPARE(got.statusCode, 200);
    QVERIFY(got.status);
    QCOMPARE(got.json.value(QStringLiteral("ticket")).toString(), QStringLiteral("t"));
    QVERIFY(server.lastRequest().startsWith("GET /v1 "));
    QVERIFY(server.lastRequest().contains("User-Agent: KernovaClient/2.5.3 Windows\r\n"));
    QVERIFY(server.lastRequest().contains("Authorization: Bearer \r\n"));

    server.prepare("200 OK", R"({"status":false,"message":"wrong"})");
    const Message posted =
        link.postBlocking(link.httpRequestFor(server.url(), false), {{QStringLiteral("a"), 1}});
    QCOMPARE(posted.message, QStringLiteral("wrong"));
    QVERIFY(!posted.status);
    QVERIFY(server.lastRequest().contains("Content-Type: application/json\r\n"));
    QVERIFY(!server.lastRequest().contains("Authorization"));
}

void tst_Http::aCallWithoutAnswerEndsInTime() {
    TinyHttpServer server;
    LinkTimings timings = calmTimings();
    timings.http = 200;
    Connection link(timings);
    server.prepare("200 OK", R"({"status":true})");
    QVERIFY(link.getBlocking(link.httpRequestFor(server.url(), false)).status);
    QElapsedTimer time;
    time.start();
    const Message none = link.getBlocking(link.httpRequestFor(server.url(), false));
    QVERIFY(time.elapsed() >= timings.http);
    QCOMPARE(none.statusCode, -1);
    QVERIFY(!none.status);
    server.prepare("200 OK", R"({"status":true})");
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
    TinyHttpServer server;
    Connection link(calmTimings());
    server.prepare("404 Not Found", R"({"status":true,"message":"ignored","a":1})");
    const Message missing = link.getBlocking(link.httpRequestFor(server.url(), false));
    QCOMPARE(missing.statusCode, 404);
    QVERIFY(!missing.status);
    QVERIFY(missing.json.isEmpty());
    QVERIFY(missing.message.contains(QStringLiteral("Not Found")));
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
    QCOMPARE(config.ticketUrl(), QUrl(QStringLiteral("https://eu.example.org/v1/kernova/ticket")));
    QCOMPARE(config.socketUrl(QStringLiteral("a b")),
             QUrl(QStringLiteral("wss://eu.example.org/v1/kernova?ticket=a%20b")));
    config.setRegion({});
    config.setRegionalServiceMap({});
}

void tst_Http::thereIsNoCloudToLogInTo() {
    if (ServiceConfig::hasCloud())
        return;
    DataHelper helper(calmTimings());
    const Message message = helper.login(QStringLiteral("a@example.org"), QStringLiteral("x"));
    QVERIFY(!message.status);
    QVERIFY(!message.message.isEmpty());
    QVERIFY(helper.connection()->accessToken().isEmpty());
}

KERNOVA_TEST_MAIN(tst_Http)
#include "tst_http.moc"
