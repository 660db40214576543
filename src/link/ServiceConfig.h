#pragma once

#include "link/CloudCalls.h"

#include <QByteArray>
#include <QJsonObject>
#include <QMutex>
#include <QNetworkRequest>
#include <QString>
#include <QUrl>

/// Where the services are, and the region in use. One object for the process, made on first use. Safe from
/// any thread: the network thread reads it while the main thread may store what a login brought.
///
/// The cloud's host is known from the environment variable KERNOVA_CLOUD_HOST, else from the settings of this
/// machine, else from the build. It is reached by HTTPS; a plain address is taken for the loopback alone.
class ServiceConfig {
public:
    enum class Service { Auth, Project, Version, DataService, Socket };
    enum class Variant { Test, Staging, Production };

    static ServiceConfig& instance();

    /// "host" or "host:port" for HTTPS, "http://host:port" for a plain address; empty when none is known.
    QString cloudHost() const;
    bool hasCloud() const { return !cloudHost().isEmpty(); }
    /// Whether the environment names the host, so that settings don't matter.
    bool hasFixedHost() const { return !m_environmentHost.isEmpty(); }
    /// What the machine's settings say; empty for nothing.
    QString machineHost() const;
    void setMachineHost(const QString& host);

    /// An address as a person types it, in the form of `cloudHost`. Empty when it is none, or a plain one
    /// outside the loopback; `error` then says so in a sentence.
    static QString readHost(const QString& text, QString* error = nullptr);

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

    static HttpVerb verb(CloudCall call);
    /// The call's address; `argument` is the name or uuid of the project that some calls are about.
    QUrl url(CloudCall call, const QString& argument = {}) const;
    /// The same at another host, in the form of `cloudHost`; not for the ticket, whose host is the region's.
    static QUrl urlAt(const QString& host, CloudCall call, const QString& argument = {});
    QUrl socketUrl(const QString& ticket) const;

    /// The secret that the local service of this process was given: 64 hexadecimal digits, new in every
    /// process.
    QByteArray serviceToken() const { return m_serviceToken; }

private:
    ServiceConfig();
    /// Scheme and host of the region's data service.
    QString regionalOrigin(const QString& scheme) const;

    const QString m_environmentHost;
    mutable QMutex m_mutex;  ///< over the four members below
    QString m_machineHost;
    QString m_region;
    QString m_homeRegion;
    QJsonObject m_regionalServiceMap;
    QByteArray m_serviceToken;
};
