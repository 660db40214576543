#include "records/HtmlDocument.h"

#include "records/HtmlCharacters.h"
#include "records/HtmlDepth.h"

#include <QSet>
#include <QThread>
#include <algorithm>
#include <gumbo.h>
#include <memory>

namespace {

// Each tag of the parser costs time with the depth that it stands in, so a text that nests deeper is refused.
constexpr int maxDepth = 20000;

// The parser's clean-up recurses, and a text can nest deeper than the estimate says. One with tags enough to
// matter is parsed on a stack that would hold all of them.
constexpr uint stackAtLeast = 1u << 20;
constexpr uint stackPerLevel = 512;
constexpr int mostLevels = 4000000;

const QString bodyTag = QStringLiteral("body");
const QString breakTag = QStringLiteral("br");

bool isBlock(const QString& tag) {
    static const QSet<QString> blocks{
        QStringLiteral("address"), QStringLiteral("blockquote"), QStringLiteral("dd"), QStringLiteral("div"),
        QStringLiteral("h1"),      QStringLiteral("h2"),         QStringLiteral("h3"), QStringLiteral("h4"),
        QStringLiteral("h5"),      QStringLiteral("h6"),         QStringLiteral("hr"), QStringLiteral("li"),
        QStringLiteral("p")};
    return blocks.contains(tag);
}

bool holdsRawText(const QString& tag) {
    static const QSet<QString> raw{QStringLiteral("style"),    QStringLiteral("script"),
                                   QStringLiteral("xmp"),      QStringLiteral("iframe"),
                                   QStringLiteral("noembed"),  QStringLiteral("noframes"),
                                   QStringLiteral("plaintext")};
    return raw.contains(tag);
}

QString richTag(const QString& tag) {
    if (tag == QLatin1String("b") || tag == QLatin1String("strong"))
        return QStringLiteral("b");
    if (tag == QLatin1String("i") || tag == QLatin1String("u"))
        return tag;
    return {};
}

void appendEscaped(QString& out, const QString& text, bool attribute) {
    for (const QChar c : text) {
        switch (c.unicode()) {
        case u'&':
            out += QLatin1String("&amp;");
            break;
        case 0xA0:
            out += QLatin1String("&nbsp;");
            break;
        case u'"':
            out += attribute ? QStringLiteral("&quot;") : QStringLiteral("\"");
            break;
        case u'<':
            out += attribute ? QStringLiteral("<") : QStringLiteral("&lt;");
            break;
        case u'>':
            out += attribute ? QStringLiteral(">") : QStringLiteral("&gt;");
            break;
        default:
            out += c;
        }
    }
}

}  // namespace

/// Walks a parsed tree, without recursion, into the parts of a document.
class HtmlReader {
public:
    static bool read(const QByteArray& html, QVector<HtmlDocument::Part>& parts) {
        const htmldepth::Estimate depth = htmldepth::estimate(html, maxDepth);
        if (depth.open > maxDepth)
            return false;
        if (depth.tags <= maxDepth) {
            parse(html, parts);
            return true;
        }
        const auto parser = std::unique_ptr<QThread>(QThread::create([&] { parse(html, parts); }));
        parser->setStackSize(stackAtLeast +
                             static_cast<uint>(std::min(depth.tags, mostLevels)) * stackPerLevel);
        parser->start();
        parser->wait();
        return true;
    }

private:
    static void parse(const QByteArray& html, QVector<HtmlDocument::Part>& parts) {
        GumboOutput* output = gumbo_parse_with_options(&kGumboDefaultOptions, html.constData(),
                                                       static_cast<size_t>(html.size()));
        const GumboDocument& document = output->document->v.document;
        if (document.has_doctype)
            parts.append({HtmlDocument::Kind::Doctype, QString::fromUtf8(document.name), {}});
        for (unsigned i = 0; i < document.children.length; ++i)
            readTree(static_cast<const GumboNode*>(document.children.data[i]), parts);
        gumbo_destroy_output(&kGumboDefaultOptions, output);
    }

    struct Open {
        const GumboNode* node;
        unsigned next;
    };

    static void readTree(const GumboNode* root, QVector<HtmlDocument::Part>& parts) {
        std::vector<Open> path;
        enter(root, parts, path);
        while (!path.empty()) {
            Open& top = path.back();
            const GumboVector& children = top.node->v.element.children;
            if (top.next < children.length) {
                enter(static_cast<const GumboNode*>(children.data[top.next++]), parts, path);
            } else {
                parts.append({HtmlDocument::Kind::Close, tagName(top.node->v.element), {}});
                path.pop_back();
            }
        }
    }

    static void enter(const GumboNode* node, QVector<HtmlDocument::Part>& parts, std::vector<Open>& path) {
        switch (node->type) {
        case GUMBO_NODE_ELEMENT:
        case GUMBO_NODE_TEMPLATE:
            parts.append({HtmlDocument::Kind::Open, tagName(node->v.element), attributes(node->v.element)});
            path.push_back({node, 0});
            break;
        case GUMBO_NODE_COMMENT:
            parts.append({HtmlDocument::Kind::Comment, htmlcharacters::decode(node->v.text.text), {}});
            break;
        case GUMBO_NODE_TEXT:
        case GUMBO_NODE_CDATA:
        case GUMBO_NODE_WHITESPACE:
            appendText(parts, htmlcharacters::decode(node->v.text.text));
            break;
        case GUMBO_NODE_DOCUMENT:
            break;
        }
    }

    // The parser splits character data at white space in places; one part for each run is kept.
    static void appendText(QVector<HtmlDocument::Part>& parts, const QString& text) {
        if (!parts.isEmpty() && parts.last().kind == HtmlDocument::Kind::Text)
            parts.last().text += text;
        else
            parts.append({HtmlDocument::Kind::Text, text, {}});
    }

    static QString tagName(const GumboElement& element) {
        if (element.tag != GUMBO_TAG_UNKNOWN)
            return QString::fromLatin1(gumbo_normalized_tagname(element.tag));
        GumboStringPiece piece = element.original_tag;
        gumbo_tag_from_original_text(&piece);
        return QString::fromUtf8(piece.data, static_cast<int>(piece.length)).toLower();
    }

    static QVector<HtmlDocument::Attribute> attributes(const GumboElement& element) {
        QVector<HtmlDocument::Attribute> list;
        for (unsigned i = 0; i < element.attributes.length; ++i) {
            const auto* attribute = static_cast<const GumboAttribute*>(element.attributes.data[i]);
            list.append({QString::fromUtf8(attribute->name), htmlcharacters::decode(attribute->value)});
        }
        return list;
    }
};

HtmlDocument HtmlDocument::parse(const QString& html) {
    HtmlDocument document;
    document.m_parsed = HtmlReader::read(htmlcharacters::encode(html), document.m_parts);
    return document;
}

bool HtmlDocument::isPlain(const QString& text) {
    // A search for one character is quick by itself; most texts of a project are plain and pass all of them.
    const QChar marks[] = {QLatin1Char('<'), QLatin1Char('&'), QLatin1Char('\r'), QChar()};
    return std::none_of(std::begin(marks), std::end(marks),
                        [&text](QChar mark) { return text.contains(mark); }) &&
           text.isValidUtf16();
}

HtmlDocument HtmlDocument::fromPlainText(const QString& text) {
    const QString html = QStringLiteral("html");
    const QString head = QStringLiteral("head");
    HtmlDocument document;
    document.m_parts = {
        {Kind::Open, html, {}},
        {Kind::Open, head, {}},
        {Kind::Close, head, {}},
        {Kind::Open, bodyTag, {{QStringLiteral("style"), QStringLiteral("white-space: pre-wrap;")}}}};
    if (!text.isEmpty())
        document.m_parts.append({Kind::Text, text, {}});
    document.m_parts.append({Kind::Close, bodyTag, {}});
    document.m_parts.append({Kind::Close, html, {}});
    return document;
}

template <typename Visitor> void HtmlDocument::visitBody(Visitor visit) const {
    bool inBody = false;
    int nestedBodies = 0;
    for (int i = 0; i < m_parts.size(); ++i) {
        const Part& part = m_parts.at(i);
        const bool isBody = part.text == bodyTag && (part.kind == Kind::Open || part.kind == Kind::Close);
        if (isBody && !inBody) {
            inBody = part.kind == Kind::Open;
            continue;
        }
        if (isBody) {
            nestedBodies += part.kind == Kind::Open ? 1 : -1;
            if (nestedBodies < 0)
                return;
        }
        if (inBody)
            visit(i, part);
    }
}

QString HtmlDocument::plainText() const {
    QString out;
    visitBody([&](int, const Part& part) {
        if (part.kind == Kind::Text)
            out += part.text;
        else if (part.kind == Kind::Open && part.text == breakTag)
            out += QLatin1Char('\n');
        else if (part.kind == Kind::Close && isBlock(part.text))
            out += QLatin1Char('\n');
    });
    return out;
}

QString HtmlDocument::richText() const {
    QString out;
    visitBody([&](int, const Part& part) {
        if (part.kind == Kind::Text) {
            out += part.text;
        } else if (part.kind == Kind::Open) {
            const QString tag = richTag(part.text);
            if (part.text == breakTag)
                out += QLatin1Char('\n');
            else if (!tag.isEmpty())
                out += QLatin1Char('<') + tag + QLatin1Char('>');
        } else if (part.kind == Kind::Close) {
            const QString tag = richTag(part.text);
            if (!tag.isEmpty())
                out += QLatin1String("</") + tag + QLatin1Char('>');
            if (isBlock(part.text))
                out += QLatin1Char('\n');
        }
    });
    return out;
}

QString HtmlDocument::serialized() const {
    QString out;
    bool raw = false;
    for (const Part& part : m_parts) {
        switch (part.kind) {
        case Kind::Doctype:
            out += QLatin1String("<!DOCTYPE ") + part.text + QLatin1Char('>');
            break;
        case Kind::Comment:
            out += QLatin1String("<!--") + part.text + QLatin1String("-->");
            break;
        case Kind::Text:
            if (raw)
                out += part.text;
            else
                appendEscaped(out, part.text, false);
            break;
        case Kind::Open:
            out += QLatin1Char('<') + part.text;
            for (const Attribute& attribute : part.attributes) {
                out += QLatin1Char(' ') + attribute.name + QLatin1String("=\"");
                appendEscaped(out, attribute.value, true);
                out += QLatin1Char('"');
            }
            out += QLatin1Char('>');
            raw = holdsRawText(part.text);
            break;
        case Kind::Close:
            if (!htmldepth::isVoid(part.text.toUtf8()))
                out += QLatin1String("</") + part.text + QLatin1Char('>');
            raw = false;
            break;
        }
    }
    return out;
}

// An element that ends lines counts as a character, so one that lies outside goes, or what is left would have
// other positions; the elements around the window stay.
HtmlDocument HtmlDocument::window(int start, int length) const {
    HtmlDocument cut = *this;
    const int end = start + length;
    int position = 0;
    QVector<bool> goes(m_parts.size(), false);
    QVector<QPair<int, int>> openBlocks;  // index and position of each
    visitBody([&](int index, const Part& part) {
        const int previous = position;
        if (part.kind == Kind::Text) {
            position += part.text.size();
            const int from = std::max(start, previous) - previous;
            const int to = std::min(end, position) - previous;
            cut.m_parts[index].text = from < to ? part.text.mid(from, to - from) : QString();
        } else if (part.text == breakTag) {
            position += part.kind == Kind::Open ? 1 : 0;
            const int at = part.kind == Kind::Open ? previous : previous - 1;
            goes[index] = at < start || at >= end;
        } else if (part.kind == Kind::Open && isBlock(part.text)) {
            openBlocks.append({index, position});
        } else if (part.kind == Kind::Close && isBlock(part.text)) {
            ++position;
            const QPair<int, int> opened =
                openBlocks.isEmpty() ? qMakePair(index, position) : openBlocks.takeLast();
            if (position <= start || opened.second >= end)
                std::fill(goes.begin() + opened.first, goes.begin() + index + 1, true);
        }
    });
    int index = 0;
    cut.m_parts.erase(
        std::remove_if(cut.m_parts.begin(), cut.m_parts.end(), [&](const Part&) { return goes.at(index++); }),
        cut.m_parts.end());
    return cut;
}
