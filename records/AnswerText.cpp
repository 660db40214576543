#include "records/AnswerText.h"

#include <QDebug>
#include <QRegularExpression>

namespace {

const QString wrapperStart = QStringLiteral("<body style=\"white-space: pre-wrap;\">");
const QString wrapperEnd = QStringLiteral("</body>");

bool looksLikeHtml(const QString& text) {
    static const QRegularExpression start(QStringLiteral("^<(html|head|body|p|h\\d{1}|div|header|ol)"));
    return start.match(text).hasMatch() && !text.startsWith(wrapperStart);
}

// A text that stands in the wrapper already isn't wrapped again: the parser would absorb the second one, but
// the stored text would grow with each saving.
QString wrapped(const QString& text) {
    return text.startsWith(wrapperStart) ? text : wrapperStart + text + wrapperEnd;
}

HtmlDocument parse(const QString& stored) {
    if (stored.startsWith(wrapperStart) && stored.endsWith(wrapperEnd)) {
        const QString inner =
            stored.mid(wrapperStart.size(), stored.size() - wrapperStart.size() - wrapperEnd.size());
        if (HtmlDocument::isPlain(inner))
            return HtmlDocument::fromPlainText(inner);
    }
    return HtmlDocument::parse(stored);
}

void remove(QString& text, std::initializer_list<char16_t> characters) {
    for (char16_t c : characters)
        text.remove(QChar(c));
}

}  // namespace

AnswerText AnswerText::prepare(const QString& text) {
    AnswerText answer;
    answer.isHtml = looksLikeHtml(text);
    answer.stored = answer.isHtml ? text : wrapped(text);
    answer.document = parse(answer.stored);
    if (!answer.document.isParsed())
        qDebug() << "Failed to parse HTML" << answer.stored.size();
    answer.serialized = answer.document.serialized();
    answer.plain = answer.document.plainText();
    return answer;
}

AnswerText AnswerText::part(const AnswerText& whole, int start, int length) {
    AnswerText answer;
    answer.isHtml = whole.isHtml;
    answer.document = whole.document.window(start, length);
    answer.serialized = answer.document.serialized();
    answer.stored = answer.serialized;
    answer.plain = answer.document.plainText();
    return answer;
}

QString normalizedFromService(QString text) {
    text.replace(QChar(0x0C), QLatin1Char('\n'));
    remove(text, {19, 17, 8, 7});
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QChar(0x2028), QLatin1Char('\n'));
    return text;
}

QString normalizedForStorage(QString text) {
    static const QString misreadLineSeparator = QStringLiteral("\u00e2\u0080\u00a8");
    text.replace(QChar(0x07EC), QLatin1Char('\n'));
    text.replace(misreadLineSeparator, QLatin1String("\n"));
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    remove(text, {0x07, 0x08, 0x11, 0x13});
    text.replace(QChar(0x07ED), QLatin1Char('\n'));
    text.replace(QChar(0x0C), QLatin1Char('\n'));
    return text;
}
