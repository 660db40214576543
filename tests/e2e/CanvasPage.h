#pragma once

#include "AppDriver.h"

/// The canvas as a person sees it: bubbles found by their titles.
class CanvasPage {
public:
    explicit CanvasPage(AppDriver& driver) : m_driver(driver) {}

    /// The bubble of that title that is drawn; `level` 0 is the top level, 1 a child in a ring, -1 either.
    /// Null for none.
    QQuickItem* bubble(const QString& title, int level = -1);
    /// Where a bubble is drawn, in the surface's coordinates; a point outside for none. A change of their
    /// order has bubbles drawn anew, and so away for a moment.
    QPointF drawnAt(const QString& title);
    /// The id of a bubble's kerno; 0 where there is none of that title.
    int kernoId(const QString& title);
    /// How often the kerno is coded, as its bubble counts; -1 without a bubble.
    int codings(const QString& title);
    /// The surface of the bubbles, in whose coordinates they lie.
    QQuickItem* surface();
    QQuickItem* addButton();
    /// Whether the children of a bubble stand around it, and not behind its rim.
    bool ringIsOpen(const QString& title);

    /// Drags a bubble to a point in canvas units, or onto another bubble.
    bool drag(const QString& title, const QPointF& canvasPoint);
    bool dragOnto(const QString& title, const QString& target);
    /// Rests the mouse on a top-level bubble until its ring is open, then on a child until that is the one
    /// under the mouse.
    bool openRing(const QString& title);
    bool hoverChild(const QString& parent, const QString& child);
    /// Takes the mouse off all bubbles.
    void leave();
    /// Chooses an entry of a bubble's own menu.
    bool chooseInMenu(const QString& title, const QString& entry);
    /// The point in canvas units as the surface's own coordinates.
    QPointF onSurface(const QPointF& canvasPoint);

private:
    void tremble(QQuickItem* item, const QPointF& at);
    QPointF centre(const QQuickItem* item) const { return {item->width() / 2, item->height() / 2}; }

    AppDriver& m_driver;
    int m_trembles = 0;
};
