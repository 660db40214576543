#include "FrameExercise.h"

#include "protocol/Executor.h"
#include "protocol/FrameText.h"
#include "protocol/ProjectJson.h"
#include "protocol/Request.h"
#include "wire/JsonScan.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

ProjectStore* project() {
    static const std::unique_ptr<ProjectStore> store = [] {
        QString message;
        return ProjectStore::createAt(QStringLiteral(":memory:"), &message);
    }();
    return store.get();
}

/// Every answer is JSON, and says either what was asked for or what was wrong.
QString faultOf(const Answer& answer, int messageId) {
    const frametext::Frame frame = frametext::write(messageId, answer.ok(), answer.payload);
    QJsonParseError error;
    const QJsonObject object =
        QJsonDocument::fromJson(frame.head + frame.payload + frametext::Frame::tail, &error).object();
    if (error.error != QJsonParseError::NoError)
        return QStringLiteral("an answer isn't JSON: ") + QString::fromUtf8(answer.payload);
    const QJsonObject payload = object.value(QStringLiteral("json_data")).toObject();
    if (!payload.contains(answer.ok() ? QStringLiteral("data") : QStringLiteral("errors")))
        return QStringLiteral("an answer says nothing: ") + QString::fromUtf8(answer.payload);
    if (answer.kind == Outcome::Kind::Failed)
        return QStringLiteral("the database failed: ") + QString::fromUtf8(answer.payload);
    return {};
}

QString exerciseQuery(const wire::ParsedQuery& query, int messageId) {
    const QString fault = faultOf(execute(*project(), query, AccessLevel::Owner), messageId);
    project()->rollback();
    return fault;
}

}  // namespace

QString exerciseFrame(const QByteArray& bytes) {
    const Request request = readRequest(bytes);
    QString fault = request.ok ? exerciseQuery(request.query, request.messageId)
                               : faultOf(Answer::refused({request.fault}), request.messageId);
    const QString text = QString::fromUtf8(bytes);
    const wire::QueryReading reading = wire::parseQuery(text);
    if (fault.isEmpty() && reading.ok)
        fault = exerciseQuery(reading.query, 1);
    if (!reading.ok && (reading.error.position < 0 || reading.error.position > text.size()))
        fault = QStringLiteral("a fault lies outside the text");
    projectjson::Upload upload;
    projectjson::readUpload(bytes, &upload);
    return fault;
}
