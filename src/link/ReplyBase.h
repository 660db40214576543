#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QObject>

class WebSocketHandler;

/// The reply to one request. A value that can be copied; copies of the asynchronous form don't listen.
class ReplyBase : public QObject {
    Q_OBJECT

public:
    /// A null reply: what a call gives that could not be sent or got no reply.
    ReplyBase() = default;
    ReplyBase(const ReplyBase& other);
    ReplyBase& operator=(const ReplyBase& other);

    /// A reply that has arrived; `payload` is the frame's `json_data`.
    ReplyBase(int id, int status, const QJsonObject& payload);

    /// A reply that is awaited: emits `finished` on the thread that this object lives on when the frame with
    /// the number `id` arrives. When the socket is opened anew the numbers start again, so the reply stops
    /// listening then and never finishes. Create it before the request is sent.
    ReplyBase(WebSocketHandler* handler, int id, QObject* parent = nullptr);

    /// Whether the reply has not come. An awaited one is null until it finishes.
    bool isNull() const { return !m_arrived; }
    int id() const { return m_id; }
    int status() const { return m_status; }
    QJsonArray errors() const { return m_errors; }
    QJsonObject data() const { return m_data; }

signals:
    void finished();

private slots:
    void take(int id, int status, const QJsonObject& payload);
    void stopListening();

private:
    int m_id = 0;
    int m_status = 0;
    bool m_arrived = false;
    WebSocketHandler* m_handler = nullptr;
    QJsonArray m_errors;
    QJsonObject m_data;
};
