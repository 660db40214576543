#pragma once

#include "import/CsvReader.h"

#include <QAbstractTableModel>

class QIODevice;
class QTextCodec;

/// A table of texts that is read from CSV. A row may be shorter than others; what it lacks is empty.
class QxtCsvModel : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit QxtCsvModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    /// Reads the device, which is open, and replaces all rows. With `withHeader` the first row becomes the
    /// header. Without a codec the text is UTF-8, or what its byte order mark says.
    void setSource(QIODevice* device, bool withHeader = false, QChar separator = QLatin1Char(','),
                   QTextCodec* codec = nullptr);

    CsvQuotes quoteMode() const { return m_quotes; }
    /// For what is read from now on.
    void setQuoteMode(CsvQuotes quotes) { m_quotes = quotes; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool insertRows(int row, int count, const QModelIndex& parent = {}) override;
    bool removeRows(int row, int count, const QModelIndex& parent = {}) override;
    bool insertColumns(int column, int count, const QModelIndex& parent = {}) override;
    bool removeColumns(int column, int count, const QModelIndex& parent = {}) override;

    QStringList header() const { return m_header; }
    void setHeader(const QStringList& header);

    /// Empty for a cell that isn't there.
    QString text(int row, int column) const;

private:
    QVector<QStringList> m_rows;
    QStringList m_header;
    int m_columns = 0;
    CsvQuotes m_quotes = defaultCsvQuotes;
};
