#pragma once

#include "http/Dispatcher.h"

#include <array>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <memory>
#include <optional>

/// A connection until it is known what it wants: a web socket, or one of the project paths.
class HttpConnection : public std::enable_shared_from_this<HttpConnection> {
public:
    HttpConnection(TcpSocket socket, Dispatcher& dispatcher);

    void start();

private:
    void readHead();
    void headRead();
    void readBody();
    void bodyRead();
    void importBody();
    void reply(unsigned status, const QByteArray& body);
    void linger();
    void expireAfter(int milliseconds);
    void end();

    TcpSocket m_socket;
    Dispatcher& m_dispatcher;
    boost::asio::steady_timer m_timer;
    boost::beast::flat_buffer m_buffer;
    std::array<char, 16 * 1024> m_discarded;
    std::optional<boost::beast::http::request_parser<boost::beast::http::empty_body>> m_head;
    std::optional<boost::beast::http::request_parser<boost::beast::http::string_body>> m_body;
};
