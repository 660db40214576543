#include "records/SourceMetadata.h"

template class Record<SourceMetadata, int, SourceMetadataField, SourceMetadataState, QSharedDataPointer>;

const std::vector<FieldRow<SourceMetadataState>>& SourceMetadata::rows() {
    using S = SourceMetadataState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("metadataId"), &S::metadataId, -1},
        {258, QStringLiteral("sourceId"), QStringLiteral("sourceId"), &S::sourceId, -1},
        {259, QStringLiteral("keyId"), QStringLiteral("keyId"), &S::keyId, -1},
        {260, QStringLiteral("valueId"), QStringLiteral("valueId"), &S::valueId, -1},
        {261, QStringLiteral("author"), QStringLiteral("author"), &S::author, {}},
        {262, QStringLiteral("timestamp"), QStringLiteral("timestamp"), &S::timestamp, {}, NotSent},
    };
    return table;
}

SourceMetadata::SourceMetadata() = default;

SourceMetadata::SourceMetadata(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

SourceMetadata::SourceMetadata(int metadataId, int sourceId, int keyId, int valueId, const QString& author,
                               const QDateTime& timestamp)
    : Record(new State) {
    State& s = writableState();
    s.metadataId = metadataId;
    s.sourceId = sourceId;
    s.keyId = keyId;
    s.valueId = valueId;
    s.author = author;
    s.timestamp = timestamp;
}

bool SourceMetadata::isValid() const {
    return sourceId() >= 1 && keyId() >= 1 && valueId() >= 1;
}
