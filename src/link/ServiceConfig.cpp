#include "link/ServiceConfig.h"

#include <QCoreApplication>
#include <QDebug>
#include <QHostAddress>
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

struct CallRow {
    CloudCall call;
    HttpVerb verb;
    Service service;
    QLatin1String path;  ///< "%1" stands for the call's argument
};

// Indexed by CloudCall.
const std::array<CallRow, 15> calls{{
    {CloudCall::Login, HttpVerb::Post, Service::Auth, QLatin1String("/login")},
    {CloudCall::Refresh, HttpVerb::Post, Service::Auth, QLatin1String("/refresh")},
    {CloudCall::Logout, HttpVerb::Post, Service::Auth, QLatin1String("/logout")},
    {CloudCall::Ticket, HttpVerb::Get, Service::DataService, QLatin1String("/v1/kernova/ticket")},
    {CloudCall::Version, HttpVerb::Get, Service::Version, QLatin1String("")},
    {CloudCall::Projects, HttpVerb::Get, Service::Project, QLatin1String("")},
    {CloudCall::ProjectsShared, HttpVerb::Get, Service::Project, QLatin1String("/share")},
    {CloudCall::ProjectByName, HttpVerb::Get, Service::Project, QLatin1String("?name=%1")},
    {CloudCall::CreateProject, HttpVerb::Post, Service::Project, QLatin1String("")},
    {CloudCall::RemoveProject, HttpVerb::Delete, Service::Project, QLatin1String("/%1")},
    {CloudCall::SaveAs, HttpVerb::Post, Service::Project, QLatin1String("/saveas")},
    {CloudCall::UploadProject, HttpVerb::Post, Service::Project, QLatin1String("/file")},
    {CloudCall::DownloadProject, HttpVerb::Get, Service::Project, QLatin1String("/%1/file")},
    {CloudCall::ReadProjectJson, HttpVerb::Get, Service::Project, QLatin1String("/%1/json")},
    {CloudCall::WriteProjectJson, HttpVerb::Post, Service::Project, QLatin1String("/json")},
}};

const CallRow& rowOf(CloudCall call) {
    const CallRow& row = calls[static_cast<size_t>(call)];
    Q_ASSERT(row.call == call);
    return row;
}

const QLatin1String plainScheme("http://");

bool isPlain(const QString& host) {
    return host.startsWith(plainScheme);
}

bool isLoopback(const QString& name) {
    return name == QLatin1String("localhost") || QHostAddress(name).isLoopback();
}

// `scheme` is "http" or "ws".
QString origin(const QString& scheme, const QString& host) {
    return isPlain(host) ? scheme + QLatin1String("://") + host.mid(plainScheme.size())
                         : scheme + QLatin1String("s://") + host;
}

QByteArray makeToken() {
    std::array<quint32, 8> words;
    QRandomGenerator::system()->fillRange(words.data(), static_cast<qsizetype>(words.size()));
    return QByteArray(reinterpret_cast<const char*>(words.data()), sizeof words).toHex();
}

QString encoded(const QString& text) {
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

QString path(const CallRow& row, const QString& argument) {
    return QString(row.path).replace(QLatin1String("%1"), encoded(argument));
}

QString tr(const char* text) {
    return QCoreApplication::translate("ServiceConfig", text);
}

}  // namespace

ServiceConfig& ServiceConfig::instance() {
    static ServiceConfig config;
    return config;
}

ServiceConfig::ServiceConfig()
    : m_environmentHost(readHost(qEnvironmentVariable("KERNOVA_CLOUD_HOST"))), m_serviceToken(makeToken()) {}

QString ServiceConfig::cloudHost() const {
    for (const QString& host : {m_environmentHost, machineHost()}) {
        if (!host.isEmpty())
            return host;
    }
    return readHost(QStringLiteral(KERNOVA_CLOUD_HOST));
}

QString ServiceConfig::machineHost() const {
    QMutexLocker locker(&m_mutex);
    return m_machineHost;
}

void ServiceConfig::setMachineHost(const QString& host) {
    QMutexLocker locker(&m_mutex);
    m_machineHost = readHost(host);
}

QString ServiceConfig::readHost(const QString& text, QString* error) {
    QString address = text.trimmed();
    if (!address.contains(QLatin1String("://")))
        address.prepend(QLatin1String("https://"));
    const QUrl url(address, QUrl::StrictMode);
    const bool bare = (url.path().isEmpty() || url.path() == QLatin1String("/")) &&
                      url.userInfo().isEmpty() && !url.hasQuery() && !url.hasFragment();
    const bool plain = url.scheme() == QLatin1String("http");
    QString fault;
    if (!url.isValid() || url.host().isEmpty() || !bare || (!plain && url.scheme() != QLatin1String("https")))
        fault = tr("This is not the address of a server.");
    else if (plain && !isLoopback(url.host()))
        fault = tr("A server that is not on this computer is reached by https only.");
    if (error)
        *error = fault;
    if (!fault.isEmpty())
        return {};
    const QString authority = url.authority(QUrl::FullyEncoded);
    return plain ? plainScheme + authority : authority;
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
        return origin(scheme, host) + port + row.stagingPath;
    }
    case Variant::Production:
        break;
    }
    return origin(scheme, host) + row.productionPath;
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

// A plain cloud, which is one of the loopback, may name data services of the loopback; all others are
// secured.
QString ServiceConfig::regionalOrigin(const QString& scheme) const {
    const QString host = regionalServiceMap().value(region().toLower() + QLatin1String("v2")).toString();
    const bool plain = isPlain(cloudHost()) && isLoopback(QUrl(plainScheme + host).host());
    return origin(scheme, plain ? plainScheme + host : host);
}

HttpVerb ServiceConfig::verb(CloudCall call) {
    return rowOf(call).verb;
}

QUrl ServiceConfig::url(CloudCall call, const QString& argument) const {
    const CallRow& row = rowOf(call);
    return row.service == Service::DataService
               ? QUrl(regionalOrigin(QStringLiteral("http")) + path(row, argument))
               : urlAt(cloudHost(), call, argument);
}

QUrl ServiceConfig::urlAt(const QString& host, CloudCall call, const QString& argument) {
    const CallRow& row = rowOf(call);
    return QUrl(baseUrl(row.service, Variant::Production, host) + path(row, argument));
}

QUrl ServiceConfig::socketUrl(const QString& ticket) const {
    return QUrl(regionalOrigin(QStringLiteral("ws")) + QLatin1String("/v1/kernova?ticket=") +
                encoded(ticket));
}
