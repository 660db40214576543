#include "ServiceClient.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"
#include "wire/Frames.h"
#include "wire/QueryText.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTcpSocket>
#include <csignal>
#include <set>

using wire::Record;

namespace {

// The address sanitizer keeps freed memory back for a while.
#ifdef __SANITIZE_ADDRESS__
constexpr int peakKilobytes = 600 * 1000;
#else
constexpr int peakKilobytes = 100 * 1000;
#endif

const QString kernoSave = "mutation{kernoCreateOrUpdate(id:%1 title:\"t%1\"){id title timestamp}}"_s;
const QString kernoRemove = "mutation{kernoRemove(id:%1){id title timestamp}}"_s;
const QString connections = "connection_count"_s;
const QString kernoMax = "{kernoMaxId(next: %1)}"_s;

/// A request as bytes on the socket.
QByteArray maskedFrame(const QString& query) {
    return ServiceClient::frame(wire::RequestFrame{{}, 1, query}.toText().toUtf8());
}

}  // namespace

class TestSessions : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    std::unique_ptr<RealService> m_service;
    QString m_file;

    std::unique_ptr<ServiceClient> openClient() {
        auto client = std::make_unique<ServiceClient>();
        if (!client->connectTo(m_service->port()) || !client->open(m_file))
            return nullptr;
        // The count of clients follows the answer, and would stand among the frames of a test.
        const bool counted = client->waitUntil([&] { return count(*client, connections) == 1; });
        return counted ? std::move(client) : nullptr;
    }
    std::set<int> kernoIds(ServiceClient& client) {
        std::set<int> ids;
        for (const QJsonValue& kerno : client.ask("{kernoQueryList{id}}"_s).toArray())
            ids.insert(kerno["id"_s].toInt());
        return ids;
    }
    static int count(const ServiceClient& client, const QString& key) {
        return static_cast<int>(
            std::count_if(client.frames.begin(), client.frames.end(), [&](const auto& frame) {
                return frame.payload.contains(key) || frame.payload.value("data"_s).toObject().contains(key);
            }));
    }

private slots:
    void init() {
        m_service = std::make_unique<RealService>();
        QVERIFY(m_service->start());
        m_file = m_folder.filePath(QString::fromLatin1(QTest::currentTestFunction()) + ".krn"_s);
    }

    void answersForTheOpenProjectAlone() {
        ServiceClient client;
        QVERIFY(client.connectTo(m_service->port()));
        QVERIFY(!client.errorOf("{kernoQueryList{id}}"_s).isEmpty());
        QVERIFY(!client.errorOf(wire::openProject(m_folder.filePath("no/such/place.krn"_s), {})).isEmpty());
        const QString uuid = "6c1b6d1e-0000-4000-8000-000000000001"_s;
        QCOMPARE(client.ask(wire::openProject(m_file, uuid))["uuid"_s].toString(), uuid);
        const QJsonObject closed{{"name"_s, QString()}, {"uuid"_s, wire::nullUuid}, {"status"_s, "closed"_s}};
        for (int time = 0; time < 2; ++time)
            QCOMPARE(client.ask(wire::closeProject()).toObject(), closed);
        QVERIFY(!client.errorOf(kernoSave.arg(1)).isEmpty());
    }

    void tellsOtherClients() {
        const auto first = openClient();
        const auto second = openClient();
        QVERIFY(first && second);
        QVERIFY(first->waitUntil([&] { return count(*first, connections) == 2; }));
        QCOMPARE(first->frames.back().payload.value(connections).toInt(), 2);

        const QString saved = "kernoCreateOrUpdate"_s;
        const QJsonObject reply = first->request(kernoSave.arg(5));
        QVERIFY(second->waitUntil([&] { return count(*second, saved) == 1; }));
        QCOMPARE(second->frames.back().payload, reply);
        QCOMPARE(second->frames.back().messageId, 0);
        QCOMPARE(kernoIds(*second), (std::set<int>{5}));

        // Neither reads, failures, preferences nor shortcuts are anyone else's business.
        const size_t before = second->frames.size();
        first->request("mutation{preferenceCreateOrUpdate(key:\"a\" value:1){key value}}"_s);
        first->request("mutation{kernoShortcutKeyCreateOrUpdate(shortcutKey:\"a\" kernoId:1){kernoId}}"_s);
        first->request("mutation{kernoCreateOrUpdate(id:0){id}}"_s);
        first->request("{kernoQueryList{id}}"_s);
        // Nor is what one has changed oneself.
        QCOMPARE(count(*first, saved), 1);
        second->request(kernoMax.arg("false"_s));
        QCOMPARE(second->frames.size(), before + 1);

        first->close();
        QVERIFY(second->waitUntil([&] { return count(*second, connections) == 2; }));
        QCOMPARE(second->frames.back().payload.value(connections).toInt(), 1);
    }

    void answersInOrder() {
        const auto client = openClient();
        QVERIFY(client);
        const size_t before = client->frames.size();
        constexpr int requests = 1500;
        for (int id = 1; id <= requests; ++id)
            client->send(id % 3 == 0 ? "{kernoMaxId(next: false)}"_s : kernoSave.arg(id));
        QVERIFY(client->waitForFrames(before + requests));
        int last = 0;
        for (size_t i = before; i < client->frames.size(); ++i) {
            const ServiceClient::Frame& frame = client->frames[i];
            QVERIFY(i == before || frame.messageId == client->frames[i - 1].messageId + 1);
            const QJsonObject data = frame.payload.value("data"_s).toObject();
            if (data.contains("kernoMaxId"_s))
                QCOMPARE(data.begin().value().toInt(), last);
            else
                last = data.begin().value()["id"_s].toInt();
        }
        // A copy of the file, taken after a blocking read, is a whole project.
        QVERIFY(client->ask(kernoMax.arg("false"_s)).toInt() == last);
        const QString original = m_file;
        m_file = m_folder.filePath("copy.krn"_s);
        QVERIFY(QFile::copy(original, m_file));
        const auto reader = openClient();
        QVERIFY(reader);
        QCOMPARE(kernoIds(*reader).size(), size_t(requests - requests / 3));
    }

    void reservesIdsForEver() {
        auto client = openClient();
        QVERIFY(client);
        const QString next = kernoMax.arg("true"_s);
        QCOMPARE(client->ask(kernoMax.arg("false"_s)).toInt(), 0);
        QCOMPARE(client->ask(next).toInt(), 1);
        QCOMPARE(client->ask(next).toInt(), 2);
        client->request(kernoSave.arg(7));
        client->request(kernoRemove.arg(7));
        QCOMPARE(m_service->endByInput(), 0);
        init();
        client = openClient();
        QVERIFY(client);
        QCOMPARE(client->ask(kernoMax.arg("false"_s)).toInt(), 7);
        QCOMPARE(client->ask(next).toInt(), 8);
        QCOMPARE(client->ask("{sourceMaxId(next: true)}"_s).toInt(), 1);
    }

    void losesNothingThatWasAnnounced() {
        // Killed ten times in the middle of a stream; what was answered is there, and so is the order of what
        // isn't.
        QRandomGenerator random(42);
        int next = 1;
        std::set<int> announced;
        for (int round = 0; round < 10; ++round) {
            const auto client = openClient();
            QVERIFY(client);
            const std::set<int> stored = kernoIds(*client);
            QVERIFY(std::includes(stored.begin(), stored.end(), announced.begin(), announced.end()));
            QVERIFY(stored.empty() || *stored.rbegin() == static_cast<int>(stored.size()));
            next = static_cast<int>(stored.size()) + 1;
            const size_t enough = client->frames.size() + static_cast<size_t>(random.bounded(1, 200));
            for (int i = 0; i < 600; ++i)
                client->send(kernoSave.arg(next++));
            QVERIFY(client->waitForFrames(enough));
            m_service->kill();
            // What still lies in the socket was announced as well.
            client->waitUntil([&] { return client->socket().state() == QAbstractSocket::UnconnectedState; });
            for (const ServiceClient::Frame& frame : client->frames) {
                const QJsonObject data = frame.payload.value("data"_s).toObject();
                if (data.contains("kernoCreateOrUpdate"_s))
                    announced.insert(data.begin().value()["id"_s].toInt());
            }
            m_service = std::make_unique<RealService>();
            QVERIFY(m_service->start());
        }
        QVERIFY(announced.size() > 100);
    }

    void answersAfterTheCommit() {
        auto client = openClient();
        QVERIFY(client);
        QVERIFY(client->ask(kernoSave.arg(1)).isObject());
        int saved = 0;
        {
            // A reader of the file lets a transaction begin, and holds its commit up.
            QSqlDatabase reader = QSqlDatabase::addDatabase("QSQLITE"_s, "reader"_s);
            reader.setDatabaseName(m_file);
            QVERIFY(reader.open());
            QSqlQuery query(reader);
            QVERIFY(query.exec("BEGIN"_s) && query.exec("SELECT id FROM tbl_kerno"_s) && query.next());
            saved = client->send(kernoSave.arg(2));
            QVERIFY(!client->waitUntil([&] { return client->reply(saved) != nullptr; }, 200));
        }
        QSqlDatabase::removeDatabase("reader"_s);
        QVERIFY(client->waitUntil([&] { return client->reply(saved) != nullptr; }));
        m_service->kill();
        init();
        client = openClient();
        QVERIFY(client);
        QCOMPARE(kernoIds(*client), (std::set<int>{1, 2}));
    }

    void carriesOutWhatWasAcceptedBeforeItEnds() {
        auto client = openClient();
        QVERIFY(client);
        for (int id = 1; id <= 300; ++id)
            client->send(kernoSave.arg(id));
        client->socket().flush();
        QCOMPARE(m_service->endByInput(), 0);
        QVERIFY(
            client->waitUntil([&] { return client->socket().state() == QAbstractSocket::UnconnectedState; }));
        QCOMPARE(static_cast<int>(client->socket().closeCode()), 1001);
        init();
        client = openClient();
        QVERIFY(client);
        QCOMPARE(kernoIds(*client).size(), size_t(300));
    }

    // A signal to all programs of a session: a client's last word, that its project is closed, must count.
    void clientsHaveALastWordAfterASignal() {
        const auto client = openClient();
        QVERIFY(client);
        ::kill(static_cast<pid_t>(m_service->pid()), SIGTERM);
        QTest::qWait(300);
        QVERIFY(
            !client->ask("mutation{preferenceCreateOrUpdate(key:\"a\" value:1){key value}}"_s).isUndefined());
        client->close();
        QCOMPARE(m_service->endByInput(), 0);
    }

    void waitsForAClientThatTakesNoAnswers_data() {
        QTest::addColumn<bool>("readsOn");
        addRow("and then takes them", true);
        addRow("and then is gone", false);
    }

    void waitsForAClientThatTakesNoAnswers() {
        QFETCH(bool, readsOn);
        QFile::remove(m_file);
        const auto client = openClient();
        QVERIFY(client);
        const QString text(1000 * 1000, QLatin1Char('x'));
        for (int id = 1; id <= 4; ++id)
            client->send("mutation{sourceCreateOrUpdate(id:%1 title:\"%2\"){id}}"_s.arg(id).arg(text));
        QVERIFY(client->ask(kernoMax.arg("false"_s)).isDouble());

        // Asks for 120 MB and reads none of it, and for more changes than are taken from a client at once.
        constexpr int reads = 30;
        constexpr int changes = 3900;
        QTcpSocket idler;
        idler.setReadBufferSize(1000);
        idler.connectToHost(QHostAddress::LocalHost, m_service->port());
        QVERIFY(idler.waitForConnected());
        idler.write(ServiceClient::handshake(m_service->port()));
        QVERIFY(idler.waitForReadyRead());
        idler.write(maskedFrame(wire::openProject(m_file, {})));
        for (int i = 0; i < reads; ++i)
            idler.write(maskedFrame("{sourceQueryList{title}}"_s));
        for (int id = 1; id <= changes; ++id)
            idler.write(maskedFrame(kernoSave.arg(100 + id)));
        for (int i = 0; i < 200; ++i)
            idler.write(maskedFrame("{kernoQueryList{id}}"_s));
        while (idler.bytesToWrite() > 0 && idler.waitForBytesWritten(1000)) {}
        QVERIFY(client->waitUntil([&] { return count(*client, connections) == 2; }));

        // Others are served meanwhile, and the answers don't pile up.
        for (int id = 1; id <= 50; ++id)
            QVERIFY(client->ask(kernoSave.arg(id)).isObject());
        QFile status("/proc/%1/status"_s.arg(m_service->pid()));
        if (status.open(QIODevice::ReadOnly)) {
            static const QRegularExpression peak("VmHWM:\\s+(\\d+) kB"_s);
            const int kilobytes = peak.match(QString::fromLatin1(status.readAll())).captured(1).toInt();
            QVERIFY2(kilobytes > 0 && kilobytes < peakKilobytes, qPrintable(QString::number(kilobytes)));
        }
        QCOMPARE(kernoIds(*client).size(), size_t(50));
        if (readsOn) {
            idler.setReadBufferSize(0);
            connect(&idler, &QTcpSocket::readyRead, [&] { idler.readAll(); });
            idler.readAll();
        } else {
            idler.abort();
            QVERIFY(client->waitUntil([&] { return count(*client, connections) == 3; }));
        }
        // What was taken from it is carried out in either case.
        QVERIFY(client->waitForFrames(50 + changes));
        QVERIFY(client->waitUntil([&] { return count(*client, "kernoCreateOrUpdate"_s) >= 50 + changes; }));
        QVERIFY(kernoIds(*client).size() == size_t(50 + changes));
    }

    void storesNothingInAFileThatWasTakenAway() {
        const auto client = openClient();
        QVERIFY(client);
        QVERIFY(client->ask(kernoSave.arg(1)).isObject());
        QVERIFY(QFile::rename(m_file, m_file + ".moved"_s));
        QVERIFY(!client->errorOf(kernoSave.arg(2)).isEmpty());
        // A new project of the name has nothing to do with the old one.
        const auto other = openClient();
        QVERIFY(other);
        QVERIFY(kernoIds(*other).empty());
        QVERIFY(other->ask(kernoSave.arg(9)).isObject());
        QCOMPARE(kernoIds(*client), (std::set<int>{1}));
    }
};

KERNOVA_TEST_MAIN(TestSessions)
#include "tst_sessions.moc"
