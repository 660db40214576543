#pragma once

#include "http/RequestGate.h"
#include "http/Server.h"
#include "session/SessionHub.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/strand.hpp>
#include <boost/asio/thread_pool.hpp>
#include <functional>
#include <set>

/// A socket of the one thread that serves: needs no locks of its own.
using TcpSocket =
    boost::asio::basic_stream_socket<boost::asio::ip::tcp, boost::asio::io_context::executor_type>;

class WebSocketClient;

/// What connections share: the sessions, the checks, the limits, and the moment at which requests are
/// answered.
class Dispatcher {
public:
    Dispatcher(boost::asio::io_context& io, const RequestGate& gate, const ServerLimits& limits);

    SessionHub& hub() { return m_hub; }
    const RequestGate& gate() const { return m_gate; }
    const ServerLimits& limits() const { return m_limits; }

    /// Has the waiting requests answered, after those that are on their way in have been taken off the
    /// sockets.
    void schedule();

    /// Does long work on another thread, and then, on this one, what it gives.
    using Work = std::function<std::function<void()>()>;
    void runAside(Work work);
    /// Waits for such work when the loop has ended. What it gives is dropped.
    void awaitAside() { m_aside.join(); }

    void add(WebSocketClient* client) { m_clients.insert(client); }
    void remove(WebSocketClient* client) { m_clients.erase(client); }
    const std::set<WebSocketClient*>& clients() const { return m_clients; }

private:
    void gather(quint64 received, int idlePasses);

    boost::asio::io_context& m_io;
    RequestGate m_gate;
    ServerLimits m_limits;
    SessionHub m_hub;
    std::set<WebSocketClient*> m_clients;
    bool m_scheduled = false;
    quint64 m_firstOfGroup = 0;
    boost::asio::thread_pool m_aside{1};
};
