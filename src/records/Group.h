#pragma once

#include "records/Record.h"

/// Numbers of the fields of `Group`; also the item roles of its models.
enum class GroupField : int { groupId = firstFieldNumber, title, visible };

struct GroupState : QSharedData {
    int groupId = -1;
    QString title;
    bool visible = true;
};

class Group;
extern template class Record<Group, int, GroupField, GroupState, QSharedDataPointer>;

/// A named set of kernos. Its title is called a description on the wire.
class Group : public Record<Group, int, GroupField, GroupState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int groupId READ groupId WRITE setGroupId)
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(bool visible READ visible WRITE setVisible)

public:
    Group();
    Group(const QJsonObject& json, const char* queryId);
    Group(int groupId, const QString& title, bool visible);

    static wire::Record record() { return wire::Record::Group; }
    static const std::vector<FieldRow<GroupState>>& rows();

    bool isValid() const override;
    int id() const override { return groupId(); }

    int groupId() const { return state().groupId; }
    void setGroupId(int value) { set(&State::groupId, value); }
    QString title() const { return state().title; }
    void setTitle(const QString& value) { set(&State::title, value); }
    bool visible() const { return state().visible; }
    void setVisible(bool value) { set(&State::visible, value); }
};

Q_DECLARE_METATYPE(Group)
Q_DECLARE_TYPEINFO(Group, Q_MOVABLE_TYPE);
