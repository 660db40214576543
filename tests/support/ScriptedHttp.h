#pragma once

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QThread>
#include <functional>

class QTcpServer;
class QTcpSocket;

struct HttpAsked {
    QByteArray verb;
    QByteArray target;  ///< path and query
    QByteArray head;    ///< request line and headers, with the line ends
    QByteArray body;

    /// The value of a header; empty when it isn't there.
    QByteArray header(const QByteArray& name) const;
};

struct HttpAnswer {
    int status = 200;
    QByteArray body;
    bool silent = false;  ///< no answer at all
    bool cut = false;     ///< the connection ends after half of the body
};

/// An HTTP server on the loopback that plays what a test tells it, on a thread of its own, so that it answers
/// while the test waits in a blocking call. It can lead web sockets on to another server.
class ScriptedHttp {
public:
    using Script = std::function<HttpAnswer(const HttpAsked&)>;

    /// `script` runs on the server's thread.
    explicit ScriptedHttp(Script script);
    ~ScriptedHttp();
    ScriptedHttp(const ScriptedHttp&) = delete;
    ScriptedHttp& operator=(const ScriptedHttp&) = delete;

    quint16 port() const { return m_port; }

    /// What was asked since the start or the last `forget`. Any thread.
    QList<HttpAsked> asked() const;
    void forget();

    /// From now on web sockets whose handshake `admits` lead to that port of the loopback.
    void tunnelTo(quint16 port, std::function<bool(const HttpAsked&)> admits);
    /// What the other server says by web sockets from now on has these bytes in place of those; each pair is
    /// of one length, so that the frames stay whole.
    void rewriteTunnels(const QList<QPair<QByteArray, QByteArray>>& pairs);
    /// Ends the web sockets that are open.
    void cutTunnels();

private:
    void onConnection();
    void onData(QTcpSocket& socket, QByteArray& received);
    void tunnel(QTcpSocket& socket, const HttpAsked& handshake);
    void inThread(const std::function<void()>& action);

    Script m_script;
    QThread m_thread;
    QObject* m_context;  ///< lives on the thread
    QTcpServer* m_server = nullptr;
    quint16 m_port = 0;
    quint16 m_tunnelPort = 0;
    std::function<bool(const HttpAsked&)> m_admits;
    QList<QTcpSocket*> m_tunnels;
    QList<QPair<QByteArray, QByteArray>> m_rewrites;
    mutable QMutex m_mutex;
    QList<HttpAsked> m_asked;
};
