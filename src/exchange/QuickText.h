#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QRandomGenerator>

/// Texts that an exchange document has by the hundred thousand.

/// New random GUIDs of version 4, without braces. Seeded by the system once, because to ask it for each costs
/// more than all else of an element.
class NewGuids {
public:
    QByteArray next();

private:
    QRandomGenerator64 m_random = QRandomGenerator64::securelySeeded();
};

/// Times in UTC in the form of ISO 8601, "2020-03-04T05:06:07Z". Empty for an invalid one.
class IsoTimes {
public:
    QByteArray utc(const QDateTime& time);

private:
    qint64 m_day = -1;  ///< whose date is known, counted from the epoch
    QByteArray m_date;
};
