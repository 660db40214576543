#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/ServiceConfig.h"
#include "link/WebSocketHandler.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QHttpMultiPart>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QSaveFile>

namespace {

constexpr int httpOk = 200;

const QString keyName = QStringLiteral("name");
const QString keyProjectUuid = QStringLiteral("project_uuid");
const QString localPath = QStringLiteral("/v1/projects/json");

using ReplyPointer = std::unique_ptr<QNetworkReply>;

QByteArray compact(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

Message notSent(const QString& reason) {
    return {0, false, reason, {}};
}

Message withoutCloud() {
    return notSent(DataHelper::tr("No cloud server is known. Use local storage, or name a server."));
}

void waitFor(QNetworkReply& reply) {
    QEventLoop loop;
    QObject::connect(&reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (!reply.isFinished())
        loop.exec();
}

Message answerOf(QNetworkReply& reply) {
    waitFor(reply);
    Message message = Message::fromReply(reply);
    // Nothing else here aborts a call than its bound.
    if (reply.error() == QNetworkReply::OperationCanceledError)
        message.message = DataHelper::tr("The server did not answer in time.");
    return message;
}

// What a header's quoted text can't hold is written as browsers write it.
QByteArray quotable(const QString& text) {
    return text.toUtf8().replace('"', "%22").replace('\r', "%0D").replace('\n', "%0A");
}

// The file's name without the suffix of projects.
QString projectNameOf(const QString& path) {
    const QString name = QFileInfo(path).fileName();
    const QString suffix = QStringLiteral(".krn");
    return name.endsWith(suffix) ? name.chopped(suffix.size()) : name;
}

}  // namespace

Message DataHelper::send(HttpVerb verb, const QNetworkRequest& request, const QByteArray& body) {
    ReplyPointer reply;
    switch (verb) {
    case HttpVerb::Get:
        reply.reset(m_networkAccessManager->get(request));
        break;
    case HttpVerb::Post:
        reply.reset(m_networkAccessManager->post(request, body));
        break;
    case HttpVerb::Delete:
        reply.reset(m_networkAccessManager->deleteResource(request));
        break;
    }
    return answerOf(*reply);
}

Message DataHelper::sendFile(const QNetworkRequest& request, const QString& path) {
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly))
        return notSent(file->errorString());
    QHttpPart part;
    part.setRawHeader("Content-Disposition",
                      "form-data; name=\"krnFile\"; filename=\"" + quotable(projectNameOf(path)) + '"');
    part.setBodyDevice(file.get());
    auto parts = std::make_unique<QHttpMultiPart>(QHttpMultiPart::FormDataType);
    file.release()->setParent(parts.get());
    parts->append(part);
    QNetworkRequest multipart(request);
    multipart.setHeader(QNetworkRequest::ContentTypeHeader, QVariant());
    const ReplyPointer reply(m_networkAccessManager->post(multipart, parts.get()));
    parts.release()->setParent(reply.get());
    return answerOf(*reply);
}

Message DataHelper::sendContentOf(const QNetworkRequest& request, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return notSent(file.errorString());
    const ReplyPointer reply(m_networkAccessManager->post(request, &file));
    return answerOf(*reply);
}

Message DataHelper::callCloud(CloudCall call, const QString& argument, const QJsonObject& body) {
    const ServiceConfig& config = ServiceConfig::instance();
    if (!config.hasCloud())
        return withoutCloud();
    m_networkAccessManager->setProxy(QNetworkProxy(QNetworkProxy::DefaultProxy));
    m_networkAccessManager->setTransferTimeout(m_transferBound);
    const QByteArray content = compact(body);
    const QUrl url = config.url(call, argument);
    if (call == CloudCall::Login)
        return send(ServiceConfig::verb(call), m_connection->httpRequestFor(url, false), content);
    return m_connection->authorizedCall(url, [&](const QNetworkRequest& request) {
        if (call == CloudCall::UploadProject)
            return sendFile(request, argument);
        if (call == CloudCall::WriteProjectJson && !argument.isEmpty())
            return sendContentOf(request, argument);
        return send(ServiceConfig::verb(call), request, content);
    });
}

Message DataHelper::callLocal(const QString& path,
                              const std::function<Message(const QNetworkRequest&)>& call) {
    m_networkAccessManager->setProxy(QNetworkProxy(QNetworkProxy::NoProxy));
    // A large project takes the service its time, and its end ends the call.
    m_networkAccessManager->setTransferTimeout(0);
    QString url = notifications()->endpoint();
    url.replace(0, 2, QStringLiteral("http"));
    return m_connection->authorizedCall(QUrl(url + path), [&](QNetworkRequest request) {
        request.setRawHeader("Kernova-Service-Token", ServiceConfig::instance().serviceToken());
        return call(request);
    });
}

Message DataHelper::login(const QString& email, const QString& password) {
    const Message message = callCloud(CloudCall::Login, {},
                                      {{QStringLiteral("email"), email},
                                       {QStringLiteral("password"), password},
                                       {QStringLiteral("regional_service_map"), true}});
    if (!message.status)
        return message;
    const QJsonObject account = message.json.value(QStringLiteral("account")).toObject();
    m_connection->setTokens(account.value(QStringLiteral("access_token")).toString(),
                            account.value(QStringLiteral("refresh_token")).toString());
    ServiceConfig& config = ServiceConfig::instance();
    const QString region = account.value(QStringLiteral("region")).toString();
    config.setHomeRegion(region);
    config.setRegion(region);
    config.setRegionalServiceMap(message.json.value(QStringLiteral("regional_service_map")).toObject());
    return message;
}

Message DataHelper::projects() {
    return callCloud(CloudCall::Projects);
}

Message DataHelper::projectsShared() {
    return callCloud(CloudCall::ProjectsShared);
}

Message DataHelper::projectByName(const QString& name) {
    return callCloud(CloudCall::ProjectByName, name);
}

Message DataHelper::createNewProject(const QString& title) {
    return callCloud(CloudCall::CreateProject, {}, {{keyName, title}});
}

Message DataHelper::removeProject(const QString& uuid) {
    return callCloud(CloudCall::RemoveProject, uuid);
}

Message DataHelper::uploadProject(const QString& path) {
    return callCloud(CloudCall::UploadProject, path);
}

bool DataHelper::downloadProject(const QString& uuid, const QString& file) {
    const ServiceConfig& config = ServiceConfig::instance();
    QSaveFile target(file);
    if (!config.hasCloud() || !m_connection->ensureFreshToken() || !target.open(QIODevice::WriteOnly))
        return false;
    m_networkAccessManager->setProxy(QNetworkProxy(QNetworkProxy::DefaultProxy));
    m_networkAccessManager->setTransferTimeout(m_transferBound);
    const QUrl url = config.url(CloudCall::DownloadProject, uuid);
    QNetworkRequest request = m_connection->httpRequestFor(url, true);
    // As it is, so that its length can be compared: a connection that ends too early is not always an error.
    request.setRawHeader("Accept-Encoding", "identity");
    const ReplyPointer reply(m_networkAccessManager->get(request));
    const auto take = [&] { target.write(reply->readAll()); };
    connect(reply.get(), &QIODevice::readyRead, &target, take);
    waitFor(*reply);
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status != httpOk || reply->error() != QNetworkReply::NoError)
        return false;
    take();
    const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
    // A write that failed makes the commit fail.
    if ((length.isValid() && length.toLongLong() != target.pos()) || !target.commit())
        return false;
    // What a crash left of a former file would be rolled back into this one.
    QFile::remove(file + QStringLiteral("-journal"));
    return true;
}

Message DataHelper::saveAs(const QString& newName) {
    return callCloud(
        CloudCall::SaveAs, {},
        {{keyName, newName}, {QStringLiteral("orig_project_uuid"), currentProject().value(keyProjectUuid)}});
}

QString DataHelper::localRead(const QJsonObject& project) {
    const QByteArray name = QUrl::toPercentEncoding(project.value(keyName).toString());
    return localPath + QLatin1String("?name=") + QString::fromLatin1(name);
}

Message DataHelper::exportJson(const QJsonObject& project, const QString& localPart) {
    if (isRemote())
        return callCloud(CloudCall::ReadProjectJson, project.value(keyProjectUuid).toString());
    return callLocal(localRead(project) + localPart,
                     [this](const QNetworkRequest& request) { return send(HttpVerb::Get, request, {}); });
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
    if (isRemote())
        return callCloud(CloudCall::WriteProjectJson, {}, object);
    return callLocal(localPath, [this, &object](const QNetworkRequest& request) {
        return send(HttpVerb::Post, request, compact(object));
    });
}

Message DataHelper::readProject(const QJsonObject& project, QByteArray& body) {
    const auto call = [this, &body](const QNetworkRequest& request) {
        const ReplyPointer reply(m_networkAccessManager->get(request));
        body.clear();
        const auto code = [&] { return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(); };
        // Taken as it comes, a large project is held once.
        const auto take = [&] {
            if (code() == httpOk)
                body += reply->readAll();
        };
        connect(reply.get(), &QIODevice::readyRead, this, take);
        waitFor(*reply);
        if (reply->error() != QNetworkReply::NoError)
            return answerOf(*reply);
        take();
        return Message{code(), code() == httpOk, {}, {}};
    };
    if (!isRemote())
        return callLocal(localRead(project), call);
    const ServiceConfig& config = ServiceConfig::instance();
    if (!config.hasCloud())
        return withoutCloud();
    m_networkAccessManager->setProxy(QNetworkProxy(QNetworkProxy::DefaultProxy));
    m_networkAccessManager->setTransferTimeout(m_transferBound);
    return m_connection->authorizedCall(
        config.url(CloudCall::ReadProjectJson, project.value(keyProjectUuid).toString()), call);
}

Message DataHelper::writeProject(const QString& bodyFile) {
    if (isRemote())
        return callCloud(CloudCall::WriteProjectJson, bodyFile);
    return callLocal(localPath, [this, &bodyFile](const QNetworkRequest& request) {
        return sendContentOf(request, bodyFile);
    });
}
