#pragma once

#include <QAbstractListModel>
#include <QPointer>

class KernoShortcutKeyModel;

/// Every key that can be a shortcut, digits before letters, with the kerno that it codes into.
class KernoShortcutKeyProxyModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { ShortcutKeyRole = Qt::UserRole + 1, KernoIdRole };

    explicit KernoShortcutKeyProxyModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// 0 for a key without a kerno.
    Q_INVOKABLE int findKernoIdForShortcut(const QString& shortcut) const;

private:
    void announceAll();

    QPointer<KernoShortcutKeyModel> m_keys;
};
