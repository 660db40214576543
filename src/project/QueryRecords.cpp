#include "project/QueryRecords.h"

#include "wire/Operations.h"

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

QVector<criteria::Results> QueryRecords::read(const QJsonArray& answer, int rows) {
    QVector<criteria::Results> all(rows);
    for (criteria::Results& results : all)
        results.reserve(answer.size());
    for (const QJsonValue& element : answer) {
        QJsonObject kerno = element.toObject();
        const QJsonArray list = kerno.take(highlightsName).toArray();
        const int kernoNumber = m_kernos.add(kerno);
        for (criteria::Results& results : all)
            results.append(criteria::Item{kernoNumber, {}});
        for (const QJsonValue& value : list) {
            const QJsonObject highlight = value.toObject();
            const int number = m_highlights.add(highlight);
            const int passes = highlight.value(wire::name::passes).toInt();
            for (int row = 0; row < rows; ++row) {
                if (passes >> row & 1)
                    all[row].last().highlights.append(number);
            }
        }
    }
    return all;
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
