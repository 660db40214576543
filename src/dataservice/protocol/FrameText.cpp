#include "protocol/FrameText.h"

#include "wire/Frames.h"
#include "wire/JsonScan.h"
#include "wire/JsonWriter.h"

namespace frametext {
namespace {

constexpr qint64 statusOk = 200;
constexpr qint64 statusRefused = 400;

}  // namespace

Reading read(const QByteArray& bytes) {
    Reading reading;
    if (jsonscan::nestsDeeperThan(bytes, jsonscan::maxDepth)) {
        reading.fault = QStringLiteral("The frame nests deeper than %1 levels.").arg(jsonscan::maxDepth);
        return reading;
    }
    const wire::FrameReading frame = wire::readFrame(QString::fromUtf8(bytes));
    if (frame.error == wire::FrameError::InvalidJson) {
        reading.fault = QStringLiteral("The frame isn't valid JSON: %1.").arg(frame.message);
        return reading;
    }
    if (frame.error == wire::FrameError::NotAnObject) {
        reading.fault = QStringLiteral("The frame isn't a JSON object.");
        return reading;
    }
    const wire::RequestFrame request = wire::requestFromJson(frame.object);
    reading.ok = true;
    reading.messageId = request.messageId;
    reading.text = request.text;
    return reading;
}

Frame write(int messageId, bool ok, const QByteArray& payload) {
    JsonWriter json;
    json.beginObject();
    if (messageId > 0)
        json.key(QStringLiteral("msg_id")).value(wire::messageIdText(messageId));
    json.key(QStringLiteral("status")).value(ok ? statusOk : statusRefused);
    json.key(QStringLiteral("json_data"));
    return {json.take(), payload};
}

}  // namespace frametext
