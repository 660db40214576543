#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QMutex>
#include <QNetworkRequest>
#include <QString>
#include <QUrl>

/// Where the services are, and the region in use. One object for the process, made on first use. Safe from
/// any thread: the network thread reads it while the main thread may store what a login brought.
class ServiceConfig {
public:
    enum class Service { Auth, Project, Version, DataService, Socket };
    enum class Variant { Test, Staging, Production };

    static ServiceConfig& instance();

    /// Host of the cloud services that this build talks to; empty for a build without a cloud.
    static QString cloudHost();
    static bool hasCloud() { return !cloudHost().isEmpty(); }

    /// Base URL of a service; `host` stands for the cloud host except in the test variant.
    static QString baseUrl(Service service, Variant variant, const QString& host);

    /// A request that carries JSON, with the headers that every call to a service has.
    static QNetworkRequest jsonRequest(const QUrl& url);

    QString region() const;
    void setRegion(const QString& region);
    QString homeRegion() const;
    void setHomeRegion(const QString& region);
    QJsonObject regionalServiceMap() const;
    void setRegionalServiceMap(const QJsonObject& map);

    QUrl loginUrl() const;
    QUrl refreshUrl() const;
    QUrl logoutUrl() const;
    QUrl projectsUrl() const;
    QUrl projectByNameUrl(const QString& name) const;
    QUrl projectUrl(const QString& uuid) const;
    QUrl projectFileUrl(const QString& uuid) const;
    QUrl projectJsonUrl(const QString& uuid) const;
    QUrl saveAsUrl() const;
    QUrl sharedUrl() const;
    QUrl uploadFileUrl() const;
    QUrl uploadJsonUrl() const;
    QUrl versionUrl() const;
    QUrl ticketUrl() const;
    QUrl socketUrl(const QString& ticket) const;

    /// The secret that the local service of this process was given: 64 hexadecimal digits, new in every
    /// process.
    QByteArray serviceToken() const { return m_serviceToken; }

private:
    ServiceConfig();
    QString regionalHost() const;
    QUrl url(Service service, const QString& path) const;

    mutable QMutex m_mutex;  ///< over the three members below
    QString m_region;
    QString m_homeRegion;
    QJsonObject m_regionalServiceMap;
    QByteArray m_serviceToken;
};
