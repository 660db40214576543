#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <ctime>
#include <unistd.h>

/// The processor time of this thread so far, in milliseconds: what others do on the machine is not in it.
inline double threadMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The longest time between two passes of the event loop, within some milliseconds.
class Pulse {
public:
    Pulse() {
        m_timer.setInterval(2);  // one that never rests would take a core from the others
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            m_longest = qMax(m_longest, static_cast<double>(m_clock.nsecsElapsed()) / 1e6);
            m_clock.restart();
            m_longestOwn = qMax(m_longestOwn, threadMilliseconds() - m_ownBefore);
            m_ownBefore = threadMilliseconds();
        });
        m_clock.start();
        m_timer.start();
    }
    void restart() {
        m_longest = m_longestOwn = 0;
        m_ownBefore = threadMilliseconds();
        m_clock.restart();
    }
    /// In milliseconds, the time since the last pass included.
    double longest() const { return qMax(m_longest, static_cast<double>(m_clock.nsecsElapsed()) / 1e6); }
    /// In milliseconds, as far as this thread worked meanwhile: on a busy machine this says more.
    double longestOwn() const { return m_longestOwn; }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    double m_longest = 0;
    double m_longestOwn = 0;
    double m_ownBefore = threadMilliseconds();
};

/// The memory of this process that is in use, in 10^6 bytes.
inline double megabytesResident() {
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readAll().split(' ').value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}
