#include "ServiceClient.h"
#include "protocol/ProjectJson.h"
#include "store/Table.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"
#include "wire/QueryText.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTcpSocket>

using wire::Record;

namespace {

const QString path = "/v1/projects/json"_s;
const QByteArray token = QByteArrayLiteral("00112233445566778899aabbccddeeff");

struct HttpAnswer {
    int status = 0;
    QJsonObject json;
};

}  // namespace

class TestHttp : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    QNetworkAccessManager m_manager;
    std::unique_ptr<RealService> m_service;

    HttpAnswer wait(QNetworkReply* reply) {
        QSignalSpy finished(reply, &QNetworkReply::finished);
        if (!reply->isFinished())
            finished.wait();
        reply->deleteLater();
        return {reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                QJsonDocument::fromJson(reply->readAll()).object()};
    }
    HttpAnswer get(const QString& name, const QString& only = {}) {
        QUrl url = m_service->httpUrl(path);
        QUrlQuery query;
        query.addQueryItem("name"_s, QString::fromLatin1(QUrl::toPercentEncoding(name)));
        if (!only.isEmpty())
            query.addQueryItem("only"_s, only);
        url.setQuery(query);
        return wait(m_manager.get(QNetworkRequest(url)));
    }
    HttpAnswer post(const QByteArray& body) {
        QNetworkRequest request(m_service->httpUrl(path));
        request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json"_s);
        return wait(m_manager.post(request, body));
    }
    HttpAnswer post(const QJsonObject& body) {
        return post(QJsonDocument(body).toJson(QJsonDocument::Compact));
    }

    /// Sends bytes as they are and gives the first line of the answer.
    QByteArray firstLine(const QByteArray& request) {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, m_service->port());
        if (!socket.waitForConnected())
            return {};
        socket.write(request);
        while (!socket.canReadLine() && socket.waitForReadyRead(5000)) {}
        return socket.readLine().trimmed();
    }
    QStringList files() const {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

private slots:
    void init() {
        m_service = std::make_unique<RealService>();
        QVERIFY(m_service->start());
    }

    void checksWhoAsks_data() {
        columns<QByteArray, bool, bool>({"headers", "withToken", "passes"});
        const QByteArray host = "Host: 127.0.0.1:PORT\r\n";
        const QByteArray tokenLine = "Kernova-Service-Token: " + token + "\r\n";
        addRow("plain", host, false, true);
        addRow("no host", QByteArray(), false, false);
        addRow("other port", QByteArray("Host: 127.0.0.1:1\r\n"), false, false);
        addRow("name", QByteArray("Host: localhost:PORT\r\n"), false, false);
        addRow("rebound name", QByteArray("Host: evil.example:PORT\r\n"), false, false);
        addRow("page", host + "Origin: http://127.0.0.1:PORT\r\n", false, false);
        addRow("null origin", host + "Origin: null\r\n", false, false);
        addRow("token missing", host, true, false);
        addRow("token wrong", host + "Kernova-Service-Token: " + QByteArray(32, '0') + "\r\n", true, false);
        addRow("token right", host + tokenLine, true, true);
        addRow("token and page", host + tokenLine + "Origin: http://a\r\n", true, false);
    }

    void checksWhoAsks() {
        FETCH(QByteArray, headers, bool, withToken, bool, passes);
        if (withToken) {
            m_service = std::make_unique<RealService>(token);
            QVERIFY(m_service->start());
        }
        headers.replace("PORT", QByteArray::number(m_service->port()));
        const QByteArray upgrade =
            "Connection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
            "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n";
        QCOMPARE(firstLine("GET / HTTP/1.1\r\n" + headers + upgrade + "\r\n").startsWith("HTTP/1.1 101"),
                 passes);
        QCOMPARE(firstLine("GET / HTTP/1.1\r\n" + headers + "\r\n"),
                 passes ? QByteArray("HTTP/1.1 404 Not Found") : QByteArray("HTTP/1.1 403 Forbidden"));
    }

    void servesOnlyOneAddress() {
        // The loopback network has more addresses than one; only the named one is listened on.
        QTcpSocket socket;
        socket.connectToHost("127.0.0.2"_s, m_service->port());
        QVERIFY(!socket.waitForConnected(2000));
    }

    void sendsAndTakesWholeProjects() {
        const QString first = m_folder.filePath("first & + \u00e4.krn"_s);
        ServiceClient client;
        QVERIFY(client.connectTo(m_service->port()) && client.open(first));
        for (Record record : wire::allRecords()) {
            QStringList arguments;
            for (const Column& column : tableOf(record).columns) {
                if (!column.sent)
                    continue;
                const bool number = column.type == FieldType::Integer || column.type == FieldType::Boolean;
                arguments << (number ? wire::argument(column.name, 1)
                                     : wire::argument(column.name, "#\"1\n"_s + column.name));
            }
            client.send(ServiceClient::saving(record, arguments.join(QLatin1Char(' '))));
        }
        QVERIFY(client.ask("{kernoMaxId(next: false)}"_s).isDouble());
        const HttpAnswer open = get(first);
        QCOMPARE(open.status, 200);
        QCOMPARE(open.json.value("status"_s), QJsonValue(true));
        QCOMPARE(open.json.value("project"_s)["name"_s].toString(), first);
        const QJsonObject project = open.json.value("project_json"_s).toObject();
        QCOMPARE(project.size(), static_cast<int>(projectjson::parts().size()));
        for (const projectjson::Part& part : projectjson::parts())
            QCOMPARE(project.value(part.key).toArray().size(), 1);
        QJsonObject settings = open.json;
        const QString preferences = "preferences"_s;
        settings.insert("project_json"_s, QJsonObject{{preferences, project.value(preferences)}});
        QCOMPARE(get(first, preferences).json, settings);
        client.request(wire::closeProject());
        QCOMPARE(get(first).json, open.json);
        QCOMPARE(get(first, preferences).json, settings);
        QCOMPARE(get(first, "kernos"_s).status, 400);

        const QString second = m_folder.filePath("second.krn"_s);
        const HttpAnswer posted =
            post({{"name"_s, second}, {"project_json"_s, project}, {"extra"_s, QJsonArray{1, "a"_s}}});
        QCOMPARE(posted.status, 200);
        QCOMPARE(posted.json.value("status"_s), QJsonValue(true));
        QCOMPARE(posted.json.value("project"_s),
                 QJsonValue(QJsonObject{{"name"_s, second}, {"extra"_s, QJsonArray{1, "a"_s}}}));
        QCOMPARE(get(second).json.value("project_json"_s).toObject(), project);
        QVERIFY(client.open(second));
        QCOMPARE(client.ask("{highlightMaxId(next: true)}"_s).toInt(), 2);

        // An open file isn't replaced; a closed one is.
        QCOMPARE(post({{"name"_s, second}, {"project_json"_s, QJsonObject()}}).status, 409);
        client.request(wire::closeProject());
        QCOMPARE(post({{"name"_s, second}, {"project_json"_s, QJsonObject()}}).status, 200);
        QCOMPARE(get(second).json.value("project_json"_s)["kernos"_s].toArray().size(), 0);
        QFile::remove(first);
        QFile::remove(second);
    }

    void takesRecordsByTheirRoles() {
        // Records written as maps call some fields by their roles, and hold fields that are the client's own.
        const QString file = m_folder.filePath("roles.krn"_s);
        const QByteArray body =
            "{\"name\":\"" + file.toUtf8() +
            "\",\"project_json\":{\"groups\":[{\"id\":4,\"title\":\"staff\",\"visible\":true},{\"title\":"
            "\"no id\"}],"
            "\"source_metadata_keys\":[{\"id\":1,\"key\":\"age\",\"multipleChoice\":true}],"
            "\"unknown\":[1,2],\"highlights\":[{\"id\":3,\"color\":\"#ff0000\",\"start\":2,\"length\":3,"
            "\"y1\":7,"
            "\"timestamp\":\"2024-05-06T10:00:00+02:00\"}]}}";
        QCOMPARE(post(body).status, 200);
        const QJsonObject project = get(file).json.value("project_json"_s).toObject();
        QCOMPARE(project.value("groups"_s).toArray(),
                 (QJsonArray{QJsonObject{{"id"_s, 4}, {"description"_s, "staff"_s}}}));
        QCOMPARE(project.value("source_metadata_keys"_s)[0]["multipleChoice"_s], QJsonValue(true));
        QCOMPARE(project.value("highlights"_s)[0]["timestamp"_s].toString(), "2024-05-06T08:00:00Z"_s);
        QFile::remove(file);
    }

    void leavesNoFileAfterAFailure_data() {
        columns<QByteArray, int>({"body", "status"});
        addRow("no json", QByteArray("hello"), 400);
        addRow("array", QByteArray("[1]"), 400);
        addRow("no name", QByteArray("{\"project_json\":{}}"), 400);
        addRow("no records", QByteArray("{\"name\":\"NAME\"}"), 400);
        addRow("cut off", QByteArray("{\"name\":\"NAME\",\"project_json\":{\"kernos\":[{\"id\":1},"), 400);
        addRow("bad record",
               QByteArray("{\"name\":\"NAME\",\"project_json\":{\"kernos\":[{\"id\":1},{id}]}}"), 400);
        addRow("no list", QByteArray("{\"name\":\"NAME\",\"project_json\":{\"kernos\":7}}"), 400);
        addRow("no folder", QByteArray("{\"name\":\"NAME/x/y.krn\",\"project_json\":{}}"), 500);
        addRow("deep",
               QByteArray("{\"name\":\"NAME\",\"project_json\":{},\"a\":") + QByteArray(80, '[') +
                   QByteArray(80, ']') + "}",
               400);
    }

    void leavesNoFileAfterAFailure() {
        FETCH(QByteArray, body, int, status);
        body.replace("NAME", m_folder.filePath("failed.krn"_s).toUtf8());
        const HttpAnswer answer = post(body);
        QCOMPARE(answer.status, status);
        QCOMPARE(answer.json.value("status"_s), QJsonValue(false));
        QVERIFY(!answer.json.value("message"_s).toString().isEmpty());
        QCOMPARE(files(), QStringList());
    }

    void answersForFilesItCannotSend() {
        QCOMPARE(get(m_folder.filePath("none.krn"_s)).status, 404);
        const QString foreign = m_folder.filePath("foreign.krn"_s);
        writeBytes(foreign, "not a project");
        const HttpAnswer answer = get(foreign);
        QCOMPARE(answer.status, 400);
        QCOMPARE(answer.json.value("status"_s), QJsonValue(false));
        QFile::remove(foreign);
    }
};

KERNOVA_TEST_MAIN(TestHttp)
#include "tst_http.moc"
