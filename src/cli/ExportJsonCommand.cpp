#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"

#include <QSaveFile>

namespace cli {

Outcome exportJson(const Invocation& invocation, const Console&) {
    const QString target = invocation.path(1);
    Outcome outcome = mayWrite(target, invocation);
    if (!outcome.ok())
        return outcome;
    OpenedProject opened(invocation);
    QJsonObject project;
    outcome = opened.read(invocation.path(0), &project);
    if (!outcome.ok())
        return outcome;
    QSaveFile file(target);
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.write(QJsonDocument(project).toJson(QJsonDocument::Compact)) >= 0;
    return written && file.commit()
               ? Outcome::done()
               : Outcome::failed(QStringLiteral("%1 can't be written: %2.").arg(target, file.errorString()));
}

}  // namespace cli
