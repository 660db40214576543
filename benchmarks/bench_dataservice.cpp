#include "BareSocket.h"
#include "link/Connection.h"
#include "store/Database.h"
#include "store/ProjectFile.h"
#include "store/Sql.h"
#include "wire/Frames.h"
#include "wire/QueryText.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QWebSocket>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

// The data service against what it stands on: reads against a bare echo, writes against bare SQL.

namespace {

using wire::Record;

constexpr int highlightCount = 100000;
constexpr int batchSize = 1000;
constexpr int singleCount = 2000;
constexpr int sourceCount = 1000;
constexpr int sourceLength = 100000;

/// The service as a process of its own, ended with the object.
class Service {
public:
    Service() {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/kernova-service"),
                        {QStringLiteral("-local")});
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) {}
        m_port = static_cast<quint16>(m_process.readLine().mid(6).trimmed().toUInt());
    }
    ~Service() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    quint16 port() const { return m_port; }
    /// Greatest memory so far in MiB, or 0 where the system doesn't tell.
    double peakMemory() const {
        QFile status(QStringLiteral("/proc/%1/status").arg(m_process.processId()));
        if (!status.open(QIODevice::ReadOnly))
            return 0;
        static const QRegularExpression line(QStringLiteral("VmHWM:\\s+(\\d+)"));
        return line.match(QString::fromLatin1(status.readAll())).captured(1).toDouble() / 1024;
    }

private:
    QProcess m_process;
    quint16 m_port = 0;
};

/// A client of the service that costs as little as it can.
class BareClient {
public:
    explicit BareClient(quint16 port) : m_socket(port) {}

    QByteArray frame(const QString& query) {
        return wire::RequestFrame{{}, ++m_lastId, query}.toText().toUtf8();
    }

    QByteArray ask(const QString& query) {
        const QByteArray text = frame(query);
        const QByteArray start = "{\"msg_id\":\"i_" + QByteArray::number(m_lastId) + '"';
        m_socket.write(text);
        for (;;) {
            const QByteArray reply = m_socket.read();
            if (reply.startsWith(start))
                return reply;
        }
    }
    void open(const QString& path) {
        ask(wire::openProject(path, {}));
        m_socket.read();  // the count of clients
    }
    /// Writes all frames while it reads as many.
    void stream(const std::vector<QByteArray>& frames) {
        std::thread writer([&] {
            for (const QByteArray& each : frames)
                m_socket.write(each);
        });
        for (size_t i = 0; i < frames.size(); ++i)
            m_socket.read();
        writer.join();
    }
    BareSocket& socket() { return m_socket; }

private:
    BareSocket m_socket;
    int m_lastId = 0;
};

/// Milliseconds that one call takes.
template <typename Call> double timeOf(Call call) {
    QElapsedTimer timer;
    timer.start();
    call();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Microseconds of one call: the median of rounds of many.
template <typename Call> double medianOf(Call call) {
    constexpr int rounds = 9;
    constexpr int calls = 400;
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(timeOf([&] {
                            for (int i = 0; i < calls; ++i)
                                call();
                        }) *
                        1000 / calls);
    }
    std::sort(times.begin(), times.end());
    return times[rounds / 2];
}

QString highlight(int id) {
    const int place = id * 7919 % (sourceCount * 80);
    return QStringLiteral("id:%1 kernoId:%2 sourceId:%3 questionId:1 start:%4 length:%5 author:\"Ann\"")
        .arg(id)
        .arg(id % 150 + 1)
        .arg(place % sourceCount + 1)
        .arg(place * 31 % sourceLength)
        .arg(20 + id % 200);
}

void measureReads(const QString& path) {
    const QString query = QStringLiteral("{preferenceQueryById(key:\"___db_version\"){key value}}");
    double echo = 0;
    {
        EchoServer server;
        BareSocket socket(server.port());
        const QByteArray text = wire::RequestFrame{{}, 1, query}.toText().toUtf8();
        echo = medianOf([&] {
            socket.write(text);
            socket.read();
        });
    }
    double qtEcho = 0;
    {
        EchoServer server;
        QWebSocket socket;
        QEventLoop loop;
        QObject::connect(&socket, &QWebSocket::connected, &loop, &QEventLoop::quit);
        QObject::connect(&socket, &QWebSocket::textMessageReceived, &loop, &QEventLoop::quit);
        socket.open(QUrl(QStringLiteral("ws://127.0.0.1:%1").arg(server.port())));
        loop.exec();
        const QString text = wire::RequestFrame{{}, 1, query}.toText();
        qtEcho = medianOf([&] {
            socket.sendTextMessage(text);
            loop.exec();
        });
        socket.abort();
    }
    Service service;
    BareClient client(service.port());
    client.open(path);
    client.ask(
        QStringLiteral("mutation{preferenceCreateOrUpdate(key:\"___db_version\" value:5){key value}}"));
    const double bare = medianOf([&] { client.ask(query); });

    Connection link;
    double real = 0;
    if (link.connect(false)) {
        link.request(wire::openProject(path, {}));
        real = medianOf([&] { link.request(query); });
    }
    std::printf(
        "Reading one preference, microseconds\n"
        "  bare echo                                  %8.1f\n"
        "  service, bare client                       %8.1f   %5.2f x the bare echo\n"
        "  echo through the link's socket class       %8.1f\n"
        "  service through the real link, blocking    %8.1f   %5.2f x that echo, %5.2f x the bare echo\n\n",
        echo, bare, bare / echo, qtEcho, real, real / qtEcho, real / echo);
}

/// The same rows by prepared statements alone, one transaction for each batch.
double bareSql(const QString& path) {
    projectfile::create(path);
    QString message;
    const std::unique_ptr<Database> database = projectfile::open(path, &message);
    static const QRegularExpression number(QStringLiteral("[a-zA-Z]+:(\\d+)"));
    const Table& table = tableOf(Record::Highlight);
    std::vector<int> given;
    for (size_t i = 0; i < table.columns.size(); ++i) {
        if (table.columns[i].sent)
            given.push_back(static_cast<int>(i));
    }
    std::vector<std::vector<QVariant>> rows;
    for (int id = 1; id <= highlightCount; ++id) {
        std::vector<QVariant> row;
        QRegularExpressionMatchIterator matches = number.globalMatch(highlight(id));
        while (matches.hasNext())
            row.push_back(matches.next().captured(1).toLongLong());
        row.push_back(QStringLiteral("Ann"));
        row.push_back(QStringLiteral("2024-01-01T00:00:00Z"));
        rows.push_back(row);
    }
    const QString text = sql::upsert(table, given, false);
    return timeOf([&] {
        for (size_t i = 0; i < rows.size(); ++i) {
            if (i % batchSize == 0)
                database->run(QStringLiteral("BEGIN"));
            Statement statement = database->statement(text);
            for (const QVariant& value : rows[i])
                statement.bind(value);
            statement.run();
            if (i % batchSize == batchSize - 1)
                database->run(QStringLiteral("COMMIT"));
        }
    });
}

/// From the first batch sent to the last one notified.
double batchedWrites(BareClient& client) {
    std::vector<QByteArray> frames;
    for (int id = 1; id <= highlightCount;) {
        QList<QStringList> batch;
        for (int i = 0; i < batchSize; ++i)
            batch << QStringList{highlight(id++)};
        frames.push_back(client.frame(
            wire::batchMutation(Record::Highlight, wire::Operation::BatchCreateOrUpdate, batch)));
    }
    return timeOf([&] { client.stream(frames); });
}

void measureWrites(const QString& folder) {
    // In turn, because the disk's mood changes more than either does.
    constexpr int rounds = 5;
    std::vector<std::pair<double, double>> times;
    for (int round = 0; round < rounds; ++round) {
        const QString name = folder + QStringLiteral("/%1-%2.krn").arg(round);
        const double bare = bareSql(name.arg(QStringLiteral("bare")));
        Service service;
        BareClient client(service.port());
        client.open(name.arg(QStringLiteral("service")));
        times.emplace_back(bare, batchedWrites(client));
    }
    std::sort(times.begin(), times.end(), [](const auto& left, const auto& right) {
        return left.second / left.first < right.second / right.first;
    });
    const auto median = times[rounds / 2];
    std::printf("Storing %d highlights by batches of %d, milliseconds, the median of %d rounds\n"
                "  bare SQL                                   %8.0f\n"
                "  service, sent to notified                  %8.0f   %5.2f x bare SQL (all rounds: %.2f to "
                "%.2f)\n\n",
                highlightCount, batchSize, rounds, median.first, median.second, median.second / median.first,
                times.front().second / times.front().first, times.back().second / times.back().first);
}

void measureSingles(const QString& path) {
    Service service;
    BareClient client(service.port());
    client.open(path);
    batchedWrites(client);
    std::vector<QByteArray> frames;
    for (int id = 1; id <= singleCount; ++id) {
        frames.push_back(client.frame(wire::mutation(
            QStringLiteral("highlightCreateOrUpdate"), {highlight(highlightCount + id)},
            {QStringLiteral("id kernoId sourceId questionId color start length author timestamp")})));
    }
    const double singles = timeOf([&] { client.stream(frames); });
    std::printf("%d single mutations sent without waiting, all notified: %.0f ms (aim: 1500)\n\n",
                singleCount, singles);

    std::printf("Counts over %d highlights, milliseconds\n", highlightCount + singleCount);
    for (const QString& query :
         {wire::kernoIdsForKernosWithOverlap(), wire::kernoOverlapCount(3), wire::highlightOverlapCount(3, 4),
          wire::highlightsCoverageByKernoAndAuthor(), wire::sourceCodedLengthById(),
          wire::quoteCountsInKernos()}) {
        const double time = timeOf([&] { client.ask(query); });
        std::printf("  %-42s %8.1f\n",
                    qPrintable(query.mid(1).section(QRegularExpression(QStringLiteral("[({}]")), 0, 0)),
                    time);
    }
    std::printf("\n");
}

void measureLargeProject(const QString& path) {
    {
        Service service;
        BareClient client(service.port());
        client.open(path);
        std::vector<QByteArray> frames;
        for (int id = 1; id <= sourceCount; ++id) {
            frames.push_back(client.frame(
                wire::mutation(QStringLiteral("sourceCreateOrUpdate"),
                               {QStringLiteral("id:%1 title:\"s\" icon:\"\" author:\"Ann\"").arg(id)},
                               {QStringLiteral("id")})));
            frames.push_back(
                client.frame(wire::mutation(QStringLiteral("questionAnswerCreateOrUpdate"),
                                            {QStringLiteral("id:%1 questionId:1 sourceId:%1 answer:\"%2\"")
                                                 .arg(id)
                                                 .arg(QString(sourceLength, QLatin1Char('a' + id % 26)))},
                                            {QStringLiteral("id")})));
        }
        client.stream(frames);
    }
    Service service;
    BareClient client(service.port());
    const double before = service.peakMemory();
    const double opening = timeOf([&] {
        client.open(path);
        client.ask(QStringLiteral("{sourceQueryList{id title}}"));
    });
    const double opened = service.peakMemory();
    const double eachRead = timeOf([&] {
        for (int id = 1; id <= sourceCount; ++id)
            client.ask(QStringLiteral("{questionAnswerQueryList(sourceId:%1){id answer}}").arg(id));
    });
    const double streamed = service.peakMemory();
    qint64 replyBytes = 0;
    const double wholeRead = timeOf(
        [&] { replyBytes = client.ask(QStringLiteral("{questionAnswerQueryList{id answer}}")).size(); });
    std::printf("A project of %d sources of %d characters\n"
                "  open and first list                        %8.0f ms (aim: 1000)\n"
                "  every answer by a read of its own          %8.0f ms\n"
                "  all answers in one reply of %4.0f MiB       %8.0f ms\n"
                "  peak memory of the service, MiB: started %.0f, opened %.0f, after all single reads %.0f, "
                "after the large reply %.0f\n",
                sourceCount, sourceLength, opening, eachRead, static_cast<double>(replyBytes) / (1 << 20),
                wholeRead, before, opened, streamed, service.peakMemory());
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    measureReads(folder.filePath(QStringLiteral("reads.krn")));
    measureWrites(folder.path());
    measureSingles(folder.filePath(QStringLiteral("singles.krn")));
    measureLargeProject(folder.filePath(QStringLiteral("large.krn")));
    return 0;
}
