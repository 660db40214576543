#include "models/ComboBoxProxyModel.h"

#include "models/BaseProxyModel.h"
#include "models/DelayedSignalTrigger.h"
#include "models/KernoModel.h"
#include "models/ModelDelays.h"
#include "models/ProjectEvents.h"
#include "records/SourceMetadataValue.h"

#include <QFont>

ComboBoxProxyModel::ComboBoxProxyModel(QObject* parent)
    : QAbstractProxyModel(parent), m_trigger(new DelayedSignalTrigger(modelDelays().comboBox, this)) {
    connect(m_trigger, &QTimer::timeout, this, &ComboBoxProxyModel::resetRows);
}

void ComboBoxProxyModel::setDummyEntryText(const QString& text) {
    if (m_dummyEntryText == text)
        return;
    m_dummyEntryText = text;
    emit dummyEntryTextChanged();
    emit dataChanged(index(0, 0), index(0, 0));
}

void ComboBoxProxyModel::setSourceModel(QAbstractItemModel* model) {
    beginResetModel();
    if (QAbstractItemModel* previous = sourceModel())
        previous->disconnect(m_trigger);
    QAbstractProxyModel::setSourceModel(model);
    if (model) {
        const auto restart = &DelayedSignalTrigger::restart;
        connect(model, &QAbstractItemModel::rowsInserted, m_trigger, restart);
        connect(model, &QAbstractItemModel::rowsRemoved, m_trigger, restart);
        connect(model, &QAbstractItemModel::rowsMoved, m_trigger, restart);
        connect(model, &QAbstractItemModel::modelReset, m_trigger, restart);
        connect(model, &QAbstractItemModel::dataChanged, m_trigger, restart);
    }
    endResetModel();
}

void ComboBoxProxyModel::resetRows() {
    beginResetModel();
    endResetModel();
}

int ComboBoxProxyModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    return (sourceModel() ? sourceModel()->rowCount() : 0) + 1;
}

int ComboBoxProxyModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 1;
}

bool ComboBoxProxyModel::hasChildren(const QModelIndex& parent) const {
    return !parent.isValid();
}

QModelIndex ComboBoxProxyModel::index(int row, int column, const QModelIndex& parent) const {
    if (parent.isValid() || row < 0 || row > rowCount() || column != 0)
        return {};
    return createIndex(row, column);
}

QModelIndex ComboBoxProxyModel::parent(const QModelIndex&) const {
    return {};
}

QModelIndex ComboBoxProxyModel::sibling(int row, int column, const QModelIndex&) const {
    return index(row, column);
}

QVariant ComboBoxProxyModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (index.row() > 0)
        return QAbstractProxyModel::data(index, role);
    switch (role) {
    case Qt::DecorationRole:
        return {};
    case Qt::FontRole: {
        QFont font;
        font.setItalic(true);
        return font;
    }
    default:
        return m_dummyEntryText;
    }
}

Qt::ItemFlags ComboBoxProxyModel::flags(const QModelIndex& index) const {
    if (index.isValid() && index.row() == 0)
        return Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return QAbstractProxyModel::flags(index);
}

QModelIndex ComboBoxProxyModel::mapFromSource(const QModelIndex& sourceIndex) const {
    if (!sourceIndex.isValid() || sourceIndex.parent().isValid())
        return {};
    return index(sourceIndex.row() + 1, sourceIndex.column());
}

QModelIndex ComboBoxProxyModel::mapToSource(const QModelIndex& proxyIndex) const {
    if (!sourceModel() || !proxyIndex.isValid() || proxyIndex.row() < 1)
        return {};
    return sourceModel()->index(proxyIndex.row() - 1, proxyIndex.column());
}

QVariantMap ComboBoxProxyModel::get(int index) const {
    return itemmodel::rowMap(*this, index);
}

QVariantList ComboBoxProxyModel::getAllItems() const {
    return itemmodel::allRows(*this);
}

KernoComboBoxModel::KernoComboBoxModel(QObject* parent) : ComboBoxProxyModel(parent) {
    auto* sorted = new QSortFilterProxyModel(this);
    sorted->setSortRole(static_cast<int>(KernoField::title));
    if (ProjectEvents* project = ProjectEvents::current())
        sorted->setSourceModel(project->kernoModel());
    sorted->sort(0, Qt::AscendingOrder);
    setSourceModel(sorted);
}

int KernoComboBoxModel::findIndex(int kernoId) const {
    const int rows = rowCount();
    for (int row = 1; row < rows; ++row) {
        if (index(row, 0).data(static_cast<int>(KernoField::kernoId)).toInt() == kernoId)
            return row;
    }
    return 0;
}

int KernoComboBoxModel::getKernoId(int row) const {
    if (row < 1 || row >= rowCount())
        return -1;
    return index(row, 0).data(static_cast<int>(KernoField::kernoId)).toInt();
}

SourceMetadataValueComboBoxProxyModel::SourceMetadataValueComboBoxProxyModel(QObject* parent)
    : ComboBoxProxyModel(parent) {
    setDummyEntryText(tr("-- New Value --", "ComboBox - metdadata value"));
}

QVariant SourceMetadataValueComboBoxProxyModel::data(const QModelIndex& index, int role) const {
    if (index.isValid() && index.row() == 0) {
        if (role == static_cast<int>(SourceMetadataValueField::value))
            return ComboBoxProxyModel::data(index, 0);
        if (role == static_cast<int>(SourceMetadataValueField::valueId))
            return -1;
    }
    return ComboBoxProxyModel::data(index, role);
}
