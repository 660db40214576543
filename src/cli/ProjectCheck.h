#pragma once

#include <QJsonObject>

namespace cli {

/// Whether all records of a whole project's JSON hang on records that are there: each id that one names is
/// the id of another.
bool isWhole(const QJsonObject& project);

}  // namespace cli
