#include "records/AnswerText.h"
#include "records/ProjectContext.h"
#include "records/QuestionAnswer.h"
#include "records/SimpleCipher.h"
#include "tests_support/TestMain.h"

namespace {

const QString wrapperStart = "<body style=\"white-space: pre-wrap;\">"_s;
const QString documentStart = "<html><head></head>"_s;

QuestionAnswer answerOf(const QString& text) {
    QuestionAnswer answer;
    answer.setAnswer(text);
    return answer;
}

class SecretProject : public ProjectContext {
public:
    SecretProject() { setCurrent(this); }

    QString encryptIfNeeded(const QString& text) const override { return cipher().encryptToString(text); }
    QString decryptIfNeeded(const QString& text) const override { return cipher().decryptToString(text); }
    QString decryptIfNeeded(const QByteArray& bytes) const override {
        return cipher().decryptToString(bytes);
    }
    QString questionText(int id) const override { return "question %1"_s.arg(id); }
    QString titleOfSource(int id) const override { return "source %1"_s.arg(id); }

private:
    static SimpleCipher cipher() { return SimpleCipher(0x0123456789abcdefULL); }
};

}  // namespace

class AnswerTextTest : public QObject {
    Q_OBJECT

private slots:
    void countsPositionsInPlainText_data() {
        columns<QString, bool, QString, QString>({"text", "isHtml", "plain", "rich"});
        addRow("word", "word", false, "word", "word");
        addRow("paragraphs", "<p>one</p><p>two</p>", true, "one\ntwo\n", "one\ntwo\n");
        addRow("fragment", wrapperStart + "\na <b>b</b>\n</body>", false, "a b", "a <b>b</b>");
        addRow("fragment with blank lines", wrapperStart + "\n\na\n\n</body>", false, "\na\n", "\na\n");
        addRow("line feeds of its own", "\na\n", false, "\na\n", "\na\n");
        addRow("a line feed alone", "\n", false, "\n", "\n");
        addRow("only line feeds", "\n\n", false, "\n\n", "\n\n");
        addRow("span is no document", "<span>x</span>", false, "x", "x");
        addRow("breaks", "<div>a<br>b</div>", true, "a\nb\n", "a\nb\n");
        addRow("rule and list", "<ol><li>a</li><li>b</li></ol><hr>", true, "a\nb\n\n", "a\nb\n\n");
        addRow("strong, em and u", "<p><strong>a</strong><em>b</em><u>c</u></p>", true, "abc\n",
               "<b>a</b>b<u>c</u>\n");
        addRow("entities", "<p>a &lt;b&gt; &amp; c&nbsp;d</p>", true, "a <b> & c\u00a0d\n"_s,
               "a <b> & c\u00a0d\n"_s);
        addRow("broken mark-up", "a <b>b <i>c", false, "a b c", "a <b>b <i>c</i></b>");
        addRow("emoji are two units", "a\U0001F331b"_s, false, "a\U0001F331b"_s, "a\U0001F331b"_s);
        addRow("comment and head", "<html><head><title>t</title></head><body>a<!-- b -->c</body></html>",
               true, "ac", "ac");
        addRow("empty", "", false, "", "");
        addRow("blank lines", " \n\n a", false, " \n\n a", " \n\n a");
        addRow("upper case isn't looked for", "<P>x</P>", false, "x\n", "x\n");
    }

    void countsPositionsInPlainText() {
        QFETCH(QString, text);
        const QuestionAnswer answer = answerOf(text);
        QTEST(answer.isHtml(), "isHtml");
        QTEST(answer.plainAnswer(), "plain");
        QTEST(answer.richAnswer(), "rich");
        QCOMPARE(answer.answerLength(), answer.plainAnswer().size());
        // The end of a line may follow, of an element that reaches beyond the part.
        const QString plain = answer.plainAnswer();
        for (int start = 0; start < plain.size(); ++start) {
            for (int length : {1, 2, 3, 100}) {
                const QuestionAnswer part(answer, start, length);
                const QString cut = part.plainAnswer();
                QVERIFY2(cut.startsWith(plain.mid(start, length)), qPrintable(cut));
                QVERIFY(cut.size() <= plain.mid(start, length).size() + 2);
                // Half of a character is written as another.
                QCOMPARE(HtmlDocument::parse(part.answer()).plainText(), QString::fromUtf8(cut.toUtf8()));
                QCOMPARE(part.offset(), start);
                QCOMPARE(QuestionAnswer(part, 0, 1).offset(), start);
                QCOMPARE(part.isHtml(), answer.isHtml());
            }
        }
    }

    void plainTextsNeedNoParser() {
        QRandomGenerator random(11);
        const QString alphabet = "ab \n\t>\"';/-"_s + "\u00e4\u00a0\u2028\ufffe\u0085"_s + QChar(1) +
                                 QChar(0x7f) + QChar(0xfdd1) + "\U0001F331\U0002FFFE"_s;
        for (int round = 0; round < 3000; ++round) {
            QString text;
            for (int i = random.bounded(20); i > 0; --i)
                text += alphabet.at(random.bounded(alphabet.size()));
            if (!HtmlDocument::isPlain(text))
                continue;
            const HtmlDocument quick = HtmlDocument::fromPlainText(text);
            const HtmlDocument parsed = HtmlDocument::parse(wrapperStart + text + "</body>"_s);
            QCOMPARE(quick.plainText(), parsed.plainText());
            QCOMPARE(quick.serialized(), parsed.serialized());
            QCOMPARE(quick.richText(), parsed.richText());
            QCOMPARE(quick.window(2, 5).serialized(), parsed.window(2, 5).serialized());
            // Nor do those that have entities for characters alone.
            QString escaped = (text + "& <"_s).toHtmlEscaped();
            if (round % 2 == 0)
                escaped.replace("&gt;"_s, ">"_s).replace("&quot;"_s, "\""_s);
            const AnswerText answer = AnswerText::prepare(escaped);
            const HtmlDocument whole = HtmlDocument::parse(wrapperStart + escaped + "</body>"_s);
            QCOMPARE(answer.plain(), whole.plainText());
            QCOMPARE(answer.document().serialized(), whole.serialized());
            QCOMPARE(answer.stored(), wrapperStart + escaped + "</body>"_s);
        }
        for (const QString& special : {"a<b"_s, "a&b"_s, "a\rb"_s, QString(QChar(0)), QString(QChar(0xd800))})
            QVERIFY(!HtmlDocument::isPlain(special));
    }

    void wrapsOnce() {
        const QString stored = answerOf("word"_s).storedAnswer();
        QCOMPARE(stored, wrapperStart + "word</body>"_s);
        QCOMPARE(answerOf(stored).storedAnswer(), stored);
        QCOMPARE(answerOf(stored).plainAnswer(), "word"_s);
        QVERIFY(!answerOf(stored).isHtml());

        // A second wrapper, as older files hold it, changes neither text nor positions.
        QCOMPARE(answerOf(wrapperStart + stored + "</body>"_s).plainAnswer(), "word"_s);
        const QJsonObject json{{"id"_s, 1}, {"answer"_s, stored}};
        QCOMPARE(QuestionAnswer(json, "").storedAnswer(), stored);
        QCOMPARE(answerOf("<p>x"_s).storedAnswer(), "<p>x"_s);
    }

    void cleansTextsUp() {
        const QString raw = "a\fb\u0007c\b\u0011\u0013\r\nd\u2028e\u07ecf\u07edg\u00e2\u0080\u00a8h"_s;
        QCOMPARE(answerOf(raw).plainAnswer(), "a\nbc\nd\u2028e\nf\ng\nh"_s);
        const QuestionAnswer read(QJsonObject{{"answer"_s, raw}}, "");
        QCOMPARE(read.plainAnswer(), "a\nbc\nd\ne\u07ecf\u07edg\u00e2\u0080\u00a8h"_s);
    }

    void serializesByTheStandard_data() {
        columns<QString, QString>({"html", "serialized"});
        addRow("text", "a > \"b\"", documentStart + "<body>a &gt; \"b\"</body></html>");
        addRow("attribute", "<p title='\"&<'>x",
               documentStart + "<body><p title=\"&quot;&amp;<\">x</p></body></html>");
        addRow("void", "a<br/>b<img src=x>", documentStart + "<body>a<br>b<img src=\"x\"></body></html>");
        addRow("doctype", "<!DOCTYPE html><p>x</p>",
               "<!DOCTYPE html>" + documentStart + "<body><p>x</p></body></html>");
        addRow("script", "<p>a</p><script>1<2</script>",
               documentStart + "<body><p>a</p><script>1<2</script></body></html>");
        addRow("unknown element", "<Foo>x</Foo>", documentStart + "<body><foo>x</foo></body></html>");
    }

    void serializesByTheStandard() {
        QFETCH(QString, html);
        QTEST(HtmlDocument::parse(html).serialized(), "serialized");
    }

    void refusesOnlyAbsurdNesting_data() {
        // of the plain text; 0 when refused
        columns<QString, int>({"text", "length"});
        const auto row = [](const char* name, const char* part, int count, int length, const char* end = "") {
            addRow(name, QString::fromLatin1(part).repeated(count) + QString::fromLatin1(end), length);
        };
        row("nested", "<div>", 1000, 1001, "x");
        row("line breaks", "<br>", 20001, 20001);
        row("paragraphs without end", "<p>x", 20001, 40002);
        row("closed ones", "<i>x</i>", 20001, 20001);
        row("comments", "<!--<div>-->x", 20001, 20001);
        row("quotes", "<i title='<b>' x=\"'\">x</i>", 20001, 20001);
        row("too deep", "<div>", 20001, 0);
        row("end tags in the wrong place", "<div></b>", 20001, 0);
        // None of the end tags here but the last closes anything.
        row("behind walls", "<div><object><applet></div></object></applet>", 10001, 0);
        row("within text", "<div><title></div></title>", 20001, 0);
        row("within quotes", "<div a=b= c='</div>'>", 20001, 0);
        row("outlived", "<div><b></div>", 20001, 0);
    }

    void refusesOnlyAbsurdNesting() {
        QFETCH(QString, text);
        const QuestionAnswer answer = answerOf(text);
        QTEST(answer.answerLength(), "length");
        if (answer.isHtml())
            QCOMPARE(answer.storedAnswer(), text);
    }

    // However a text is kept, and whatever was read before it.
    void keepsTextsOfAllCharacters() {
        QRandomGenerator random(3);
        QList<QString> texts;
        QList<QuestionAnswer> answers;
        for (ushort widest : {0x7f, 0xff, 0x100, 0x24f}) {
            for (int length : {0, 1, 999, 1000, 3000}) {
                QString text(length, QLatin1Char('x'));
                for (int i = 0; i < length; ++i)
                    text[i] = QChar(static_cast<ushort>(random.bounded(int('a'), widest + 1)));
                if (length > 0)
                    text[random.bounded(length)] = QChar(widest);
                texts << text;
                answers << answerOf(text);
            }
        }
        QuestionAnswer copy = answers.last();
        copy.setAnswer(texts.first());
        for (int round = 0; round < 200; ++round) {
            const int i = random.bounded(texts.size());
            QCOMPARE(answers.at(i).plainAnswer(), texts.at(i));
            QCOMPARE(answers.at(i).answerLength(), texts.at(i).size());
        }
    }

    void enciphersWithThePassword() {
        const SecretProject project;
        QuestionAnswer answer(1, 2, 3, {}, "Gr\u00fcn \U0001F331"_s, {});
        QCOMPARE(answer.question(), "question 2"_s);
        QCOMPARE(answer.sourceTitle(), "source 3"_s);
        const QString argument = answer.mutationArguments().last();
        QVERIFY(!argument.contains("Gr\u00fcn"_s));
        const QString stored = argument.mid(8, argument.size() - 9);
        const QuestionAnswer read(QJsonObject{{"answer"_s, stored}}, "");
        QCOMPARE(read.plainAnswer(), "Gr\u00fcn \U0001F331"_s);

        SimpleCipher wrong(1);
        expectWarning("Invalid version or not a cyphertext");
        QCOMPARE(QuestionAnswer(QJsonObject{{"answer"_s, stored}}, "", &wrong).plainAnswer(), QString());
    }
};

KERNOVA_TEST_MAIN(AnswerTextTest)
#include "tst_answertext.moc"
