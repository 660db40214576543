#include "merge/FullProjectJson.h"

#include "records/SimpleCipher.h"
#include "wire/JsonWriter.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QJsonObject>

namespace fullprojectjson {

namespace {

const char* const tag = "project_json";
constexpr int recordsPerReport = 256;

bool isNumbered(int id) {
    return id >= 1;
}
bool isNumbered(const QString& key) {
    return !key.isEmpty();
}

template <typename T> bool take(const QJsonObject& json, SimpleCipher&, QList<T>& list) {
    const T record(json, tag);
    if (isNumbered(record.id()))
        list.append(record);
    return true;
}

bool take(const QJsonObject& json, SimpleCipher& cipher, QList<QuestionAnswer>& list) {
    const QuestionAnswer record(json, tag, &cipher);
    if (cipher.hasKey() && cipher.lastError() != SimpleCipher::ErrorNone)
        return false;
    if (isNumbered(record.id()))
        list.append(record);
    return true;
}

void writeValue(JsonWriter& json, const QVariant& value) {
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
        json.value(value.toLongLong());
        break;
    case QMetaType::Bool:
        json.value(value.toBool());
        break;
    case QMetaType::Double:
        json.value(value.toDouble());
        break;
    case QMetaType::QColor:
        json.value(value.value<QColor>().name());
        break;
    case QMetaType::QDateTime: {
        const QDateTime time = value.toDateTime();
        time.isValid() ? json.value(time.toTimeSpec(Qt::OffsetFromUTC).toString(Qt::ISODate)) : json.null();
        break;
    }
    default:
        value.isValid() ? json.value(value.toString()) : json.null();
    }
}

template <typename T> QVariant valueOf(const T& record, int number, SimpleCipher&) {
    return record.fieldValue(number, false);
}

QVariant valueOf(const QuestionAnswer& answer, int number, SimpleCipher& cipher) {
    if (number != static_cast<int>(QuestionAnswerField::answer))
        return answer.fieldValue(number, false);
    return cipher.hasKey() ? cipher.encryptToString(answer.storedAnswer()) : answer.storedAnswer();
}

template <typename T> void writeRecord(JsonWriter& json, const T& record, SimpleCipher& cipher) {
    json.beginObject();
    for (const FieldInfo& field : T::fieldInfos()) {
        if (field.local)
            continue;
        json.key(field.wireName);
        writeValue(json, valueOf(record, field.number, cipher));
    }
    json.endObject();
}

bool writeContent(QIODevice& out, const ProjectRecords& records, SimpleCipher& cipher,
                  const Progress& progress) {
    qint64 total = 0;
    eachList(records, [&](const char*, const auto& list) { total += list.size(); });
    qint64 done = 0;
    bool good = true;
    const char* before = "{\"";
    eachList(records, [&](const char* key, const auto& list) {
        out.write(before);
        out.write(key);
        out.write("\":[");
        JsonWriter json;
        bool first = true;
        for (const auto& record : list) {
            if (!good)
                break;
            if (!first)
                out.write(",");
            first = false;
            writeRecord(json, record, cipher);
            const QByteArray bytes = json.take();
            good = out.write(bytes) == bytes.size();
            if (++done % recordsPerReport == 0)
                good = good && goesOn(progress, done, total);
        }
        out.write("]");
        before = ",\"";
    });
    return good && out.write("}") == 1;
}

}  // namespace

jsonscan::Span contentOf(const QByteArray& reply) {
    jsonscan::Span content;
    jsonscan::eachMember(reply, {0, reply.size()}, [&](const QByteArray& key, jsonscan::Span value) {
        if (key == tag)
            content = value;
        return true;
    });
    return content;
}

bool read(const QByteArray& json, jsonscan::Span content, SimpleCipher& cipher, ProjectRecords& records,
          const Progress& progress) {
    bool good = true;
    const auto readList = [&](jsonscan::Span span, auto& list) {
        const bool outlined =
            jsonscan::eachElement(json, span, [&](const QByteArray&, jsonscan::Span element) {
                const QJsonDocument document = QJsonDocument::fromJson(jsonscan::part(json, element));
                good = take(document.object(), cipher, list) &&
                       (list.size() % recordsPerReport != 0 ||
                        goesOn(progress, element.end - content.begin, content.end - content.begin));
                return good;
            });
        good = good && outlined;
    };
    const bool outlined =
        jsonscan::eachMember(json, content, [&](const QByteArray& key, jsonscan::Span span) {
            eachList(records, [&](const char* name, auto& list) {
                if (good && key == name)
                    readList(span, list);
            });
            return good;
        });
    return good && outlined;
}

bool write(QIODevice& out, const QJsonObject& target, const ProjectRecords& records, SimpleCipher& cipher,
           const Progress& progress) {
    QByteArray head = QJsonDocument(target).toJson(QJsonDocument::Compact);
    head.chop(1);
    head += target.isEmpty() ? "\"" : ",\"";
    head += tag;
    head += "\":";
    return out.write(head) == head.size() && writeContent(out, records, cipher, progress) &&
           out.write("}") == 1;
}

QJsonObject toJson(const ProjectRecords& records, SimpleCipher& cipher) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    writeContent(buffer, records, cipher, {});
    return QJsonDocument::fromJson(buffer.data()).object();
}

}  // namespace fullprojectjson
