#pragma once

#include <QByteArray>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <string>
#include <thread>

/// A web socket with nothing around it, blocking, for measures that are to show the other end alone.
class BareSocket {
public:
    explicit BareSocket(quint16 port) : m_stream(m_io) {
        m_stream.next_layer().connect({boost::asio::ip::address_v4::loopback(), port});
        m_stream.next_layer().set_option(boost::asio::ip::tcp::no_delay(true));
        m_stream.read_message_max(0);
        m_stream.handshake("127.0.0.1:" + std::to_string(port), "/");
        m_stream.text(true);
    }

    void write(const QByteArray& text) {
        m_stream.write(boost::asio::buffer(text.constData(), static_cast<size_t>(text.size())));
    }
    QByteArray read() {
        m_buffer.clear();
        m_stream.read(m_buffer);
        return {static_cast<const char*>(m_buffer.data().data()), static_cast<int>(m_buffer.size())};
    }

private:
    boost::asio::io_context m_io;
    boost::beast::websocket::stream<boost::asio::ip::tcp::socket> m_stream;
    boost::beast::flat_buffer m_buffer;
};

/// Sends every text back to its one client, on a thread of its own.
class EchoServer {
public:
    EchoServer()
        : m_acceptor(m_io, {boost::asio::ip::address_v4::loopback(), 0}), m_thread([this] { run(); }) {}
    /// Waits for the client to go.
    ~EchoServer() { m_thread.join(); }
    quint16 port() const { return m_acceptor.local_endpoint().port(); }

private:
    void run() {
        boost::beast::websocket::stream<boost::asio::ip::tcp::socket> stream(m_acceptor.accept());
        stream.next_layer().set_option(boost::asio::ip::tcp::no_delay(true));
        boost::beast::error_code error;
        stream.accept(error);
        boost::beast::flat_buffer buffer;
        while (!error) {
            stream.text(true);
            stream.read(buffer, error);
            if (!error)
                stream.write(buffer.data(), error);
            buffer.clear();
        }
    }

    boost::asio::io_context m_io;
    boost::asio::ip::tcp::acceptor m_acceptor;
    std::thread m_thread;
};
