#pragma once

#include "records/Record.h"

/// Numbers of the fields of `SourceMetadataValue`; also the item roles of its models.
enum class SourceMetadataValueField : int { valueId = firstFieldNumber, keyId, value };

struct SourceMetadataValueState : QSharedData {
    int valueId = -1;
    int keyId = -1;
    QVariant value;
};

class SourceMetadataValue;
extern template class Record<SourceMetadataValue, int, SourceMetadataValueField, SourceMetadataValueState,
                             QSharedDataPointer>;

/// A value of a property.
class SourceMetadataValue : public Record<SourceMetadataValue, int, SourceMetadataValueField,
                                          SourceMetadataValueState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int valueId READ valueId WRITE setValueId)
    Q_PROPERTY(int keyId READ keyId WRITE setKeyId)
    Q_PROPERTY(QVariant value READ value WRITE setValue)

public:
    SourceMetadataValue();
    SourceMetadataValue(const QJsonObject& json, const char* queryId);
    SourceMetadataValue(int valueId, int keyId, const QVariant& value);

    static wire::Record record() { return wire::Record::SourceMetadataValue; }
    static const std::vector<FieldRow<SourceMetadataValueState>>& rows();

    bool isValid() const override;
    int id() const override { return valueId(); }

    int valueId() const { return state().valueId; }
    void setValueId(int value) { set(&State::valueId, value); }
    int keyId() const { return state().keyId; }
    void setKeyId(int value) { set(&State::keyId, value); }
    QVariant value() const { return state().value; }
    void setValue(const QVariant& value) { set(&State::value, value); }
};

Q_DECLARE_METATYPE(SourceMetadataValue)
Q_DECLARE_TYPEINFO(SourceMetadataValue, Q_MOVABLE_TYPE);
