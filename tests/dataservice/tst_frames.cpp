#include "ServiceClient.h"
#include "protocol/FrameText.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"
#include "wire/JsonScan.h"
#include "wire/QueryText.h"

#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtEndian>

namespace {

/// A client frame by hand. Whole when `mask` is set, and against the standard when it isn't.
QByteArray frame(int opcode, const QByteArray& payload, bool mask = true) {
    QByteArray bytes;
    bytes += static_cast<char>(0x80 | opcode);
    bytes += static_cast<char>((mask ? 0x80 : 0) | payload.size());
    if (mask)
        bytes += QByteArray(4, '\0');
    return bytes + payload;
}

constexpr int opText = 1;
constexpr int opBinary = 2;
constexpr int opClose = 8;

}  // namespace

class TestFrames : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    RealService m_service;

private slots:
    void initTestCase() { QVERIFY(m_service.start()); }

    void reportsFaultsWithTheirPlace_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("position");
        const auto row = [](const char* query, const char* position) {
            QTest::newRow(query) << QString::fromLatin1(query) << QString::fromLatin1(position);
        };
        row("", "0");
        row("{kernoQueryList{id}", "19");
        row("{nonsense{id}}", "1");
        row("{kernoQueryList{id colour}}", "19");
        row("{kernoQueryList(size:3){id}}", "16");
        row("{kernoQueryList(parentKernoId:\"x\"){id}}", "16");
        row("{memoQueryById(id:99999999999){id}}", "15");
        row("{memoQueryById{id}}", "1");
        row("{kernoRemove(id:1){id}}", "1");
        row("mutation{kernoQueryList{id}}", "9");
        row("mutation{kernoCreateOrUpdate(title:\"a\"){id}}", "9");
        row("mutation{kernoCreateOrUpdate(id:0){id}}", "9");
        row("mutation{kernoCreateOrUpdate(id:1 timestamp:\"2020-01-01T00:00:00Z\"){id}}", "34");
        row("mutation{kernoCreateOrUpdate(id:1 title:\"a\" title:\"b\"){id}}", "44");
        row("mutation{highlightCreateOrUpdate(id:1 color:\"#ffffff\"){id}}", "38");
        row("mutation{preferenceCreateOrUpdate(key:\"\" value:1){key}}", "9");
        row("mutation{preferenceRemove(key:\"a\"){key}}", "9");
        row("{highlightOverlapCount(kernoId1: 1)}", "1");
        row("{kernoMaxId(next: 1)}", "12");
        row("mutation{dbOpen(name:5){name}}", "16");
    }

    void reportsFaultsWithTheirPlace() {
        QFETCH(QString, query);
        QFETCH(QString, position);
        ServiceClient client;
        QVERIFY(client.connectTo(m_service.port()) &&
                client.open(m_folder.filePath(QStringLiteral("a.krn"))));
        const QString error = client.errorOf(query);
        QVERIFY2(error.endsWith(QStringLiteral("(at character %1)").arg(position)), qPrintable(error));
        QCOMPARE(client.frames.back().status, 400);
    }

    void survivesWhatIsNoRequest_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("no json") << QStringLiteral("{\"auth\":");
        QTest::newRow("array") << QStringLiteral("[]");
        QTest::newRow("empty") << QString();
        QTest::newRow("no query") << QStringLiteral("{}");
        QTest::newRow("deep") << QString(100000, QLatin1Char('['));
        QTest::newRow("deep query") << QStringLiteral("{\"msg_id\":\"i_3\",\"json_data\":\"") +
                                           QString(100000, QLatin1Char('{')) + QStringLiteral("\"}");
    }

    void survivesWhatIsNoRequest() {
        QFETCH(QString, text);
        ServiceClient client;
        QVERIFY(client.connectTo(m_service.port()));
        client.sendRaw(text);
        QVERIFY(client.waitForFrames(1));
        QVERIFY(client.frames[0].payload.contains(QStringLiteral("errors")));
        QVERIFY(client.open(m_folder.filePath(QStringLiteral("b.krn"))));
    }

    void endsOnlyTheConnectionThatBreaksTheRules_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("code");
        QTest::newRow("unmasked") << frame(opText, "{}", false) << 1002;
        QTest::newRow("not utf-8") << frame(opText, "\xC3\x28") << 1007;
        QTest::newRow("binary") << frame(opBinary, "{}") << 1003;
        QTest::newRow("bad close code") << frame(opClose, QByteArray("\x00\x01", 2)) << 1002;
        QTest::newRow("reserved") << frame(3, "{}") << 1002;
        QByteArray huge = frame(opText, {});
        huge[1] = static_cast<char>(0xFF);
        huge.insert(2, QByteArray("\0\0\0\0\x04\0\0\x01", 8));
        QTest::newRow("too large") << huge << 1009;
    }

    void endsOnlyTheConnectionThatBreaksTheRules() {
        QFETCH(QByteArray, bytes);
        QFETCH(int, code);
        ServiceClient witness;
        QVERIFY(witness.connectTo(m_service.port()) &&
                witness.open(m_folder.filePath(QStringLiteral("c.krn"))));
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_service.port());
        QVERIFY(socket.waitForConnected());
        socket.write("GET / HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(m_service.port()) +
                     "\r\nConnection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
                     "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
        QByteArray answer;
        while (!answer.contains("\r\n\r\n") && socket.waitForReadyRead(5000))
            answer += socket.readAll();
        QVERIFY(answer.startsWith("HTTP/1.1 101"));
        socket.write(bytes);
        QByteArray closing;
        while (closing.size() < 4 && socket.waitForReadyRead(5000))
            closing += socket.readAll();
        QCOMPARE(static_cast<int>(static_cast<uchar>(closing[0])), 0x80 | opClose);
        QCOMPARE(static_cast<int>(qFromBigEndian<quint16>(closing.constData() + 2)), code);
        QVERIFY(witness.ask(QStringLiteral("{kernoMaxId(next: false)}")).isDouble());
    }

    void scansOutlines_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QByteArrayList>("parts");
        QTest::newRow("plain") << QByteArray(" {\"a\" : 1 , \"b\":[2,\"}\"]} ") << true
                               << QByteArrayList{"a", "1", "b", "[2,\"}\"]"};
        QTest::newRow("escapes") << QByteArray("{\"a\\\"\":\"\\\\\"}") << true
                                 << QByteArrayList{"a\\\"", "\"\\\\\""};
        QTest::newRow("empty") << QByteArray("{}") << true << QByteArrayList{};
        QTest::newRow("open string") << QByteArray("{\"a\":\"}") << false << QByteArrayList{};
        QTest::newRow("open object") << QByteArray("{\"a\":{}") << false << QByteArrayList{"a", "{}"};
        QTest::newRow("no value") << QByteArray("{\"a\":}") << false << QByteArrayList{};
        QTest::newRow("no object") << QByteArray("[1]") << false << QByteArrayList{};
        QTest::newRow("nothing") << QByteArray() << false << QByteArrayList{};
    }

    void scansOutlines() {
        QFETCH(QByteArray, text);
        QFETCH(bool, valid);
        QFETCH(QByteArrayList, parts);
        QByteArrayList found;
        const bool read =
            jsonscan::eachMember(text, {0, text.size()}, [&](const QByteArray& key, jsonscan::Span value) {
                found << key << jsonscan::part(text, value);
                return true;
            });
        QCOMPARE(read, valid);
        QCOMPARE(found, parts);
    }

    void measuresNesting() {
        QVERIFY(!jsonscan::nestsDeeperThan("[[{\"a\":\"[[[[\"}]]", 3));
        QVERIFY(jsonscan::nestsDeeperThan("[[{\"a\":[]}]]", 3));
        QVERIFY(!jsonscan::nestsDeeperThan("[\"\\\"[[[[\"]", 1));
    }
};

KERNOVA_TEST_MAIN(TestFrames)
#include "tst_frames.moc"
