#pragma once

#include "records/Record.h"

/// Numbers of the fields of `KernoGroup`; also the item roles of its models.
enum class KernoGroupField : int { id = firstFieldNumber, groupId, kernoId };

struct KernoGroupState : QSharedData {
    int id = -1;
    int groupId = -1;
    int kernoId = -1;
};

class KernoGroup;
extern template class Record<KernoGroup, int, KernoGroupField, KernoGroupState, QSharedDataPointer>;

/// Says that a kerno belongs to a group.
class KernoGroup : public Record<KernoGroup, int, KernoGroupField, KernoGroupState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int id READ id WRITE setId)
    Q_PROPERTY(int groupId READ groupId WRITE setGroupId)
    Q_PROPERTY(int kernoId READ kernoId WRITE setKernoId)

public:
    KernoGroup();
    KernoGroup(const QJsonObject& json, const char* queryId);
    KernoGroup(int id, int groupId, int kernoId);

    static wire::Record record() { return wire::Record::KernoGroup; }
    static const std::vector<FieldRow<KernoGroupState>>& rows();

    bool isValid() const override;

    int id() const override { return state().id; }
    void setId(int value) { set(&State::id, value); }
    int groupId() const { return state().groupId; }
    void setGroupId(int value) { set(&State::groupId, value); }
    int kernoId() const { return state().kernoId; }
    void setKernoId(int value) { set(&State::kernoId, value); }
};

Q_DECLARE_METATYPE(KernoGroup)
Q_DECLARE_TYPEINFO(KernoGroup, Q_MOVABLE_TYPE);
