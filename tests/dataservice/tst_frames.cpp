#include "FrameExercise.h"
#include "ServiceClient.h"
#include "protocol/FrameText.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"
#include "wire/QueryText.h"

#include <QTcpSocket>

namespace {

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
        columns<QString, QString>({"query", "position"});
        const auto row = [](const char* query, const char* position) {
            addRow(query, QString::fromLatin1(query), QString::fromLatin1(position));
        };
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
        FETCH(QString, query, QString, position);
        ServiceClient client;
        QVERIFY(client.connectTo(m_service.port()) && client.open(m_folder.filePath("a.krn"_s)));
        const QString error = client.errorOf(query);
        QVERIFY2(error.endsWith("(at character %1)"_s.arg(position)), qPrintable(error));
        QCOMPARE(client.frames.back().status, 400);
    }

    void endsOnlyTheConnectionThatBreaksTheRules_data() {
        columns<QByteArray, int>({"bytes", "code"});
        addRow("unmasked", ServiceClient::frame("{}", 1, false), 1002);
        addRow("not utf-8", ServiceClient::frame("\xC3\x28"), 1007);
        addRow("binary", ServiceClient::frame("{}", opBinary), 1003);
        QByteArray huge = ServiceClient::frame({});
        huge[1] = static_cast<char>(0xFF);
        huge.insert(2, QByteArray("\0\0\0\0\x04\0\0\x01", 8));
        addRow("too large", huge, 1009);
    }

    void endsOnlyTheConnectionThatBreaksTheRules() {
        FETCH(QByteArray, bytes, int, code);
        ServiceClient witness;
        QVERIFY(witness.connectTo(m_service.port()) && witness.open(m_folder.filePath("c.krn"_s)));
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_service.port());
        QVERIFY(socket.waitForConnected());
        socket.write(ServiceClient::handshake(m_service.port()));
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
        QVERIFY(witness.ask("{kernoMaxId(next: false)}"_s).isDouble());
    }

    // The fuzzer's texts, and texts that are close to them.
    void anyBytesAreAnswered_data() {
        QTest::addColumn<QByteArray>("bytes");
        const QDir folder(QStringLiteral(KERNOVA_FRAME_CORPUS));
        const QStringList names = folder.entryList(QDir::Files);
        QVERIFY(names.size() > 10);
        for (const QString& name : names)
            addRow(qPrintable(name), bytesOf(folder.filePath(name)));
        addRow("empty", QByteArray());
        addRow("deep", QByteArray(5000, '['));
        addRow("deep query", "{\"msg_id\":\"i_3\",\"json_data\":\"" + QByteArray(5000, '{') + "\"}");
    }

    void anyBytesAreAnswered() {
        QFETCH(QByteArray, bytes);
        QCOMPARE(exerciseFrame(bytes), QString());
        QRandomGenerator random(static_cast<quint32>(bytes.size()));
        const QByteArray alphabet("{}[](),:\"\\ \n-0123456789.ei\xF0\x9F\x98\x80");
        for (int round = 0; round < 150 && !bytes.isEmpty(); ++round) {
            QByteArray changed = bytes;
            for (int change = random.bounded(1, 4); change > 0; --change) {
                const int at = random.bounded(changed.size());
                const char letter = alphabet[random.bounded(alphabet.size())];
                switch (random.bounded(3)) {
                case 0:
                    changed[at] = letter;
                    break;
                case 1:
                    changed.insert(at, letter);
                    break;
                default:
                    changed.remove(at, changed.size() > 1 ? 1 : 0);
                    break;
                }
            }
            const QString fault = exerciseFrame(changed);
            QVERIFY2(fault.isEmpty(), qPrintable(fault + QLatin1Char('\n') + QString::fromUtf8(changed)));
        }
    }
};

KERNOVA_TEST_MAIN(TestFrames)
#include "tst_frames.moc"
