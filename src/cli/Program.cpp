#include "cli/Program.h"

#include "cli/Arguments.h"
#include "cli/Console.h"
#include "cli/HelpText.h"

#include <QGuiApplication>

namespace cli {

namespace {

// Diagnostics are for developers; what a user has to know is an outcome.
void discardMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

/// `command` is the one whose help tells more; null without one.
int end(const Outcome& outcome, const Command* command = nullptr) {
    if (outcome.status == Status::WrongUsage) {
        const QString name = command ? QString::fromLatin1(command->name) + QLatin1Char(' ') : QString();
        Console::complain(outcome.sentence + QStringLiteral("\nTry \"kernova-cli %1--help\".").arg(name));
    }
    if (outcome.status == Status::Failed)
        Console::complain(outcome.sentence);
    if (!Console::flush() && outcome.status == Status::Done) {
        Console::complain(QStringLiteral("The result could not be written to standard output."));
        return static_cast<int>(Status::Failed);
    }
    return static_cast<int>(outcome.status);
}

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

}  // namespace

int run(int& argc, char** argv) {
    qInstallMessageHandler(discardMessage);
    const Request request = readArguments(argumentsOf(argc, argv));
    if (request.wants == Request::Wants::Text) {
        Console::print(request.text);
        return end(Outcome::done());
    }
    if (request.wants == Request::Wants::Nothing)
        return end(Outcome::wrongUsage(request.text), request.command);
    // The rooms need fonts and colours, but no display.
    qputenv("QT_QPA_PLATFORM", "minimal");
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(KERNOVA_VERSION));
    Console::watchInterrupts();
    const Console console(request.invocation.has("quiet"));
    const Outcome outcome = request.command->run(request.invocation, console);
    console.endProgress();
    if (Console::isInterrupted() && outcome.status != Status::Done)
        return end(Outcome::failed(QStringLiteral("Interrupted; nothing more was done.")));
    return end(outcome, request.command);
}

}  // namespace cli
