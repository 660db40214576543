#include "SampleFiles.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <zip.h>

namespace samples {

namespace {

const QByteArray contentTypes =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"><Default Extension="xml" ContentType="application/xml"/><Override PartName="/%1" ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"/></Types>)";

// Each UTF-16 unit as a word processor writes it for readers old and new.
QByteArray rtfText(const QString& text) {
    QByteArray rtf;
    for (const QChar unit : text) {
        switch (unit.unicode()) {
        case u'\n':
            rtf += "\\par\r\n";
            break;
        case u'\t':
            rtf += "\\tab ";
            break;
        case u'\f':
            rtf += "\\page ";
            break;
        case u'\\':
        case u'{':
        case u'}':
            rtf += '\\' + QByteArray(1, unit.toLatin1());
            break;
        default:
            if (unit.unicode() < 0x80)
                rtf += unit.toLatin1();
            else
                rtf += "\\u" + QByteArray::number(static_cast<qint16>(unit.unicode())) + "\\'3f";
        }
    }
    return rtf;
}

QByteArray docxText(const QString& text) {
    QString xml = text.toHtmlEscaped();
    xml.replace(QLatin1Char('\t'), QLatin1String("</w:t><w:tab/><w:t xml:space=\"preserve\">"));
    xml.replace(QLatin1Char('\n'), QLatin1String("</w:t><w:br/><w:t xml:space=\"preserve\">"));
    xml.replace(QLatin1Char('\f'),
                QLatin1String("</w:t><w:br w:type=\"page\"/><w:t xml:space=\"preserve\">"));
    return "<w:p><w:r><w:t xml:space=\"preserve\">" + xml.toUtf8() + "</w:t></w:r></w:p>";
}

// A PDF's objects one after another, with the table that finds them.
class PdfWriter {
public:
    int add(const QByteArray& object) {
        m_offsets << m_bytes.size();
        m_bytes += QByteArray::number(m_offsets.size()) + " 0 obj\n" + object + "\nendobj\n";
        return m_offsets.size();
    }
    int addStream(const QByteArray& bytes) {
        return add("<< /Length " + QByteArray::number(bytes.size()) + " >>\nstream\n" + bytes +
                   "\nendstream");
    }
    QByteArray finished(int root, const QByteArray& trailer) const {
        QByteArray bytes =
            m_bytes + "xref\n0 " + QByteArray::number(m_offsets.size() + 1) + "\n0000000000 65535 f \n";
        for (const int offset : m_offsets)
            bytes += QByteArray::number(offset).rightJustified(10, '0') + " 00000 n \n";
        return bytes + "trailer\n<< /Size " + QByteArray::number(m_offsets.size() + 1) + " /Root " +
               QByteArray::number(root) + " 0 R " + trailer + " >>\nstartxref\n" +
               QByteArray::number(m_bytes.size()) + "\n%%EOF\n";
    }

private:
    QByteArray m_bytes = "%PDF-1.4\n";
    QVector<int> m_offsets;
};

QByteArray hex(quint32 number) {
    return QByteArray::number(number, 16).rightJustified(4, '0');
}

// The characters of a text have the codes 1, 2, ... in a font of its own, whose map tells what they are.
QByteArray unicodeMap(const QVector<uint>& characters) {
    QByteArray map = "/CIDInit /ProcSet findresource begin 12 dict begin begincmap\n/CMapName /Map def\n"
                     "1 begincodespacerange <0000> <FFFF> endcodespacerange\n";
    for (int i = 0; i < characters.size(); ++i) {
        const uint point = characters.at(i);
        map += "1 beginbfchar <" + hex(static_cast<quint32>(i + 1)) + "> <" +
               (QChar::requiresSurrogates(point)
                    ? hex(QChar::highSurrogate(point)) + hex(QChar::lowSurrogate(point))
                    : hex(point)) +
               "> endbfchar\n";
    }
    return map + "endcmap end end\n";
}

}  // namespace

QByteArray zip(const QVector<QPair<QByteArray, QByteArray>>& entries) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.zip"));
    int error = 0;
    zip_t* const archive = zip_open(path.toLocal8Bit().constData(), ZIP_CREATE, &error);
    for (const auto& entry : entries) {
        zip_source_t* const source = zip_source_buffer(archive, entry.second.constData(),
                                                       static_cast<zip_uint64_t>(entry.second.size()), 0);
        zip_file_add(archive, entry.first.constData(), source, ZIP_FL_ENC_UTF_8);
    }
    if (!archive || zip_close(archive) != 0)
        qFatal("cannot write the archive of the test");
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

QByteArray docxOfPart(const QByteArray& xml, const QByteArray& path) {
    return zip({{"[Content_Types].xml", QByteArray(contentTypes).replace("%1", path)}, {path, xml}});
}

QByteArray docxOfBody(const QByteArray& body) {
    return docxOfPart("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<w:document xmlns:w=\""
                      "http://schemas.openxmlformats.org/wordprocessingml/2006/main\"><w:body>" +
                      body + "</w:body></w:document>");
}

QByteArray rtfOfBody(const QByteArray& body) {
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Times New Roman;}"
           "{\\f1\\fnil\\fcharset204 Arial Cyr;}{\\f2\\fnil\\fcharset128 MS Mincho;}{\\f3\\fnil Own;}}\r\n"
           "{\\colortbl;\\red0\\green0\\blue0;}{\\stylesheet{\\s0 Normal;}}{\\info{\\title Not text}}"
           "{\\*\\generator A writer;}\\viewkind4\\uc1\\pard\\plain\\f0\\fs24 " +
           body + "}";
}

QByteArray pdf(const QStringList& pages, const QByteArray& trailer) {
    QVector<uint> characters;
    for (const QString& page : pages) {
        const QVector<uint> points = page.toUcs4();
        for (const uint point : points) {
            if (!characters.contains(point))
                characters << point;
        }
    }
    PdfWriter writer;
    const QByteArray map = QByteArray::number(writer.addStream(unicodeMap(characters)));
    const QByteArray descendant = QByteArray::number(writer.add(
        "<< /Type /Font /Subtype /CIDFontType2 /BaseFont /Sans /DW 600 /CIDSystemInfo << /Registry "
        "(Adobe) /Ordering (Identity) /Supplement 0 >> >>"));
    const QByteArray font = QByteArray::number(
        writer.add("<< /Type /Font /Subtype /Type0 /BaseFont /Sans /Encoding /Identity-H /DescendantFonts [" +
                   descendant + " 0 R] /ToUnicode " + map + " 0 R >>"));
    // The pages' parent comes after them: each page is a stream and a page object.
    const QByteArray parent = QByteArray::number(font.toInt() + 2 * pages.size() + 1);
    QByteArray kids;
    for (const QString& page : pages) {
        QByteArray content = "BT /F 12 Tf 50 780 Td 14 TL\n";
        const QStringList lines = page.split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            content += '<';
            const QVector<uint> points = line.toUcs4();
            for (const uint point : points)
                content += hex(static_cast<quint32>(characters.indexOf(point) + 1));
            content += "> Tj T*\n";
        }
        content += page.isEmpty() ? QByteArray("ET 50 50 300 300 re f") : QByteArray("ET");
        const QByteArray stream = QByteArray::number(writer.addStream(content));
        kids += QByteArray::number(writer.add("<< /Type /Page /Parent " + parent +
                                              " 0 R /MediaBox [0 0 595 842] /Resources << /Font << /F " +
                                              font + " 0 R >> >> /Contents " + stream + " 0 R >>")) +
                " 0 R ";
    }
    const int tree =
        writer.add("<< /Type /Pages /Count " + QByteArray::number(pages.size()) + " /Kids [" + kids + "] >>");
    return writer.finished(writer.add("<< /Type /Catalog /Pages " + QByteArray::number(tree) + " 0 R >>"),
                           trailer);
}

QByteArray file(const QString& suffix, const QString& text) {
    if (suffix == QLatin1String("rtf"))
        return rtfOfBody(rtfText(text));
    if (suffix == QLatin1String("docx"))
        return docxOfBody(docxText(text));
    if (suffix == QLatin1String("pdf"))
        return pdf({text});
    return text.toUtf8();
}

}  // namespace samples
