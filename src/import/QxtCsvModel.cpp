#include "import/QxtCsvModel.h"

#include <QTextCodec>
#include <QTextStream>
#include <algorithm>

namespace {

template <typename List> void pad(List& list, int size) {
    while (list.size() < size)
        list.append(QString());
}

}  // namespace

void QxtCsvModel::setSource(QIODevice* device, bool withHeader, QChar separator, QTextCodec* codec) {
    QTextStream stream(device);
    stream.setCodec(codec ? codec : QTextCodec::codecForName("UTF-8"));
    stream.setAutoDetectUnicode(!codec);
    beginResetModel();
    m_rows = csvRows(stream.readAll(), separator, m_quotes);
    m_header = withHeader && !m_rows.isEmpty() ? m_rows.takeFirst() : QStringList();
    m_columns = m_header.size();
    for (const QStringList& row : qAsConst(m_rows))
        m_columns = std::max(m_columns, row.size());
    endResetModel();
}

int QxtCsvModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows.size();
}

int QxtCsvModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_columns;
}

QString QxtCsvModel::text(int row, int column) const {
    return row >= 0 && row < m_rows.size() ? m_rows.at(row).value(column) : QString();
}

QVariant QxtCsvModel::data(const QModelIndex& index, int role) const {
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
    return index.isValid() && isText ? text(index.row(), index.column()) : QVariant();
}

bool QxtCsvModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    QStringList& row = m_rows[index.row()];
    pad(row, index.column() + 1);
    row[index.column()] = value.toString();
    emit dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    return true;
}

QVariant QxtCsvModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section < m_header.size())
        return m_header.value(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}

void QxtCsvModel::setHeader(const QStringList& header) {
    m_header = header;
    if (m_columns > 0)
        emit headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
}

Qt::ItemFlags QxtCsvModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | (index.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool QxtCsvModel::insertRows(int row, int count, const QModelIndex& parent) {
    if (parent.isValid() || row < 0 || row > m_rows.size() || count < 1)
        return false;
    beginInsertRows(parent, row, row + count - 1);
    m_rows.insert(row, count, QStringList());
    endInsertRows();
    return true;
}

bool QxtCsvModel::removeRows(int row, int count, const QModelIndex& parent) {
    if (parent.isValid() || row < 0 || count < 1 || row + count > m_rows.size())
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    m_rows.remove(row, count);
    endRemoveRows();
    return true;
}

bool QxtCsvModel::insertColumns(int column, int count, const QModelIndex& parent) {
    if (parent.isValid() || column < 0 || column > m_columns || count < 1)
        return false;
    beginInsertColumns(parent, column, column + count - 1);
    const auto insert = [&](QStringList& list) {
        for (int i = 0; i < count && column <= list.size(); ++i)
            list.insert(column, QString());
    };
    std::for_each(m_rows.begin(), m_rows.end(), insert);
    insert(m_header);
    m_columns += count;
    endInsertColumns();
    return true;
}

bool QxtCsvModel::removeColumns(int column, int count, const QModelIndex& parent) {
    if (parent.isValid() || column < 0 || count < 1 || column + count > m_columns)
        return false;
    beginRemoveColumns(parent, column, column + count - 1);
    const auto remove = [&](QStringList& list) { list = list.mid(0, column) + list.mid(column + count); };
    std::for_each(m_rows.begin(), m_rows.end(), remove);
    remove(m_header);
    m_columns -= count;
    endRemoveColumns();
    return true;
}
