#pragma once

#include "link/Message.h"

#include <QByteArray>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>

class QNetworkAccessManager;
class QNetworkReply;

/// HTTP calls on the network thread, one at a time: a new call drops the one before it, so that the answer of
/// a call that nobody waits for any more is never taken for that of the next.
class HttpHandler : public QObject {
    Q_OBJECT

public:
    HttpHandler() = default;

    /// Request attribute with the number that `finished` gives back.
    static constexpr QNetworkRequest::Attribute callNumber = QNetworkRequest::User;

signals:
    void finished(Message m, int call);

public slots:
    /// Creates the objects that belong to the network thread; runs there before the other slots.
    void init();
    void post(QNetworkRequest req, QByteArray json);
    void get(QNetworkRequest req);

private:
    void onFinished(QNetworkReply* reply);
    void drop();

    QNetworkAccessManager* m_manager = nullptr;
    QPointer<QNetworkReply> m_current;
};
