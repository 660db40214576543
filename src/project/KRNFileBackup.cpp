#include "project/KRNFile.h"

#include "project/FileCopies.h"
#include "project/ProjectPreferences.h"
#include "link/DataHelper.h"

#include <QDebug>
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
        // Another project may stand under that name: it must not be taken for the copy.
        return failOpen(tr("Unable to open project."));
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
