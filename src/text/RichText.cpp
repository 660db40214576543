#include "text/RichText.h"

#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <functional>

namespace {

int weightOf(const QTextCharFormat& format) {
    return format.hasProperty(QTextFormat::FontWeight) ? format.intProperty(QTextFormat::FontWeight)
                                                       : int(QFont::Normal);
}

void markFragment(QString& text, const QTextFragment& fragment, int defaultWeight) {
    const QTextCharFormat format = fragment.charFormat();
    QString open;
    QString close;
    const auto mark = [&](bool marked, QLatin1Char tag) {
        if (!marked)
            return;
        open += QLatin1String("<") + tag + QLatin1Char('>');
        close.prepend(QLatin1String("</") + tag + QLatin1Char('>'));
    };
    mark(defaultWeight < weightOf(format), QLatin1Char('b'));
    mark(format.boolProperty(QTextFormat::FontItalic), QLatin1Char('i'));
    mark(format.fontUnderline(), QLatin1Char('u'));
    if (open.isEmpty())
        return;
    text.insert(fragment.position() + fragment.length(), close);
    text.insert(fragment.position(), open);
}

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

QString richTextFromDocument(QTextDocument* document) {
    QString text = document->toPlainText();
    const int defaultWeight = document->defaultFont().weight();
    // Backward, so that an insertion never moves a position still to come. The iterator itself can't be
    // trusted to go back over neighbours of one format.
    for (QTextBlock block = document->lastBlock(); block.isValid(); block = block.previous()) {
        QVector<QTextFragment> fragments;
        for (QTextBlock::iterator it = block.begin(); it != block.end(); ++it) {
            if (it.fragment().isValid() && it.fragment().length() > 0)
                fragments.prepend(it.fragment());
        }
        for (const QTextFragment& fragment : qAsConst(fragments))
            markFragment(text, fragment, defaultWeight);
    }
    return QLatin1String("<body style=\"white-space: pre-wrap;\">\n") + text + QLatin1String("\n</body>");
}

void toggleBold(QTextDocument* document, int start, int end) {
    toggle(
        document, start, end, [](const QTextCharFormat& format) { return weightOf(format) == QFont::Bold; },
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
