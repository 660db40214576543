#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

/// The data service's executable, run for one test. Named by the environment variable
/// KERNOVA_SERVICE_PROGRAM. It ends with this object at the latest.
class RealService {
public:
    /// The executable that the environment names, or an empty text when there is none.
    static QString program();

    /// `token`: what the service asks of its clients; an empty one asks for nothing.
    explicit RealService(const QByteArray& token = {});
    ~RealService();

    /// The folder in which relative names of projects lie; before `start`.
    void setFolder(const QString& folder) { m_process.setWorkingDirectory(folder); }

    /// Starts it with "-local" and waits for its port line. False when it fails.
    bool start();

    /// From now on, as long as this object lives, KERNOVA_SERVICE_PROGRAM names a program that prints this
    /// service's port and ends when its input closes: all links of the test lead to the one service.
    bool share();

    quint16 port() const { return m_port; }
    QUrl httpUrl(const QString& pathAndQuery) const;
    qint64 pid() const { return m_process.processId(); }

    /// Closes its standard input, which ends it, and gives its exit code; -1 when it doesn't end or crashes.
    int endByInput();
    /// Sends SIGKILL and waits for the end.
    void kill();

private:
    int waitForEnd();
    void unshare();

    QByteArray m_token;
    QProcess m_process;
    quint16 m_port = 0;
    QTemporaryDir m_folder;
    QByteArray m_formerProgram;  ///< what the environment named before `share`; empty when not shared
};
