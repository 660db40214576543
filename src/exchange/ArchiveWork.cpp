#include "exchange/ArchiveWork.h"

#include "exchange/QDPXExporter.h"
#include "exchange/QDPXImporter.h"
#include "link/DataHelper.h"
#include "merge/ProgressPart.h"
#include "merge/RunAside.h"
#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#include <QJsonArray>

namespace archive {

namespace {

constexpr int refused = 400;
/// The share of reading in the whole work, in percent, and where the service begins to store.
constexpr int readingShare = 45;
constexpr int storedShare = 60;
/// The share of reading the open project in its export.
constexpr int loadingShare = 20;

const QString keyName = QStringLiteral("name");

bool canBeReplaced(const DataHelper& helper, const QString& path) {
    const QFileInfo target(path);
    if (!target.exists())
        return true;
    const QFileInfo open(helper.currentProject().value(keyName).toString());
    return target.isFile() && target.isWritable() && QFileInfo(target.path()).isWritable() &&
           !(helper.isOpen() && open == target);
}

}  // namespace

Message import(DataHelper& helper, const QString& file, const QJsonObject& target,
               const QDPXImportOptions& options, const QString& password, const Progress& progress) {
    const QString path = target.value(keyName).toString();
    const bool local = !helper.isRemote();
    const bool isNew = local && !QFileInfo::exists(path);
    if (local && !canBeReplaced(helper, path)) {
        qDebug() << path << " already exists and cannot be removed!";
        return {
            refused, false, QCoreApplication::translate("QDPXImporter", "Unable to overwrite project."), {}};
    }
    const QDPXImporter::Result result = runAside(
        [&] { return QDPXImporter(options).importProject(file, progressPart(progress, 0, readingShare)); });
    if (!result.project)
        return {result.error.isEmpty() ? 0 : refused, false, result.error, {}};
    Message message =
        result.project->save(helper, target, password, progressPart(progress, readingShare, storedShare));
    // While the service stores nothing can be taken back; what it has made new can.
    if (message.status && isNew && !goesOn(progress, storedShare, 100)) {
        QFile::remove(path);
        return {0, false, {}, {}};
    }
    if (message.status)
        message.json.insert(QStringLiteral("skipped"),
                            QJsonArray::fromVariantList(result.skipped.toVariantList()));
    return message;
}

bool exportOpen(KRNFile& project, const QString& file, ExchangeForm form, const Progress& progress) {
    Project whole({});
    if (!project.waitForTexts() || !whole.loadFrom(project, progressPart(progress, 0, loadingShare)))
        return false;
    const QString author = project.getCurrentAuthor();
    return runAside([&] {
        return QDPXExporter(form, author)
            .exportProject(whole, file, progressPart(progress, loadingShare, 100));
    });
}

}  // namespace archive
