#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "export/DocxSourceExporter.h"

#include <QDir>
#include <QFileInfo>

namespace cli {

Outcome exportDocx(const Invocation& invocation, const Console& console) {
    const QString target = invocation.path(1);
    const bool separate = invocation.has("separate");
    if (!separate && QFileInfo(target).isDir())
        return Outcome::failed(
            QStringLiteral("%1 is a folder: --separate writes documents into it.").arg(target));
    const bool isEmptyFolder = separate && QDir(target).exists() && QDir(target).isEmpty();
    Outcome outcome = isEmptyFolder ? Outcome::done() : mayWrite(target, invocation);
    if (!outcome.ok())
        return outcome;
    OpenedProject project(invocation);
    outcome = project.open(invocation.path(0));
    if (!outcome.ok())
        return outcome;
    DocxSourceExporter exporter(&project.file());
    const Progress progress = console.progress(QStringLiteral("Writing documents"));
    const DocxSourceExporter::Result result =
        separate ? exporter.exportSeparately(target, {}, progress) : exporter.exportAll(target, progress);
    return result.sentence.isEmpty() && !result.cancelled ? Outcome::done()
                                                          : Outcome::failed(result.sentence);
}

}  // namespace cli
