#pragma once

#include "project/Progress.h"
#include "records/Question.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"
#include "undo/FileManipulationCommand.h"

#include <QHash>
#include <QList>
#include <QMap>

class CSVImportModel;

/// Makes a source of each row of a table, with the questions, properties and values that the project lacks.
/// Invalid when the table can't be imported as it stands, ids can't be had, or `progress` ends the work.
class ImportSourcesFromCSVCommand : public FileManipulationCommand {
public:
    /// `progress` may handle events, and is told of rows.
    ImportSourcesFromCSVCommand(const CSVImportModel& table, KRNFile* file, const Progress& progress = {},
                                QUndoCommand* parent = nullptr);

    void redo() override;
    void undo() override;

private:
    bool mapQuestions(const CSVImportModel& table);
    bool mapKeys(const CSVImportModel& table);
    bool mapValues(const CSVImportModel& table);
    bool addRows(const CSVImportModel& table, const Progress& progress);
    template <typename T> bool addAll(QList<T> records);
    void refreshMetadata();

    QList<Question> m_questions;                 ///< of the project, the new ones included
    QHash<int, int> m_answerColumns;             ///< by question
    QMap<int, int> m_keyOfColumn;                ///< id of the property, by column
    QHash<QPair<int, QString>, int> m_valueIds;  ///< by property and text
};
