#pragma once

#include "models/ModelClasses.h"

/// The models of the project, children of `KRNFile`; null until they have been made.
struct ProjectModels {
    SourceMetadataKeyModel* metadataKeys = nullptr;
    SourceMetadataValueModel* metadataValues = nullptr;
    SourceMetadataModel* metadata = nullptr;
    KernoModel* kernos = nullptr;
    QuestionModel* questions = nullptr;
    QuestionAnswerMainModel* answers = nullptr;
    SourceModel* sources = nullptr;
    KernoGroupModel* kernoGroups = nullptr;
    GroupModel* groups = nullptr;
    KernoShortcutKeyModel* shortcutKeys = nullptr;
    ChatModel* chat = nullptr;
};
