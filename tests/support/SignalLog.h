#pragma once

#include "tests_support/WaitFor.h"

#include <QObject>
#include <QStringList>

/// Writes down the names of signals in the order in which they arrive on this thread.
class SignalLog : public QObject {
public:
    QStringList names;

    template <typename Sender, typename Signal>
    void listen(Sender* sender, Signal signal, const QString& name) {
        connect(sender, signal, this, [this, name] { names << name; });
    }
    bool waitFor(const QString& name) {
        return ::waitFor([&] { return names.contains(name); });
    }
};
