#pragma once

#include <QJsonValue>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>

/// Base of every record: a value that reads itself from one JSON object of the service and writes itself as
/// the argument list of a mutation. `K` is the type of its key, `F` its field enumeration.
template <typename K, typename F> class IModel {
public:
    using Key = K;
    using Field = F;

    IModel() = default;
    virtual ~IModel() = default;

    /// A copy counts as read well, whatever its source; an assignment takes the flag over.
    IModel(const IModel&) : m_parsedOk(true) {}
    IModel(IModel&& other) noexcept = default;
    IModel& operator=(const IModel& other) = default;
    IModel& operator=(IModel&& other) noexcept = default;

    virtual bool isValid() const = 0;
    virtual K id() const = 0;

    /// One text for each field that is sent, in the order of the field table.
    virtual QStringList mutationArguments() const = 0;

    /// The value of a field by its number; invalid for a number outside the table. `forService` gives the
    /// timestamp as whole seconds since the epoch, now.
    virtual QVariant fieldValue(int role, bool forService) const = 0;

    /// Whether all compared fields have the same value.
    virtual bool equals(const IModel& other) const = 0;

    /// All fields by role name, local ones included.
    virtual QVariantMap toVariantMap() const = 0;

    virtual QJsonValue toJson() const { return QJsonValue::fromVariant(toVariantMap()); }

    /// Whether every field could be read; true for a record built field by field, false for an empty one.
    bool parsedOk() const { return m_parsedOk; }

protected:
    explicit IModel(bool parsedOk) : m_parsedOk(parsedOk) {}
    void setParsedOk(bool ok) { m_parsedOk = ok; }

private:
    bool m_parsedOk = false;
};
