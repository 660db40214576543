#pragma once

#include <QJsonObject>

/// Parts of a project, as whole projects of their own: from full project JSON to full project JSON. Ids,
/// texts, kind and password stay as they are.
namespace projectparts {

/// The sources with their answers and properties, and nothing that was made of them.
QJsonObject sourcesOnly(const QJsonObject& project);

/// The kernos with their groups and shortcut keys, the questions and the properties, without sources and all
/// that hangs on one.
QJsonObject structureOnly(const QJsonObject& project);

}  // namespace projectparts
