#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

/// Bounds of the connections. Times in milliseconds.
struct ServerLimits {
    int requestTime = 30000;     ///< for a request's head and body to arrive
    int pendingRequests = 4000;  ///< of one client; no more are read until some are answered
    int pendingBytes = 128 * 1024 * 1024;
    int unsentBytes =
        16 * 1024 * 1024;  ///< of one client; no more of its requests are answered until some are sent
    int droppedBytes = 512 * 1024 * 1024;  ///< a client that lets this much wait is disconnected
    int leavingTime = 2000;                ///< for the clients to leave after a signal to end
    int closingTime = 1000;                ///< for the last answers to leave at the end
};

/// The service on its port: listens on the loopback address, checks and upgrades requests, answers the
/// project paths, and lets the sessions work. Runs on the thread that calls `run`.
class Server {
public:
    /// `token` as the environment gave it; empty for none.
    explicit Server(const QByteArray& token, const ServerLimits& limits = {});
    ~Server();

    /// Listens on a port that the system chooses. False with a sentence in `message` when that fails.
    bool listen(QString* message);
    quint16 port() const;

    /// Serves until the end of standard input, or SIGTERM or SIGINT and then until the clients have left or a
    /// second signal has come. Then everything that arrived is carried out and committed, and the files are
    /// closed.
    void run();

private:
    class Private;
    std::shared_ptr<Private> m_private;
};
