#pragma once

#include "records/Record.h"

/// Numbers of the fields of `SourceMetadata`; also the item roles of its models.
enum class SourceMetadataField : int {
    metadataId = firstFieldNumber,
    sourceId,
    keyId,
    valueId,
    author,
    timestamp
};

struct SourceMetadataState : QSharedData {
    int metadataId = -1;
    int sourceId = -1;
    int keyId = -1;
    int valueId = -1;
    QString author;
    QDateTime timestamp;
};

class SourceMetadata;
extern template class Record<SourceMetadata, int, SourceMetadataField, SourceMetadataState,
                             QSharedDataPointer>;

/// Says which source has which value of which property.
class SourceMetadata
    : public Record<SourceMetadata, int, SourceMetadataField, SourceMetadataState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int metadataId READ metadataId WRITE setMetadataId)
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId)
    Q_PROPERTY(int keyId READ keyId WRITE setKeyId)
    Q_PROPERTY(int valueId READ valueId WRITE setValueId)
    Q_PROPERTY(QString author READ author WRITE setAuthor)
    Q_PROPERTY(QDateTime timestamp READ timestamp WRITE setTimestamp)

public:
    SourceMetadata();
    SourceMetadata(const QJsonObject& json, const char* queryId);
    SourceMetadata(int metadataId, int sourceId, int keyId, int valueId, const QString& author,
                   const QDateTime& timestamp);

    static wire::Record record() { return wire::Record::SourceMetadata; }
    static const std::vector<FieldRow<SourceMetadataState>>& rows();

    bool isValid() const override;
    int id() const override { return metadataId(); }

    int metadataId() const { return state().metadataId; }
    void setMetadataId(int value) { set(&State::metadataId, value); }
    int sourceId() const { return state().sourceId; }
    void setSourceId(int value) { set(&State::sourceId, value); }
    int keyId() const { return state().keyId; }
    void setKeyId(int value) { set(&State::keyId, value); }
    int valueId() const { return state().valueId; }
    void setValueId(int value) { set(&State::valueId, value); }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&State::author, value); }
    QDateTime timestamp() const { return state().timestamp; }
    void setTimestamp(const QDateTime& value) { set(&State::timestamp, value); }
};

Q_DECLARE_METATYPE(SourceMetadata)
Q_DECLARE_TYPEINFO(SourceMetadata, Q_MOVABLE_TYPE);
