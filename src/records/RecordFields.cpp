#include "records/RecordFields.h"

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

const std::vector<FieldInfo>& recordFields(wire::Record record) {
    switch (record) {
    case wire::Record::Kerno:
        return Kerno::fieldInfos();
    case wire::Record::Source:
        return Source::fieldInfos();
    case wire::Record::Highlight:
        return Highlight::fieldInfos();
    case wire::Record::Memo:
        return Memo::fieldInfos();
    case wire::Record::Question:
        return Question::fieldInfos();
    case wire::Record::QuestionAnswer:
        return QuestionAnswer::fieldInfos();
    case wire::Record::SourceMetadata:
        return SourceMetadata::fieldInfos();
    case wire::Record::SourceMetadataKey:
        return SourceMetadataKey::fieldInfos();
    case wire::Record::SourceMetadataValue:
        return SourceMetadataValue::fieldInfos();
    case wire::Record::Group:
        return Group::fieldInfos();
    case wire::Record::KernoGroup:
        return KernoGroup::fieldInfos();
    case wire::Record::KernoShortcutKey:
        return KernoShortcutKey::fieldInfos();
    case wire::Record::Preference:
        return Preference::fieldInfos();
    case wire::Record::ChatMessage:
        return ChatMessage::fieldInfos();
    }
    Q_UNREACHABLE();
}
