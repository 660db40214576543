#pragma once

#include "http/Dispatcher.h"
#include "session/Client.h"

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <deque>

/// One web socket. Lives as long as an operation on its stream is under way.
class WebSocketClient : public Client {
public:
    WebSocketClient(TcpSocket socket, Dispatcher& dispatcher);
    ~WebSocketClient() override;

    /// Answers the upgrade request and begins to read.
    void accept(const boost::beast::http::request<boost::beast::http::empty_body>& request);

    void send(const frametext::Frame& frame) override;
    bool isCongested() const override;
    void requestsTaken() override;

    /// Whether bytes have arrived that were not read yet.
    bool hasUnreadInput();
    /// From now on everything that was received is answered, however much waits to be sent.
    void beginClosing() { m_closing = true; }
    bool hasUnsent() const { return m_open && !m_unsent.empty(); }
    /// Says goodbye with the standard's code for a service that goes away.
    void close();

private:
    using Stream = boost::beast::websocket::stream<TcpSocket>;

    std::shared_ptr<WebSocketClient> self();
    void read();
    void received(boost::beast::error_code error);
    void write();
    void closed();

    Dispatcher& m_dispatcher;
    Stream m_stream;
    boost::beast::flat_buffer m_buffer;
    std::deque<frametext::Frame> m_unsent;
    qint64 m_unsentBytes = 0;
    qint64 m_pendingBytes = 0;
    bool m_open = false;
    bool m_reading = false;
    bool m_closing = false;
};
