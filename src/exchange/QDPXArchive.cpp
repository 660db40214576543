#include "exchange/QDPXArchive.h"

#include <algorithm>

namespace {

const QString internalPrefix = QStringLiteral("internal://");
const QString documentSuffix = QStringLiteral("qde");
const QString sourcesFolder = QStringLiteral("sources/");

// The document of a large project is larger than any of its texts.
ZipLimits limits() {
    ZipLimits limits;
    limits.entryBytes = qint64(512) << 20;
    limits.totalBytes = qint64(2) << 30;
    return limits;
}

bool isPlainName(const QString& name) {
    return !name.isEmpty() && !name.startsWith(QLatin1Char('/')) && !name.contains(QLatin1Char('\\')) &&
           !name.split(QLatin1Char('/')).contains(QStringLiteral(".."));
}

}  // namespace

QDPXArchive::QDPXArchive(const QString& path) : m_zip(path, limits()) {
    if (!m_zip.isOpen())
        return;
    const QStringList names = m_zip.names();
    const auto document = std::find_if(names.cbegin(), names.cend(), [](const QString& name) {
        return name.section(QLatin1Char('.'), -1).toLower() == documentSuffix && isPlainName(name);
    });
    m_state = State::Incomplete;
    if (document == names.cend())
        return;
    m_document = *document;
    const QString base = m_document.left(m_document.lastIndexOf(QLatin1Char('/')) + 1);
    const QString folder = base + sourcesFolder;
    for (const QString& name : names) {
        if (name.size() <= folder.size() || !name.startsWith(folder, Qt::CaseInsensitive) ||
            !isPlainName(name))
            continue;
        m_state = State::Complete;
        m_texts.insert(name.mid(folder.size()), name);
    }
}

QByteArray QDPXArchive::text(const QString& internalPath) {
    if (!internalPath.startsWith(internalPrefix))
        return {};
    const QString entry = m_texts.value(internalPath.mid(internalPrefix.size()));
    return entry.isEmpty() ? QByteArray() : m_zip.read(entry);
}
