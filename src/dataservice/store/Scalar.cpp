#include "store/Scalar.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace scalar {

QString toJson(const QVariant& value) {
    const QJsonArray array{QJsonValue::fromVariant(value)};
    const QByteArray text = QJsonDocument(array).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(text.mid(1, text.size() - 2));
}

QVariant fromJson(const QString& json) {
    const QJsonDocument document =
        QJsonDocument::fromJson((QLatin1Char('[') + json + QLatin1Char(']')).toUtf8());
    const QJsonValue value = document.array().at(0);
    return value.isNull() || value.isUndefined() ? QVariant() : value.toVariant();
}

}  // namespace scalar
