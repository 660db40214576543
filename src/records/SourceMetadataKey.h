#pragma once

#include "records/Record.h"

/// Numbers of the fields of `SourceMetadataKey`; also the item roles of its models.
enum class SourceMetadataKeyField : int {
    keyId = firstFieldNumber,
    multipleChoice,
    sortValuesAlphabetically,
    key
};

struct SourceMetadataKeyState : QSharedData {
    int keyId = -1;
    bool multipleChoice = false;
    bool sortValuesAlphabetically = false;
    QString key;
};

class SourceMetadataKey;
extern template class Record<SourceMetadataKey, int, SourceMetadataKeyField, SourceMetadataKeyState,
                             QSharedDataPointer>;

/// A property that sources can have, such as age.
class SourceMetadataKey : public Record<SourceMetadataKey, int, SourceMetadataKeyField,
                                        SourceMetadataKeyState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int keyId READ keyId WRITE setKeyId)
    Q_PROPERTY(bool multipleChoice READ multipleChoice WRITE setMultipleChoice)
    Q_PROPERTY(bool sortValuesAlphabetically READ sortValuesAlphabetically WRITE setSortValuesAlphabetically)
    Q_PROPERTY(QString key READ key WRITE setKey)

public:
    SourceMetadataKey();
    SourceMetadataKey(const QJsonObject& json, const char* queryId);
    SourceMetadataKey(int keyId, bool multipleChoice, bool sortValuesAlphabetically, const QString& key);

    static wire::Record record() { return wire::Record::SourceMetadataKey; }
    static const std::vector<FieldRow<SourceMetadataKeyState>>& rows();

    bool isValid() const override;
    int id() const override { return keyId(); }

    int keyId() const { return state().keyId; }
    void setKeyId(int value) { set(&State::keyId, value); }
    bool multipleChoice() const { return state().multipleChoice; }
    void setMultipleChoice(bool value) { set(&State::multipleChoice, value); }
    bool sortValuesAlphabetically() const { return state().sortValuesAlphabetically; }
    void setSortValuesAlphabetically(bool value) { set(&State::sortValuesAlphabetically, value); }
    QString key() const { return state().key; }
    void setKey(const QString& value) { set(&State::key, value); }
};

Q_DECLARE_METATYPE(SourceMetadataKey)
Q_DECLARE_TYPEINFO(SourceMetadataKey, Q_MOVABLE_TYPE);
