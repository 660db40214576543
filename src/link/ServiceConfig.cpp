#include "link/ServiceConfig.h"

#include <QDebug>
#include <QRandomGenerator>
#include <array>

namespace {

struct EndpointRow {
    ServiceConfig::Service service;
    int testPort;
    QLatin1String testPath;
    int stagingPort;  ///< 0: the scheme's own
    QLatin1String stagingPath;
    QLatin1String productionPath;
};

using Service = ServiceConfig::Service;

const std::array<EndpointRow, 5> endpoints{{
    {Service::Auth, 8000, QLatin1String("/v1"), 0, QLatin1String("/auth"), QLatin1String("/cloud/auth/v1")},
    {Service::Project, 8003, QLatin1String("/v1/projects"), 0, QLatin1String("/projects"),
     QLatin1String("/cloud/project/v1/projects")},
    {Service::Version, 8004, QLatin1String("/version"), 0, QLatin1String("/cloud/version/"),
     QLatin1String("/cloud/version/")},
    {Service::DataService, 8002, QLatin1String("/v1/kernova"), 0, QLatin1String("/v1/kernova"),
     QLatin1String("/cloud/{region}/service/v1/kernova")},
    {Service::Socket, 8002, QLatin1String("/v1/kernova"), 8002, QLatin1String("/v1/kernova"),
     QLatin1String("/cloud/{region}/service/connect")},
}};

QByteArray makeToken() {
    std::array<quint32, 8> words;
    QRandomGenerator::system()->fillRange(words.data(), static_cast<qsizetype>(words.size()));
    return QByteArray(reinterpret_cast<const char*>(words.data()), sizeof words).toHex();
}

QString encoded(const QString& text) {
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

}  // namespace

ServiceConfig& ServiceConfig::instance() {
    static ServiceConfig config;
    return config;
}

ServiceConfig::ServiceConfig() : m_serviceToken(makeToken()) {}

QString ServiceConfig::cloudHost() {
    return QStringLiteral(KERNOVA_CLOUD_HOST);
}

QString ServiceConfig::baseUrl(Service service, Variant variant, const QString& host) {
    const EndpointRow& row = endpoints[static_cast<size_t>(service)];
    Q_ASSERT(row.service == service);
    const QString scheme = QLatin1String(service == Service::Socket ? "ws" : "http");
    switch (variant) {
    case Variant::Test:
        return QStringLiteral("%1://localhost:%2%3").arg(scheme, QString::number(row.testPort), row.testPath);
    case Variant::Staging: {
        const QString port = row.stagingPort == 0 ? QString() : QStringLiteral(":%1").arg(row.stagingPort);
        return scheme + QLatin1String("s://") + host + port + row.stagingPath;
    }
    case Variant::Production:
        break;
    }
    return scheme + QLatin1String("s://") + host + row.productionPath;
}

QNetworkRequest ServiceConfig::jsonRequest(const QUrl& url) {
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("KernovaClient/2.5.3 Windows"));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    return request;
}

QString ServiceConfig::region() const {
    QMutexLocker locker(&m_mutex);
    return m_region;
}

void ServiceConfig::setRegion(const QString& region) {
    QMutexLocker locker(&m_mutex);
    m_region = region;
}

QString ServiceConfig::homeRegion() const {
    QMutexLocker locker(&m_mutex);
    return m_homeRegion;
}

void ServiceConfig::setHomeRegion(const QString& region) {
    QMutexLocker locker(&m_mutex);
    m_homeRegion = region;
}

QJsonObject ServiceConfig::regionalServiceMap() const {
    QMutexLocker locker(&m_mutex);
    return m_regionalServiceMap;
}

void ServiceConfig::setRegionalServiceMap(const QJsonObject& map) {
    qDebug() << "regional service map" << map;
    QMutexLocker locker(&m_mutex);
    m_regionalServiceMap = map;
}

QString ServiceConfig::regionalHost() const {
    QMutexLocker locker(&m_mutex);
    return m_regionalServiceMap.value(m_region.toLower() + QLatin1String("v2")).toString();
}

QUrl ServiceConfig::url(Service service, const QString& path) const {
    return QUrl(baseUrl(service, Variant::Production, cloudHost()) + path);
}

QUrl ServiceConfig::loginUrl() const {
    return url(Service::Auth, QStringLiteral("/login"));
}

QUrl ServiceConfig::refreshUrl() const {
    return url(Service::Auth, QStringLiteral("/refresh"));
}

QUrl ServiceConfig::logoutUrl() const {
    return url(Service::Auth, QStringLiteral("/logout"));
}

QUrl ServiceConfig::projectsUrl() const {
    return url(Service::Project, {});
}

QUrl ServiceConfig::projectByNameUrl(const QString& name) const {
    return url(Service::Project, QLatin1String("?name=") + encoded(name));
}

QUrl ServiceConfig::projectUrl(const QString& uuid) const {
    return url(Service::Project, QLatin1Char('/') + encoded(uuid));
}

QUrl ServiceConfig::projectFileUrl(const QString& uuid) const {
    return url(Service::Project, QLatin1Char('/') + encoded(uuid) + QLatin1String("/file"));
}

QUrl ServiceConfig::projectJsonUrl(const QString& uuid) const {
    return url(Service::Project, QLatin1Char('/') + encoded(uuid) + QLatin1String("/json"));
}

QUrl ServiceConfig::saveAsUrl() const {
    return url(Service::Project, QStringLiteral("/saveas"));
}

QUrl ServiceConfig::sharedUrl() const {
    return url(Service::Project, QStringLiteral("/share"));
}

QUrl ServiceConfig::uploadFileUrl() const {
    return url(Service::Project, QStringLiteral("/file"));
}

QUrl ServiceConfig::uploadJsonUrl() const {
    return url(Service::Project, QStringLiteral("/json"));
}

QUrl ServiceConfig::versionUrl() const {
    return url(Service::Version, {});
}

QUrl ServiceConfig::ticketUrl() const {
    return QUrl(QLatin1String("https://") + regionalHost() + QLatin1String("/v1/kernova/ticket"));
}

QUrl ServiceConfig::socketUrl(const QString& ticket) const {
    return QUrl(QLatin1String("wss://") + regionalHost() + QLatin1String("/v1/kernova?ticket=") +
                encoded(ticket));
}
