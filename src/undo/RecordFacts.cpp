#include "undo/RecordFacts.h"

#include "link/IdManager.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "project/KRNFile.h"

namespace {

template <typename T> void assignId(T& record, void (T::*setId)(int), int (IdManager::*nextId)()) {
    if (record.id() >= 1)
        return;
    (record.*setId)(1);
    (record.*setId)(isUsable(record) ? (IdManager::instance()->*nextId)() : 0);
}

}  // namespace

template <> const RecordFacts<Kerno>& factsOf() {
    static const RecordFacts<Kerno> facts{[](KRNFile& file, const Kerno& kerno) { file.saveKerno(kerno); },
                                          [](KRNFile& file, const Kerno& kerno) { file.deleteKerno(kerno); },
                                          [](KRNFile& file, const int& id) { return file.kerno(id); },
                                          [](Kerno& kerno, const QString& author) {
                                              assignId(kerno, &Kerno::setKernoId, &IdManager::nextKernoId);
                                              kerno.setAuthor(author);
                                          }};
    return facts;
}

template <> const RecordFacts<Source>& factsOf() {
    static const RecordFacts<Source> facts{
        [](KRNFile& file, const Source& source) { file.saveSource(source); },
        [](KRNFile& file, const Source& source) { file.deleteSource(source.id()); },
        [](KRNFile& file, const int& id) { return file.source(id); },
        [](Source& source, const QString& author) {
            assignId(source, &Source::setSourceId, &IdManager::nextSourceId);
            source.setAuthor(author);
        }};
    return facts;
}

template <> const RecordFacts<Highlight>& factsOf() {
    static const RecordFacts<Highlight> facts{
        [](KRNFile& file, const Highlight& highlight) { file.saveHighlight(highlight); },
        [](KRNFile& file, const Highlight& highlight) { file.deleteHighlight(highlight); },
        [](KRNFile& file, const int& id) { return file.highlight(id); },
        [](Highlight& highlight, const QString& author) {
            assignId(highlight, &Highlight::setHighlightId, &IdManager::nextHighlightId);
            highlight.setAuthor(author);
        }};
    return facts;
}

template <> const RecordFacts<Memo>& factsOf() {
    static const RecordFacts<Memo> facts{[](KRNFile& file, const Memo& memo) { file.saveMemo(memo); },
                                         [](KRNFile& file, const Memo& memo) { file.deleteMemo(memo); },
                                         [](KRNFile& file, const int& id) { return file.memo(id); },
                                         [](Memo& memo, const QString& author) {
                                             assignId(memo, &Memo::setMemoId, &IdManager::nextMemoId);
                                             memo.setAuthor(author);
                                         }};
    return facts;
}

template <> const RecordFacts<Question>& factsOf() {
    static const RecordFacts<Question> facts{
        [](KRNFile& file, const Question& question) { file.saveQuestion(question); },
        [](KRNFile& file, const Question& question) { file.deleteQuestion(question.id()); },
        [](KRNFile& file, const int& id) { return file.question(id); },
        [](Question& question, const QString&) {
            assignId(question, &Question::setQuestionId, &IdManager::nextQuestionId);
        }};
    return facts;
}

template <> const RecordFacts<QuestionAnswer>& factsOf() {
    static const RecordFacts<QuestionAnswer> facts{
        [](KRNFile& file, const QuestionAnswer& answer) { file.saveAnswer(answer); },
        [](KRNFile& file, const QuestionAnswer& answer) { file.deleteAnswer(answer.id()); },
        [](KRNFile& file, const int& id) { return file.answer(id); },
        [](QuestionAnswer& answer, const QString& author) {
            assignId(answer, &QuestionAnswer::setAnswerId, &IdManager::nextAnswerId);
            answer.setAuthor(author);
        }};
    return facts;
}

template <> const RecordFacts<SourceMetadataKey>& factsOf() {
    static const RecordFacts<SourceMetadataKey> facts{
        [](KRNFile& file, const SourceMetadataKey& key) { file.saveMetadataKey(key); },
        [](KRNFile& file, const SourceMetadataKey& key) { file.deleteMetadataKey(key); },
        [](KRNFile& file, const int& id) { return file.metadataKey(id); },
        [](SourceMetadataKey& key, const QString&) {
            assignId(key, &SourceMetadataKey::setKeyId, &IdManager::nextSourceMetadataKeyId);
        }};
    return facts;
}

template <> const RecordFacts<SourceMetadataValue>& factsOf() {
    static const RecordFacts<SourceMetadataValue> facts{
        [](KRNFile& file, const SourceMetadataValue& value) { file.saveMetadataValue(value); },
        [](KRNFile& file, const SourceMetadataValue& value) { file.deleteMetadataValue(value); },
        [](KRNFile& file, const int& id) { return file.metadataValueModel()->record(id); },
        [](SourceMetadataValue& value, const QString&) {
            assignId(value, &SourceMetadataValue::setValueId, &IdManager::nextSourceMetadataValueId);
        }};
    return facts;
}

template <> const RecordFacts<SourceMetadata>& factsOf() {
    static const RecordFacts<SourceMetadata> facts{
        [](KRNFile& file, const SourceMetadata& link) { file.saveMetadata(link); },
        [](KRNFile& file, const SourceMetadata& link) { file.deleteMetadata(link); },
        [](KRNFile& file, const int& id) { return file.metadataModel()->record(id); },
        [](SourceMetadata& link, const QString& author) {
            assignId(link, &SourceMetadata::setMetadataId, &IdManager::nextSourceMetadataId);
            link.setAuthor(author);
        }};
    return facts;
}

template <> const RecordFacts<Group>& factsOf() {
    static const RecordFacts<Group> facts{
        [](KRNFile& file, const Group& group) { file.saveGroup(group); },
        [](KRNFile& file, const Group& group) { file.deleteGroup(group); },
        [](KRNFile& file, const int& id) { return file.groupModel()->record(id); },
        [](Group& group, const QString&) { assignId(group, &Group::setGroupId, &IdManager::nextGroupId); }};
    return facts;
}

template <> const RecordFacts<KernoGroup>& factsOf() {
    static const RecordFacts<KernoGroup> facts{
        [](KRNFile& file, const KernoGroup& link) { file.saveKernoGroup(link); },
        [](KRNFile& file, const KernoGroup& link) { file.deleteKernoGroup(link); },
        [](KRNFile& file, const int& id) { return file.kernoGroupModel()->record(id); },
        [](KernoGroup& link, const QString&) {
            assignId(link, &KernoGroup::setId, &IdManager::nextKernoGroupId);
        }};
    return facts;
}

template <> const RecordFacts<KernoShortcutKey>& factsOf() {
    static const RecordFacts<KernoShortcutKey> facts{
        [](KRNFile& file, const KernoShortcutKey& key) { file.saveKernoShortcutKey(key); },
        [](KRNFile& file, const KernoShortcutKey& key) { file.deleteKernoShortcutKey(key); },
        [](KRNFile& file, const QString& key) { return file.shortcutKeyModel()->record(key); },
        [](KernoShortcutKey& key, const QString& author) { key.setAuthor(author); }};
    return facts;
}
