#include "link/WebSocketHandler.h"

#include "link/ServiceConfig.h"
#include "link/ServiceProcess.h"
#include "wire/AccessLevel.h"
#include "wire/Frames.h"
#include "wire/Operations.h"

#include <QDateTime>
#include <QDebug>
#include <QHostAddress>
#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QProcess>
#include <QTimer>
#include <QWebSocket>
#include <array>

namespace {

using NotificationSignal = void (WebSocketHandler::*)(QJsonObject);
using Handler = WebSocketHandler;

// Indexed by wire::Notification.
const std::array<NotificationSignal, 28> notificationSignals{
    &Handler::kernoSaved,         &Handler::kernoDeleted,         &Handler::groupSaved,
    &Handler::groupDeleted,       &Handler::kernoGroupSaved,      &Handler::kernoGroupDeleted,
    &Handler::sourceSaved,        &Handler::sourceDeleted,        &Handler::highlightSaved,
    &Handler::highlightDeleted,   &Handler::batchHighlightsSaved, &Handler::batchHighlightsDeleted,
    &Handler::memoSaved,          &Handler::memoDeleted,          &Handler::batchMemosSaved,
    &Handler::batchMemosDeleted,  &Handler::questionSaved,        &Handler::questionDeleted,
    &Handler::answerSaved,        &Handler::answerDeleted,        &Handler::metadataSaved,
    &Handler::metadataDeleted,    &Handler::metadataKeySaved,     &Handler::metadataKeyDeleted,
    &Handler::metadataValueSaved, &Handler::metadataValueDeleted, &Handler::chatMessageSaved,
    &Handler::chatMessageDeleted,
};
static_assert(static_cast<size_t>(wire::Notification::ChatMessageDeleted) + 1 == notificationSignals.size(),
              "every notification has its signal");

QTimer* newTimer(QObject* parent, bool repeating) {
    auto* timer = new QTimer(parent);
    timer->setSingleShot(!repeating);
    return timer;
}

}  // namespace

WebSocketHandler::WebSocketHandler(const LinkTimings& timings) : m_timings(timings) {}

WebSocketHandler::~WebSocketHandler() {
    qDebug() << "~WebSocketHandler";
    if (!m_socket)
        return;
    m_pingTimer->stop();
    m_pongTimer->stop();
    closeSocket();
    m_process->disconnect();
    // The service commits what it has accepted before it ends, so it is given the time.
    serviceprocess::end(*m_process, m_timings);
    delete m_process;
    delete m_socket;
    delete m_abortTimer;
    delete m_disconnectTimer;
    delete m_pongTimer;
    delete m_pingTimer;
}

QString WebSocketHandler::endpoint() const {
    QMutexLocker locker(&m_endpointMutex);
    return m_endpoint;
}

void WebSocketHandler::init() {
    m_connected = false;
    m_socket = new QWebSocket(QString(), QWebSocketProtocol::Version13);
    m_socket->setMaxAllowedIncomingFrameSize(QWebSocket::maxIncomingFrameSize());
    m_socket->setMaxAllowedIncomingMessageSize(QWebSocket::maxIncomingMessageSize());
    m_process = new QProcess(this);
    m_pingTimer = newTimer(this, true);
    m_pongTimer = newTimer(this, false);
    m_disconnectTimer = newTimer(this, false);
    m_abortTimer = newTimer(this, false);

    connect(m_socket, &QWebSocket::connected, this, &WebSocketHandler::onConnected);
    connect(m_socket, &QWebSocket::disconnected, this, &WebSocketHandler::onDisconnected);
    connect(m_socket, &QWebSocket::textFrameReceived, this, &WebSocketHandler::noteSignOfLife);
    connect(m_socket, &QWebSocket::textMessageReceived, this, &WebSocketHandler::onMessageReceived);
    connect(m_socket, QOverload<QAbstractSocket::SocketError>::of(&QWebSocket::error), this,
            &WebSocketHandler::onError);
    connect(m_socket, &QWebSocket::pong, this, &WebSocketHandler::onPong);
    connect(m_pingTimer, &QTimer::timeout, this, &WebSocketHandler::onPing);
    connect(m_pongTimer, &QTimer::timeout, this, &WebSocketHandler::onPongMissed);
    connect(m_disconnectTimer, &QTimer::timeout, this, &WebSocketHandler::onDisconnectTimeout);
    connect(m_abortTimer, &QTimer::timeout, this, &WebSocketHandler::onAbortTimeout);
}

void WebSocketHandler::send(QString message) {
    m_socket->sendTextMessage(message);
}

void WebSocketHandler::connectRemote(QString ticket) {
    emit opening();
    open(ServiceConfig::instance().socketUrl(ticket).toString(QUrl::FullyEncoded), false);
}

void WebSocketHandler::connectLocal() {
    emit opening();
    m_process->disconnect();
    const serviceprocess::Start start = serviceprocess::start(*m_process, m_timings);
    if (start.port == 0) {
        qDebug() << start.error;
        emit startFailed(start.error);
        return;
    }
    open(QStringLiteral("ws://%1:%2").arg(QHostAddress(QHostAddress::LocalHost).toString()).arg(start.port),
         true);
    connect(m_process, &QProcess::readyReadStandardOutput, this, &WebSocketHandler::logProcessOutput);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &WebSocketHandler::onProcessEnded);
}

void WebSocketHandler::disconnect() {
    qDebug() << "client disconnect";
    m_process->disconnect();
    m_pingTimer->stop();
    m_pongTimer->stop();
    m_abortTimer->stop();
    closeSocket();
    m_process->terminate();
}

void WebSocketHandler::closeSocket() {
    if (m_socket->state() != QAbstractSocket::UnconnectedState)
        m_socket->close(QWebSocketProtocol::CloseCodeNormal);
}

void WebSocketHandler::open(const QString& url, bool local) {
    {
        QMutexLocker locker(&m_endpointMutex);
        m_endpoint = url;
    }
    if (local)
        qDebug() << "local endpoint is" << url;
    QNetworkRequest request{QUrl(url)};
    if (local)
        request.setRawHeader("Kernova-Service-Token", ServiceConfig::instance().serviceToken());
    m_socket->setProxy(QNetworkProxy(local ? QNetworkProxy::NoProxy : QNetworkProxy::DefaultProxy));
    m_abortTimer->start(m_timings.start);
    m_socket->open(request);
}

void WebSocketHandler::logProcessOutput() {
    qDebug().noquote() << m_process->readAllStandardOutput();
}

void WebSocketHandler::onError(QAbstractSocket::SocketError) {
    emit error(m_socket->errorString());
}

void WebSocketHandler::onConnected() {
    m_abortTimer->stop();
    // A pong that the former link still waited for is none of this one's.
    m_pongTimer->stop();
    m_connected = true;
    emit connected();
    m_pingTimer->start(m_timings.ping);
}

void WebSocketHandler::onDisconnected() {
    qDebug() << "disconnected" << m_socket->closeReason() << m_socket->closeCode();
    m_abortTimer->stop();
    m_pingTimer->stop();
    m_connected = false;
    if (static_cast<int>(m_socket->closeCode()) == wire::closeCodeOtherSession)
        emit closedDueToAnotherSession();
    else
        emit disconnected();
}

void WebSocketHandler::onPing() {
    m_socket->ping();
    m_pongTimer->start(m_timings.pong);
}

void WebSocketHandler::onPong() {
    qDebug() << "pong received" << QDateTime::currentDateTime().toString();
    noteSignOfLife();
}

// A service that is busy answers pings late, and then mostly with what it was busy with.
void WebSocketHandler::noteSignOfLife() {
    m_pongTimer->stop();
    if (m_connected)
        return;
    emit connectionRetained();
    m_connected = true;
}

void WebSocketHandler::onPongMissed() {
    qDebug() << "pong timeout";
    if (!m_connected)
        return;
    qDebug() << "connection lost";
    qDebug() << "disconnected start";
    m_disconnectTimer->start(m_timings.disconnect);
    emit connectionLost();
    m_connected = false;
}

void WebSocketHandler::onDisconnectTimeout() {
    qDebug() << "disconnected timeout";
    if (m_connected)
        return;
    qDebug() << "connection timed out on server, no option to retain the connection";
    m_pingTimer->stop();
    m_pongTimer->stop();
    m_socket->abort();
}

void WebSocketHandler::onAbortTimeout() {
    qDebug() << "the service did not answer the handshake, or has ended";
    m_socket->abort();
}

// Its socket ends with it, after what it has still sent. Who waits for a reply is not to wait for longer.
void WebSocketHandler::onProcessEnded() {
    m_abortTimer->start(m_timings.lastFrames);
}

void WebSocketHandler::onMessageReceived(QString message) {
    const wire::FrameReading reading = wire::readFrame(message);
    if (reading.error == wire::FrameError::InvalidJson)
        qWarning().noquote() << "Invalid JSON\n" << reading.message;
    else if (reading.error == wire::FrameError::NotAnObject)
        qWarning().noquote() << "Document is not an object\n";

    const wire::ResponseFrame frame = wire::responseFromJson(reading.object);
    if (frame.status == wire::statusRevoked) {
        emit accessChanged(accessLevelName(AccessLevel::Revoked));
        return;
    }
    emit messageReceived(frame.messageId, frame.status, frame.payload);
    dispatch(frame.payload);
}

void WebSocketHandler::dispatch(const QJsonObject& payload) {
    const auto member = [&payload](const char* key) { return payload.constFind(QLatin1String(key)); };
    const auto none = payload.constEnd();
    if (const auto errors = member("errors"); errors != none) {
        emit errorOccurred(errors->toArray());
    } else if (const auto count = member("connection_count"); count != none) {
        emit connectionCountChanged(count->toInt());
    } else if (const auto access = member("access_privilege"); access != none) {
        emit accessChanged(access->toString());
    } else if (const auto data = member("data"); data != none) {
        const QJsonObject object = data->toObject();
        if (const wire::NotificationRow* row = wire::findNotification(object)) {
            const auto index = static_cast<size_t>(row->notification);
            emit(this->*notificationSignals[index])(object.value(row->key).toObject());
        } else if (const auto batch = wire::findRecordBatch(object)) {
            const QString key = wire::operationName(batch->record, batch->operation);
            const QJsonArray records =
                object.value(key).toObject().value(wire::batchArgument(batch->record)).toArray();
            const auto signal = batch->operation == wire::Operation::BatchRemove ? &Handler::recordsDeleted
                                                                                 : &Handler::recordsSaved;
            emit(this->*signal)(static_cast<int>(batch->record), records);
        }
    }
}
