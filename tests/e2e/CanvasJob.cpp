#include "CanvasJob.h"

#include "app/Session.h"
#include "project/KRNFile.h"

#include <QLineF>
#include <algorithm>

namespace {

const QString garden = QStringLiteral("Garden");
const QString kitchen = QStringLiteral("Kitchen");
const QString street = QStringLiteral("Street");
const QStringList all{garden, kitchen, street};
const QPointF gardenPlace(150, 150);
const QPointF kitchenPlace(450, 150);
const QPointF streetPlace(300, 380);

}  // namespace

bool CanvasJob::play(const QString&) {
    return signIn() && createProject(path(QStringLiteral("canvas.krn"))) && makeKernos() && moveBubble() &&
           nestBubble() && openRing() && takeChildOut() && addByMenu() && duplicate() && merge() &&
           remove() && arrange() && arrangeByHand() && zoom() && filterByName();
}

QString CanvasJob::kernos() const {
    QStringList lines;
    const QList<Kerno> all = KRNFile::instance()->allKernos();
    for (const Kerno& kerno : all) {
        lines << QStringLiteral("%1 %2 in %3 at %4,%5")
                     .arg(kerno.kernoId())
                     .arg(kerno.title())
                     .arg(kerno.parentKernoId())
                     .arg(kerno.x())
                     .arg(kerno.y());
    }
    lines.sort();
    return lines.join(QLatin1Char('\n'));
}

bool CanvasJob::undone(int index, const QString& before) {
    return expect(undoIndex() == index + 1, QStringLiteral("it took %1 steps").arg(undoIndex() - index)) &&
           undo() &&
           until([&] { return kernos() == before; },
                 QStringLiteral("undo left\n%1\nin place of\n%2").arg(kernos(), before));
}

QPointF CanvasJob::placeOf(const QString& title) {
    const Kerno kerno = KRNFile::instance()->kerno(m_canvas.kernoId(title));
    return {qreal(kerno.x()), qreal(kerno.y())};
}

bool CanvasJob::untilAt(const QString& title, const QPointF& place, qreal tolerance) {
    if (AppDriver::waitFor([&] { return QLineF(placeOf(title), place).length() <= tolerance; }))
        return true;
    const QPointF found = placeOf(title);
    return fail(QStringLiteral("%1 is at %2,%3, not at %4,%5")
                    .arg(title)
                    .arg(found.x())
                    .arg(found.y())
                    .arg(place.x())
                    .arg(place.y()));
}

// New bubbles land anywhere; each is put to its place at once, so that none lies upon another.
bool CanvasJob::makeKernos() {
    const QList<QPair<QString, QPointF>> wanted{
        {garden, gardenPlace}, {kitchen, kitchenPlace}, {street, streetPlace}};
    for (const auto& [title, place] : wanted) {
        if (!addKerno(title) || !m_canvas.drag(title, place) || !untilAt(title, place))
            return false;
    }
    m_canvas.leave();
    return shoot(QStringLiteral("three-kernos"));
}

bool CanvasJob::moveBubble() {
    const int index = undoIndex();
    const QString before = kernos();
    m_canvas.drag(garden, QPointF(200, 300));
    if (!untilAt(garden, QPointF(200, 300)) || !untilUndoIndex(index + 1) ||
        !shoot(QStringLiteral("moved")) || !undone(index, before))
        return false;
    // Outside the canvas nothing is stored, and the bubble goes back.
    QQuickItem* bubble = m_canvas.bubble(garden);
    const QPointF place = m_canvas.drawnAt(garden);
    m_driver.drag(bubble, QPointF(bubble->width() / 2, bubble->height() / 2), bubble, QPointF(-400, 0));
    return until([&] { return m_canvas.drawnAt(garden) == place; },
                 QStringLiteral("a bubble that is dropped outside stays there")) &&
           expect(undoIndex() == index, QStringLiteral("a refused drop makes a step"));
}

bool CanvasJob::nestBubble() {
    const int index = undoIndex();
    const QString before = kernos();
    const int parent = m_canvas.kernoId(garden);
    const auto isChild = [&] {
        return KRNFile::instance()->kerno(m_canvas.kernoId(kitchen)).parentKernoId() == parent;
    };
    return expect(m_canvas.dragOnto(kitchen, garden), QStringLiteral("there is nothing to nest")) &&
           until([&] { return m_canvas.bubble(kitchen, 1) && isChild(); },
                 QStringLiteral("the dropped bubble does not become a child")) &&
           untilUndoIndex(index + 1) && shoot(QStringLiteral("nested")) && undone(index, before) && redo() &&
           until(isChild, QStringLiteral("redo does not nest the kerno again"));
}

bool CanvasJob::openRing() {
    m_canvas.leave();
    return expect(!m_canvas.ringIsOpen(garden), QStringLiteral("the ring stands open")) &&
           expect(m_canvas.openRing(garden), QStringLiteral("the ring does not open")) &&
           shoot(QStringLiteral("ring")) &&
           expect(m_canvas.hoverChild(garden, kitchen), QStringLiteral("no child is under the mouse")) &&
           shoot(QStringLiteral("child"));
}

bool CanvasJob::takeChildOut() {
    const int index = undoIndex();
    const QString before = kernos();
    const QPointF place(520, 300);
    if (!expect(m_canvas.hoverChild(garden, kitchen), QStringLiteral("no child is under the mouse")))
        return false;
    QQuickItem* child = m_canvas.bubble(kitchen, 1);
    m_driver.drag(child, QPointF(child->width() / 2, child->height() / 2), m_canvas.surface(),
                  m_canvas.onSurface(place));
    return until([&] { return m_canvas.bubble(kitchen, 0); },
                 QStringLiteral("the child does not leave its ring")) &&
           untilAt(kitchen, place) && untilUndoIndex(index + 1) && shoot(QStringLiteral("taken-out")) &&
           undone(index, before) && redo() && untilAt(kitchen, place);
}

bool CanvasJob::addByMenu() {
    const int index = undoIndex();
    const QString before = kernos();
    const QPointF place(80, 420);
    m_driver.clickAt(m_canvas.surface(), m_canvas.onSurface(place), Qt::RightButton);
    return shoot(QStringLiteral("canvas-menu")) && click(QStringLiteral("Add Kerno Here")) &&
           nameNewKerno(QStringLiteral("Here")) && untilAt(QStringLiteral("Here"), place) &&
           untilUndoIndex(index + 2) && undo() && undone(index, before);
}

bool CanvasJob::duplicate() {
    const int index = undoIndex();
    const QString before = kernos();
    const int count = KRNFile::instance()->allKernos().size();
    m_canvas.leave();
    m_driver.click(m_canvas.bubble(street), Qt::RightButton);
    if (!shoot(QStringLiteral("kerno-menu")) || !click(QStringLiteral("Duplicate")) ||
        !until([&] { return KRNFile::instance()->allKernos().size() == count + 1; },
               QStringLiteral("there is no copy")) ||
        !untilUndoIndex(index + 1))
        return false;
    return closeProperties() && undone(index, before);
}

bool CanvasJob::merge() {
    const int index = undoIndex();
    const QString before = kernos();
    if (!expect(m_canvas.chooseInMenu(street, QStringLiteral("Merge")), QStringLiteral("there is no menu")) ||
        !shown(QStringLiteral("Merge into:")))
        return false;
    QQuickItem* name = m_driver.itemWithText(QStringLiteral("Garden (merged)"));
    if (!expect(name && m_driver.fill(name, QStringLiteral("Outside")),
                QStringLiteral("no name is proposed")))
        return false;
    return shoot(QStringLiteral("merge")) && click(QStringLiteral("OK")) &&
           gone(QStringLiteral("Merge into:")) && closeProperties() &&
           until([&] { return m_canvas.bubble(QStringLiteral("Outside")) && !m_canvas.bubble(garden); },
                 QStringLiteral("the kernos are not merged")) &&
           untilUndoIndex(index + 1) && shoot(QStringLiteral("merged")) && undone(index, before);
}

bool CanvasJob::remove() {
    const int index = undoIndex();
    const QString before = kernos();
    return expect(m_canvas.chooseInMenu(kitchen, QStringLiteral("Delete")),
                  QStringLiteral("there is no menu")) &&
           until([&] { return !m_canvas.bubble(kitchen); }, QStringLiteral("the kerno is not deleted")) &&
           untilUndoIndex(index + 1) && undone(index, before);
}

bool CanvasJob::chooseView(const QString& entry) {
    return click(QStringLiteral("View")) && click(entry);
}

bool CanvasJob::arrange() {
    const int index = undoIndex();
    const QString before = kernos();
    const QPointF free = m_canvas.drawnAt(street);
    if (!click(QStringLiteral("View")) || !shoot(QStringLiteral("view-menu")) ||
        !click(QStringLiteral("Arrange by Title - Descending")))
        return false;
    // The three places are top left, top right and bottom centre.
    const auto left = [&](const QString& title) { return m_canvas.drawnAt(title).x(); };
    return until([&] { return left(street) < left(garden) && left(garden) < left(kitchen); },
                 QStringLiteral("the bubbles are not arranged by title")) &&
           shoot(QStringLiteral("arranged")) && chooseView(QStringLiteral("Default (No Auto Arrange)")) &&
           until([&] { return m_canvas.drawnAt(street) == free; },
                 QStringLiteral("the bubbles do not go back")) &&
           expect(undoIndex() == index && kernos() == before,
                  QStringLiteral("arranging changes the project"));
}

bool CanvasJob::arrangeByHand() {
    const QString before = kernos();
    if (!chooseView(QStringLiteral("Auto Arrange - Manual Order")))
        return false;
    m_canvas.leave();
    const auto place = [&](const QString& title) { return m_canvas.drawnAt(title); };
    const QPointF first = place(garden);
    const QPointF last = place(street);
    return expect(m_canvas.drag(garden, QPointF(0.5 * 700 + 60, 0.8 * 525)),
                  QStringLiteral("no bubble to drag")) &&
           until([&] { return place(garden) == last && place(street) != last; },
                 QStringLiteral("a drag does not change the manual order")) &&
           expect(first != last && kernos() == before,
                  QStringLiteral("the manual order changes the project")) &&
           shoot(QStringLiteral("manual-order")) && chooseView(QStringLiteral("Default (No Auto Arrange)"));
}

bool CanvasJob::zoom() {
    QQuickItem* slider = m_driver.itemNamed(QStringLiteral("zoom"));
    if (!expect(slider, QStringLiteral("there is no zoom")))
        return false;
    const auto drawnWidth = [&] {
        return m_canvas.surface()->mapRectToScene(m_canvas.surface()->boundingRect()).width();
    };
    const qreal before = drawnWidth();
    m_driver.drag(slider, QPointF(7, slider->height() / 2), slider,
                  QPointF(slider->width(), slider->height() / 2));
    if (!until([&] { return qAbs(drawnWidth() / before - 2.5) < 0.01; },
               QStringLiteral("the canvas is not enlarged")) ||
        !shoot(QStringLiteral("zoomed")))
        return false;
    m_driver.drag(slider, QPointF(slider->width() - 7, slider->height() / 2), slider,
                  QPointF(0, slider->height() / 2));
    return until([&] { return qFuzzyCompare(drawnWidth(), before); },
                 QStringLiteral("the canvas stays enlarged"));
}

bool CanvasJob::filterByName() {
    const int index = undoIndex();
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("kernoNameFilter"));
    const auto shows = [&](const QString& filter, const QStringList& titles) {
        const auto isSo = [&] {
            return std::all_of(all.begin(), all.end(), [&](const QString& title) {
                return (m_canvas.bubble(title) != nullptr) == titles.contains(title);
            });
        };
        return expect(field && m_driver.fill(field, filter), QStringLiteral("there is no filter")) &&
               until(isSo, QStringLiteral("\"%1\" does not show %2 alone")
                               .arg(filter, titles.join(QLatin1Char(' '))));
    };
    if (!shows(QStringLiteral("stre"), {street}) || !shoot(QStringLiteral("filtered")) ||
        !shows(QString(), all) || !expect(undoIndex() == index, QStringLiteral("filtering makes a step")))
        return false;
    // A parent that does not fit stays while a child of it does.
    return expect(m_canvas.dragOnto(kitchen, garden), QStringLiteral("there is nothing to nest")) &&
           untilUndoIndex(index + 1) && shows(QStringLiteral("KITCH"), {garden, kitchen}) &&
           shows(QStringLiteral("street"), {street}) && shows(QStringLiteral("kitchen"), {garden, kitchen}) &&
           shows(QString(), all);
}
