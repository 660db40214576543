#include "models/QuoteCounts.h"

#include "wire/QueryText.h"

#include <QJsonObject>

QuoteCounts::QuoteCounts(KeyVariantValueModelListCallback<int>* model)
    : m_query(wire::quoteCountsInKernos()), m_model(model) {}

void QuoteCounts::replace(const QList<KeyVariantValue<int>>& values) {
    m_entries = values;
    m_values.clear();
    m_values.reserve(values.size());
    for (const KeyVariantValue<int>& entry : values)
        m_values.insert(entry.key, entry.value);
    m_model->onKeyVariantValuesReplaced();
}

void QuoteCounts::clear() {
    m_entries.clear();
    m_values.clear();
}

QList<KeyVariantValue<int>> QuoteCounts::fromJson(const QJsonArray& array) {
    QList<KeyVariantValue<int>> values;
    values.reserve(array.size());
    for (const QJsonValue& element : array) {
        const QJsonObject object = element.toObject();
        values.append({object.value(QLatin1String("key")).toInt(),
                       object.value(QLatin1String("value")).toVariant(),
                       object.value(QLatin1String("subvalue")).toVariant()});
    }
    return values;
}
