#include "records/FieldSchema.h"

#include "wire/QueryText.h"

#include <QDebug>
#include <QJsonValue>

namespace fields {
namespace {

enum class Reading { Missing, Unusable, Good };

void report(Reading reading, const QString& wireName, const char* queryId) {
    if (reading == Reading::Missing)
        qDebug() << "Query" << queryId << "did not have the following field:" << wireName;
    else
        qDebug() << "Cannot convert field" << wireName << "to requested type; query id:" << queryId;
}

template <typename Convert>
bool read(const QJsonObject& json, const QString& wireName, const char* queryId, Convert convert) {
    const auto found = json.constFind(wireName);
    Reading reading = Reading::Missing;
    if (found != json.constEnd() && !found->isNull())
        reading = convert(*found) ? Reading::Good : Reading::Unusable;
    if (reading == Reading::Good)
        return true;
    report(reading, wireName, queryId);
    return false;
}

bool isScalar(const QJsonValue& value) {
    return value.isDouble() || value.isString() || value.isBool();
}

}  // namespace

FieldType typeOf(const int&) {
    return FieldType::Integer;
}
FieldType typeOf(const QString&) {
    return FieldType::Text;
}
FieldType typeOf(const bool&) {
    return FieldType::Boolean;
}
FieldType typeOf(const QColor&) {
    return FieldType::Color;
}
FieldType typeOf(const QDateTime&) {
    return FieldType::Timestamp;
}
FieldType typeOf(const QVariant&) {
    return FieldType::Scalar;
}

bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, int& value) {
    return read(json, wireName, queryId, [&](const QJsonValue& found) {
        const int whole = found.toInt();  // the short way; 0 also stands for what isn't a whole number
        if (isScalar(found))
            value = whole != 0 ? whole : found.toVariant().toInt();
        return isScalar(found);
    });
}

bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, QString& value) {
    return read(json, wireName, queryId, [&](const QJsonValue& found) {
        if (isScalar(found))
            value = found.isString() ? found.toString() : found.toVariant().toString();
        return isScalar(found);
    });
}

bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, bool& value) {
    return read(json, wireName, queryId, [&](const QJsonValue& found) {
        if (isScalar(found))
            value = found.toVariant().toBool();
        return isScalar(found);
    });
}

bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, QColor& value) {
    return read(json, wireName, queryId, [&](const QJsonValue& found) {
        if (found.isString())
            value = QColor(found.toString());
        return found.isString();
    });
}

bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, QDateTime& value) {
    return read(json, wireName, queryId, [&](const QJsonValue& found) {
        if (found.isString())
            value = QDateTime::fromString(found.toString(), Qt::ISODate);
        return found.isString();
    });
}

bool readJson(const QJsonObject& json, const QString& wireName, const char* queryId, QVariant& value) {
    return read(json, wireName, queryId, [&](const QJsonValue& found) {
        value = found.toVariant();
        return true;
    });
}

QString argument(const QString& wireName, const QVariant& value) {
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
        return wire::argument(wireName, value.toLongLong());
    case QMetaType::Bool:
        return wire::argument(wireName, value.toBool() ? 1 : 0);
    case QMetaType::Double: {
        const double number = value.toDouble();
        if (number == static_cast<double>(static_cast<qint64>(number)))
            return wire::argument(wireName, static_cast<qint64>(number));
        return wireName + QLatin1Char(':') + QString::number(number, 'g', 17);
    }
    case QMetaType::QColor:
        return wire::argument(wireName, value.value<QColor>().name());
    default:
        return wire::argument(wireName, value.toString());
    }
}

}  // namespace fields

void FieldLists::add(const FieldInfo& info) {
    Q_ASSERT(info.number == firstFieldNumber + static_cast<int>(infos.size()));
    infos.push_back(info);
    roleNames.insert(info.number, info.roleName.toUtf8());
    if (!info.local)
        queryFields << info.wireName;
    if (info.compared)
        comparable.push_back(info.number);
    if (info.sent)
        sent.push_back(info.number);
}
