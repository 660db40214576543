#include "exchange/QDPXExporter.h"

#include "exchange/QDPXDocument.h"
#include "exchange/ZipFolder.h"
#include "merge/ProgressPart.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

const QString documentName = QStringLiteral("project.qde");
const QString textFolder = QStringLiteral("sources");
/// The share of the document in the whole work, in percent.
constexpr int documentShare = 40;

}  // namespace

QString QDPXExporter::withSuffix(const QString& path) {
    const QString suffix = QStringLiteral(".qdpx");
    return path.toLower().endsWith(suffix) ? path : path + suffix;
}

bool QDPXExporter::exportProject(Project& project, const QString& outputFile,
                                 const Progress& progress) const {
    // Anything but a file, such as a device, would be replaced by one.
    const QFileInfo target(outputFile);
    if (target.exists() && (!target.isFile() || !target.isWritable())) {
        qDebug() << outputFile << " already exists and cannot be removed!";
        return false;
    }
    const QString stamp = QString::number(QDateTime::currentMSecsSinceEpoch());
    QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/Kernova_") + stamp +
                         QStringLiteral("_qdpx_XXXXXX"));
    qDebug() << folder.path();
    QDir texts(folder.filePath(textFolder));
    QFile file(folder.filePath(documentName));
    if (!folder.isValid() || !texts.mkpath(QStringLiteral(".")) || !file.open(QIODevice::WriteOnly))
        return false;
    QDPXDocument document(project.records(), {m_form, project.key(), project.name(), m_author});
    if (!document.write(file, texts, progressPart(progress, 0, documentShare)) || !file.flush())
        return false;
    file.close();
    QStringList files{documentName};
    for (const QString& name : document.textFiles())
        files << textFolder + QLatin1Char('/') + name;
    return zipFolder(folder.path(), files, {textFolder}, target.absoluteFilePath(),
                     progressPart(progress, documentShare, 100));
}
