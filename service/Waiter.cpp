#include "service/Waiter.h"

#include "service/HttpHandler.h"
#include "service/WebSocketHandler.h"

// The thread is started before the request goes out: a release that came before the start would be lost by
// it.

Waiter::Waiter(WebSocketHandler* webSocketHandler, HttpHandler* httpHandler, QObject* parent)
    : QThread(parent) {
    connect(
        webSocketHandler, &WebSocketHandler::messageReceived, this,
        [this](int id, int status, const QJsonObject& payload) {
            QMutexLocker locker(&m_mutex);
            if (m_expectedId <= 0 || id != m_expectedId)
                return;
            m_expectedId = 0;
            m_reply = ReplyBase(id, status, payload);
            quit();
        },
        Qt::DirectConnection);
    connect(
        httpHandler, &HttpHandler::finished, this,
        [this](const Message& message) {
            QMutexLocker locker(&m_mutex);
            if (!m_expectsMessage)
                return;
            m_expectsMessage = false;
            m_message = message;
            quit();
        },
        Qt::DirectConnection);
}

void Waiter::run() {
    exec();
}

void Waiter::expectReply(int id) {
    start(QThread::InheritPriority);
    QMutexLocker locker(&m_mutex);
    m_expectedId = id;
}

ReplyBase Waiter::awaitReply(int milliseconds) {
    wait(static_cast<unsigned long>(milliseconds));
    QMutexLocker locker(&m_mutex);
    const bool released = m_expectedId == 0;
    m_expectedId = 0;
    const ReplyBase reply = m_reply;
    locker.unlock();
    finishIf(released);
    return reply;
}

void Waiter::expectMessage() {
    start(QThread::InheritPriority);
    QMutexLocker locker(&m_mutex);
    m_message = Message();
    m_expectsMessage = true;
}

Message Waiter::awaitMessage(int milliseconds) {
    wait(static_cast<unsigned long>(milliseconds));
    QMutexLocker locker(&m_mutex);
    const bool released = !m_expectsMessage;
    m_expectsMessage = false;
    const Message message = m_message;
    locker.unlock();
    finishIf(released);
    return message;
}

// A release at the very end of the time leaves a thread that is about to end. Starting it again before it has
// would do nothing, and the next wait would be over at once.
void Waiter::finishIf(bool released) {
    if (released)
        wait();
}
