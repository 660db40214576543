#pragma once

#include "link/Message.h"
#include "link/ReplyBase.h"

#include <QMutex>
#include <QObject>
#include <QVector>
#include <QWaitCondition>

class HttpHandler;
class WebSocketHandler;

/// What a blocking call waits on: the caller sleeps with a bound on the time, and the network thread wakes it
/// when what it expects has come. (A thread for each call, whose end the caller awaits, would cost most of a
/// read's time.)
///
/// One call at a time: `expectReplies` or `expectMessage`, then send, then `await...`. Callers of different
/// threads exclude each other by the connection's lock.
class Waiter : public QObject {
    Q_OBJECT

public:
    Waiter(WebSocketHandler* webSocketHandler, HttpHandler* httpHandler, QObject* parent = nullptr);

    /// The socket is open, or has ended: without one no reply can come, so waits for replies end at once.
    void openReplies();
    void endReplies();

    /// From now on the frames with the `count` numbers from `firstId` are collected, and the last of them to
    /// come ends the wait. `count` is at least 1. Called before the requests are sent.
    void expectReplies(int firstId, int count);

    /// Waits at most `milliseconds`, and no longer than the socket is open, and gives the replies in the
    /// order of their numbers; in the places of those that have not come stand null replies. One that comes
    /// later is dropped.
    QVector<ReplyBase> awaitReplies(int milliseconds);

    /// From now on the finished HTTP call with the number that is given ends the wait. Called before the
    /// request is sent.
    int expectMessage();

    /// Waits at most `milliseconds`; without an answer the message has the status code -1.
    Message awaitMessage(int milliseconds);

private:
    /// Sleeps until nothing is expected any more, at most `milliseconds`. The mutex is held before and after.
    void sleep(int milliseconds);

    QMutex m_mutex;  ///< over the members below: the caller and the network thread use them
    QWaitCondition m_arrived;
    QVector<ReplyBase> m_replies;  ///< of the present wait
    Message m_message;
    int m_firstId = 0;
    int m_missing = 0;  ///< replies that are still awaited
    int m_call = 0;     ///< number of the last HTTP call
    bool m_expectsMessage = false;
    bool m_open = false;  ///< the socket
};
