#include "app/Incubation.h"

void Incubation::incubatingObjectCountChanged(int count) {
    if (count > 0 && !m_timer.isActive())
        m_timer.start(Timings::pause, this);
}

void Incubation::timerEvent(QTimerEvent*) {
    m_timer.stop();
    incubateFor(Timings::slice);
    if (incubatingObjectCount() > 0)
        m_timer.start(Timings::pause, this);
}
