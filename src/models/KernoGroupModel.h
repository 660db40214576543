#pragma once

#include "models/IModelList.h"
#include "records/KernoGroup.h"

extern template class IModelList<KernoGroup, int, KernoGroupField>;

/// Which kerno belongs to which group.
class KernoGroupModel : public IModelList<KernoGroup, int, KernoGroupField> {
    Q_OBJECT

public:
    explicit KernoGroupModel(DataHelper* helper, QObject* parent = nullptr);

    /// In row order.
    QList<KernoGroup> linksOfKerno(int kernoId) const;
    QList<KernoGroup> linksOfGroup(int groupId) const;
    int countOfGroup(int groupId) const;
    /// The first link of both, or an empty record.
    KernoGroup link(int kernoId, int groupId) const;

private:
    RowIndex<KernoGroup, int> m_byKerno;
    RowIndex<KernoGroup, int> m_byGroup;
};
