#include "link/Connection.h"

#include "link/HttpHandler.h"
#include "link/ServiceConfig.h"
#include "link/Waiter.h"

#include <QDateTime>
#include <QDebug>
#include <QJsonDocument>

namespace {

constexpr int httpUnauthorized = 401;

const QString keyAccount = QStringLiteral("account");
const QString keyAccessToken = QStringLiteral("access_token");
const QString keyRefreshToken = QStringLiteral("refresh_token");

}  // namespace

QNetworkRequest Connection::httpRequestFor(const QUrl& url, bool authorized) const {
    QNetworkRequest request = ServiceConfig::jsonRequest(url);
    if (authorized)
        request.setRawHeader("Authorization", "Bearer " + accessToken().toUtf8());
    return request;
}

Message Connection::authorizedCall(const QUrl& url, const HttpCall& call) {
    const Message message = call(httpRequestFor(url, true));
    if (message.statusCode != httpUnauthorized)
        return message;
    refresh();
    return call(httpRequestFor(url, true));
}

Message Connection::postBlocking(QNetworkRequest request, const QJsonObject& body) {
    QMutexLocker locker(&m_callMutex);
    request.setAttribute(HttpHandler::callNumber, m_waiter->expectMessage());
    emit httpPost(request, QJsonDocument(body).toJson(QJsonDocument::Compact));
    return m_waiter->awaitMessage(m_timings.http);
}

Message Connection::getBlocking(QNetworkRequest request) {
    QMutexLocker locker(&m_callMutex);
    request.setAttribute(HttpHandler::callNumber, m_waiter->expectMessage());
    emit httpGet(request);
    return m_waiter->awaitMessage(m_timings.http);
}

bool Connection::fetchTicket(QString& ticket) {
    const ServiceConfig& config = ServiceConfig::instance();
    if (!config.hasCloud()) {
        setLastError(tr("No cloud server is known. Use local storage, or name a server."));
        return false;
    }
    const Message message =
        authorizedCall(config.url(CloudCall::Ticket),
                       [this](const QNetworkRequest& request) { return getBlocking(request); });
    if (!message.status)
        setLastError(message.message);
    ticket = message.json.value(QStringLiteral("ticket")).toString();
    return message.status;
}

bool Connection::ensureFreshToken() {
    if (!m_remote)
        return true;
    qint64 age = 0;
    {
        QMutexLocker locker(&m_mutex);
        age = QDateTime::currentSecsSinceEpoch() - m_tokenTime;
    }
    return age <= m_timings.tokenAge || refresh();
}

bool Connection::refresh() {
    qDebug() << "refresh access";
    const ServiceConfig& config = ServiceConfig::instance();
    if (!config.hasCloud())
        return false;
    const Message message =
        postBlocking(httpRequestFor(config.url(CloudCall::Refresh), false),
                     {{keyAccessToken, accessToken()}, {keyRefreshToken, refreshToken()}});
    if (message.status) {
        const QJsonObject account = message.json.value(keyAccount).toObject();
        setTokens(account.value(keyAccessToken).toString(), account.value(keyRefreshToken).toString());
    }
    return message.status;
}

bool Connection::logout() {
    if (refreshToken().isEmpty())
        return true;
    qDebug() << "logout";
    const QUrl url = ServiceConfig::instance().url(CloudCall::Logout);
    const Message message = postBlocking(httpRequestFor(url, false), {{keyRefreshToken, refreshToken()}});
    if (message.status)
        setTokens({}, {});
    return message.status;
}

QString Connection::accessToken() const {
    QMutexLocker locker(&m_mutex);
    return m_accessToken;
}

QString Connection::refreshToken() const {
    QMutexLocker locker(&m_mutex);
    return m_refreshToken;
}

void Connection::setTokens(const QString& accessToken, const QString& refreshToken) {
    QMutexLocker locker(&m_mutex);
    m_accessToken = accessToken;
    m_refreshToken = refreshToken;
    m_tokenTime = QDateTime::currentSecsSinceEpoch();
}
