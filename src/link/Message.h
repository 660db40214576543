#pragma once

#include <QJsonObject>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

class QNetworkReply;

/// The result of an HTTP call.
struct Message {
    int statusCode = -1;  ///< HTTP status; -1 before a reply, 0 when the request never got one
    bool status = false;  ///< what the reply's body says; false on a network error
    QString message;      ///< what the reply's body says, or the network error's text
    QJsonObject json;     ///< the other members of the reply's body

    /// Reads a finished reply. The reply stays the caller's.
    static Message fromReply(QNetworkReply& reply);

    /// Sorts the members of a reply's body; a body that isn't a JSON object reads as an empty one.
    static Message fromBody(int statusCode, const QByteArray& body);

    /// The form for screens: `status_code`, `status`, `message` and `value`, the compact text of `json`.
    QVariantMap toVariantMap() const;
};

Q_DECLARE_METATYPE(Message)
