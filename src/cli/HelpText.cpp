#include "cli/HelpText.h"

namespace cli {

namespace {

QString latin(const char* text) {
    return QString::fromLatin1(text);
}

QString nameOf(const Option& option) {
    const QString name = QLatin1String("--") + latin(option.name);
    return *option.value ? name + QLatin1Char(' ') + latin(option.value) : name;
}

/// Two columns, the second from character `column` on.
QString line(const QString& left, const QString& right, int column) {
    return QStringLiteral("  ") + left.leftJustified(column) + QStringLiteral("  ") + right +
           QLatin1Char('\n');
}

QString lines(const std::vector<Option>& options) {
    QString text;
    for (const Option& option : options)
        text += line(nameOf(option), latin(option.help), 24);
    return text;
}

// A dash or a point at the begin of a line has a meaning there.
QString manual(QString text) {
    text.replace(QLatin1Char('\\'), QLatin1String("\\e")).replace(QLatin1Char('-'), QLatin1String("\\-"));
    return text.startsWith(QLatin1Char('.')) ? QLatin1String("\\&") + text : text;
}

QString manual(const std::vector<Option>& options) {
    QString text;
    for (const Option& option : options)
        text += QStringLiteral(".TP\n.B %1\n%2\n").arg(manual(nameOf(option)), manual(latin(option.help)));
    return text;
}

const char purpose[] = "work with Kernova projects without a window";
const char statuses[] = "0 done, 1 failed (a sentence on standard error says what and where), 2 wrong usage";

}  // namespace

QString version() {
    return QStringLiteral(KERNOVA_VERSION);
}

QString usage(const Command& command) {
    QString text = latin(command.name) + QLatin1Char(' ') + latin(command.arguments);
    for (const Option& option : command.options)
        text += QString::fromLatin1(option.isRequired ? " %1" : " [%1]").arg(nameOf(option));
    return text;
}

QString helpText(const Command& command) {
    QString text = QStringLiteral("kernova-cli %1\n\n  %2\n").arg(usage(command), latin(command.summary));
    if (*command.details)
        text += QStringLiteral("\n%1\n").arg(latin(command.details));
    return text + QLatin1Char('\n') + lines(command.options) + QStringLiteral("\nCommon options:\n") +
           lines(commonOptions());
}

QString helpText() {
    QString text = QStringLiteral("kernova-cli COMMAND ...: %1\n\n").arg(latin(purpose));
    for (const Command& command : commands())
        text += line(usage(command), {}, 0).trimmed().prepend(QStringLiteral("  ")) +
                QStringLiteral("\n      %1\n").arg(latin(command.summary));
    return text + QStringLiteral("\nCommon options:\n") + lines(commonOptions()) +
           QStringLiteral("\nExit status: %1.\n").arg(latin(statuses));
}

QString manualPage() {
    QString text = QStringLiteral(".TH KERNOVA\\-CLI 1 \"\" \"Kernova %1\"\n").arg(version());
    text += QStringLiteral(".SH NAME\nkernova\\-cli \\- %1\n").arg(latin(purpose));
    text += QStringLiteral(".SH SYNOPSIS\n.B kernova\\-cli\n.I COMMAND ...\n.SH COMMANDS\n");
    for (const Command& command : commands()) {
        text += QStringLiteral(".SS %1\n%2.\n").arg(manual(usage(command)), manual(latin(command.summary)));
        text +=
            *command.details ? QStringLiteral(".PP\n%1\n").arg(manual(latin(command.details))) : QString();
        text += manual(command.options);
    }
    text += QStringLiteral(".SH OPTIONS\n") + manual(commonOptions());
    return text + QStringLiteral(".SH EXIT STATUS\n%1.\n").arg(manual(latin(statuses)));
}

}  // namespace cli
