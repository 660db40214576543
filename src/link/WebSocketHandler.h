#pragma once

#include "link/LinkTimings.h"

#include <QAbstractSocket>
#include <QJsonArray>
#include <QJsonObject>
#include <QMutex>
#include <QObject>
#include <QString>

class QProcess;
class QTimer;
class QWebSocket;

/// The web socket, the process of the local data service and the keep-alive timers. Turns frames into
/// signals.
///
/// Construct it without a parent, move it to the network thread and run `init` there before anything else;
/// every slot runs on that thread, and so does its destruction. The signals are emitted there too: receivers
/// on other threads get them queued, in the order in which the service sent the frames.
class WebSocketHandler : public QObject {
    Q_OBJECT

public:
    explicit WebSocketHandler(const LinkTimings& timings = {});
    ~WebSocketHandler() override;

    /// The URL last opened. May be called on any thread.
    QString endpoint() const;

signals:
    void connected();
    void disconnected();
    void closedDueToAnotherSession();
    void connectionLost();
    void connectionRetained();
    void error(QString error);
    void sent();
    void messageReceived(int msgId, int status, QJsonObject obj);
    void accessChanged(QString newAccess);
    void errorOccurred(QJsonArray errors);
    void connectionCountChanged(int count);

    void kernoSaved(QJsonObject json);
    void kernoDeleted(QJsonObject json);
    void groupSaved(QJsonObject json);
    void groupDeleted(QJsonObject json);
    void kernoGroupSaved(QJsonObject json);
    void kernoGroupDeleted(QJsonObject json);
    void sourceSaved(QJsonObject json);
    void sourceDeleted(QJsonObject json);
    void highlightSaved(QJsonObject json);
    void highlightDeleted(QJsonObject json);
    void batchHighlightsSaved(QJsonObject json);
    void batchHighlightsDeleted(QJsonObject json);
    void memoSaved(QJsonObject json);
    void memoDeleted(QJsonObject json);
    void batchMemosSaved(QJsonObject json);
    void batchMemosDeleted(QJsonObject json);
    void questionSaved(QJsonObject json);
    void questionDeleted(QJsonObject json);
    void answerSaved(QJsonObject json);
    void answerDeleted(QJsonObject json);
    void metadataSaved(QJsonObject json);
    void metadataDeleted(QJsonObject json);
    void metadataKeySaved(QJsonObject json);
    void metadataKeyDeleted(QJsonObject json);
    void metadataValueSaved(QJsonObject json);
    void metadataValueDeleted(QJsonObject json);
    void chatMessageSaved(QJsonObject json);
    void chatMessageDeleted(QJsonObject json);
    /// Many records of one kind, which is a `wire::Record`.
    void recordsSaved(int kind, QJsonArray records);
    void recordsDeleted(int kind, QJsonArray records);

    /// An attempt to open the socket begins; what follows belongs to it.
    void opening();
    /// The local service could not be started, or ended or stayed silent before it named its port. No socket
    /// is opened, so neither `connected` nor `disconnected` follows.
    void startFailed(QString error);

public slots:
    /// Creates the objects that belong to the network thread.
    void init();
    void send(QString message);
    void connectRemote(QString ticket);
    /// Starts the local service anew and opens its socket. Blocks the network thread until the service has
    /// named its port, at most `LinkTimings::start`.
    void connectLocal();
    void disconnect();

private slots:
    void onError(QAbstractSocket::SocketError err);
    void onMessageReceived(QString message);

private:
    void onConnected();
    void onDisconnected();
    void onPing();
    void onPong();
    void noteSignOfLife();
    void onProcessEnded();
    void onPongMissed();
    void onDisconnectTimeout();
    void onAbortTimeout();
    void open(const QString& url, bool local);
    void closeSocket();
    void dispatch(const QJsonObject& payload);
    void logProcessOutput();

    LinkTimings m_timings;
    bool m_connected = false;
    QTimer* m_pingTimer = nullptr;
    QTimer* m_pongTimer = nullptr;
    QTimer* m_disconnectTimer = nullptr;
    QTimer* m_abortTimer = nullptr;  ///< bounds the handshake, and a socket whose service has ended
    mutable QMutex m_endpointMutex;
    QString m_endpoint;
    QWebSocket* m_socket = nullptr;
    QProcess* m_process = nullptr;
};
