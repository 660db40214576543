#include "records/RecordTypes.h"

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
#include <QSet>

namespace {

template <typename... T> void registerAll() {
    (qRegisterMetaType<T>(), ...);
    (qRegisterMetaType<QList<T>>(), ...);
}

}  // namespace

void registerRecordTypes() {
    registerAll<Kerno, Source, Highlight, Memo, Question, QuestionAnswer, SourceMetadata, SourceMetadataKey,
                SourceMetadataValue, Group, KernoGroup, KernoShortcutKey, Preference, ChatMessage>();
    qRegisterMetaType<QSet<int>>("QSet<int>");
    qRegisterMetaType<QPair<int, int>>("QPair<int,int>");
}
