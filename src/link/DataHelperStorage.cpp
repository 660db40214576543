#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/ServiceConfig.h"
#include "link/WebSocketHandler.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>

namespace {

constexpr int httpUnauthorized = 401;

const QString keyName = QStringLiteral("name");
const QString keyProjectUuid = QStringLiteral("project_uuid");
const QString localPath = QStringLiteral("/v1/projects/json");

QByteArray compact(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

Message withoutCloud() {
    return {
        0, false, DataHelper::tr("This version of Kernova is built without a cloud. Use local storage."), {}};
}

}  // namespace

Message DataHelper::call(const QNetworkRequest& request, const QByteArray* body) {
    const QNetworkProxy::ProxyType proxy =
        m_connection->isRemote() ? QNetworkProxy::DefaultProxy : QNetworkProxy::NoProxy;
    m_networkAccessManager->setProxy(QNetworkProxy(proxy));
    const std::unique_ptr<QNetworkReply> reply(body ? m_networkAccessManager->post(request, *body)
                                                    : m_networkAccessManager->get(request));
    QEventLoop loop;
    connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    return Message::fromReply(*reply);
}

Message DataHelper::authorizedCall(const QUrl& url, const QByteArray* body) {
    const Message message = call(m_connection->httpRequestFor(url, true), body);
    if (message.statusCode != httpUnauthorized)
        return message;
    m_connection->refresh();
    return call(m_connection->httpRequestFor(url, true), body);
}

Message DataHelper::login(const QString& email, const QString& password) {
    ServiceConfig& config = ServiceConfig::instance();
    if (!ServiceConfig::hasCloud())
        return withoutCloud();
    const QByteArray body = compact({{QStringLiteral("email"), email},
                                     {QStringLiteral("password"), password},
                                     {QStringLiteral("regional_service_map"), true}});
    const Message message = call(m_connection->httpRequestFor(config.loginUrl(), false), &body);
    if (!message.status)
        return message;
    const QJsonObject account = message.json.value(QStringLiteral("account")).toObject();
    m_connection->setTokens(account.value(QStringLiteral("access_token")).toString(),
                            account.value(QStringLiteral("refresh_token")).toString());
    const QString region = account.value(QStringLiteral("region")).toString();
    config.setHomeRegion(region);
    config.setRegion(region);
    config.setRegionalServiceMap(message.json.value(QStringLiteral("regional_service_map")).toObject());
    return message;
}

Message DataHelper::saveAs(const QString& newName) {
    if (!ServiceConfig::hasCloud())
        return withoutCloud();
    const QJsonValue uuid = currentProject().value(keyProjectUuid);
    const QByteArray body = compact({{keyName, newName}, {QStringLiteral("orig_project_uuid"), uuid}});
    return authorizedCall(ServiceConfig::instance().saveAsUrl(), &body);
}

QString DataHelper::localServiceUrl(const QString& path) const {
    QString url = notifications()->endpoint();
    url.replace(0, 2, QStringLiteral("http"));
    return url + path;
}

Message DataHelper::exportJson(const QJsonObject& project, const QString& localPart) {
    if (isRemote()) {
        const QString uuid = project.value(keyProjectUuid).toString();
        return authorizedCall(ServiceConfig::instance().projectJsonUrl(uuid), nullptr);
    }
    const QByteArray name = QUrl::toPercentEncoding(project.value(keyName).toString());
    const QString query = QLatin1String("?name=") + QString::fromLatin1(name) + localPart;
    return authorizedCall(QUrl(localServiceUrl(localPath + query)), nullptr);
}

Message DataHelper::exportProjectJson(const QJsonObject& project) {
    return exportJson(project, {});
}

Message DataHelper::exportPreferences(const QJsonObject& project) {
    return exportJson(project, QStringLiteral("&only=preferences"));
}

Message DataHelper::importProjectJson(const QJsonObject& project, const QJsonValue& json) {
    QJsonObject object = project;
    object.remove(keyProjectUuid);
    object.insert(QStringLiteral("project_json"), json);
    const QByteArray body = compact(object);
    const QUrl url =
        isRemote() ? ServiceConfig::instance().uploadJsonUrl() : QUrl(localServiceUrl(localPath));
    return authorizedCall(url, &body);
}
