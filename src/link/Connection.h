#pragma once

#include "link/LinkTimings.h"
#include "link/Message.h"
#include "link/ReplyBase.h"

#include <QJsonObject>
#include <QMutex>
#include <QNetworkRequest>
#include <QObject>
#include <QThread>
#include <QTimer>
#include <QVector>
#include <atomic>
#include <functional>

class HttpHandler;
class Waiter;
class WebSocketHandler;

/// The one owner of the link to the data service: the network thread with its two handlers, the cloud tokens,
/// the numbers of the requests and the blocking call. Lives on the main thread; `send`, `sendAsync`,
/// `request`, `requests` and the blocking HTTP calls may be made on any thread but the network thread; one
/// waits for the other.
class Connection : public QObject {
    Q_OBJECT

public:
    explicit Connection(const LinkTimings& timings = {}, QObject* parent = nullptr);
    /// Ends the network thread and the local service with it.
    ~Connection() override;

    bool isConnected() const { return m_connected; }
    bool isRemote() const { return m_remote; }

    /// Opens the link; an open one is closed first. Blocks in a local event loop, so that the interface stays
    /// alive, until the socket is open, has failed, or the local service could not be started; `lastError`
    /// says why it gives false. Main thread only.
    bool connect(bool remote);

    /// Closes the link for good; `logout` also gives back the cloud tokens.
    void disconnect(bool logout);

    /// Sends a request without waiting. False when the cloud token is old and can't be refreshed.
    bool send(const QString& text);

    /// Sends a request and gives the reply that is awaited, or null when it could not be sent. The reply is
    /// the caller's and lives on the calling thread.
    ReplyBase* sendAsync(const QString& text, QObject* parent = nullptr);

    /// Sends a request and blocks the calling thread until its reply has come, at most
    /// `LinkTimings::request` and no longer than the socket is open. A null reply when it could not be sent
    /// or got no reply, never that of another request.
    ReplyBase request(const QString& text) { return requests({text}).value(0); }

    /// Sends the requests without waiting in between, and blocks the calling thread until all replies have
    /// come, with the bounds of `request`. They are in the order of the requests, with null replies for those
    /// that didn't come; empty when the requests could not be sent.
    QVector<ReplyBase> requests(const QStringList& texts);

    /// Blocking HTTP call over the network thread, bounded by `LinkTimings::http`. The network thread must
    /// not call.
    Message postBlocking(QNetworkRequest request, const QJsonObject& body);
    Message getBlocking(QNetworkRequest request);

    /// True for a local link and for fresh tokens; refreshes older ones and gives the result.
    bool ensureFreshToken();
    /// Trades the tokens for new ones, blocking.
    bool refresh();
    /// Gives the tokens back, blocking; true when there are none.
    bool logout();

    QString accessToken() const;
    QString refreshToken() const;
    /// Stores the tokens and the present time with them.
    void setTokens(const QString& accessToken, const QString& refreshToken);

    /// The text of the last failure of socket or start, for people.
    QString lastError() const;

    /// Whose signals are the service's notifications. Lives on the network thread: connect with a receiver.
    WebSocketHandler* webSocketHandler() const { return m_webSocketHandler; }

    /// Headers that every HTTP call carries: user agent and content type, and the access token when it is one
    /// that needs it.
    QNetworkRequest httpRequestFor(const QUrl& url, bool authorized) const;

    using HttpCall = std::function<Message(const QNetworkRequest&)>;
    /// Makes an authorized call by `call`. One that is answered with 401 is made once more, with new tokens.
    Message authorizedCall(const QUrl& url, const HttpCall& call);

signals:
    void initWS();
    void connectLocal();
    void connectRemote(QString ticket);
    void disconnectWS();
    void sendWS(QString message);
    void connected();
    void disconnected();
    void closedDueToAnotherSession();
    void connectionLost();
    void accessChanged(QString newAccess);
    void reconnected();
    void error();
    void sent();
    void initHttp();
    void httpPost(QNetworkRequest req, QByteArray json);
    void httpGet(QNetworkRequest req);

private:
    /// Deletes the handlers in their own thread when its event loop has ended. At the end of the program
    /// there is no application object any more, so no event could tell them to go.
    class NetworkThread : public QThread {
    public:
        explicit NetworkThread(Connection* owner) : m_owner(owner) {}

    protected:
        void run() override;

    private:
        Connection* m_owner;
    };

    void connectHandlerSignals();
    void connectOwnSignals();
    void waitForLink(const QString& ticket);
    bool fetchTicket(QString& ticket);
    void onReconnectTimeout();
    void setLastError(const QString& text);
    void transmit(int id, const QString& text);

    LinkTimings m_timings;
    std::atomic<bool> m_remote{false};
    std::atomic<bool> m_connected{false};
    std::atomic<bool> m_reconnect{false};  ///< a link has existed and is wanted again when it closes
    std::atomic<int> m_messageId{0};       ///< number of the last request; each connect starts at 0
    int m_waitingConnects = 0;             ///< calls of `connect` that are in their event loops
    QTimer m_reconnectTimer;
    QRecursiveMutex m_callMutex;  ///< held over a whole request: there is one waiter
    mutable QMutex m_mutex;       ///< over the members up to `m_tokenTime`
    QString m_lastError;
    QString m_accessToken;
    QString m_refreshToken;
    qint64 m_tokenTime = 0;  ///< seconds since the epoch
    NetworkThread m_thread;
    HttpHandler* m_httpHandler = nullptr;
    WebSocketHandler* m_webSocketHandler = nullptr;
    Waiter* m_waiter = nullptr;
};
