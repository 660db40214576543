#include "session/SessionHub.h"

#include "protocol/FrameText.h"
#include "protocol/ProjectJson.h"
#include "store/ProjectFile.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace {

void reply(Client& client, const Request& request, bool ok, const QByteArray& payload) {
    client.send(frametext::write(request.messageId, ok, payload));
}

}  // namespace

void SessionHub::connected(const std::shared_ptr<Client>& client) {
    m_clients.push_back(client);
}

void SessionHub::receive(Client& client, const QByteArray& frame) {
    client.requests.push_back({++m_received, frame});
}

void SessionHub::disconnected(Client& client) {
    client.gone = true;
    dropGone();
}

bool SessionHub::hasWork() const {
    return std::any_of(m_clients.begin(), m_clients.end(), [](const std::shared_ptr<Client>& client) {
        return !client->requests.empty() && !client->isCongested();
    });
}

void SessionHub::run() {
    const std::vector<std::shared_ptr<Client>> clients = m_clients;
    for (const std::shared_ptr<Client>& client : clients)
        runOutside(*client);
    const std::vector<std::shared_ptr<ProjectSession>> sessions = m_sessions;
    for (const std::shared_ptr<ProjectSession>& session : sessions) {
        if (session->runGroup() != ProjectSession::GroupEnd::ProjectRequest)
            continue;
        // The answers that went out may have changed who is next.
        Client* next = session->nextClient();
        const Request request = next ? readRequest(next->requests.front().bytes) : Request();
        if (!request.concernsProjects())
            continue;
        const std::shared_ptr<Client> client = next->shared_from_this();
        client->requests.pop_front();
        answerProjectRequest(*client, request);
        client->requestsTaken();
    }
    dropGone();
}

void SessionHub::closeAll() {
    // A client that takes no answers keeps its requests from being carried out; nothing waits for it now.
    while (hasWork())
        run();
    for (const std::shared_ptr<Client>& client : m_clients)
        leave(*client);
    m_clients.clear();
    m_sessions.clear();
}

SessionHub::FileError SessionHub::exportProject(const QString& name, const QString& only,
                                                QByteArray* answer) {
    const auto fail = [&](FileError error, const QString& message) {
        *answer = projectjson::failureReply(message);
        return error;
    };
    if (!only.isEmpty() && only != QLatin1String("preferences"))
        return fail(FileError::Unusable, QStringLiteral("\"%1\" can't be read alone.").arg(only));
    while (hasWork())
        run();
    const QString path = QFileInfo(name).absoluteFilePath();
    if (name.isEmpty() || !QFile::exists(path))
        return fail(FileError::NotFound, QStringLiteral("There is no project file \"%1\".").arg(name));
    const std::shared_ptr<ProjectSession> session = find(path);
    QString message;
    std::unique_ptr<ProjectStore> own;
    if (!session)
        own = only.isEmpty() ? ProjectStore::openExisting(path, &message)
                             : ProjectStore::openToLook(path, &message);
    if (!session && !own)
        return fail(FileError::Unusable, message);
    const Outcome outcome = projectjson::exportProject(session ? session->store() : *own, name, only, answer);
    return outcome.ok() ? FileError::None : fail(FileError::Unusable, outcome.message);
}

SessionHub::FileError SessionHub::endImport(const Outcome& stored, projectjson::UploadedFile& file,
                                            QByteArray* answer) const {
    const QString name = file.upload().name;
    // Taking a file away under its open database would lose what is written to it afterwards.
    if (stored.ok() && find(name)) {
        *answer = projectjson::failureReply(QStringLiteral("The project file \"%1\" is open.").arg(name));
        return FileError::InUse;
    }
    const Outcome outcome = stored.ok() ? file.moveIntoPlace() : stored;
    *answer =
        outcome.ok() ? projectjson::importReply(file.upload()) : projectjson::failureReply(outcome.message);
    if (outcome.ok())
        return FileError::None;
    return outcome.kind == Outcome::Kind::Refused ? FileError::Unusable : FileError::Failed;
}

std::shared_ptr<ProjectSession> SessionHub::find(const QString& path) const {
    const QByteArray identity = projectfile::identity(path);
    for (const std::shared_ptr<ProjectSession>& session : m_sessions) {
        if (!identity.isEmpty() && session->store().identity() == identity && session->store().isInPlace())
            return session;
    }
    return nullptr;
}

std::shared_ptr<ProjectSession> SessionHub::open(const QString& path, QString* message) {
    std::shared_ptr<ProjectSession> session = find(path);
    if (session)
        return session;
    std::unique_ptr<ProjectStore> store = ProjectStore::open(path, message);
    if (!store)
        return nullptr;
    session = std::make_shared<ProjectSession>(std::move(store), m_limits);
    m_sessions.push_back(session);
    return session;
}

void SessionHub::runOutside(Client& client) {
    while (!client.session && !client.requests.empty() && !client.isCongested()) {
        const Request request = readRequest(client.requests.front().bytes);
        client.requests.pop_front();
        if (!request.ok)
            reply(client, request, false, errorsPayload({request.fault}));
        else if (request.concernsProjects())
            answerProjectRequest(client, request);
        else
            reply(client, request, false, errorsPayload(QStringLiteral("No project is open.")));
        client.requestsTaken();
    }
}

void SessionHub::answerProjectRequest(Client& client, const Request& request) {
    if (request.query.operation == wire::name::dbOpen) {
        openFor(client, request);
        return;
    }
    // The file is closed before the answer goes out, so that the client may move it at once.
    leave(client);
    reply(client, request, true, closedPayload());
}

void SessionHub::openFor(Client& client, const Request& request) {
    std::vector<Fault> faults;
    const std::optional<ProjectName> project = readOpenRequest(request.query, &faults);
    if (!project) {
        reply(client, request, false, errorsPayload(faults));
        return;
    }
    QString message;
    const std::shared_ptr<ProjectSession> session =
        open(QFileInfo(project->name).absoluteFilePath(), &message);
    if (!session) {
        reply(client, request, false, errorsPayload(message));
        return;
    }
    if (client.session != session)
        leave(client);
    client.access = AccessLevel::Owner;
    reply(client, request, true, openedPayload(*project, accessLevelName(client.access)));
    if (client.session == session)
        return;
    client.session = session;
    session->join(client.shared_from_this());
}

void SessionHub::leave(Client& client) {
    const std::shared_ptr<ProjectSession> session = std::move(client.session);
    client.session.reset();
    client.access = AccessLevel::Revoked;
    if (!session)
        return;
    session->leave(&client);
    if (session->isEmpty())
        m_sessions.erase(std::remove(m_sessions.begin(), m_sessions.end(), session), m_sessions.end());
}

void SessionHub::dropGone() {
    for (size_t i = m_clients.size(); i > 0; --i) {
        const std::shared_ptr<Client> client = m_clients[i - 1];
        if (!client->gone || !client->requests.empty())
            continue;
        leave(*client);
        m_clients.erase(m_clients.begin() + static_cast<std::ptrdiff_t>(i - 1));
    }
}
