#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "import/TransposedCSVImportModel.h"
#include "project/KRNFile.h"

#include <QFileInfo>
#include <QUrl>

namespace cli {

namespace {

/// -1 for a letter that is none.
int typeOf(const QString& letter) {
    static const QHash<QString, int> types{{QStringLiteral("T"), CSVImportModel::Title},
                                           {QStringLiteral("Q"), CSVImportModel::Question},
                                           {QStringLiteral("P"), CSVImportModel::Property},
                                           {QStringLiteral("-"), CSVImportModel::Ignore}};
    return types.value(letter.trimmed().toUpper(), -1);
}

Outcome setColumns(TransposedCSVImportModel& model, const QString& letters) {
    const QStringList columns = letters.split(QLatin1Char(','));
    if (columns.size() != model.rowCount()) {
        return Outcome::wrongUsage(QStringLiteral("--columns names %1 columns, but the file has %2.")
                                       .arg(columns.size())
                                       .arg(model.rowCount()));
    }
    for (int i = 0; i < columns.size(); ++i) {
        const int type = typeOf(columns.at(i));
        if (type < 0)
            return Outcome::wrongUsage(
                QStringLiteral("\"%1\" is no kind of column: T, Q, P or -.").arg(columns.at(i)));
        model.setSectionType(i, type);
    }
    return Outcome::done();
}

}  // namespace

Outcome importCsv(const Invocation& invocation, const Console& console) {
    if (!invocation.has("columns"))
        return Outcome::wrongUsage(
            QStringLiteral("--columns is missing: a letter for each column, such as T,Q,P,-."));
    const QString table = invocation.path(1);
    if (!QFileInfo(table).isFile() || !QFileInfo(table).isReadable())
        return Outcome::failed(QStringLiteral("The file %1 can't be read.").arg(table));
    TransposedCSVImportModel model;
    if (!model.openFile(QUrl::fromLocalFile(table)))
        return Outcome::failed(QStringLiteral("%1 has no entries to import.").arg(table));
    Outcome outcome = setColumns(model, invocation.value("columns"));
    const QString path = invocation.path(0);
    const bool exists = QFileInfo::exists(path);
    const bool makesPlain = model.table().columnsOf(CSVImportModel::Question).size() == 1;
    const QString refusal = exists ? QString() : model.table().refusal(makesPlain);
    if (outcome.ok() && !refusal.isEmpty())
        outcome = Outcome::failed(refusal);
    if (!outcome.ok())
        return outcome;
    OpenedProject project(invocation);
    outcome = exists ? project.open(path) : project.create(path, makesPlain);
    if (!outcome.ok())
        return outcome;
    const QString refused = model.table().refusal(project.file().singleQuestionMode());
    if (!refused.isEmpty())
        return Outcome::failed(refused);
    model.setProgress(console.progress(QStringLiteral("Importing")));
    if (!project.undo().importSourcesFromCSV(&model))
        return Outcome::failed(QStringLiteral("%1 could not be imported.").arg(table));
    return project.finish();
}

}  // namespace cli
