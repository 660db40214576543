#pragma once

#include <QQuickWindow>
#include <QTimer>

class QQuickCloseEvent;

/// A top-level window that tells when it is being resized and lets a screen refuse to close.
class KernovaWindow : public QQuickWindow {
    Q_OBJECT
    Q_PROPERTY(bool isResizing READ isResizing NOTIFY isResizingChanged)

public:
    struct Timings {
        static constexpr int resizeSettled = 5;  ///< ms after the last resize event
    };

    explicit KernovaWindow(QWindow* parent = nullptr);

    /// True from a resize event until no other has come for `Timings::resizeSettled`.
    bool isResizing() const { return m_isResizing; }

signals:
    void isResizingChanged();
    /// Setting `accepted` of `close` to false keeps the window open.
    void windowClosing(QQuickCloseEvent* close);

protected:
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void resizeTimerTimeout();

private:
    void setResizing(bool resizing);

    QTimer m_resizeTimer;
    bool m_isResizing = false;
};
