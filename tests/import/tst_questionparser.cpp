#include "import/QuestionParser.h"
#include "tests_support/TestMain.h"

namespace {

QString written(const QVariantList& pairs) {
    QStringList lines;
    for (const QVariant& pair : pairs) {
        const QVariantMap map = pair.toMap();
        lines << map.value("question"_s).toString() + QLatin1Char('>') + map.value("answer"_s).toString();
    }
    return lines.join(QLatin1Char('|'));
}

}  // namespace

class tst_QuestionParser : public QObject {
    Q_OBJECT

private slots:
    void textsAreCutAtTheMarkers_data() {
        columns<QString, QString, QString, QString>({"text", "pairs", "question", "answer"});
        const auto row = [](const char* name, const char* text, const char* pairs,
                            const char* question = "Q:", const char* answer = "A:") {
            addRow(name, QString(text), QString(pairs), QString(question), QString(answer));
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

    void textsAreCutAtTheMarkers() {
        FETCH(QString, text, QString, question, QString, answer);
        QTEST(written(parseQuestions(text, question, answer, false)), "pairs");
    }

    void aWholeTextIsOnePair_data() {
        columns<QString, QString>({"text", "question"});
        const QString hundred(100, QLatin1Char('x'));
        addRow("short", " a\nb ", " a\nb ");
        addRow("100 characters", hundred, hundred);
        addRow("101 characters", hundred + QLatin1Char('y'), hundred + "..."_s);
    }

    void aWholeTextIsOnePair() {
        QFETCH(QString, text);
        const QVariantList pairs = parseQuestions(text, QString(), QString(), true);
        QCOMPARE(pairs.size(), 1);
        QCOMPARE(pairs.first().toMap().value("answer"_s).toString(), text);
        QTEST(pairs.first().toMap().value("question"_s).toString(), "question");
        QVERIFY(parseQuestions(QString(), QString(), QString(), true).isEmpty());
    }
};

KERNOVA_TEST_MAIN(tst_QuestionParser)
#include "tst_questionparser.moc"
