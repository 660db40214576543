#include "records/Kerno.h"

template class Record<Kerno, int, KernoField, KernoState, QSharedDataPointer>;

const std::vector<FieldRow<KernoState>>& Kerno::rows() {
    using S = KernoState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("kernoId"), &S::kernoId, -1},
        {258, QStringLiteral("parentKernoId"), QStringLiteral("parentKernoId"), &S::parentKernoId, -1},
        {259, QStringLiteral("color"), QStringLiteral("color"), &S::color, QColor(Qt::white)},
        {260, QStringLiteral("title"), QStringLiteral("title"), &S::title, {}},
        {261, QStringLiteral("description"), QStringLiteral("description"), &S::description, {}},
        {262, QStringLiteral("timestamp"), QStringLiteral("timestamp"), &S::timestamp, {}, NotSent},
        {263, QStringLiteral("author"), QStringLiteral("author"), &S::author, {}},
        {264, QStringLiteral("x"), QStringLiteral("x"), &S::x, 1},
        {265, QStringLiteral("y"), QStringLiteral("y"), &S::y, 1},
        {266, QStringLiteral("visible"), QStringLiteral("visible"), Computed{FieldType::Boolean}, true,
         LocalOnly},
    };
    return table;
}

Kerno::Kerno() = default;

Kerno::Kerno(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

Kerno::Kerno(int kernoId, int parentKernoId, const QColor& color, const QString& title,
             const QString& description, const QDateTime& timestamp, const QString& author, int x, int y)
    : Record(new State) {
    State& s = writableState();
    s.kernoId = kernoId;
    s.parentKernoId = parentKernoId;
    s.color = color;
    s.title = title;
    s.description = description;
    s.timestamp = timestamp;
    s.author = author;
    s.x = x;
    s.y = y;
}

bool Kerno::isValid() const {
    return id() > 0;
}
