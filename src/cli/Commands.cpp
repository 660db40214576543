#include "cli/Commands.h"

#include <QFileInfo>
#include <algorithm>

namespace cli {

const std::vector<Command>& commands() {
    static const std::vector<Command> table{
        {"info",
         "PROJECT",
         "tell what a project holds",
         "Tells the name, the kind and the size of a project, how many records of each kind it holds, and "
         "whether it is whole: no record hangs on one that is missing. Needs no password.",
         {{"json", "", "one JSON object: name, singleQuestion, encrypted, whole, and the counts"}},
         info},
        {"import",
         "PROJECT FILE...",
         "make a source of each text file",
         "Reads txt, rtf, docx and pdf. A project that is not there is made: of plain texts or, with "
         "--question, of answers to questions.",
         {{"question", "TEXT", "the question that the texts answer; needed in a project of questions"}},
         importFiles},
        {"import-csv",
         "PROJECT FILE",
         "make a source of each row of a table",
         "Reads CSV in UTF-8 with a header, and makes a project that is not there: of plain texts when one "
         "column holds a question, of answers to questions otherwise.",
         {{"columns", "T,Q,P,-",
           "a letter for each column: T title, Q question, P property, - nothing of use", true}},
         importCsv},
        {"export-csv",
         "PROJECT FOLDER",
         "write the project as CSV files",
         "Writes Memos.csv, Quotes.csv, Kernos.csv, Sources.csv and Chat.csv into the folder, which is made "
         "when it is not there.",
         {},
         exportCsv},
        {"export-docx",
         "PROJECT FILE|FOLDER",
         "write the sources as Word documents",
         "Writes all sources into one file, with the codings as comments.",
         {{"separate", "", "a file for each source, into a folder, which is made when it is not there"}},
         exportDocx},
        {"export-json",
         "PROJECT FILE",
         "write the whole project as JSON",
         "Writes all records of the project. The texts of a project with a password stay enciphered.",
         {},
         exportJson},
        {"export-qdpx",
         "PROJECT ARCHIVE",
         "write the project as a QDPX archive",
         "Writes an archive of the REFI-QDA exchange standard, for other programs.",
         {{"strict", "", "write texts and positions exactly as the standard says"}},
         exportQdpx},
        {"import-qdpx",
         "ARCHIVE PROJECT",
         "make a project of a QDPX archive",
         "Makes a new project, with the password of --password-file if that is given. Prints a line for each "
         "kind of element that could not be taken over, with its number.",
         {},
         importQdpx},
        {"search",
         "PROJECT TERM",
         "find a term in all texts",
         "Prints each place with some words around it: the source's title, the position in its text in "
         "UTF-16 units, and the excerpt.",
         {{"whole-words", "", "find whole words alone"},
          {"endings", "", "find a word with other endings, too"},
          {"coded-only", "", "look at coded passages alone"},
          {"json", "", "one array of objects: sourceId, questionId, offset, length, text"}},
         search},
        {"merge",
         "RESULT MASTER PROJECT...",
         "merge projects into a new one",
         "Brings all projects into a new one; they stay as they are. The password of --password-file opens "
         "those that have one, and becomes that of the result. A result that is there is refused.",
         {},
         merge},
        {"report",
         "PROJECT FOLDER",
         "write a report as a web page",
         "Writes report.html, with all that it needs, into the folder, which is made when it is not there. "
         "The report has no pictures of the canvas: those come from the window.",
         {},
         report},
    };
    return table;
}

const std::vector<Option>& commonOptions() {
    static const std::vector<Option> table{
        {"author", "NAME", "who makes what is new; else the user who runs the program"},
        {"password-file", "FILE", "a file whose first line is the project's password"},
        {"ignore-lock", "", "go on with a project that is marked as open elsewhere"},
        {"force", "", "replace what is there under a name that is to be written"},
        {"quiet", "", "show no progress"},
        {"help", "", "tell how the program, or a command, is used"},
        {"version", "", "tell the version"},
    };
    return table;
}

const Command* findCommand(const QString& name) {
    const std::vector<Command>& all = commands();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const Command& command) { return name == QLatin1String(command.name); });
    return found == all.end() ? nullptr : &*found;
}

QString Invocation::path(int argument) const {
    return QFileInfo(arguments.value(argument)).absoluteFilePath();
}

}  // namespace cli
