#include "link/Connection.h"

#include "link/HttpHandler.h"
#include "link/Waiter.h"
#include "link/WebSocketHandler.h"
#include "wire/Frames.h"

#include <QDebug>
#include <QEventLoop>
#include <QSslError>

Connection::Connection(const LinkTimings& timings, QObject* parent)
    : QObject(parent), m_timings(timings), m_reconnectTimer(this), m_thread(this),
      m_httpHandler(new HttpHandler), m_webSocketHandler(new WebSocketHandler(timings)),
      m_waiter(new Waiter(m_webSocketHandler, m_httpHandler, this)) {
    qRegisterMetaType<Message>();
    // HTTP calls run on this thread and on the network thread; both would register these types at the same
    // time.
    qRegisterMetaType<QList<QSslError>>();
    qRegisterMetaType<QPair<QByteArray, QByteArray>>();
    qRegisterMetaType<QList<QPair<QByteArray, QByteArray>>>();
    m_thread.setObjectName(QStringLiteral("network"));
    m_httpHandler->moveToThread(&m_thread);
    m_webSocketHandler->moveToThread(&m_thread);
    connectHandlerSignals();
    connectOwnSignals();
    m_thread.start(QThread::InheritPriority);
    emit initWS();
    emit initHttp();
}

Connection::~Connection() {
    m_reconnect = false;
    m_reconnectTimer.stop();
    QObject::disconnect(m_webSocketHandler, nullptr, this, nullptr);
    // Ends a wait for a service that doesn't get ready. The handlers end on their own thread, and with them
    // the local service.
    m_thread.requestInterruption();
    m_thread.quit();
    m_thread.wait();
}

void Connection::NetworkThread::run() {
    exec();
    delete m_owner->m_webSocketHandler;
    delete m_owner->m_httpHandler;
}

void Connection::connectHandlerSignals() {
    const auto onHandler = [this](auto signal, auto effect) {
        QObject::connect(m_webSocketHandler, signal, this, effect, Qt::DirectConnection);
    };
    onHandler(&WebSocketHandler::connected, [this] {
        m_waiter->openReplies();
        m_connected = true;
        if (m_reconnect)
            emit reconnected();
        else
            emit connected();
        m_reconnect = true;
    });
    // Who sees the link open can wait for replies, and whose wait ends with it finds it ended.
    onHandler(&WebSocketHandler::disconnected, [this] {
        m_connected = false;
        emit disconnected();
        m_waiter->endReplies();
    });
    onHandler(&WebSocketHandler::closedDueToAnotherSession, [this] {
        m_connected = false;
        emit closedDueToAnotherSession();
        m_waiter->endReplies();
    });
    onHandler(&WebSocketHandler::connectionLost, [this] {
        m_connected = false;
        emit connectionLost();
    });
    onHandler(&WebSocketHandler::connectionRetained, [this] {
        m_connected = true;
        emit connected();
    });
    onHandler(&WebSocketHandler::accessChanged,
              [this](const QString& access) { emit accessChanged(access); });
    const auto onFailure = [this](const QString& text) {
        setLastError(text);
        emit error();
    };
    onHandler(&WebSocketHandler::error, onFailure);
    onHandler(&WebSocketHandler::startFailed, onFailure);
}

void Connection::connectOwnSignals() {
    QObject::connect(this, &Connection::disconnected, this, [this] {
        if (m_reconnect && !m_connected)
            m_reconnectTimer.start(m_timings.reconnect);
    });
    QObject::connect(this, &Connection::reconnected, &m_reconnectTimer, &QTimer::stop);
    QObject::connect(&m_reconnectTimer, &QTimer::timeout, this, &Connection::onReconnectTimeout);

    QObject::connect(this, &Connection::initWS, m_webSocketHandler, &WebSocketHandler::init);
    QObject::connect(this, &Connection::sendWS, m_webSocketHandler, &WebSocketHandler::send);
    QObject::connect(this, &Connection::connectLocal, m_webSocketHandler, &WebSocketHandler::connectLocal);
    QObject::connect(this, &Connection::connectRemote, m_webSocketHandler, &WebSocketHandler::connectRemote);
    QObject::connect(this, &Connection::disconnectWS, m_webSocketHandler, &WebSocketHandler::disconnect);
    QObject::connect(this, &Connection::initHttp, m_httpHandler, &HttpHandler::init);
    QObject::connect(this, &Connection::httpPost, m_httpHandler, &HttpHandler::post);
    QObject::connect(this, &Connection::httpGet, m_httpHandler, &HttpHandler::get);
}

bool Connection::connect(bool remote) {
    qDebug() << "connecting...";
    if (m_connected) {
        qDebug() << "disconnect in connect";
        m_reconnect = false;
        emit disconnectWS();
    }
    QString ticket;
    if (remote && !fetchTicket(ticket))
        return false;
    m_remote = remote;
    m_messageId = 0;
    waitForLink(ticket);
    return m_connected;
}

// The signals of the handler arrive in the order of their emission, so that the end of a former link, which
// comes before `opening`, doesn't end this wait.
void Connection::waitForLink(const QString& ticket) {
    QEventLoop loop;
    bool begun = false;
    const auto onHandler = [this, &loop](auto signal, auto effect) {
        QObject::connect(m_webSocketHandler, signal, &loop, effect, Qt::QueuedConnection);
    };
    onHandler(&WebSocketHandler::opening, [&] { begun = true; });
    onHandler(&WebSocketHandler::connected, [&] {
        qDebug() << "connected successfully";
        loop.quit();
    });
    onHandler(&WebSocketHandler::disconnected, [&] {
        if (!begun)
            return;
        qDebug() << "stop connecting due to disconnect";
        loop.quit();
    });
    onHandler(&WebSocketHandler::closedDueToAnotherSession, [&] {
        if (begun)
            loop.quit();
    });
    onHandler(&WebSocketHandler::startFailed, [&] { loop.quit(); });

    if (m_remote)
        emit connectRemote(ticket);
    else
        emit connectLocal();
    ++m_waitingConnects;
    loop.exec();
    --m_waitingConnects;
    // Its thread may be emitting: what a connection holds is lost when its receiver goes meanwhile.
    QObject::disconnect(m_webSocketHandler, nullptr, &loop, nullptr);
}

// An attempt may begin while the one before still waits, since that may wait for a service that hangs; more
// than two would only pile up.
void Connection::onReconnectTimeout() {
    if (m_waitingConnects < 2)
        connect(m_remote);
}

void Connection::disconnect(bool logoutToo) {
    m_reconnect = false;
    m_reconnectTimer.stop();
    emit disconnectWS();
    if (m_remote && logoutToo)
        logout();
}

bool Connection::send(const QString& text) {
    QMutexLocker locker(&m_callMutex);
    if (!ensureFreshToken()) {
        qDebug() << "NO CONNECTION";
        return false;
    }
    transmit(++m_messageId, text);
    return true;
}

ReplyBase* Connection::sendAsync(const QString& text, QObject* parent) {
    QMutexLocker locker(&m_callMutex);
    if (!ensureFreshToken()) {
        qDebug() << "NO CONNECTION";
        return nullptr;
    }
    const int id = ++m_messageId;
    auto* reply = new ReplyBase(m_webSocketHandler, id, parent);
    transmit(id, text);
    return reply;
}

QVector<ReplyBase> Connection::requests(const QStringList& texts) {
    QMutexLocker locker(&m_callMutex);
    if (texts.isEmpty())
        return {};
    if (!ensureFreshToken()) {
        qDebug() << "NO CONNECTION";
        return {};
    }
    int id = m_messageId.fetch_add(texts.size()) + 1;
    m_waiter->expectReplies(id, texts.size());
    for (const QString& text : texts)
        transmit(id++, text);
    return m_waiter->awaitReplies(m_timings.request);
}

void Connection::transmit(int id, const QString& text) {
    emit sendWS(wire::RequestFrame{accessToken(), id, text}.toText());
}

QString Connection::lastError() const {
    QMutexLocker locker(&m_mutex);
    return m_lastError;
}

void Connection::setLastError(const QString& text) {
    QMutexLocker locker(&m_mutex);
    m_lastError = text;
}
