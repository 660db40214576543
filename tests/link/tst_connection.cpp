#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/WebSocketHandler.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

#include <QTcpServer>

namespace {

const QString operation = "maxHighlightsCount"_s;
const QString text = "{maxHighlightsCount}"_s;

int value(const ReplyBase& reply) {
    return reply.data().value(operation).toInt(-1);
}

}  // namespace

/// The life of the link and its requests, against a service that misbehaves.
class tst_Connection : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_service = std::make_unique<ScriptedService>();
        m_service->answer(operation, 5);
        m_link = std::make_unique<Connection>(calmTimings());
        listen();
    }

    void cleanup() {
        m_link.reset();
        m_service.reset();
        m_log.reset();
    }

    void aLostLinkComesBack() {
        QVERIFY(m_link->connect(false));
        m_service->abortAll();
        QVERIFY(m_log->waitFor("reconnected"_s));
        QCOMPARE(m_log->names, QStringList({"connected", "disconnected", "reconnected"}));
        QVERIFY(m_link->isConnected());
        m_service->forgetRequests();
        QCOMPARE(value(m_link->request(text)), 5);
        QCOMPARE(m_service->requests().first().messageId, 1);
        // The timer has stopped: the link isn't opened again and again.
        QTest::qWait(4 * calmTimings().reconnect);
        QCOMPARE(m_log->names.size(), 3);
    }

    void aLinkThatWasClosedByUsStaysClosed() {
        QVERIFY(m_link->connect(false));
        m_link->disconnect(true);
        QVERIFY(m_log->waitFor("disconnected"_s));
        QVERIFY(!m_link->isConnected());
        QTest::qWait(4 * calmTimings().reconnect);
        QCOMPARE(m_log->names, QStringList({"connected", "disconnected"}));
        QVERIFY(m_link->connect(false));
        QCOMPARE(m_log->names.last(), "connected"_s);
    }

    void anotherSessionEndsTheLinkForGood() {
        QVERIFY(m_link->connect(false));
        m_service->closeAll(4000);
        QVERIFY(m_log->waitFor("closedDueToAnotherSession"_s));
        QTest::qWait(4 * calmTimings().reconnect);
        QCOMPARE(m_log->names, QStringList({"connected", "closedDueToAnotherSession"}));
        QVERIFY(!m_link->isConnected());
    }

    void aRefusedOrSilentHandshakeEndsTheConnect_data() {
        QTest::addColumn<bool>("silent");
        addRow("refused", false);
        addRow("silent", true);
    }

    void aRefusedOrSilentHandshakeEndsTheConnect() {
        QFETCH(bool, silent);
        LinkTimings timings = shortTimings();
        if (silent)
            timings.start = 400;
        m_link = std::make_unique<Connection>(timings);
        QTcpServer mute;
        if (silent) {
            QVERIFY(mute.listen(QHostAddress::LocalHost));
            const QString body = "echo 'Port: %1'\nexec cat > /dev/null"_s.arg(mute.serverPort());
            qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, "mute"_s, body).toUtf8());
        } else {
            m_service->setRefusing(true);
        }
        QVERIFY(!m_link->connect(false));
    }

    void aLatePongRetainsTheLink() {
        LinkTimings timings = shortTimings();
        timings.disconnect = 60000;
        m_link = std::make_unique<Connection>(timings);
        listen();
        QVERIFY(m_link->connect(false));
        m_service->stall();
        QVERIFY(m_log->waitFor("connectionLost"_s));
        QVERIFY(!m_link->isConnected());
        m_service->resume();
        QVERIFY(waitFor([&] { return m_link->isConnected(); }));
        QVERIFY(waitFor([&] { return m_log->names.size() >= 3; }));
        QCOMPARE(m_log->names.mid(0, 3), QStringList({"connected", "connectionLost", "connected"}));
        QVERIFY(!m_log->names.contains("disconnected"_s));
        QCOMPARE(m_service->clientCount(), 1);
    }

    // As while a service checks a large file before it answers.
    void anyFrameIsASignOfLife() {
        LinkTimings timings = calmTimings();
        timings.ping = 50;
        timings.pong = 40;
        m_link = std::make_unique<Connection>(timings);
        listen();
        m_service->on(operation, [](ScriptedClient& client, const ScriptedRequest& request) {
            QThread::msleep(400);
            client.reply(request, {{operation, 5}});
        });
        QVERIFY(m_link->connect(false));
        QCOMPARE(value(m_link->request(text)), 5);
        QVERIFY(m_link->isConnected());
        QVERIFY(waitFor([&] { return m_log->names.size() >= 3; }));
        QCOMPARE(m_log->names.mid(0, 3), QStringList({"connected", "connectionLost", "connected"}));
    }

    // The former link has pinged and ends; its bound on the pong would run out before the new link's first
    // ping.
    void theFormerLinksPongIsNotAwaited() {
        LinkTimings timings = calmTimings();
        timings.ping = 1000;
        timings.pong = 700;
        timings.lastFrames = 1;
        m_link = std::make_unique<Connection>(timings);
        listen();
        useProgramThatEndsAfter("1.2"_s);
        QVERIFY(m_link->connect(false));
        m_service->stall();
        QVERIFY(m_log->waitFor("disconnected"_s));
        m_service->resume();
        QVERIFY(m_log->waitFor("reconnected"_s));
        QTest::qWait(timings.pong);
        QCOMPARE(m_log->names, QStringList({"connected", "disconnected", "reconnected"}));
    }

    void aLinkWithoutPongIsAbortedAndComesBack() {
        m_link = std::make_unique<Connection>(shortTimings());
        listen();
        QVERIFY(m_link->connect(false));
        m_service->stall();
        QVERIFY(m_log->waitFor("disconnected"_s));
        QCOMPARE(m_log->names.mid(0, 3), QStringList({"connected", "connectionLost", "disconnected"}));
        m_service->resume();
        QVERIFY(m_log->waitFor("reconnected"_s));
    }

    void aRequestEndsWithItsLink_data() {
        QTest::addColumn<bool>("programEnds");
        addRow("socket closed", false);
        addRow("program ended", true);
    }

    void aRequestEndsWithItsLink() {
        QFETCH(bool, programEnds);
        if (programEnds) {
            useProgramThatEndsAfter("0.5"_s);
            m_service->ignore(operation);
        } else {
            m_service->on(operation, [](ScriptedClient& client, const ScriptedRequest&) { client.abort(); });
        }
        QVERIFY(m_link->connect(false));
        QElapsedTimer time;
        time.start();
        QVERIFY(m_link->request(text).isNull());
        // Without the link there is nothing to wait for.
        QVERIFY(m_link->request(text).isNull());
        QVERIFY(time.elapsed() < calmTimings().request / 2);
    }

    void aLateReplyIsNeverTakenForAnother() {
        LinkTimings timings = calmTimings();
        timings.request = 200;
        m_link = std::make_unique<Connection>(timings);
        // The reply to the first request comes just before that to the second.
        auto first = std::make_shared<ScriptedRequest>();
        m_service->on(operation, [first](ScriptedClient& client, const ScriptedRequest& request) {
            if (first->frame.messageId == 0) {
                *first = request;
                return;
            }
            client.reply(*first, {{operation, 1}});
            client.reply(request, {{operation, 2}});
        });
        QVERIFY(m_link->connect(false));
        QElapsedTimer time;
        time.start();
        QVERIFY(m_link->request(text).isNull());
        QVERIFY(time.elapsed() >= timings.request);
        QCOMPARE(value(m_link->request(text)), 2);
        m_service->answer(operation, 3);
        QCOMPARE(value(m_link->request(text)), 3);
    }

    void onlyTheOwnReplyReleasesARequest() {
        m_service->on(operation, [](ScriptedClient& client, const ScriptedRequest& request) {
            const QJsonObject foreign{{"data"_s, QJsonObject{{"kernoRemove"_s, QJsonObject()}}}};
            client.send({0, 200, foreign});
            client.send({request.frame.messageId + 1, 200, foreign});
            client.send({request.frame.messageId, 403, foreign});
            client.reply(request, {{operation, 9}});
        });
        QVERIFY(m_link->connect(false));
        QCOMPARE(value(m_link->request(text)), 9);
    }

    void manyThreadsAskAtOnce() {
        constexpr int rounds = 50;
        m_service->on(operation, [](ScriptedClient& client, const ScriptedRequest& request) {
            client.reply(request, {{operation, request.argument("n"_s).toInt()}});
        });
        QVERIFY(m_link->connect(false));
        std::atomic<int> wrong{0};
        std::vector<std::unique_ptr<QThread>> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back(QThread::create([this, i, &wrong] {
                for (int round = 0; round < rounds; ++round) {
                    const int n = i * rounds + round;
                    if (value(m_link->request("{maxHighlightsCount(n:%1)}"_s.arg(n))) != n)
                        ++wrong;
                }
            }));
            threads.back()->start();
        }
        for (const auto& thread : threads)
            QVERIFY(thread->wait(patience));
        QCOMPARE(wrong.load(), 0);
    }

    void anAwaitedReplyComesToItsThread() {
        QVERIFY(m_link->connect(false));
        const std::unique_ptr<ReplyBase> reply(m_link->sendAsync(text));
        QVERIFY(reply);
        QSignalSpy finished(reply.get(), &ReplyBase::finished);
        QVERIFY(finished.wait(patience));
        QCOMPARE(value(*reply), 5);
        m_service->pushText(wire::ResponseFrame{reply->id(), 200, {}}.toText());
        QCOMPARE(value(m_link->request(text)), 5);
        QCoreApplication::processEvents();
        QCOMPARE(finished.count(), 1);
    }

    void anAwaitedReplyIsNotServedByALaterLink() {
        m_service->ignore("kernoQueryList"_s);
        QVERIFY(m_link->connect(false));
        const std::unique_ptr<ReplyBase> lost(m_link->sendAsync("{kernoQueryList{id}}"_s));
        QSignalSpy finished(lost.get(), &ReplyBase::finished);
        QVERIFY(waitFor([&] { return m_service->requests().size() == 1; }));
        m_service->abortAll();
        QVERIFY(m_log->waitFor("reconnected"_s));
        QCOMPARE(m_link->request(text).id(), lost->id());
        QCoreApplication::processEvents();
        QCOMPARE(finished.count(), 0);
    }

private:
    void listen() {
        m_log = std::make_unique<SignalLog>();
        Connection* link = m_link.get();
        m_log->listen(link, &Connection::connected, "connected"_s);
        m_log->listen(link, &Connection::reconnected, "reconnected"_s);
        m_log->listen(link, &Connection::disconnected, "disconnected"_s);
        m_log->listen(link, &Connection::connectionLost, "connectionLost"_s);
        m_log->listen(link, &Connection::closedDueToAnotherSession, "closedDueToAnotherSession"_s);
    }

    /// From the next start on, a service program that ends by itself.

    void useProgramThatEndsAfter(const QString& seconds) {
        const QString body =
            "echo 'Port: %1'\nexec sleep %2"_s.arg(QString::number(m_service->port()), seconds);
        qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, "brief"_s, body).toUtf8());
    }

    QTemporaryDir m_folder;
    std::unique_ptr<ScriptedService> m_service;
    std::unique_ptr<Connection> m_link;
    std::unique_ptr<SignalLog> m_log;
};

KERNOVA_TEST_MAIN(tst_Connection)
#include "tst_connection.moc"
