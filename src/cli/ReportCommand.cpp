#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "export/ReportFolder.h"

#include <QDir>

namespace cli {

Outcome report(const Invocation& invocation, const Console& console) {
    const QString folder = invocation.path(1);
    Outcome outcome = mayWrite(QDir(folder).filePath(QStringLiteral("report.html")), invocation);
    if (!outcome.ok())
        return outcome;
    OpenedProject project(invocation);
    outcome = project.open(invocation.path(0));
    if (!outcome.ok())
        return outcome;
    const auto written = ::report::writeFolder(project.file(), folder, {}, false, false,
                                               console.progress(QStringLiteral("Writing the report")));
    return written == ::report::Written::Done
               ? Outcome::done()
               : Outcome::failed(QStringLiteral("The report could not be written into %1.").arg(folder));
}

}  // namespace cli
