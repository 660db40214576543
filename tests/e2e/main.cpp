#include "CanvasJob.h"
#include "CloudJob.h"
#include "CodingJob.h"
#include "CopiesJob.h"
#include "EditJob.h"
#include "ExchangeJob.h"
#include "ExportJob.h"
#include "FirstLightJob.h"
#include "GroupsJob.h"
#include "ImportJob.h"
#include "KeysJob.h"
#include "LooksJob.h"
#include "ProjectJob.h"
#include "PropertyJob.h"
#include "ReportJob.h"
#include "RescueJob.h"
#include "SearchJob.h"
#include "TogetherJob.h"
#include "ViewsJob.h"
#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"

#include <QDir>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

constexpr int runLimitMs = 280000;

// A job and its runs of the program; those of `killed` end by a kill, not by themselves.
struct JobEntry {
    const char* name;
    QStringList runs;
    QStringList killed;
    std::unique_ptr<Job> (*make)(AppDriver&, Session&, const QString& folder);
};

template <typename Kind>
std::unique_ptr<Job> make(AppDriver& driver, Session& session, const QString& folder) {
    return std::make_unique<Kind>(driver, session, folder);
}

const std::vector<JobEntry>& jobs() {
    static const std::vector<JobEntry> all{
        {"first-light", {QStringLiteral("code"), QStringLiteral("reopen")}, {}, make<FirstLightJob>},
        {"canvas", {QStringLiteral("arrange")}, {}, make<CanvasJob>},
        {"cloud", CloudJob::runs(), {}, make<CloudJob>},
        {"coding", {QStringLiteral("code")}, {}, make<CodingJob>},
        {"copies", CopiesJob::runs(), {}, make<CopiesJob>},
        {"edit", EditJob::runs(), {}, make<EditJob>},
        {"exchange", ExchangeJob::runs(), {}, make<ExchangeJob>},
        {"export", ExportJob::runs(), {}, make<ExportJob>},
        {"groups", {QStringLiteral("groups")}, {}, make<GroupsJob>},
        {"import", ImportJob::runs(), {}, make<ImportJob>},
        {"keys", {QStringLiteral("keys")}, {}, make<KeysJob>},
        {"looks", LooksJob::runs(), {}, make<LooksJob>},
        {"project", ProjectJob::runs(), {}, make<ProjectJob>},
        {"properties", {QStringLiteral("properties")}, {}, make<PropertyJob>},
        {"report", {QStringLiteral("report")}, {}, make<ReportJob>},
        {"search", {QStringLiteral("ask")}, {}, make<SearchJob>},
        {"together", TogetherJob::runs(), {}, make<TogetherJob>},
        {"views", {QStringLiteral("views")}, {}, make<ViewsJob>},
        {"rescue", RescueJob::runs(), {RescueJob::killedRun()}, make<RescueJob>},
    };
    return all;
}

const JobEntry* jobNamed(const QString& name) {
    for (const JobEntry& job : jobs()) {
        if (name == QLatin1String(job.name))
            return &job;
    }
    return nullptr;
}

QStringList unexpectedMessages;

// What says nothing of the program: that the scene graph falls back to OpenGL where there is no Direct3D, and
// that a display without a window manager won't give the focus to a window that isn't mapped yet; and that an
// asynchronous loader was taken away while it loaded.
bool isNoFault(const QString& text) {
    return text.contains(QLatin1String("'d3d12'")) ||
           text.contains(QLatin1String("items in the process of being created at engine destruction")) ||
           text.startsWith(QLatin1String("QXcbConnection: XCB error"));
}

// Warnings of the screens are faults, whoever prints them.
void collectMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg || isNoFault(text))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(text));
    unexpectedMessages << text;
}

// One run of the program, driven through one part of the job.
int playRun(int& argc, char** argv, const JobEntry& entry, const QString& run, const QString& folder) {
    startup::prepare();
    KernovaApplication application(argc, argv);
    KRNFile* const krnFile = startup::setUp();
    // A job that isn't about it has seen the introduction.
    if (QString::fromLatin1(entry.name) != QLatin1String("first-light"))
        QSettings().setValue(QStringLiteral("showFirstTimeIntro"), false);
    QString failure;
    {
        Session session(application, krnFile);
        if (!session.load()) {
            failure = QStringLiteral("the screens do not load");
        } else {
            AppDriver driver(folder + QStringLiteral("/screenshots-") + run);
            const std::unique_ptr<Job> job = entry.make(driver, session, folder);
            if (!job->play(run)) {
                failure = job->failure();
                driver.screenshot(QStringLiteral("failed"));
            }
        }
    }
    if (failure.isEmpty() && !unexpectedMessages.isEmpty())
        failure = QStringLiteral("%1 unexpected warning(s)").arg(unexpectedMessages.size());
    if (!failure.isEmpty())
        std::fprintf(stderr, "%s: %s\n", qPrintable(run), qPrintable(failure));
    return failure.isEmpty() ? 0 : 1;
}

// The environment of a person of their own, who has never started the program.
QProcessEnvironment freshHome(const QString& home) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QDir(home).removeRecursively();
    for (const char* name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const QString path = home + QLatin1Char('/') + QString::fromLatin1(name).toLower();
        QDir().mkpath(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        environment.insert(QString::fromLatin1(name), path);
    }
    return environment;
}

// What an earlier play of a job left in the folder would be in the way; nothing else there is touched.
void removeTraces(const QString& folder) {
    QDir dir(folder);
    const QStringList files =
        dir.entryList({QStringLiteral("*.krn"), QStringLiteral("*.krn.bak")}, QDir::Files);
    for (const QString& file : files)
        dir.remove(file);
    const QStringList pictures = dir.entryList({QStringLiteral("screenshots-*")}, QDir::Dirs);
    for (const QString& folderOfPictures : pictures)
        QDir(dir.filePath(folderOfPictures)).removeRecursively();
}

// All runs, each a program of its own, with one home.
int playJob(const QString& program, const JobEntry& job, const QString& folder) {
    QDir().mkpath(folder);
    removeTraces(folder);
    QProcessEnvironment environment = freshHome(folder + QStringLiteral("/home"));
    for (const QString& name : job.runs) {
        // "-x2" stands for twice as many pixels.
        const QString scale = name.section(QLatin1String("-x"), 1);
        environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scale.isEmpty() ? QStringLiteral("1") : scale);
        QProcess run;
        run.setProcessEnvironment(environment);
        run.setProcessChannelMode(QProcess::ForwardedChannels);
        run.start(program, {QStringLiteral("--run"), QString::fromLatin1(job.name), name, folder});
        if (!run.waitForFinished(runLimitMs)) {
            run.kill();
            run.waitForFinished();
            std::fprintf(stderr, "%s: the run does not end\n", qPrintable(name));
            return 1;
        }
        const bool killed = run.exitStatus() == QProcess::CrashExit;
        if (killed != job.killed.contains(name)) {
            std::fprintf(stderr, "%s: the program %s\n", qPrintable(name),
                         killed ? "crashes" : "ends by itself");
            return 1;
        }
        if (!killed && run.exitCode() != 0)
            return 1;
    }
    std::printf("1 passed, 0 failed\n");
    return 0;
}

}  // namespace

// kernova_e2e --sample-job FOLDER     the first job; leaves the project and the screenshots in FOLDER
// kernova_e2e --job NAME FOLDER       another job, in the same way
// kernova_e2e --run NAME RUN FOLDER   one run of the program in it
// kernova_e2e                         the first job in a temporary folder
int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    const QString program = QFile::decodeName(argv[0]);
    const QString mode = arguments.value(0);
    const bool named = mode == QLatin1String("--run") || mode == QLatin1String("--job");
    const JobEntry* job = named ? jobNamed(arguments.value(1)) : &jobs().front();
    if (!job) {
        std::fprintf(stderr, "There is no job of that name.\n");
        return 2;
    }
    if (mode == QLatin1String("--run")) {
        qInstallMessageHandler(collectMessage);
        // For tests that run as root, where the web engine's sandbox can't.
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
        return playRun(argc, argv, *job, arguments.value(2), arguments.value(3));
    }
    const QTemporaryDir temporary;
    const QString folder = named ? arguments.value(2) : arguments.value(1, temporary.path());
    return playJob(program, *job, QDir(folder).absolutePath());
}
