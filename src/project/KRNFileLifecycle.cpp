#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "models/ChatModel.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"
#include "project/ProjectModels.h"
#include "project/ProjectPreferences.h"
#include "records/SimpleCipher.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <algorithm>

namespace {

constexpr int dbVersion = 5;
constexpr int cloudVersion = 1;
constexpr int unknownFileType = -1;

template <typename Model> void empty(Model* model) {
    if (model)
        model->setData({});
}

}  // namespace

bool KRNFile::openProject(const QJsonObject& project, bool createNew, const QString& password,
                          bool singleQuestion, bool ignoreLock) {
    qDebug() << "open project" << project.value(QStringLiteral("name")).toString()
             << project.value(QStringLiteral("project_uuid")).toString() << "new:" << createNew;
    m_lastError.clear();
    // A lost link leaves this client's mark on the project.
    const bool isMarked = m_holdsLock && !isOpened() && project == currentProject();
    m_passwordHash.clear();
    m_cipher->clearKey();
    if (!m_dataHelper->isConnected()) {
        m_lastError = tr("Unable to connect to the server, please try again later!");
        return false;
    }
    if (isOpened()) {
        close();
        settle(m_timings.closeSettle);
    }
    m_holdsLock = isMarked;
    bool exists = false;
    if (!prepareFile(project, createNew, exists))
        return false;
    if (!m_dataHelper->openProject(project)) {
        m_lastError = tr("Unable to open project.");
        return false;
    }
    m_hasProject = true;
    if (!acquirePassword(password, exists))
        return failOpen(m_lastError);
    IdManager::instance()->init(true, dataHelper());
    if (!(createNew ? createContents(singleQuestion) : readContents()))
        return failOpen(m_lastError);
    if (!ignoreLock && !isMarked && !acquireLock())
        return failOpen({});
    settle(m_timings.settle);
    QList<Kerno> kernos;
    if (!m_dataHelper->findAll(kernos) || !readLists() || !isOpened())
        return failOpen(tr("Unable to open project."));
    if (m_models->kernos)
        m_models->kernos->setData(kernos);
    emit canMutateChanged();
    emit fileOpened();
    return true;
}

// Tells whether the project already holds data, and removes a local file that is to be replaced.
bool KRNFile::prepareFile(const QJsonObject& project, bool createNew, bool& exists) {
    if (m_dataHelper->isRemote()) {
        exists = !createNew;
        return true;
    }
    QFile file(project.value(QStringLiteral("name")).toString());
    exists = !createNew;
    if (!createNew && !file.exists()) {
        m_lastError = DataHelper::missingFile(file.fileName());
        return false;
    }
    if (!createNew || !file.exists() || file.remove())
        return true;
    qDebug() << "failed to remove" << file.fileName();
    m_lastError = tr("Failed to overwrite existing file!");
    settle(m_timings.settle);
    return false;
}

bool KRNFile::createContents(bool singleQuestion) {
    savePreference(preference::dbVersion, dbVersion);
    const bool versionSaved = savePreference(preference::cloudVersion, cloudVersion);
    const bool typeSaved = savePreference(preference::singleQuestion, singleQuestion ? 1 : 0);
    if (!versionSaved || !typeSaved) {
        m_lastError = tr("Failed to save file type (free flow/multiple question).");
        return false;
    }
    const Question first(IdManager::instance()->nextQuestionId(), QString(), 1);
    const int id = saveQuestion(first);
    if (id <= 0) {
        m_lastError = tr("Failed to save free flow question.");
        return false;
    }
    setSingleQuestionMode(singleQuestion);
    return true;
}

bool KRNFile::readContents() {
    const int type = getPreference(preference::singleQuestion, unknownFileType).toInt();
    // A reader leaves no trace.
    if (canMutate() && getPreference(preference::cloudVersion, 0).toInt() != cloudVersion)
        savePreference(preference::cloudVersion, cloudVersion);
    if (type == unknownFileType) {
        m_lastError = tr("Failed to read file type (free flow/multiple question).");
        return false;
    }
    setSingleQuestionMode(type != 0);
    return true;
}

// A list that can't be read must not pass for an empty one: what is missing would be made anew.
bool KRNFile::readLists() {
    const ProjectModels& m = *m_models;
    const std::initializer_list<IModelListBase*> models{m.metadataKeys, m.metadataValues, m.metadata,
                                                        m.questions,    m.sources,        m.kernoGroups,
                                                        m.groups,       m.shortcutKeys,   m.chat};
    return std::all_of(models.begin(), models.end(),
                       [](IModelListBase* model) { return !model || model->readAhead(); });
}

void KRNFile::setSingleQuestionMode(bool singleQuestion) {
    m_singleQuestion = singleQuestion;
    emit singleQuestionModeChanged();
}

bool KRNFile::failOpen(const QString& error) {
    m_lastError = error;
    close();
    settle(m_timings.settle);
    return false;
}

bool KRNFile::acquireLock() {
    if (getPreference(preference::openLock, false).toBool())
        return askWhetherToOpen();
    m_holdsLock = canMutate() && savePreference(preference::openLock, true);
    return true;
}

bool KRNFile::askWhetherToOpen() {
    m_confirmOpen = false;
    QEventLoop loop;
    m_confirmLoop = &loop;
    m_awaitingConfirmation = true;
    emit awaitingOpenConfirmationChanged();
    // The answer may have come with the signal itself.
    if (m_confirmLoop)
        loop.exec();
    m_confirmLoop = nullptr;
    m_awaitingConfirmation = false;
    emit awaitingOpenConfirmationChanged();
    if (m_confirmOpen)
        m_holdsLock = true;
    return m_confirmOpen;
}

void KRNFile::confirmOpenAlreadyOpenedFile(bool shouldOpen) {
    if (!m_confirmLoop)
        return;
    m_confirmOpen = shouldOpen;
    m_confirmLoop->quit();
    m_confirmLoop = nullptr;
}

void KRNFile::settle(int milliseconds) {
    emit isOpenedChanged();
    emit isOwnerChanged();
    emit sourcesChanged();
    emit kernosUpdated();
    emit metadataUpdated(false, QVariant());
    emit highlightsUpdated(-1, -1);
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void KRNFile::close() {
    if (m_holdsLock) {
        m_holdsLock = false;
        savePreference(preference::openLock, false);
    }
    if (m_dataHelper->closeProject())
        leaveProject();
}

// A project that isn't followed by another: the properties tell that it is gone.
void KRNFile::leaveProject() {
    const bool hadProject = m_hasProject;
    reset();
    if (!hadProject)
        return;
    emit isOpenedChanged();
    emit isOwnerChanged();
    emit canMutateChanged();
}

void KRNFile::closeAndReset() {
    close();
    m_dataHelper->disconnect();
}

void KRNFile::reset() {
    m_hasProject = false;
    m_holdsLock = false;
    m_shownGroups.clear();
    if (QCoreApplication::closingDown())
        return;
    emit fileClosed();
    empty(m_models->kernos);
    empty(m_models->sources);
    empty(m_models->questions);
    empty(m_models->answers);
    empty(m_models->metadataKeys);
    empty(m_models->metadataValues);
    empty(m_models->metadata);
    empty(m_models->groups);
    empty(m_models->kernoGroups);
    empty(m_models->shortcutKeys);
    empty(m_models->chat);
    onConnectionCountChanged(0);
    IdManager::instance()->init(false, dataHelper());
}

bool KRNFile::isOpened() const {
    return m_dataHelper->isOpen();
}

bool KRNFile::isOwner() const {
    return m_dataHelper->isOwner();
}

bool KRNFile::canMutate(bool notify) const {
    return m_dataHelper->canMutate(notify);
}

QJsonObject KRNFile::currentProject() const {
    return m_dataHelper->currentProject();
}
