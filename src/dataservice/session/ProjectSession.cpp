#include "session/ProjectSession.h"

#include "protocol/Executor.h"
#include "protocol/FrameText.h"

#include <QElapsedTimer>
#include <algorithm>
#include <optional>

ProjectSession::ProjectSession(std::unique_ptr<ProjectStore> store, const GroupLimits& limits)
    : m_store(std::move(store)), m_limits(limits) {}

void ProjectSession::join(const std::shared_ptr<Client>& client) {
    m_clients.push_back(client);
    announceCount();
}

void ProjectSession::leave(Client* client) {
    m_clients.erase(std::remove_if(m_clients.begin(), m_clients.end(),
                                   [&](const std::shared_ptr<Client>& each) { return each.get() == client; }),
                    m_clients.end());
    announceCount();
}

Client* ProjectSession::nextClient() const {
    Client* next = nullptr;
    for (const std::shared_ptr<Client>& client : m_clients) {
        if (client->requests.empty() || client->isCongested())
            continue;
        if (!next || client->requests.front().number < next->requests.front().number)
            next = client.get();
    }
    return next;
}

ProjectSession::GroupEnd ProjectSession::runGroup() {
    std::vector<Task> tasks;
    GroupEnd end = GroupEnd::Done;
    bool failed = false;
    std::optional<Answer> failure;
    int answerBytes = 0;
    QElapsedTimer timer;
    timer.start();
    const qint64 bound =
        qMax<qint64>(m_limits.milliseconds, qMin<qint64>(2 * m_commitTime, m_limits.slowDiskMilliseconds));
    while (!failed && static_cast<int>(tasks.size()) < m_limits.frames && timer.elapsed() < bound &&
           answerBytes < m_limits.answerBytes) {
        Client* client = nextClient();
        if (!client)
            break;
        Request request = readRequest(client->requests.front().bytes);
        if (request.concernsProjects()) {
            end = GroupEnd::ProjectRequest;
            break;
        }
        client->requests.pop_front();
        // Nobody is left to read the answer.
        if (client->gone && !request.query.isMutation)
            continue;
        tasks.push_back({client->shared_from_this(), std::move(request), {}});
        answer(tasks.back());
        answerBytes += tasks.back().answer.payload.size();
        failed = tasks.back().answer.kind == Outcome::Kind::Failed;
    }
    timer.restart();
    const bool committed = !failed && m_store->commit().ok();
    m_commitTime = timer.elapsed();
    if (!committed) {
        // One bad request must not take its neighbours down with it.
        m_store->rollback();
        timer.restart();
        for (Task& task : tasks) {
            // When the file itself can't be had, each would wait for it anew.
            if (failure && timer.elapsed() > m_limits.retryMilliseconds && task.request.query.isMutation)
                task.answer = *failure;
            else
                runAlone(task);
            if (task.answer.kind == Outcome::Kind::Failed)
                failure = task.answer;
        }
    }
    for (const Task& task : tasks)
        deliver(task);
    for (const Task& task : tasks)
        task.client->requestsTaken();
    return end;
}

void ProjectSession::answer(Task& task) {
    if (task.request.ok)
        task.answer = execute(*m_store, task.request.query, task.client->access);
    else
        task.answer = Answer::refused({task.request.fault});
}

void ProjectSession::runAlone(Task& task) {
    answer(task);
    const Outcome outcome = task.answer.ok() ? m_store->commit() : Outcome::done();
    m_store->rollback();
    if (!outcome.ok())
        task.answer = Answer::from(outcome);
}

void ProjectSession::deliver(const Task& task) {
    const Answer& answer = task.answer;
    task.client->send(frametext::write(task.request.messageId, answer.ok(), answer.payload));
    if (!answer.notifies || m_clients.size() < 2)
        return;
    const frametext::Frame notification = frametext::write(0, true, answer.payload);
    for (const std::shared_ptr<Client>& other : m_clients) {
        if (other != task.client)
            other->send(notification);
    }
}

void ProjectSession::announceCount() {
    const frametext::Frame frame =
        frametext::write(0, true, connectionCountPayload(static_cast<int>(m_clients.size())));
    for (const std::shared_ptr<Client>& client : m_clients)
        client->send(frame);
}
