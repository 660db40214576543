#include "records/AnswerText.h"

#include "records/RichTextFragment.h"

#include <QDebug>
#include <QRegularExpression>
#include <algorithm>
#include <iterator>

namespace {

const QString wrapperStart = richtext::wrapperStart();
const QString wrapperEnd = richtext::wrapperEnd();

bool isFramed(const QString& inner) {
    return inner.size() >= 2 && inner.startsWith(QLatin1Char('\n')) && inner.endsWith(QLatin1Char('\n'));
}

// A text that stands in the wrapper already isn't wrapped again: the parser would absorb the second one, but
// the stored text would grow with each saving. A text that begins and ends with a line feed gets a frame, so
// that its own line feeds aren't taken for one.
QString wrapped(const QString& text) {
    if (text.startsWith(wrapperStart))
        return text;
    const QString frame = isFramed(text) ? QStringLiteral("\n") : QString();
    return wrapperStart + frame + text + frame + wrapperEnd;
}

// Most texts with entities have none but these, and to parse one takes twenty times as long.
const QPair<QLatin1String, char> simpleEntities[] = {{QLatin1String("&amp;"), '&'},
                                                     {QLatin1String("&lt;"), '<'},
                                                     {QLatin1String("&gt;"), '>'},
                                                     {QLatin1String("&quot;"), '"'}};

/// The characters that a text without tags stands for; false when only a parser can tell.
bool decodeEntities(const QString& text, QString& decoded) {
    if (text.contains(QLatin1Char('<')))
        return false;
    decoded.reserve(text.size());
    int done = 0;
    for (int at = text.indexOf(QLatin1Char('&')); at >= 0; at = text.indexOf(QLatin1Char('&'), done)) {
        const auto* const entity =
            std::find_if(std::begin(simpleEntities), std::end(simpleEntities),
                         [&](const auto& row) { return text.midRef(at, row.first.size()) == row.first; });
        if (entity == std::end(simpleEntities))
            return false;
        decoded.append(text.midRef(done, at - done)).append(QLatin1Char(entity->second));
        done = at + entity->first.size();
    }
    decoded.append(text.midRef(done));
    return !decoded.contains(QLatin1Char('\r')) && !decoded.contains(QChar()) && decoded.isValidUtf16();
}

/// The form in which most texts are stored: with entities where a plain character would begin a mark. Wide
/// entities, because a narrow one has the character looked for as a word.
QString escaped(QString plain) {
    return plain.replace(QLatin1Char('&'), QStringLiteral("&amp;"))
        .replace(QLatin1Char('<'), QStringLiteral("&lt;"));
}

QString withMarks(const QString& plain, const AnswerText::Marks& marks) {
    QString html;
    int done = 0;
    for (const QPair<int, int>& mark : marks) {
        html += plain.mid(done, mark.first - done).toHtmlEscaped() +
                QLatin1String("<b><u><font color=\"orange\">") +
                plain.mid(mark.first, mark.second - mark.first).toHtmlEscaped() +
                QLatin1String("</font></u></b>");
        done = mark.second;
    }
    return html + plain.mid(done).toHtmlEscaped();
}

// A single character is found many times faster than a word, and most texts have none.
void replaceWord(QString& text, const QString& word, QChar rarest, QChar by) {
    if (text.contains(rarest))
        text.replace(word, by);
}

const QString lineEnd = QStringLiteral("\r\n");

void remove(QString& text, std::initializer_list<char16_t> characters) {
    for (char16_t c : characters)
        text.remove(QChar(c));
}

}  // namespace

bool isTakenForHtml(const QString& text) {
    static const QRegularExpression start(QStringLiteral("^<(html|head|body|p|h\\d{1}|div|header|ol)"));
    return start.match(text).hasMatch() && !text.startsWith(wrapperStart);
}

// A rich text fragment has its text between two line breaks, which belong to the frame and not to the text.
AnswerText AnswerText::prepare(const QString& text) {
    AnswerText answer;
    answer.m_isHtml = isTakenForHtml(text);
    answer.m_stored = answer.m_isHtml ? text : wrapped(text);
    if (answer.m_stored.startsWith(wrapperStart) && answer.m_stored.endsWith(wrapperEnd)) {
        QString inner = answer.m_stored.mid(wrapperStart.size(),
                                            answer.m_stored.size() - wrapperStart.size() - wrapperEnd.size());
        const bool framed = isFramed(inner);
        if (framed)
            inner = inner.mid(1, inner.size() - 2);
        if (HtmlDocument::isPlain(inner)) {
            answer.m_held = framed ? Held::FramedPlainText : Held::PlainText;
            answer.m_stored.clear();
            answer.m_plain = CompactText(inner);
            return answer;
        }
        QString decoded;
        if (decodeEntities(inner, decoded) && escaped(decoded) == inner) {
            answer.m_held = framed ? Held::FramedPlainText : Held::PlainText;
            answer.m_stored.clear();
            answer.m_plain = CompactText(decoded);
            return answer;
        }
        answer.m_document = HtmlDocument::parse(wrapperStart + inner + wrapperEnd);
    } else {
        answer.m_document = HtmlDocument::parse(answer.m_stored);
    }
    if (!answer.m_document.isParsed())
        qDebug() << "Failed to parse HTML" << answer.m_stored.size();
    answer.m_plain = CompactText(answer.m_document.plainText());
    return answer;
}

AnswerText AnswerText::part(const AnswerText& whole, int start, int length) {
    AnswerText answer;
    answer.m_isHtml = whole.m_isHtml;
    answer.m_document = whole.document().window(start, length);
    answer.m_stored = answer.m_document.serialized();
    answer.m_plain = CompactText(answer.m_document.plainText());
    return answer;
}

AnswerText AnswerText::marked(const QString& plain, const Marks& marks) {
    AnswerText answer;
    answer.m_held = Held::MarkedText;
    answer.m_plain = CompactText(plain);
    answer.m_marks = marks;
    return answer;
}

QString AnswerText::stored() const {
    if (m_held == Held::MarkedText)
        return wrapped(withMarks(plain(), m_marks));
    if (m_held == Held::Document)
        return m_stored;
    const QString frame = m_held == Held::FramedPlainText ? QStringLiteral("\n") : QString();
    return wrapperStart + frame + escaped(plain()) + frame + wrapperEnd;
}

HtmlDocument AnswerText::document() const {
    switch (m_held) {
    case Held::Document:
        return m_document;
    case Held::MarkedText:
        return HtmlDocument::parse(wrapperStart + withMarks(plain(), m_marks) + wrapperEnd);
    default:
        return HtmlDocument::fromPlainText(plain());
    }
}

QString normalizedFromService(QString text) {
    text.replace(QChar(0x0C), QLatin1Char('\n'));
    remove(text, {19, 17, 8, 7});
    replaceWord(text, lineEnd, QLatin1Char('\r'), QLatin1Char('\n'));
    text.replace(QChar(0x2028), QLatin1Char('\n'));
    return text;
}

QString normalizedForStorage(QString text) {
    static const QString misreadLineSeparator = QStringLiteral("\u00e2\u0080\u00a8");
    text.replace(QChar(0x07EC), QLatin1Char('\n'));
    replaceWord(text, misreadLineSeparator, QChar(0x80), QLatin1Char('\n'));
    replaceWord(text, lineEnd, QLatin1Char('\r'), QLatin1Char('\n'));
    remove(text, {0x07, 0x08, 0x11, 0x13});
    text.replace(QChar(0x07ED), QLatin1Char('\n'));
    text.replace(QChar(0x0C), QLatin1Char('\n'));
    return text;
}
