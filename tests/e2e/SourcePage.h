#pragma once

#include "AppDriver.h"

/// The source panel as a person sees it: the text, its stripes and its memos.
class SourcePage {
public:
    /// `textName`: the object name of the text that is read.
    explicit SourcePage(AppDriver& driver, const QString& textName = "answerText"_s)
        : m_driver(driver), m_textName(textName) {}

    /// Waits until the panel shows this text whole. Passages are looked for in it from then on.
    bool read(const QString& text);
    /// Selects the first such passage by the mouse. The failure in words, or empty.
    QString select(const QString& passage);
    /// Takes up the selection and drops it on the middle of `target`.
    void dragSelectionTo(QQuickItem* target);
    QString selectedText();

    QQuickItem* textItem();
    /// The stripes that are drawn, from left to right and from top to bottom.
    QList<QQuickItem*> stripes();
    /// The stripes' column.
    QQuickItem* stripeColumn();
    /// The colour of the text's background just above the foot of a character's line, from what is on the
    /// screen.
    QColor backgroundAt(int position);
    QList<QQuickItem*> memos();
    int positionOf(const QString& passage) const { return m_text.indexOf(passage); }

    /// Of a character, in the text item's pixels.
    QRectF rectangleAt(int position);

private:
    AppDriver& m_driver;
    QString m_textName;
    QString m_text;
};
