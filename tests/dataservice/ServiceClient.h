#pragma once

#include "wire/Operations.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QString>
#include <QWebSocket>
#include <functional>
#include <vector>

/// A client of the service for tests: sends query texts and keeps every frame that comes.
class ServiceClient : public QObject {
    Q_OBJECT
public:
    struct Frame {
        int messageId = 0;
        int status = 0;
        QJsonObject payload;
    };

    ServiceClient();
    ~ServiceClient() override;

    /// False when the handshake was refused.
    bool connectTo(quint16 port, const QByteArray& token = {});
    bool open(const QString& path);
    void close() { m_socket.close(); }

    /// Sends a query without waiting; gives its number.
    int send(const QString& query);
    void sendRaw(const QString& text) { m_socket.sendTextMessage(text); }

    /// Sends a query and waits for its reply's payload; empty when none comes.
    QJsonObject request(const QString& query);
    /// The value under `data` and the operation's name.
    QJsonValue ask(const QString& query);
    /// The first message of the reply's errors; empty when there were none.
    QString errorOf(const QString& query);

    /// Waits until the condition holds; false when the time runs out first.
    bool waitUntil(const std::function<bool()>& condition, int milliseconds = 10000);
    bool waitForFrames(size_t count);
    const Frame* reply(int messageId) const;

    /// "mutation{<record>CreateOrUpdate(<arguments>){<all fields>}}"
    static QString saving(wire::Record record, const QString& arguments);
    static QString removing(wire::Record record, const QString& arguments);
    static QString listing(wire::Record record, const QString& arguments = {});
    static QString allFields(wire::Record record);

    /// For clients by hand: the handshake, and a frame as a client has to send it or, unmasked, must not.
    static QByteArray handshake(quint16 port);
    static QByteArray frame(const QByteArray& payload, int opcode = 1, bool masked = true);

    QWebSocket& socket() { return m_socket; }

    std::vector<Frame> frames;

private:
    void receive(const QString& text);

    QWebSocket m_socket;
    int m_lastId = 0;
};
