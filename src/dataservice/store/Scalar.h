#pragma once

#include <QString>
#include <QVariant>

/// Values of any kind, kept as the text of a JSON value.
namespace scalar {

/// Null, a boolean, a number or a text as the text of a JSON value.
QString toJson(const QVariant& value);

/// The value again; invalid for null and for what is no JSON value.
QVariant fromJson(const QString& json);

}  // namespace scalar
