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

    // Undoes the one step that was made since `index`, and compares with what was there before.
    bool undone(int index, const QString& before) {
        return expect(undoIndex() == index + 1, "it took %1 steps"_s.arg(undoIndex() - index)) && undo() &&
               until([&] { return kernos() == before; },
                     "undo left\n%1\nin place of\n%2"_s.arg(kernos(), before));
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
        const int index = undoIndex();
        const QString before = kernos();
        m_canvas.drag(garden, QPointF(200, 300));
        return untilAt(garden, QPointF(200, 300)) && untilUndoIndex(index + 1) && shoot("moved"_s) &&
               undone(index, before);
    }

    bool nestBubble() {
        const int index = undoIndex();
        const QString before = kernos();
        const int parent = m_canvas.kernoId(garden);
        const auto isChild = [&] {
            return KRNFile::instance()->kerno(m_canvas.kernoId(kitchen)).parentKernoId() == parent;
        };
        return expect(m_canvas.dragOnto(kitchen, garden), "there is nothing to nest"_s) &&
               until([&] { return m_canvas.bubble(kitchen, 1) && isChild(); },
                     "the dropped bubble does not become a child"_s) &&
               untilUndoIndex(index + 1) && shoot("nested"_s) && undone(index, before) && redo() &&
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
        const int index = undoIndex();
        const QString before = kernos();
        const QPointF place(520, 300);
        if (!expect(m_canvas.hoverChild(garden, kitchen), "no child is under the mouse"_s))
            return false;
        QQuickItem* child = m_canvas.bubble(kitchen, 1);
        m_driver.drag(child, QPointF(child->width() / 2, child->height() / 2), m_canvas.surface(),
                      m_canvas.onSurface(place));
        return until([&] { return m_canvas.bubble(kitchen, 0); }, "the child does not leave its ring"_s) &&
               untilAt(kitchen, place) && untilUndoIndex(index + 1) && shoot("taken-out"_s) &&
               undone(index, before) && redo() && untilAt(kitchen, place);
    }

    bool addByMenu() {
        const int index = undoIndex();
        const QString before = kernos();
        const QPointF place(80, 420);
        m_driver.clickAt(m_canvas.surface(), m_canvas.onSurface(place), Qt::RightButton);
        return shoot("canvas-menu"_s) && click("Add Kerno Here"_s) && nameNewKerno("Here"_s) &&
               untilAt("Here"_s, place) && untilUndoIndex(index + 2) && undo() && undone(index, before);
    }

    bool duplicate() {
        const int index = undoIndex();
        const QString before = kernos();
        const int count = KRNFile::instance()->allKernos().size();
        m_canvas.leave();
        m_driver.click(m_canvas.bubble(street), Qt::RightButton);
        if (!shoot("kerno-menu"_s) || !click("Duplicate"_s) ||
            !until([&] { return KRNFile::instance()->allKernos().size() == count + 1; },
                   "there is no copy"_s) ||
            !untilUndoIndex(index + 1))
            return false;
        return closeProperties() && undone(index, before);
    }

    bool merge() {
        const int index = undoIndex();
        const QString before = kernos();
        if (!expect(m_canvas.chooseInMenu(street, "Merge"_s), "there is no menu"_s) ||
            !shown("Merge into:"_s))
            return false;
        QQuickItem* name = m_driver.itemWithText("Garden (merged)"_s);
        if (!expect(name && m_driver.fill(name, "Outside"_s), "no name is proposed"_s))
            return false;
        return shoot("merge"_s) && click("OK"_s) && gone("Merge into:"_s) && closeProperties() &&
               until([&] { return m_canvas.bubble("Outside"_s) && !m_canvas.bubble(garden); },
                     "the kernos are not merged"_s) &&
               untilUndoIndex(index + 1) && shoot("merged"_s) && undone(index, before);
    }

    bool remove() {
        const int index = undoIndex();
        const QString before = kernos();
        return expect(m_canvas.chooseInMenu(kitchen, "Delete"_s), "there is no menu"_s) &&
               until([&] { return !m_canvas.bubble(kitchen); }, "the kerno is not deleted"_s) &&
               untilUndoIndex(index + 1) && undone(index, before);
    }

    bool chooseView(const QString& entry) { return menu("View"_s, entry); }

    bool arrange() {
        const int index = undoIndex();
        const QString before = kernos();
        const QPointF free = m_canvas.drawnAt(street);
        if (!click("View"_s) || !shoot("view-menu"_s) || !click("Arrange by Title - Descending"_s))
            return false;
        // The three places are top left, top right and bottom centre.
        const auto left = [&](const QString& title) { return m_canvas.drawnAt(title).x(); };
        return until([&] { return left(street) < left(garden) && left(garden) < left(kitchen); },
                     "the bubbles are not arranged by title"_s) &&
               shoot("arranged"_s) && chooseView("Default (No Auto Arrange)"_s) &&
               until([&] { return m_canvas.drawnAt(street) == free; }, "the bubbles do not go back"_s) &&
               expect(undoIndex() == index && kernos() == before, "arranging changes the project"_s);
    }

    bool arrangeByHand() {
        const QString before = kernos();
        if (!chooseView("Auto Arrange - Manual Order"_s))
            return false;
        m_canvas.leave();
        const auto place = [&](const QString& title) { return m_canvas.drawnAt(title); };
        const QPointF first = place(garden);
        const QPointF last = place(street);
        return expect(m_canvas.drag(garden, QPointF(0.5 * 700 + 60, 0.8 * 525)), "no bubble to drag"_s) &&
               until([&] { return place(garden) == last && place(street) != last; },
                     "a drag does not change the manual order"_s) &&
               expect(first != last && kernos() == before, "the manual order changes the project"_s) &&
               shoot("manual-order"_s) && chooseView("Default (No Auto Arrange)"_s);
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
        const int index = undoIndex();
        QQuickItem* field = m_driver.itemNamed("kernoNameFilter"_s);
        const auto shows = [&](const QString& filter, const QStringList& titles) {
            const auto isSo = [&] {
                return std::all_of(allThree.begin(), allThree.end(), [&](const QString& title) {
                    return (m_canvas.bubble(title) != nullptr) == titles.contains(title);
                });
            };
            return expect(field && m_driver.fill(field, filter), "there is no filter"_s) &&
                   until(isSo, "\"%1\" does not show %2 alone"_s.arg(filter, titles.join(QLatin1Char(' '))));
        };
        if (!shows("stre"_s, {street}) || !shoot("filtered"_s) || !shows(QString(), allThree) ||
            !expect(undoIndex() == index, "filtering makes a step"_s))
            return false;
        // A parent that does not fit stays while a child of it does.
        return expect(m_canvas.dragOnto(kitchen, garden), "there is nothing to nest"_s) &&
               untilUndoIndex(index + 1) && shows("KITCH"_s, {garden, kitchen}) &&
               shows("street"_s, {street}) && shows("kitchen"_s, {garden, kitchen}) &&
               shows(QString(), allThree);
    }
};

const Played<CanvasJob> played{"canvas"_s, {"arrange"_s}};

}  // namespace
