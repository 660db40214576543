#include "import/TextFile.h"
#include "tests_support/TestMain.h"

#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTest>

class tst_TextFile : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("fileImport.debug=false")); }
    void bytesAreReadAsText_data();
    void bytesAreReadAsText();
    void otherKindsAreRefused_data();
    void otherKindsAreRefused();
    void aMissingFileHasNoText();
    void aFolderOffersItsTextFilesByName();
    void aTitleIsTheNameUpToTheLastDot_data();
    void aTitleIsTheNameUpToTheLastDot();

private:
    QUrl write(const QString& name, const QByteArray& bytes);

    QTemporaryDir m_folder;
};

QUrl tst_TextFile::write(const QString& name, const QByteArray& bytes) {
    QFile file(m_folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write the file of the test");
    return QUrl::fromLocalFile(file.fileName());
}

void tst_TextFile::bytesAreReadAsText_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("UTF-8") << QByteArray("caf\xC3\xA9 \xF0\x9F\x98\x80")
                           << QString::fromUtf8("caf\xC3\xA9 \xF0\x9F\x98\x80");
    QTest::newRow("Windows line ends") << QByteArray("a\r\nb\r\n") << QStringLiteral("a\nb\n");
    QTest::newRow("blanks stay") << QByteArray("  a \t b\n\n") << QStringLiteral("  a \t b\n\n");
    QTest::newRow("markup stays") << QByteArray("1 < 2 <b>x") << QStringLiteral("1 < 2 <b>x");
}

void tst_TextFile::bytesAreReadAsText() {
    QFETCH(QByteArray, bytes);
    const textfile::Reading reading = textfile::read(write(QStringLiteral("some.notes"), bytes));
    QVERIFY(reading.refusal.isEmpty());
    QTEST(reading.text, "text");
}

void tst_TextFile::otherKindsAreRefused_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"a.rtf", "a.docx", "a.pdf", "REPORT.DOCX", "a.b.Pdf"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_TextFile::otherKindsAreRefused() {
    QFETCH(QString, name);
    const textfile::Reading reading = textfile::read(write(name, "PK garbage"));
    QVERIFY(reading.text.isEmpty());
    QVERIFY2(reading.refusal.contains(name), qPrintable(reading.refusal));
}

void tst_TextFile::aMissingFileHasNoText() {
    const textfile::Reading reading =
        textfile::read(QUrl::fromLocalFile(m_folder.filePath(QStringLiteral("none.txt"))));
    QVERIFY(reading.text.isEmpty());
    QVERIFY(reading.refusal.isEmpty());
}

void tst_TextFile::aFolderOffersItsTextFilesByName() {
    QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("folder.txt"));
    for (const char* name : {"b.txt", "a.txt", "c.doc", "notes"}) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QStringList names;
    for (const QUrl& url : textfile::importableFiles(QUrl::fromLocalFile(folder.path())))
        names << url.fileName();
    QCOMPARE(names, QStringList({"a.txt", "b.txt"}));
}

void tst_TextFile::aTitleIsTheNameUpToTheLastDot_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("title");
    QTest::newRow("suffix") << "/x/Interview 1.txt"
                            << "Interview 1";
    QTest::newRow("dots") << "/x/a.b.txt"
                          << "a.b";
    QTest::newRow("no dot") << "/x/notes"
                            << "notes";
    QTest::newRow("odd characters") << "/x/50% #1?.txt"
                                    << "50% #1?";
}

void tst_TextFile::aTitleIsTheNameUpToTheLastDot() {
    QFETCH(QString, path);
    QTEST(textfile::titleFor(QUrl::fromLocalFile(path)), "title");
}

KERNOVA_TEST_MAIN(tst_TextFile)
#include "tst_textfile.moc"
