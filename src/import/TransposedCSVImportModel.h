#pragma once

#include "import/CSVImportModel.h"
#include "undo/SourceTable.h"

#include <QAbstractListModel>
#include <QUrl>
#include <QVariant>

/// A table that is to be imported, with a row for each of its columns: where a person says what the columns
/// hold.
class TransposedCSVImportModel : public QAbstractListModel, public SourceTable {
    Q_OBJECT
    Q_INTERFACES(SourceTable)
    Q_PROPERTY(int sourcesCount READ sourcesCount NOTIFY sourcesCountChanged)

public:
    enum Role { ColumnTypeRole = Qt::UserRole + 1, ColumnNameRole };

    explicit TransposedCSVImportModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int sourcesCount() const override { return m_table.rowCount(); }
    std::unique_ptr<FileManipulationCommand> importCommand(KRNFile* file) const override;

    /// Whether the file has at least one row below its header.
    Q_INVOKABLE bool openFile(const QUrl& url);
    /// `type` is a `CSVImportModel::ColumnType`; another is ignored.
    Q_INVOKABLE void setSectionType(int section, int type);
    /// What a column may hold, as maps with `text` and `value`.
    Q_INVOKABLE QVariantList columnTypeDropDownModel() const;
    /// Where a type stands in that list; 0 for one that doesn't.
    Q_INVOKABLE int columnTypeDropDownIndex(int value) const;
    /// Whether the table can be imported into the open project; otherwise a box tells why, if it is wanted.
    Q_INVOKABLE bool canImport(bool showErrorDialog);

    const CSVImportModel& table() const { return m_table; }

signals:
    void sourcesCountChanged();

private:
    CSVImportModel m_table;
};
