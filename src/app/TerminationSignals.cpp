#include "app/TerminationSignals.h"

#include <QSocketNotifier>
#include <QtGlobal>
#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 2> handled{SIGTERM, SIGINT};

// A signal's handler may do little more than write: the two ends of a socket carry the news to the event
// loop.
std::array<int, 2> ends{-1, -1};

void writeByte(int) {
    const int error = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(ends[0], &byte, 1);
    errno = error;
}

void setHandler(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (int number : handled)
        sigaction(number, &action, nullptr);
}

}  // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) != 0)
        return;
    m_notifier = new QSocketNotifier(ends[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &TerminationSignals::onReadable);
    setHandler(writeByte);
}

TerminationSignals::~TerminationSignals() {
    if (!m_notifier)
        return;
    setHandler(SIG_DFL);
    delete m_notifier;
    for (int& end : ends) {
        ::close(end);
        end = -1;
    }
}

void TerminationSignals::onReadable() {
    m_notifier->setEnabled(false);
    setHandler(SIG_DFL);
    emit received();
}
