#include "import/DOCXTextExtractor.h"

#include "import/ImportLog.h"
#include "import/archive/SafeXmlReader.h"
#include "import/archive/ZipArchive.h"
#include "records/RichTextFragment.h"

namespace {

const QString contentTypes = QStringLiteral("[Content_Types].xml");
const QString contentTypesNamespace =
    QStringLiteral("http://schemas.openxmlformats.org/package/2006/content-types");
const QString mainDocumentType =
    QStringLiteral("application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml");

// Far more than the longest transcript; reading takes several times as much memory.
constexpr qint64 mostPartBytes = qint64(32) << 20;

/// The path of the main document inside the archive; empty when the list of parts names none, or is broken.
QString mainPart(const QByteArray& listOfParts) {
    SafeXmlReader xml(QString::fromUtf8(listOfParts));
    const auto stands = [&xml](const char* name) {
        return xml.name() == QLatin1String(name) && xml.namespaceUri() == contentTypesNamespace;
    };
    QStringList paths;
    if (xml.readNextStartElement() && stands("Types")) {
        while (xml.readNextStartElement()) {
            const QXmlStreamAttributes attributes = xml.attributes();
            if (stands("Override") && attributes.value(QLatin1String("ContentType")) == mainDocumentType)
                paths << attributes.value(QLatin1String("PartName")).toString().trimmed();
            xml.skipCurrentElement();
        }
    }
    // Two main documents are none.
    if (xml.hasError() || paths.size() != 1)
        return {};
    return paths.first().startsWith(QLatin1Char('/')) ? paths.first().mid(1) : paths.first();
}

}  // namespace

QString DOCXTextExtractor::extract() {
    m_text.clear();
    m_pendingEnds.clear();
    if (m_path.isEmpty())
        return {};
    ZipLimits limits;
    limits.entryBytes = mostPartBytes;
    ZipArchive archive(m_path, limits);
    const QString part = mainPart(archive.read(contentTypes));
    const QByteArray document = part.isEmpty() ? QByteArray() : archive.read(part);
    if (document.isEmpty()) {
        qCDebug(logFileImport) << "No document in the archive" << archive.error();
        return {};
    }
    SafeXmlReader xml(QString::fromUtf8(document));
    readPart(xml);
    if (xml.hasError()) {
        qCDebug(logFileImport).noquote() << xml.failure();
        // Nothing could be read: that is no document, rather than an empty one.
        if (m_text.isEmpty())
            return {};
    }
    return richtext::fragment(m_text);
}

void DOCXTextExtractor::readPart(SafeXmlReader& xml) {
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            startElement(xml.name());
            break;
        case QXmlStreamReader::EndElement:
            endElement(xml.name());
            break;
        case QXmlStreamReader::Characters:
            m_text += xml.text();
            break;
        default:
            break;
        }
    }
}

void DOCXTextExtractor::startElement(const QStringRef& name) {
    if (name == QLatin1String("br") || name == QLatin1String("cr")) {
        m_text += QLatin1Char('\n');
    } else if (name == QLatin1String("tab")) {
        m_text += QLatin1Char('\t');
    } else if (name == QLatin1String("b") || name == QLatin1String("i") || name == QLatin1String("u")) {
        m_text += QLatin1Char('<') + name + QLatin1Char('>');
        m_pendingEnds += QLatin1String("</") + name + QLatin1Char('>');
    }
}

void DOCXTextExtractor::endElement(const QStringRef& name) {
    if (name == QLatin1String("p")) {
        m_text += QLatin1String("\n\n");
    } else if (name == QLatin1String("t")) {
        m_text += m_pendingEnds;
        m_pendingEnds.clear();
    }
}
