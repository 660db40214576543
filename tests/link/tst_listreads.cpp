#include "link/ListReads.h"
#include "tests_support/TestMain.h"

/// The filtered list reads, text by text. A star stands for all fields of the record.
class tst_ListReads : public QObject {
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
};

void tst_ListReads::texts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* expected, const QString& text) {
        QTest::newRow(expected) << text << expected;
    };
    row("{highlightQueryList(kernoId:1){H}}", reads::highlightsOfKerno(1));
    row("{highlightQueryList(sourceId:1){H}}", reads::highlightsOfSource(1));
    row("{highlightQueryList(sourceId:1 questionId:2){H}}", reads::highlights(1, 2));
    row("{highlightQueryList(sourceId:1 questionId:2 kernoId:3){H}}", reads::highlights(1, 2, 3));
    row("{highlightQueryListWithOffset(sourceId:1 questionId:2 sourceOffset:3 sourceLength:-1){H}}",
        reads::highlightsInWindow(1, 2, 3, -1));
    row("{highlightQueryListBySourceQuestionAndKernos(sourceId:1 questionId:2 kernoIds:\"3,4\"){H}}",
        reads::highlightsOfKernos(1, 2, QStringLiteral("3,4")));
    row("{highlightQueryList{id}}", reads::highlightIds());
    row("{highlightQueryList(sourceId:1){id}}", reads::highlightIdsOfSource(1));
    row("{highlightQueryList(kernoId:1){id}}", reads::highlightIdsOfKerno(1));
    row("{highlightQueryList(kernoId:1 sourceId:2){id}}", reads::highlightIdsOfKernoAndSource(1, 2));
    row("{highlightQueryList(questionId:1){id}}", reads::highlightIdsOfQuestion(1));
    row("{highlightQueryList(questionId:1 sourceId:2){id}}", reads::highlightIdsOfQuestionAndSource(1, 2));
    row("{memoQueryList(sourceId:1){M}}", reads::memosOfSource(1));
    row("{memoQueryList(sourceId:1 questionId:2){M}}", reads::memos(1, 2));
    row("{memoQueryListWithOffset(sourceId:1 questionId:2 sourceOffset:3 sourceLength:4){M}}",
        reads::memosInWindow(1, 2, 3, 4));
    row("{questionAnswerQueryList(sourceId:1){A}}", reads::answersOfSource(1));
    row("{kernoQueryList(parentKernoId:-1){id}}", reads::kernoIdsOfParent(-1));
    row("{kernoQueryList{id}}", reads::kernoIds());
    row("{kernoQueryList{parentKernoId}}", reads::parentKernoIds());
    row("{questionQueryList{id}}", reads::questionIds());
    row("{sourceQueryList{id}}", reads::sourceIds());
    row("{sourceMetadataKeyQueryList(name:\"a\\\"b\"){K}}",
        reads::metadataKeysByName(QStringLiteral("a\"b")));
    row("{sourceMetadataValueQueryList(keyId:1){V}}", reads::metadataValuesOfKey(1));
}

void tst_ListReads::texts() {
    QFETCH(QString, text);
    QFETCH(QString, expected);
    expected.replace(QLatin1String("{H}"),
                     QLatin1String("{id kernoId sourceId questionId color start length author timestamp}"));
    expected.replace(QLatin1String("{M}"),
                     QLatin1String("{id sourceId questionId content start length author timestamp}"));
    for (const char* record : {"{A}", "{K}", "{V}"}) {
        if (expected.contains(QLatin1String(record))) {
            expected.truncate(expected.indexOf(QLatin1String(record)));
            QVERIFY(text.endsWith(QLatin1String("}}")));
            QVERIFY(text.contains(QLatin1String("{id ")));
            text.truncate(expected.size());
        }
    }
    QCOMPARE(text, expected);
}

KERNOVA_TEST_MAIN(tst_ListReads)
#include "tst_listreads.moc"
