#pragma once

#include <QObject>

/// Enumerations for QML.
class KernovaQML : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    enum KernoOrder {
        KernoOrderNone = 0,
        KernoOrderByTitle = 260,
        KernoOrderByTimestamp = 262,
        KernoOrderManual = 0,
        KernoOrderByNumberOfHighlights = 266
    };
    Q_ENUM(KernoOrder)

    enum MetadataKeysOrder { MetadataKeyOrderNone = 0, MetadataKeyOrderByName = 1 };
    Q_ENUM(MetadataKeysOrder)

    enum Order { OrderAscending = 0, OrderDescending = 1 };
    Q_ENUM(Order)
};
