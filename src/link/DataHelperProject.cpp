#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/ServiceConfig.h"
#include "wire/AccessLevel.h"

#include <QDebug>
#include <QDir>
#include <QFile>

namespace {

const QString keyName = QStringLiteral("name");
const QString keyUuid = QStringLiteral("uuid");
const QString keyProjectUuid = QStringLiteral("project_uuid");
const QString keyRegion = QStringLiteral("region");
const QString keyStatus = QStringLiteral("status");
const QString keyAccess = QStringLiteral("access");

bool answersForProject(const QJsonObject& reply, const QString& name, const QString& uuid) {
    const QString repliedUuid = reply.value(keyUuid).toString();
    return reply.value(keyName).toString() == name && (repliedUuid == uuid || repliedUuid == wire::nullUuid);
}

bool answersForNoProject(const QJsonObject& reply) {
    const QJsonValue name = reply.value(keyName);
    return name.isString() && name.toString().isEmpty() && reply.value(keyUuid).toString() == wire::nullUuid;
}

}  // namespace

bool DataHelper::openProject(const QJsonObject& project) {
    QMutexLocker locker(&m_mutex);
    if (m_isOpen)
        closeProject();
    const QString name = project.value(keyName).toString();
    const QString uuid = project.value(keyProjectUuid).toString();
    switchRegion(project.value(keyRegion).toString());
    // Without a link the request could only wait for its whole bound.
    if (!m_connection->isConnected() && !m_connection->connect(m_connection->isRemote()))
        return false;

    const ReplyBase reply = m_connection->request(wire::openProject(name, uuid));
    const QJsonObject opened = reply.data().value(wire::name::dbOpen).toObject();
    const QString status = opened.value(keyStatus).toString();
    const QString access = opened.value(keyAccess).toString();
    qDebug() << "DB OPEN" << status << access;
    if (!answersForProject(opened, name, uuid))
        return false;
    m_currentProject = project;
    m_access = access;
    m_isOpen = status == wire::statusOpen;
    qDebug() << "access" << m_access;
    return true;
}

void DataHelper::switchRegion(const QString& region) {
    ServiceConfig& config = ServiceConfig::instance();
    if (!m_connection->isRemote() || region == config.region())
        return;
    qDebug() << "change region" << config.region() << region;
    if (!region.isEmpty())
        config.setRegion(region);
    m_connection->connect(true);
}

bool DataHelper::closeProject() {
    QMutexLocker locker(&m_mutex);
    qDebug() << "closeProject" << m_isOpen;
    if (!m_isOpen)
        return true;
    // With the link the service has lost this client; a request could only wait for its whole bound.
    if (!m_connection->isConnected()) {
        forgetProject();
        return true;
    }
    const ReplyBase reply = m_connection->request(wire::closeProject());
    const QJsonObject closed = reply.data().value(wire::name::dbClose).toObject();
    qDebug() << "DB CLOSE" << closed.value(keyStatus).toString();
    if (!answersForNoProject(closed) && m_connection->isConnected())
        return false;
    forgetProject();
    return true;
}

void DataHelper::forgetProject() {
    m_currentProject = {};
    m_isOpen = false;
    m_access.clear();
}

void DataHelper::disconnect() {
    m_connection->disconnect(true);
}

void DataHelper::onReconnected() {
    const QJsonObject project = currentProject();
    if (!project.isEmpty())
        reopen(project);
    emit wsConnected();
}

// Opening a file that isn't there would make an empty one, and what people write would go there.
void DataHelper::reopen(const QJsonObject& project) {
    const QString name = project.value(keyName).toString();
    const bool isMissing = !isRemote() && !QFile::exists(name);
    if (!isMissing)
        openProject(project);
    // Whatever becomes of a project in the cloud, or of a link that has fallen again: the next link tries
    // anew.
    if (m_isOpen || isRemote() || !isConnected())
        return;
    {
        QMutexLocker locker(&m_mutex);
        forgetProject();
    }
    emit reopenFailed(isMissing ? missingFile(name)
                                : tr("The project %1 could not be opened again. Please open it anew.")
                                      .arg(QDir::toNativeSeparators(name)));
}

QString DataHelper::missingFile(const QString& path) {
    return tr("There is no project file at %1 any more. Has it been renamed, moved or removed?")
        .arg(QDir::toNativeSeparators(path));
}

void DataHelper::onAccessChanged(const QString& newAccess) {
    QMutexLocker locker(&m_mutex);
    if (newAccess == accessLevelName(AccessLevel::Revoked)) {
        forgetProject();
        emit accessRevoked();
        return;
    }
    m_access = newAccess;
    emit accessChanged(m_access);
}
