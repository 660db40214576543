#pragma once

#include "import/CSVImportModel.h"
#include "project/Progress.h"
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
    Q_PROPERTY(bool importing READ isImporting NOTIFY importingChanged)
    Q_PROPERTY(int percent READ percent NOTIFY percentChanged)

public:
    enum Role { ColumnTypeRole = Qt::UserRole + 1, ColumnNameRole };

    explicit TransposedCSVImportModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int sourcesCount() const override { return m_table.rowCount(); }
    /// Handles events meanwhile, so that its progress shows and a person can end it, or tells
    /// `setProgress`'s.
    std::unique_ptr<FileManipulationCommand> importCommand(KRNFile* file) override;
    void setProgress(const Progress& progress) { m_progress = progress; }
    bool isImporting() const { return m_importing; }
    int percent() const { return m_percent; }

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

    /// Ends an import that is prepared: nothing has changed then.
    Q_INVOKABLE void cancelImport() { m_cancelled = true; }

    const CSVImportModel& table() const { return m_table; }

signals:
    void sourcesCountChanged();
    void importingChanged();
    void percentChanged();

private:
    bool goOn(qint64 row, qint64 of);

    CSVImportModel m_table;
    Progress m_progress;
    bool m_importing = false;
    bool m_cancelled = false;
    int m_percent = 0;
};
