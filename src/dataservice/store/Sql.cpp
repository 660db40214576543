#include "store/Sql.h"

namespace sql {
namespace {

const QString comma = QStringLiteral(", ");

QString places(int count) {
    QString text;
    for (int i = 0; i < count; ++i)
        text += i == 0 ? QLatin1String("?") : QLatin1String(", ?");
    return text;
}

/// A column in a list of results. A highlight without its kerno is shown in black.
QString selected(const Column& column) {
    if (column.joined)
        return QStringLiteral("COALESCE(k.") + quoted(column.name) + QStringLiteral(", '#000000')");
    const QString name = QStringLiteral("t.") + quoted(column.name);
    // As bytes, because the two units that are no characters don't survive the database's own conversion.
    return column.type == FieldType::Text || column.type == FieldType::Scalar ? asBytes(name) : name;
}

}  // namespace

const QString counterTable = QStringLiteral("tbl_id_counter");
const QString removedTable = QStringLiteral("tbl_removed_record");

QString quoted(const QString& name) {
    return QLatin1Char('"') + name + QLatin1Char('"');
}

QString asBytes(const QString& expression) {
    return QStringLiteral("CAST(") + expression + QStringLiteral(" AS BLOB)");
}

QString equals(const QString& column) {
    return QStringLiteral("t.") + quoted(column) + QStringLiteral(" = ?");
}

QString select(const Select& what) {
    const Table& table = *what.table;
    QStringList names;
    bool joins = false;
    for (int place : what.columns) {
        const Column& column = table.columns[static_cast<size_t>(place)];
        joins = joins || column.joined;
        names << selected(column);
    }
    QString text = QStringLiteral("SELECT ") + names.join(comma) + QStringLiteral(" FROM ") + table.name +
                   QStringLiteral(" t");
    if (joins) {
        text += QStringLiteral(" LEFT JOIN ") + tableOf(wire::Record::Kerno).name +
                QStringLiteral(" k ON k.\"id\" = t.\"kernoId\"");
    }
    if (!what.conditions.isEmpty())
        text += QStringLiteral(" WHERE ") + what.conditions.join(QStringLiteral(" AND "));
    const QString id = QStringLiteral("t.") + quoted(table.id().name);
    text += QStringLiteral(" ORDER BY ");
    if (table.isPassage())
        text += QStringLiteral("t.\"start\", t.\"length\" DESC, ");
    return text + id;
}

QString upsert(const Table& table, const std::vector<int>& given, bool restore) {
    QStringList names;
    QStringList updates;
    for (int place : given) {
        const QString name = quoted(table.columns[static_cast<size_t>(place)].name);
        names << name;
        if (place != table.idColumn)
            updates << name + QStringLiteral(" = excluded.") + name;
    }
    QString values = places(names.size());
    if (table.hasTimestamp()) {
        const QString timestamp = quoted(table.columns[static_cast<size_t>(table.timestampColumn)].name);
        names << timestamp;
        values += comma;
        if (restore) {
            values += QStringLiteral("COALESCE((SELECT \"timestamp\" FROM ") + removedTable +
                      QStringLiteral(" WHERE \"record\" = ? AND \"id\" = ?), ?)");
        } else {
            values += QLatin1Char('?');
        }
    }
    const QString action =
        updates.isEmpty() ? QStringLiteral("NOTHING") : QStringLiteral("UPDATE SET ") + updates.join(comma);
    return QStringLiteral("INSERT INTO ") + table.name + QStringLiteral(" (") + names.join(comma) +
           QStringLiteral(") VALUES (") + values + QStringLiteral(") ON CONFLICT(") +
           quoted(table.id().name) + QStringLiteral(") DO ") + action;
}

QString rememberTimestamp(const Table& table) {
    return QStringLiteral("INSERT INTO ") + removedTable +
           QStringLiteral(" (\"record\", \"id\", \"timestamp\") SELECT ?, \"id\", \"timestamp\" FROM ") +
           table.name +
           QStringLiteral(" WHERE \"id\" = ? ON CONFLICT(\"record\", \"id\") DO UPDATE SET \"timestamp\" = "
                          "excluded.\"timestamp\"");
}

QString remove(const Table& table) {
    return QStringLiteral("DELETE FROM ") + table.name + QStringLiteral(" WHERE ") + quoted(table.id().name) +
           QStringLiteral(" = ?");
}

}  // namespace sql
