#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "project/FileCopies.h"
#include "project/ProjectPreferences.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>

namespace {

const QString keyName = QStringLiteral("name");

}  // namespace

void KRNFile::awaitStored() const {
    getPreference(preference::dbVersion);
}

bool KRNFile::makeBackup(const QUrl& project) {
    awaitStored();
    return copies::replaceBackup(project.toLocalFile());
}

bool KRNFile::saveAs(const QString& outputFile) {
    if (!isOpened())
        return false;
    const QString current = currentProject().value(keyName).toString();
    const QString target = copies::withProjectSuffix(outputFile);
    if (QFileInfo(target) == QFileInfo(current)) {
        qDebug() << "Attempted to overwrite itself! Aborting 'save as' op.";
        return false;
    }
    awaitStored();
    if (!copies::replace(current, target)) {
        qDebug() << "Failed to copy opened KRN file to save as" << target;
        m_lastError = tr("The project could not be copied to %1. It stays open where it was.")
                          .arg(QDir::toNativeSeparators(target));
        return false;
    }
    close();
    const QJsonObject project{{keyName, target}, {QStringLiteral("project_uuid"), QString()}};
    return openProject(project, false, QString(), m_singleQuestion, true);
}

QVariantList KRNFile::saveAsRemote(const QString& newName) {
    if (!isOpened())
        return {false, tr("Original file is not open.")};
    const Message copied = m_dataHelper->saveAs(newName);
    if (!copied.status)
        return {false, copied.message};
    close();
    const QJsonObject project = copied.json.value(QStringLiteral("project")).toObject();
    if (openProject(project, false, QString(), m_singleQuestion, true))
        return {true, QString()};
    return {false, tr("Unable to open new project.")};
}
