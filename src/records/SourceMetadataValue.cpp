#include "records/SourceMetadataValue.h"

template class Record<SourceMetadataValue, int, SourceMetadataValueField, SourceMetadataValueState,
                      QSharedDataPointer>;

const std::vector<FieldRow<SourceMetadataValueState>>& SourceMetadataValue::rows() {
    using S = SourceMetadataValueState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("valueId"), &S::valueId, -1},
        {258, QStringLiteral("keyId"), QStringLiteral("keyId"), &S::keyId, -1},
        {259, QStringLiteral("value"), QStringLiteral("value"), &S::value, {}},
    };
    return table;
}

SourceMetadataValue::SourceMetadataValue() = default;

SourceMetadataValue::SourceMetadataValue(const QJsonObject& json, const char* queryId)
    : Record(json, queryId) {}

SourceMetadataValue::SourceMetadataValue(int valueId, int keyId, const QVariant& value) : Record(new State) {
    State& s = writableState();
    s.valueId = valueId;
    s.keyId = keyId;
    s.value = value;
}

bool SourceMetadataValue::isValid() const {
    return value().isValid();
}
