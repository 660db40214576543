#pragma once

#include <QVariantList>

/// Orders of lists that screens ask for.
namespace order {

/// The ids in the order of `manual`: first those that stand in it, then the rest as they came. Ids of
/// `manual` that are gone are left out.
QVariantList byManualOrder(const QVariantList& ids, const QVariantList& manual);

/// Comes before, for values of one type: numbers and dates by size, texts as the user's language sorts them.
bool lessThan(const QVariant& a, const QVariant& b);

/// The maps sorted by one of their members; equal ones keep their order.
QVariantList byMember(QVariantList maps, const QString& name);

}  // namespace order
