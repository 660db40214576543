#include "app/SourceTabs.h"

#include "app/TabPolicy.h"
#include "link/IdManager.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

namespace {

QString preferenceKey() {
    return QStringLiteral("SourcesList.CurrentIds");
}

QString toText(const QList<int>& ids) {
    QJsonArray array;
    for (int id : ids)
        array.append(id);
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QList<int> fromText(const QString& text) {
    QList<int> ids;
    const QJsonArray array = QJsonDocument::fromJson(text.toUtf8()).array();
    for (const QJsonValue& id : array)
        ids << id.toInt();
    return ids;
}

QList<int> idsOf(const SourceModel* sources) {
    QList<int> ids;
    for (int row = 0; row < sources->rowCount(); ++row)
        ids << sources->index(row).data(static_cast<int>(SourceField::sourceId)).toInt();
    return ids;
}

}  // namespace

SourceTabs::SourceTabs(QObject* parent)
    : QObject(parent), m_file(qobject_cast<KRNFile*>(ProjectEvents::current())) {
    const SourceModel* const sources = m_file->sourceModel();
    for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(sources, signal, this, &SourceTabs::updateView);
    connect(sources, &QAbstractItemModel::modelReset, this, &SourceTabs::updateView);
    connect(sources, &QAbstractItemModel::dataChanged, this, &SourceTabs::updateView);
    connect(m_file, &ProjectEvents::newSourceAdded, this, &SourceTabs::notifyNewSourceAdded);
    connect(m_file, &ProjectEvents::sourceDeleted, this, &SourceTabs::updateView);
    connect(m_file, &ProjectEvents::fileClosed, this, &SourceTabs::onFileClosed);
}

void SourceTabs::setCurrentSourceId(int sourceId) {
    if (sourceId == m_currentSourceId)
        return;
    m_currentSourceId = sourceId;
    emit currentSourceIdChanged();
    refresh();
}

void SourceTabs::switchToSource(int sourceId) {
    if (sourceId == m_currentSourceId)
        return;
    if (sourceId > 0 && !m_currentIds.contains(sourceId)) {
        m_currentIds = tabs::withFirst(m_currentIds, sourceId);
        saveCurrentIds();
        refresh();
    }
    request(sourceId);
}

void SourceTabs::updateView() {
    const SourceModel* const sources = m_file->sourceModel();
    const bool complete = std::all_of(m_currentIds.cbegin(), m_currentIds.cend(),
                                      [sources](int id) { return sources->contains(id); });
    if (m_file->isOpened() && (m_currentIds.isEmpty() || !complete))
        restoreSavedCurrentIds();
    refresh();
}

void SourceTabs::notifyNewSourceAdded(int sourceId) {
    // Of many that are imported at once, each is announced when later ones have their ids already.
    const bool last = sourceId == IdManager::instance()->maxSourceId();
    const bool own = IdManager::instance()->claimStockedSource(sourceId) || last;
    if (!m_currentIds.contains(sourceId) && tabs::takesNew(m_currentIds, own)) {
        m_currentIds = tabs::withFirst(m_currentIds, sourceId);
        // Saving waits for all that is being stored.
        if (last || !own)
            saveCurrentIds();
        refresh();
    }
    if (last)
        switchToSource(sourceId);
}

void SourceTabs::onFileClosed() {
    m_currentIds.clear();
    request(-1);
    refresh();
}

void SourceTabs::restoreSavedCurrentIds() {
    const QList<int> before = m_currentIds;
    const QString remembered = m_file->getPreference(preferenceKey(), toText(before)).toString();
    m_currentIds = tabs::restored(fromText(remembered), idsOf(m_file->sourceModel()));
    if (m_currentIds != before)
        saveCurrentIds();
    refresh();
    if (!m_currentIds.contains(m_currentSourceId))
        request(m_currentIds.value(0, -1));
}

void SourceTabs::saveCurrentIds() const {
    if (m_file->canMutate(false))
        m_file->savePreference(preferenceKey(), toText(m_currentIds));
}

void SourceTabs::request(int sourceId) {
    if (sourceId != m_currentSourceId)
        emit sourceRequested(sourceId);
}

void SourceTabs::refresh() {
    const SourceModel* const sources = m_file->sourceModel();
    QVariantList tabs;
    for (int id : qAsConst(m_currentIds)) {
        tabs << QVariantMap{{QStringLiteral("sourceId"), id},
                            {QStringLiteral("title"), sources->record(id).title()}};
    }
    if (tabs != m_tabs) {
        m_tabs = tabs;
        emit tabsChanged();
    }
    const int percentage = sources->percentageCoded(m_currentSourceId);
    if (percentage != m_percentageCoded) {
        m_percentageCoded = percentage;
        emit percentageCodedChanged();
    }
}

#include "moc_SourceTabs.cpp"
