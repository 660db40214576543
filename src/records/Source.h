#pragma once

#include "records/Record.h"

#include "records/UncopiedUuid.h"

/// Numbers of the fields of `Source`; also the item roles of its models.
enum class SourceField : int { sourceId = firstFieldNumber, title, icon, author, timestamp };

struct SourceState : QSharedData {
    int sourceId = -1;
    QString title;
    QString icon;
    QString author;
    QDateTime timestamp;
};

class Source;
extern template class Record<Source, int, SourceField, SourceState, QSharedDataPointer>;

/// A text of the project. Its body stands in the answers to the project's questions.
class Source : public Record<Source, int, SourceField, SourceState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId)
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QString icon READ icon WRITE setIcon)
    Q_PROPERTY(QString author READ author WRITE setAuthor)
    Q_PROPERTY(QDateTime timestamp READ timestamp WRITE setTimestamp)

public:
    Source();
    Source(const QJsonObject& json, const char* queryId);
    Source(int sourceId, const QString& title, const QString& icon, const QString& author,
           const QDateTime& timestamp);

    static wire::Record record() { return wire::Record::Source; }
    static const std::vector<FieldRow<SourceState>>& rows();

    bool isValid() const override;
    int id() const override { return sourceId(); }

    int sourceId() const { return state().sourceId; }
    void setSourceId(int value) { set(&State::sourceId, value); }
    QString title() const { return state().title; }
    void setTitle(const QString& value) { set(&State::title, value); }
    QString icon() const { return state().icon; }
    void setIcon(const QString& value) { set(&State::icon, value); }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&State::author, value); }
    QDateTime timestamp() const { return state().timestamp; }
    void setTimestamp(const QDateTime& value) { set(&State::timestamp, value); }

    /// Serves the writers of the exchange format alone: null in every new record, copies included.
    QUuid uuid() const { return m_uuid.value; }
    void setUuid(const QUuid& uuid) { m_uuid.value = uuid; }

private:
    UncopiedUuid m_uuid;
};

Q_DECLARE_METATYPE(Source)
Q_DECLARE_TYPEINFO(Source, Q_MOVABLE_TYPE);
