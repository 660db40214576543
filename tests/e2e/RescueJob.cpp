#include "Job.h"

#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <csignal>

namespace {

const QString first = "Before"_s;
const QString second = "After"_s;

// The process of this program's own data service; 0 for none.
qint64 serviceProcess() {
    const QDir tasks("/proc/self/task"_s);
    const QStringList threads = tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& thread : threads) {
        QFile children(tasks.filePath(thread + "/children"_s));
        if (!children.open(QIODevice::ReadOnly))
            continue;
        const QList<QByteArray> ids = children.readAll().simplified().split(' ');
        for (const QByteArray& id : ids) {
            QFile name("/proc/%1/comm"_s.arg(QString::fromLatin1(id)));
            if (name.open(QIODevice::ReadOnly) && name.readAll().startsWith("kernova-service"))
                return id.toLongLong();
        }
    }
    return 0;
}

/// What is left after a crash of the program, and work that goes on after a crash of its service.
class RescueJob : public Job {
public:
    using Job::Job;

    // The run that ends by the kill of the program itself.
    static QString killedRun() { return "crash"_s; }

    bool play(const QString& run) override {
        if (!signIn())
            return false;
        if (run == killedRun())
            return crash();
        return run == "lock"_s ? askAboutLock() : outliveService();
    }

private:
    bool crash() {
        return createProject(path("rescue.krn"_s)) && addKerno(first) &&
               expect(KRNFile::instance()->holdsLock(), "the project is not marked as open"_s) &&
               expect(raise(SIGKILL) == 0, "the program outlives its kill"_s);
    }

    bool openSelected() { return click("rescue"_s) && click("Open Selected"_s); }

    // The question holds up the opening, and with it whoever waits here, so it is answered from within.
    bool openAnswering(const QString& button) {
        bool shot = false;
        const auto answer = [&] {
            if (!KRNFile::instance()->awaitingOpenConfirmation())
                return false;
            shot = shot || shoot("lock-question"_s);
            return m_driver.answerMessageBox(button);
        };
        return expect(m_driver.during([&] { openSelected(); }, answer),
                      "nothing asks about a project that is marked as open"_s) &&
               until([] { return !KRNFile::instance()->awaitingOpenConfirmation(); },
                     "the answer is not heard"_s);
    }

    bool askAboutLock() {
        return openAnswering("No"_s) && gone("Loading..."_s) && shown("Open Selected"_s) &&
               expect(!KRNFile::instance()->isOpened(), "No opens the project"_s) && shoot("not-opened"_s) &&
               openAnswering("Yes"_s) && untilOpen() && untilBubble(first) && shoot("opened"_s);
    }

    bool outliveService() {
        // The run before has ended as it should, so nothing asks about a lock.
        if (!openSelected() || !untilOpen())
            return false;
        const qint64 service = serviceProcess();
        if (!expect(service > 0 && ::kill(static_cast<pid_t>(service), SIGKILL) == 0,
                    "there is no service to kill"_s))
            return false;
        return shown("Connection lost, reconnecting..."_s) && shoot("blocked"_s) &&
               gone("Connection lost, reconnecting..."_s) &&
               until([] { return KRNFile::instance()->isOpened(); }, "the project is not opened again"_s) &&
               untilBubble(first) && addKerno(second) && shoot("after"_s) && undo() &&
               until([&] { return KRNFile::instance()->allKernos().size() >= 1; }, "all kernos are gone"_s);
    }
};

const Played<RescueJob> played{
    "rescue"_s, {RescueJob::killedRun(), "lock"_s, "service"_s}, {RescueJob::killedRun()}};

}  // namespace
