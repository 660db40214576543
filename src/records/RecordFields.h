#pragma once

#include "wire/Operations.h"

#include <QString>
#include <QVariant>
#include <vector>

enum class FieldType { Integer, Text, Boolean, Color, Timestamp, Scalar };

/// A row of a record's field table without the record's own types: what the data service needs to know.
/// A `Scalar` is a text or a number and comes back as the kind it was sent as.
struct FieldInfo {
    int number = 0;
    QString wireName;
    QString roleName;
    FieldType type = FieldType::Integer;
    QVariant defaultValue;
    bool compared = true;
    bool local = false;  ///< exists in the client alone
    bool sent = true;    ///< part of a mutation's arguments, which stand in the order of the table
};

/// Numbers of fields begin here, above all item roles of Qt.
constexpr int firstFieldNumber = 257;

/// The field table of a record, in the order of the numbers, local fields included.
const std::vector<FieldInfo>& recordFields(wire::Record record);
