#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/OpenedProject.h"
#include "import/SourceImport.h"
#include "import/TextFile.h"
#include "models/QuestionModel.h"
#include "project/KRNFile.h"

#include <QFileInfo>
#include <QUrl>

namespace cli {

namespace {

/// Before anything is changed: whether all are files that can be read, of a kind that is known.
Outcome check(const QStringList& files) {
    for (const QString& file : files) {
        const QFileInfo info(file);
        if (!info.isFile() || !info.isReadable())
            return Outcome::failed(QStringLiteral("The file %1 can't be read.").arg(file));
        if (!textfile::suffixes().contains(info.suffix().toLower())) {
            return Outcome::failed(QStringLiteral("%1 is not of a kind that can be imported: %2.")
                                       .arg(file, textfile::suffixes().join(QLatin1String(", "))));
        }
    }
    return Outcome::done();
}

Outcome openOrMake(OpenedProject& project, const QString& path, const Invocation& invocation) {
    const bool asks = invocation.has("question");
    if (QFileInfo::exists(path)) {
        const Outcome opened = project.open(path);
        if (!opened.ok() || project.file().singleQuestionMode() != asks)
            return opened;
        return Outcome::failed(
            asks ? QStringLiteral("%1 holds plain texts: leave --question out.").arg(path)
                 : QStringLiteral("%1 holds answers to questions: say with --question which "
                                  "one the texts answer.")
                       .arg(path));
    }
    const Outcome made = project.create(path, !asks);
    if (!made.ok() || !asks)
        return made;
    Question first = project.file().questionListModel()->snapshot().value(0);
    first.setQuestion(invocation.value("question"));
    project.file().saveQuestion(first);
    return Outcome::done();
}

}  // namespace

Outcome importFiles(const Invocation& invocation, const Console& console) {
    const QStringList files = invocation.arguments.mid(1);
    if (invocation.has("question") && invocation.value("question").isEmpty())
        return Outcome::wrongUsage(QStringLiteral("The question has no text."));
    Outcome outcome = check(files);
    if (!outcome.ok())
        return outcome;
    OpenedProject project(invocation);
    outcome = openOrMake(project, invocation.path(0), invocation);
    if (!outcome.ok())
        return outcome;
    const SourceImport import(&project.undo(), &project.file());
    const Progress progress = console.progress(QStringLiteral("Importing"));
    QStringList failed;
    for (int i = 0; i < files.size(); ++i) {
        if (!progress(i, files.size()))
            return Outcome::failed(QStringLiteral("%1 of %2 files were imported.").arg(i).arg(files.size()));
        const QUrl url = QUrl::fromLocalFile(QFileInfo(files.at(i)).absoluteFilePath());
        QVariantList pairs =
            import.pairsOfFile(url, QString(), QString(), true, [] { return Console::isInterrupted(); });
        if (!pairs.isEmpty() && invocation.has("question")) {
            QVariantMap pair = pairs.first().toMap();
            pair.insert(QStringLiteral("question"), invocation.value("question"));
            pairs = {pair};
        }
        if (pairs.isEmpty() || !import.save(textfile::titleFor(url), pairs))
            failed << files.at(i);
        QCoreApplication::processEvents();
    }
    outcome = project.finish();
    if (!outcome.ok() || failed.isEmpty())
        return outcome;
    return Outcome::failed(QStringLiteral("No text was found in %1; %2 of %3 files were imported.")
                               .arg(failed.join(QLatin1String(", ")))
                               .arg(files.size() - failed.size())
                               .arg(files.size()));
}

}  // namespace cli
