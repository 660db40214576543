#include "export/DocxDocument.h"

#include "export/DocxText.h"

#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <array>

namespace {

constexpr char head[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
    "<w:%1 xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\" "
    "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" "
    "xmlns:o=\"urn:schemas-microsoft-com:office:office\" xmlns:v=\"urn:schemas-microsoft-com:vml\" "
    "xmlns:m=\"http://schemas.openxmlformats.org/officeDocument/2006/math\" "
    "xmlns:w10=\"urn:schemas-microsoft-com:office:word\" "
    "xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\">";

constexpr std::array<const char*, 4> folders{"_rels/", "docProps/", "word/", "word/_rels/"};
constexpr std::array<const char*, 9> fixedParts{
    "docProps/custom.xml", "docProps/core.xml", "docProps/app.xml", "_rels/.rels",
    "word/fontTable.xml",  "word/settings.xml", "word/styles.xml",  "word/_rels/document.xml.rels",
    "[Content_Types].xml"};

QByteArray headOf(const char* element) {
    return QByteArray(head).replace("%1", element);
}

/// Where the range of a comment begins or ends.
struct Boundary {
    int position;
    bool isStart;
    int comment;
};

/// The nearest position outside of a character of two units.
int clear(const QString& text, int position, int step) {
    const bool inside = position > 0 && position < text.size() && text.at(position).isLowSurrogate() &&
                        text.at(position - 1).isHighSurrogate();
    return inside ? position + step : position;
}

/// In the order in which they are written: at one place ranges end before others begin.
QVector<Boundary> boundaries(const QString& text, const QVector<DocxComment>& comments) {
    QVector<Boundary> all;
    for (int i = 0; i < comments.size(); ++i) {
        const DocxComment& comment = comments.at(i);
        const int start = clear(text, qBound(0, comment.start, text.size()), -1);
        const int end = clear(text, qBound(start, comment.start + comment.length, text.size()), 1);
        if (start < end)
            all << Boundary{start, true, i} << Boundary{end, false, i};
    }
    std::stable_sort(all.begin(), all.end(), [](const Boundary& a, const Boundary& b) {
        return a.position != b.position ? a.position < b.position : !a.isStart && b.isStart;
    });
    return all;
}

}  // namespace

DocxDocument::DocxDocument() : m_document(headOf("document") + "<w:body>"), m_comments(headOf("comments")) {}

void DocxDocument::addHeading(const char* style, const QString& text) {
    m_document += QByteArray("<w:p><w:pPr><w:pStyle w:val=\"") + style + "\"/></w:pPr>";
    docx::appendRun(m_document, text, 0);
    m_document += "</w:p>";
}

void DocxDocument::addSourceHeading(const QString& title) {
    addHeading("Heading1", title);
}

void DocxDocument::addQuestionHeading(const QString& question) {
    addHeading("Heading2", question);
}

void DocxDocument::addText(const MarkedText& text, const QVector<DocxComment>& comments) {
    m_document += "<w:p>";
    if (text.plain().isEmpty())
        docx::appendRun(m_document, QStringLiteral("-- NO ANSWER --"), 0);
    else
        addRuns(text, comments);
    m_document += "</w:p>";
}

void DocxDocument::addRuns(const MarkedText& text, const QVector<DocxComment>& comments) {
    int written = 0;
    const auto writeTo = [&](int end) {
        text.visit(written, end, [&](int from, int to, quint8 marks) {
            docx::appendRuns(m_document, text.plain().mid(from, to - from), marks);
        });
        written = end;
    };
    const int firstId = m_nextId;
    for (const Boundary& boundary : boundaries(text.plain(), comments)) {
        writeTo(boundary.position);
        const int id = firstId + boundary.comment;
        const QByteArray idAttribute = " w:id=\"" + QByteArray::number(id) + "\"/>";
        if (boundary.isStart) {
            m_document += "<w:commentRangeStart" + idAttribute;
        } else {
            m_document += "<w:commentRangeEnd" + idAttribute +
                          "<w:r><w:rPr><w:rStyle w:val=\"CommentReference\"/></w:rPr><w:commentReference" +
                          idAttribute + "</w:r>";
            addComment(id, comments.at(boundary.comment));
        }
    }
    writeTo(text.plain().size());
    m_nextId += comments.size();
}

void DocxDocument::addComment(int id, const DocxComment& comment) {
    m_comments += "<w:comment w:id=\"" + QByteArray::number(id) + "\" w:author=\"" +
                  docx::escaped(comment.title + QLatin1String(": ") + comment.author) + '"';
    if (comment.time.isValid())
        m_comments += " w:date=\"" +
                      comment.time.toUTC().toString(QStringLiteral("yyyy-MM-ddThh:mm:ssZ")).toLatin1() + '"';
    m_comments += " w:initials=\"\"><w:p><w:pPr><w:pStyle w:val=\"CommentText\"/></w:pPr><w:r><w:rPr>"
                  "<w:rStyle w:val=\"CommentReference\"/></w:rPr><w:annotationRef/></w:r><w:r>";
    docx::appendText(
        m_comments,
        QCoreApplication::translate("DocxDocument", "%1 by %2").arg(comment.title, comment.author));
    m_comments += "</w:r></w:p></w:comment>";
}

QVector<ZipEntry> DocxDocument::finish() {
    Q_INIT_RESOURCE(docx);
    m_document += "</w:body></w:document>";
    m_comments += "</w:comments>";
    QVector<ZipEntry> entries;
    for (const char* folder : folders)
        entries << ZipEntry{QString::fromLatin1(folder), {}};
    for (const char* part : fixedParts) {
        QFile file(QStringLiteral(":/docx/BASE/") + QLatin1String(part));
        const bool opened = file.open(QIODevice::ReadOnly);
        Q_ASSERT(opened);
        entries << ZipEntry{QString::fromLatin1(part), opened ? file.readAll() : QByteArray()};
    }
    entries << ZipEntry{QStringLiteral("word/comments.xml"), std::move(m_comments)}
            << ZipEntry{QStringLiteral("word/document.xml"), std::move(m_document)};
    return entries;
}
