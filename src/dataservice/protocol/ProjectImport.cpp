#include "protocol/ProjectJson.h"
#include "store/ProjectFile.h"
#include "store/Scalar.h"
#include "wire/JsonScan.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <utility>

namespace projectjson {
namespace {

/// A field's value in a record's object, which may call it by its name on the wire or by its role.
QJsonValue fieldOf(const QJsonObject& object, const Column& column) {
    const QJsonValue value = object.value(column.name);
    return value.isUndefined() ? object.value(column.roleName) : value;
}

/// Times come in any offset and are kept in UTC; invalid for what is no time.
QVariant timestamp(const QJsonValue& value) {
    const QDateTime time = QDateTime::fromString(value.toString(), Qt::ISODate);
    return time.isValid() ? QVariant(time.toUTC().toString(Qt::ISODate)) : QVariant();
}

/// Invalid for what can't be this column's value: the record then keeps the column's default.
QVariant columnValue(const Column& column, const QJsonValue& value) {
    const QVariant variant = value.toVariant();
    switch (column.type) {
    case FieldType::Integer: {
        bool ok = false;
        const qint64 number = variant.toLongLong(&ok);
        return ok ? QVariant(number) : QVariant();
    }
    case FieldType::Boolean:
        return value.isUndefined() || value.isNull() ? QVariant() : QVariant(variant.toBool());
    case FieldType::Text:
    case FieldType::Color:
        return value.isString() ? QVariant(value.toString()) : QVariant();
    case FieldType::Timestamp:
        return timestamp(value);
    case FieldType::Scalar:
        return value.isArray() || value.isObject() || value.isUndefined() ? QVariant()
                                                                          : QVariant(scalar::toJson(variant));
    }
    return {};
}

Outcome saveRecord(ProjectStore& store, const Table& table, const QJsonObject& object) {
    RecordValues values;
    for (const Column& column : table.columns)
        values.push_back(column.joined ? QVariant() : columnValue(column, fieldOf(object, column)));
    const QVariant& id = values[static_cast<size_t>(table.idColumn)];
    // A record that can't be told from others is left out; all else about it may be at fault.
    const bool numbered = table.hasTextId() ? !id.toString().isEmpty() : id.toLongLong() >= 1;
    return numbered ? store.save(table, values) : Outcome::done();
}

Outcome savePart(ProjectStore& store, const QByteArray& body, jsonscan::Span span, const Table& table) {
    Outcome outcome;
    const bool outlined = jsonscan::eachElement(body, span, [&](const QByteArray&, jsonscan::Span element) {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(jsonscan::part(body, element), &error);
        if (error.error != QJsonParseError::NoError || !document.isObject())
            outcome =
                Outcome::refused(QStringLiteral("A record can't be read (at byte %1).").arg(element.begin));
        else
            outcome = saveRecord(store, table, document.object());
        return outcome.ok();
    });
    if (outcome.ok() && !outlined)
        outcome =
            Outcome::refused(QStringLiteral("A list of records can't be read (at byte %1).").arg(span.begin));
    return outcome;
}

Outcome saveAll(ProjectStore& store, const QByteArray& body, const Upload& upload) {
    Outcome outcome;
    const jsonscan::Span all{upload.begin, upload.end};
    const bool outlined = jsonscan::eachMember(body, all, [&](const QByteArray& key, jsonscan::Span value) {
        for (const Part& part : parts()) {
            if (part.key == QString::fromUtf8(key))
                outcome = savePart(store, body, value, tableOf(part.record));
        }
        return outcome.ok();
    });
    if (outcome.ok() && !outlined)
        outcome = Outcome::refused(QStringLiteral("\"project_json\" can't be read."));
    return outcome.ok() ? store.commit() : outcome;
}

}  // namespace

UploadedFile::~UploadedFile() {
    if (!m_temporary.isEmpty())
        QFile::remove(m_temporary);
}

Outcome UploadedFile::store(const QByteArray& body) {
    const Outcome outlined = readUpload(body, &m_upload);
    if (!outlined.ok())
        return outlined;
    m_upload.name = QFileInfo(m_upload.name).absoluteFilePath();
    m_temporary = projectfile::temporaryNameBeside(m_upload.name);
    QString message;
    const std::unique_ptr<ProjectStore> store = ProjectStore::createAt(m_temporary, &message);
    return store ? saveAll(*store, body, m_upload) : Outcome::failed(message);
}

Outcome UploadedFile::moveIntoPlace() {
    return projectfile::moveIntoPlace(std::exchange(m_temporary, QString()), m_upload.name);
}

}  // namespace projectjson
