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

bool isFramed(const QString& inner) {
    return inner.size() >= 2 && inner.startsWith(QLatin1Char('\n')) && inner.endsWith(QLatin1Char('\n'));
}

// A text that stands in the wrapper already isn't wrapped again: the parser would absorb the second one, but
// the stored text would grow with each saving. A text that begins and ends with a line feed gets a frame, so that
// its own line feeds aren't taken for one.
QString wrapped(const QString& text) {
    if (text.startsWith(wrapperStart))
        return text;
    const QString frame = isFramed(text) ? QStringLiteral("\n") : QString();
    return wrapperStart + frame + text + frame + wrapperEnd;
}

// A rich text fragment has its text between two line breaks, which belong to the frame and not to the text.
HtmlDocument parse(const QString& stored) {
    if (!stored.startsWith(wrapperStart) || !stored.endsWith(wrapperEnd))
        return HtmlDocument::parse(stored);
    QString inner = stored.mid(wrapperStart.size(), stored.size() - wrapperStart.size() - wrapperEnd.size());
    if (isFramed(inner))
        inner = inner.mid(1, inner.size() - 2);
    return HtmlDocument::isPlain(inner) ? HtmlDocument::fromPlainText(inner)
                                        : HtmlDocument::parse(wrapperStart + inner + wrapperEnd);
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
