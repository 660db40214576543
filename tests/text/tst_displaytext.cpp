#include "records/QuestionAnswer.h"
#include "tests_support/TestMain.h"
#include "text/DisplayText.h"

#include <QTextDocument>

class DisplayTextTest : public QObject {
    Q_OBJECT

private slots:
    void keepsPositionsInMarkedUpTexts_data() {
        QTest::addColumn<QString>("text");
        const QString start = "<body style=\"white-space: pre-wrap;\">"_s;
        addRow("fragment", start + "\na <b>b</b>\nc\n</body>");
        addRow("bold from the first line feed", start + "\n<b>\na</b> b <u>c\n</u>\n</body>");
        addRow("entities", start + "a &lt;b&gt; &amp;&amp; c</body>");
        addRow("pictures", start + "a <IMG alt='>' src=\"http://x.invalid/p.png\"/>b <img>c</body>");
        addRow("blank lines around", "\n\n\na\n\n\n");
    }

    void keepsPositionsInMarkedUpTexts() {
        QFETCH(QString, text);
        QuestionAnswer answer;
        answer.setAnswer(text);
        QCOMPARE(shown(answer), answer.plainAnswer());
    }

private:
    static QString shown(const QuestionAnswer& answer) {
        QTextDocument document;
        document.setHtml(displayHtml(answer.answer()));
        return document.toRawText()
            .replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'))
            .replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
    }
};

KERNOVA_GUI_TEST_MAIN(DisplayTextTest)
#include "tst_displaytext.moc"
