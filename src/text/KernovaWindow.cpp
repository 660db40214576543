#include "text/KernovaWindow.h"

#include <private/qquickevents_p_p.h>

KernovaWindow::KernovaWindow(QWindow* parent) : QQuickWindow(parent) {
    m_resizeTimer.setSingleShot(true);
    m_resizeTimer.setInterval(Timings::resizeSettled);
    connect(&m_resizeTimer, &QTimer::timeout, this, &KernovaWindow::resizeTimerTimeout);
    connect(this, &QQuickWindow::closing, this, &KernovaWindow::windowClosing);
}

void KernovaWindow::resizeEvent(QResizeEvent* event) {
    QQuickWindow::resizeEvent(event);
    setResizing(true);
    m_resizeTimer.start();
}

void KernovaWindow::resizeTimerTimeout() {
    setResizing(false);
}

void KernovaWindow::setResizing(bool resizing) {
    if (m_isResizing == resizing)
        return;
    m_isResizing = resizing;
    emit isResizingChanged();
}

#include "moc_KernovaWindow.cpp"
