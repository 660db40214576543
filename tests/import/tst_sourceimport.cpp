#include "import/SourceImport.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"
#include "undo/UndoManager.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <sys/stat.h>

/// Imports into a project at the real service.
class tst_SourceImport : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void aWholeTextBecomesOneSource();
    void pairsBecomeAnswersToQuestions();
    void matchingQuestionsAreUsedAgain();
    void markersAreNeededForQuestions();
    void aBatchIsOneStep();
    void aBatchGivesEachSourceAllQuestions();
    void aCancelledBatchKeepsWhatIsThere();
    void brokenFilesArePassedOver();
    void aConversionIsCancelled();
    void aBatchEndsWithItsProject();

private:
    void openNew(bool singleQuestion);
    void settle();
    QUrl write(const QString& name, const QByteArray& bytes);
    /// Each source as "title: answer to question 1 | answer to question 2 ...", in the order of ids.
    QStringList sources() const;
    QStringList questions() const;
    SourceImport import() { return {m_undo.get(), m_file.get()}; }

    QTemporaryDir m_folder;
    int m_projects = 0;
    std::unique_ptr<KRNFile> m_file;
    std::unique_ptr<UndoManager> m_undo;
};

namespace {

QVariantMap pair(const char* question, const char* answer) {
    return {{QStringLiteral("question"), QString::fromLatin1(question)},
            {QStringLiteral("answer"), QString::fromLatin1(answer)}};
}

/// Accepts message boxes as long as the result lives, and keeps the text of the last.
std::unique_ptr<QTimer> closeMessageBoxes(QString& told) {
    auto timer = std::make_unique<QTimer>();
    QObject::connect(timer.get(), &QTimer::timeout, [&told] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            told = box->text();
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

void tst_SourceImport::initTestCase() {
    QLoggingCategory::setFilterRules(QStringLiteral("fileImport.debug=false"));
    expectWarning("This plugin does not support propagateSizeHints");
    ProjectTimings timings;
    timings.settle = 1;
    timings.closeSettle = 1;
    m_file = std::make_unique<KRNFile>(nullptr, timings);
    m_file->initModels();
    m_undo = std::make_unique<UndoManager>(m_file.get());
    QVERIFY2(m_file->dataHelper()->connection()->connect(false),
             qPrintable(m_file->dataHelper()->connection()->lastError()));
}

void tst_SourceImport::cleanupTestCase() {
    m_file->closeAndReset();
    m_undo.reset();
    m_file.reset();
}

void tst_SourceImport::openNew(bool singleQuestion) {
    const QString path = m_folder.filePath(QStringLiteral("project %1.krn").arg(++m_projects));
    m_undo->clearStack();
    QVERIFY2(m_file->openProject({{QStringLiteral("name"), path}}, true, QString(), singleQuestion),
             qPrintable(m_file->getLastOpenError()));
}

/// Everything that was sent has been stored, and its notifications have come.
void tst_SourceImport::settle() {
    m_file->getPreference(QStringLiteral("none"));
    QCoreApplication::processEvents();
}

QUrl tst_SourceImport::write(const QString& name, const QByteArray& bytes) {
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the file of the test");
    return QUrl::fromLocalFile(file.fileName());
}

QStringList tst_SourceImport::sources() const {
    QStringList lines;
    for (const Source& source : m_file->dataHelper()->findAll<Source>()) {
        QMap<QPair<int, int>, QString> answers;
        for (const QuestionAnswer& answer : m_file->dataHelper()->findAll<QuestionAnswer>()) {
            if (answer.sourceId() == source.id())
                answers.insert({answer.questionId(), answer.answerId()}, answer.plainAnswer());
        }
        lines << source.title() + QStringLiteral(": ") +
                     QStringList(answers.values()).join(QStringLiteral(" | "));
    }
    return lines;
}

QStringList tst_SourceImport::questions() const {
    QStringList texts;
    for (const Question& question : m_file->questionListModel()->snapshot())
        texts << question.question();
    return texts;
}

void tst_SourceImport::aWholeTextBecomesOneSource() {
    openNew(true);
    const QUrl file = write(QStringLiteral("Marta.txt"), "Q: no marker\r\nhere");
    const QVariantList pairs = import().pairsOfFile(file, QString(), QString(), false);
    QVERIFY(import().save(QStringLiteral("Marta"), pairs));
    settle();
    QCOMPARE(sources(), QStringList{QStringLiteral("Marta: Q: no marker\nhere")});
    QCOMPARE(m_file->answerModel()->rowCount(), 1);
    QCOMPARE(m_file->sourceModel()->rowCount(), 1);
    m_undo->undo();
    settle();
    QCOMPARE(sources(), QStringList());
    m_undo->redo();
    settle();
    QCOMPARE(sources(), QStringList{QStringLiteral("Marta: Q: no marker\nhere")});
    QVERIFY(!import().save(QStringLiteral("nothing"), {}));
    QCOMPARE(m_undo->count(), 1);
}

void tst_SourceImport::pairsBecomeAnswersToQuestions() {
    openNew(false);
    const QStringList before = questions();
    QVERIFY(import().save(QStringLiteral("dropped"),
                          {pair("Age?", "40"), pair("", "lost"), pair("Work?", "bus"), pair("Age?", "41")}));
    settle();
    QCOMPARE(questions(), before + QStringList({"Age?", "Work?", "Age?"}));
    const QList<Question> all = m_file->questionListModel()->snapshot();
    for (int i = 1; i < all.size(); ++i)
        QVERIFY(all.at(i - 1).questionOrder() < all.at(i).questionOrder());
    const int id = m_file->sourceModel()->snapshot().first().id();
    QCOMPARE(sources(), QStringList{QStringLiteral("Source %1:  | 40 | bus | 41").arg(id)});
    m_undo->undo();
    settle();
    QCOMPARE(sources(), QStringList());
    QCOMPARE(questions(), before);
}

void tst_SourceImport::matchingQuestionsAreUsedAgain() {
    openNew(false);
    QVERIFY(import().save(QString(), {pair("Age?", "40")}));
    settle();
    QVERIFY(import().save(
        QString(), {pair("Work?", "bus"), pair("age?", "50"), pair("Age?", "51"), pair("Age?", "no, 52")}));
    settle();
    QCOMPARE(questions().mid(1), QStringList({"Age?", "Work?", "age?"}));
    const QStringList lines = sources();
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.first().endsWith(QStringLiteral(":  | 40 |  | ")), qPrintable(lines.first()));
    QVERIFY2(lines.last().endsWith(QStringLiteral(":  | 51 | no, 52 | bus | 50")), qPrintable(lines.last()));
}

void tst_SourceImport::markersAreNeededForQuestions() {
    openNew(false);
    const QUrl file = write(QStringLiteral("marked.txt"), "Q: a A: b");
    QVERIFY(import().pairsOfFile(file, QStringLiteral("Q:"), QString(), false).isEmpty());
    QCOMPARE(import().pairsOfFile(file, QStringLiteral("Q:"), QStringLiteral("A:"), false).size(), 1);
    QCOMPARE(import().pairsOfFile(file, QString(), QString(), true).size(), 1);
}

void tst_SourceImport::aBatchIsOneStep() {
    openNew(true);
    const QList<QUrl> files{write(QStringLiteral("one.txt"), "first"), write(QStringLiteral("empty.txt"), ""),
                            write(QStringLiteral("two.x.txt"), "second")};
    QString told;
    const auto closer = closeMessageBoxes(told);
    QCOMPARE(import().importFiles(files, QString(), QString(), true), 2);
    QCOMPARE(told, QStringLiteral("2 Source(s) have successfully been imported."));
    settle();
    QCOMPARE(sources(), QStringList({"one: first", "two.x: second"}));
    QCOMPARE(m_undo->count(), 1);
    m_undo->undo();
    settle();
    QCOMPARE(sources(), QStringList());
}

void tst_SourceImport::aBatchGivesEachSourceAllQuestions() {
    openNew(false);
    // The second adds no question, so that nothing waits for the service while it is stored.
    const QList<QUrl> files{write(QStringLiteral("1.txt"), "Q: a A: one"),
                            write(QStringLiteral("2.txt"), "Q: a A: two"),
                            write(QStringLiteral("3.txt"), "Q: b A: three Q: c A: four")};
    const auto whole = [this] {
        settle();
        return m_file->dataHelper()->exportProjectJson(m_file->currentProject()).json;
    };
    const QJsonObject before = whole();
    QCOMPARE(import().importFiles(files, QStringLiteral("Q:"), QStringLiteral("A:"), false), 3);
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

void tst_SourceImport::aBatchEndsWithItsProject() {
    openNew(true);
    const QList<QUrl> files{write(QStringLiteral("a.txt"), "a"), write(QStringLiteral("b.txt"), "b")};
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

void tst_SourceImport::aCancelledBatchKeepsWhatIsThere() {
    openNew(true);
    QList<QUrl> files;
    for (const char* name : {"a.txt", "b.txt", "c.txt"})
        files << write(QString::fromLatin1(name), name);
    QString told;
    const auto closer = closeMessageBoxes(told);
    QTimer canceller;
    connect(&canceller, &QTimer::timeout, [] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* const dialog = qobject_cast<QProgressDialog*>(widget);
            if (dialog && dialog->value() == 1)
                dialog->cancel();
        }
    });
    canceller.start(0);
    QCOMPARE(import().importFiles(files, QString(), QString(), true), 1);
    QCOMPARE(told, QStringLiteral("1 Source(s) have successfully been imported."));
    settle();
    QCOMPARE(sources(), QStringList{QStringLiteral("a: a.txt")});
    QCOMPARE(m_undo->count(), 1);
}

void tst_SourceImport::brokenFilesArePassedOver() {
    openNew(true);
    QSignalSpy told(m_file.get(), &KRNFile::notifyUser);
    const QList<QUrl> files{write(QStringLiteral("a.docx"), "PK"), write(QStringLiteral("b.pdf"), "%PDF"),
                            write(QStringLiteral("c.rtf"), "{\\rtf1 {\\b bold} <laughs> &amp; \\u228?}"),
                            write(QStringLiteral("d.txt"), "")};
    QCOMPARE(import().importFiles(files, QString(), QString(), false), 1);
    QCOMPARE(told.count(), 0);
    settle();
    QCOMPARE(sources(), QStringList{QString::fromUtf8("c: bold <laughs> & \u00e4")});
}

// The converter waits for ever for what comes out of a pipe.
void tst_SourceImport::aConversionIsCancelled() {
    openNew(true);
    const QString pipe = m_folder.filePath(QStringLiteral("pipe.pdf"));
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
    const QList<QUrl> files{write(QStringLiteral("first.txt"), "a"), QUrl::fromLocalFile(pipe),
                            write(QStringLiteral("last.txt"), "b")};
    QCOMPARE(import().importFiles(files, QString(), QString(), false), 1);
    QVERIFY(turns >= 30);
    settle();
    QCOMPARE(sources(), QStringList{QStringLiteral("first: a")});
}

int main(int argc, char** argv) {
    return runTest<QApplication, tst_SourceImport>(argc, argv);
}
#include "tst_sourceimport.moc"
