#include "records/KernoShortcutKey.h"

template class Record<KernoShortcutKey, QString, KernoShortcutKeyField, KernoShortcutKeyState,
                      QSharedDataPointer>;

const std::vector<FieldRow<KernoShortcutKeyState>>& KernoShortcutKey::rows() {
    using S = KernoShortcutKeyState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("shortcutKey"), QStringLiteral("shortcutKey"), &S::shortcutKey, {}},
        {258, QStringLiteral("kernoId"), QStringLiteral("kernoId"), &S::kernoId, -1},
        {259, QStringLiteral("author"), QStringLiteral("author"), &S::author, {}, LocalOnly},
    };
    return table;
}

KernoShortcutKey::KernoShortcutKey() = default;

KernoShortcutKey::KernoShortcutKey(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

KernoShortcutKey::KernoShortcutKey(const QString& shortcutKey, int kernoId, const QString& author)
    : Record(new State) {
    State& s = writableState();
    s.shortcutKey = shortcutKey;
    s.kernoId = kernoId;
    s.author = author;
}

bool KernoShortcutKey::isValid() const {
    return !shortcutKey().isEmpty() && kernoId() >= 1;
}
