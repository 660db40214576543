#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "merge/ProjectMerger.h"
#include "project/KRNFile.h"

#include <QDir>

namespace cli {

namespace {

QJsonObject identity(const QString& path) {
    return {{QStringLiteral("name"), path}, {QStringLiteral("project_uuid"), QString()}};
}

Outcome add(OpenedProject& opened, ProjectMerger& merger, const QString& path, const QString& password,
            bool master) {
    const Outcome looked = opened.look(path);
    if (!looked.ok())
        return looked;
    const QString shown = QDir::toNativeSeparators(path);
    if (!merger.tryProjectSingleQuestion(identity(path), master)) {
        return Outcome::failed(
            merger.lastError().isEmpty()
                ? QStringLiteral("%1 cannot be added because question type is different.").arg(shown)
                : merger.lastError());
    }
    const bool added =
        master ? merger.setMaster(identity(path), password) : merger.addProject(identity(path), password);
    return added ? Outcome::done() : Outcome::failed(QStringLiteral("%1: %2").arg(shown, merger.lastError()));
}

}  // namespace

Outcome merge(const Invocation& invocation, const Console& console) {
    OpenedProject opened(invocation);
    QString password;
    Outcome outcome = opened.readPassword(&password);
    if (outcome.ok())
        outcome = opened.connectLink();
    ProjectMerger merger(opened.file().dataHelper());
    for (int i = 1; i < invocation.arguments.size() && outcome.ok(); ++i)
        outcome = add(opened, merger, invocation.path(i), password, i == 1);
    if (!outcome.ok())
        return outcome;
    const Progress progress = console.progress(QStringLiteral("Merging"));
    QObject::connect(&merger, &ProjectMerger::progressed, &merger, [&] {
        if (!goesOn(progress, merger.progress(), 100))
            merger.cancelMerge();
    });
    const QString result = invocation.path(0);
    if (merger.exists(identity(result)))
        return Outcome::failed(QStringLiteral("%1 is there already.").arg(QDir::toNativeSeparators(result)));
    return merger.merge(identity(result), password) ? Outcome::done() : Outcome::failed(merger.lastError());
}

}  // namespace cli
