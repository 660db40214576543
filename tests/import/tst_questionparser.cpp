#include "import/QuestionParser.h"
#include "tests_support/TestMain.h"

#include <QLoggingCategory>
#include <QTest>

class tst_QuestionParser : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("fileImport.debug=false")); }
    void textsAreCutAtTheMarkers_data();
    void textsAreCutAtTheMarkers();
    void aWholeTextIsOnePair_data();
    void aWholeTextIsOnePair();
};

namespace {

QString written(const QVariantList& pairs) {
    QStringList lines;
    for (const QVariant& pair : pairs) {
        const QVariantMap map = pair.toMap();
        lines << map.value(QStringLiteral("question")).toString() + QLatin1Char('>') +
                     map.value(QStringLiteral("answer")).toString();
    }
    return lines.join(QLatin1Char('|'));
}

}  // namespace

void tst_QuestionParser::textsAreCutAtTheMarkers_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("pairs");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("answer");
    const auto row = [](const char* name, const char* text, const char* pairs,
                        const char* question = "Q:", const char* answer = "A:") {
        QTest::newRow(name) << QString(text) << QString(pairs) << QString(question) << QString(answer);
    };
    row("two pairs", "Q: one A: yes\nQ: two\nA: no\n", "one>yes|two>no");
    row("text before the first", "Intro A: x Q: a A: b", "a>b");
    row("case counts", "q: a A: b", "");
    row("no answer marker", "Q: a", "");
    row("empty text", "", "");
    row("last question without an answer", "Q: a A: b Q: c", "a>b");
    row("two questions in a row", "Q: a Q: b A: c", "a Q: b>c");
    row("empty question", "Q: A: text", "");
    row("empty question between", "Q: a A: b Q: A: c Q: d A: e", "a>b|d>e");
    row("empty answer", "Q: a A: Q: b A:", "a>|b>");
    row("one string for both", "* a * b * c * d", "a>b|c>d", "*", "*");
    row("one string, odd number", "* a * b * c", "a>b", "*", "*");
    row("markers inside tags", "<b>Q:</b> a <b>A:</b> b", "</b> a <b>></b> b");
    row("no question marker", "Q: a A: b", "", "", "A:");
    row("no marker of answers", "Q: a A: b", "", "Q:", "");
}

void tst_QuestionParser::textsAreCutAtTheMarkers() {
    QFETCH(QString, text);
    QFETCH(QString, question);
    QFETCH(QString, answer);
    QTEST(written(parseQuestions(text, question, answer, false)), "pairs");
}

void tst_QuestionParser::aWholeTextIsOnePair_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("question");
    const QString hundred(100, QLatin1Char('x'));
    QTest::newRow("short") << " a\nb "
                           << " a\nb ";
    QTest::newRow("100 characters") << hundred << hundred;
    QTest::newRow("101 characters") << hundred + QLatin1Char('y') << hundred + QStringLiteral("...");
}

void tst_QuestionParser::aWholeTextIsOnePair() {
    QFETCH(QString, text);
    const QVariantList pairs = parseQuestions(text, QString(), QString(), true);
    QCOMPARE(pairs.size(), 1);
    QCOMPARE(pairs.first().toMap().value(QStringLiteral("answer")).toString(), text);
    QTEST(pairs.first().toMap().value(QStringLiteral("question")).toString(), "question");
    QVERIFY(parseQuestions(QString(), QString(), QString(), true).isEmpty());
}

KERNOVA_TEST_MAIN(tst_QuestionParser)
#include "tst_questionparser.moc"
