#include "tests_support/ScriptedHttp.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <memory>

QByteArray HttpAsked::header(const QByteArray& name) const {
    const QList<QByteArray> lines = head.split('\n');
    for (const QByteArray& line : lines) {
        const int colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).toLower() == name.toLower())
            return line.mid(colon + 1).trimmed();
    }
    return {};
}

ScriptedHttp::ScriptedHttp(Script script) : m_script(std::move(script)), m_context(new QObject) {
    m_context->moveToThread(&m_thread);
    m_thread.start();
    inThread([this] {
        m_server = new QTcpServer(m_context);
        m_server->listen(QHostAddress::LocalHost);
        m_port = m_server->serverPort();
        QObject::connect(m_server, &QTcpServer::newConnection, m_context, [this] { onConnection(); });
    });
}

ScriptedHttp::~ScriptedHttp() {
    inThread([this] { delete m_context; });
    m_thread.quit();
    m_thread.wait();
}

void ScriptedHttp::inThread(const std::function<void()>& action) {
    QMetaObject::invokeMethod(m_context, action, Qt::BlockingQueuedConnection);
}

QList<HttpAsked> ScriptedHttp::asked() const {
    QMutexLocker locker(&m_mutex);
    return m_asked;
}

void ScriptedHttp::forget() {
    QMutexLocker locker(&m_mutex);
    m_asked.clear();
}

void ScriptedHttp::tunnelTo(quint16 port, std::function<bool(const HttpAsked&)> admits) {
    inThread([&] {
        m_tunnelPort = port;
        m_admits = std::move(admits);
    });
}

void ScriptedHttp::rewriteTunnels(const QList<QPair<QByteArray, QByteArray>>& pairs) {
    inThread([&] { m_rewrites = pairs; });
}

void ScriptedHttp::cutTunnels() {
    inThread([this] {
        const QList<QTcpSocket*> tunnels = m_tunnels;
        for (QTcpSocket* socket : tunnels)
            socket->abort();
    });
}

void ScriptedHttp::onConnection() {
    while (QTcpSocket* socket = m_server->nextPendingConnection()) {
        const auto received = std::make_shared<QByteArray>();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        QObject::connect(socket, &QTcpSocket::readyRead, m_context, [this, socket, received] {
            *received += socket->readAll();
            onData(*socket, *received);
        });
    }
}

// One request for each connection: the answer closes it.
void ScriptedHttp::onData(QTcpSocket& socket, QByteArray& received) {
    const int headEnd = received.indexOf("\r\n\r\n") + 4;
    if (headEnd < 4)
        return;
    HttpAsked asked;
    asked.head = received.left(headEnd);
    const QList<QByteArray> line = asked.head.left(asked.head.indexOf('\r')).split(' ');
    asked.verb = line.value(0);
    asked.target = line.value(1);
    if (received.size() - headEnd < asked.header("Content-Length").toInt())
        return;
    asked.body = received.mid(headEnd);
    {
        QMutexLocker locker(&m_mutex);
        m_asked << asked;
    }
    if (!asked.header("Upgrade").isEmpty() && m_tunnelPort != 0 && m_admits(asked)) {
        tunnel(socket, asked);
        return;
    }
    const HttpAnswer answer = m_script(asked);
    if (answer.silent)
        return;
    socket.write("HTTP/1.1 " + QByteArray::number(answer.status) +
                 " Scripted\r\nConnection: close\r\nContent-Length: " +
                 QByteArray::number(answer.body.size()) + "\r\n\r\n");
    socket.write(answer.cut ? answer.body.left(answer.body.size() / 2) : answer.body);
    socket.disconnectFromHost();
}

void ScriptedHttp::tunnel(QTcpSocket& socket, const HttpAsked& handshake) {
    socket.disconnect(m_context);
    auto* far = new QTcpSocket(&socket);
    QByteArray head = "GET / HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(m_tunnelPort) + "\r\n";
    for (const char* name : {"Upgrade", "Connection", "Sec-WebSocket-Key", "Sec-WebSocket-Version"})
        head += name + QByteArray(": ") + handshake.header(name) + "\r\n";
    m_tunnels << &socket;
    QTcpSocket* near = &socket;
    QObject::connect(near, &QTcpSocket::readyRead, far, [near, far] { far->write(near->readAll()); });
    QObject::connect(far, &QTcpSocket::readyRead, near, [this, near, far] {
        QByteArray said = far->readAll();
        for (const auto& [from, to] : qAsConst(m_rewrites))
            said.replace(from, to);
        near->write(said);
    });
    QObject::connect(far, &QTcpSocket::disconnected, near, &QTcpSocket::disconnectFromHost);
    QObject::connect(near, &QTcpSocket::disconnected, m_context, [this, near] { m_tunnels.removeAll(near); });
    far->connectToHost(QHostAddress::LocalHost, m_tunnelPort);
    far->write(head + "\r\n");
}
