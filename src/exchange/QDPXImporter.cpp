#include "exchange/QDPXImporter.h"

#include "exchange/QDPXArchive.h"

#include <QCoreApplication>
#include <QDebug>
#include <QTemporaryFile>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("QDPXImporter", text);
}

QDPXImporter::Result failed(const QString& error) {
    return {nullptr, {}, error};
}

}  // namespace

QDPXImporter::Result QDPXImporter::importProject(const QString& archive, const Progress& progress) const {
    QDPXArchive parts(archive);
    if (parts.state() == QDPXArchive::State::Unreadable)
        return failed(tr("The file is not a QDPX archive, or it is damaged."));
    if (parts.state() == QDPXArchive::State::Incomplete)
        return failed(tr("Corrupted file: Extracted directory does not contain qde file or sources folder."));
    QTemporaryFile document;
    if (!document.open() || !parts.unpackDocument(document) || !document.seek(0)) {
        qDebug() << parts.error();
        return failed(tr("The archive cannot be unpacked: it is damaged or too large."));
    }
    QDPXReader reader(parts, document, m_options);
    switch (reader.read(progress)) {
    case QDPXReader::Result::NoProject:
        return failed(tr("Invalid QDPX format."));
    case QDPXReader::Result::Malformed:
        return failed(tr("Error in QDPX parsing."));
    case QDPXReader::Result::Cancelled:
        return failed({});
    case QDPXReader::Result::Read:
        break;
    }
    Result result;
    result.project = std::make_unique<Project>(QJsonObject());
    result.project->records() = std::move(reader.records);
    result.skipped = reader.skipped;
    return result;
}
