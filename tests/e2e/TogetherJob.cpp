#include "TogetherJob.h"

#include "models/ChatModel.h"
#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QProcess>

namespace {

constexpr int guestLimitMs = 120000;
const QString hostRun = QStringLiteral("host");
const QString guestRun = QStringLiteral("guest");
const QString file = QStringLiteral("together.krn");
const QString question = QStringLiteral("Is the <b>garden</b> a theme?\nOr two?");
const QString answer = QStringLiteral("Two, I think.");

}  // namespace

QStringList TogetherJob::runs() {
    return {hostRun};
}

bool TogetherJob::play(const QString& run) {
    return run == hostRun ? host() : guest();
}

bool TogetherJob::send(const QString& message) {
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("chatMessage"));
    if (!until([&] { return field && field->hasActiveFocus(); },
               QStringLiteral("the chat does not take the keyboard")))
        return false;
    const QStringList lines = message.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        if (i > 0)
            m_driver.press(Qt::Key_Return, Qt::ShiftModifier);
        m_driver.type(lines[i]);
    }
    m_driver.press(Qt::Key_Return);
    return expect(field->property("text").toString().isEmpty(), QStringLiteral("the field keeps its text"));
}

bool TogetherJob::untilMessages(int count) {
    ChatModel* const messages = KRNFile::instance()->getChatModel();
    return until([=] { return messages->count() == count; },
                 QStringLiteral("there are %1 messages, not %2").arg(messages->count()).arg(count), 60000);
}

bool TogetherJob::host() {
    nameService();
    if (!expect(m_service.start() && m_service.share(), QStringLiteral("the service does not start")) ||
        !signIn() || !createProject(path(file)) || !addKerno(QStringLiteral("Garden")))
        return false;
    QProcess other;
    other.setProcessChannelMode(QProcess::ForwardedChannels);
    other.start(QStringLiteral("xvfb-run"),
                {QStringLiteral("-a"), QStringLiteral("-s"), QStringLiteral("-screen 0 1280x900x24"),
                 QCoreApplication::applicationFilePath(), QStringLiteral("--run"), QStringLiteral("together"),
                 guestRun, path(QString())});
    const auto talk = [&] {
        if (!until([] { return KRNFile::instance()->connectedUserCount() == 2; },
                   QStringLiteral("nobody joins"), 60000) ||
            !m_driver.click(m_driver.itemNamed(QStringLiteral("chatToggle"))) || !send(question) ||
            !untilMessages(2) || !shown(answer) || !shoot(QStringLiteral("answered")))
            return false;
        // One's own message comes first, and can be taken back.
        const QList<QQuickItem*> items = m_driver.itemsOfType(QStringLiteral("ChatItem"));
        if (!expect(items.size() == 2 && items[0]->property("own").toBool() &&
                        !items[1]->property("own").toBool(),
                    QStringLiteral("a message is taken for someone else's")))
            return false;
        for (QQuickItem* part : items[0]->childItems()) {
            if (part->property("icon") == QStringLiteral("delete"))
                m_driver.click(part);
        }
        return untilMessages(1) && gone(question) && shoot(QStringLiteral("taken-back"));
    };
    const bool talked = talk();
    if (!talked)
        other.terminate();
    const bool ended = other.state() == QProcess::NotRunning || other.waitForFinished(guestLimitMs);
    return expect(ended && other.exitCode() == 0, QStringLiteral("the guest fails")) && talked;
}

// The project bears the mark of the host, who has it open.
bool TogetherJob::joinProject() {
    QQuickItem* author = m_driver.itemNamed(QStringLiteral("author"));
    if (!author || !m_driver.fill(author, QStringLiteral("Ben Otto")))
        return fail(QStringLiteral("there is no field for the author"));
    bool chosen = false;
    const bool opened = m_driver.during([&] { m_driver.clickText(QStringLiteral("Open Other...")); },
                                        [&] {
                                            chosen = chosen || m_driver.chooseFiles({path(file)});
                                            return chosen && m_driver.answerMessageBox(QStringLiteral("Yes"));
                                        });
    return expect(opened, QStringLiteral("the project can't be joined")) && untilOpen();
}

bool TogetherJob::guest() {
    return signIn() && joinProject() && untilMessages(1) && shoot(QStringLiteral("new-message")) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("chatToggle"))) && shown(question) &&
           send(answer) && untilMessages(2) && shoot(QStringLiteral("conversation")) && untilMessages(1) &&
           gone(question) && shown(answer);
}
