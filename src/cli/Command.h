#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace cli {

class Console;

/// The exit status of the program.
enum class Status { Done = 0, Failed = 1, WrongUsage = 2 };

/// How a command has ended; unless it is done, with one sentence that says what is wrong and where.
struct Outcome {
    Status status = Status::Done;
    QString sentence = {};

    bool ok() const { return status == Status::Done; }
    static Outcome done() { return {}; }
    static Outcome failed(const QString& sentence) { return {Status::Failed, sentence}; }
    static Outcome wrongUsage(const QString& sentence) { return {Status::WrongUsage, sentence}; }
};

/// An option "--name", or "--name VALUE" when `value` names one.
struct Option {
    const char* name;
    const char* value;  ///< empty for a switch
    const char* help;
    bool isRequired = false;
};

/// What stands on the command line after the command's name.
struct Invocation {
    QStringList arguments;
    QHash<QString, QString> options;  ///< those that were given; a switch has an empty value

    bool has(const char* option) const { return options.contains(QString::fromLatin1(option)); }
    QString value(const char* option) const { return options.value(QString::fromLatin1(option)); }
    /// A file or folder that an argument names, absolute.
    QString path(int argument) const;
};

/// One command. Usage, help, manual and the check of the arguments come from its row.
struct Command {
    const char* name;
    /// The names of the arguments, blanks between them; the last one may be repeated: "PROJECT FILE...".
    const char* arguments;
    const char* summary;  ///< one line
    const char* details;  ///< sentences for the manual and the command's own help; may be empty
    std::vector<Option> options;
    Outcome (*run)(const Invocation& invocation, const Console& console);
};

/// All commands, in the order of the help.
const std::vector<Command>& commands();
/// The options that every command takes.
const std::vector<Option>& commonOptions();
/// Null when there is none of that name.
const Command* findCommand(const QString& name);

}  // namespace cli
