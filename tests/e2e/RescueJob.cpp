#include "RescueJob.h"

#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <csignal>

namespace {

const QString first = QStringLiteral("Before");
const QString second = QStringLiteral("After");

// The process of this program's own data service; 0 for none.
qint64 serviceProcess() {
    const QDir tasks(QStringLiteral("/proc/self/task"));
    const QStringList threads = tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& thread : threads) {
        QFile children(tasks.filePath(thread + QStringLiteral("/children")));
        if (!children.open(QIODevice::ReadOnly))
            continue;
        const QList<QByteArray> ids = children.readAll().simplified().split(' ');
        for (const QByteArray& id : ids) {
            QFile name(QStringLiteral("/proc/%1/comm").arg(QString::fromLatin1(id)));
            if (name.open(QIODevice::ReadOnly) && name.readAll().startsWith("kernova-service"))
                return id.toLongLong();
        }
    }
    return 0;
}

}  // namespace

QStringList RescueJob::runs() {
    return {killedRun(), QStringLiteral("lock"), QStringLiteral("service")};
}

QString RescueJob::killedRun() {
    return QStringLiteral("crash");
}

bool RescueJob::play(const QString& run) {
    if (!signIn())
        return false;
    if (run == killedRun())
        return crash();
    return run == QLatin1String("lock") ? askAboutLock() : outliveService();
}

bool RescueJob::crash() {
    return createProject(path(QStringLiteral("rescue.krn"))) && addKerno(first) &&
           expect(KRNFile::instance()->holdsLock(), QStringLiteral("the project is not marked as open")) &&
           expect(raise(SIGKILL) == 0, QStringLiteral("the program outlives its kill"));
}

bool RescueJob::openSelected() {
    return click(QStringLiteral("rescue")) && click(QStringLiteral("Open Selected"));
}

// The question holds up the opening, and with it whoever waits here, so it is answered from within.
bool RescueJob::openAnswering(const QString& button) {
    bool shot = false;
    const auto answer = [&] {
        if (!KRNFile::instance()->awaitingOpenConfirmation())
            return false;
        shot = shot || shoot(QStringLiteral("lock-question"));
        return m_driver.answerMessageBox(button);
    };
    return expect(m_driver.during([&] { openSelected(); }, answer),
                  QStringLiteral("nothing asks about a project that is marked as open")) &&
           until([] { return !KRNFile::instance()->awaitingOpenConfirmation(); },
                 QStringLiteral("the answer is not heard"));
}

bool RescueJob::askAboutLock() {
    return openAnswering(QStringLiteral("No")) && gone(QStringLiteral("Loading...")) &&
           shown(QStringLiteral("Open Selected")) &&
           expect(!KRNFile::instance()->isOpened(), QStringLiteral("No opens the project")) &&
           shoot(QStringLiteral("not-opened")) && openAnswering(QStringLiteral("Yes")) && untilOpen() &&
           until([&] { return m_canvas.bubble(first); }, QStringLiteral("the kerno is lost in the crash")) &&
           shoot(QStringLiteral("opened"));
}

bool RescueJob::outliveService() {
    // The run before has ended as it should, so nothing asks about a lock.
    if (!openSelected() || !untilOpen())
        return false;
    const qint64 service = serviceProcess();
    if (!expect(service > 0 && ::kill(static_cast<pid_t>(service), SIGKILL) == 0,
                QStringLiteral("there is no service to kill")))
        return false;
    return shown(QStringLiteral("Connection lost, reconnecting...")) && shoot(QStringLiteral("blocked")) &&
           gone(QStringLiteral("Connection lost, reconnecting...")) &&
           until([] { return KRNFile::instance()->isOpened(); },
                 QStringLiteral("the project is not opened again")) &&
           until([&] { return m_canvas.bubble(first); }, QStringLiteral("the kerno is gone")) &&
           addKerno(second) && shoot(QStringLiteral("after")) && undo() &&
           until([&] { return KRNFile::instance()->allKernos().size() >= 1; },
                 QStringLiteral("all kernos are gone"));
}
