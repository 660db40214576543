#include "import/TextFile.h"
#include "tests_support/TestMain.h"

#include <QTemporaryDir>
#include <QTest>

class tst_TextFile : public QObject {
    Q_OBJECT

private slots:
    void dialogsOfferTheKinds();
    void aFolderOffersItsTextFilesByName();
    void aTitleIsTheNameUpToTheLastDot_data();
    void aTitleIsTheNameUpToTheLastDot();
};

void tst_TextFile::dialogsOfferTheKinds() {
    QCOMPARE(textfile::suffixes(), QStringList({"txt", "rtf", "docx", "pdf"}));
    QCOMPARE(textfile::singleFileFilter(), QStringLiteral("(*.txt *.rtf *.docx *.pdf)"));
    QCOMPARE(textfile::multipleFilesFilter(), QStringLiteral("*.txt *.docx *.rtf *.pdf"));
}

void tst_TextFile::aFolderOffersItsTextFilesByName() {
    QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("folder.txt"));
    for (const char* name : {"b.txt", "a.RTF", "c.doc", "notes", "d.docx", "e.pdf", "f.html"}) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QStringList names;
    for (const QUrl& url : textfile::importableFiles(QUrl::fromLocalFile(folder.path())))
        names << url.fileName();
    QCOMPARE(names, QStringList({"a.RTF", "b.txt", "d.docx"}));
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
