#include "text/RichText.h"

#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <functional>

namespace {

using HasStyle = std::function<bool(const QTextCharFormat&)>;

void toggle(QTextDocument* document, int start, int end, const HasStyle& hasStyle, const QTextCharFormat& on,
            const QTextCharFormat& off) {
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    cursor.setPosition(start);
    bool all = true;
    while (all && cursor.position() < end &&
           cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor))
        all = hasStyle(cursor.charFormat());
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(all ? off : on);
    cursor.endEditBlock();
}

QTextCharFormat withProperty(QTextFormat::Property property, const QVariant& value) {
    QTextCharFormat format;
    format.setProperty(property, value);
    return format;
}

QTextCharFormat withUnderline(bool underline) {
    QTextCharFormat format;
    format.setFontUnderline(underline);
    return format;
}

}  // namespace

void toggleBold(QTextDocument* document, int start, int end) {
    toggle(
        document, start, end,
        [](const QTextCharFormat& format) { return format.fontWeight() == QFont::Bold; },
        withProperty(QTextFormat::FontWeight, int(QFont::Bold)),
        withProperty(QTextFormat::FontWeight, document->defaultFont().weight()));
}

void toggleItalic(QTextDocument* document, int start, int end) {
    toggle(
        document, start, end,
        [](const QTextCharFormat& format) { return format.boolProperty(QTextFormat::FontItalic); },
        withProperty(QTextFormat::FontItalic, true), withProperty(QTextFormat::FontItalic, false));
}

void toggleUnderline(QTextDocument* document, int start, int end) {
    toggle(
        document, start, end, [](const QTextCharFormat& format) { return format.fontUnderline(); },
        withUnderline(true), withUnderline(false));
}
