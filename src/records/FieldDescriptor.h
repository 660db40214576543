#pragma once

#include <QString>
#include <QVariant>

/// What is known of one field of a record. The number of a field is also its item role in the list models.
struct FieldDescriptor {
    QString wireName;          ///< in the service's JSON, in arguments and in lists of requested fields
    QString roleName;          ///< in item models, variant maps and QML
    bool notCompared = false;  ///< read and asked for, but left out of `equals`
    bool localOnly = false;    ///< never asked for, sent or compared
    QVariant defaultValue;
    int reserved1 = 1;  ///< always 1; read by nobody
    int reserved2 = 1;  ///< always 1; read by nobody
};
