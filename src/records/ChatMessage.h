#pragma once

#include "records/Record.h"

/// Numbers of the fields of `ChatMessage`; also the item roles of its models.
enum class ChatMessageField : int { chatMessageId = firstFieldNumber, message, author, timestamp, isValid };

struct ChatMessageState : QSharedData {
    int chatMessageId = -1;
    QString message;
    QString author;
    QDateTime timestamp;
};

class ChatMessage;
extern template class Record<ChatMessage, int, ChatMessageField, ChatMessageState, QSharedDataPointer>;

/// A message in the project's chat.
class ChatMessage : public Record<ChatMessage, int, ChatMessageField, ChatMessageState, QSharedDataPointer> {
    Q_GADGET
    Q_PROPERTY(int chatMessageId READ chatMessageId WRITE setChatMessageId)
    Q_PROPERTY(QString message READ message WRITE setMessage)
    Q_PROPERTY(QString author READ author WRITE setAuthor)
    Q_PROPERTY(QDateTime timestamp READ timestamp WRITE setTimestamp)
    Q_PROPERTY(bool isValid READ isValid)

public:
    ChatMessage();
    ChatMessage(const QJsonObject& json, const char* queryId);
    ChatMessage(int chatMessageId, const QString& message, const QString& author, const QDateTime& timestamp);

    static wire::Record record() { return wire::Record::ChatMessage; }
    static const std::vector<FieldRow<ChatMessageState>>& rows();

    bool isValid() const override;
    int id() const override { return chatMessageId(); }

    int chatMessageId() const { return state().chatMessageId; }
    void setChatMessageId(int value) { set(&State::chatMessageId, value); }
    QString message() const { return state().message; }
    void setMessage(const QString& value) { set(&State::message, value); }
    QString author() const { return state().author; }
    void setAuthor(const QString& value) { set(&State::author, value); }
    QDateTime timestamp() const { return state().timestamp; }
    void setTimestamp(const QDateTime& value) { set(&State::timestamp, value); }
    QVariant computedValue(int) const { return isValid(); }
};

Q_DECLARE_METATYPE(ChatMessage)
Q_DECLARE_TYPEINFO(ChatMessage, Q_MOVABLE_TYPE);
