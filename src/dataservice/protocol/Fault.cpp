#include "protocol/Fault.h"

#include "wire/JsonWriter.h"

QByteArray errorsPayload(const std::vector<Fault>& faults) {
    JsonWriter json;
    json.beginObject().key(QStringLiteral("errors")).beginArray();
    for (const Fault& fault : faults) {
        QString message = fault.message;
        if (fault.position >= 0)
            message += QStringLiteral(" (at character %1)").arg(fault.position);
        json.beginObject().key(QStringLiteral("message")).value(message).endObject();
    }
    json.endArray().endObject();
    return json.take();
}

QByteArray errorsPayload(const QString& message) {
    return errorsPayload(std::vector<Fault>{{message, -1}});
}
