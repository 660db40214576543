#pragma once

#include "models/TextGeometry.h"

#include <QObject>

constexpr int charactersPerLine = 20;
constexpr int linePixels = 16;

/// A text of lines of the same length.
class FakeText : public QObject, public TextGeometry {
    Q_OBJECT

public:
    QRectF rectangleAt(int position) const override {
        return {0, position / charactersPerLine * linePixels + 0.75, 1, linePixels};
    }
    double lineHeight() const override { return linePixels; }
    int textLength() const override { return 1000; }
    bool isReadOnlyText() const override { return true; }
    bool isComplete() const override { return complete; }
    QObject* item() override { return this; }

    bool complete = true;

signals:
    void contentSizeChanged();
    void readOnlyChanged(bool readOnly);
};
