#include "tests_support/ScriptedService.h"

#include "tests_support/TestMain.h"
#include "wire/Operations.h"

#include <QNetworkRequest>
#include <QWebSocket>
#include <QWebSocketCorsAuthenticator>
#include <QWebSocketServer>
#include <optional>

QString writeProgram(const QTemporaryDir& folder, const QString& name, const QString& body) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return {};
    file.write("#!/bin/sh\n" + body.toUtf8() + '\n');
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return file.fileName();
}

QString ScriptedRequest::argument(const QString& name) const {
    const wire::QueryValue* value = query.argument(name);
    if (!value)
        return {};
    return value->kind == wire::QueryValue::Kind::Integer ? QString::number(value->integer) : value->text;
}

void ScriptedClient::reply(const ScriptedRequest& request, const QJsonObject& data) {
    send({request.frame.messageId, 200, {{"data"_s, data}}});
}

void ScriptedClient::refuse(const ScriptedRequest& request) {
    const QJsonObject error{{"message"_s, "the disk is full"_s}};
    send({request.frame.messageId, 500, {{"errors"_s, QJsonArray{error}}}});
}

void ScriptedClient::send(const wire::ResponseFrame& frame) {
    sendText(frame.toText());
}

void ScriptedClient::sendText(const QString& text) {
    m_socket.sendTextMessage(text);
}

void ScriptedClient::close(int code) {
    m_socket.close(static_cast<QWebSocketProtocol::CloseCode>(code));
}

void ScriptedClient::abort() {
    m_socket.abort();
}

/// The part of the service that lives on its thread.
class ScriptedServer : public QObject {
public:
    ScriptedServer() {
        scripts.insert(wire::name::dbOpen, [](ScriptedClient& client, const ScriptedRequest& request) {
            client.reply(request, {{wire::name::dbOpen, openedProject(request, "owner"_s)}});
        });
        scripts.insert(wire::name::dbClose, [](ScriptedClient& client, const ScriptedRequest& request) {
            client.reply(request, {{wire::name::dbClose, QJsonObject{{"name"_s, QString()},
                                                                     {"uuid"_s, wire::nullUuid},
                                                                     {"status"_s, "closed"_s}}}});
        });
    }

    /// Runs the function on this object's thread and waits for its result. Must not be called while stalled.
    template <typename Function> auto run(Function function) {
        using Result = decltype(function());
        if constexpr (std::is_void_v<Result>) {
            QMetaObject::invokeMethod(
                this, [&] { function(); }, Qt::BlockingQueuedConnection);
        } else {
            std::optional<Result> result;
            QMetaObject::invokeMethod(
                this, [&] { result = function(); }, Qt::BlockingQueuedConnection);
            return *result;
        }
    }

    /// The port, or 0.
    quint16 listen() {
        m_server = new QWebSocketServer("scripted"_s, QWebSocketServer::NonSecureMode, this);
        connect(m_server, &QWebSocketServer::newConnection, this, &ScriptedServer::onNewConnection);
        connect(m_server, &QWebSocketServer::originAuthenticationRequired, this,
                [this](QWebSocketCorsAuthenticator* authenticator) { authenticator->setAllowed(!refusing); });
        return m_server->listen(QHostAddress::LocalHost) ? m_server->serverPort() : quint16(0);
    }

    void eachClient(const std::function<void(ScriptedClient&)>& action) {
        const QList<QWebSocket*> now = clients;
        for (QWebSocket* socket : now) {
            ScriptedClient client(*socket);
            action(client);
        }
    }

    /// What the service says of a project that it has opened.
    static QJsonObject openedProject(const ScriptedRequest& request, const QString& access) {
        return {{"name"_s, request.argument("name"_s)},
                {"uuid"_s, wire::nullUuid},
                {"status"_s, wire::statusOpen},
                {"access"_s, access}};
    }

    QHash<QString, ScriptedService::Script> scripts;
    QList<QWebSocket*> clients;
    QNetworkRequest handshake;
    bool refusing = false;
    QMutex mutex;
    QList<wire::RequestFrame> requests;  ///< under the mutex

private:
    void onNewConnection() {
        QWebSocket* socket = m_server->nextPendingConnection();
        socket->setParent(this);
        handshake = socket->request();
        clients << socket;
        connect(socket, &QWebSocket::textMessageReceived, this,
                [this, socket](const QString& text) { onText(*socket, text); });
        connect(socket, &QWebSocket::disconnected, this, [this, socket] {
            clients.removeAll(socket);
            socket->deleteLater();
        });
    }

    void onText(QWebSocket& socket, const QString& text) {
        ScriptedRequest request;
        request.frame = wire::requestFromJson(wire::readFrame(text).object);
        request.query = wire::parseQuery(request.frame.text).query;
        {
            QMutexLocker locker(&mutex);
            requests << request.frame;
        }
        ScriptedClient client(socket);
        const QString operation = request.query.operation;
        if (const auto script = scripts.value(operation))
            script(client, request);
        else
            client.reply(request, {{operation, QJsonArray()}});
    }

    QWebSocketServer* m_server = nullptr;
};

ScriptedService::ScriptedService()
    : m_server(new ScriptedServer), m_formerProgram(qgetenv("KERNOVA_SERVICE_PROGRAM")) {
    m_server->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_server, &QObject::deleteLater);
    m_thread.start();
    m_port = m_server->run([this] { return m_server->listen(); });
    m_program = writeProgram(m_folder, "service"_s, "echo 'Port: %1'\nexec cat > /dev/null"_s.arg(m_port));
    qputenv("KERNOVA_SERVICE_PROGRAM", QFile::encodeName(m_program));
}

ScriptedService::~ScriptedService() {
    resume();
    m_thread.quit();
    m_thread.wait();
    qputenv("KERNOVA_SERVICE_PROGRAM", m_formerProgram);
}

void ScriptedService::on(const QString& operation, Script script) {
    m_server->run([&] { m_server->scripts.insert(operation, script); });
}

void ScriptedService::answer(const QString& operation, const QJsonValue& value) {
    on(operation, [operation, value](ScriptedClient& client, const ScriptedRequest& request) {
        client.reply(request, {{operation, value}});
    });
}

void ScriptedService::fail(const QString& operation) {
    on(operation, [](ScriptedClient& client, const ScriptedRequest& request) { client.refuse(request); });
}

void ScriptedService::ignore(const QString& operation) {
    on(operation, [](ScriptedClient&, const ScriptedRequest&) {});
}

void ScriptedService::setAccess(const QString& level) {
    on(wire::name::dbOpen, [level](ScriptedClient& client, const ScriptedRequest& request) {
        client.reply(request, {{wire::name::dbOpen, ScriptedServer::openedProject(request, level)}});
    });
}

void ScriptedService::setRefusing(bool refusing) {
    m_server->run([&] { m_server->refusing = refusing; });
}

void ScriptedService::push(const QJsonObject& payload, int status) {
    pushText(wire::ResponseFrame{0, status, payload}.toText());
}

void ScriptedService::pushText(const QString& text) {
    m_server->run([&] { m_server->eachClient([&](ScriptedClient& client) { client.sendText(text); }); });
}

void ScriptedService::closeAll(int code) {
    m_server->run([&] { m_server->eachClient([&](ScriptedClient& client) { client.close(code); }); });
}

void ScriptedService::abortAll() {
    m_server->run([&] { m_server->eachClient([](ScriptedClient& client) { client.abort(); }); });
}

void ScriptedService::stall() {
    m_stalled = true;
    QMetaObject::invokeMethod(m_server, [this] { m_stall.acquire(); });
}

void ScriptedService::resume() {
    if (m_stalled)
        m_stall.release();
    m_stalled = false;
}

QList<wire::RequestFrame> ScriptedService::requests() const {
    QMutexLocker locker(&m_server->mutex);
    return m_server->requests;
}

QStringList ScriptedService::requestTexts() const {
    QStringList texts;
    for (const wire::RequestFrame& frame : requests())
        texts << frame.text;
    return texts;
}

void ScriptedService::forgetRequests() {
    QMutexLocker locker(&m_server->mutex);
    m_server->requests.clear();
}

int ScriptedService::clientCount() const {
    return m_server->run([this] { return m_server->clients.size(); });
}

QByteArray ScriptedService::handshakeHeader(const QByteArray& name) const {
    return m_server->run([&] { return m_server->handshake.rawHeader(name); });
}
