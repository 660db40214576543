#include "link/Message.h"

#include <QJsonDocument>
#include <QNetworkReply>

namespace {

const QLatin1String keyStatus("status");
const QLatin1String keyMessage("message");

}  // namespace

Message Message::fromReply(QNetworkReply& reply) {
    const int code = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (reply.error() != QNetworkReply::NoError)
        return {code, false, reply.errorString(), {}};
    return fromBody(code, reply.readAll());
}

Message Message::fromBody(int statusCode, const QByteArray& body) {
    Message message;
    message.statusCode = statusCode;
    message.json = QJsonDocument::fromJson(body).object();
    message.status = message.json.take(keyStatus).toBool();
    message.message = message.json.take(keyMessage).toString();
    return message;
}

QVariantMap Message::toVariantMap() const {
    const QByteArray value = QJsonDocument(json).toJson(QJsonDocument::Compact);
    return {{QStringLiteral("status_code"), statusCode},
            {keyStatus, status},
            {keyMessage, message},
            {QStringLiteral("value"), QString::fromUtf8(value)}};
}
