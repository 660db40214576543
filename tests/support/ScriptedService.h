#pragma once

#include "wire/Frames.h"
#include "wire/QueryParser.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QMutex>
#include <QSemaphore>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>
#include <functional>

class QWebSocket;
class ScriptedServer;

/// Writes an executable shell script into `folder` and gives its path.
QString writeProgram(const QTemporaryDir& folder, const QString& name, const QString& body);

/// A request as the scripted service reads it.
struct ScriptedRequest {
    wire::RequestFrame frame;
    wire::ParsedQuery query;  ///< empty when the text can't be read

    /// Text or number of an argument, as text; empty when it wasn't given.
    QString argument(const QString& name) const;
};

/// The client that a script answers to.
class ScriptedClient {
public:
    explicit ScriptedClient(QWebSocket& socket) : m_socket(socket) {}

    /// A reply: status 200 and the payload `{"data": data}`.
    void reply(const ScriptedRequest& request, const QJsonObject& data);
    /// A reply that holds an error and nothing else.
    void refuse(const ScriptedRequest& request);
    void send(const wire::ResponseFrame& frame);
    void sendText(const QString& text);
    void close(int code);
    void abort();

private:
    QWebSocket& m_socket;
};

/// A data service that plays what a test tells it: for faults and odd frames. It listens on the loopback on a
/// thread of its own, so that it answers while the test waits in a blocking call. While it lives, the
/// environment variable KERNOVA_SERVICE_PROGRAM names a program which prints its port and ends when its input
/// closes: the link under test reaches it by its usual way.
///
/// Left alone it opens and closes every project with access "owner" and answers every other operation with an
/// empty list.
class ScriptedService {
public:
    using Script = std::function<void(ScriptedClient&, const ScriptedRequest&)>;

    ScriptedService();
    ~ScriptedService();

    quint16 port() const { return m_port; }

    /// From now on `script` answers the requests of that operation. It runs on the service's thread.
    void on(const QString& operation, Script script);
    /// From now on requests of that operation get `data: {operation: value}`.
    void answer(const QString& operation, const QJsonValue& value);
    /// From now on requests of that operation get an error.
    void fail(const QString& operation);
    /// From now on requests of that operation get no reply.
    void ignore(const QString& operation);
    /// Access level of the projects that are opened from now on.
    void setAccess(const QString& level);
    /// Whether handshakes are refused.
    void setRefusing(bool refusing);

    /// To all clients.
    void push(const QJsonObject& payload, int status = 200);
    void pushText(const QString& text);
    void closeAll(int code);
    void abortAll();

    /// The service answers nothing any more, pings included, until `resume`.
    void stall();
    void resume();

    /// Everything that was asked since the start or the last `forgetRequests`.
    QList<wire::RequestFrame> requests() const;
    QStringList requestTexts() const;
    void forgetRequests();
    int clientCount() const;
    /// A header of the latest handshake.
    QByteArray handshakeHeader(const QByteArray& name) const;

    /// The program that KERNOVA_SERVICE_PROGRAM names.
    QString program() const { return m_program; }

private:
    QThread m_thread;
    ScriptedServer* m_server = nullptr;
    quint16 m_port = 0;
    QTemporaryDir m_folder;
    QString m_program;
    QByteArray m_formerProgram;
    QSemaphore m_stall;
    bool m_stalled = false;
};
