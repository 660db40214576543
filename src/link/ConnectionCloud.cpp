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
    if (!m_remote)
        request.setRawHeader("Kernova-Service-Token", ServiceConfig::instance().serviceToken());
    return request;
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
    if (!ServiceConfig::hasCloud()) {
        setLastError(tr("This version of Kernova is built without a cloud. Use local storage."));
        return false;
    }
    const QUrl url = ServiceConfig::instance().ticketUrl();
    Message message = getBlocking(httpRequestFor(url, true));
    if (message.statusCode == httpUnauthorized) {
        refresh();
        message = getBlocking(httpRequestFor(url, true));
    }
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
    if (!ServiceConfig::hasCloud())
        return false;
    const Message message =
        postBlocking(httpRequestFor(ServiceConfig::instance().refreshUrl(), false),
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
    const Message message = postBlocking(httpRequestFor(ServiceConfig::instance().logoutUrl(), false),
                                         {{keyRefreshToken, refreshToken()}});
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
