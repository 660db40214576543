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

QString richTextFromDocument(const QTextDocument* document) {
    const QString plain = document->toPlainText();
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
            marked += plain.midRef(copied, run.position() - copied);
            marked += marks.open + plain.midRef(run.position(), run.length()) + marks.close;
            copied = run.position() + run.length();
        }
    }
    marked += plain.midRef(copied);
    return richtext::fragment(marked);
}
