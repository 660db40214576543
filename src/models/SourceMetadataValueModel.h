#pragma once

#include "models/IModelList.h"
#include "records/SourceMetadataValue.h"

extern template class IModelList<SourceMetadataValue, int, SourceMetadataValueField>;

/// The values of all properties.
class SourceMetadataValueModel : public IModelList<SourceMetadataValue, int, SourceMetadataValueField> {
    Q_OBJECT

public:
    explicit SourceMetadataValueModel(DataHelper* helper, QObject* parent = nullptr);

    /// The values of a key, in row order.
    QList<SourceMetadataValue> valuesOfKey(int keyId) const;
    /// The same as maps by role name.
    QVariantList valueMapsOfKey(int keyId) const;
    /// The value with both ids, or an empty record.
    SourceMetadataValue value(int keyId, int valueId) const;
    /// Whether the key has a value equal to `value`.
    bool hasValue(int keyId, const QVariant& value) const;
    /// The first value of the key that equals `value`, or an empty record.
    SourceMetadataValue findValue(int keyId, const QVariant& value) const;

signals:
    void valueUpdated(SourceMetadataValue model);

protected:
    void onModelUpdated(int row, const SourceMetadataValue& value, const QVector<int>& changedRoles) override;

private:
    RowIndex<SourceMetadataValue, int> m_byKeyId;
};
