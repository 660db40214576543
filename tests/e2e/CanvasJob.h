#pragma once

#include "Job.h"

/// Arranges kernos on the canvas: dragging, nesting, menus, arrangements, zoom and the filter by name.
class CanvasJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override;

private:
    bool makeKernos();
    bool moveBubble();
    bool nestBubble();
    bool openRing();
    bool takeChildOut();
    bool addByMenu();
    bool duplicate();
    bool merge();
    bool remove();
    bool arrange();
    bool arrangeByHand();
    bool zoom();
    bool filterByName();

    /// All kernos with their places and parents, as one text to compare.
    QString kernos() const;
    /// Undoes the one step that was made since `index`, and compares with what was there before.
    bool undone(int index, const QString& before);
    QPointF placeOf(const QString& title);
    bool untilAt(const QString& title, const QPointF& place, qreal tolerance = 3);
    bool chooseView(const QString& entry);
};
