#include "../../export/OddTexts.h"
#include "app/KernovaApplication.h"
#include "app/ReportViewer.h"
#include "app/Startup.h"
#include "export/ReportFolder.h"
#include "tests_support/TestMain.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QWebEngineView>

/// The pages in the real viewer, over a project whose texts try to be anything but text.
class tst_ReportViewer : public QObject {
    Q_OBJECT

public slots:
    void opened(const QUrl& url) { m_opened = url.toLocalFile(); }

private slots:
    void initTestCase();
    void cleanup() { m_viewer.reset(); }
    void theReportTellsTheProject();
    void everyOptionShowsAndHides();
    void whatIsSavedHoldsTheQuotes();
    void theWordCloudCountsTheWords();

private:
    QVariant run(const QString& script);
    QStringList texts(const char* selector);
    void open(ReportViewer::Mode mode);
    QString save(const char* button, const QString& name);
    QString answered(const char* button, const QString& path = {});
    QString readBy(const QString& program, const QStringList& arguments);

    UndoProject m_project;
    QTemporaryDir m_folder;
    std::unique_ptr<ReportViewer> m_viewer;
    QString m_opened;  ///< what the viewer had the desktop open last
};

namespace {

/// As `waitFor`, but in an event loop that sleeps: the web engine works while the loop waits.
bool until(const std::function<bool()>& condition, int milliseconds = 30000) {
    QEventLoop loop;
    QTimer check;
    QObject::connect(&check, &QTimer::timeout, &loop, [&] {
        if (condition())
            loop.quit();
    });
    check.start(10);
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
    return condition();
}

QString hostile(const char* what) {
    return "%1 \\\" </script><script>hacked = 1</script> <img src=x onerror='hacked = 2'> "
           "{{hacked = 3}} \u2028 &lt;b&gt; end"_s.arg(QString::fromUtf8(what));
}

QString oneLine(QString text) {
    return text.simplified().remove(QLatin1Char(' '));
}

}  // namespace

void tst_ReportViewer::initTestCase() {
    using namespace undotest;
    QDesktopServices::setUrlHandler("file"_s, this, "opened");
    QVERIFY2(m_project.open(), qPrintable(m_project.error));
    addOddTexts(m_project);
    KRNFile& file = m_project.file;
    file.setCurrentAuthor(hostile("author"));
    file.saveKerno(
        Kerno(7, -1, Qt::darkGreen, hostile("kerno"), hostile("description"), {}, hostile("a"), 7, 8));
    file.saveSource(Source(6, hostile("source"), {}, hostile("writer"), {}));
    file.saveQuestion(Question(3, hostile("question"), 3));
    const QString answer = hostile("answer").toHtmlEscaped() + " <b>bold <i>and</i></b> <u>under</u>"_s;
    file.saveAnswer(QuestionAnswer(9, 3, 6, ann, answer, {}));
    file.batchSaveHighlights({Highlight(20, 7, 6, 3, {}, 0, 500, 500, hostile("coder"), {}, 0, 0, 0, false)});
    file.batchSaveMemos({memo(9, 6, 3, 2, 12, hostile("memo"))});
    file.saveMetadataKey(SourceMetadataKey(9, true, true, hostile("property")));
    file.saveMetadataValue(SourceMetadataValue(9, 9, hostile("value")));
    file.saveMetadata(SourceMetadata(9, 6, 9, 9, ann, {}));
    m_project.settle();
    QVERIFY(report::writeFolder(file, m_folder.filePath("report"), {}, true, true) == report::Written::Done);
    // Over one that is there.
    for (int i = 0; i < 2; ++i)
        QVERIFY(wordcloud::writeFolder(file, m_folder.filePath("cloud")) == report::Written::Done);
}

void tst_ReportViewer::open(ReportViewer::Mode mode) {
    const QString folder = m_folder.filePath(mode == ReportViewer::Report ? "report" : "cloud");
    m_viewer = std::make_unique<ReportViewer>(
        folder + (mode == ReportViewer::Report ? "/report.html" : "/wordcloud.html"), folder, mode);
    QSignalSpy loaded(m_viewer->view(), &QWebEngineView::loadFinished);
    m_viewer->show();
    QVERIFY(until([&] { return loaded.count() > 0; }));
    QVERIFY(until([&] { return run("!document.querySelector('[ng-cloak]')").toBool(); }));
    // The quotes come when the page is there.
    const auto lists = "angular.element(document.body).scope().quoteLists";
    QVERIFY(mode != ReportViewer::Report ||
            until([&] { return run("!%1.isRunning"_s.arg(lists)).toBool(); }));
}

QVariant tst_ReportViewer::run(const QString& script) {
    bool done = false;
    QVariant result;
    m_viewer->view()->page()->runJavaScript(script, [&](const QVariant& value) {
        result = value;
        done = true;
    });
    until([&] { return done; });
    return result;
}

QStringList tst_ReportViewer::texts(const char* selector) {
    return run("Array.from(document.querySelectorAll(\"%1\")).map(e => e.textContent)"_s.arg(selector))
        .toStringList();
}

// Clicks, and answers what comes up: a file dialog by `path`, a message box by its button. What the box says.
QString tst_ReportViewer::answered(const char* button, const QString& path) {
    QString said;
    bool seen = false;
    const auto dialog = [&] {
        QWidget* const top = QApplication::activeModalWidget();
        return top == m_viewer.get() ? nullptr : top;
    };
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (auto* const box = qobject_cast<QMessageBox*>(dialog())) {
            said = box->text();
            seen = true;
            box->accept();
        } else if (auto* const files = qobject_cast<QFileDialog*>(dialog())) {
            seen = true;
            files->findChild<QLineEdit*>("fileNameEdit"_s)->setText(path);
            QMetaObject::invokeMethod(files, "accept");
        }
    });
    timer.start(100);
    m_viewer->findChild<QPushButton*>(QString::fromLatin1(button))->click();
    until([&] { return seen && !dialog(); });
    return said;
}

// The path of the file when the viewer has saved and opened it.
QString tst_ReportViewer::save(const char* button, const QString& name) {
    const QString path = m_folder.filePath(name);
    m_opened.clear();
    answered(button, path);
    until([&] { return m_opened == path; });
    return m_opened;
}

QString tst_ReportViewer::readBy(const QString& program, const QStringList& arguments) {
    QProcess reader;
    reader.start(program, arguments);
    return reader.waitForFinished() ? QString::fromUtf8(reader.readAllStandardOutput()) : QString();
}

void tst_ReportViewer::theReportTellsTheProject() {
    open(ReportViewer::Report);
    KRNFile& file = m_project.file;
    QStringList quotes;
    for (const QVariant& map : file.highlights()) {
        const Highlight highlight = file.highlight(map.toMap()["highlightId"].toInt());
        QString quote = file.answerModel()
                            ->answer(highlight.sourceId(), highlight.questionId())
                            .plainAnswer()
                            .mid(highlight.start(), highlight.length());
        // Half an emoji is no character.
        if (quote.at(0).isLowSurrogate())
            quote.replace(0, 1, QChar(QChar::ReplacementCharacter));
        quotes << quote;
    }
    quotes.sort();
    for (const char* list :
         {"#text_by_code .quote_text", "#text_by_source .quote_text", "#text_by_question .quote_text"}) {
        QStringList shown = texts(list);
        shown.sort();
        QCOMPARE(shown, quotes);
    }
    QCOMPARE(run("document.querySelectorAll('#text_by_code .quote_text b, #text_by_code .quote_text i, "
                 "#text_by_code .quote_text u').length")
                 .toInt(),
             4);
    // Nothing of a person's has become a part of the page, and all of it is there.
    QVERIFY(run("typeof hacked === 'undefined' && !document.querySelector('#paper script:not([type]), "
                "img[onerror]')")
                .toBool());
    const QString page = texts("#paper").value(0);
    for (const char* what :
         {"author", "kerno", "description", "source", "writer", "question", "memo", "property", "value"})
        QVERIFY2(page.contains(hostile(what)), what);
    // Figures
    const QVariantMap counts =
        run("({ codes: document.querySelectorAll('tfoot th')[1].textContent,"
            "kernos: document.querySelectorAll('tfoot th')[3].textContent,"
            "share: textSortedByCode.reduce((s, g) => s + g.global_percentage, 0),"
            "summary: textSortedByCodeSummary.reduce((s, g) => s + g.global_percentage, 0),"
            "occurences: textSortedByCodeSummary.reduce((s, g) => s + g.global_occurences, 0),"
            "lengths: sources.map(s => s.length) })")
            .toMap();
    QCOMPARE(counts["codes"].toInt(), file.totalHighlightsCount());
    QCOMPARE(counts["occurences"].toInt(), file.totalHighlightsCount());
    QCOMPARE(counts["kernos"].toInt(), file.kernoIds().size());
    QVERIFY(counts["share"].toDouble() > 0 &&
            qFuzzyCompare(counts["share"].toDouble(), counts["summary"].toDouble()));
    QVariantList lengths;
    for (const QVariant& id : file.sourceIds()) {
        int length = 0;
        for (const QVariant& answer : file.answers(id.toInt()))
            length += answer.toMap()["answer"].toString().size();
        lengths << length;
    }
    QCOMPARE(counts["lengths"].toList(), lengths);
}

void tst_ReportViewer::everyOptionShowsAndHides() {
    // The label of a box, and what is different with the option.
    QVector<QPair<QString, QString>> options{
        {"Include Coding Numbers",
         "document.getElementById('canvas_primary').parentNode.getAttribute('file')"},
        {"Reverse Order", "document.querySelector('#text_by_source h3').textContent"}};
    for (const char* part : {"Coded by:", "Theme:", "Coverage:", "Highlight ID:"}) {
        const QString name = QString::fromLatin1(part).section(QLatin1Char(':'), 0, 0);
        options.append({"Show %1 Section"_s.arg(name),
                        "document.querySelector('blockquote').innerText.includes('%1')"_s.arg(part)});
    }
    const auto heading = [&](const char* label, const char* title) {
        options.append({label, "Array.from(document.querySelectorAll('#paper h1, #paper h2, #paper h3'))"
                               ".some(e => e.textContent === '%1' && e.offsetParent)"_s.arg(title)});
    };
    for (const char* same : {"Sources Summary", "Kernos Summary", "Authors Summary", "Properties Summary"})
        heading(same, same);
    heading("Report Info", "Kernova Report");
    heading("Include Canvas Views", "Main Canvas Views");
    heading("Include Hierarchy Views", "Hierarchy Views");
    heading("Include Overlap Views", "Overlap Views");
    heading("By Title - Descending", "Kernos Canvas - By Title (Descending)");
    heading("Text by Theme", "Text Sorted by Theme");
    heading("Text by Source", "Text Sorted by Source");
    heading("Text by Question", "Text Sorted by Question");
    heading("Include Memos Tables", "Memos Sorted by Source");
    open(ReportViewer::Report);
    for (const auto& [label, what] : options) {
        const QVariant before = run(what);
        const QString click =
            "Array.from(document.querySelectorAll('#options label'))"
            ".find(e => e.textContent.trim() === '%1').querySelector('input').click()"_s.arg(label);
        run(click);
        QVERIFY2(run(what) != before, qPrintable(label));
        run(click);
        QVERIFY2(run(what) == before, qPrintable(label));
    }
}

void tst_ReportViewer::whatIsSavedHoldsTheQuotes() {
    open(ReportViewer::Report);
    const QStringList quotes = texts("#text_by_code .quote_text");
    // Printed while they come, they are all there.
    run("window.onbeforeprint = () => window.printed = document.querySelectorAll('#text_by_code "
        "blockquote').length;"
        "var lists = angular.element(document.body).scope().quoteLists;"
        "lists.build = (build => function(deadline, onlyShown) { if (onlyShown) build.call(lists, deadline, "
        "true); })(lists.build);"
        "lists.lists.forEach(list => lists.set(list.element, list.quotes))");
    QVERIFY(texts("#text_by_code .quote_text").isEmpty());
    const QString pdf = save("savePDF", "report.pdf"_s);
    QCOMPARE(run("printed").toInt(), quotes.size());
    const QString docx = save("saveDOCX", "report.docx"_s);
    const QString fromPdf = oneLine(readBy("pdftotext"_s, {"-layout", pdf, "-"}));
    const QString fromDocx = oneLine(readBy("pandoc"_s, {"-f", "docx", "-t", "plain", "--wrap=none", docx}));
    QVERIFY(!quotes.isEmpty() && !fromPdf.isEmpty() && !fromDocx.isEmpty());
    for (QString quote : quotes) {
        // What XML has no place for.
        quote.remove(QChar(1)).remove(QChar(QChar::ReplacementCharacter));
        QVERIFY2(fromDocx.contains(oneLine(quote)), qPrintable(quote));
    }
    QVERIFY(fromPdf.contains("hacked=1"_s) && !fromPdf.contains("Options"_s));
    // The date of the memos is the last kerno's, so there is none without the kernos.
    run("Array.from(document.querySelectorAll('#options label')).find(e => e.textContent === 'Kernos "
        "Summary').click()");
    QVERIFY(answered("saveDOCX").contains("nothing was saved"_s));
    // The folder itself, which still shows the report there.
    QVERIFY(QDir().mkpath(m_folder.filePath("copy"_s)));
    QCOMPARE(save("saveHTML", "copy"_s), m_folder.filePath("copy"_s));
    QVERIFY(QFile::exists(m_folder.filePath("copy/data/js/data.js"_s)));
}

void tst_ReportViewer::theWordCloudCountsTheWords() {
    open(ReportViewer::WordCloud);
    QHash<QString, int> words;
    static const QRegularExpression ends("[.!?, :\"\n\r]"_s);
    for (const QVariant& id : m_project.file.sourceIds()) {
        for (const QuestionAnswer& answer : m_project.file.answerModel()->answers(id.toInt())) {
            for (const QString& word : answer.plainAnswer().split(ends, Qt::SkipEmptyParts))
                ++words[word];
        }
    }
    QVariantMap expected;
    for (auto word = words.begin(); word != words.end(); ++word)
        expected.insert(word.key(), word.value());
    const QVariant counted = run("wordCountBySource.reduce((all, s) => { s.wordCount.forEach(w => "
                                 "all[w.word] = (all[w.word] || 0) + w.count); return all; }, {})");
    QCOMPARE(counted.toMap().keys(), expected.keys());
    for (auto word = words.begin(); word != words.end(); ++word)
        QCOMPARE(counted.toMap().value(word.key()).toInt(), word.value());
    QVERIFY(run("typeof hacked === 'undefined'").toBool());
    const auto first = "angular.element(document.body).scope().wordlist[0][0]";
    const QString most = run(first).toString();
    run("var s = angular.element(document.body).scope(); s.newStopWord = s.wordlist[0][0].toUpperCase();"
        "s.addNewStopWord(); s.$digest()");
    QVERIFY(!most.isEmpty() && run(first).toString() != most);
    const QImage picture(save("savePDF", "cloud.png"_s));
    QCOMPARE(picture.size(), QSize(800, 600));
    QVERIFY(m_viewer->findChild<QPushButton*>("print")->isHidden() &&
            m_viewer->findChild<QPushButton*>("saveDOCX")->isHidden());
}

int main(int argc, char** argv) {
    TestEnvironment environment;
    qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    // The backend is asked for everywhere; where there is none, Qt falls back.
    expectWarning("Could not create scene graph context for backend 'd3d12'");
    // A window that asks for the focus while it is being taken down.
    expectWarning("QXcbConnection: XCB error: 8 \\(BadMatch\\)");
    startup::prepare();
    KernovaApplication application(argc, argv);
    tst_ReportViewer test;
    return environment.run(&test, QCoreApplication::arguments());
}
#include "tst_reportviewer.moc"
