#pragma once

#include "records/ChatMessage.h"
#include "records/Group.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "records/KernoGroup.h"
#include "records/KernoShortcutKey.h"
#include "records/Memo.h"
#include "records/Preference.h"
#include "records/Question.h"
#include "records/QuestionAnswer.h"
#include "records/Source.h"
#include "records/SourceMetadata.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"

#include <QList>

/// All records of a project.
struct ProjectRecords {
    QList<Preference> preferences;
    QList<Source> sources;
    QList<SourceMetadata> metadatas;
    QList<SourceMetadataKey> metadataKeys;
    QList<SourceMetadataValue> metadataValues;
    QList<Question> questions;
    QList<QuestionAnswer> answers;
    QList<Highlight> highlights;
    QList<Memo> memos;
    QList<Kerno> kernos;
    QList<KernoGroup> groupKernos;
    QList<Group> groups;
    QList<KernoShortcutKey> shortcuts;
    QList<ChatMessage> chatMessages;
};

/// Shows every list with its key in full project JSON, in the order in which they are written.
template <typename Records, typename Visitor> void eachList(Records& records, Visitor visit) {
    visit("preferences", records.preferences);
    visit("sources", records.sources);
    visit("source_metadatas", records.metadatas);
    visit("source_metadata_keys", records.metadataKeys);
    visit("source_metadata_values", records.metadataValues);
    visit("questions", records.questions);
    visit("question_answers", records.answers);
    visit("highlights", records.highlights);
    visit("memos", records.memos);
    visit("kernos", records.kernos);
    visit("group_kernos", records.groupKernos);
    visit("groups", records.groups);
    visit("kerno_shortcut_keys", records.shortcuts);
    visit("chat_messages", records.chatMessages);
}
