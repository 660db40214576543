#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/ServiceConfig.h"
#include "wire/AccessLevel.h"

#include <QDebug>

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

    const ReplyBase reply = ask(wire::openProject(name, uuid));
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
    const ReplyBase reply = ask(wire::closeProject());
    const QJsonObject closed = reply.data().value(wire::name::dbClose).toObject();
    qDebug() << "DB CLOSE" << closed.value(keyStatus).toString();
    if (!answersForNoProject(closed))
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
        openProject(project);
    emit wsConnected();
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
