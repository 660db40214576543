#pragma once

#include <QMetaType>
#include <QObject>
#include <QString>

/// A number with a text, for QML.
class IntKeyStringValuePair {
    Q_GADGET
    Q_PROPERTY(int key MEMBER key)
    Q_PROPERTY(QString value MEMBER value)

public:
    int key = 0;
    QString value;
};

Q_DECLARE_METATYPE(IntKeyStringValuePair)
