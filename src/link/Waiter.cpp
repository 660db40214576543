#include "link/Waiter.h"

#include "link/HttpHandler.h"
#include "link/WebSocketHandler.h"

#include <QDeadlineTimer>

Waiter::Waiter(WebSocketHandler* webSocketHandler, HttpHandler* httpHandler, QObject* parent)
    : QObject(parent) {
    connect(
        webSocketHandler, &WebSocketHandler::messageReceived, this,
        [this](int id, int status, const QJsonObject& payload) {
            QMutexLocker locker(&m_mutex);
            const int place = id - m_firstId;
            if (m_missing == 0 || place < 0 || place >= m_replies.size() || m_replies.at(place).id() != 0)
                return;
            m_replies[place] = ReplyBase(id, status, payload);
            if (--m_missing == 0)
                m_arrived.wakeAll();
        },
        Qt::DirectConnection);
    connect(
        httpHandler, &HttpHandler::finished, this,
        [this](const Message& message, int call) {
            QMutexLocker locker(&m_mutex);
            // The answer to a call that was given up may come before the handler has heard of the present
            // one.
            if (!m_expectsMessage || call != m_call)
                return;
            m_expectsMessage = false;
            m_message = message;
            m_arrived.wakeAll();
        },
        Qt::DirectConnection);
}

void Waiter::sleep(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (m_missing > 0 || m_expectsMessage) {
        if (!m_arrived.wait(&m_mutex, deadline))
            return;
    }
}

void Waiter::openReplies() {
    QMutexLocker locker(&m_mutex);
    m_open = true;
}

void Waiter::endReplies() {
    QMutexLocker locker(&m_mutex);
    m_open = false;
    m_missing = 0;
    m_arrived.wakeAll();
}

void Waiter::expectReplies(int firstId, int count) {
    QMutexLocker locker(&m_mutex);
    m_replies.fill(ReplyBase(), count);
    m_firstId = firstId;
    m_missing = m_open ? count : 0;
}

QVector<ReplyBase> Waiter::awaitReplies(int milliseconds) {
    QMutexLocker locker(&m_mutex);
    sleep(milliseconds);
    m_missing = 0;
    QVector<ReplyBase> replies;
    replies.swap(m_replies);
    return replies;
}

int Waiter::expectMessage() {
    QMutexLocker locker(&m_mutex);
    m_message = Message();
    m_expectsMessage = true;
    return ++m_call;
}

Message Waiter::awaitMessage(int milliseconds) {
    QMutexLocker locker(&m_mutex);
    sleep(milliseconds);
    m_expectsMessage = false;
    return m_message;
}
