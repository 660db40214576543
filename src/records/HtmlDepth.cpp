#include "records/HtmlDepth.h"

#include <QHash>
#include <QSet>
#include <QVector>
#include <algorithm>

namespace htmldepth {

namespace {

using Tags = QSet<QByteArray>;

/// One of these ends the one before it, unless another element lies between them, which counts itself.
const Tags closeThemselves{"p",  "li",    "dd",   "dt",    "option", "optgroup", "tr",      "td",
                           "th", "tbody", "rb",   "thead", "tfoot",  "rp",       "rt",      "rtc",
                           "a",  "nobr",  "html", "head",  "body",   "caption",  "colgroup"};
/// End tags of outer elements don't reach over these.
const Tags walls{"applet", "button", "marquee", "object", "table", "template"};
/// What looks like tags within these is text.
const Tags rawText{"style",    "script",    "xmp",   "iframe",  "noembed",
                   "noframes", "plaintext", "title", "textarea"};
/// These outlive the elements that they were opened in.
const Tags formatting{"b", "big", "code", "em", "font", "i", "s", "small", "strike", "strong", "tt", "u"};

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

class Reader {
public:
    explicit Reader(const QByteArray& html) : m_html(html) {}

    Estimate read(int limit) {
        Estimate result;
        for (m_at = find('<', 0); m_at < m_html.size() && result.open <= limit; m_at = find('<', m_at)) {
            const bool isEnd = at(m_at + 1) == '/';
            m_at += isEnd ? 2 : 1;
            if (!isLetter(at(m_at))) {
                if (isEnd || at(m_at) == '!' || at(m_at) == '?')
                    m_at = m_html.mid(m_at, 3) == "!--" ? m_html.indexOf("-->", m_at + 1) : find('>', m_at);
                if (m_at < 0)
                    break;
                continue;
            }
            const QByteArray name = readName();
            readAttributes();
            if (!m_open.isEmpty() && rawText.contains(m_open.last()) && !(isEnd && name == m_open.last()))
                continue;
            if (isEnd) {
                close(name);
                continue;
            }
            ++result.tags;
            if (!isVoid(name) && !closeThemselves.contains(name))
                open(name);
            result.open = std::max(result.open, m_open.size());
        }
        return result;
    }

private:
    char at(int place) const { return place < m_html.size() ? m_html.at(place) : '\0'; }

    /// The place of the next such character, or the end.
    int find(char c, int from) const {
        const int found = m_html.indexOf(c, from);
        return found < 0 ? m_html.size() : found;
    }

    template <typename Condition> void skip(Condition condition) {
        while (m_at < m_html.size() && condition(m_html.at(m_at)))
            ++m_at;
    }

    QByteArray readName() {
        const int start = m_at;
        skip([](char c) { return !isSpace(c) && c != '/' && c != '>'; });
        return m_html.mid(start, m_at - start).toLower();
    }

    // A sign of greater does not end a tag within quotes, and quotes count only where a value begins.
    void readAttributes() {
        while (m_at < m_html.size()) {
            skip([](char c) { return isSpace(c) || c == '/'; });
            if (at(m_at) == '>')
                return;
            ++m_at;
            skip([](char c) { return !isSpace(c) && c != '/' && c != '>' && c != '='; });
            skip(isSpace);
            if (at(m_at) != '=')
                continue;
            ++m_at;
            skip(isSpace);
            if (at(m_at) == '"' || at(m_at) == '\'')
                m_at = find(at(m_at), m_at + 1) + 1;
            else
                skip([](char c) { return !isSpace(c) && c != '>'; });
        }
    }

    void open(const QByteArray& name) {
        m_open.append(name);
        ++m_openOfName[name];
    }

    void close(const QByteArray& name) {
        if (m_openOfName.value(name) == 0)
            return;
        int place = m_open.size() - 1;
        while (m_open.at(place) != name && !walls.contains(m_open.at(place)))
            --place;
        if (m_open.at(place) != name)
            return;
        const bool closesInner = !formatting.contains(name);
        const QVector<QByteArray> inner = m_open.mid(place + 1);
        m_open.resize(place);
        --m_openOfName[name];
        for (const QByteArray& tag : inner) {
            --m_openOfName[tag];
            if (!closesInner || formatting.contains(tag))
                open(tag);
        }
    }

    const QByteArray& m_html;
    int m_at = 0;
    QVector<QByteArray> m_open;
    QHash<QByteArray, int> m_openOfName;
};

}  // namespace

bool isVoid(const QByteArray& tag) {
    static const Tags tags{"area", "base",  "basefont", "bgsound", "br",   "col",   "embed",  "frame", "hr",
                           "img",  "input", "keygen",   "link",    "meta", "param", "source", "track", "wbr"};
    return tags.contains(tag);
}

Estimate estimate(const QByteArray& html, int limit) {
    return Reader(html).read(limit);
}

}  // namespace htmldepth
