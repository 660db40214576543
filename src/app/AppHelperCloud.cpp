#include "app/AppHelper.h"
#include "app/CloudHost.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/ServiceConfig.h"
#include "project/KRNFile.h"

bool AppHelper::connectToServer(bool remote) {
    return m_krnFile->dataHelper()->connection()->connect(remote);
}

QVariantMap AppHelper::login(const QString& email, const QString& password) {
    return m_krnFile->dataHelper()->login(email, password).toVariantMap();
}

QVariantMap AppHelper::projects() {
    return m_krnFile->dataHelper()->projects().toVariantMap();
}

QVariantMap AppHelper::projectsShared() {
    return m_krnFile->dataHelper()->projectsShared().toVariantMap();
}

QVariantMap AppHelper::createNewProject(const QString& title) {
    return m_krnFile->dataHelper()->createNewProject(title).toVariantMap();
}

QVariantMap AppHelper::removeProject(const QString& uuid) {
    return m_krnFile->dataHelper()->removeProject(uuid).toVariantMap();
}

QVariantMap AppHelper::uploadProject(const QString& path) {
    return m_krnFile->dataHelper()->uploadProject(path).toVariantMap();
}

bool AppHelper::downloadProject(const QString& uuid, const QUrl& file) {
    return m_krnFile->dataHelper()->downloadProject(uuid, file.toLocalFile());
}

QString AppHelper::cloudHost() const {
    return ServiceConfig::instance().cloudHost();
}

bool AppHelper::cloudHostFixed() const {
    return ServiceConfig::instance().hasFixedHost();
}

QString AppHelper::setCloudHost(const QString& host) {
    const QString fault = cloudhost::store(host);
    if (!fault.isEmpty())
        return fault;
    // What one server gave is none of another's.
    m_krnFile->dataHelper()->connection()->setTokens({}, {});
    emit cloudHostChanged();
    return {};
}

QVariantMap AppHelper::testCloudHost(const QString& host) const {
    const cloudhost::Test test = cloudhost::test(host);
    return {{QStringLiteral("passed"), test.passed}, {QStringLiteral("sentence"), test.sentence}};
}
