#include "LayoutCheck.h"

#include "AppDriver.h"

#include <QAccessible>
#include <QHash>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQuick/private/qquickitem_p.h>
#include <cmath>

namespace layout {

namespace {

constexpr qreal leastContrast = 3.0;
constexpr qreal leastContrastDisabled = 1.4;
constexpr int longestLook = 150;  // pixels of a text

struct ShownText {
    const QQuickItem* item;
    QString text;
    QRectF drawn;  ///< in the window
};

// What is drawn of an item after all that clips it.
QRectF clipOf(const QQuickItem* item) {
    QRectF clip(QPointF(), QSizeF(item->window()->size()));
    for (const QQuickItem* parent = item->parentItem(); parent; parent = parent->parentItem()) {
        if (parent->clip())
            clip &= parent->mapRectToScene(parent->boundingRect());
    }
    return clip;
}

void collect(QQuickItem* item, QList<ShownText>& found) {
    // Bubbles stand where people or their codings put them, one over another.
    static const QStringList surfaces{"flickableContent"_s, "bubbles"_s};
    // A list keeps rows ready that it doesn't draw, and these have no place yet.
    const bool keptReady = QQuickItemPrivate::get(item)->culled;
    if (!item->isVisible() || item->opacity() < 0.1 || keptReady || surfaces.contains(item->objectName()))
        return;
    const QString text = item->inherits("QQuickText") ? item->property("text").toString() : QString();
    if (!text.trimmed().isEmpty()) {
        const qreal width = std::min(item->property("paintedWidth").toReal(), 4096.0);
        const qreal height = item->property("paintedHeight").toReal();
        const int alignment = item->property("effectiveHorizontalAlignment").toInt();
        const qreal x = alignment == Qt::AlignHCenter ? (item->width() - width) / 2
                        : alignment == Qt::AlignRight ? item->width() - width
                                                      : item->property("leftPadding").toReal();
        const bool middle = item->property("verticalAlignment").toInt() == Qt::AlignVCenter;
        const qreal y = middle ? (item->height() - height) / 2 : item->property("topPadding").toReal();
        const QRectF drawn = item->mapRectToScene(QRectF(x, y, width, height));
        if (drawn.intersects(clipOf(item)))
            found.append({item, text, drawn});
    }
    const QList<QQuickItem*> children = item->childItems();
    for (QQuickItem* child : children)
        collect(child, found);
}

qreal luminance(QRgb color) {
    const auto linear = [](int channel) {
        const qreal value = channel / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

// The contrast of the text with the colour that most of its place has.
qreal contrastIn(const QImage& picture, const QRect& place) {
    QHash<QRgb, int> counts;
    // The beginning shows enough.
    const int right = std::min(place.right(), place.left() + longestLook);
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= right; ++x)
            ++counts[picture.pixel(x, y)];
    }
    QRgb background = 0;
    int most = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > most) {
            most = it.value();
            background = it.key();
        }
    }
    qreal best = 1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        best = std::max(best, contrast(it.key(), background));
    return best;
}

// What is meant to be mark-up says so, and is a text of our own; so is what stands in an empty field.
bool mayBeReadAsMarkUp(const ShownText& text) {
    if (text.item->property("textFormat").toInt() == Qt::PlainText ||
        text.item->property("isMarkedUp").toBool())
        return false;
    for (const QQuickItem* parent = text.item; parent; parent = parent->parentItem()) {
        if (parent->property("placeholderText").toString() == text.text)
            return false;
    }
    return true;
}

bool isUsersOwn(const QString& text) {
    return text.contains(QLatin1Char('/')) || text.contains("very long"_s);
}

}  // namespace

qreal contrast(QRgb a, QRgb b) {
    const qreal first = luminance(a) + 0.05;
    const qreal second = luminance(b) + 0.05;
    return first > second ? first / second : second / first;
}

QStringList faults(QQuickItem* root, const QImage& picture) {
    QList<ShownText> texts;
    collect(root, texts);
    QStringList found;
    const auto tell = [&](const ShownText& text, const QString& what) {
        found << "\"%1\" %2"_s.arg(text.text.left(40), what);
    };
    for (int i = 0; i < texts.size(); ++i) {
        const ShownText& text = texts[i];
        const QRectF clip = clipOf(text.item);
        const QRectF seenPart = text.drawn & clip;
        const qreal ratio = picture.devicePixelRatio();
        const QRect place =
            QRectF(seenPart.topLeft() * ratio, seenPart.size() * ratio).toAlignedRect() & picture.rect();
        if (mayBeReadAsMarkUp(text))
            tell(text, "may be read as mark-up"_s);
        if (text.item->property("truncated").toBool() && !isUsersOwn(text.text))
            tell(text, "is cut"_s);
        if (text.drawn.left() < clip.left() - 1 || text.drawn.right() > clip.right() + 1)
            tell(text, "reaches out of its frame"_s);
        // A row that is scrolled out of its list in part shows too little to judge.
        if (seenPart.height() < text.drawn.height() - 1)
            continue;
        const qreal seen = contrastIn(picture, place);
        const bool disabled = !text.item->isEnabled();
        if (seen < (disabled ? leastContrastDisabled : leastContrast))
            tell(text, "has a contrast of %1%2"_s.arg(seen).arg(disabled ? ", disabled"_s : QString()));
        for (int k = i + 1; k < texts.size(); ++k) {
            const QRectF common = text.drawn & texts[k].drawn;
            if (common.width() > 2 && common.height() > 3)
                tell(text, "lies upon \"%1\""_s.arg(texts[k].text.left(40)));
        }
    }
    return found;
}

QStringList unnamed(QQuickItem* root) {
    QStringList found;
    if (!root->isVisible() || !root->isEnabled())
        return found;
    if (root->activeFocusOnTab()) {
        const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(root);
        // Of a field for a password the toolkit hides even the name.
        const QAccessible::Text told =
            interface && interface->state().passwordEdit ? QAccessible::Description : QAccessible::Name;
        const QString name = interface ? interface->text(told).trimmed() : QString();
        // What the controls call themselves when nobody names them: their value, or their kind.
        const bool isValue = (root->property("text") == name && root->property("echoMode").isValid()) ||
                             (root->property("currentText") == name && root->property("editText").isValid());
        if (name.isEmpty() || name == "switch"_s || isValue || interface->role() == QAccessible::NoRole ||
            interface->role() == QAccessible::Client)
            found << "a %1 (%2) is called \"%3\""_s.arg(
                QString::fromLatin1(root->metaObject()->className()).section(QLatin1Char('_'), 0, 0),
                root->objectName(), name);
    }
    const QList<QQuickItem*> children = root->childItems();
    for (QQuickItem* child : children)
        found << unnamed(child);
    return found;
}

// Not every renderer notes in its picture how many pixels stand for one of the window.
QImage pictureOf(QQuickWindow* window) {
    QImage picture = window->grabWindow();
    picture.setDevicePixelRatio(window->effectiveDevicePixelRatio());
    return picture;
}

QStringList screenFaults(AppDriver& driver) {
    QQuickWindow* window = driver.mainWindow();
    const QList<QQuickItem*> dialogs =
        driver.itemsOfType("DialogPanel"_s) + driver.itemsOfType("IntroSlider"_s);
    QStringList found;
    for (QQuickItem* dialog : dialogs)
        found << faults(dialog, pictureOf(window)) << unnamed(dialog);
    const QList<QQuickWindow*> popups = driver.popups();
    for (QQuickWindow* popup : popups)
        found << faults(popup->contentItem(), pictureOf(popup));
    if (dialogs.isEmpty() && popups.isEmpty())
        found << faults(window->contentItem(), pictureOf(window)) << unnamed(window->contentItem());
    return found;
}

}  // namespace layout
