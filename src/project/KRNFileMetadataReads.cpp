#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "models/GroupModel.h"
#include "models/KernovaQML.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataValueModel.h"
#include "project/RecordMaps.h"
#include "project/SortOrder.h"
#include "records/Preference.h"

#include <QDebug>
#include <algorithm>

QVariantList KRNFile::metadataKeys() const {
    return metadataKeys(KernovaQML::MetadataKeyOrderNone);
}

QVariantList KRNFile::metadataKeys(int orderBy) const {
    return metadataKeys(orderBy, KernovaQML::OrderAscending);
}

QVariantList KRNFile::metadataKeys(int orderBy, int order) const {
    QVariantList keys = toMaps(m_dataHelper->findAll<SourceMetadataKey>());
    if (orderBy == KernovaQML::MetadataKeyOrderByName)
        keys = order::byMember(keys, QStringLiteral("key"));
    if (order == KernovaQML::OrderDescending)
        std::reverse(keys.begin(), keys.end());
    return keys;
}

SourceMetadataKey KRNFile::metadataKey(int keyId) const {
    return metadataKeyModel()->record(keyId);
}

QVariantMap KRNFile::metadataKeyByKeyName(const QString& keyName) const {
    const auto key = m_dataHelper->queryOne<SourceMetadataKey>(reads::metadataKeysByName(keyName));
    return key.isValid() ? key.toVariantMap() : QVariantMap();
}

QVariantList KRNFile::metadataValues(int keyId) const {
    return metadataValues(keyId, false);
}

QVariantList KRNFile::metadataValues(int keyId, bool sortAlphabetically) const {
    QList<SourceMetadataValue> values =
        m_dataHelper->queryList<SourceMetadataValue>(reads::metadataValuesOfKey(keyId));
    if (sortAlphabetically) {
        const auto comesBefore = [](const SourceMetadataValue& a, const SourceMetadataValue& b) {
            return order::lessThan(a.value().toString(), b.value().toString());
        };
        std::stable_sort(values.begin(), values.end(), comesBefore);
    }
    return toMaps(values);
}

QVariantList KRNFile::metadataKeyValuesForKey(int keyId) const {
    return metadataValueModel()->valueMapsOfKey(keyId);
}

QVariantList KRNFile::groups() const {
    return groupModel()->toVariantList();
}

QVariant KRNFile::getPreference(const QString& key, const QVariant& defaultValue) const {
    const Preference preference = m_dataHelper->findById<Preference>(key);
    return preference.key().isEmpty() ? defaultValue : preference.value();
}

int KRNFile::getLastModification() const {
    qDebug() << "Could not execute query for last modification!";
    return -1;
}
