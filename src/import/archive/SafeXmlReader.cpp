#include "import/archive/SafeXmlReader.h"

QXmlStreamReader::TokenType SafeXmlReader::readNext() {
    switch (QXmlStreamReader::readNext()) {
    case DTD:
        raiseError(QStringLiteral("A document type declaration is not allowed."));
        break;
    case StartElement:
        if (++m_depth > m_limits.depth)
            raiseError(QStringLiteral("The elements nest too deep."));
        break;
    case EndElement:
        --m_depth;
        break;
    default:
        break;
    }
    return tokenType();
}

bool SafeXmlReader::readNextStartElement() {
    while (readNext() != Invalid) {
        if (isEndElement() || isEndDocument())
            return false;
        if (isStartElement())
            return true;
    }
    return false;
}

void SafeXmlReader::skipCurrentElement() {
    readElementText();
}

QString SafeXmlReader::readElementText() {
    QString text;
    const int outside = m_depth - 1;
    while (m_depth > outside && readNext() != Invalid) {
        if (isCharacters())
            text += QXmlStreamReader::text();
    }
    return text;
}

QString SafeXmlReader::failure() const {
    if (!hasError())
        return {};
    // Columns count from 1, and a document that is cut off fails after its last character.
    const qint64 column = columnNumber() + (error() == PrematureEndOfDocumentError ? 1 : 0);
    return QStringLiteral("Parse error at line %1, column %2: %3")
        .arg(lineNumber())
        .arg(column)
        .arg(errorString());
}
