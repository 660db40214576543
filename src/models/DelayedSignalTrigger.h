#pragma once

#include <QTimer>

/// A single-shot timer that gathers a burst of changes: it fires once, its interval after the last
/// `restart()`.
class DelayedSignalTrigger : public QTimer {
    Q_OBJECT

public:
    explicit DelayedSignalTrigger(int interval, QObject* parent = nullptr);

public slots:
    void restart();
};
