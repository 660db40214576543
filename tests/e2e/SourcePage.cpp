#include "SourcePage.h"

#include <QQuickWindow>
#include <QTest>
#include <algorithm>

bool SourcePage::read(const QString& text) {
    m_text = text;
    return AppDriver::waitFor([&] {
        QQuickItem* item = textItem();
        return item && item->property("length").toInt() >= text.trimmed().size();
    });
}

QQuickItem* SourcePage::textItem() {
    return m_driver.itemNamed(m_textName, 0);
}

QString SourcePage::selectedText() {
    QQuickItem* text = textItem();
    return text ? text->property("selectedText").toString() : QString();
}

QRectF SourcePage::rectangleAt(int position) {
    QRectF rectangle;
    QMetaObject::invokeMethod(textItem(), "positionToRectangle", Q_RETURN_ARG(QRectF, rectangle),
                              Q_ARG(int, position));
    return rectangle;
}

QString SourcePage::select(const QString& passage) {
    QQuickItem* text = textItem();
    if (!text)
        return "no text is shown"_s;
    const int start = positionOf(passage);
    if (start < 0)
        return "the text has no \"%1\""_s.arg(passage);
    QQuickWindow* window = text->window();
    const QPoint from = text->mapToScene(rectangleAt(start).center()).toPoint();
    const QPoint to = text->mapToScene(rectangleAt(start + passage.size()).center()).toPoint();
    // A click takes back the former selection, in which a press would start a drag.
    if (!selectedText().isEmpty())
        m_driver.clickAt(text, rectangleAt(start).center());
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from);
    for (int step = 1; step <= 5; ++step)
        QTest::mouseMove(window, from + (to - from) * step / 5);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, to);
    m_driver.settle();
    const QString selected = selectedText();
    return selected == passage ? QString() : "selected is \"%1\""_s.arg(selected);
}

void SourcePage::dragSelectionTo(QQuickItem* target) {
    QQuickItem* text = textItem();
    const int start = text->property("selectionStart").toInt();
    const int end = text->property("selectionEnd").toInt();
    m_driver.drag(text, rectangleAt((start + end + 1) / 2).center(), target,
                  QPointF(target->width() / 2, target->height() / 2));
}

QQuickItem* SourcePage::stripeColumn() {
    return m_driver.itemsOfType("HighlightsBar"_s).value(0);
}

QList<QQuickItem*> SourcePage::stripes() {
    QList<QQuickItem*> found;
    const QQuickItem* bar = stripeColumn();
    const QList<QQuickItem*> children = bar ? bar->childItems() : QList<QQuickItem*>();
    for (QQuickItem* child : children) {
        if (child->isVisible() && child->height() > 0 && child->property("highlightId").toInt() > 0)
            found.append(child);
    }
    std::sort(found.begin(), found.end(), [](const QQuickItem* a, const QQuickItem* b) {
        return a->x() < b->x() || (a->x() == b->x() && a->y() < b->y());
    });
    return found;
}

QColor SourcePage::backgroundAt(int position) {
    QQuickItem* text = textItem();
    m_driver.settle();
    const QImage screen = text->window()->grabWindow();
    const QRectF rectangle = rectangleAt(position);
    const QPoint point = text->mapToScene(rectangle.topLeft() + QPointF(1, 1)).toPoint();
    return screen.pixelColor(point * screen.devicePixelRatio());
}

QList<QQuickItem*> SourcePage::memos() {
    return m_driver.itemsOfType("MemoItem"_s);
}
