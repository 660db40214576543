#include "records/AnswerText.h"
#include "records/ProjectContext.h"
#include "records/QuestionAnswer.h"
#include "records/SimpleCipher.h"
#include "tests_support/TestMain.h"

#include <QRandomGenerator>

namespace {

const QString wrapperStart = QStringLiteral("<body style=\"white-space: pre-wrap;\">");
const QString documentStart = QStringLiteral("<html><head></head>");

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
    QString questionText(int id) const override { return QStringLiteral("question %1").arg(id); }
    QString titleOfSource(int id) const override { return QStringLiteral("source %1").arg(id); }

private:
    static SimpleCipher cipher() { return SimpleCipher(0x0123456789abcdefULL); }
};

}  // namespace

class AnswerTextTest : public QObject {
    Q_OBJECT

private slots:
    void countsPositionsInPlainText_data();
    void countsPositionsInPlainText();
    void plainTextsNeedNoParser();
    void wrapsOnce();
    void cleansTextsUp();
    void serializesByTheStandard_data();
    void serializesByTheStandard();
    void cutsWindows_data();
    void cutsWindows();
    void refusesOnlyAbsurdNesting_data();
    void refusesOnlyAbsurdNesting();
    void keepsTextsOfAllCharacters();
    void enciphersWithThePassword();
};

void AnswerTextTest::countsPositionsInPlainText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isHtml");
    QTest::addColumn<QString>("plain");
    QTest::addColumn<QString>("rich");
    QTest::newRow("word") << "word" << false << "word"
                          << "word";
    QTest::newRow("paragraphs") << "<p>one</p><p>two</p>" << true << "one\ntwo\n"
                                << "one\ntwo\n";
    QTest::newRow("fragment") << wrapperStart + "\na <b>b</b>\n</body>" << false << "a b"
                              << "a <b>b</b>";
    QTest::newRow("fragment with blank lines") << wrapperStart + "\n\na\n\n</body>" << false << "\na\n"
                                               << "\na\n";
    QTest::newRow("line feeds of its own") << "\na\n"
                                           << false << "\na\n"
                                           << "\na\n";
    QTest::newRow("a line feed alone") << "\n"
                                       << false << "\n"
                                       << "\n";
    QTest::newRow("only line feeds") << "\n\n"
                                     << false << "\n\n"
                                     << "\n\n";
    QTest::newRow("span is no document") << "<span>x</span>" << false << "x"
                                         << "x";
    QTest::newRow("breaks") << "<div>a<br>b</div>" << true << "a\nb\n"
                            << "a\nb\n";
    QTest::newRow("rule and list") << "<ol><li>a</li><li>b</li></ol><hr>" << true << "a\nb\n\n"
                                   << "a\nb\n\n";
    QTest::newRow("strong, em and u") << "<p><strong>a</strong><em>b</em><u>c</u></p>" << true << "abc\n"
                                      << "<b>a</b>b<u>c</u>\n";
    QTest::newRow("entities") << "<p>a &lt;b&gt; &amp; c&nbsp;d</p>" << true
                              << QStringLiteral("a <b> & c\u00a0d\n") << QStringLiteral("a <b> & c\u00a0d\n");
    QTest::newRow("broken mark-up") << "a <b>b <i>c" << false << "a b c"
                                    << "a <b>b <i>c</i></b>";
    QTest::newRow("emoji are two units") << QStringLiteral("a\U0001F331b") << false
                                         << QStringLiteral("a\U0001F331b") << QStringLiteral("a\U0001F331b");
    QTest::newRow("comment and head")
        << "<html><head><title>t</title></head><body>a<!-- b -->c</body></html>" << true << "ac"
        << "ac";
    QTest::newRow("empty") << "" << false << ""
                           << "";
    QTest::newRow("blank lines") << " \n\n a" << false << " \n\n a"
                                 << " \n\n a";
    QTest::newRow("upper case isn't looked for") << "<P>x</P>" << false << "x\n"
                                                 << "x\n";
}

void AnswerTextTest::countsPositionsInPlainText() {
    QFETCH(QString, text);
    const QuestionAnswer answer = answerOf(text);
    QTEST(answer.isHtml(), "isHtml");
    QTEST(answer.plainAnswer(), "plain");
    QTEST(answer.richAnswer(), "rich");
    QCOMPARE(answer.answerLength(), answer.plainAnswer().size());
    // The end of a line may follow, of an element that reaches beyond the part.
    const QString plain = answer.plainAnswer();
    for (int start = 0; start < plain.size(); ++start) {
        for (int length = 1; start + length <= plain.size(); ++length)
            QVERIFY2(QuestionAnswer(answer, start, length).plainAnswer().startsWith(plain.mid(start, length)),
                     qPrintable(QuestionAnswer(answer, start, length).plainAnswer()));
    }
}

void AnswerTextTest::plainTextsNeedNoParser() {
    QRandomGenerator random(11);
    const QString alphabet = QStringLiteral("ab \n\t>\"';/-") +
                             QStringLiteral("\u00e4\u00a0\u2028\ufffe\u0085") + QChar(1) + QChar(0x7f) +
                             QChar(0xfdd1) + QStringLiteral("\U0001F331\U0002FFFE");
    for (int round = 0; round < 3000; ++round) {
        QString text;
        for (int i = random.bounded(20); i > 0; --i)
            text += alphabet.at(random.bounded(alphabet.size()));
        if (!HtmlDocument::isPlain(text))
            continue;
        const HtmlDocument quick = HtmlDocument::fromPlainText(text);
        const HtmlDocument parsed = HtmlDocument::parse(wrapperStart + text + QStringLiteral("</body>"));
        QCOMPARE(quick.plainText(), parsed.plainText());
        QCOMPARE(quick.serialized(), parsed.serialized());
        QCOMPARE(quick.richText(), parsed.richText());
        QCOMPARE(quick.window(2, 5).serialized(), parsed.window(2, 5).serialized());
    }
    for (const QString& special : {QStringLiteral("a<b"), QStringLiteral("a&b"), QStringLiteral("a\rb"),
                                   QString(QChar(0)), QString(QChar(0xd800))})
        QVERIFY(!HtmlDocument::isPlain(special));
}

void AnswerTextTest::wrapsOnce() {
    const QString stored = answerOf(QStringLiteral("word")).storedAnswer();
    QCOMPARE(stored, wrapperStart + QStringLiteral("word</body>"));
    QCOMPARE(answerOf(stored).storedAnswer(), stored);
    QCOMPARE(answerOf(stored).plainAnswer(), QStringLiteral("word"));
    QVERIFY(!answerOf(stored).isHtml());

    // A second wrapper, as older files hold it, changes neither text nor positions.
    QCOMPARE(answerOf(wrapperStart + stored + QStringLiteral("</body>")).plainAnswer(),
             QStringLiteral("word"));
    const QJsonObject json{{QStringLiteral("id"), 1}, {QStringLiteral("answer"), stored}};
    QCOMPARE(QuestionAnswer(json, "").storedAnswer(), stored);
    QCOMPARE(answerOf(QStringLiteral("<p>x")).storedAnswer(), QStringLiteral("<p>x"));
}

void AnswerTextTest::cleansTextsUp() {
    const QString raw =
        QStringLiteral("a\fb\u0007c\b\u0011\u0013\r\nd\u2028e\u07ecf\u07edg\u00e2\u0080\u00a8h");
    QCOMPARE(answerOf(raw).plainAnswer(), QStringLiteral("a\nbc\nd\u2028e\nf\ng\nh"));
    const QuestionAnswer read(QJsonObject{{QStringLiteral("answer"), raw}}, "");
    QCOMPARE(read.plainAnswer(), QStringLiteral("a\nbc\nd\ne\u07ecf\u07edg\u00e2\u0080\u00a8h"));
}

void AnswerTextTest::serializesByTheStandard_data() {
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("serialized");
    QTest::newRow("text") << "a > \"b\"" << documentStart + "<body>a &gt; \"b\"</body></html>";
    QTest::newRow("attribute") << "<p title='\"&<'>x"
                               << documentStart + "<body><p title=\"&quot;&amp;<\">x</p></body></html>";
    QTest::newRow("void") << "a<br/>b<img src=x>"
                          << documentStart + "<body>a<br>b<img src=\"x\"></body></html>";
    QTest::newRow("doctype") << "<!DOCTYPE html><p>x</p>"
                             << "<!DOCTYPE html>" + documentStart + "<body><p>x</p></body></html>";
    QTest::newRow("script") << "<p>a</p><script>1<2</script>"
                            << documentStart + "<body><p>a</p><script>1<2</script></body></html>";
    QTest::newRow("unknown element") << "<Foo>x</Foo>" << documentStart + "<body><foo>x</foo></body></html>";
}

void AnswerTextTest::serializesByTheStandard() {
    QFETCH(QString, html);
    QTEST(HtmlDocument::parse(html).serialized(), "serialized");
}

void AnswerTextTest::cutsWindows_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("plain");
    QTest::addColumn<QString>("serialized");
    QTest::newRow("plain") << "one two" << 4 << 3 << "two"
                           << documentStart + wrapperStart + "two</body></html>";
    QTest::newRow("across tags") << "a<b>bcd</b>e" << 2 << 3 << "cde"
                                 << documentStart + wrapperStart + "<b>cd</b>e</body></html>";
    QTest::newRow("lines outside go") << "<p>one</p><p>two</p>" << 4 << 3 << "two\n"
                                      << documentStart + "<body><p>two</p></body></html>";
    QTest::newRow("past the end") << "abc" << 2 << 100 << "c"
                                  << documentStart + wrapperStart + "c</body></html>";
}

void AnswerTextTest::cutsWindows() {
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(int, length);
    const QuestionAnswer whole = answerOf(text);
    const QuestionAnswer part(whole, start, length);
    QTEST(part.plainAnswer(), "plain");
    QTEST(part.answer(), "serialized");
    QCOMPARE(part.offset(), start);
    QCOMPARE(part.isHtml(), whole.isHtml());
    QCOMPARE(QuestionAnswer(part, 1, 1).offset(), start + 1);
    QCOMPARE(whole.offset(), 0);
}

void AnswerTextTest::refusesOnlyAbsurdNesting_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("length");  // of the plain text; 0 when refused
    const auto row = [](const char* name, const char* part, int count, int length, const char* end = "") {
        QTest::newRow(name) << QString::fromLatin1(part).repeated(count) + QString::fromLatin1(end) << length;
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

void AnswerTextTest::refusesOnlyAbsurdNesting() {
    QFETCH(QString, text);
    const QuestionAnswer answer = answerOf(text);
    QTEST(answer.answerLength(), "length");
    if (answer.isHtml())
        QCOMPARE(answer.storedAnswer(), text);
}

// However a text is kept, and whatever was read before it.
void AnswerTextTest::keepsTextsOfAllCharacters() {
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

void AnswerTextTest::enciphersWithThePassword() {
    const SecretProject project;
    QuestionAnswer answer(1, 2, 3, {}, QStringLiteral("Gr\u00fcn \U0001F331"), {});
    QCOMPARE(answer.question(), QStringLiteral("question 2"));
    QCOMPARE(answer.sourceTitle(), QStringLiteral("source 3"));
    const QString argument = answer.mutationArguments().last();
    QVERIFY(!argument.contains(QStringLiteral("Gr")));
    const QString stored = argument.mid(8, argument.size() - 9);
    const QuestionAnswer read(QJsonObject{{QStringLiteral("answer"), stored}}, "");
    QCOMPARE(read.plainAnswer(), QStringLiteral("Gr\u00fcn \U0001F331"));

    SimpleCipher wrong(1);
    expectWarning("Invalid version or not a cyphertext");
    QCOMPARE(QuestionAnswer(QJsonObject{{QStringLiteral("answer"), stored}}, "", &wrong).plainAnswer(),
             QString());
}

KERNOVA_TEST_MAIN(AnswerTextTest)
#include "tst_answertext.moc"
