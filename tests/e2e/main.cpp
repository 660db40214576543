#include "AppDriver.h"
#include "FirstLightJob.h"
#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"

#include <QCommandLineParser>
#include <QDir>
#include <QProcess>
#include <QQmlEngine>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdio>

namespace {

constexpr int runLimitMs = 120000;

QStringList unexpectedMessages;

// Warnings of the screens are faults, whoever prints them. That the scene graph falls back to OpenGL where there is
// no Direct3D is none.
void collectMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg || text.contains(QLatin1String("'d3d12'")))
        return;
    std::fprintf(stderr, "%s\n", qPrintable(text));
    unexpectedMessages << text;
}

QString sampleFile() {
    const QDir samples(qEnvironmentVariable("KERNOVA_SAMPLES", QStringLiteral(KERNOVA_SAMPLES_FOLDER)));
    const QStringList files = samples.entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name);
    return files.isEmpty() ? QString() : samples.filePath(files.first());
}

// One run of the program, driven through one half of the job.
int playRun(int& argc, char** argv, const QString& half, const QString& folder) {
    startup::prepare();
    KernovaApplication application(argc, argv);
    KRNFile* const krnFile = startup::setUp();
    QString failure;
    {
        Session session(application, krnFile);
        if (!session.load()) {
            failure = QStringLiteral("the screens do not load");
        } else {
            AppDriver driver(folder + QStringLiteral("/screenshots-") + half);
            FirstLightJob job(driver, folder, sampleFile());
            failure = half == QLatin1String("code") ? job.code() : job.reopen();
            if (!failure.isEmpty())
                driver.screenshot(QStringLiteral("failed"));
        }
    }
    if (failure.isEmpty() && !unexpectedMessages.isEmpty())
        failure = QStringLiteral("%1 unexpected warning(s)").arg(unexpectedMessages.size());
    if (!failure.isEmpty())
        std::fprintf(stderr, "%s: %s\n", qPrintable(half), qPrintable(failure));
    return failure.isEmpty() ? 0 : 1;
}

// Both runs, each a program of its own, with a home of their own.
int playJob(const QString& program, const QString& folder) {
    QDir().mkpath(folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString home = folder + QStringLiteral("/home");
    QDir(home).removeRecursively();
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const QString path = home + QLatin1Char('/') + QString::fromLatin1(name).toLower();
        QDir().mkpath(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        environment.insert(QString::fromLatin1(name), path);
    }
    for (const QString& half : {QStringLiteral("code"), QStringLiteral("reopen")}) {
        QProcess run;
        run.setProcessEnvironment(environment);
        run.setProcessChannelMode(QProcess::ForwardedChannels);
        run.start(program, {QStringLiteral("--run"), half, folder});
        if (!run.waitForFinished(runLimitMs)) {
            run.kill();
            run.waitForFinished();
            std::fprintf(stderr, "%s: the run does not end\n", qPrintable(half));
            return 1;
        }
        if (run.exitStatus() != QProcess::NormalExit || run.exitCode() != 0)
            return 1;
    }
    std::printf("1 passed, 0 failed\n");
    return 0;
}

}  // namespace

// kernova_e2e --sample-job FOLDER     the whole job; leaves the project and the screenshots in FOLDER
// kernova_e2e --run code|reopen FOLDER  one run of the program
// kernova_e2e                         the whole job in a temporary folder
int main(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QFile::decodeName(argv[i]);
    if (arguments.value(0) == QLatin1String("--run")) {
        qInstallMessageHandler(collectMessage);
        return playRun(argc, argv, arguments.value(1), arguments.value(2));
    }
    const QString program = QFile::decodeName(argv[0]);
    if (arguments.value(0) == QLatin1String("--sample-job"))
        return playJob(program, QDir(arguments.value(1)).absolutePath());
    const QTemporaryDir folder;
    return playJob(program, folder.path());
}
