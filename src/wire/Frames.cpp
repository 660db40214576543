#include "wire/Frames.h"

#include <QJsonDocument>

namespace wire {
namespace {

const QString keyAuth = QStringLiteral("auth");
const QString keyMessageId = QStringLiteral("msg_id");
const QString keyStatus = QStringLiteral("status");
const QString keyData = QStringLiteral("json_data");

QString compact(const QJsonObject& object) {
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

}  // namespace

QString messageIdText(int messageId) {
    return QStringLiteral("i_%1").arg(messageId);
}

int messageIdFromText(const QString& text) {
    return text.mid(2).toInt();
}

QString RequestFrame::toText() const {
    return compact({{keyAuth, auth}, {keyMessageId, messageIdText(messageId)}, {keyData, text}});
}

QString ResponseFrame::toText() const {
    QJsonObject object{{keyStatus, status}, {keyData, payload}};
    if (messageId > 0)
        object.insert(keyMessageId, messageIdText(messageId));
    return compact(object);
}

FrameReading readFrame(const QString& text) {
    QJsonParseError parsing;
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8(), &parsing);
    if (parsing.error != QJsonParseError::NoError)
        return {{}, FrameError::InvalidJson, parsing.errorString()};
    if (!document.isObject())
        return {{}, FrameError::NotAnObject, {}};
    return {document.object(), FrameError::None, {}};
}

RequestFrame requestFromJson(const QJsonObject& object) {
    return {object.value(keyAuth).toString(), messageIdFromText(object.value(keyMessageId).toString()),
            object.value(keyData).toString()};
}

ResponseFrame responseFromJson(const QJsonObject& object) {
    return {messageIdFromText(object.value(keyMessageId).toString()), object.value(keyStatus).toInt(),
            object.value(keyData).toObject()};
}

}  // namespace wire
