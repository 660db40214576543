#include "export/MarkedText.h"

#include "records/AnswerText.h"

#include <algorithm>

namespace {

struct Tag {
    QLatin1String open;
    QLatin1String close;
    MarkedText::Mark mark;
};

const Tag tags[] = {{QLatin1String("<b>"), QLatin1String("</b>"), MarkedText::Bold},
                    {QLatin1String("<i>"), QLatin1String("</i>"), MarkedText::Italic},
                    {QLatin1String("<u>"), QLatin1String("</u>"), MarkedText::Underline}};

// Stands for a "<" of the text itself, so that those of the marks are the only ones. No character has this
// code.
constexpr QChar lessThan(0xFDD0);

}  // namespace

MarkedText MarkedText::fromStored(const QString& stored) {
    return of(AnswerText::prepare(normalizedFromService(stored)));
}

MarkedText MarkedText::of(const AnswerText& text) {
    MarkedText marked;
    marked.m_plain = text.plain();
    marked.m_isHtml = text.isHtml();
    if (HtmlDocument::isPlain(marked.m_plain) && text.stored().count(QLatin1Char('<')) <= 2)
        return marked;
    QString html = text.serialized();
    html.replace(QLatin1String("&lt;"), lessThan);
    // A text that says something else so keeps its words and goes without marks.
    if (!marked.readRich(HtmlDocument::parse(html).richText()))
        marked.m_stretches = {{0, 0}};
    return marked;
}

bool MarkedText::readRich(const QString& rich) {
    int open[std::size(tags)] = {};
    const auto marks = [&] {
        quint8 all = 0;
        for (size_t i = 0; i < std::size(tags); ++i)
            all |= open[i] > 0 ? tags[i].mark : 0;
        return all;
    };
    QString plain;
    plain.reserve(rich.size());
    for (int i = 0; i < rich.size();) {
        const QStringRef rest = rich.midRef(i, 4);
        int taken = 0;
        for (size_t t = 0; rich.at(i) == QLatin1Char('<') && t < std::size(tags) && taken == 0; ++t) {
            const bool opens = rest.startsWith(tags[t].open);
            if (!opens && !rest.startsWith(tags[t].close))
                continue;
            open[t] += opens ? 1 : -1;
            taken = opens ? tags[t].open.size() : tags[t].close.size();
            if (m_stretches.last().start == plain.size())
                m_stretches.last().marks = marks();
            else
                m_stretches.append({plain.size(), marks()});
        }
        if (taken == 0)
            plain += rich.at(i) == lessThan ? QLatin1Char('<') : rich.at(i);
        i += std::max(taken, 1);
    }
    return plain == m_plain;
}

QString MarkedText::html(int start, int length) const {
    const int from = qBound(0, start, m_plain.size());
    const int to = from + qBound(0, length, m_plain.size() - from);
    QString out;
    visit(from, to, [&](int first, int end, quint8 marks) {
        for (const Tag& tag : tags)
            out += marks & tag.mark ? tag.open : QLatin1String();
        out += m_plain.mid(first, end - first).toHtmlEscaped();
        for (auto tag = std::rbegin(tags); tag != std::rend(tags); ++tag)
            out += marks & tag->mark ? tag->close : QLatin1String();
    });
    return out;
}

void MarkedText::visit(int from, int to, const Visitor& visitor) const {
    auto next = std::upper_bound(m_stretches.begin(), m_stretches.end(), from,
                                 [](int position, const Stretch& s) { return position < s.start; });
    for (int at = from; at < to; ++next) {
        const int end = next == m_stretches.end() ? to : std::min(to, next->start);
        if (end > at)
            visitor(at, end, std::prev(next)->marks);
        at = end;
    }
}
