#include "import/ImportSourcesFromCSVCommand.h"

#include "import/CSVImportModel.h"
#include "import/ImportedText.h"
#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "undo/BatchCommand.h"
#include "undo/MetadataCommands.h"
#include "undo/SourceCommands.h"

#include <QSet>

namespace {

constexpr int rowsBetweenProgress = 50;

}  // namespace

ImportSourcesFromCSVCommand::ImportSourcesFromCSVCommand(const CSVImportModel& table, KRNFile* file,
                                                         const Progress& progress, QUndoCommand* parent)
    : FileManipulationCommand(file, parent) {
    const bool imported = table.refusal(file->singleQuestionMode()).isEmpty() && mapQuestions(table) &&
                          mapKeys(table) && mapValues(table) && addRows(table, progress);
    if (!imported)
        invalidate();
}

bool ImportSourcesFromCSVCommand::mapQuestions(const CSVImportModel& table) {
    m_questions = file()->questionListModel()->snapshot();
    const QList<int> columns = table.columnsOf(CSVImportModel::Question);
    const bool namesTheOne = columns.size() == 1 && file()->sourceModel()->rowCount() == 0 &&
                             !m_questions.isEmpty() && m_questions.first().question().isEmpty();
    if (namesTheOne) {
        m_questions.first().setQuestion(table.columnName(columns.first()));
        new UpdateQuestionCommand(m_questions.first(), file(), this);
        m_answerColumns.insert(m_questions.first().questionId(), columns.first());
        return true;
    }
    QList<int> newColumns;
    for (const int column : columns) {
        const QString name = table.columnName(column);
        bool known = false;
        for (const Question& question : qAsConst(m_questions)) {
            if (question.question() == name && !m_answerColumns.contains(question.questionId())) {
                m_answerColumns.insert(question.questionId(), column);
                known = true;
                break;
            }
        }
        if (!known)
            newColumns.append(column);
    }
    QList<int> ids = IdManager::instance()->nextQuestionIds(newColumns.size());
    if (ids.size() < newColumns.size())
        return false;
    int order = file()->questionListModel()->maxQuestionOrder();
    for (const int column : qAsConst(newColumns)) {
        m_questions.append(Question(ids.takeFirst(), table.columnName(column), ++order));
        m_answerColumns.insert(m_questions.last().questionId(), column);
        new AddQuestionCommand(m_questions.last(), file(), this);
    }
    return true;
}

bool ImportSourcesFromCSVCommand::mapKeys(const CSVImportModel& table) {
    QHash<QString, int> ids;
    for (const SourceMetadataKey& key : file()->metadataKeyModel()->snapshot()) {
        if (!ids.contains(key.key()))
            ids.insert(key.key(), key.keyId());
    }
    const QStringList names = table.namesOf(CSVImportModel::Property);
    QStringList missing;
    for (const QString& name : names) {
        if (!ids.contains(name) && !missing.contains(name))
            missing.append(name);
    }
    QList<int> newIds = IdManager::instance()->nextIds(wire::Record::SourceMetadataKey, missing.size());
    if (newIds.size() < missing.size())
        return false;
    for (const QString& name : qAsConst(missing)) {
        ids.insert(name, newIds.takeFirst());
        // A source may have as many values of it as there are columns.
        const bool several = names.count(name) > 1;
        new AddMetadataKeyCommand(SourceMetadataKey(ids.value(name), several, false, name), file(), this);
    }
    for (const int column : table.columnsOf(CSVImportModel::Property))
        m_keyOfColumn.insert(column, ids.value(table.columnName(column)));
    return true;
}

// The values that the project lacks become the first records that are added.
bool ImportSourcesFromCSVCommand::mapValues(const CSVImportModel& table) {
    for (const SourceMetadataValue& value : file()->metadataValueModel()->snapshot()) {
        const QPair<int, QString> text{value.keyId(), value.value().toString()};
        if (!m_valueIds.contains(text))
            m_valueIds.insert(text, value.valueId());
    }
    QList<QPair<int, QString>> missing;
    for (int row = 0; row < table.rowCount(); ++row) {
        for (auto column = m_keyOfColumn.cbegin(); column != m_keyOfColumn.cend(); ++column) {
            const QPair<int, QString> text{column.value(), table.text(row, column.key())};
            if (text.second.isEmpty() || m_valueIds.contains(text))
                continue;
            m_valueIds.insert(text, 0);
            missing.append(text);
        }
    }
    QList<int> ids = IdManager::instance()->nextIds(wire::Record::SourceMetadataValue, missing.size());
    if (ids.size() < missing.size())
        return false;
    QList<SourceMetadataValue> values;
    for (const auto& text : qAsConst(missing)) {
        values.append(SourceMetadataValue(ids.takeFirst(), text.first, text.second));
        m_valueIds.insert(text, values.last().valueId());
    }
    new BatchAddCommand<SourceMetadataValue>(values, file(), this);
    return true;
}

bool ImportSourcesFromCSVCommand::addRows(const CSVImportModel& table, const Progress& progress) {
    const int count = table.rowCount();
    const QList<int> sourceIds = IdManager::instance()->nextIds(wire::Record::Source, count);
    if (sourceIds.size() < count)
        return false;
    const int titleColumn = table.columnsOf(CSVImportModel::Title).value(0, -1);
    const QString author = currentAuthor();
    // Once: to ask for the time costs more than to make a record.
    const QDateTime time = now();
    QList<SourceMetadata> links;
    QList<Source> sources;
    QList<QuestionAnswer> answers;
    for (int row = 0; row < count; ++row) {
        if (row % rowsBetweenProgress == 0 && !goesOn(progress, row, count))
            return false;
        const int sourceId = sourceIds.at(row);
        QSet<int> given;
        for (auto column = m_keyOfColumn.cbegin(); column != m_keyOfColumn.cend(); ++column) {
            const int valueId = m_valueIds.value({column.value(), table.text(row, column.key())});
            if (valueId < 1 || given.contains(valueId))
                continue;
            given.insert(valueId);
            links.append(SourceMetadata(-1, sourceId, column.value(), valueId, author, time));
        }
        const QString title = titleOfNewSource(table.text(row, titleColumn), sourceId);
        sources.append(Source(sourceId, title, QString(), author, time));
        for (const Question& question : qAsConst(m_questions)) {
            answers.append(QuestionAnswer(-1, question.questionId(), sourceId, author, QString(), time));
            answers.last().setAnswer(
                importedText(table.text(row, m_answerColumns.value(question.questionId(), -1))));
        }
    }
    if (!addAll(links))
        return false;
    new BatchAddCommand<Source>(sources, file(), this);
    return addAll(answers);
}

// Of records without ids.
template <typename T> bool ImportSourcesFromCSVCommand::addAll(QList<T> records) {
    if (!IdManager::instance()->stock(T::record(), records.size()))
        return false;
    for (T& record : records)
        factsOf<T>().create(record, currentAuthor());
    IdManager::instance()->dropStock();
    new BatchAddCommand<T>(records, file(), this);
    return true;
}

void ImportSourcesFromCSVCommand::redo() {
    redoChildren();
    refreshMetadata();
}

void ImportSourcesFromCSVCommand::undo() {
    undoChildren();
    refreshMetadata();
}

// Without waiting: the service answers when all changes before are stored, which takes it a while.
void ImportSourcesFromCSVCommand::refreshMetadata() {
    SourceMetadataModel* const model = file()->metadataModel();
    ReplyBase* const reply =
        file()->dataHelper()->queryListAsync(DataHelper::listText<SourceMetadata>(), model);
    if (!reply)
        return;
    const QJsonObject project = file()->currentProject();
    QObject::connect(reply, &ReplyBase::finished, model, [model, reply, project, file = file()] {
        const QString list = wire::operationName(wire::Record::SourceMetadata, wire::Operation::QueryList);
        // Another project may be open by now.
        if (reply->errors().isEmpty() && file->isOpened() && file->currentProject() == project)
            model->setData(DataHelper::records<SourceMetadata>(reply->data(), {list}));
        reply->deleteLater();
    });
}
