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
            const int place = id - m_firstId;
            if (m_missing == 0 || place < 0 || place >= m_replies.size() || m_replies.at(place).id() != 0)
                return;
            m_replies[place] = ReplyBase(id, status, payload);
            if (--m_missing > 0)
                return;
            m_reply = m_replies.last();
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
    expectReplies(id, 1);
}

ReplyBase Waiter::awaitReply(int milliseconds) {
    awaitReplies(milliseconds);
    QMutexLocker locker(&m_mutex);
    return m_reply;
}

void Waiter::expectReplies(int firstId, int count) {
    start(QThread::InheritPriority);
    QMutexLocker locker(&m_mutex);
    m_replies.fill(ReplyBase(), count);
    m_firstId = firstId;
    m_missing = count;
}

QVector<ReplyBase> Waiter::awaitReplies(int milliseconds) {
    wait(static_cast<unsigned long>(milliseconds));
    QMutexLocker locker(&m_mutex);
    const bool released = m_missing == 0;
    m_missing = 0;
    QVector<ReplyBase> replies;
    replies.swap(m_replies);
    locker.unlock();
    finishIf(released);
    return replies;
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
