#include "Job.h"

#include "app/Session.h"
#include "project/KRNFile.h"

#include <QLineF>
#include <algorithm>

namespace {

const QString garden = "Garden"_s;
const QString kitchen = "Kitchen"_s;
const QString street = "Street"_s;
const QStringList allThree{garden, kitchen, street};
const QPointF gardenPlace(150, 150);
const QPointF kitchenPlace(450, 150);
const QPointF streetPlace(300, 380);

/// Arranges kernos on the canvas: dragging, nesting, menus, arrangements, zoom and the filter by name.
class CanvasJob : public Job {
public:
    using Job::Job;

    bool play(const QString&) override {
        return signIn() && createProject(path("canvas.krn"_s)) && makeKernos() && moveBubble() &&
               nestBubble() && openRing() && takeChildOut() && addByMenu() && duplicate() && merge() &&
               remove() && arrange() && arrangeByHand() && zoom() && filterByName();
    }

private:
    // All kernos with their places and parents, as one text to compare.
    QString kernos() const {
        QStringList lines;
        for (const Kerno& kerno : KRNFile::instance()->allKernos()) {
            lines << "%1 %2 in %3 at %4,%5"_s.arg(kerno.kernoId())
                         .arg(kerno.title())
                         .arg(kerno.parentKernoId())
                         .arg(kerno.x())
                         .arg(kerno.y());
        }
        lines.sort();
        return lines.join(QLatin1Char('\n'));
    }

    void mark() {
        m_index = undoIndex();
        m_before = kernos();
    }

    // Undoes the one step that was made since the mark, and compares with what was there then.
    bool undone() {
        return expect(undoIndex() == m_index + 1, "it took %1 steps"_s.arg(undoIndex() - m_index)) &&
               undo() && untilIs("the kernos"_s, m_before, [&] { return kernos(); });
    }

    bool isUnchanged() {
        return expect(undoIndex() == m_index && kernos() == m_before, "the project changes"_s);
    }

    QPointF placeOf(const QString& title) {
        const Kerno kerno = KRNFile::instance()->kerno(m_canvas.kernoId(title));
        return {qreal(kerno.x()), qreal(kerno.y())};
    }

    bool untilAt(const QString& title, const QPointF& place, qreal tolerance = 3) {
        return until([&] { return QLineF(placeOf(title), place).length() <= tolerance; },
                     title + " is at another place"_s);
    }

    // New bubbles land anywhere; each is put to its place at once, so that none lies upon another.
    bool makeKernos() {
        if (!addKerno(garden, gardenPlace) || !addKerno(kitchen, kitchenPlace) ||
            !addKerno(street, streetPlace) || !untilAt(garden, gardenPlace) ||
            !untilAt(kitchen, kitchenPlace) || !untilAt(street, streetPlace))
            return false;
        m_canvas.leave();
        return shoot("three-kernos"_s);
    }

    bool moveBubble() {
        mark();
        m_canvas.drag(garden, QPointF(200, 300));
        return untilAt(garden, QPointF(200, 300)) && untilUndoIndex(m_index + 1) && shoot("moved"_s) &&
               undone();
    }

    bool nestBubble() {
        mark();
        const int parent = m_canvas.kernoId(garden);
        const auto isChild = [&] {
            return KRNFile::instance()->kerno(m_canvas.kernoId(kitchen)).parentKernoId() == parent;
        };
        return expect(m_canvas.dragOnto(kitchen, garden), "there is nothing to nest"_s) &&
               until([&] { return m_canvas.bubble(kitchen, 1) && isChild(); },
                     "the dropped bubble does not become a child"_s) &&
               untilUndoIndex(m_index + 1) && shoot("nested"_s) && undone() && redo() &&
               until(isChild, "redo does not nest the kerno again"_s);
    }

    bool openRing() {
        m_canvas.leave();
        return expect(!m_canvas.ringIsOpen(garden), "the ring stands open"_s) &&
               expect(m_canvas.openRing(garden), "the ring does not open"_s) && shoot("ring"_s) &&
               expect(m_canvas.hoverChild(garden, kitchen), "no child is under the mouse"_s) &&
               shoot("child"_s);
    }

    bool takeChildOut() {
        mark();
        const QPointF place(520, 300);
        if (!expect(m_canvas.hoverChild(garden, kitchen), "no child is under the mouse"_s))
            return false;
        QQuickItem* child = m_canvas.bubble(kitchen, 1);
        m_driver.drag(child, QPointF(child->width() / 2, child->height() / 2), m_canvas.surface(),
                      m_canvas.onSurface(place));
        return untilBubble(kitchen, 0) && untilAt(kitchen, place) && untilUndoIndex(m_index + 1) &&
               shoot("taken-out"_s) && undone() && redo() && untilAt(kitchen, place);
    }

    bool addByMenu() {
        mark();
        const QPointF place(80, 420);
        m_driver.clickAt(m_canvas.surface(), m_canvas.onSurface(place), Qt::RightButton);
        return shoot("canvas-menu"_s) && click("Add Kerno Here"_s) && nameNewKerno("Here"_s) &&
               untilAt("Here"_s, place) && untilUndoIndex(m_index + 2) && undo() && undone();
    }

    bool duplicate() {
        mark();
        const int count = KRNFile::instance()->allKernos().size();
        if (!kernoMenu(street, "Duplicate"_s) ||
            !untilIs("kernos"_s, count + 1, [] { return KRNFile::instance()->allKernos().size(); }) ||
            !untilUndoIndex(m_index + 1))
            return false;
        return closeProperties() && undone();
    }

    bool merge() {
        mark();
        if (!kernoMenu(street, "Merge"_s) || !shown("Merge into:"_s))
            return false;
        QQuickItem* name = m_driver.itemWithText("Garden (merged)"_s);
        if (!expect(name && m_driver.fill(name, "Outside"_s), "no name is proposed"_s))
            return false;
        return shoot("merge"_s) && click("OK"_s) && gone("Merge into:"_s) && closeProperties() &&
               until([&] { return m_canvas.bubble("Outside"_s) && !m_canvas.bubble(garden); },
                     "the kernos are not merged"_s) &&
               untilUndoIndex(m_index + 1) && shoot("merged"_s) && undone();
    }

    bool remove() {
        mark();
        return kernoMenu(kitchen, "Delete"_s) && untilNoBubble(kitchen) && untilUndoIndex(m_index + 1) &&
               undone();
    }

    bool arrange() {
        mark();
        const QPointF free = m_canvas.drawnAt(street);
        if (!menu("View"_s, "Arrange by Title - Descending"_s, "view-menu"_s))
            return false;
        // The three places are top left, top right and bottom centre.
        const auto left = [&](const QString& title) { return m_canvas.drawnAt(title).x(); };
        return until([&] { return left(street) < left(garden) && left(garden) < left(kitchen); },
                     "the bubbles are not arranged by title"_s) &&
               shoot("arranged"_s) && menu("View"_s, "Default (No Auto Arrange)"_s) &&
               until([&] { return m_canvas.drawnAt(street) == free; }, "the bubbles do not go back"_s) &&
               isUnchanged();
    }

    bool arrangeByHand() {
        mark();
        if (!menu("View"_s, "Auto Arrange - Manual Order"_s))
            return false;
        m_canvas.leave();
        const auto place = [&](const QString& title) { return m_canvas.drawnAt(title); };
        const QPointF first = place(garden);
        const QPointF last = place(street);
        return expect(m_canvas.drag(garden, QPointF(0.5 * 700 + 60, 0.8 * 525)), "no bubble to drag"_s) &&
               until([&] { return place(garden) == last && place(street) != last; },
                     "a drag does not change the manual order"_s) &&
               expect(first != last, "the bubbles share a place"_s) && isUnchanged() &&
               shoot("manual-order"_s) && menu("View"_s, "Default (No Auto Arrange)"_s);
    }

    bool zoom() {
        QQuickItem* slider = m_driver.itemNamed("zoom"_s);
        if (!expect(slider, "there is no zoom"_s))
            return false;
        const auto drawnWidth = [&] {
            return m_canvas.surface()->mapRectToScene(m_canvas.surface()->boundingRect()).width();
        };
        const qreal before = drawnWidth();
        m_driver.drag(slider, QPointF(7, slider->height() / 2), slider,
                      QPointF(slider->width(), slider->height() / 2));
        if (!until([&] { return qAbs(drawnWidth() / before - 2.5) < 0.01; },
                   "the canvas is not enlarged"_s) ||
            !shoot("zoomed"_s))
            return false;
        m_driver.drag(slider, QPointF(slider->width() - 7, slider->height() / 2), slider,
                      QPointF(0, slider->height() / 2));
        return until([&] { return qFuzzyCompare(drawnWidth(), before); }, "the canvas stays enlarged"_s);
    }

    bool filterByName() {
        const auto shows = [&](const QString& filter, const QStringList& titles) {
            return fill("kernoNameFilter"_s, filter) && untilAlone(titles, allThree);
        };
        mark();
        if (!shows("stre"_s, {street}) || !shoot("filtered"_s) || !shows(QString(), allThree) ||
            !isUnchanged())
            return false;
        // A parent that does not fit stays while a child of it does.
        return expect(m_canvas.dragOnto(kitchen, garden), "there is nothing to nest"_s) &&
               untilUndoIndex(m_index + 1) && shows("KITCH"_s, {garden, kitchen}) &&
               shows("street"_s, {street}) && shows("kitchen"_s, {garden, kitchen}) &&
               shows(QString(), allThree);
    }

    int m_index = 0;
    QString m_before;
};

const Played<CanvasJob> played{"canvas"_s, {"arrange"_s}};

}  // namespace
