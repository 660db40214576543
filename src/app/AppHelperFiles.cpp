#include "app/AppHelper.h"
#include "app/Crop.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QQuickWindow>
#include <QTemporaryDir>

namespace {

QString localPath(const QString& pathOrUrl) {
    return pathOrUrl.startsWith(QLatin1String("file:")) ? QUrl(pathOrUrl).toLocalFile() : pathOrUrl;
}

QString newTemporaryFolder(const QString& nameTemplate) {
    QTemporaryDir folder(QDir::tempPath() + QLatin1Char('/') + nameTemplate);
    folder.setAutoRemove(false);
    return folder.isValid() ? folder.path() : QString();
}

}  // namespace

void AppHelper::grab(QObject* window, const QString& outputFile) {
    auto* const quickWindow = qobject_cast<QQuickWindow*>(window);
    if (!quickWindow)
        return;
    const QImage image = quickWindow->grabWindow();
    QCoreApplication::processEvents();
    const QImage content = cropped(image, Qt::white);
    QCoreApplication::processEvents();
    content.save(localPath(outputFile), "png");
    QCoreApplication::processEvents();
}

bool AppHelper::saveGrabbedItem(QQuickItemGrabResult* grabResult, const QString& outputFile) {
    if (!grabResult || grabResult->image().isNull())
        return false;
    return cropped(grabResult->image(), Qt::transparent).save(localPath(outputFile), "png");
}

bool AppHelper::createPath(const QString& path) const {
    const QString local = QUrl::fromLocalFile(path).toLocalFile();
    return QDir(local).exists() || QDir().mkpath(local);
}

bool AppHelper::isDirectoryWritable(const QString& path) const {
    const QFileInfo info(path);
    return info.isWritable() && info.isDir();
}

bool AppHelper::deleteFolder(const QString& path) const {
    const QString local = localPath(path);
    // An empty path would stand for the current folder.
    return !local.isEmpty() && QDir(local).removeRecursively();
}

QString AppHelper::createReportFolder() const {
    return newTemporaryFolder(QStringLiteral("KernovaReport_XXXXXX"));
}

QString AppHelper::createWordCloudFolder() const {
    return newTemporaryFolder(QStringLiteral("KernovaWordCloud_XXXXXX"));
}
