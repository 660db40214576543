#include "import/CSVImportModel.h"
#include "import/SourceImport.h"
#include "tests_support/AllModels.h"
#include "tests_support/TestProject.h"

#include <QApplication>
#include <QMessageBox>
#include <QProgressDialog>
#include <sys/stat.h>

namespace {

QVariantMap pair(const char* question, const char* answer) {
    return {{"question"_s, QString::fromLatin1(question)}, {"answer"_s, QString::fromLatin1(answer)}};
}

/// Accepts message boxes as long as the result lives, and keeps the text of the last.
std::unique_ptr<QTimer> closeMessageBoxes(QString& told) {
    auto timer = std::make_unique<QTimer>();
    QObject::connect(timer.get(), &QTimer::timeout, [&told] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            told = box->text() + box->informativeText();
            box->accept();
        }
    });
    timer->start(0);
    return timer;
}

/// How far the batch import is that is under way; -2 when there is none.
int progressValue() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* const dialog = qobject_cast<QProgressDialog*>(widget))
            return dialog->value();
    }
    return -2;
}

}  // namespace

/// Imports into a project at the real service.
class tst_SourceImport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { expectWarning("This plugin does not support propagateSizeHints"); }

    void aWholeTextBecomesOneSource() {
        openNew(true);
        const QUrl file = write("Marta.txt"_s, "Q: no marker\r\nhere");
        const QVariantList pairs = import().pairsOfFile(file, QString(), QString(), false);
        QVERIFY(import().save("Marta"_s, pairs));
        settle();
        QCOMPARE(sources(), QStringList{"Marta: Q: no marker\nhere"_s});
        QCOMPARE(m_file->answerModel()->rowCount(), 1);
        QCOMPARE(m_file->sourceModel()->rowCount(), 1);
        m_undo->undo();
        settle();
        QCOMPARE(sources(), QStringList());
        m_undo->redo();
        settle();
        QCOMPARE(sources(), QStringList{"Marta: Q: no marker\nhere"_s});
        QVERIFY(!import().save("nothing"_s, {}));
        QCOMPARE(m_undo->count(), 1);
    }

    void pairsBecomeAnswersToQuestions() {
        openNew(false);
        const QStringList before = questions();
        QVERIFY(import().save("dropped"_s, {pair("Age?", "40"), pair("", "lost"), pair("Age?", "41")}));
        settle();
        // What asks the same is used again, once for each of the source's answers.
        QVERIFY(import().save(QString(), {pair("Work?", "bus"), pair("age?", "50"), pair("Age?", "51"),
                                          pair("Age?", "no, 52")}));
        settle();
        QCOMPARE(questions(), before + QStringList({"Age?", "Age?", "Work?", "age?"}));
        const QList<Question> all = m_file->questionListModel()->snapshot();
        for (int i = 1; i < all.size(); ++i)
            QVERIFY(all.at(i - 1).questionOrder() < all.at(i).questionOrder());
        const QList<Source> made = m_file->sourceModel()->snapshot();
        QCOMPARE(sources(), QStringList({"Source %1:  | 40 | 41 |  | "_s.arg(made.first().id()),
                                         "Source %1:  | 51 | no, 52 | bus | 50"_s.arg(made.last().id())}));
        m_undo->undo();
        m_undo->undo();
        settle();
        QCOMPARE(sources(), QStringList());
        QCOMPARE(questions(), before);
    }

    // What can't be read is passed over, and named.
    void aBatchIsOneStep() {
        openNew(true);
        QSignalSpy notes(m_file, &KRNFile::notifyUser);
        const QList<QUrl> files{write("one.txt"_s, "first"), write("a.docx"_s, "PK"),
                                write("b.pdf"_s, "%PDF"), write("<i>.txt"_s, ""),
                                write("two.x.rtf"_s, "{\\rtf1 {\\b bold} <laughs> &amp; \\u228?}")};
        QString told;
        const auto closer = closeMessageBoxes(told);
        QCOMPARE(import().importFiles(files, QString(), QString(), true), 2);
        QCOMPARE(told, "2 Source(s) have successfully been imported."
                       "<p>No text could be read from a.docx, b.pdf, &lt;i&gt;.txt.</p>"_s);
        QCOMPARE(notes.count(), 0);
        settle();
        QCOMPARE(sources(), QStringList({"one: first", "two.x: bold <laughs> & \u00e4"}));
        QCOMPARE(m_undo->count(), 1);
        m_undo->undo();
        settle();
        QCOMPARE(sources(), QStringList());
    }

    void aBatchGivesEachSourceAllQuestions() {
        openNew(false);
        // The second adds no question, so that nothing waits for the service while it is stored.
        const QList<QUrl> files{write("1.txt"_s, "Q: a A: one"), write("2.txt"_s, "Q: a A: two"),
                                write("3.txt"_s, "Q: b A: three Q: c A: four")};
        const auto whole = [this] {
            settle();
            return m_file->dataHelper()->exportProjectJson(m_file->currentProject()).json;
        };
        const QJsonObject before = whole();
        QCOMPARE(import().importFiles(files, "Q:"_s, "A:"_s, false), 3);
        const QJsonObject after = whole();
        QStringList answers;
        for (const QString& source : sources())
            answers << source.mid(source.indexOf(QLatin1Char(':')));
        QCOMPARE(answers, QStringList({":  | one |  | ", ":  | two |  | ", ":  |  | three | four"}));
        QCOMPARE(m_undo->count(), 1);
        m_undo->undo();
        QCOMPARE(whole(), before);
        m_undo->redo();
        QCOMPARE(whole(), after);
    }

    // Gone since it was chosen, a link to nothing, a folder, and a pipe, out of which nothing comes.
    void whatIsNoFileGivesNothing() {
        openNew(true);
        const QString folder = m_project.path("odd"_s);
        QVERIFY(QDir().mkdir(folder));
        QList<QUrl> files;
        for (const QString& suffix : {"txt"_s, "rtf"_s, "docx"_s, "pdf"_s, "csv"_s}) {
            const auto path = [&](const QString& name) { return folder + "/"_s + name + "."_s + suffix; };
            QVERIFY(QFile::link(path("nowhere"_s), path("link"_s)) && QDir().mkdir(path("folder"_s)));
            files << QUrl::fromLocalFile(path("gone"_s)) << QUrl::fromLocalFile(path("link"_s))
                  << QUrl::fromLocalFile(path("folder"_s));
            // The converter of PDFs waits for a pipe until it is cancelled.
            if (suffix == "pdf"_s)
                continue;
            QCOMPARE(mkfifo(QFile::encodeName(path("pipe"_s)).constData(), S_IRUSR | S_IWUSR), 0);
            files << QUrl::fromLocalFile(path("pipe"_s));
        }
        QCOMPARE(import().importFiles(files, QString(), QString(), false), 0);
        QCOMPARE(import().importFolder(QUrl::fromLocalFile(folder), QString(), QString(), false), 0);
        for (const QUrl& file : qAsConst(files))
            QVERIFY(!CSVImportModel().readFile(file.toLocalFile()));
        QCOMPARE(sources(), QStringList());
        QCOMPARE(m_undo->count(), 0);
    }

    // The converter waits for ever for what comes out of a pipe.
    void aCancelledBatchKeepsWhatIsThere() {
        openNew(true);
        const QString pipe = m_project.path("pipe.pdf"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
        QTimer canceller;
        int turns = 0;
        connect(&canceller, &QTimer::timeout, [&turns] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                auto* const dialog = qobject_cast<QProgressDialog*>(widget);
                if (dialog && dialog->value() == 1 && ++turns == 30)
                    dialog->cancel();
            }
        });
        canceller.start(10);
        const QList<QUrl> files{write("first.txt"_s, "a"), QUrl::fromLocalFile(pipe),
                                write("last.txt"_s, "b")};
        QString told;
        const auto closer = closeMessageBoxes(told);
        QCOMPARE(import().importFiles(files, QString(), QString(), true), 1);
        QCOMPARE(told, "1 Source(s) have successfully been imported."_s);
        QVERIFY(turns >= 30);
        settle();
        QCOMPARE(sources(), QStringList{"first: a"_s});
        QCOMPARE(m_undo->count(), 1);
    }

    void aBatchEndsWithItsProject() {
        openNew(true);
        const QList<QUrl> files{write("a.txt"_s, "a"), write("b.txt"_s, "b")};
        QTimer opener;
        bool opened = false;
        connect(&opener, &QTimer::timeout, [&] {
            if (!opened && progressValue() == 1) {
                opened = true;
                openNew(true);
            }
        });
        opener.start(0);
        QCOMPARE(import().importFiles(files, QString(), QString(), false), 1);
        QVERIFY(opened);
        QCOMPARE(sources(), QStringList());
        QCOMPARE(m_undo->count(), 0);
    }

private:
    void openNew(bool singleQuestion) {
        QCOMPARE(m_project.open("project %1.krn"_s.arg(++m_projects), true, singleQuestion), QString());
    }

    void settle() { m_project.settle(); }

    QUrl write(const QString& name, const QByteArray& bytes) {
        writeBytes(m_project.path(name), bytes);
        return QUrl::fromLocalFile(m_project.path(name));
    }

    /// Each source as "title: answer to question 1 | answer to question 2 ...", in the order of ids.
    QStringList sources() const {
        QStringList lines;
        for (const Source& source : m_file->dataHelper()->findAll<Source>()) {
            QMap<QPair<int, int>, QString> answers;
            for (const QuestionAnswer& answer : m_file->dataHelper()->findAll<QuestionAnswer>()) {
                if (answer.sourceId() == source.id())
                    answers.insert({answer.questionId(), answer.answerId()}, answer.plainAnswer());
            }
            lines << source.title() + ": "_s + QStringList(answers.values()).join(" | "_s);
        }
        return lines;
    }

    QStringList questions() const {
        QStringList texts;
        for (const Question& question : m_file->questionListModel()->snapshot())
            texts << question.question();
        return texts;
    }

    SourceImport import() { return {m_undo, m_file}; }

    TestProject m_project;
    int m_projects = 0;
    KRNFile* const m_file = &m_project.file;
    UndoManager* const m_undo = &m_project.undo;
};

int main(int argc, char** argv) {
    return runTest<QApplication, tst_SourceImport>(argc, argv);
}
#include "tst_sourceimport.moc"
