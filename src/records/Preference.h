#pragma once

#include "records/Record.h"

/// Numbers of the fields of `Preference`; also the item roles of its models.
enum class PreferenceField : int { key = firstFieldNumber, value };

struct PreferenceState : QSharedData {
    QString key;
    QVariant value;
};

class Preference;
extern template class Record<Preference, QString, PreferenceField, PreferenceState, QSharedDataPointer>;

/// A setting stored in the project.
class Preference : public Record<Preference, QString, PreferenceField, PreferenceState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(QString key READ key WRITE setKey)
    Q_PROPERTY(QVariant value READ value WRITE setValue)

public:
    Preference();
    Preference(const QJsonObject& json, const char* queryId);
    Preference(const QString& key, const QVariant& value);

    static wire::Record record() { return wire::Record::Preference; }
    static const std::vector<FieldRow<PreferenceState>>& rows();

    bool isValid() const override;
    QString id() const override { return key(); }

    QString key() const { return state().key; }
    void setKey(const QString& value) { set(&State::key, value); }
    QVariant value() const { return state().value; }
    void setValue(const QVariant& value) { set(&State::value, value); }
};

Q_DECLARE_METATYPE(Preference)
Q_DECLARE_TYPEINFO(Preference, Q_MOVABLE_TYPE);
