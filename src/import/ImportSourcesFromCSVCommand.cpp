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
#include "undo/MetadataCommands.h"
#include "undo/SourceCommands.h"

#include <QSet>

ImportSourcesFromCSVCommand::ImportSourcesFromCSVCommand(const CSVImportModel& table, KRNFile* file,
                                                         QUndoCommand* parent)
    : FileManipulationCommand(file, parent) {
    const bool imported = table.refusal(file->singleQuestionMode()).isEmpty() && mapQuestions(table) &&
                          mapKeys(table) && addRows(table);
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

QList<QList<ImportSourcesFromCSVCommand::Given>> ImportSourcesFromCSVCommand::givenProperties(
    const CSVImportModel& table) const {
    const QList<int> columns = table.columnsOf(CSVImportModel::Property);
    QList<QList<Given>> rows;
    for (int row = 0; row < table.rowCount(); ++row) {
        QList<Given> given;
        for (const int column : columns) {
            const Given one{row, m_keyOfColumn.value(column), table.text(row, column)};
            const auto isSame = [&](const Given& other) {
                return other.keyId == one.keyId && other.text == one.text;
            };
            if (!one.text.isEmpty() && std::none_of(given.cbegin(), given.cend(), isSame))
                given.append(one);
        }
        rows.append(given);
    }
    return rows;
}

bool ImportSourcesFromCSVCommand::addRows(const CSVImportModel& table) {
    IdManager* const ids = IdManager::instance();
    const QList<QList<Given>> given = givenProperties(table);

    QHash<QPair<int, QString>, int> valueIds;
    for (const SourceMetadataValue& value : file()->metadataValueModel()->snapshot()) {
        const QPair<int, QString> text{value.keyId(), value.value().toString()};
        if (!valueIds.contains(text))
            valueIds.insert(text, value.valueId());
    }
    QSet<QPair<int, QString>> newValues;
    int links = 0;
    for (const QList<Given>& row : given) {
        links += row.size();
        for (const Given& one : row) {
            if (!valueIds.contains({one.keyId, one.text}))
                newValues.insert({one.keyId, one.text});
        }
    }

    const int count = table.rowCount();
    QList<int> sourceIds = ids->nextIds(wire::Record::Source, count);
    QList<int> answerIds = ids->nextAnswerIds(count * m_questions.size());
    QList<int> newValueIds = ids->nextIds(wire::Record::SourceMetadataValue, newValues.size());
    QList<int> linkIds = ids->nextIds(wire::Record::SourceMetadata, links);
    if (sourceIds.size() < count || answerIds.size() < count * m_questions.size() ||
        newValueIds.size() < newValues.size() || linkIds.size() < links)
        return false;

    const int titleColumn = table.columnsOf(CSVImportModel::Title).value(0, -1);
    for (int row = 0; row < count; ++row) {
        const int sourceId = sourceIds.takeFirst();
        for (const Given& one : given.at(row)) {
            int& valueId = valueIds[{one.keyId, one.text}];
            if (valueId < 1) {
                valueId = newValueIds.takeFirst();
                new AddMetadataValueCommand(SourceMetadataValue(valueId, one.keyId, one.text), file(), this);
            }
            new AddRecordCommand<SourceMetadata>(
                SourceMetadata(linkIds.takeFirst(), sourceId, one.keyId, valueId, QString(), now()), file(),
                this);
        }
        const Source source(sourceId, table.text(row, titleColumn), QString(), QString(), now());
        new AddSourceCommand(source, file(), false, this);
        for (const Question& question : qAsConst(m_questions)) {
            QuestionAnswer answer(answerIds.takeFirst(), question.questionId(), sourceId, QString(),
                                  QString(), now());
            answer.setAnswer(importedText(table.text(row, m_answerColumns.value(question.questionId(), -1))));
            new AddAnswerCommand(answer, file(), this);
        }
    }
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
