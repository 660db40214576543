#include "CanvasPage.h"

#include <QTest>

namespace {

constexpr int canvasBaseWidth = 700;
constexpr qreal canvasMargin = 20;

}  // namespace

QQuickItem* CanvasPage::bubble(const QString& title, int level) {
    const QList<QQuickItem*> bubbles = m_driver.itemsOfType("CircleParentKerno"_s);
    for (QQuickItem* candidate : bubbles) {
        if (candidate->property("title").toString() == title &&
            (level < 0 || candidate->property("level").toInt() == level))
            return candidate;
    }
    return nullptr;
}

QPointF CanvasPage::drawnAt(const QString& title) {
    const QQuickItem* item = bubble(title);
    return item ? item->position() : QPointF(-1, -1);
}

int CanvasPage::kernoId(const QString& title) {
    QQuickItem* item = bubble(title);
    return item ? item->property("kernoId").toInt() : 0;
}

int CanvasPage::codings(const QString& title) {
    QQuickItem* item = bubble(title);
    return item ? item->property("highlightsCount").toInt() : -1;
}

QQuickItem* CanvasPage::surface() {
    return m_driver.itemNamed("flickableContent"_s);
}

QQuickItem* CanvasPage::addButton() {
    return m_driver.itemsOfType("AddKernoButton"_s).value(0);
}

bool CanvasPage::ringIsOpen(const QString& title) {
    QQuickItem* item = bubble(title);
    const auto* ring = item ? item->property("ring").value<QQuickItem*>() : nullptr;
    return ring && ring->width() > 2 * item->width();
}

QPointF CanvasPage::onSurface(const QPointF& canvasPoint) {
    return canvasPoint * (surface()->width() + 2 * canvasMargin) / canvasBaseWidth;
}

bool CanvasPage::drag(const QString& title, const QPointF& canvasPoint) {
    QQuickItem* item = bubble(title);
    if (!item)
        return false;
    m_driver.drag(item, centre(item), surface(), onSurface(canvasPoint));
    return true;
}

bool CanvasPage::dragOnto(const QString& title, const QString& target) {
    QQuickItem* item = bubble(title);
    QQuickItem* onto = bubble(target);
    if (!item || !onto)
        return false;
    m_driver.drag(item, centre(item), onto, centre(onto));
    return true;
}

// A hand that rests still trembles; each move asks again what lies under the mouse.
void CanvasPage::tremble(QQuickItem* item, const QPointF& at) {
    m_driver.hover(item, at + QPointF(m_trembles++ % 2, 0));
}

bool CanvasPage::openRing(const QString& title) {
    return AppDriver::waitFor([&] {
        if (QQuickItem* item = bubble(title, 0))
            tremble(item, centre(item));
        return ringIsOpen(title);
    });
}

bool CanvasPage::hoverChild(const QString& parent, const QString& child) {
    return AppDriver::waitFor([&] {
        QQuickItem* item = bubble(child, 1);
        if (!item || (!ringIsOpen(parent) && !openRing(parent)))
            return false;
        // The ring runs through the middle of a child, and closes when the mouse is outside.
        const QPointF inwards =
            item->mapFromItem(bubble(parent, 0), centre(bubble(parent, 0))) - centre(item);
        tremble(item, centre(item) + inwards / 5);
        return item->property("hovered").toBool();
    });
}

void CanvasPage::leave() {
    m_driver.hover(addButton(), centre(addButton()));
}

bool CanvasPage::chooseInMenu(const QString& title, const QString& entry) {
    leave();
    QQuickItem* item = bubble(title);
    return item && m_driver.click(item, Qt::RightButton) && m_driver.clickText(entry);
}
