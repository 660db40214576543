#pragma once

#include "link/LinkTimings.h"
#include "tests_support/SignalLog.h"

#include <QJsonObject>

/// Bounds for tests that wait for a bound to run out.
inline LinkTimings shortTimings() {
    LinkTimings timings;
    timings.ping = 50;
    timings.pong = 40;
    timings.disconnect = 300;
    timings.request = 300;
    timings.http = 300;
    timings.reconnect = 50;
    timings.start = 5000;
    timings.portLine = 100;
    timings.stop = 2000;
    return timings;
}

/// Bounds for tests in which nothing is to run out, except that a link comes back quickly.
inline LinkTimings calmTimings() {
    LinkTimings timings;
    timings.reconnect = 50;
    return timings;
}

inline QJsonObject localProject(const QString& name) {
    return {{QStringLiteral("name"), name}};
}
