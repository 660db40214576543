#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

/// What is wrong with a request. Nothing was changed by it.
struct Fault {
    QString message;    ///< one sentence
    int position = -1;  ///< in the query text, in UTF-16 units; -1 when the fault has no place there
};

/// The payload of a reply that reports faults: `{"errors":[{"message":...},...]}`. The position is part of
/// the message.
QByteArray errorsPayload(const std::vector<Fault>& faults);
QByteArray errorsPayload(const QString& message);
