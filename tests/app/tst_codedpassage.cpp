#include "app/AppHelper.h"
#include "app/KernovaApplication.h"
#include "models/HighlightsModel.h"
#include "project/KRNFile.h"
#include "tests_support/AllModels.h"
#include "tests_support/TestMain.h"
#include "text/KernovaTextEdit.h"
#include "text/SourceHighlighter.h"
#include "undo/UndoManager.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <QQuickTextDocument>
#include <QTextBlock>

/// The road of one coded passage through all rooms, with the real service and without screens.
class tst_CodedPassage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        ProjectTimings timings;
        timings.settle = 1;
        timings.closeSettle = 1;
        m_file = std::make_unique<KRNFile>(nullptr, timings);
        m_file->initModels();
        m_undo = std::make_unique<UndoManager>(m_file.get());
        m_helper = std::make_unique<AppHelper>(m_undo.get(), m_file.get());
        m_helper->setCurrentAuthor("Ann"_s);
        QVERIFY(m_helper->connectToServer(false));
        m_project.insert("name"_s, m_folder.filePath("study.krn"_s));
        QVERIFY(m_file->openProject(m_project, true, QString(), true));
    }

    void cleanupTestCase() {
        m_edit.reset();
        m_file->closeAndReset();
        m_helper.reset();
        m_undo.reset();
        m_file.reset();
    }

    void anImportedTextIsShown() {
        QFile file(m_folder.filePath("Interview.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("\r\nI drive a bus.\r\n\r\nIn winter < summer & fog, the caf\xC3\xA9 \xF0\x9F\x98\x80 is "
                   "warm.\r\n");
        file.close();
        const QList<QUrl> files{QUrl::fromLocalFile(file.fileName())};
        QCOMPARE(m_helper->batchImportQuestions(files, QString(), QString()), 1);
        QVERIFY(waitFor([&] {
            return m_file->answerModel()->rowCount() == 1 && m_file->sourceModel()->rowCount() == 1;
        }));
        QCOMPARE(m_file->sourceModel()->snapshot().first().title(), "Interview"_s);
        showAnswer();
        QCOMPARE(m_edit->textDocument()->textDocument()->toPlainText(),
                 m_file->answerModel()->snapshot().first().plainAnswer());
        QVERIFY(waitFor([&] { return m_edit->highlighter()->isEnabled(); }));
    }

    void aPassageIsCoded() {
        m_undo->addKerno({{"title"_s, "Comfort"_s}, {"parentKernoId"_s, -1}, {"x"_s, 10}, {"y"_s, 20}});
        QCOMPARE(m_file->kernoModel()->rowCount(), 1);
        const Kerno kerno = m_file->kernoModel()->snapshot().first();
        const QString passage = "the caf\xC3\xA9 \xF0\x9F\x98\x80 is warm"_s;
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
        QCOMPARE(stripes()->snapshot().first().author(), "Ann"_s);
    }

    void codingIsUndoneAndRedone() {
        m_undo->undo();
        QVERIFY(waitFor([&] { return paintedText().isEmpty(); }));
        QCOMPARE(stripes()->rowCount(), 0);
        m_undo->redo();
        QVERIFY(waitFor([&] { return paintedText().endsWith("warm"_s); }));
    }

    void everythingIsThereAfterReopening() {
        m_edit.reset();
        m_undo->clearStack();
        m_file->close();
        QCOMPARE(m_file->kernoModel()->rowCount(), 0);
        QVERIFY2(m_file->openProject(m_project, false, QString(), true),
                 qPrintable(m_file->getLastOpenError()));
        QVERIFY(waitFor([&] { return m_file->answerModel()->rowCount() == 1; }));
        showAnswer();
        QVERIFY(waitFor([&] { return paintedText().endsWith("warm"_s); }));
        QCOMPARE(stripes()->data(stripes()->index(0), HighlightsModel::TitleRole).toString(), "Comfort"_s);
    }

    void screensImportListsAndFolders_data() {
        columns<QString, int>({"argument", "imported"});
        addRow("texts in an array", "[folder + '/Interview.txt', folder + '/Interview.txt']", 2);
        addRow("list of the program", "urls", 1);
        addRow("copied list",
               "(function() { var l = []; for (var i = 0; i < urls.length; ++i) l.push(urls[i]); "
               "return l })()",
               1);
        addRow("folder as a URL", "folderUrl", 1);
    }

    void screensImportListsAndFolders() {
        QFETCH(QString, argument);
        QQmlEngine engine;
        QQmlContext* const context = engine.rootContext();
        const QUrl folder = QUrl::fromLocalFile(m_folder.path());
        const QList<QUrl> urls{QUrl::fromLocalFile(m_folder.filePath("Interview.txt"_s))};
        context->setContextProperty("appHelper"_s, m_helper.get());
        context->setContextProperty("folder"_s, folder.toString());
        context->setContextProperty("folderUrl"_s, folder);
        context->setContextProperty("urls"_s, QVariant::fromValue(urls));
        QQmlExpression call(context, nullptr,
                            "appHelper.batchImportQuestions(%1, '', '', false)"_s.arg(argument));
        QTEST(call.evaluate().toInt(), "imported");
        QVERIFY2(!call.hasError(), qPrintable(call.error().toString()));
    }

private:
    void showAnswer() {
        const QuestionAnswer answer = m_file->answerModel()->snapshot().first();
        m_edit = std::make_unique<KernovaTextEdit>();
        m_edit->setWidth(300);
        m_edit->setLineHeight(15);
        m_edit->setReadOnly(true);
        m_edit->setAnswer(answer.questionId(), answer.sourceId(), answer.answer(), 0);
    }

    /// The characters that have a background, of all blocks.
    QString paintedText() const {
        QString found;
        const QTextDocument* document = m_edit->textDocument()->textDocument();
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
            for (const QTextLayout::FormatRange& range : block.layout()->formats())
                found += block.text().mid(range.start, range.length);
        }
        return found;
    }

    HighlightsModel* stripes() const { return qobject_cast<HighlightsModel*>(m_edit->highlightsModel()); }

    QTemporaryDir m_folder;
    QJsonObject m_project;
    std::unique_ptr<KRNFile> m_file;
    std::unique_ptr<UndoManager> m_undo;
    std::unique_ptr<AppHelper> m_helper;
    std::unique_ptr<KernovaTextEdit> m_edit;
};

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_CodedPassage>(argc, argv);
}
#include "tst_codedpassage.moc"
