#pragma once

#include "protocol/FrameText.h"
#include "wire/AccessLevel.h"

#include <QByteArray>
#include <deque>
#include <memory>

class ProjectSession;

/// One connection to the service, as the sessions see it. The connection derives from it and says how frames
/// go out.
class Client : public std::enable_shared_from_this<Client> {
public:
    virtual ~Client() = default;

    /// Hands a frame to the connection, which sends it in its own time.
    virtual void send(const frametext::Frame& frame) = 0;

    /// Whether so much waits to be sent that no further requests of this client should be answered now.
    virtual bool isCongested() const = 0;

    /// Tells that requests were taken, so that more may be read.
    virtual void requestsTaken() = 0;

    /// The project that the client has open, or null. Set by the session hub.
    std::shared_ptr<ProjectSession> session;
    AccessLevel access = AccessLevel::Revoked;
    bool gone = false;  ///< the connection has ended, and only what it was to change is of interest

    struct Request {
        quint64 number = 0;  ///< in the order of arrival over all clients
        QByteArray bytes;
    };
    std::deque<Request> requests;  ///< arrived and not answered yet
};
