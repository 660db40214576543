#include "tests_support/ScriptedCloud.h"
#include "tests_support/TestMain.h"

#include <QTcpSocket>

namespace {

constexpr int forwardBound = 10000;  // ms

const QByteArray authPath("/cloud/auth/v1");
const QByteArray projectPath("/cloud/project/v1/projects");
const QString keyUuid = "project_uuid"_s;
const QString keyName = "name"_s;

QByteArray compact(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

HttpAnswer success(QJsonObject body = {}) {
    body.insert("status"_s, true);
    return {200, compact(body)};
}

HttpAnswer failure(const QString& message, int status = 200) {
    return {status, compact({{"status"_s, false}, {"message"_s, message}})};
}

}  // namespace

ScriptedCloud::ScriptedCloud()
    : m_http(std::make_unique<ScriptedHttp>([this](const HttpAsked& asked) { return answer(asked); })) {
    m_secrets << password().toUtf8();
}

bool ScriptedCloud::start() {
    m_service.setFolder(m_folder.path());
    if (!m_service.start())
        return false;
    m_http->tunnelTo(m_service.port(), [this](const HttpAsked& handshake) {
        QMutexLocker locker(&m_mutex);
        // A ticket opens one socket.
        const QByteArray ticket = std::exchange(m_ticket, {});
        return !ticket.isEmpty() && handshake.target == "/v1/kernova?ticket=" + ticket;
    });
    return true;
}

QString ScriptedCloud::addProject(const QString& name, bool shared) {
    QMutexLocker locker(&m_mutex);
    return add(name, shared).value(keyUuid).toString();
}

QStringList ScriptedCloud::projectNames() const {
    QMutexLocker locker(&m_mutex);
    QStringList names;
    for (const QJsonValue& entry : m_projects)
        names << entry.toObject().value(keyName).toString();
    return names;
}

void ScriptedCloud::expire() {
    QMutexLocker locker(&m_mutex);
    m_access = "none";
}

void ScriptedCloud::intercept(const QByteArray& target, const ScriptedHttp::Script& script) {
    QMutexLocker locker(&m_mutex);
    m_intercepted = target;
    m_interception = script;
}

QList<QByteArray> ScriptedCloud::secrets() const {
    QMutexLocker locker(&m_mutex);
    return m_secrets;
}

HttpAnswer ScriptedCloud::answer(const HttpAsked& asked) {
    QMutexLocker locker(&m_mutex);
    if (m_interception && asked.target.startsWith(m_intercepted))
        return m_interception(asked);
    if (asked.target == "/cloud/version/")
        return {200, R"({"auth_service":2,"project_service":3,"kernova_service":7})"};
    if (asked.target.startsWith(authPath))
        return answerAuth(asked.target.mid(authPath.size()), QJsonDocument::fromJson(asked.body).object());
    if (m_access.isEmpty() || asked.header("Authorization") != "Bearer " + m_access)
        return failure("The token is not valid."_s, 401);
    if (asked.target == "/v1/kernova/ticket") {
        m_ticket = "ticket-" + QByteArray::number(++m_number);
        m_secrets << m_ticket;
        return success({{"ticket"_s, QString::fromUtf8(m_ticket)}});
    }
    if (asked.target.startsWith(projectPath))
        return answerProjects(asked.verb, asked.target.mid(projectPath.size()), asked);
    return failure("There is nothing here."_s, 404);
}

QJsonObject ScriptedCloud::newTokens() {
    const QByteArray number = QByteArray::number(++m_number);
    m_access = "access-token-" + number;
    m_refresh = "refresh-token-" + number;
    m_secrets << m_access << m_refresh;
    return {{"access_token"_s, QString::fromUtf8(m_access)},
            {"refresh_token"_s, QString::fromUtf8(m_refresh)}};
}

HttpAnswer ScriptedCloud::answerAuth(const QByteArray& path, const QJsonObject& body) {
    const auto text = [&body](const char* key) { return body.value(QLatin1String(key)).toString(); };
    if (path == "/login") {
        if (text("email") != email() || text("password") != password())
            return failure("Email or password is wrong."_s);
        QJsonObject account = newTokens();
        account.insert("region"_s, "EU"_s);
        account.insert(keyName, "Ada Berger"_s);
        const QString host = "127.0.0.1:%1"_s.arg(m_http->port());
        return success({{"account"_s, account}, {"regional_service_map"_s, QJsonObject{{"euv2"_s, host}}}});
    }
    if (m_refresh.isEmpty() || text("refresh_token").toUtf8() != m_refresh)
        return failure("The session has ended."_s);
    if (path == "/refresh")
        return success({{"account"_s, newTokens()}});
    m_access.clear();
    m_refresh.clear();
    return success();
}

QJsonObject ScriptedCloud::add(const QString& name, bool shared) {
    const QJsonObject entry{{keyName, name},
                            {keyUuid, QUuid::createUuid().toString(QUuid::WithoutBraces)},
                            {"region"_s, "EU"_s},
                            {"shared_count"_s, shared ? 1 : 0}};
    (shared ? m_shares : m_projects).append(entry);
    return entry;
}

QJsonObject ScriptedCloud::project(const QString& uuid) const {
    for (const QJsonArray& list : {m_projects, m_shares}) {
        for (const QJsonValue& entry : list) {
            if (entry.toObject().value(keyUuid) == uuid)
                return entry.toObject();
        }
    }
    return {};
}

HttpAnswer ScriptedCloud::answerProjects(const QByteArray& verb, const QByteArray& path,
                                         const HttpAsked& asked) {
    const QJsonObject body = QJsonDocument::fromJson(asked.body).object();
    const auto added = [this](const QString& name) { return success({{"project"_s, add(name, false)}}); };
    if (verb == "GET" && (path.isEmpty() || path.startsWith("?name=")))
        return success({{"projects"_s, m_projects}});
    if (verb == "GET" && path == "/share")
        return success({{"shares"_s, m_shares}});
    if (verb == "POST" && path.isEmpty())
        return added(body.value(keyName).toString());
    if (verb == "POST" && path == "/saveas") {
        const QString name = body.value(keyName).toString();
        const QJsonObject original = project(body.value(QLatin1String("orig_project_uuid")).toString());
        QFile::copy(file(original.value(keyName).toString()), file(name));
        return added(name);
    }
    if (verb == "POST" && path == "/json") {
        const HttpAnswer written = forward("POST", "/v1/projects/json", asked.body);
        return written.status == 200 ? added(body.value(keyName).toString()) : written;
    }
    if (verb == "POST" && path == "/file") {
        const QByteArray mark("filename=\"");
        const int begin = asked.body.indexOf(mark) + mark.size();
        const QString name = QString::fromUtf8(asked.body.mid(begin, asked.body.indexOf('"', begin) - begin));
        const int content = asked.body.indexOf("\r\n\r\n") + 4;
        writeFile(name, asked.body.mid(content, asked.body.lastIndexOf("\r\n--") - content));
        return added(name);
    }
    const QList<QByteArray> parts = path.split('/');
    const QJsonObject entry = project(QString::fromUtf8(parts.value(1)));
    if (entry.isEmpty())
        return failure("There is no such project."_s, 404);
    const QString name = entry.value(keyName).toString();
    if (verb == "DELETE") {
        for (int i = m_projects.size() - 1; i >= 0; --i) {
            if (m_projects[i].toObject() == entry)
                m_projects.removeAt(i);
        }
        return success();
    }
    if (parts.value(2) == "json")
        return forward("GET", "/v1/projects/json?name=" + QUrl::toPercentEncoding(name), {});
    QFile content(file(name));
    return content.open(QIODevice::ReadOnly) ? HttpAnswer{200, content.readAll()} : HttpAnswer{404, {}};
}

bool ScriptedCloud::writeFile(const QString& name, const QByteArray& content) const {
    QFile written(file(name));
    return written.open(QIODevice::WriteOnly) && written.write(content) == content.size();
}

HttpAnswer ScriptedCloud::forward(const QByteArray& verb, const QByteArray& target,
                                  const QByteArray& body) const {
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, m_service.port());
    socket.write(verb + ' ' + target +
                 " HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(m_service.port()) +
                 "\r\nConnection: close\r\nContent-Type: application/json\r\nContent-Length: " +
                 QByteArray::number(body.size()) + "\r\n\r\n" + body);
    while (socket.state() != QAbstractSocket::UnconnectedState && socket.waitForReadyRead(forwardBound)) {}
    const QByteArray received = socket.readAll();
    return {received.mid(9, 3).toInt(), received.mid(received.indexOf("\r\n\r\n") + 4)};
}
