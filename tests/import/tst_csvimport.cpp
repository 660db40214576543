#include "UndoProject.h"
#include "import/TransposedCSVImportModel.h"
#include "tests_support/TestMain.h"

using Type = CSVImportModel::ColumnType;

/// Tables that become sources of a project at the real service.
class tst_CsvImport : public QObject {
    Q_OBJECT

private slots:
    void rowsAreReadAsTheyWereWritten();
    void theReaderKeepsItsRules_data();
    void theReaderKeepsItsRules();
    void tablesAreRefused_data();
    void tablesAreRefused();
    void rowsBecomeSources();
    void theFirstTableNamesTheQuestion();

private:
    QUrl write(const QByteArray& bytes);

    QTemporaryDir m_folder;
};

QUrl tst_CsvImport::write(const QByteArray& bytes) {
    writeBytes(m_folder.filePath("table.csv"), bytes);
    return QUrl::fromLocalFile(m_folder.filePath("table.csv"));
}

// Any texts, quoted where they must be and where they need not be, with line ends of any kind.
void tst_CsvImport::rowsAreReadAsTheyWereWritten() {
    const QStringList pieces{"a", ",", "\"", "'", "\n", "\r\n", "\t", " ", "\U0001F600"_s, "\\", ";"};
    const QStringList ends{"\n", "\r\n", "\r", "\n\n", QString(QChar(0x2028))};
    QRandomGenerator random(3);
    for (int round = 0; round < 500; ++round) {
        QVector<QStringList> rows;
        QString text;
        for (int r = random.bounded(1, 5); r > 0; --r) {
            QStringList row{"first"};
            for (int f = random.bounded(4); f > 0; --f) {
                QString field;
                for (int p = random.bounded(5); p > 0; --p)
                    field += pieces[random.bounded(pieces.size())];
                row << field;
            }
            QStringList quoted;
            for (const QString& field : row) {
                const bool must = field.contains(QRegularExpression("[\",\r\n\t]"));
                quoted << (must || random.bounded(2) ? '"' + QString(field).replace("\"", "\"\"") + '"'
                                                     : field);
            }
            rows << row;
            text += quoted.join(',') + (r > 1 || random.bounded(2) ? ends[random.bounded(ends.size())] : "");
        }
        QCOMPARE(csvRows(text), rows);
    }
}

void tst_CsvImport::theReaderKeepsItsRules_data() {
    columns<QByteArray, QString>({"bytes", "rows"});
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf\"a\",b\n1,2") << "a|b/1|2";
    QTest::newRow("UTF-16") << QByteArray("\xff\xfe"
                                          "a\0,\0b\0\n\0\x31\0",
                                          12)
                            << "a|b/1";
    QTest::newRow("a quote left open") << QByteArray("a,b\n1,\"2\n3") << "a|b/1|2\n3";
    QTest::newRow("a quote within") << QByteArray("a\n5\" pipe\n") << "a/5\" pipe";
    QTest::newRow("a quoted header") << QByteArray("\"\"\"a\"\"\",\"b\"\"\"\n1") << "a|b\"/1";
    QTest::newRow("longer rows") << QByteArray("a\n1,2,3\n") << "a/1|2|3";
    QTest::newRow("nothing") << QByteArray() << "";
}

void tst_CsvImport::theReaderKeepsItsRules() {
    QFETCH(QByteArray, bytes);
    CSVImportModel table;
    QAbstractItemModelTester tester(&table);
    table.readFile(write(bytes).toLocalFile());
    QStringList rows{table.header().join('|')};
    for (int row = 0; row < table.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table.columnCount(); ++column)
            cells << table.text(row, column);
        while (cells.last().isEmpty())
            cells.removeLast();
        rows << cells.join('|');
    }
    QTEST(rows.join('/'), "rows");
}

void tst_CsvImport::tablesAreRefused_data() {
    columns<QByteArray, QList<int>, bool, QString>({"bytes", "types", "singleQuestion", "refusal"});
    const QByteArray two("Q,Q,R\n1,2,3\n");
    const char duplicate[] = "One or more identical questions appear multiple times.";
    const char onlyOne[] = "Only one question may be selected in free flow text mode.";
    const auto row = [](const char* name, const QByteArray& bytes, const QList<int>& types, bool single,
                        const char* refusal) {
        QTest::newRow(name) << bytes << types << single << QString::fromLatin1(refusal);
    };
    row("no question", two, {0, 1, 3}, false, "Please select at least one question.");
    row("two in plain texts", two, {2, 0, 2}, true, onlyOne);
    row("two", two, {2, 0, 2}, false, "");
    row("the same twice", two, {2, 2, 0}, false, duplicate);
    row("the same twice in plain texts", two, {2, 2, 0}, true, duplicate);
    row("no rows", "Q\n", {2}, true, "The selected file has no entries to import.");
}

void tst_CsvImport::tablesAreRefused() {
    FETCH(QByteArray, bytes, QList<int>, types, bool, singleQuestion);
    TransposedCSVImportModel model;
    QAbstractItemModelTester tester(&model);
    model.openFile(write(bytes));
    for (int i = 0; i < types.size(); ++i)
        model.setSectionType(i, types[i]);
    QTEST(model.table().refusal(singleQuestion), "refusal");
}

// In a project of questions, some of which it has, as well as properties and values; undone and done again.
void tst_CsvImport::rowsBecomeSources() {
    UndoProject project;
    QVERIFY2(project.open(), qPrintable(project.error));
    const QJsonObject before = project.json();
    TransposedCSVImportModel model;
    QVERIFY(!project.undo.importSourcesFromCSV(nullptr) && !project.undo.importSourcesFromCSV(&model));
    QVERIFY(model.openFile(write("Name,\"What happened?\",New?,Age,Town,Town,Skipped\r\n"
                                 "Dora,\"1 < 2, <b>so</b>\r\n<x> & \"\"y\"\"\",,30,Ulm,Ulm,z\r\n"
                                 "  ,,\"Yes\nno\",31,Ulm,\"Bonn, old\",z\r\n"
                                 "Emil,third,,,,,\r\n")));
    QVERIFY(!project.undo.importSourcesFromCSV(&model));
    QCOMPARE(project.undo.count(), 0);
    const QList<Type> types{Type::Title,    Type::Question, Type::Question, Type::Property,
                            Type::Property, Type::Property, Type::Ignore};
    for (int i = 0; i < types.size(); ++i)
        model.setSectionType(i, types[i]);
    QVERIFY(project.undo.importSourcesFromCSV(&model));
    QCOMPARE(project.undo.count(), 1);
    const QJsonObject after = project.json();
    QCOMPARE(
        undotest::countChanges(before, after),
        QString("question_answers +12, questions +1, source_metadata_keys +1, source_metadata_values +3, "
                "source_metadatas +5, sources +3"));

    QStringList told;
    const KRNFile& file = project.file;
    for (const Source& source : file.sourceModel()->snapshot().mid(3)) {
        told << source.title() + " by " + source.author();
        for (const QuestionAnswer& answer : file.answerModel()->answers(source.id()))
            told << QString("%1 %2").arg(answer.question(), answer.plainAnswer());
        for (const SourceMetadata& link : file.metadataModel()->linksOfSource(source.id()))
            told << file.metadataKey(link.keyId()).key() + '=' +
                        file.metadataValueModel()->record(link.valueId()).value().toString();
    }
    const int second = file.sourceModel()->snapshot().at(4).id();
    QCOMPARE(
        told.join('/'),
        QString("Dora by Bea/What happened? 1 < 2, so\n<x> & \"y\"/And \"then\"?\\ /New? /Age=30/Town=Ulm/"
                "Source %1 by Bea/What happened? /And \"then\"?\\ /New? Yes\nno/Age=31/Town=Ulm/"
                "Town=Bonn, old/Emil by Bea/What happened? third/And \"then\"?\\ /New? ")
            .arg(second));
    QVERIFY(file.metadataKeyModel()->snapshot().last().multipleChoice());

    project.undo.undo();
    QCOMPARE(project.json(), before);
    project.undo.redo();
    QCOMPARE(undotest::countChanges(after, project.json()), QString());
    QCOMPARE(project.json()["source_metadatas"], after["source_metadatas"]);
}

void tst_CsvImport::theFirstTableNamesTheQuestion() {
    UndoProject project;
    QVERIFY2(project.open(), qPrintable(project.error));
    const QJsonObject plain{{"name", m_folder.filePath("plain.krn")}};
    QVERIFY(project.file.openProject(plain, true, {}, true, true));
    project.undo.clearStack();
    const QJsonObject before = project.json();
    TransposedCSVImportModel model;
    QVERIFY(model.openFile(write("How was it?,N\nWell,1\nBadly,2\n")));
    model.setSectionType(0, Type::Question);
    QVERIFY(project.undo.importSourcesFromCSV(&model));
    project.settle();
    QCOMPARE(project.file.questionText(1), QString("How was it?"));
    QVERIFY(project.undo.importSourcesFromCSV(&model));
    QCOMPARE(undotest::countChanges(before, project.json()), QString("question_answers +4, sources +4"));
    project.undo.undo();
    project.undo.undo();
    QCOMPARE(project.json(), before);
}

KERNOVA_GUI_TEST_MAIN(tst_CsvImport)
#include "tst_csvimport.moc"
