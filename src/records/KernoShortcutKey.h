#pragma once

#include "records/Record.h"

/// Numbers of the fields of `KernoShortcutKey`; also the item roles of its models.
enum class KernoShortcutKeyField : int { shortcutKey = firstFieldNumber, kernoId, author };

struct KernoShortcutKeyState : QSharedData {
    QString shortcutKey;
    int kernoId = -1;
    QString author;
};

class KernoShortcutKey;
extern template class Record<KernoShortcutKey, QString, KernoShortcutKeyField, KernoShortcutKeyState,
                             QSharedDataPointer>;

/// A key that codes the selected text into a kerno.
class KernoShortcutKey : public Record<KernoShortcutKey, QString, KernoShortcutKeyField,
                                       KernoShortcutKeyState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(QString shortcutKey READ shortcutKey WRITE setShortcutKey)
    Q_PROPERTY(int kernoId READ kernoId WRITE setKernoId)

public:
    KernoShortcutKey();
    KernoShortcutKey(const QJsonObject& json, const char* queryId);
    KernoShortcutKey(const QString& shortcutKey, int kernoId, const QString& author);

    static wire::Record record() { return wire::Record::KernoShortcutKey; }
    static const std::vector<FieldRow<KernoShortcutKeyState>>& rows();

    bool isValid() const override;
    QString id() const override { return shortcutKey(); }

    QString shortcutKey() const { return state().shortcutKey; }
    void setShortcutKey(const QString& value) { set(&State::shortcutKey, value); }
    int kernoId() const { return state().kernoId; }
    void setKernoId(int value) { set(&State::kernoId, value); }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&State::author, value); }
};

Q_DECLARE_METATYPE(KernoShortcutKey)
Q_DECLARE_TYPEINFO(KernoShortcutKey, Q_MOVABLE_TYPE);
