#include "records/RichTextFragment.h"

#include <QTextBlock>
#include <QTextCharFormat>
#include <QTextDocument>

namespace {

struct Marks {
    QString open;
    QString close;
};

Marks marksOf(const QTextCharFormat& format, int defaultWeight) {
    Marks marks;
    const auto mark = [&](bool marked, QLatin1Char tag) {
        if (!marked)
            return;
        marks.open += QLatin1String("<") + tag + QLatin1Char('>');
        marks.close.prepend(QLatin1String("</") + tag + QLatin1Char('>'));
    };
    mark(defaultWeight < format.fontWeight(), QLatin1Char('b'));
    mark(format.boolProperty(QTextFormat::FontItalic), QLatin1Char('i'));
    mark(format.fontUnderline(), QLatin1Char('u'));
    return marks;
}

}  // namespace

QString richtext::fragment(const QString& text) {
    return wrapperStart() + QLatin1Char('\n') + text + QLatin1Char('\n') + wrapperEnd();
}

QString richtext::escaped(const QString& text) {
    static const QString special = QStringLiteral("<&\u0007\u0008\u000c\r\u0011\u0013\u07ec\u07ed\u00e2");
    // These three are one character to the clean-up; the reference to the first keeps them apart.
    static const QString misread = QStringLiteral("\u00e2\u0080\u00a8");
    QString result;
    int copied = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!special.contains(c) || (c == misread.at(0) && text.midRef(i, misread.size()) != misread))
            continue;
        result += text.midRef(copied, i - copied);
        result += c == QLatin1Char('<')   ? QStringLiteral("&lt;")
                  : c == QLatin1Char('&') ? QStringLiteral("&amp;")
                                          : QStringLiteral("&#%1;").arg(int(c.unicode()));
        copied = i + 1;
    }
    return copied == 0 ? text : result + text.midRef(copied);
}

namespace {

template <typename Form>
QString marked(const QTextDocument* document, const QString& plain, const Form& form) {
    const int defaultWeight = document->defaultFont().weight();
    QString marked;
    marked.reserve(plain.size());
    int copied = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); it != block.end(); ++it) {
            const QTextFragment run = it.fragment();
            const Marks marks = marksOf(run.charFormat(), defaultWeight);
            if (!run.isValid() || run.length() == 0 || marks.open.isEmpty())
                continue;
            marked += form(plain.mid(copied, run.position() - copied));
            marked += marks.open + form(plain.mid(run.position(), run.length())) + marks.close;
            copied = run.position() + run.length();
        }
    }
    return richtext::fragment(marked + form(plain.mid(copied)));
}

}  // namespace

QString richTextFromDocument(const QTextDocument* document) {
    return marked(document, document->toPlainText(), [](const QString& text) { return text; });
}

QString plainTextOf(const QTextDocument* document) {
    QString text = document->toRawText();
    for (QChar& c : text) {
        // The last two begin and end a frame.
        if (c == QChar::ParagraphSeparator || c == QChar::LineSeparator || c == QChar(0xFDD0) ||
            c == QChar(0xFDD1))
            c = QLatin1Char('\n');
    }
    return text;
}

QString editedTextFromDocument(const QTextDocument* document) {
    return marked(document, plainTextOf(document), richtext::escaped);
}
