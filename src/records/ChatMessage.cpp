#include "records/ChatMessage.h"

template class Record<ChatMessage, int, ChatMessageField, ChatMessageState, QSharedDataPointer>;

const std::vector<FieldRow<ChatMessageState>>& ChatMessage::rows() {
    using S = ChatMessageState;
    static const std::vector<FieldRow<S>> table{
        {257, QStringLiteral("id"), QStringLiteral("chatMessageId"), &S::chatMessageId, -1},
        {258, QStringLiteral("message"), QStringLiteral("message"), &S::message, {}},
        {259, QStringLiteral("author"), QStringLiteral("author"), &S::author, {}},
        {260, QStringLiteral("timestamp"), QStringLiteral("timestamp"), &S::timestamp, {}, NotSent},
        {261, QStringLiteral("isValid"), QStringLiteral("isValid"), Computed{FieldType::Boolean}, false,
         LocalOnly},
    };
    return table;
}

ChatMessage::ChatMessage() = default;

ChatMessage::ChatMessage(const QJsonObject& json, const char* queryId) : Record(json, queryId) {}

ChatMessage::ChatMessage(int chatMessageId, const QString& message, const QString& author,
                         const QDateTime& timestamp)
    : Record(new State) {
    State& s = writableState();
    s.chatMessageId = chatMessageId;
    s.message = message;
    s.author = author;
    s.timestamp = timestamp;
}

bool ChatMessage::isValid() const {
    return parsedOk() && !message().isEmpty() && !author().isEmpty() && timestamp().isValid();
}
