#include "http/Server.h"

#include "http/HttpConnection.h"
#include "http/WebSocketClient.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <csignal>
#include <optional>
#include <thread>
#include <unistd.h>

namespace asio = boost::asio;
namespace beast = boost::beast;
using tcp = boost::asio::ip::tcp;

namespace {

// How often the end looks whether the last frames have come and gone.
constexpr std::chrono::milliseconds closingStep(2);
// Input that is on its way when the end begins shows within this many looks.
constexpr int quietSteps = 5;

}  // namespace

class Server::Private : public std::enable_shared_from_this<Server::Private> {
public:
    Private(const QByteArray& token, const ServerLimits& limits)
        : m_token(token), m_limits(limits), m_acceptor(m_io), m_signals(m_io), m_timer(m_io) {}

    bool listen(QString* message) {
        beast::error_code error;
        const tcp::endpoint endpoint(asio::ip::address_v4::loopback(), 0);
        m_acceptor.open(endpoint.protocol(), error);
        if (!error)
            m_acceptor.bind(endpoint, error);
        if (!error)
            m_acceptor.listen(asio::socket_base::max_listen_connections, error);
        if (!error)
            m_port = m_acceptor.local_endpoint(error).port();
        if (error) {
            *message = QString::fromStdString(error.message());
            return false;
        }
        m_dispatcher.emplace(m_io, RequestGate(m_port, m_token), m_limits);
        m_signals.add(SIGTERM, error);
        m_signals.add(SIGINT, error);
        return true;
    }

    void run() {
        accept();
        m_signals.async_wait([this](beast::error_code error, int) {
            if (!error)
                beginLeave();
        });
        watchInput();
        m_io.run();
        m_dispatcher->awaitAside();
    }

    quint16 port() const { return m_port; }

private:
    void accept() {
        m_acceptor.async_accept([this](beast::error_code error, TcpSocket socket) {
            if (error == asio::error::operation_aborted)
                return;
            if (!error)
                std::make_shared<HttpConnection>(std::move(socket), *m_dispatcher)->start();
            accept();
        });
    }

    /// A plain read on a thread of its own is the one thing that tells the end of any kind of standard input.
    void watchInput() {
        std::thread([weak = weak_from_this()] {
            char byte;
            while (::read(STDIN_FILENO, &byte, 1) > 0) {}
            if (const std::shared_ptr<Private> me = weak.lock())
                asio::post(me->m_io, [me] { me->beginEnd(); });
        }).detach();
    }

    /// A session that ends asks all programs at once, so the clients may have a last word, such as that their
    /// project isn't open any more. A second signal allows none.
    void beginLeave() {
        m_signals.async_wait([this](beast::error_code error, int) {
            if (!error)
                beginEnd();
        });
        m_deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_limits.leavingTime);
        awaitLeave();
    }

    void awaitLeave() {
        if (m_ending)
            return;
        if (!m_dispatcher->clients().empty() && !isLate())
            later([this] { awaitLeave(); });
        else
            beginEnd();
    }

    void beginEnd() {
        if (m_ending)
            return;
        m_ending = true;
        beast::error_code ignored;
        m_acceptor.close(ignored);
        m_signals.cancel(ignored);
        m_deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_limits.closingTime);
        for (WebSocketClient* client : m_dispatcher->clients())
            client->beginClosing();
        takeLast(0);
    }

    template <typename Step> void later(Step step) {
        m_timer.expires_after(closingStep);
        m_timer.async_wait([me = shared_from_this(), step](beast::error_code) { step(); });
    }

    bool isLate() const { return std::chrono::steady_clock::now() > m_deadline; }

    /// What was sent to us before the end began still counts.
    void takeLast(int quiet) {
        bool busy = m_dispatcher->hub().hasWork();
        for (WebSocketClient* client : m_dispatcher->clients())
            busy = busy || client->hasUnreadInput();
        const int steps = busy ? 0 : quiet + 1;
        if (!isLate() && steps < quietSteps) {
            later([this, steps] { takeLast(steps); });
            return;
        }
        m_dispatcher->hub().closeAll();
        sendLast();
    }

    void sendLast() {
        bool busy = false;
        for (WebSocketClient* client : m_dispatcher->clients())
            busy = busy || client->hasUnsent();
        if (busy && !isLate()) {
            later([this] { sendLast(); });
            return;
        }
        for (WebSocketClient* client : std::set<WebSocketClient*>(m_dispatcher->clients()))
            client->close();
        awaitGoodbyes();
    }

    void awaitGoodbyes() {
        if (!m_dispatcher->clients().empty() && !isLate())
            later([this] { awaitGoodbyes(); });
        else
            m_io.stop();
    }

    QByteArray m_token;
    ServerLimits m_limits;
    // Outlives the loop, whose last operations hold clients that sign off here.
    std::optional<Dispatcher> m_dispatcher;
    asio::io_context m_io{1};
    asio::basic_socket_acceptor<tcp, asio::io_context::executor_type> m_acceptor;
    asio::signal_set m_signals;
    asio::steady_timer m_timer;
    std::chrono::steady_clock::time_point m_deadline;
    quint16 m_port = 0;
    bool m_ending = false;
};

Server::Server(const QByteArray& token, const ServerLimits& limits)
    : m_private(std::make_shared<Private>(token, limits)) {}

Server::~Server() = default;

bool Server::listen(QString* message) {
    return m_private->listen(message);
}

quint16 Server::port() const {
    return m_private->port();
}

void Server::run() {
    m_private->run();
}
