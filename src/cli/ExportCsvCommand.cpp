#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "export/CsvExport.h"

#include <QDir>

namespace cli {

Outcome exportCsv(const Invocation& invocation, const Console& console) {
    const QDir folder(invocation.path(1));
    Outcome outcome;
    for (const QString& name : csv::fileNames()) {
        if (outcome.ok())
            outcome = mayWrite(folder.filePath(name), invocation);
    }
    if (!outcome.ok())
        return outcome;
    OpenedProject project(invocation);
    outcome = project.open(invocation.path(0));
    if (!outcome.ok())
        return outcome;
    if (!folder.mkpath(QStringLiteral(".")))
        return Outcome::failed(QStringLiteral("The folder %1 can't be made.").arg(folder.path()));
    const csv::Result result =
        csv::exportProject(project.file(), folder.path(), console.progress(QStringLiteral("Writing tables")));
    return result.sentence.isEmpty() && !result.cancelled ? Outcome::done()
                                                          : Outcome::failed(result.sentence);
}

}  // namespace cli
