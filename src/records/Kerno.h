#pragma once

#include "records/Record.h"

#include "records/UncopiedUuid.h"

/// Numbers of the fields of `Kerno`; also the item roles of its models.
enum class KernoField : int {
    kernoId = firstFieldNumber,
    parentKernoId,
    color,
    title,
    description,
    timestamp,
    author,
    x,
    y,
    visible
};

struct KernoState : QSharedData {
    int kernoId = -1;
    int parentKernoId = -1;
    QColor color;
    QString title;
    QString description;
    QDateTime timestamp;
    QString author;
    int x = 1;
    int y = 1;
    bool groupVisible = true;
    bool nameVisible = true;
};

class Kerno;
extern template class Record<Kerno, int, KernoField, KernoState, QSharedDataPointer>;

/// A coding theme. Its position is the centre of its bubble, in canvas units.
class Kerno : public Record<Kerno, int, KernoField, KernoState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int kernoId READ kernoId WRITE setKernoId)
    Q_PROPERTY(int parentKernoId READ parentKernoId WRITE setParentKernoId)
    Q_PROPERTY(QColor color READ color WRITE setColor)
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QString description READ description WRITE setDescription)
    Q_PROPERTY(QDateTime timestamp READ timestamp WRITE setTimestamp)
    Q_PROPERTY(QString author READ author WRITE setAuthor)
    Q_PROPERTY(int x READ x WRITE setX)
    Q_PROPERTY(int y READ y WRITE setY)
    Q_PROPERTY(bool visible READ visible)

public:
    Kerno();
    Kerno(const QJsonObject& json, const char* queryId);
    Kerno(int kernoId, int parentKernoId, const QColor& color, const QString& title,
          const QString& description, const QDateTime& timestamp, const QString& author, int x, int y);

    static wire::Record record() { return wire::Record::Kerno; }
    static const std::vector<FieldRow<KernoState>>& rows();

    bool isValid() const override;
    int id() const override { return kernoId(); }

    int kernoId() const { return state().kernoId; }
    void setKernoId(int value) { set(&State::kernoId, value); }
    int parentKernoId() const { return state().parentKernoId; }
    void setParentKernoId(int value) { set(&State::parentKernoId, value); }
    QColor color() const { return state().color; }
    void setColor(const QColor& value) { set(&State::color, value); }
    QString title() const { return state().title; }
    void setTitle(const QString& value) { set(&State::title, value); }
    QString description() const { return state().description; }
    void setDescription(const QString& value) { set(&State::description, value); }
    QDateTime timestamp() const { return state().timestamp; }
    void setTimestamp(const QDateTime& value) { set(&State::timestamp, value); }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&State::author, value); }
    int x() const { return state().x; }
    void setX(int value) { set(&State::x, value); }
    int y() const { return state().y; }
    void setY(int value) { set(&State::y, value); }

    /// Shown by both filters of the kerno list.
    bool visible() const { return state().groupVisible && state().nameVisible; }
    bool groupVisible() const { return state().groupVisible; }
    void setGroupVisible(bool visible) { set(&State::groupVisible, visible); }
    bool nameVisible() const { return state().nameVisible; }
    void setNameVisible(bool visible) { set(&State::nameVisible, visible); }
    QVariant computedValue(int) const { return visible(); }

    /// Serves the writers of the exchange format alone: null in every new record, copies included.
    QUuid uuid() const { return m_uuid.value; }
    void setUuid(const QUuid& uuid) { m_uuid.value = uuid; }

private:
    UncopiedUuid m_uuid;
};

Q_DECLARE_METATYPE(Kerno)
Q_DECLARE_TYPEINFO(Kerno, Q_MOVABLE_TYPE);
