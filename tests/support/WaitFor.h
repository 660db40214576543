#pragma once

#include <QTest>

/// Milliseconds that a test waits for something that is bound to happen.
constexpr int patience = 10000;

/// Runs the event loop until the condition holds; false when it doesn't within `milliseconds`.
template <typename Condition> bool waitFor(Condition condition, int milliseconds = patience) {
    return QTest::qWaitFor(condition, milliseconds);
}
