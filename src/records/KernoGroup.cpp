#include "records/KernoGroup.h"

template class Record<KernoGroup, int, KernoGroupField, KernoGroupState, QSharedDataPointer>;

const std::vector<FieldRow<KernoGroupState>>& KernoGroup::rows() {
    using S = KernoGroupState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("id"), &S::id, -1},
        {258, QStringLiteral("groupId"), QStringLiteral("groupId"), &S::groupId, -1},
        {259, QStringLiteral("kernoId"), QStringLiteral("kernoId"), &S::kernoId, -1},
    };
    return table;
}

KernoGroup::KernoGroup() = default;

KernoGroup::KernoGroup(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

KernoGroup::KernoGroup(int id, int groupId, int kernoId) : Record(new State) {
    State& s = writableState();
    s.id = id;
    s.groupId = groupId;
    s.kernoId = kernoId;
}

bool KernoGroup::isValid() const {
    return groupId() >= 1 && kernoId() >= 1;
}
