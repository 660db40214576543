#include "models/IModelListRows.h"
#include "records/ChatMessage.h"
#include "records/Group.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "records/KernoGroup.h"
#include "records/KernoShortcutKey.h"
#include "records/Memo.h"
#include "records/Question.h"
#include "records/QuestionAnswer.h"
#include "records/Source.h"
#include "records/SourceMetadata.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"

template class IModelList<Kerno, int, KernoField>;
template class IModelList<Source, int, SourceField>;
template class IModelList<Highlight, int, HighlightField>;
template class IModelList<Memo, int, MemoField>;
template class IModelList<Question, int, QuestionField>;
template class IModelList<QuestionAnswer, int, QuestionAnswerField>;
template class IModelList<SourceMetadata, int, SourceMetadataField>;
template class IModelList<SourceMetadataKey, int, SourceMetadataKeyField>;
template class IModelList<SourceMetadataValue, int, SourceMetadataValueField>;
template class IModelList<Group, int, GroupField>;
template class IModelList<KernoGroup, int, KernoGroupField>;
template class IModelList<ChatMessage, int, ChatMessageField>;
template class IModelList<KernoShortcutKey, QString, KernoShortcutKeyField>;
