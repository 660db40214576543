#include "tests_support/ScriptedServer.h"
#include "tests_support/TestMain.h"

#include "wire/Operations.h"

#include <QWebSocket>
#include <QWebSocketCorsAuthenticator>

ScriptedServer::ScriptedServer() {
    scripts.insert(wire::name::dbOpen, [](ScriptedClient& client, const ScriptedRequest& request) {
        client.reply(request, {{wire::name::dbOpen, openedProject(request, "owner"_s)}});
    });
    scripts.insert(wire::name::dbClose, [](ScriptedClient& client, const ScriptedRequest& request) {
        client.reply(request, {{wire::name::dbClose, QJsonObject{{"name"_s, QString()},
                                                                 {"uuid"_s, wire::nullUuid},
                                                                 {"status"_s, "closed"_s}}}});
    });
}

QJsonObject ScriptedServer::openedProject(const ScriptedRequest& request, const QString& access) {
    return {{"name"_s, request.argument("name"_s)},
            {"uuid"_s, wire::nullUuid},
            {"status"_s, wire::statusOpen},
            {"access"_s, access}};
}

quint16 ScriptedServer::listen() {
    m_server = new QWebSocketServer("scripted"_s, QWebSocketServer::NonSecureMode, this);
    connect(m_server, &QWebSocketServer::newConnection, this, &ScriptedServer::onNewConnection);
    connect(m_server, &QWebSocketServer::originAuthenticationRequired, this,
            [this](QWebSocketCorsAuthenticator* authenticator) { authenticator->setAllowed(!refusing); });
    return m_server->listen(QHostAddress::LocalHost) ? m_server->serverPort() : quint16(0);
}

void ScriptedServer::onNewConnection() {
    QWebSocket* socket = m_server->nextPendingConnection();
    socket->setParent(this);
    handshake = socket->request();
    m_clients << socket;
    connect(socket, &QWebSocket::textMessageReceived, this,
            [this, socket](const QString& text) { onText(*socket, text); });
    connect(socket, &QWebSocket::disconnected, this, [this, socket] {
        m_clients.removeAll(socket);
        socket->deleteLater();
    });
}

void ScriptedServer::onText(QWebSocket& socket, const QString& text) {
    ScriptedRequest request;
    request.frame = wire::requestFromJson(wire::readFrame(text).object);
    request.query = wire::parseQuery(request.frame.text).query;
    {
        QMutexLocker locker(&m_mutex);
        m_requests << request.frame;
    }
    ScriptedClient client(socket);
    const QString operation = request.query.operation;
    if (const auto script = scripts.value(operation))
        script(client, request);
    else
        client.reply(request, {{operation, QJsonArray()}});
}

void ScriptedServer::eachClient(const std::function<void(ScriptedClient&)>& action) {
    const QList<QWebSocket*> clients = m_clients;
    for (QWebSocket* socket : clients) {
        ScriptedClient client(*socket);
        action(client);
    }
}

QList<wire::RequestFrame> ScriptedServer::requests() const {
    QMutexLocker locker(&m_mutex);
    return m_requests;
}

void ScriptedServer::forgetRequests() {
    QMutexLocker locker(&m_mutex);
    m_requests.clear();
}
