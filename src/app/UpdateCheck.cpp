#include "app/UpdateCheck.h"

#include "app/ProductSettings.h"
#include "link/ServiceConfig.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageBox>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <algorithm>
#include <iterator>
#include <memory>

namespace updatecheck {

namespace {

constexpr int answerBound = 15000;  // ms

struct SpokenVersion {
    QLatin1String service;
    int version;
};

const SpokenVersion spokenVersions[] = {
    {QLatin1String("auth_service"), 2},
    {QLatin1String("project_service"), 3},
    {QLatin1String("kernova_service"), 7},
};

QString translated(const char* text) {
    return QCoreApplication::translate("UpdateCheck", text);
}

}  // namespace

bool versionsMatch(const QByteArray& body) {
    const QJsonObject versions = QJsonDocument::fromJson(body).object();
    return std::all_of(std::begin(spokenVersions), std::end(spokenVersions),
                       [&](const SpokenVersion& spoken) {
                           return versions.value(spoken.service).toInt() == spoken.version;
                       });
}

Answer ask(const QUrl& versionUrl) {
    QNetworkAccessManager manager;
    // A server that is silent must not keep the window away.
    manager.setTransferTimeout(answerBound);
    const std::unique_ptr<QNetworkReply> reply(manager.get(ServiceConfig::jsonRequest(versionUrl)));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    if (reply->error() == QNetworkReply::OperationCanceledError)
        return {false, translated("The server did not answer in time.")};
    if (reply->error() != QNetworkReply::NoError)
        return {false, reply->errorString()};
    return {versionsMatch(reply->readAll()), {}};
}

bool userLeavesToUpdate() {
    const ServiceConfig& config = ServiceConfig::instance();
    if (!config.hasCloud() || ask(config.url(CloudCall::Version)).matches)
        return false;
    QMessageBox box(QMessageBox::Warning, translated("Update available!"),
                    translated("We've got an update for you!\nDownload now?"),
                    QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    if (box.exec() != QMessageBox::Yes)
        return false;
    QDesktopServices::openUrl(product::downloadPage());
    return true;
}

}  // namespace updatecheck
