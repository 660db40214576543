#include "protocol/ProjectJson.h"

#include "protocol/Rows.h"
#include "wire/JsonScan.h"
#include "wire/JsonWriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace projectjson {
namespace {

const QString keyStatus = QStringLiteral("status");
const QString keyMessage = QStringLiteral("message");
const QString keyProject = QStringLiteral("project");
const QString keyProjectJson = QStringLiteral("project_json");

JsonWriter& begin(JsonWriter& json, bool status, const QString& message) {
    return json.beginObject().key(keyStatus).value(status).key(keyMessage).value(message);
}

Outcome writePart(ProjectStore& store, const Part& part, JsonWriter& json) {
    Selection selection;
    selection.table = &tableOf(part.record);
    for (size_t i = 0; i < selection.table->columns.size(); ++i)
        selection.columns.push_back(static_cast<int>(i));
    json.key(part.key).beginArray();
    const Outcome outcome = store.select(
        selection, [&](const RowView& row) { writeRow(json, *selection.table, selection.columns, row); });
    json.endArray();
    return outcome;
}

}  // namespace

const std::vector<Part>& parts() {
    using wire::Record;
    static const std::vector<Part> all{
        {QStringLiteral("preferences"), Record::Preference},
        {QStringLiteral("sources"), Record::Source},
        {QStringLiteral("source_metadatas"), Record::SourceMetadata},
        {QStringLiteral("source_metadata_keys"), Record::SourceMetadataKey},
        {QStringLiteral("source_metadata_values"), Record::SourceMetadataValue},
        {QStringLiteral("questions"), Record::Question},
        {QStringLiteral("question_answers"), Record::QuestionAnswer},
        {QStringLiteral("highlights"), Record::Highlight},
        {QStringLiteral("memos"), Record::Memo},
        {QStringLiteral("kernos"), Record::Kerno},
        {QStringLiteral("group_kernos"), Record::KernoGroup},
        {QStringLiteral("groups"), Record::Group},
        {QStringLiteral("kerno_shortcut_keys"), Record::KernoShortcutKey},
        {QStringLiteral("chat_messages"), Record::ChatMessage}};
    return all;
}

Outcome exportProject(ProjectStore& store, const QString& name, const QString& only, QByteArray* reply) {
    JsonWriter json;
    begin(json, true, {}).key(keyProject).beginObject();
    json.key(QStringLiteral("name"))
        .value(name)
        .key(QStringLiteral("project_uuid"))
        .value(QString())
        .endObject();
    json.key(keyProjectJson).beginObject();
    for (const Part& part : parts()) {
        if (!only.isEmpty() && part.key != only)
            continue;
        const Outcome outcome = writePart(store, part, json);
        if (!outcome.ok())
            return outcome;
    }
    json.endObject().endObject();
    *reply = json.take();
    return Outcome::done();
}

Outcome readUpload(const QByteArray& body, Upload* upload) {
    if (jsonscan::nestsDeeperThan(body, jsonscan::maxDepth))
        return Outcome::refused(
            QStringLiteral("The body nests deeper than %1 levels.").arg(jsonscan::maxDepth));
    QJsonObject project;
    bool valid = true;
    const bool outlined =
        jsonscan::eachMember(body, {0, body.size()}, [&](const QByteArray& key, jsonscan::Span value) {
            if (key == keyProjectJson.toUtf8()) {
                upload->begin = value.begin;
                upload->end = value.end;
                return true;
            }
            QJsonParseError error;
            const QByteArray wrapped = '[' + jsonscan::part(body, value) + ']';
            const QJsonDocument document = QJsonDocument::fromJson(wrapped, &error);
            valid = valid && error.error == QJsonParseError::NoError;
            project.insert(QString::fromUtf8(key), document.array().at(0));
            return valid;
        });
    if (!outlined || !valid)
        return Outcome::refused(QStringLiteral("The body isn't a valid JSON object."));
    upload->name = project.value(QStringLiteral("name")).toString();
    upload->project = QJsonDocument(project).toJson(QJsonDocument::Compact);
    if (upload->name.isEmpty())
        return Outcome::refused(QStringLiteral("The project has no name."));
    if (upload->end == upload->begin || body[upload->begin] != '{')
        return Outcome::refused(QStringLiteral("The project has no records: \"project_json\" is missing."));
    return Outcome::done();
}

QByteArray importReply(const Upload& upload) {
    JsonWriter json;
    begin(json, true, {}).key(keyProject).raw(upload.project).endObject();
    return json.take();
}

QByteArray failureReply(const QString& message) {
    JsonWriter json;
    begin(json, false, message).endObject();
    return json.take();
}

}  // namespace projectjson
