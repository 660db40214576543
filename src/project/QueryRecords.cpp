#include "project/QueryRecords.h"

namespace {

const QString kernoName = QStringLiteral("kerno");
const QString highlightsName = QStringLiteral("highlights");

}  // namespace

criteria::Results QueryRecords::read(const QJsonArray& answer) {
    criteria::Results results;
    results.reserve(answer.size());
    for (const QJsonValue& element : answer) {
        QJsonObject kerno = element.toObject();
        const QJsonArray list = kerno.take(highlightsName).toArray();
        criteria::Item item{m_kernos.numberOf(kerno), {}};
        item.highlights.reserve(list.size());
        for (const QJsonValue& highlight : list)
            item.highlights.append(m_highlights.numberOf(highlight.toObject()));
        results.append(item);
    }
    return results;
}

QVariantList QueryRecords::toMaps(const criteria::Results& results) const {
    QVariantList items;
    items.reserve(results.size());
    for (const criteria::Item& item : results) {
        QVariantList list;
        list.reserve(item.highlights.size());
        for (int number : item.highlights)
            list.append(m_highlights.map(number));
        items.append(QVariantMap{{kernoName, m_kernos.map(item.kerno)}, {highlightsName, list}});
    }
    return items;
}
