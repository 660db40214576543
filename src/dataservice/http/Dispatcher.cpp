#include "http/Dispatcher.h"

#include <boost/asio/post.hpp>

namespace {

// Turns of the loop without a new request, after which none is taken to be on its way.
constexpr int enoughIdlePasses = 3;
// Requests that are worth a group of their own.
constexpr quint64 fullGroup = 1000;

}  // namespace

Dispatcher::Dispatcher(boost::asio::io_context& io, const RequestGate& gate, const ServerLimits& limits)
    : m_io(io), m_gate(gate), m_limits(limits) {}

void Dispatcher::schedule() {
    if (m_scheduled)
        return;
    m_scheduled = true;
    m_firstOfGroup = m_hub.received();
    boost::asio::post(m_io, [this] { gather(m_firstOfGroup, 0); });
}

void Dispatcher::runAside(Work work) {
    boost::asio::post(m_aside, [this, work = std::move(work)]() mutable {
        std::function<void()> next = work();
        // Whatever it holds belongs to the other thread.
        work = nullptr;
        boost::asio::post(m_io, std::move(next));
    });
}

void Dispatcher::gather(quint64 received, int idlePasses) {
    // Each turn of the loop takes one more frame off a socket. Frames that are there already belong to one
    // group.
    const quint64 now = m_hub.received();
    const int idle = now == received ? idlePasses + 1 : 0;
    if (idle < enoughIdlePasses && now - m_firstOfGroup < fullGroup) {
        boost::asio::post(m_io, [this, now, idle] { gather(now, idle); });
        return;
    }
    m_scheduled = false;
    m_hub.run();
    if (m_hub.hasWork())
        schedule();
}
