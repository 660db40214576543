#include "cli/Arguments.h"

#include "cli/HelpText.h"

#include <QCommandLineParser>

namespace cli {

namespace {

Request wrong(const QString& sentence, const Command* command = nullptr) {
    return {Request::Wants::Nothing, command, {}, sentence};
}

Request text(const QString& text) {
    return {Request::Wants::Text, nullptr, {}, text};
}

QString sentence(QString words) {
    if (!words.endsWith(QLatin1Char('.')))
        words += QLatin1Char('.');
    return words;
}

void addOptions(QCommandLineParser& parser, const std::vector<Option>& options) {
    for (const Option& option : options)
        parser.addOption({QString::fromLatin1(option.name), {}, QString::fromLatin1(option.value)});
}

bool fits(const Command& command, int count) {
    const QString names = QString::fromLatin1(command.arguments);
    const int wanted = names.split(QLatin1Char(' ')).size();
    return names.endsWith(QLatin1String("...")) ? count >= wanted : count == wanted;
}

Request readInvocation(const Command& command, const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    addOptions(parser, commonOptions());
    addOptions(parser, command.options);
    // The parser takes the first for the program's name.
    const bool read = parser.parse(arguments);
    if (parser.isSet(QStringLiteral("help")))
        return text(helpText(command));
    if (!read)
        return wrong(sentence(parser.errorText()), &command);
    Request request{Request::Wants::Command, &command, {parser.positionalArguments(), {}}, {}};
    const QStringList given = parser.optionNames();
    for (const QString& name : given)
        request.invocation.options.insert(name, parser.value(name));
    if (!fits(command, request.invocation.arguments.size()))
        return wrong(QStringLiteral("Usage: kernova-cli %1").arg(usage(command)), &command);
    return request;
}

}  // namespace

Request readArguments(const QStringList& arguments) {
    const QString first = arguments.value(0);
    if (first == QLatin1String("--help"))
        return text(helpText());
    if (first == QLatin1String("--man"))
        return text(manualPage());
    if (arguments.contains(QStringLiteral("--version")))
        return text(QStringLiteral("kernova-cli %1\n").arg(version()));
    if (first.isEmpty())
        return wrong(QStringLiteral("A command is missing."));
    const Command* command = findCommand(first);
    return command ? readInvocation(*command, arguments)
                   : wrong(QStringLiteral("There is no command \"%1\".").arg(first));
}

}  // namespace cli
