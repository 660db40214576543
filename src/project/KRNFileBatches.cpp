#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "models/BatchOperationManager.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"
#include "project/AnswerCache.h"

#include <QJsonArray>

// Many records of a kind in one frame, as a table brings them, and what the service tells of them.

namespace {

template <typename Model> QList<int> putAll(Model* model, const QJsonArray& list) {
    QList<typename Model::RecordType> records;
    QList<int> ids;
    for (const QJsonValue& json : list) {
        records.append(typename Model::RecordType(json.toObject(), "onSaved"));
        ids.append(records.last().id());
    }
    model->addOrUpdateAll(records);
    return ids;
}

template <typename Model> QList<int> removeAll(Model* model, const QJsonArray& list) {
    QList<int> ids;
    for (const QJsonValue& json : list)
        ids.append(json.toObject().value(wire::name::id).toInt());
    model->removeByKeys(ids);
    return ids;
}

}  // namespace

template <typename T> bool KRNFile::saveAll(const QList<T>& records) {
    m_answerCache->clear();
    return m_dataHelper->saveAll(records);
}

template <typename T> bool KRNFile::deleteAll(const QList<T>& records) {
    m_answerCache->clear();
    return m_dataHelper->removeAll(records);
}

template bool KRNFile::saveAll(const QList<Source>&);
template bool KRNFile::saveAll(const QList<QuestionAnswer>&);
template bool KRNFile::saveAll(const QList<SourceMetadata>&);
template bool KRNFile::saveAll(const QList<SourceMetadataValue>&);
template bool KRNFile::deleteAll(const QList<Source>&);
template bool KRNFile::deleteAll(const QList<QuestionAnswer>&);
template bool KRNFile::deleteAll(const QList<SourceMetadata>&);
template bool KRNFile::deleteAll(const QList<SourceMetadataValue>&);

void KRNFile::onRecordsSaved(int kind, const QJsonArray& records) {
    switch (static_cast<wire::Record>(kind)) {
    case wire::Record::Source:
        if (m_batchOperationManager->isSourcesBatch())
            return;
        for (const int id : putAll(sourceModel(), records))
            emit newSourceAdded(id);
        break;
    case wire::Record::QuestionAnswer:
        m_answerCache->clear();
        putAll(answerModel(), records);
        break;
    case wire::Record::SourceMetadata:
        if (!m_batchOperationManager->isMetadataBatch())
            putAll(metadataModel(), records);
        emit metadataUpdated(false, QVariant());
        break;
    case wire::Record::SourceMetadataValue:
        putAll(metadataValueModel(), records);
        break;
    default:
        break;
    }
}

void KRNFile::onRecordsDeleted(int kind, const QJsonArray& records) {
    switch (static_cast<wire::Record>(kind)) {
    case wire::Record::Source:
        for (const int id : removeAll(sourceModel(), records))
            emit sourceDeleted(id);
        break;
    case wire::Record::QuestionAnswer:
        m_answerCache->clear();
        removeAll(answerModel(), records);
        break;
    case wire::Record::SourceMetadata:
        emit metadataUpdated(false, QVariant());
        removeAll(metadataModel(), records);
        break;
    case wire::Record::SourceMetadataValue:
        removeAll(metadataValueModel(), records);
        break;
    default:
        break;
    }
}
