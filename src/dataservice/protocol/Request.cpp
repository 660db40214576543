#include "protocol/Request.h"

#include "protocol/Answer.h"
#include "protocol/Arguments.h"
#include "protocol/FrameText.h"
#include "wire/Operations.h"

namespace {

const QString keyName = QStringLiteral("name");
const QString keyUuid = QStringLiteral("uuid");
const QString keyStatus = QStringLiteral("status");
const QString statusClosed = QStringLiteral("closed");

}  // namespace

bool Request::concernsProjects() const {
    return ok && query.isMutation &&
           (query.operation == wire::name::dbOpen || query.operation == wire::name::dbClose);
}

Request readRequest(const QByteArray& frame) {
    Request request;
    const frametext::Reading outer = frametext::read(frame);
    request.messageId = outer.messageId;
    if (!outer.ok) {
        request.fault = {outer.fault, -1};
        return request;
    }
    wire::QueryReading inner = wire::parseQuery(outer.text);
    request.ok = inner.ok;
    if (inner.ok)
        request.query = std::move(inner.query);
    else
        request.fault = {inner.error.message, inner.error.position};
    return request;
}

std::optional<ProjectName> readOpenRequest(const wire::ParsedQuery& query, std::vector<Fault>* faults) {
    Arguments arguments(query);
    const ProjectName project{arguments.text(keyName), arguments.text(keyUuid, {})};
    if (arguments.finish() && project.name.isEmpty())
        arguments.faults.push_back({QStringLiteral("The project has no name."), query.position});
    *faults = arguments.faults;
    if (!faults->empty())
        return std::nullopt;
    return project;
}

QByteArray openedPayload(const ProjectName& project, const QString& access) {
    DataPayload payload(wire::name::dbOpen);
    payload.json.beginObject().key(keyName).value(project.name);
    payload.json.key(keyUuid).value(project.uuid.isEmpty() ? wire::nullUuid : project.uuid);
    payload.json.key(keyStatus)
        .value(wire::statusOpen)
        .key(QStringLiteral("access"))
        .value(access)
        .endObject();
    return payload.finish().payload;
}

QByteArray closedPayload() {
    DataPayload payload(wire::name::dbClose);
    payload.json.beginObject().key(keyName).value(QString()).key(keyUuid).value(wire::nullUuid);
    payload.json.key(keyStatus).value(statusClosed).endObject();
    return payload.finish().payload;
}

QByteArray connectionCountPayload(int count) {
    JsonWriter json;
    json.beginObject().key(QStringLiteral("connection_count")).value(static_cast<qint64>(count)).endObject();
    return json.take();
}
