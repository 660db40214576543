#include "Job.h"
#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"

#include <QDir>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

namespace {

// A run that hangs tells of it before it is ended from outside.
constexpr int runLimitMs = 900000;
constexpr int killLimitMs = runLimitMs + 2 * patienceMs;

const JobEntry* jobNamed(const QString& name) {
    for (const JobEntry& job : jobs()) {
        if (name == job.name)
            return &job;
    }
    return nullptr;
}

QStringList unexpectedMessages;

// What says nothing of the program: that the scene graph falls back to OpenGL where there is no Direct3D, and
// that a display without a window manager won't give the focus to a window that isn't mapped yet; that an
// asynchronous loader was taken away while it loaded; and that frames came so late that the toolkit went on
// without their clock.
bool isNoFault(const QString& text) {
    return text.contains("'d3d12'"_s) ||
           text.contains("items in the process of being created at engine destruction"_s) ||
           text.startsWith("QUnifiedTimer::stopAnimationDriver"_s) ||
           text.startsWith("QXcbConnection: XCB error"_s);
}

// Warnings of the screens are faults, whoever prints them.
void collectMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg || isNoFault(text))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(text));
    unexpectedMessages << text;
}

// With what helps somebody who only reads the output.
QString described(const QString& failure, AppDriver& driver) {
    return "%1\n  %2\n  picture: %3"_s.arg(failure, driver.account(), driver.snapshot("failed"_s));
}

// The last that is printed.
void tell(const QString& job, const QString& run, const QString& failure) {
    std::fprintf(stderr, "FAILED %s, run %s: %s\n", qPrintable(job), qPrintable(run), qPrintable(failure));
}

// One run of the program, driven through one part of the job.
int playRun(int& argc, char** argv, const JobEntry& entry, const QString& run, const QString& folder) {
    startup::prepare();
    KernovaApplication application(argc, argv);
    KRNFile* const krnFile = startup::setUp();
    // A job that isn't about it has seen the introduction.
    if (entry.name != "first-light"_s)
        QSettings().setValue("showFirstTimeIntro"_s, false);
    QString failure;
    {
        Session session(application, krnFile);
        AppDriver driver(folder + "/screenshots-"_s + run);
        QTimer::singleShot(runLimitMs, [&] {
            tell(entry.name, run, described("the run takes too long"_s, driver));
            std::_Exit(1);
        });
        const std::unique_ptr<Job> job = entry.make(driver, session, folder);
        if (!session.load())
            failure = "the screens do not load"_s;
        else if (!job->play(run))
            failure = job->failure();
        if (failure.isEmpty() && !unexpectedMessages.isEmpty())
            failure = "unexpected warning: "_s + unexpectedMessages.first();
        if (!failure.isEmpty())
            failure = described(failure, driver);
    }
    if (failure.isEmpty() && !unexpectedMessages.isEmpty())
        failure = "unexpected warning at the end: "_s + unexpectedMessages.first();
    if (!failure.isEmpty())
        tell(entry.name, run, failure);
    return failure.isEmpty() ? 0 : 1;
}

// The environment of a person of their own, who has never started the program.
QProcessEnvironment freshHome(const QString& home) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QDir(home).removeRecursively();
    for (const char* name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"}) {
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
    const QStringList files = dir.entryList({"*.krn"_s, "*.krn.bak"_s}, QDir::Files);
    for (const QString& file : files)
        dir.remove(file);
    const QStringList pictures = dir.entryList({"screenshots-*"_s}, QDir::Dirs);
    for (const QString& folderOfPictures : pictures)
        QDir(dir.filePath(folderOfPictures)).removeRecursively();
}

// All runs, each a program of its own, with one home.
int playJob(const QString& program, const JobEntry& job, const QString& folder) {
    QDir().mkpath(folder);
    removeTraces(folder);
    QProcessEnvironment environment = freshHome(folder + "/home"_s);
    for (const QString& name : job.runs) {
        // "-x2" stands for twice as many pixels.
        const QString scale = name.section("-x"_s, 1);
        environment.insert("QT_SCALE_FACTOR"_s, scale.isEmpty() ? "1"_s : scale);
        QProcess run;
        run.setProcessEnvironment(environment);
        run.setProcessChannelMode(QProcess::ForwardedChannels);
        run.start(program, {"--run"_s, job.name, name, folder});
        if (!run.waitForFinished(killLimitMs)) {
            run.kill();
            run.waitForFinished();
            tell(job.name, name, "the run does not end"_s);
            return 1;
        }
        const bool killed = run.exitStatus() == QProcess::CrashExit;
        if (killed != job.killed.contains(name)) {
            tell(job.name, name, killed ? "the program crashes"_s : "the program ends by itself"_s);
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
    const bool named = mode == "--run"_s || mode == "--job"_s;
    const JobEntry* job = named ? jobNamed(arguments.value(1)) : jobNamed("first-light"_s);
    if (!job) {
        std::fprintf(stderr, "There is no job of that name.\n");
        return 2;
    }
    if (mode == "--run"_s) {
        qInstallMessageHandler(collectMessage);
        // For tests that run as root, where the web engine's sandbox can't, and where the memory that
        // processes share is small.
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
        qputenv("QTWEBENGINE_CHROMIUM_FLAGS", "--disable-dev-shm-usage");
        return playRun(argc, argv, *job, arguments.value(2), arguments.value(3));
    }
    const QTemporaryDir temporary;
    const QString folder = named ? arguments.value(2) : arguments.value(1, temporary.path());
    return playJob(program, *job, QDir(folder).absolutePath());
}
