#include "records/QuestionAnswer.h"
#include "tests_support/TestMain.h"
#include "text/DisplayText.h"
#include "text/RichText.h"

#include <QTextCursor>
#include <QTextDocument>

namespace {

QString inWrapper(const QString& text) {
    return "<body style=\"white-space: pre-wrap;\">\n%1\n</body>"_s.arg(text);
}

using Toggle = void (*)(QTextDocument*, int, int);

}  // namespace

/// Texts with styles, and what is stored of them.
class tst_RichText : public QObject {
    Q_OBJECT

private slots:
    void whatIsShownHasThePositionsOfThePlainText_data() {
        QTest::addColumn<QString>("text");
        const QString start = "<body style=\"white-space: pre-wrap;\">"_s;
        addRow("fragment", start + "\na <b>b</b>\nc\n</body>");
        addRow("bold from the first line feed", start + "\n<b>\na</b> b <u>c\n</u>\n</body>");
        addRow("entities", start + "a &lt;b&gt; &amp;&amp; c</body>");
        addRow("pictures", start + "a <IMG alt='>' src=\"http://x.invalid/p.png\"/>b <img>c</body>");
        addRow("blank lines around", "\n\n\na\n\n\n");
    }

    void whatIsShownHasThePositionsOfThePlainText() {
        QFETCH(QString, text);
        QuestionAnswer answer;
        answer.setAnswer(text);
        QTextDocument document;
        document.setHtml(displayHtml(answer.answer()));
        QString shown = document.toRawText();
        for (const QChar end : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)})
            shown.replace(end, QLatin1Char('\n'));
        QCOMPARE(shown, answer.plainAnswer());
    }

    void onlyThreeStylesAreWritten_data() {
        columns<QString, QString>({"html", "text"});
        addRow("plain", "one two", "one two");
        addRow("paragraphs", "<p>one</p><p>two</p>", "one\ntwo");
        addRow("bold in the middle", "a<b>bc</b>d", "a<b>bc</b>d");
        addRow("all three nest", "<u><i><b>x</b></i></u>", "<b><i><u>x</u></i></b>");
        addRow("runs that share a style", "<b>a<i>b</i></b>", "<b>a</b><b><i>b</i></b>");
        addRow("several paragraphs", "<p><b>a</b></p><p>b <i>c</i> d</p>", "<b>a</b>\nb <i>c</i> d");
        addRow("colour and links are lost", "<a href=\"x\" style=\"color:red;text-decoration:none\">a</a>",
               "a");
        addRow("nothing is escaped", "a &lt; b &amp; c", "a < b & c");
        addRow("empty", "", "");
    }

    void onlyThreeStylesAreWritten() {
        FETCH(QString, html, QString, text);
        QTextDocument document;
        document.setHtml(html);
        QCOMPARE(richTextFromDocument(&document), inWrapper(text));
    }

    void aStyleIsToggledOverTheWholeRange_data() {
        columns<Toggle, QString, int, int, QString>({"toggle", "html", "start", "end", "text"});
        addRow("bold", &toggleBold, "abcd", 1, 3, "a<b>bc</b>d");
        addRow("one plain character", &toggleBold, "<b>a</b>b<b>c</b>", 0, 3, "<b>abc</b>");
        addRow("plain first character", &toggleBold, "a<b>bc</b>", 0, 3, "<b>abc</b>");
        addRow("all bold", &toggleBold, "<b>abc</b>d", 0, 3, "abcd");
        addRow("part of a bold run", &toggleBold, "<b>abc</b>", 1, 2, "<b>a</b>b<b>c</b>");
        addRow("empty range", &toggleBold, "abc", 1, 1, "abc");
        addRow("beyond the end", &toggleBold, "abc", 0, 3, "<b>abc</b>");
        addRow("over paragraphs", &toggleItalic, "<p>ab</p><p>cd</p>", 1, 4, "a<i>b</i>\n<i>c</i>d");
        addRow("italic off", &toggleItalic, "<i>ab</i>", 0, 2, "ab");
        addRow("underline", &toggleUnderline, "ab", 0, 1, "<u>a</u>b");
        addRow("underline off", &toggleUnderline, "<u>ab</u>", 0, 2, "ab");
        addRow("other styles stay", &toggleUnderline, "<b>ab</b>", 0, 2, "<b><u>ab</u></b>");
    }

    void aStyleIsToggledOverTheWholeRange() {
        FETCH(Toggle, toggle, QString, html, int, start, int, end, QString, text);
        QTextDocument document;
        document.setHtml(html);
        toggle(&document, start, end);
        QCOMPARE(richTextFromDocument(&document), inWrapper(text));
    }

    void aToggleIsOneStepOfUndo() {
        QTextDocument document;
        document.setHtml("<b>a</b>b<p>c</p>"_s);
        const QString before = richTextFromDocument(&document);
        toggleBold(&document, 0, 4);
        QVERIFY(richTextFromDocument(&document) != before);
        document.undo();
        QCOMPARE(richTextFromDocument(&document), before);
    }
};

Q_DECLARE_METATYPE(Toggle)

KERNOVA_GUI_TEST_MAIN(tst_RichText)
#include "tst_richtext.moc"
