#include "records/Group.h"

template class Record<Group, int, GroupField, GroupState, QSharedDataPointer>;

const std::vector<FieldRow<GroupState>>& Group::rows() {
    using S = GroupState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("groupId"), &S::groupId, -1},
        {258, QStringLiteral("description"), QStringLiteral("title"), &S::title, {}},
        {259, QStringLiteral("visible"), QStringLiteral("visible"), &S::visible, true, LocalOnly},
    };
    return table;
}

Group::Group() = default;

Group::Group(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

Group::Group(int groupId, const QString& title, bool visible) : Record(new State) {
    State& s = writableState();
    s.groupId = groupId;
    s.title = title;
    s.visible = visible;
}

bool Group::isValid() const {
    return !title().isEmpty() && groupId() >= 1;
}
