#include "link/HttpHandler.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

void HttpHandler::init() {
    m_manager = new QNetworkAccessManager(this);
    connect(m_manager, &QNetworkAccessManager::finished, this, &HttpHandler::onFinished);
}

void HttpHandler::post(QNetworkRequest req, QByteArray json) {
    drop();
    m_current = m_manager->post(req, json);
}

void HttpHandler::get(QNetworkRequest req) {
    drop();
    m_current = m_manager->get(req);
}

void HttpHandler::onFinished(QNetworkReply* reply) {
    reply->deleteLater();
    if (reply != m_current)
        return;
    m_current = nullptr;
    emit finished(Message::fromReply(*reply), reply->request().attribute(callNumber).toInt());
}

void HttpHandler::drop() {
    QNetworkReply* former = m_current;
    m_current = nullptr;
    if (former)
        former->abort();
}
