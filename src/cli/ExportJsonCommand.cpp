#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "project/WholeFile.h"

#include <QJsonDocument>

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
    QString error;
    if (file.open(QIODevice::WriteOnly)) {
        writeWhole(file, QJsonDocument(project).toJson(QJsonDocument::Compact));
        error = putInPlace(file);
    } else {
        error = file.errorString();
    }
    return error.isEmpty() ? Outcome::done()
                           : Outcome::failed(QStringLiteral("%1 can't be written: %2.").arg(target, error));
}

}  // namespace cli
