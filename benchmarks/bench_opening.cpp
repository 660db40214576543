#include "Pulse.h"
#include "Study.h"
#include "merge/ProjectMerger.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionAnswerModel.h"
#include "models/SourceModel.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

// Opening a large project through KRNFile, in a process of its own that does nothing else: how long until it
// can be used, until the text of the shown source and all texts are here, how long the main thread is held at
// most in between, and what memory is left at rest against the UTF-8 bytes of the texts.
//
//   bench_opening              makes a project in a temporary folder and opens it three times
//   bench_opening make FILE    makes the project and keeps it
//   bench_opening open FILE    opens a project once

namespace {

constexpr Study study{1000, 100000, 1000};
constexpr int bound = 120000;  // ms
constexpr int rounds = 3;

bool makeProject(const QString& path) {
    KRNFile file(nullptr, ProjectTimings{0, 0});
    file.initModels();
    const bool made = makeStudy(file, path, study);
    file.close();
    return made;
}

/// Runs the event loop until the signal has come and the condition holds.
template <typename Sender, typename Signal, typename Condition>
void until(const Sender* sender, Signal signal, Condition condition) {
    QEventLoop loop;
    QObject::connect(sender, signal, &loop, [&] {
        if (condition())
            loop.quit();
    });
    QTimer::singleShot(bound, &loop, &QEventLoop::quit);
    if (!condition())
        loop.exec();
}

bool openProject(const QString& path) {
    KRNFile file;
    file.initModels();
    ProjectMerger merger(file.dataHelper());
    QuestionAnswerModel shown(file.dataHelper());
    shown.setSourceId(study.sources / 2);
    if (!file.dataHelper()->connection()->connect(false))
        return false;
    const double before = megabytesResident();
    const auto passed = [clock = QElapsedTimer()]() mutable {
        if (!clock.isValid())
            clock.start();
        return static_cast<double>(clock.nsecsElapsed()) / 1e6;
    };
    auto now = passed;
    now();
    if (!merger.tryProjectPassword(projectAt(path), QString()))
        return false;
    const double tried = now();
    if (!file.openProject(projectAt(path), false, {}, true, true))
        return false;
    const double opened = now();
    Pulse pulse;
    until(&shown, &IModelListBase::modelUpdated, [&] { return shown.rowCount() > 0; });
    const double shownAt = now();
    until(&file, &KRNFile::textsChanged, [&] { return file.allTextsHere(); });
    const double complete = now();
    until(file.sourceModel(), &SourceModel::globalPercentageCodedChanged,
          [&] { return file.sourceModel()->globalPercentageCoded() > 0; });
    const double counted = now();
    qint64 bytes = 0;
    for (int id : file.answerModel()->lengthsBySource())
        bytes += id;  // the texts are plain ASCII
    QEventLoop rest;
    QTimer::singleShot(1000, &rest, &QEventLoop::quit);
    rest.exec();
    std::printf(
        "password tried %.0f ms; usable after %.0f ms, shown text %.0f ms, all texts %.0f ms, shares of "
        "coded text %.0f ms; main thread held %.0f ms at most; resident %.0f MB (%.0f MB before), %.2f "
        "times the texts' %.0f MB\n",
        tried, opened, shownAt, complete, counted, pulse.longest(), megabytesResident(), before,
        megabytesResident() / (static_cast<double>(bytes) / 1e6), static_cast<double>(bytes) / 1e6);
    file.close();
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    bool done = true;
    if (arguments.value(1) == QLatin1String("make")) {
        done = makeProject(arguments.value(2));
    } else if (arguments.value(1) == QLatin1String("open")) {
        done = openProject(arguments.value(2));
    } else {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("large.krn"));
        const auto again = [&](const char* what) {
            return QProcess::execute(application.applicationFilePath(), {QLatin1String(what), path}) == 0;
        };
        done = again("make");
        for (int round = 0; done && round < rounds; ++round)
            done = again("open");
    }
    if (!done)
        std::fputs("The service that KERNOVA_SERVICE_PROGRAM names can't be used.\n", stderr);
    return done ? 0 : 1;
}
