#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns SIGTERM and SIGINT, the end of a session or Ctrl+C in a terminal, into a signal on the thread of
/// this object, so that the program can end in order. From the first one on the system's own handling is
/// back: a second one ends a program that hangs. One object at a time.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

signals:
    void received();

private:
    void onReadable();

    QSocketNotifier* m_notifier = nullptr;
};
