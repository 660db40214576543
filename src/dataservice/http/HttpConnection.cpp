#include "http/HttpConnection.h"

#include "http/WebSocketClient.h"
#include "protocol/ProjectJson.h"

#include <QUrl>
#include <QUrlQuery>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/span_body.hpp>
#include <boost/beast/http/write.hpp>
#include <boost/beast/websocket/rfc6455.hpp>

namespace beast = boost::beast;
namespace http = boost::beast::http;

namespace {

constexpr unsigned maxHeadBytes = 16 * 1024;
// Projects come whole, and larger than any frame.
constexpr quint64 maxBodyBytes = 1024ull * 1024 * 1024;
constexpr char projectPath[] = "/v1/projects/json";

QByteArray toBytes(beast::string_view text) {
    return {text.data(), static_cast<int>(text.size())};
}

http::status statusOf(SessionHub::FileError error) {
    switch (error) {
    case SessionHub::FileError::None:
        return http::status::ok;
    case SessionHub::FileError::NotFound:
        return http::status::not_found;
    case SessionHub::FileError::Unusable:
        return http::status::bad_request;
    case SessionHub::FileError::InUse:
        return http::status::conflict;
    case SessionHub::FileError::Failed:
        return http::status::internal_server_error;
    }
    return http::status::internal_server_error;
}

unsigned number(http::status status) {
    return static_cast<unsigned>(status);
}

/// The query of a target keeps "+" as it is, as file names do.
QString argumentOf(const QUrl& target, const QString& key) {
    return QUrlQuery(target).queryItemValue(key, QUrl::FullyDecoded);
}

}  // namespace

HttpConnection::HttpConnection(TcpSocket socket, Dispatcher& dispatcher)
    : m_socket(std::move(socket)), m_dispatcher(dispatcher), m_timer(m_socket.get_executor()) {}

void HttpConnection::start() {
    beast::error_code ignored;
    m_socket.set_option(boost::asio::ip::tcp::no_delay(true), ignored);
    readHead();
}

void HttpConnection::expireAfter(int milliseconds) {
    m_timer.expires_after(std::chrono::milliseconds(milliseconds));
    m_timer.async_wait([weak = weak_from_this()](beast::error_code error) {
        const std::shared_ptr<HttpConnection> me = weak.lock();
        if (!error && me)
            me->end();
    });
}

void HttpConnection::readHead() {
    m_body.reset();
    m_head.emplace();
    m_head->header_limit(maxHeadBytes);
    m_head->body_limit(maxBodyBytes);
    expireAfter(m_dispatcher.limits().requestTime);
    http::async_read_header(m_socket, m_buffer, *m_head,
                            [me = shared_from_this()](beast::error_code error, size_t) {
                                if (error)
                                    me->end();
                                else
                                    me->headRead();
                            });
}

void HttpConnection::headRead() {
    const auto& request = m_head->get();
    const RequestOrigin origin{toBytes(request[http::field::host]), request.count(http::field::origin) > 0,
                               toBytes(request[tokenHeader])};
    const QString refusal = m_dispatcher.gate().refusal(origin);
    if (!refusal.isEmpty()) {
        reply(number(http::status::forbidden), projectjson::failureReply(refusal));
        return;
    }
    if (beast::websocket::is_upgrade(request)) {
        m_timer.cancel();
        auto client = std::make_shared<WebSocketClient>(std::move(m_socket), m_dispatcher);
        client->accept(request);
        return;
    }
    readBody();
}

void HttpConnection::readBody() {
    m_body.emplace(std::move(*m_head));
    m_body->body_limit(maxBodyBytes);
    http::async_read(m_socket, m_buffer, *m_body, [me = shared_from_this()](beast::error_code error, size_t) {
        if (error == http::error::body_limit) {
            me->reply(number(http::status::payload_too_large),
                      projectjson::failureReply(QStringLiteral("The project is too large.")));
        } else if (error) {
            me->end();
        } else {
            me->bodyRead();
        }
    });
}

void HttpConnection::bodyRead() {
    const auto& request = m_body->get();
    const QUrl target = QUrl::fromEncoded(toBytes(request.target()), QUrl::StrictMode);
    QByteArray answer;
    if (target.path() != QLatin1String(projectPath)) {
        reply(number(http::status::not_found),
              projectjson::failureReply(QStringLiteral("There is nothing at this path.")));
    } else if (request.method() == http::verb::get) {
        const SessionHub::FileError error = m_dispatcher.hub().exportProject(
            argumentOf(target, QStringLiteral("name")), argumentOf(target, QStringLiteral("only")), &answer);
        reply(number(statusOf(error)), answer);
    } else if (request.method() == http::verb::post) {
        importBody();
    } else {
        reply(number(http::status::method_not_allowed),
              projectjson::failureReply(QStringLiteral("This path knows GET and POST.")));
    }
}

// A large project is stored aside, because the links of all clients have to be answered meanwhile.
void HttpConnection::importBody() {
    const std::string& text = m_body->get().body();
    const QByteArray body = QByteArray::fromRawData(text.data(), static_cast<int>(text.size()));
    m_timer.cancel();
    m_dispatcher.runAside([me = shared_from_this(), body]() -> std::function<void()> {
        auto file = std::make_shared<projectjson::UploadedFile>();
        return [me, file, stored = file->store(body)]() mutable {
            QByteArray answer;
            const SessionHub::FileError error = me->m_dispatcher.hub().endImport(stored, *file, &answer);
            file.reset();
            me->reply(number(statusOf(error)), answer);
        };
    });
}

void HttpConnection::reply(unsigned status, const QByteArray& body) {
    const bool keepAlive = m_body && m_body->is_done() && m_body->get().keep_alive();
    auto response = std::make_shared<http::response<http::span_body<const char>>>();
    response->result(status);
    response->version(11);
    response->keep_alive(keepAlive);
    response->set(http::field::content_type, "application/json");
    response->body() = {body.constData(), static_cast<size_t>(body.size())};
    response->prepare_payload();
    expireAfter(m_dispatcher.limits().requestTime);
    http::async_write(m_socket, *response,
                      [me = shared_from_this(), response, body, keepAlive](beast::error_code error, size_t) {
                          if (error)
                              me->end();
                          else if (keepAlive)
                              me->readHead();
                          else
                              me->linger();
                      });
}

/// Closing while a body still arrives would take the answer away from its reader.
void HttpConnection::linger() {
    beast::error_code ignored;
    m_socket.shutdown(boost::asio::ip::tcp::socket::shutdown_send, ignored);
    m_socket.async_read_some(boost::asio::buffer(m_discarded),
                             [me = shared_from_this()](beast::error_code error, size_t) {
                                 if (error)
                                     me->end();
                                 else
                                     me->linger();
                             });
}

void HttpConnection::end() {
    m_timer.cancel();
    beast::error_code ignored;
    m_socket.shutdown(boost::asio::ip::tcp::socket::shutdown_both, ignored);
    m_socket.close(ignored);
}
