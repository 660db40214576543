#include "records/SourceMetadataKey.h"

template class Record<SourceMetadataKey, int, SourceMetadataKeyField, SourceMetadataKeyState,
                      QSharedDataPointer>;

const std::vector<FieldRow<SourceMetadataKeyState>>& SourceMetadataKey::rows() {
    using S = SourceMetadataKeyState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("keyId"), &S::keyId, -1},
        {258, QStringLiteral("multipleChoice"), QStringLiteral("multipleChoice"), &S::multipleChoice, false},
        {259, QStringLiteral("sortValuesAlphabetically"), QStringLiteral("sortValuesAlphabetically"),
         &S::sortValuesAlphabetically, false},
        {260, QStringLiteral("key"), QStringLiteral("key"), &S::key, {}},
    };
    return table;
}

SourceMetadataKey::SourceMetadataKey() = default;

SourceMetadataKey::SourceMetadataKey(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

SourceMetadataKey::SourceMetadataKey(int keyId, bool multipleChoice, bool sortValuesAlphabetically,
                                     const QString& key)
    : Record(new State) {
    State& s = writableState();
    s.keyId = keyId;
    s.multipleChoice = multipleChoice;
    s.sortValuesAlphabetically = sortValuesAlphabetically;
    s.key = key;
}

bool SourceMetadataKey::isValid() const {
    return !key().isEmpty();
}
