#include "Job.h"

#include "models/ChatModel.h"
#include "project/KRNFile.h"
#include "tests_support/RealService.h"

#include <QCoreApplication>
#include <QProcess>

namespace {

constexpr int guestLimitMs = 120000;
const QString hostRun = "host"_s;
const QString guestRun = "guest"_s;
const QString file = "together.krn"_s;
const QString question = "Is the <b>garden</b> a theme?\nOr two?"_s;
const QString answer = "Two, I think."_s;

/// Two people write to each other: two programs, each with its window, on one service. The host starts the
/// guest, which ends by itself.
class TogetherJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override { return run == hostRun ? host() : guest(); }

private:
    bool send(const QString& message) {
        if (!untilFocus("chatMessage"_s))
            return false;
        const QStringList lines = message.split(QLatin1Char('\n'));
        for (int i = 0; i < lines.size(); ++i) {
            if (i > 0)
                m_driver.press(Qt::Key_Return, Qt::ShiftModifier);
            m_driver.type(lines[i]);
        }
        m_driver.press(Qt::Key_Return);
        const QQuickItem* field = m_driver.itemNamed("chatMessage"_s);
        return until([&] { return field->property("text").toString().isEmpty(); },
                     "the field keeps its text"_s);
    }

    bool untilMessages(int count) {
        ChatModel* const messages = KRNFile::instance()->getChatModel();
        return untilIs("the messages"_s, count, [=] { return messages->count(); });
    }

    bool host() {
        nameService();
        if (!expect(m_service.start() && m_service.share(), "the service does not start"_s) || !signIn() ||
            !createProject(path(file)) || !addKerno("Garden"_s))
            return false;
        QProcess other;
        other.setProcessChannelMode(QProcess::ForwardedChannels);
        other.start("xvfb-run"_s,
                    {"-a"_s, "-s"_s, "-screen 0 1280x900x24"_s, QCoreApplication::applicationFilePath(),
                     "--run"_s, "together"_s, guestRun, path(QString())});
        const auto talk = [&] {
            if (!until([] { return KRNFile::instance()->connectedUserCount() == 2; }, "nobody joins"_s) ||
                !clickOn("chatToggle"_s) || !send(question) || !untilMessages(2) || !shown(answer) ||
                !shoot("answered"_s))
                return false;
            // One's own message comes first, and can be taken back.
            const QList<QQuickItem*> items = m_driver.itemsOfType("ChatItem"_s);
            if (!expect(items.size() == 2 && items[0]->property("own").toBool() &&
                            !items[1]->property("own").toBool(),
                        "a message is taken for someone else's"_s))
                return false;
            for (QQuickItem* part : items[0]->childItems()) {
                if (part->property("icon") == "delete"_s)
                    m_driver.click(part);
            }
            return untilMessages(1) && gone(question) && shoot("taken-back"_s);
        };
        const bool talked = talk();
        if (!talked)
            other.terminate();
        const bool ended = other.state() == QProcess::NotRunning || other.waitForFinished(guestLimitMs);
        return expect(ended && other.exitCode() == 0, "the guest fails"_s) && talked;
    }

    // The project bears the mark of the host, who has it open.
    bool joinProject() {
        if (!fill("author"_s, "Ben Otto"_s))
            return false;
        bool chosen = false;
        const bool opened = m_driver.during([&] { m_driver.clickText("Open Other..."_s); },
                                            [&] {
                                                chosen = chosen || m_driver.chooseFiles({path(file)});
                                                return chosen && m_driver.answerMessageBox("Yes"_s);
                                            });
        return expect(opened, "the project can't be joined"_s) && untilOpen();
    }

    bool guest() {
        return signIn() && joinProject() && untilMessages(1) && shoot("new-message"_s) &&
               clickOn("chatToggle"_s) && shown(question) && send(answer) && shown(answer) &&
               shoot("conversation"_s) && gone(question) && untilMessages(1) && shown(answer);
    }

    RealService m_service;
};

const Played<TogetherJob> played{"together"_s, {hostRun}};

}  // namespace
