#pragma once

#include "protocol/Fault.h"
#include "store/ProjectStore.h"
#include "wire/QueryParser.h"

#include <QSet>
#include <QString>
#include <optional>
#include <vector>

/// Reads an operation's arguments and gathers what is wrong with them. An argument that nobody asked for is
/// a fault as well.
class Arguments {
public:
    explicit Arguments(const wire::ParsedQuery& query) : m_query(query) {}

    bool has(const QString& name) const { return m_query.argument(name) != nullptr; }

    qint64 integer(const QString& name);
    qint64 integer(const QString& name, qint64 fallback);
    QString text(const QString& name);
    QString text(const QString& name, const QString& fallback);
    bool boolean(const QString& name, bool fallback);
    /// A list of numbers, or a text of numbers with commas between them.
    std::vector<qint64> ids(const QString& name);
    /// The records of a batch: their arguments.
    std::vector<const std::vector<wire::QueryArgument>*> records(const QString& name);

    /// False when there were faults.
    bool finish();

    std::vector<Fault> faults;

private:
    const wire::QueryArgument* find(const QString& name, bool required);

    const wire::ParsedQuery& m_query;
    QSet<QString> m_known;
};

/// Reads a value as a column's type; an invalid one and a fault when it isn't of that type.
QVariant columnValue(const Column& column, const wire::QueryArgument& argument, std::vector<Fault>* faults);

/// Reads a record's arguments. `position` is where its lack of an id is reported.
RecordValues recordValues(const Table& table, const std::vector<wire::QueryArgument>& arguments, int position,
                          std::vector<Fault>* faults);

/// The places of the requested fields in the table's columns; all of them when none are requested. `nested`
/// is the name of a field that may stand among them with fields of its own, which are left to the caller.
std::vector<int> requestedColumns(const Table& table, const std::vector<wire::QueryField>& fields,
                                  std::vector<Fault>* faults, const QString& nested = {});
