#pragma once

#include "import/QxtCsvModel.h"

#include <QMap>

/// A table each of whose rows is to become a source, and what is in its columns.
class CSVImportModel : public QxtCsvModel {
    Q_OBJECT

public:
    enum ColumnType { Ignore = 0, Property = 1, Question = 2, Title = 3 };
    Q_ENUM(ColumnType)

    using QxtCsvModel::QxtCsvModel;

    /// Reads a file in UTF-8 with a header. Whether it has at least one row; a file that can't be read leaves
    /// an empty table.
    bool readFile(const QString& path);

    ColumnType columnType(int column) const { return m_types.value(column, Ignore); }
    void setColumnType(int column, ColumnType type) { m_types.insert(column, type); }

    /// The header's cell; a column without one is called by its number.
    QString columnName(int column) const;
    /// The columns of a type, from left to right, and their names.
    QList<int> columnsOf(ColumnType type) const;
    QStringList namesOf(ColumnType type) const;

    /// Why the table can't be imported into a project, which is in single question mode or not, as it stands;
    /// empty when it can.
    QString refusal(bool singleQuestion) const;

private:
    QMap<int, ColumnType> m_types;
};
