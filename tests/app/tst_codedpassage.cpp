#include "app/AppHelper.h"
#include "app/KernovaApplication.h"
#include "models/HighlightsModel.h"
#include "models/KernoModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"
#include "text/KernovaTextEdit.h"
#include "text/SourceHighlighter.h"
#include "undo/UndoManager.h"

#include <QLoggingCategory>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQuickTextDocument>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

/// The road of one coded passage through all rooms, with the real service and without screens.
class tst_CodedPassage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void anImportedTextIsShown();
    void aPassageIsCoded();
    void codingIsUndoneAndRedone();
    void everythingIsThereAfterReopening();
    void screensImportListsAndFolders_data();
    void screensImportListsAndFolders();

private:
    void showAnswer();
    QString paintedText() const;
    HighlightsModel* stripes() const { return qobject_cast<HighlightsModel*>(m_edit->highlightsModel()); }

    QTemporaryDir m_folder;
    QJsonObject m_project;
    std::unique_ptr<KRNFile> m_file;
    std::unique_ptr<UndoManager> m_undo;
    std::unique_ptr<AppHelper> m_helper;
    std::unique_ptr<KernovaTextEdit> m_edit;
};

void tst_CodedPassage::initTestCase() {
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    ProjectTimings timings;
    timings.settle = 1;
    timings.closeSettle = 1;
    m_file = std::make_unique<KRNFile>(nullptr, timings);
    m_file->initModels();
    m_undo = std::make_unique<UndoManager>(m_file.get());
    m_helper = std::make_unique<AppHelper>(m_undo.get(), m_file.get());
    m_helper->setCurrentAuthor(QStringLiteral("Ann"));
    QVERIFY(m_helper->connectToServer(false));
    m_project.insert(QStringLiteral("name"), m_folder.filePath(QStringLiteral("study.krn")));
    QVERIFY(m_file->openProject(m_project, true, QString(), true));
}

void tst_CodedPassage::cleanupTestCase() {
    m_edit.reset();
    m_file->closeAndReset();
    m_helper.reset();
    m_undo.reset();
    m_file.reset();
}

void tst_CodedPassage::showAnswer() {
    const QuestionAnswer answer = m_file->answerModel()->snapshot().first();
    m_edit = std::make_unique<KernovaTextEdit>();
    m_edit->setWidth(300);
    m_edit->setLineHeight(15);
    m_edit->setReadOnly(true);
    m_edit->setAnswer(answer.questionId(), answer.sourceId(), answer.answer(), 0);
}

/// The characters that have a background, of all blocks.
QString tst_CodedPassage::paintedText() const {
    QString found;
    const QTextDocument* document = m_edit->textDocument()->textDocument();
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        for (const QTextLayout::FormatRange& range : block.layout()->formats())
            found += block.text().mid(range.start, range.length);
    }
    return found;
}

void tst_CodedPassage::anImportedTextIsShown() {
    QFile file(m_folder.filePath(QStringLiteral("Interview.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(
        "\r\nI drive a bus.\r\n\r\nIn winter < summer & fog, the caf\xC3\xA9 \xF0\x9F\x98\x80 is warm.\r\n");
    file.close();
    const QList<QUrl> files{QUrl::fromLocalFile(file.fileName())};
    QCOMPARE(m_helper->batchImportQuestions(files, QString(), QString()), 1);
    QVERIFY(waitFor(
        [&] { return m_file->answerModel()->rowCount() == 1 && m_file->sourceModel()->rowCount() == 1; }));
    QCOMPARE(m_file->sourceModel()->snapshot().first().title(), QStringLiteral("Interview"));
    showAnswer();
    QCOMPARE(m_edit->textDocument()->textDocument()->toPlainText(),
             m_file->answerModel()->snapshot().first().plainAnswer());
    QVERIFY(waitFor([&] { return m_edit->highlighter()->isEnabled(); }));
}

void tst_CodedPassage::aPassageIsCoded() {
    m_undo->addKerno({{QStringLiteral("title"), QStringLiteral("Comfort")},
                      {QStringLiteral("parentKernoId"), -1},
                      {QStringLiteral("x"), 10},
                      {QStringLiteral("y"), 20}});
    QCOMPARE(m_file->kernoModel()->rowCount(), 1);
    const Kerno kerno = m_file->kernoModel()->snapshot().first();
    const QString passage = QString::fromUtf8("the caf\xC3\xA9 \xF0\x9F\x98\x80 is warm");
    Highlight highlight;
    highlight.setKernoId(kerno.id());
    highlight.setSourceId(m_edit->sourceId());
    highlight.setQuestionId(m_edit->questionId());
    highlight.setStart(m_edit->textDocument()->textDocument()->toPlainText().indexOf(passage));
    highlight.setLength(passage.size());
    m_undo->addHighlight(highlight);
    QVERIFY(waitFor([&] { return paintedText() == passage; }));
    QCOMPARE(stripes()->rowCount(), 1);
    QVERIFY(stripes()->snapshot().first().y2() > stripes()->snapshot().first().y1());
    QCOMPARE(m_file->highlightsCountForKerno(kerno.id()), 1);
    QCOMPARE(stripes()->snapshot().first().author(), QStringLiteral("Ann"));
}

void tst_CodedPassage::codingIsUndoneAndRedone() {
    m_undo->undo();
    QVERIFY(waitFor([&] { return paintedText().isEmpty(); }));
    QCOMPARE(stripes()->rowCount(), 0);
    m_undo->redo();
    QVERIFY(waitFor([&] { return paintedText().endsWith(QStringLiteral("warm")); }));
}

void tst_CodedPassage::everythingIsThereAfterReopening() {
    m_edit.reset();
    m_undo->clearStack();
    m_file->close();
    QCOMPARE(m_file->kernoModel()->rowCount(), 0);
    QVERIFY2(m_file->openProject(m_project, false, QString(), true), qPrintable(m_file->getLastOpenError()));
    QVERIFY(waitFor([&] { return m_file->answerModel()->rowCount() == 1; }));
    showAnswer();
    QVERIFY(waitFor([&] { return paintedText().endsWith(QStringLiteral("warm")); }));
    QCOMPARE(stripes()->data(stripes()->index(0), HighlightsModel::TitleRole).toString(),
             QStringLiteral("Comfort"));
}

void tst_CodedPassage::screensImportListsAndFolders_data() {
    QTest::addColumn<QString>("argument");
    QTest::addColumn<int>("imported");
    QTest::newRow("texts in an array") << "[folder + '/Interview.txt', folder + '/Interview.txt']" << 2;
    QTest::newRow("list of the program") << "urls" << 1;
    QTest::newRow("copied list")
        << "(function() { var l = []; for (var i = 0; i < urls.length; ++i) l.push(urls[i]); "
           "return l })()"
        << 1;
    QTest::newRow("folder as a URL") << "folderUrl" << 1;
}

void tst_CodedPassage::screensImportListsAndFolders() {
    QFETCH(QString, argument);
    QQmlEngine engine;
    QQmlContext* const context = engine.rootContext();
    const QUrl folder = QUrl::fromLocalFile(m_folder.path());
    const QList<QUrl> urls{QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("Interview.txt")))};
    context->setContextProperty(QStringLiteral("appHelper"), m_helper.get());
    context->setContextProperty(QStringLiteral("folder"), folder.toString());
    context->setContextProperty(QStringLiteral("folderUrl"), folder);
    context->setContextProperty(QStringLiteral("urls"), QVariant::fromValue(urls));
    QQmlExpression call(context, nullptr,
                        QStringLiteral("appHelper.batchImportQuestions(%1, '', '', false)").arg(argument));
    QTEST(call.evaluate().toInt(), "imported");
    QVERIFY2(!call.hasError(), qPrintable(call.error().toString()));
}

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_CodedPassage>(argc, argv);
}
#include "tst_codedpassage.moc"
