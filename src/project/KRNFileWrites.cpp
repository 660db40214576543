#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "models/KernoModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceModel.h"
#include "project/AnswerCache.h"
#include "records/Preference.h"

namespace {

/// Sends the record and gives its id.
template <typename T> int send(DataHelper* helper, const T& record) {
    helper->save(record);
    return record.id();
}

/// The record of that id, or one that holds the id alone: a removal needs no more.
template <typename Model>
typename Model::RecordType recordToRemove(const Model& model, int id, void (Model::RecordType::*setId)(int)) {
    typename Model::RecordType record = model.record(id);
    (record.*setId)(id);
    return record;
}

/// An empty batch would change nothing.
template <typename T>
bool sendBatch(const QList<T>& records, bool (DataHelper::*batch)(const QList<T>&), DataHelper* helper) {
    return records.isEmpty() || (helper->*batch)(records);
}

}  // namespace

void KRNFile::saveKerno(const Kerno& kerno) {
    if (m_dataHelper->save(kerno))
        putKerno(kerno);
}

// A new kerno whose id isn't the latest of this client is somebody else's. What the filters hide stays
// hidden.
void KRNFile::putKerno(const Kerno& kerno) {
    const int id = kerno.kernoId();
    const bool isNew = !kernoModel()->contains(id);
    const Kerno former = kernoModel()->record(id);
    Kerno next = kerno;
    next.setGroupVisible(isNew || former.groupVisible());
    next.setNameVisible(isNew || former.nameVisible());
    kernoModel()->addOrUpdate(next);
    if (isNew && id == IdManager::instance()->maxKernoId()) {
        emit newKernoAdded(id);
        if (!kernoModel()->contains(kerno.parentKernoId()))
            emit kernoAppeared(kerno.x(), kerno.y());
    }
    emit kernoUpdated(id);
}

int KRNFile::saveHighlight(const Highlight& data) {
    return send(dataHelper(), data);
}

int KRNFile::saveMemo(const Memo& data) {
    return send(dataHelper(), data);
}

int KRNFile::saveSource(const Source& source) {
    return send(dataHelper(), source);
}

int KRNFile::saveAnswer(const QuestionAnswer& answer) {
    m_answerCache->clear();
    return send(dataHelper(), answer);
}

int KRNFile::saveQuestion(const Question& data, bool async) {
    if (!m_dataHelper->save(data, async))
        return -1;
    if (!async && questionListModel())
        questionListModel()->addOrUpdate(data);
    return data.questionId();
}

int KRNFile::saveMetadataKey(const SourceMetadataKey& model) {
    return send(dataHelper(), model);
}

int KRNFile::saveMetadata(const SourceMetadata& model) {
    return send(dataHelper(), model);
}

int KRNFile::saveMetadataValue(const SourceMetadataValue& model) {
    return send(dataHelper(), model);
}

int KRNFile::saveGroup(const Group& model) {
    return send(dataHelper(), model);
}

int KRNFile::saveKernoGroup(const KernoGroup& model) {
    return send(dataHelper(), model);
}

int KRNFile::saveChatMessage(const ChatMessage& model) {
    return send(dataHelper(), model);
}

bool KRNFile::saveKernoShortcutKey(const KernoShortcutKey& model) {
    if (!m_dataHelper->save(model))
        return false;
    if (model.isValid())
        shortcutKeyModel()->addOrUpdate(model);
    else
        shortcutKeyModel()->removeByKey(model.id());
    return true;
}

bool KRNFile::savePreference(const QString& key, const QVariant& value) {
    return m_dataHelper->save(Preference(key, value));
}

bool KRNFile::saveQuestionsOrder(const QVariantList&) {
    return false;
}

bool KRNFile::deleteHighlight(const Highlight& highlight) {
    return m_dataHelper->remove(highlight);
}

bool KRNFile::deleteMemo(const Memo& memo) {
    return m_dataHelper->remove(memo);
}

bool KRNFile::deleteMetadata(const SourceMetadata& model) {
    return m_dataHelper->remove(model);
}

bool KRNFile::deleteMetadataKey(const SourceMetadataKey& model) {
    return m_dataHelper->remove(model);
}

bool KRNFile::deleteMetadataValue(const SourceMetadataValue& model) {
    return m_dataHelper->remove(model);
}

bool KRNFile::deleteGroup(const Group& model) {
    return m_dataHelper->remove(model);
}

bool KRNFile::deleteKernoGroup(const KernoGroup& model) {
    return m_dataHelper->remove(model);
}

bool KRNFile::deleteKernoShortcutKey(const KernoShortcutKey& model) {
    if (!m_dataHelper->remove(model))
        return false;
    shortcutKeyModel()->removeByKey(model.id());
    return true;
}

bool KRNFile::deleteChatMessage(const ChatMessage& model) {
    return m_dataHelper->remove(model);
}

bool KRNFile::deleteKerno(const Kerno& kerno) {
    m_dataHelper->remove(kerno);
    return true;
}

bool KRNFile::deleteSource(int id) {
    return m_dataHelper->remove(recordToRemove(*sourceModel(), id, &Source::setSourceId));
}

bool KRNFile::deleteAnswer(int answerId) {
    m_answerCache->clear();
    return m_dataHelper->remove(recordToRemove(*answerModel(), answerId, &QuestionAnswer::setAnswerId));
}

bool KRNFile::deleteQuestion(int id) {
    return m_dataHelper->remove(recordToRemove(*questionListModel(), id, &Question::setQuestionId));
}

bool KRNFile::batchSaveHighlights(const QList<Highlight>& highlights) {
    return sendBatch(highlights, &DataHelper::batchSave<Highlight>, dataHelper());
}

bool KRNFile::batchDeleteHighlights(const QList<Highlight>& highlights) {
    return sendBatch(highlights, &DataHelper::batchRemove<Highlight>, dataHelper());
}

bool KRNFile::batchSaveMemos(const QList<Memo>& memos) {
    return sendBatch(memos, &DataHelper::batchSave<Memo>, dataHelper());
}

bool KRNFile::batchDeleteMemos(const QList<Memo>& memos) {
    return sendBatch(memos, &DataHelper::batchRemove<Memo>, dataHelper());
}
