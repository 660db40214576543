#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/ServiceConfig.h"
#include "link/WebSocketHandler.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

#include <signal.h>

/// Starting the local service: its port line, everything that can go wrong before it, and its end.
class tst_ServiceStart : public QObject {
    Q_OBJECT

private slots:
    void aPortLineInPiecesIsReadWhole_data() {
        QTest::addColumn<QString>("script");
        addRow("pieces", "printf 'Po'; sleep 0.1; printf 'rt: %1'; sleep 0.05; printf '%2\\n'");
        addRow("other text", "printf 'Port:1 Port: x\\nPort: %1%2 is mine\\nPort: 1\\n'");
        addRow("no line end", "printf 'hello\\nPort: %1%2'");
    }

    void aPortLineInPiecesIsReadWhole() {
        QFETCH(QString, script);
        ScriptedService service;
        const QString port = QString::number(service.port());
        const QString body = script.arg(port.left(2), port.mid(2)) + "\nexec cat > /dev/null"_s;
        qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, "pieces"_s, body).toUtf8());
        Connection link(shortTimings());
        QVERIFY(link.connect(false));
        QCOMPARE(link.webSocketHandler()->endpoint(), "ws://127.0.0.1:"_s + port);
    }

    void aServiceThatDoesNotGetReadyEndsTheConnect_data() {
        columns<QString, bool>({"script", "lasting"});
        addRow("not there", QString(), false);
        addRow("dies at once", "exit 1", false);
        addRow("dies while it talks", "echo starting; sleep 0.1; echo failed; exit 3", true);
        addRow("stays silent", "exec cat > /dev/null", true);
        addRow("talks without end", "while :; do echo waiting; sleep 0.02; done", true);
        addRow("does not end when asked", "trap '' TERM; exec cat > /dev/null", true);
        addRow("nobody listens at its port", "echo 'Port: 1'; exec cat > /dev/null", false);
    }

    void aServiceThatDoesNotGetReadyEndsTheConnect() {
        FETCH(QString, script, bool, lasting);
        const QString program =
            script.isEmpty() ? m_folder.filePath("missing"_s) : writeProgram(m_folder, "faulty"_s, script);
        qputenv("KERNOVA_SERVICE_PROGRAM", program.toUtf8());
        LinkTimings timings = shortTimings();
        timings.start = 400;
        timings.stop = 200;
        Connection link(timings);
        QSignalSpy errors(&link, &Connection::error);
        int turns = 0;
        QTimer alive;
        QObject::connect(&alive, &QTimer::timeout, [&turns] { ++turns; });
        alive.start(5);
        QVERIFY(!link.connect(false));
        QVERIFY(!link.isConnected());
        QVERIFY(waitFor([&] { return errors.count() >= 1; }));
        QVERIFY(!link.lastError().isEmpty());
        QVERIFY2(turns > 0 || !lasting, "the event loop must go on");
    }

    void aFailedStartCanBeRepeated() {
        ScriptedService service;
        const QByteArray working = qgetenv("KERNOVA_SERVICE_PROGRAM");
        Connection link(shortTimings());
        qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, "dead"_s, "exit 1"_s).toUtf8());
        QVERIFY(!link.connect(false));
        qputenv("KERNOVA_SERVICE_PROGRAM", working);
        QSignalSpy connected(&link, &Connection::connected);
        QVERIFY(link.connect(false));
        QCOMPARE(connected.count(), 1);
    }

    void theServiceGetsTheTokenAndTheSocketSendsIt() {
        ScriptedService service;
        const QString file = m_folder.filePath("token"_s);
        const QString body =
            "printf \"$KERNOVA_SERVICE_TOKEN $*\" > '%1'\nexec '%2'"_s.arg(file, service.program());
        qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, "token.sh"_s, body).toUtf8());
        Connection link(shortTimings());
        QVERIFY(link.connect(false));
        const QByteArray token = ServiceConfig::instance().serviceToken();
        QCOMPARE(QByteArray::fromHex(token).size(), 32);
        QCOMPARE(bytesOf(file), token + " -local");
        QCOMPARE(service.handshakeHeader("Kernova-Service-Token"), token);
        QVERIFY(service.handshakeHeader("Origin").isEmpty());
    }

    void theServiceEndsWithTheLink() {
        ScriptedService service;
        const QString file = m_folder.filePath("pid"_s);
        const QString body = "echo $$ > '%1'\nexec '%2'"_s.arg(file, service.program());
        qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, "pid.sh"_s, body).toUtf8());
        pid_t pid = 0;
        {
            Connection link(shortTimings());
            QVERIFY(link.connect(false));
            pid = bytesOf(file).trimmed().toInt();
            QVERIFY(pid > 0);
            QCOMPARE(::kill(pid, 0), 0);
        }
        QVERIFY(::kill(pid, 0) != 0);
    }

    void destructionDoesNotWaitForAHangingService() {
        const QString program = writeProgram(m_folder, "silent"_s, "exec cat > /dev/null"_s);
        qputenv("KERNOVA_SERVICE_PROGRAM", program.toUtf8());
        QElapsedTimer time;
        {
            Connection link;
            QSignalSpy opening(link.webSocketHandler(), &WebSocketHandler::opening);
            emit link.connectLocal();
            QVERIFY(waitFor([&] { return opening.count() == 1; }));
            time.start();
        }
        QVERIFY(time.elapsed() < LinkTimings().start / 3);
    }

private:
    QTemporaryDir m_folder;
};

KERNOVA_TEST_MAIN(tst_ServiceStart)
#include "tst_servicestart.moc"
