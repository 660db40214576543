#include "http/WebSocketClient.h"

#include <array>
#include <boost/asio/buffer.hpp>
#include <boost/asio/post.hpp>

namespace beast = boost::beast;
namespace websocket = boost::beast::websocket;

WebSocketClient::WebSocketClient(TcpSocket socket, Dispatcher& dispatcher)
    : m_dispatcher(dispatcher), m_stream(std::move(socket)) {
    m_dispatcher.add(this);
}

WebSocketClient::~WebSocketClient() {
    m_dispatcher.remove(this);
}

std::shared_ptr<WebSocketClient> WebSocketClient::self() {
    return std::static_pointer_cast<WebSocketClient>(shared_from_this());
}

void WebSocketClient::accept(const beast::http::request<beast::http::empty_body>& request) {
    m_stream.read_message_max(frametext::maxFrameBytes);
    m_stream.auto_fragment(false);
    m_stream.text(true);
    // Silence is no fault between two programs of one machine; only the handshakes are bounded.
    websocket::stream_base::timeout timeouts{};
    timeouts.handshake_timeout = std::chrono::milliseconds(m_dispatcher.limits().requestTime);
    timeouts.idle_timeout = websocket::stream_base::none();
    timeouts.keep_alive_pings = false;
    m_stream.set_option(timeouts);
    m_stream.async_accept(request, [me = self()](beast::error_code error) {
        if (error)
            return;
        me->m_open = true;
        me->m_dispatcher.hub().connected(me);
        me->read();
    });
}

void WebSocketClient::read() {
    if (m_reading || !m_open)
        return;
    m_reading = true;
    m_stream.async_read(m_buffer, [me = self()](beast::error_code error, size_t) { me->received(error); });
}

void WebSocketClient::received(beast::error_code error) {
    m_reading = false;
    if (error) {
        closed();
        return;
    }
    if (!m_stream.got_text()) {
        m_stream.async_close(websocket::close_code::unknown_data,
                             [me = self()](beast::error_code) { me->closed(); });
        return;
    }
    const auto bytes = m_buffer.data();
    const QByteArray frame(static_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
    m_buffer.consume(m_buffer.size());
    // One long text must not keep its room for as long as the connection lasts.
    m_buffer.shrink_to_fit();
    m_pendingBytes += frame.size();
    m_dispatcher.hub().receive(*this, frame);
    m_dispatcher.schedule();
    const ServerLimits& limits = m_dispatcher.limits();
    if (static_cast<int>(requests.size()) < limits.pendingRequests && m_pendingBytes < limits.pendingBytes)
        read();
}

void WebSocketClient::requestsTaken() {
    m_pendingBytes = 0;
    for (const Request& request : requests)
        m_pendingBytes += request.bytes.size();
    const ServerLimits& limits = m_dispatcher.limits();
    if (static_cast<int>(requests.size()) < limits.pendingRequests && m_pendingBytes < limits.pendingBytes)
        read();
}

void WebSocketClient::send(const frametext::Frame& frame) {
    if (!m_open)
        return;
    m_unsent.push_back(frame);
    m_unsentBytes += frame.size();
    if (m_unsent.size() == 1)
        write();
    else if (m_unsentBytes > m_dispatcher.limits().droppedBytes && m_unsentBytes > 2 * frame.size())
        beast::get_lowest_layer(m_stream).cancel();
}

void WebSocketClient::write() {
    using boost::asio::buffer;
    const frametext::Frame& frame = m_unsent.front();
    const std::array<boost::asio::const_buffer, 3> parts{
        buffer(frame.head.constData(), static_cast<size_t>(frame.head.size())),
        buffer(frame.payload.constData(), static_cast<size_t>(frame.payload.size())),
        buffer(frametext::Frame::tail, sizeof(frametext::Frame::tail) - 1)};
    m_stream.async_write(parts, [me = self()](beast::error_code error, size_t) {
        const bool wasCongested = me->isCongested();
        me->m_unsentBytes -= me->m_unsent.front().size();
        me->m_unsent.pop_front();
        if (error) {
            // While reading is paused nothing else would tell that the client is gone.
            beast::get_lowest_layer(me->m_stream).cancel();
            me->closed();
            return;
        }
        if (!me->m_unsent.empty())
            me->write();
        if (wasCongested && !me->isCongested())
            me->m_dispatcher.schedule();
    });
}

bool WebSocketClient::isCongested() const {
    return m_open && !m_closing && m_unsentBytes > m_dispatcher.limits().unsentBytes;
}

bool WebSocketClient::hasUnreadInput() {
    beast::error_code error;
    return m_open && m_reading && beast::get_lowest_layer(m_stream).available(error) > 0 && !error;
}

void WebSocketClient::close() {
    if (!m_open)
        return;
    m_stream.async_close(websocket::close_code::going_away, [me = self()](beast::error_code) {});
}

void WebSocketClient::closed() {
    if (!m_open)
        return;
    m_open = false;
    // Not at once: this may be the answer to something that the sessions are doing right now.
    boost::asio::post(m_stream.get_executor(), [me = self()] {
        me->m_dispatcher.hub().disconnected(*me);
        me->m_dispatcher.schedule();
    });
}
