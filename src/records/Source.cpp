#include "records/Source.h"

template class Record<Source, int, SourceField, SourceState, QSharedDataPointer>;

const std::vector<FieldRow<SourceState>>& Source::rows() {
    using S = SourceState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("sourceId"), &S::sourceId, -1},
        {258, QStringLiteral("title"), QStringLiteral("title"), &S::title, {}},
        {259, QStringLiteral("icon"), QStringLiteral("icon"), &S::icon, {}},
        {260, QStringLiteral("author"), QStringLiteral("author"), &S::author, {}},
        {261, QStringLiteral("timestamp"), QStringLiteral("timestamp"), &S::timestamp, {}, NotSent},
    };
    return table;
}

Source::Source() = default;

Source::Source(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

Source::Source(int sourceId, const QString& title, const QString& icon, const QString& author,
               const QDateTime& timestamp)
    : Record(new State) {
    State& s = writableState();
    s.sourceId = sourceId;
    s.title = title;
    s.icon = icon;
    s.author = author;
    s.timestamp = timestamp;
}

bool Source::isValid() const {
    return id() >= 1 && parsedOk();
}
