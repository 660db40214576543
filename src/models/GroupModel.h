#pragma once

#include "models/IModelList.h"
#include "records/Group.h"

extern template class IModelList<Group, int, GroupField>;

/// The groups of kernos, by id.
class GroupModel : public IModelList<Group, int, GroupField> {
    Q_OBJECT

public:
    enum Role {
        AssociatedKernosCountRole =
            static_cast<int>(GroupField::visible) + 1  ///< number of kernos in the group
    };

    explicit GroupModel(DataHelper* helper, QObject* parent = nullptr);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Ticks the group; its kernos are the kerno model's matter.
    Q_INVOKABLE void setVisible(int groupId, bool visible);

public slots:
    /// To be called after a kerno joined or left the group.
    void onShouldUpdateAssociatedKernosCount(int groupId);

protected:
    int insertionRow(const Group& group) const override;
};
