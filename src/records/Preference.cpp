#include "records/Preference.h"

template class Record<Preference, QString, PreferenceField, PreferenceState, QSharedDataPointer>;

const std::vector<FieldRow<PreferenceState>>& Preference::rows() {
    using S = PreferenceState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("key"), QStringLiteral("key"), &S::key, {}},
        {258, QStringLiteral("value"), QStringLiteral("value"), &S::value, {}},
    };
    return table;
}

Preference::Preference() = default;

Preference::Preference(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

Preference::Preference(const QString& key, const QVariant& value) : Record(new State) {
    State& s = writableState();
    s.key = key;
    s.value = value;
}

bool Preference::isValid() const {
    return !key().isEmpty();
}
