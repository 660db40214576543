#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QQmlIncubationController>

/// Makes what the screens load asynchronously, in slices between the events of the main thread. The scene's
/// own controller gives 5 ms to each frame; where a frame draws a thousand bubbles the last of them would
/// come after more than a minute.
class Incubation : public QObject, public QQmlIncubationController {
public:
    struct Timings {
        static constexpr int slice = 30;  ///< ms of work at a time; what a person does waits no longer for it
        static constexpr int pause = 1;   ///< ms between two slices at least, for events and frames
    };

protected:
    void incubatingObjectCountChanged(int count) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QBasicTimer m_timer;
};
