#include "models/DelayedSignalTrigger.h"

DelayedSignalTrigger::DelayedSignalTrigger(int interval, QObject* parent) : QTimer(parent) {
    setSingleShot(true);
    setInterval(interval);
}

void DelayedSignalTrigger::restart() {
    stop();
    start();
}
