#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/ServiceConfig.h"
#include "link/WebSocketHandler.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <signal.h>

/// Starting the local service: its port line, everything that can go wrong before it, and its end.
class tst_ServiceStart : public QObject {
    Q_OBJECT

private slots:
    void aPortLineInPiecesIsReadWhole_data();
    void aPortLineInPiecesIsReadWhole();
    void aServiceThatDoesNotGetReadyEndsTheConnect_data();
    void aServiceThatDoesNotGetReadyEndsTheConnect();
    void aFailedStartCanBeRepeated();
    void theServiceGetsTheTokenAndTheSocketSendsIt();
    void theServiceEndsWithTheLink();
    void destructionDoesNotWaitForAHangingService();

private:
    QTemporaryDir m_folder;
};

void tst_ServiceStart::aPortLineInPiecesIsReadWhole_data() {
    QTest::addColumn<QString>("script");
    QTest::newRow("pieces") << "printf 'Po'; sleep 0.1; printf 'rt: %1'; sleep 0.05; printf '%2\\n'";
    QTest::newRow("other text") << "printf 'Port:1 Port: x\\nPort: %1%2 is mine\\nPort: 1\\n'";
    QTest::newRow("no line end") << "printf 'hello\\nPort: %1%2'";
}

void tst_ServiceStart::aPortLineInPiecesIsReadWhole() {
    QFETCH(QString, script);
    ScriptedService service;
    const QString port = QString::number(service.port());
    const QString body = script.arg(port.left(2), port.mid(2)) + QStringLiteral("\nexec cat > /dev/null");
    qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, QStringLiteral("pieces"), body).toUtf8());
    Connection link(shortTimings());
    QVERIFY(link.connect(false));
    QCOMPARE(link.webSocketHandler()->endpoint(), QStringLiteral("ws://127.0.0.1:") + port);
}

void tst_ServiceStart::aServiceThatDoesNotGetReadyEndsTheConnect_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("lasting");
    QTest::newRow("not there") << QString() << false;
    QTest::newRow("dies at once") << "exit 1" << false;
    QTest::newRow("dies while it talks") << "echo starting; sleep 0.1; echo failed; exit 3" << true;
    QTest::newRow("stays silent") << "exec cat > /dev/null" << true;
    QTest::newRow("talks without end") << "while :; do echo waiting; sleep 0.02; done" << true;
    QTest::newRow("does not end when asked") << "trap '' TERM; exec cat > /dev/null" << true;
    QTest::newRow("nobody listens at its port") << "echo 'Port: 1'; exec cat > /dev/null" << false;
}

void tst_ServiceStart::aServiceThatDoesNotGetReadyEndsTheConnect() {
    QFETCH(QString, script);
    QFETCH(bool, lasting);
    const QString program = script.isEmpty() ? m_folder.filePath(QStringLiteral("missing"))
                                             : writeProgram(m_folder, QStringLiteral("faulty"), script);
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

void tst_ServiceStart::aFailedStartCanBeRepeated() {
    ScriptedService service;
    const QByteArray working = qgetenv("KERNOVA_SERVICE_PROGRAM");
    Connection link(shortTimings());
    qputenv("KERNOVA_SERVICE_PROGRAM",
            writeProgram(m_folder, QStringLiteral("dead"), QStringLiteral("exit 1")).toUtf8());
    QVERIFY(!link.connect(false));
    qputenv("KERNOVA_SERVICE_PROGRAM", working);
    QSignalSpy connected(&link, &Connection::connected);
    QVERIFY(link.connect(false));
    QCOMPARE(connected.count(), 1);
}

void tst_ServiceStart::theServiceGetsTheTokenAndTheSocketSendsIt() {
    ScriptedService service;
    const QString file = m_folder.filePath(QStringLiteral("token"));
    const QString body =
        QStringLiteral("printf \"$KERNOVA_SERVICE_TOKEN $*\" > '%1'\nexec '%2'").arg(file, service.program());
    qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, QStringLiteral("token.sh"), body).toUtf8());
    Connection link(shortTimings());
    QVERIFY(link.connect(false));
    const QByteArray token = ServiceConfig::instance().serviceToken();
    QCOMPARE(QByteArray::fromHex(token).size(), 32);
    QFile written(file);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), token + " -local");
    QCOMPARE(service.handshakeHeader("Kernova-Service-Token"), token);
    QVERIFY(service.handshakeHeader("Origin").isEmpty());
}

void tst_ServiceStart::theServiceEndsWithTheLink() {
    ScriptedService service;
    const QString file = m_folder.filePath(QStringLiteral("pid"));
    const QString body = QStringLiteral("echo $$ > '%1'\nexec '%2'").arg(file, service.program());
    qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(m_folder, QStringLiteral("pid.sh"), body).toUtf8());
    pid_t pid = 0;
    {
        Connection link(shortTimings());
        QVERIFY(link.connect(false));
        QFile written(file);
        QVERIFY(written.open(QIODevice::ReadOnly));
        pid = written.readAll().trimmed().toInt();
        QVERIFY(pid > 0);
        QCOMPARE(::kill(pid, 0), 0);
    }
    QVERIFY(::kill(pid, 0) != 0);
}

void tst_ServiceStart::destructionDoesNotWaitForAHangingService() {
    const QString program =
        writeProgram(m_folder, QStringLiteral("silent"), QStringLiteral("exec cat > /dev/null"));
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

KERNOVA_TEST_MAIN(tst_ServiceStart)
#include "tst_servicestart.moc"
