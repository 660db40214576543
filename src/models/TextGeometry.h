#pragma once

#include <QRectF>

class QObject;

/// What the models beside a text ask of the item that shows it. The text item implements it.
class TextGeometry {
public:
    virtual ~TextGeometry() = default;

    /// The rectangle of the character at a position of the shown text, in the item's pixels.
    virtual QRectF rectangleAt(int position) const = 0;

    /// Height of one line, in pixels.
    virtual double lineHeight() const = 0;

    /// Number of characters shown.
    virtual int textLength() const = 0;

    virtual bool isReadOnlyText() const = 0;

    /// Whether the item is fully made and laid out.
    virtual bool isComplete() const = 0;

    /// The item itself: it has the signals `contentSizeChanged()` and `readOnlyChanged(bool)`.
    virtual QObject* item() = 0;
};
