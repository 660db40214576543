#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "exchange/ArchiveWork.h"
#include "exchange/QDPXExporter.h"
#include "project/KRNFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

namespace cli {

namespace {

// What a window's canvas has at first.
constexpr int canvasWidth = 700;
constexpr int canvasHeight = 525;

}  // namespace

Outcome exportQdpx(const Invocation& invocation, const Console& console) {
    const QString target = QDPXExporter::withSuffix(invocation.path(1));
    Outcome outcome = mayWrite(target, invocation);
    if (!outcome.ok())
        return outcome;
    OpenedProject project(invocation);
    outcome = project.open(invocation.path(0));
    if (!outcome.ok())
        return outcome;
    const ExchangeForm form = invocation.has("strict") ? ExchangeForm::Standard : ExchangeForm::Own;
    return archive::exportOpen(project.file(), target, form,
                               console.progress(QStringLiteral("Writing the archive")))
               ? Outcome::done()
               : Outcome::failed(
                     QStringLiteral("%1 can't be written.").arg(QDir::toNativeSeparators(target)));
}

Outcome importQdpx(const Invocation& invocation, const Console& console) {
    const QString file = invocation.path(0);
    const QString target = invocation.path(1);
    if (!QFileInfo(file).isFile())
        return Outcome::failed(QStringLiteral("There is no file %1.").arg(QDir::toNativeSeparators(file)));
    Outcome outcome = mayWrite(target, invocation);
    if (!outcome.ok())
        return outcome;
    OpenedProject opened(invocation);
    QString password;
    outcome = opened.readPassword(&password);
    if (outcome.ok())
        outcome = opened.connectLink();
    if (!outcome.ok())
        return outcome;
    const QDPXImportOptions options{opened.file().getCurrentAuthor(), canvasWidth, canvasHeight};
    const Message message =
        archive::import(*opened.file().dataHelper(), file, {{QStringLiteral("name"), target}}, options,
                        password, console.progress(QStringLiteral("Reading the archive")));
    if (!message.status)
        return Outcome::failed(QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), message.message));
    const QJsonArray skipped = message.json.value(QStringLiteral("skipped")).toArray();
    for (const QJsonValue& kind : skipped) {
        Console::print(QStringLiteral("Skipped: %1: %2\n")
                           .arg(kind[QLatin1String("kind")].toString())
                           .arg(kind[QLatin1String("count")].toInt()));
    }
    return Outcome::done();
}

}  // namespace cli
