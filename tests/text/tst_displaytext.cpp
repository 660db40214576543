#include "records/QuestionAnswer.h"
#include "tests_support/TestMain.h"
#include "text/DisplayText.h"

#include <QTextDocument>

class DisplayTextTest : public QObject {
    Q_OBJECT

private slots:
    void keepsPositionsInMarkedUpTexts_data();
    void keepsPositionsInMarkedUpTexts();

private:
    static QString shown(const QuestionAnswer& answer) {
        QTextDocument document;
        document.setHtml(displayHtml(answer.answer()));
        return document.toRawText()
            .replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'))
            .replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
    }
};

void DisplayTextTest::keepsPositionsInMarkedUpTexts_data() {
    QTest::addColumn<QString>("text");
    const QString start = QStringLiteral("<body style=\"white-space: pre-wrap;\">");
    QTest::newRow("fragment") << start + "\na <b>b</b>\nc\n</body>";
    QTest::newRow("bold from the first line feed") << start + "\n<b>\na</b> b <u>c\n</u>\n</body>";
    QTest::newRow("entities") << start + "a &lt;b&gt; &amp;&amp; c</body>";
    QTest::newRow("pictures") << start + "a <IMG alt='>' src=\"http://x.invalid/p.png\"/>b <img>c</body>";
    QTest::newRow("blank lines around") << "\n\n\na\n\n\n";
}

void DisplayTextTest::keepsPositionsInMarkedUpTexts() {
    QFETCH(QString, text);
    QuestionAnswer answer;
    answer.setAnswer(text);
    QCOMPARE(shown(answer), answer.plainAnswer());
}

KERNOVA_GUI_TEST_MAIN(DisplayTextTest)
#include "tst_displaytext.moc"
