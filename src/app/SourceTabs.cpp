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
        connect(sources, signal, this, &SourceTabs::onRowsChanged);
    connect(sources, &QAbstractItemModel::modelReset, this, &SourceTabs::onRowsChanged);
    connect(sources, &QAbstractItemModel::dataChanged, this, &SourceTabs::onRowsChanged);
    connect(m_file, &ProjectEvents::newSourceAdded, this, &SourceTabs::onSourceAdded);
    connect(m_file, &ProjectEvents::sourceDeleted, this, &SourceTabs::onRowsChanged);
    connect(m_file, &ProjectEvents::fileClosed, this, &SourceTabs::onFileClosed);
}

void SourceTabs::setCurrentSourceId(int sourceId) {
    if (sourceId == m_currentSourceId)
        return;
    m_currentSourceId = sourceId;
    emit currentSourceIdChanged();
    refresh();
}

void SourceTabs::open(int sourceId) {
    if (sourceId == m_currentSourceId)
        return;
    if (sourceId > 0 && !m_ids.contains(sourceId)) {
        m_ids = tabs::withFirst(m_ids, sourceId);
        remember();
        refresh();
    }
    request(sourceId);
}

void SourceTabs::onRowsChanged() {
    const SourceModel* const sources = m_file->sourceModel();
    const bool complete =
        std::all_of(m_ids.cbegin(), m_ids.cend(), [sources](int id) { return sources->contains(id); });
    if (m_file->isOpened() && (m_ids.isEmpty() || !complete))
        restore();
    refresh();
}

void SourceTabs::onSourceAdded(int sourceId) {
    const bool own = sourceId == IdManager::instance()->maxSourceId();
    if (!m_ids.contains(sourceId) && tabs::takesNew(m_ids, own)) {
        m_ids = tabs::withFirst(m_ids, sourceId);
        remember();
        refresh();
    }
    if (own)
        open(sourceId);
}

void SourceTabs::onFileClosed() {
    m_ids.clear();
    request(-1);
    refresh();
}

void SourceTabs::restore() {
    const QList<int> before = m_ids;
    const QString remembered = m_file->getPreference(preferenceKey(), toText(before)).toString();
    m_ids = tabs::restored(fromText(remembered), idsOf(m_file->sourceModel()));
    if (m_ids != before)
        remember();
    refresh();
    if (!m_ids.contains(m_currentSourceId))
        request(m_ids.value(0, -1));
}

void SourceTabs::remember() const {
    if (m_file->canMutate(false))
        m_file->savePreference(preferenceKey(), toText(m_ids));
}

void SourceTabs::request(int sourceId) {
    if (sourceId != m_currentSourceId)
        emit sourceRequested(sourceId);
}

void SourceTabs::refresh() {
    const SourceModel* const sources = m_file->sourceModel();
    QVariantList tabs;
    for (int id : qAsConst(m_ids)) {
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
