#pragma once

#include "models/IModelList.h"
#include "records/ChatMessage.h"

extern template class IModelList<ChatMessage, int, ChatMessageField>;

/// The messages of the project's chat, in the order of their arrival.
class ChatModel : public IModelList<ChatMessage, int, ChatMessageField> {
    Q_OBJECT

public:
    explicit ChatModel(DataHelper* helper, QObject* parent = nullptr);
};
