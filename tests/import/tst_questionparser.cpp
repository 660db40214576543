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
    void emptyMarkersGiveNothing();
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
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("pairs");
    QTest::newRow("two pairs") << "Q: one A: yes\nQ: two\nA: no\n"
                               << "Q:"
                               << "A:"
                               << "one>yes|two>no";
    QTest::newRow("text before the first") << "Intro A: x Q: a A: b"
                                           << "Q:"
                                           << "A:"
                                           << "a>b";
    QTest::newRow("case counts") << "q: a A: b"
                                 << "Q:"
                                 << "A:"
                                 << "";
    QTest::newRow("no answer marker") << "Q: a"
                                      << "Q:"
                                      << "A:"
                                      << "";
    QTest::newRow("empty text") << ""
                                << "Q:"
                                << "A:"
                                << "";
    QTest::newRow("last question without an answer") << "Q: a A: b Q: c"
                                                     << "Q:"
                                                     << "A:"
                                                     << "a>b";
    QTest::newRow("two questions in a row") << "Q: a Q: b A: c"
                                            << "Q:"
                                            << "A:"
                                            << "a Q: b>c";
    QTest::newRow("empty question") << "Q: A: text"
                                    << "Q:"
                                    << "A:"
                                    << "";
    QTest::newRow("empty question between") << "Q: a A: b Q: A: c Q: d A: e"
                                            << "Q:"
                                            << "A:"
                                            << "a>b|d>e";
    QTest::newRow("empty answer") << "Q: a A: Q: b A:"
                                  << "Q:"
                                  << "A:"
                                  << "a>|b>";
    QTest::newRow("one string for both") << "* a * b * c * d"
                                         << "*"
                                         << "*"
                                         << "a>b|c>d";
    QTest::newRow("one string, odd number") << "* a * b * c"
                                            << "*"
                                            << "*"
                                            << "a>b";
    QTest::newRow("markers inside tags") << "<b>Q:</b> a <b>A:</b> b"
                                         << "Q:"
                                         << "A:"
                                         << "</b> a <b>></b> b";
}

void tst_QuestionParser::textsAreCutAtTheMarkers() {
    QFETCH(QString, text);
    QFETCH(QString, question);
    QFETCH(QString, answer);
    QTEST(written(parseQuestions(text, question, answer, false)), "pairs");
}

void tst_QuestionParser::emptyMarkersGiveNothing() {
    const QString text = QStringLiteral("Q: a A: b");
    QVERIFY(parseQuestions(text, QString(), QStringLiteral("A:"), false).isEmpty());
    QVERIFY(parseQuestions(text, QStringLiteral("Q:"), QString(), false).isEmpty());
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
