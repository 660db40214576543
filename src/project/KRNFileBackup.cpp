#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "project/FileCopies.h"
#include "project/ProjectParts.h"
#include "project/ProjectPreferences.h"

#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>

namespace {

const QString keyName = QStringLiteral("name");
const QString keyProjectJson = QStringLiteral("project_json");

QVariantList notOpen() {
    return {false, KRNFile::tr("Original file is not open.")};
}

QVariantList failure(const Message& message) {
    return {false,
            message.message.isEmpty() ? KRNFile::tr("The project could not be written.") : message.message};
}

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
        return notOpen();
    const Message copied = m_dataHelper->saveAs(newName);
    if (!copied.status)
        return {false, copied.message};
    close();
    const QJsonObject project = copied.json.value(QStringLiteral("project")).toObject();
    if (openProject(project, false, QString(), m_singleQuestion, true))
        return {true, QString()};
    return {false, tr("Unable to open new project.")};
}

QVariantList KRNFile::exportKRNSources(const QString& name) {
    return exportPart(name, &projectparts::sourcesOnly);
}

QVariantList KRNFile::exportKRNStructure(const QString& name) {
    return exportPart(name, &projectparts::structureOnly);
}

QVariantList KRNFile::exportPart(const QString& name, QJsonObject (*partOf)(const QJsonObject& project)) {
    if (!isOpened())
        return notOpen();
    const bool local = !m_dataHelper->isRemote();
    const QString target = local ? copies::withProjectSuffix(name) : name;
    if (local && QFileInfo(target) == QFileInfo(currentProject().value(keyName).toString()))
        return {false, tr("A part of the project can't take the place of the project itself.")};
    awaitStored();
    const Message whole = m_dataHelper->exportProjectJson(currentProject());
    if (!whole.status || !whole.json.value(keyProjectJson).isObject())
        return failure(whole);
    const QJsonObject part = partOf(whole.json.value(keyProjectJson).toObject());
    const Message written = m_dataHelper->importProjectJson({{keyName, target}}, part);
    return written.status ? QVariantList{true, QString()} : failure(written);
}

bool KRNFile::exportAsCSV(const QString& outputFolder) {
    if (!isOpened() || !m_tableWriter)
        return false;
    const TablesWritten written = m_tableWriter(*this, outputFolder);
    if (written.files > 0)
        QDesktopServices::openUrl(QUrl::fromLocalFile(outputFolder));
    return written.complete;
}
