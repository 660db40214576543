#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/KernovaQML.h"
#include "project/KernoTree.h"
#include "project/RecordMaps.h"
#include "project/SortOrder.h"

#include <algorithm>

namespace {

const QString id = QStringLiteral("id");
const QString parentId = QStringLiteral("parentKernoId");

QSet<int> idSet(const QVariantList& ids) {
    QSet<int> set;
    for (const QVariant& value : ids)
        set.insert(value.toInt());
    return set;
}

QString kernoWord() {
    return wire::word(wire::Record::Kerno);
}

}  // namespace

QVariantList KRNFile::kernoIds() const {
    return m_dataHelper->queryIds(reads::kernoIds(), kernoWord(), id);
}

QVariantList KRNFile::kernoIds(int parentKernoId) const {
    return m_dataHelper->queryIds(reads::kernoIdsOfParent(parentKernoId), kernoWord(), id);
}

QVariantList KRNFile::kernoIds(const QVariant& parentKernoId) const {
    return kernoIds(parentKernoId.toInt());
}

QVariantList KRNFile::kernoIds(const QVariant& parentKernoId, const QVariantList& manualSortOrder,
                               int orderBy, int order) const {
    if (!isOpened())
        return manualSortOrder;
    if (orderBy == KernovaQML::KernoOrderByNumberOfHighlights)
        return {};  // the service knows no such order
    if (orderBy == KernovaQML::KernoOrderManual)
        return order::byManualOrder(kernoIds(parentKernoId), manualSortOrder);
    return kernotree::sortedIds(kernosForParent(parentKernoId.toInt()), orderBy, order != 0);
}

QVariantList KRNFile::kernoIdsForKernosWithChildren() const {
    return kernotree::parents(m_dataHelper->queryIds(reads::parentKernoIds(), kernoWord(), parentId));
}

QVariantList KRNFile::kernoIdsForKernosWithOverlaps() const {
    return m_dataHelper
        ->queryValue(wire::kernoIdsForKernosWithOverlap(), wire::name::kernoIdsForKernosWithOverlap)
        .toArray()
        .toVariantList();
}

bool KRNFile::kernoHasChildren(int parentKernoId) const {
    return m_dataHelper->queryValue(wire::kernoHasChildren(parentKernoId), wire::name::kernoHasChildren)
        .toVariant()
        .toBool();
}

QVariantList KRNFile::kernos() const {
    return toMaps(allKernos());
}

QVariantList KRNFile::kernos(const QVariantList& excludeIds) const {
    return toMaps(kernotree::without(kernoModel()->snapshot(), idSet(excludeIds)));
}

QVariantList KRNFile::kernosWithoutParent() const {
    return kernosWithoutParent({});
}

QVariantList KRNFile::kernosWithoutParent(const QVariantList& excludeIds) const {
    const QList<Kerno> top = kernotree::topLevel(kernoModel()->snapshot());
    return toMaps(kernotree::without(top, idSet(excludeIds)));
}

QList<Kerno> KRNFile::allKernos() const {
    return m_dataHelper->findAll<Kerno>();
}

QList<Kerno> KRNFile::kernosForParent(int parentKernoId) const {
    return kernoModel()->childrenOf(parentKernoId);
}

Kerno KRNFile::kerno(int kernoId) const {
    return kernoModel() ? kernoModel()->record(kernoId) : Kerno();
}

bool KRNFile::anyVisibleChildren(int parentKernoId) const {
    const QList<Kerno> below = kernotree::descendants(kernoModel()->snapshot(), parentKernoId);
    return std::any_of(below.begin(), below.end(), [](const Kerno& kerno) { return kerno.visible(); });
}

QStringList KRNFile::kernosAuthors() const {
    return m_dataHelper->queryAuthors(kernoWord());
}

bool KRNFile::canReparent(int kernoId, int newParentId) const {
    return kernoModel()->canReparent(kernoId, newParentId);
}

void KRNFile::filterKernosByName(const QString& name) {
    kernoModel()->filterByName(name);
}

void KRNFile::applyGroupFilter(bool apply) {
    m_shownGroups.clear();
    kernoModel()->applyGroupFilter(apply);
}

void KRNFile::setGroupVisible(int groupId, bool visible) {
    if (visible)
        m_shownGroups.insert(groupId);
    else
        m_shownGroups.remove(groupId);
    groupModel()->setVisible(groupId, visible);
    for (const KernoGroup& link : kernoGroupModel()->linksOfGroup(groupId))
        kernoModel()->setGroupVisible(link.kernoId(), visible || isInShownGroup(link.kernoId()));
}

bool KRNFile::isInShownGroup(int kernoId) const {
    const QVariantList groups = getAssociatedGroups(kernoId);
    return std::any_of(groups.begin(), groups.end(),
                       [this](const QVariant& group) { return m_shownGroups.contains(group.toInt()); });
}

void KRNFile::followGroupFilter(int kernoId) {
    if (!m_shownGroups.isEmpty())
        kernoModel()->setGroupVisible(kernoId, isInShownGroup(kernoId));
}

QVariantList KRNFile::getAssociatedGroups(int kernoId) const {
    QVariantList ids;
    for (const KernoGroup& link : kernoGroupModel()->linksOfKerno(kernoId))
        ids.append(link.groupId());
    return ids;
}

int KRNFile::getOverlap(int kerno1Id, int kerno2Id) const {
    return m_dataHelper->queryInt(wire::highlightOverlapCount(kerno1Id, kerno2Id),
                                  wire::name::highlightOverlapCount);
}

QList<int> KRNFile::overlapsOf(int kernoId, const QList<int>& others) {
    QStringList texts;
    for (int other : others)
        texts.append(wire::highlightOverlapCount(kernoId, other));
    return m_dataHelper->queryInts(texts, wire::name::highlightOverlapCount);
}

int KRNFile::getOverlappingKernosCount(int kernoId) const {
    return m_dataHelper->queryInt(wire::kernoOverlapCount(kernoId), wire::name::kernoOverlapCount);
}
