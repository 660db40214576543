#pragma once

#include "models/IModelList.h"
#include "records/KernoShortcutKey.h"

extern template class IModelList<KernoShortcutKey, QString, KernoShortcutKeyField>;

/// The shortcut keys in use.
class KernoShortcutKeyModel : public IModelList<KernoShortcutKey, QString, KernoShortcutKeyField> {
    Q_OBJECT

public:
    explicit KernoShortcutKeyModel(DataHelper* helper, QObject* parent = nullptr);

    /// The records of a kerno, in row order.
    QList<KernoShortcutKey> keysOfKerno(int kernoId) const;

private:
    RowIndex<KernoShortcutKey, int> m_byKerno;
};
