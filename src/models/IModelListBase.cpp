#include "models/IModelListBase.h"

#include "models/BaseProxyModel.h"
#include "models/ProjectEvents.h"

#include <QDebug>

IModelListBase::IModelListBase(DataHelper* helper, QObject* parent)
    : QAbstractListModel(parent), m_dataHelper(helper), m_project(ProjectEvents::current()) {
    connect(this, &QAbstractItemModel::dataChanged, this, &IModelListBase::modelUpdated);
    connect(this, &QAbstractItemModel::modelReset, this, &IModelListBase::modelUpdated);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &IModelListBase::modelUpdated);
    connect(this, &QAbstractItemModel::rowsInserted, this, &IModelListBase::modelUpdated);
    connect(this, &IModelListBase::asyncDataFetched, this, &IModelListBase::onAsyncDataFetched);
    if (m_project) {
        connect(m_project, &ProjectEvents::fileOpened, this, &IModelListBase::onFileOpenedInternal);
        connect(m_project, &ProjectEvents::fileClosed, this, &IModelListBase::onFileClosedInternal);
    }
}

QVariantMap IModelListBase::get(int index) const {
    return itemmodel::rowMap(*this, index);
}

QVariant IModelListBase::get(int index, const QByteArray& roleName) const {
    return itemmodel::value(*this, index, roleName);
}

void IModelListBase::refreshAsync() {
    fetchAndPublish();
}

void IModelListBase::onFileOpened() {
    if (shouldRefreshOnOpen())
        refreshAsync();
}

void IModelListBase::onFileClosed() {
    m_initialDataSet = false;
}

ProjectEvents* IModelListBase::project() const {
    return m_project;
}

void IModelListBase::announceInitialData() {
    if (m_initialDataSet)
        return;
    m_initialDataSet = true;
    emit initialDataSet();
}

void IModelListBase::onFileClosedInternal() {
    beforeFileClosed();
    onFileClosed();
}

void IModelListBase::onFileOpenedInternal() {
    onFileOpened();
}

void IModelListBase::onAsyncDataFetched(const QVariant& data) {
    qDebug() << "onAsyncDataFetched";
    onVariantData(data);
}
