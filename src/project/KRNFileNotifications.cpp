#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "link/WebSocketHandler.h"
#include "models/BatchOperationManager.h"
#include "models/ChatModel.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"
#include "project/AnswerCache.h"
#include "wire/AccessLevel.h"

#include <QDebug>
#include <QJsonArray>

namespace {

constexpr const char* saved = "onSaved";
constexpr const char* deleted = "onDeleted";

struct Link {
    void (WebSocketHandler::*signal)(QJsonObject);
    void (KRNFile::*slot)(const QJsonObject&);
};

const Link links[] = {
    {&WebSocketHandler::kernoSaved, &KRNFile::onKernoSaved},
    {&WebSocketHandler::kernoDeleted, &KRNFile::onKernoDeleted},
    {&WebSocketHandler::groupSaved, &KRNFile::onGroupSaved},
    {&WebSocketHandler::groupDeleted, &KRNFile::onGroupDeleted},
    {&WebSocketHandler::kernoGroupSaved, &KRNFile::onKernoGroupSaved},
    {&WebSocketHandler::kernoGroupDeleted, &KRNFile::onKernoGroupDeleted},
    {&WebSocketHandler::sourceSaved, &KRNFile::onSourceSaved},
    {&WebSocketHandler::sourceDeleted, &KRNFile::onSourceDeleted},
    {&WebSocketHandler::highlightSaved, &KRNFile::onHighlightSaved},
    {&WebSocketHandler::highlightDeleted, &KRNFile::onHighlightDeleted},
    {&WebSocketHandler::batchHighlightsSaved, &KRNFile::onBatchHighlightsSaved},
    {&WebSocketHandler::batchHighlightsDeleted, &KRNFile::onBatchHighlightsDeleted},
    {&WebSocketHandler::memoSaved, &KRNFile::onMemoSaved},
    {&WebSocketHandler::memoDeleted, &KRNFile::onMemoDeleted},
    {&WebSocketHandler::batchMemosSaved, &KRNFile::onBatchMemosSaved},
    {&WebSocketHandler::batchMemosDeleted, &KRNFile::onBatchMemosDeleted},
    {&WebSocketHandler::questionSaved, &KRNFile::onQuestionSaved},
    {&WebSocketHandler::questionDeleted, &KRNFile::onQuestionDeleted},
    {&WebSocketHandler::answerSaved, &KRNFile::onAnswerSaved},
    {&WebSocketHandler::answerDeleted, &KRNFile::onAnswerDeleted},
    {&WebSocketHandler::metadataSaved, &KRNFile::onMetadataSaved},
    {&WebSocketHandler::metadataDeleted, &KRNFile::onMetadataDeleted},
    {&WebSocketHandler::metadataKeySaved, &KRNFile::onMetadataKeySaved},
    {&WebSocketHandler::metadataKeyDeleted, &KRNFile::onMetadataKeyDeleted},
    {&WebSocketHandler::metadataValueSaved, &KRNFile::onMetadataValueSaved},
    {&WebSocketHandler::metadataValueDeleted, &KRNFile::onMetadataValueDeleted},
    {&WebSocketHandler::chatMessageSaved, &KRNFile::onChatMessageSaved},
    {&WebSocketHandler::chatMessageDeleted, &KRNFile::onChatMessageDeleted},
};

template <typename Model> void put(Model* model, const QJsonObject& json) {
    model->addOrUpdate(typename Model::RecordType(json, saved));
}

/// Whether a row was removed. A record that can't be read removes nothing.
template <typename Model>
bool removeIfValid(Model* model, const QJsonObject& json, const char* tag = deleted) {
    const typename Model::RecordType record(json, tag);
    return record.isValid() && model->removeByKey(record.id());
}

QSet<int> idSet(const QJsonObject& json, const QString& name) {
    QSet<int> ids;
    for (const QJsonValue& id : json.value(name).toArray())
        ids.insert(id.toInt());
    return ids;
}

QSet<int> sourceIdSet(const QJsonObject& json) {
    return idSet(json, QStringLiteral("sourceIds"));
}

QSet<int> questionIdSet(const QJsonObject& json) {
    return idSet(json, QStringLiteral("questionIds"));
}

}  // namespace

void KRNFile::connectNotifications() {
    const WebSocketHandler* handler = m_dataHelper->notifications();
    for (const Link& link : links) {
        // What was under way when the project was closed must not fill the empty models again.
        const auto dispatch = [this, slot = link.slot](const QJsonObject& json) {
            if (m_hasProject)
                (this->*slot)(json);
        };
        connect(handler, link.signal, this, dispatch, Qt::QueuedConnection);
    }
    using Batch = void (KRNFile::*)(int, const QJsonArray&);
    const auto connectBatch = [&](auto signal, Batch slot) {
        const auto dispatch = [this, slot](int kind, const QJsonArray& records) {
            if (m_hasProject)
                (this->*slot)(kind, records);
        };
        connect(handler, signal, this, dispatch, Qt::QueuedConnection);
    };
    connectBatch(&WebSocketHandler::recordsSaved, &KRNFile::onRecordsSaved);
    connectBatch(&WebSocketHandler::recordsDeleted, &KRNFile::onRecordsDeleted);
    connect(handler, &WebSocketHandler::connectionCountChanged, this, &KRNFile::onConnectionCountChanged,
            Qt::QueuedConnection);
    connect(handler, &WebSocketHandler::errorOccurred, this, &KRNFile::onErrorOccurred, Qt::QueuedConnection);
}

void KRNFile::onKernoSaved(const QJsonObject& json) {
    putKerno(Kerno(json, saved));
}

void KRNFile::onKernoDeleted(const QJsonObject& json) {
    const Kerno kerno(json, "onDelete");
    if (kerno.isValid() && kernoModel()->removeByKey(kerno.kernoId()))
        emit kernoDeleted(kerno.kernoId());
}

// The tick of a group is this client's own.
void KRNFile::onGroupSaved(const QJsonObject& json) {
    Group group(json, saved);
    if (groupModel()->contains(group.groupId()))
        group.setVisible(groupModel()->record(group.groupId()).visible());
    groupModel()->addOrUpdate(group);
}

void KRNFile::onGroupDeleted(const QJsonObject& json) {
    removeIfValid(groupModel(), json);
}

void KRNFile::onKernoGroupSaved(const QJsonObject& json) {
    const KernoGroup link(json, saved);
    const int formerGroup = kernoGroupModel()->record(link.id()).groupId();
    kernoGroupModel()->addOrUpdate(link);
    groupModel()->onShouldUpdateAssociatedKernosCount(link.groupId());
    if (formerGroup > 0 && formerGroup != link.groupId())
        groupModel()->onShouldUpdateAssociatedKernosCount(formerGroup);
    followGroupFilter(link.kernoId());
}

void KRNFile::onKernoGroupDeleted(const QJsonObject& json) {
    const KernoGroup link = kernoGroupModel()->record(KernoGroup(json, deleted).id());
    if (!link.isValid() || !kernoGroupModel()->removeByKey(link.id()))
        return;
    groupModel()->onShouldUpdateAssociatedKernosCount(link.groupId());
    followGroupFilter(link.kernoId());
}

void KRNFile::onSourceSaved(const QJsonObject& json) {
    if (m_batchOperationManager->isSourcesBatch())
        return;
    const Source source(json, saved);
    sourceModel()->addOrUpdate(source);
    emit newSourceAdded(source.sourceId());
}

void KRNFile::onSourceDeleted(const QJsonObject& json) {
    const Source source(json, deleted);
    sourceModel()->removeByKey(source.sourceId());
    emit sourceDeleted(source.sourceId());
}

void KRNFile::onHighlightSaved(const QJsonObject& json) {
    emit highlightSaved(Highlight(json, saved));
}

void KRNFile::onHighlightDeleted(const QJsonObject& json) {
    const Highlight highlight(json, deleted);
    if (m_batchOperationManager->shouldNotify(highlight.sourceId(), highlight.questionId()))
        emit highlightDeleted(highlight);
}

void KRNFile::onBatchHighlightsSaved(const QJsonObject& json) {
    emit batchHighlightSaved(sourceIdSet(json), questionIdSet(json));
}

void KRNFile::onBatchHighlightsDeleted(const QJsonObject& json) {
    emit batchHighlightDeleted(sourceIdSet(json), questionIdSet(json));
}

void KRNFile::onMemoSaved(const QJsonObject& json) {
    const Memo memo(json, saved);
    if (m_batchOperationManager->shouldNotify(memo.sourceId(), memo.questionId()))
        emit memoSaved(memo);
}

void KRNFile::onMemoDeleted(const QJsonObject& json) {
    const Memo memo(json, deleted);
    if (m_batchOperationManager->shouldNotify(memo.sourceId(), memo.questionId()))
        emit memoDeleted(memo);
}

void KRNFile::onBatchMemosSaved(const QJsonObject& json) {
    emit batchMemoSaved(sourceIdSet(json), questionIdSet(json));
}

void KRNFile::onBatchMemosDeleted(const QJsonObject& json) {
    emit batchMemoDeleted(sourceIdSet(json), questionIdSet(json));
}

// An answer that is kept for later carries its question's text.
void KRNFile::onQuestionSaved(const QJsonObject& json) {
    m_answerCache->clear();
    put(questionListModel(), json);
}

void KRNFile::onQuestionDeleted(const QJsonObject& json) {
    removeIfValid(questionListModel(), json);
}

void KRNFile::onAnswerSaved(const QJsonObject& json) {
    m_answerCache->clear();
    put(answerModel(), json);
}

void KRNFile::onAnswerDeleted(const QJsonObject& json) {
    m_answerCache->clear();
    removeIfValid(answerModel(), json);
}

void KRNFile::onMetadataSaved(const QJsonObject& json) {
    if (!m_batchOperationManager->isMetadataBatch())
        put(metadataModel(), json);
    emit metadataUpdated(false, QVariant());
}

void KRNFile::onMetadataDeleted(const QJsonObject& json) {
    emit metadataUpdated(false, QVariant());
    removeIfValid(metadataModel(), json);
}

void KRNFile::onMetadataKeySaved(const QJsonObject& json) {
    if (!m_batchOperationManager->isMetadataBatch())
        put(metadataKeyModel(), json);
}

void KRNFile::onMetadataKeyDeleted(const QJsonObject& json) {
    removeIfValid(metadataKeyModel(), json);
}

void KRNFile::onMetadataValueSaved(const QJsonObject& json) {
    put(metadataValueModel(), json);
}

void KRNFile::onMetadataValueDeleted(const QJsonObject& json) {
    removeIfValid(metadataValueModel(), json);
}

void KRNFile::onChatMessageSaved(const QJsonObject& json) {
    qDebug() << json;
    put(chatModel(), json);
}

void KRNFile::onChatMessageDeleted(const QJsonObject& json) {
    removeIfValid(chatModel(), json);
}

void KRNFile::onConnectionCountChanged(int count) {
    m_userCount = count;
    emit connectedUsersChanged();
}

void KRNFile::onErrorOccurred(const QJsonArray& errors) {
    qDebug() << errors;
    QString text;
    for (const QJsonValue& error : errors)
        text += error.toObject().value(QStringLiteral("message")).toString() + QLatin1Char('\n');
    emit errorOccurred(text);
}

void KRNFile::onAccessChanged(const QString& name) {
    emit canMutateChanged();
    emit isOwnerChanged();
    switch (accessLevelFromName(name)) {
    case AccessLevel::Read:
        emit notifyUser(
            tr("Your access has been changed by the project owner. You can now only read the project."));
        break;
    case AccessLevel::Write:
        emit notifyUser(
            tr("Your access has been changed by the project owner. You can now write to the project."));
        break;
    default:
        emit notifyUser(tr("Your access has been changed to ") + name);
    }
}

void KRNFile::onReopenFailed(const QString& error) {
    leaveProject();
    emit errorOccurred(error);
}

void KRNFile::onAccessRevoked() {
    leaveProject();
    emit notifyUser(tr("Your access to the project has been revoked by the project owner."));
}
