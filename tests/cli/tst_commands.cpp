#include "ProjectSupport.h"
#include "project/ProjectPreferences.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"

/// The command line through the real program. Each row is one call; the rows run in their order, in one
/// folder.
class tst_Commands : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void theProgramDoesAsItIsTold_data();
    void theProgramDoesAsItIsTold();

private:
    QTemporaryDir m_folder;
};

/// "study.krn" with one text, "locked.krn" that is marked as open, "secret.krn" with the password "pass".
void tst_Commands::initTestCase() {
    ProjectUnderTest project;
    const auto make = [&](const char* name, const char* password, bool marked) {
        QVERIFY2(project.create(QString::fromLatin1(password)), qPrintable(project->getLastOpenError()));
        QVERIFY(project.addContents("Trust grows slowly; trust breaks at once."_s));
        project->saveHighlight(ProjectUnderTest::highlight(1, 0, 5));
        project->close();
        if (marked) {
            QVERIFY(project.open("study.krn"_s, QString(), true));
            project->savePreference(preference::openLock, true);
            project->close();
        }
        QVERIFY(QFile::rename(project.path(), m_folder.filePath(QString::fromLatin1(name))));
    };
    make("locked.krn", "", true);
    make("secret.krn", "pass", false);
    make("study.krn", "", false);
    writeBytes(m_folder.filePath("password"_s), "pass\r\nsecond line\n");
    writeBytes(m_folder.filePath("broken.krn"_s), "this is no project");
    writeBytes(m_folder.filePath("notes.txt"_s), "Noted down.");
    writeBytes(m_folder.filePath("empty.docx"_s), "");
    writeBytes(m_folder.filePath("table.csv"_s), "Who,Why?,Where\nAnn,\"So, so\",Ulm\nBea,,Ulm\n");
}

void tst_Commands::theProgramDoesAsItIsTold_data() {
    columns<QString, int>({"arguments", "status"});
    QTest::addColumn<QString>("told");  // an expression: found in the output, or in the errors of a failure

    const auto row = [](const char* arguments, int status, const char* told) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << status << QString::fromUtf8(told);
    };
    row("", 2, "A command is missing");
    row("juggle", 2, "There is no command \"juggle\"");
    row("info", 2, "Usage: kernova-cli info PROJECT \\[--json\\]");
    row("info study.krn study.krn", 2, "Usage");
    row("info study.krn --speed", 2, "speed");
    row("info study.krn --author", 2, "author");
    row("--version", 0, "^kernova-cli [0-9.]+\n$");
    row("--help", 0, "export-json PROJECT FILE\n.*--password-file FILE.*Exit status");
    row("info --help", 0, "^kernova-cli info .*--json.*--ignore-lock");

    row("info nothing.krn", 1, "nothing\\.krn");
    row("info broken.krn", 1, "broken\\.krn is not a Kernova project");
    row("info locked.krn", 1, "locked\\.krn is marked as open elsewhere");
    row("info locked.krn --ignore-lock", 0, "sources +1\n");
    row("info study.krn", 0,
        "^Name +study\nFile .*Kind +plain texts\nPassword +no\nWhole +yes\n.*kernos +1\n");
    row("info study.krn --json", 0, "\"highlights\": 1,.*\"name\": \"study\".*\"whole\": true");
    row("info secret.krn --json", 0, "\"encrypted\": true");

    row("search study.krn \" \"", 2, "term .* is empty");
    row("search study.krn TRUST", 0, "^Interview:0: Trust grows slowly; trust breaks at once\\.\n$");
    row("search study.krn trust --coded-only --json", 0,
        "^\\[\\s+\\{[^{]*\"length\": 5,\\s+\"offset\": 0,[^{]*\"text\": \"Trust\"\\s+\\}\\s+\\]\n$");
    row("search study.krn grow --whole-words --json", 0, "^\\[\\s*\\]\n$");
    row("search study.krn grow --endings --whole-words", 0, "Trust grows");
    row("import study.krn notes.txt", 0, "^$");
    row("import study.krn notes.txt none.txt", 1, "none\\.txt can't be read");
    row("import study.krn whole.json", 1, "whole\\.json can't be read");
    row("import study.krn study.krn", 1, "study\\.krn is not of a kind .* txt");
    row("import study.krn notes.txt --question Why?", 1, "holds plain texts");
    row("import new.krn empty.docx notes.txt --question Why? --author Zoe", 1, "in empty\\.docx; 1 of 2");
    row("import new.krn notes.txt", 1, "say with --question");
    row("info new.krn --json", 0, "\"questions\": 1,.*\"sources\": 1,");
    row("import-csv new.krn table.csv", 2, "--columns is missing");
    row("import-csv new.krn table.csv --columns T,Q", 2, "names 2 columns, but the file has 3");
    row("import-csv new.krn table.csv --columns T,Q,X", 2, "\"X\" is no kind");
    row("import-csv new.krn table.csv --columns T,-,P", 1, "Please select at least one question");
    row("import-csv new.krn empty.docx --columns -", 1, "no entries to import");
    row("import-csv new.krn table.csv --columns T,Q,P", 0, "^$");
    row("import-csv survey.krn table.csv --columns -,Q,Q", 0, "^$");
    row("info survey.krn --json", 0, "\"singleQuestion\": false,.*\"sources\": 2,");
    row("export-csv new.krn new --author Zoe", 0, "^$");
    row("export-csv study.krn tables", 0, "^$");
    row("export-csv study.krn tables", 1, "Memos\\.csv is there already");
    row("export-csv locked.krn tables --force", 1, "open elsewhere");
    row("export-csv study.krn tables --force", 0, "^$");
    row("export-csv secret.krn secret", 1, "secret\\.krn: .*no password");
    row("export-csv secret.krn secret --password-file study.krn", 1, "Invalid password");
    row("export-csv secret.krn secret --password-file nowhere", 1, "nowhere can't be read");
    row("info secret.krn --password-file nowhere", 1, "nowhere can't be read");
    row("export-csv secret.krn secret --password-file password", 0, "^$");
    row("export-csv study.krn password", 1, "password can't be made");
    row("export-docx study.krn study.docx", 0, "^$");
    row("export-docx study.krn study.docx", 1, "study\\.docx is there already");
    row("export-docx study.krn tables/no/a.docx", 1, "a\\.docx can't be written");
    row("export-docx study.krn documents --separate", 0, "^$");
    row("export-docx study.krn documents --separate", 1, "documents is there already");
    row("export-docx study.krn documents --separate --force", 0, "^$");
    row("export-docx study.krn documents --force", 1, "documents is a folder: --separate");
    row("export-qdpx study.krn out", 0, "^$");
    row("export-qdpx study.krn out.qdpx --strict", 1, "out\\.qdpx is there already");
    row("export-qdpx study.krn out.qdpx --strict --force", 0, "^$");
    row("import-qdpx study.krn back.krn", 1, "study\\.krn: The file is not a QDPX archive");
    row("import-qdpx out.qdpx back.krn --password-file password", 0, "^$");
    row("info back.krn", 0, "Password +yes\nWhole +yes\n.*highlights +1\n");
    row("merge both.krn study.krn back.krn", 1, "back\\.krn: Incorrect password");
    row("merge both.krn back.krn study.krn --password-file password", 0, "merging \\d+");
    row("info both.krn", 0, "Password +yes\nWhole +yes\n.*highlights +1\n");
    row("merge both.krn back.krn study.krn --password-file password", 1, "both\\.krn is there already");
    row("report study.krn report", 0, "^$");
    row("report study.krn report", 1, "report\\.html is there already");
    row("report study.krn report --force", 0, "^$");
    row("report study.krn password", 1, "could not be written into .*password");
    row("export-json study.krn whole.json", 0, "^$");
    row("export-json study.krn whole.json", 1, "whole\\.json is there already");
    row("export-json study.krn whole.json --force", 0, "^$");
    row("export-json study.krn no/such/folder.json", 1, "folder\\.json can't be written");
}

void tst_Commands::theProgramDoesAsItIsTold() {
    FETCH(QString, arguments, int, status, QString, told);
    QProcess program;
    program.setWorkingDirectory(m_folder.path());
    program.start(QStringLiteral(KERNOVA_CLI_PROGRAM), QProcess::splitCommand(arguments));
    QVERIFY(program.waitForFinished());
    const QString output = QString::fromUtf8(program.readAllStandardOutput());
    const QString errors = QString::fromUtf8(program.readAllStandardError());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QVERIFY2(program.exitCode() == status, qPrintable(output + errors));
    const QRegularExpression pattern(told, QRegularExpression::DotMatchesEverythingOption);
    QVERIFY2((status == 0 ? output : errors).contains(pattern), qPrintable(output + errors));
    QVERIFY2(status == 0 ? errors.isEmpty() : output.isEmpty(), qPrintable(output + errors));
}

KERNOVA_TEST_MAIN(tst_Commands)
#include "tst_commands.moc"
