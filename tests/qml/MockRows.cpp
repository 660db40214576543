#include "MockRows.h"

QVariant MockRows::data(const QModelIndex& index, int role) const {
    const QString name = m_roles.value(role - Qt::UserRole - 1);
    return name.isEmpty() ? QVariant() : m_rows.value(index.row()).toMap().value(name);
}

QHash<int, QByteArray> MockRows::roleNames() const {
    QHash<int, QByteArray> names;
    for (const QString& name : m_roles)
        names.insert(role(name), name.toUtf8());
    return names;
}

void MockRows::setColumns(int columns) {
    m_columns = columns;
    emit columnsChanged();
}

void MockRows::reset(const QVariantList& rows) {
    beginResetModel();
    m_rows = rows;
    if (m_roles.isEmpty() && !rows.isEmpty())
        m_roles = rows.first().toMap().keys();
    endResetModel();
}

void MockRows::append(const QVariantMap& row) {
    if (m_roles.isEmpty()) {
        reset({row});
        return;
    }
    beginInsertRows({}, m_rows.size(), m_rows.size());
    m_rows.append(row);
    endInsertRows();
}

void MockRows::change(int row, const QVariantMap& values) {
    QVariantMap all = m_rows.value(row).toMap();
    for (auto value = values.begin(); value != values.end(); ++value)
        all.insert(value.key(), value.value());
    m_rows[row] = all;
    emit dataChanged(index(row), index(row));
}

void MockRows::removeAt(int row) {
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

int MockRows::find(const QString& key, const QVariant& value) const {
    for (int row = 0; row < m_rows.size(); ++row) {
        if (m_rows.at(row).toMap().value(key) == value)
            return row;
    }
    return -1;
}

MockProxy::MockProxy(MockRows* rows, const QString& filterRoleName, QObject* parent)
    : QSortFilterProxyModel(parent), m_filterRoleName(filterRoleName) {
    setSourceModel(rows);
    connect(this, &QAbstractItemModel::rowsInserted, this, &MockProxy::countChanged);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &MockProxy::countChanged);
    connect(this, &QAbstractItemModel::modelReset, this, &MockProxy::countChanged);
}

QVariant MockProxy::get(int index, const QByteArray& roleName) const {
    return data(this->index(index, 0), rows()->role(QString::fromUtf8(roleName)));
}

bool MockProxy::filterAcceptsRow(int row, const QModelIndex& parent) const {
    Q_UNUSED(parent)
    return m_filterRoleName.isEmpty() || rows()->row(row).value(m_filterRoleName).toInt() == m_filterValue;
}

void MockProxy::setFilterValue(int value) {
    m_filterValue = value;
    invalidateFilter();
}

MockKernos::MockKernos(QObject* parent) : MockProxy(source(), QStringLiteral("parentKernoId"), parent) {}

MockRows* MockKernos::source() {
    static MockRows rows(
        QStringLiteral("kernoId parentKernoId title color description x y visible highlightsCount scale "
                       "hasChildren highlightsCountWithChildren")
            .split(QLatin1Char(' ')));
    return &rows;
}

void MockKernos::setParentKernoId(int id) {
    setFilterValue(id);
    emit changed();
}

QList<int> MockKernos::currentSortOrder() const {
    QList<int> ids;
    for (int row = 0; row < rowCount(); ++row)
        ids.append(get(row, "kernoId").toInt());
    return ids;
}

MockSources::MockSources(QObject* parent) : MockProxy(source(), {}, parent) {}

MockRows* MockSources::source() {
    static MockRows rows(
        QStringLiteral("sourceId title icon author timestamp sourcePercentageCoded").split(QLatin1Char(' ')));
    return &rows;
}

QVariantList MockSources::getSortModes() const {
    return {QStringLiteral("Default - Ascending"), QStringLiteral("Default - Descending"),
            QStringLiteral("Title - Ascending"), QStringLiteral("Title - Descending")};
}

MockAnswers::MockAnswers(QObject* parent) : MockProxy(source(), QStringLiteral("sourceId"), parent) {}

MockRows* MockAnswers::source() {
    static MockRows rows(
        QStringLiteral("answerId questionId sourceId question answer isHtml").split(QLatin1Char(' ')));
    return &rows;
}

void MockAnswers::setSourceId(int id) {
    setFilterValue(id);
    emit sourceIdChanged();
}
