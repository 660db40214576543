#pragma once

#include "records/Question.h"
#include "records/SourceMetadataKey.h"
#include "records/SourceMetadataValue.h"
#include "undo/FileManipulationCommand.h"

#include <QHash>
#include <QList>

class CSVImportModel;

/// Makes a source of each row of a table, with the questions, properties and values that the project lacks.
/// Invalid when the table can't be imported as it stands, or ids can't be had.
class ImportSourcesFromCSVCommand : public FileManipulationCommand {
public:
    ImportSourcesFromCSVCommand(const CSVImportModel& table, KRNFile* file, QUndoCommand* parent = nullptr);

    void redo() override;
    void undo() override;

private:
    /// A cell of a row that gives its source a property.
    struct Given {
        int row;
        int keyId;
        QString text;
    };

    bool mapQuestions(const CSVImportModel& table);
    bool mapKeys(const CSVImportModel& table);
    bool addRows(const CSVImportModel& table);
    void refreshMetadata();
    QList<QList<Given>> givenProperties(const CSVImportModel& table) const;

    QList<Question> m_questions;      ///< of the project, the new ones included
    QHash<int, int> m_answerColumns;  ///< by question
    QHash<int, int> m_keyOfColumn;    ///< id of the property, by column
};
