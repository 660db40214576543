#pragma once

#include "protocol/ProjectJson.h"
#include "session/Client.h"
#include "session/ProjectSession.h"

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

/// All open projects and all clients of one service. Bound to one thread; holds no state outside itself.
class SessionHub {
public:
    explicit SessionHub(const GroupLimits& limits = {}) : m_limits(limits) {}

    void connected(const std::shared_ptr<Client>& client);

    /// Queues a request. It is answered by a later `run`.
    void receive(Client& client, const QByteArray& frame);

    /// The connection is gone. What it had sent before to be stored is still stored.
    void disconnected(Client& client);

    /// Whether there is a request that `run` would answer.
    bool hasWork() const;
    /// The number of requests that arrived so far.
    quint64 received() const { return m_received; }

    /// Answers one group of each project.
    void run();

    /// Answers everything that has arrived and closes all projects.
    void closeAll();

    enum class FileError {
        None,
        NotFound,
        Unusable,  ///< the file or what was sent isn't a project
        InUse,     ///< a client has the file open
        Failed     ///< it couldn't be written
    };
    /// A whole project as JSON, open or not. With `only` "preferences" just these, at the same cost for a
    /// project of any size; no other part can be asked for alone.
    FileError exportProject(const QString& name, const QString& only, QByteArray* reply);
    /// Moves a project that was sent whole into place, after it was stored, or failed to be. Without an error
    /// `reply` tells of it, otherwise of the reason.
    FileError endImport(const Outcome& stored, projectjson::UploadedFile& file, QByteArray* reply) const;

private:
    std::shared_ptr<ProjectSession> find(const QString& path) const;
    std::shared_ptr<ProjectSession> open(const QString& path, QString* message);
    void runOutside(Client& client);
    void answerProjectRequest(Client& client, const Request& request);
    void openFor(Client& client, const Request& request);
    void leave(Client& client);
    void dropGone();

    GroupLimits m_limits;
    quint64 m_received = 0;
    std::vector<std::shared_ptr<ProjectSession>> m_sessions;
    std::vector<std::shared_ptr<Client>> m_clients;
};
