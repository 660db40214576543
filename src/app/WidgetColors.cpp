#include "app/WidgetColors.h"

#include <QApplication>
#include <QPalette>

WidgetColors::WidgetColors(QObject* parent) : QObject(parent) {
    connect(this, &WidgetColors::changed, this, &WidgetColors::apply);
}

void WidgetColors::apply() const {
    // The first bindings come one by one; a palette of half the colours would be seen.
    for (const QColor* color : {&m_background, &m_text, &m_field, &m_selection, &m_selectedText, &m_link}) {
        if (!color->isValid())
            return;
    }
    QPalette palette(m_background, m_background);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, m_text);
    QColor faded = m_text;
    faded.setAlphaF(0.45);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded);
    palette.setColor(QPalette::PlaceholderText, faded);
    palette.setColor(QPalette::Base, m_field);
    palette.setColor(QPalette::AlternateBase, m_background);
    palette.setColor(QPalette::ToolTipBase, m_field);
    palette.setColor(QPalette::Highlight, m_selection);
    palette.setColor(QPalette::HighlightedText, m_selectedText);
    palette.setColor(QPalette::Link, m_link);
    QApplication::setPalette(palette);
}
