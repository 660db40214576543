#pragma once

#include "protocol/Answer.h"
#include "protocol/Request.h"
#include "session/Client.h"
#include "session/Limits.h"
#include "store/ProjectStore.h"

#include <QString>
#include <memory>
#include <vector>

/// The clients of one open project: answers their requests in the order of arrival, in groups that are
/// committed as one before any of their answers goes out, and announces changes to the others.
class ProjectSession {
public:
    ProjectSession(std::unique_ptr<ProjectStore> store, const GroupLimits& limits);

    ProjectStore& store() { return *m_store; }

    void join(const std::shared_ptr<Client>& client);
    void leave(Client* client);
    bool isEmpty() const { return m_clients.empty(); }

    /// The client whose oldest request is next, or null when none waits of a client that takes answers.
    Client* nextClient() const;

    enum class GroupEnd {
        Done,           ///< answered what the group could hold
        ProjectRequest  ///< the next client's next request is about projects themselves: the hub's
    };
    /// Answers requests until the group is full or none is left.
    GroupEnd runGroup();

private:
    struct Task {
        std::shared_ptr<Client> client;
        Request request;
        Answer answer;
    };

    void answer(Task& task);
    void runAlone(Task& task);
    void deliver(const Task& task);
    void announceCount();

    std::unique_ptr<ProjectStore> m_store;
    GroupLimits m_limits;
    qint64 m_commitTime = 0;  ///< ms, of the last group
    std::vector<std::shared_ptr<Client>> m_clients;
};
