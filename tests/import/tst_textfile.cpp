#include "import/TextFile.h"
#include "tests_support/TestMain.h"

class tst_TextFile : public QObject {
    Q_OBJECT

private slots:
    void aFolderOffersItsTextFilesByName() {
        QTemporaryDir folder;
        QDir(folder.path()).mkdir("folder.txt"_s);
        for (const char* name : {"b.txt", "a.RTF", "c.doc", "notes", "d.docx", "e.pdf", "f.html"}) {
            QFile file(folder.filePath(QString::fromLatin1(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        QStringList names;
        for (const QUrl& url : textfile::importableFiles(QUrl::fromLocalFile(folder.path())))
            names << url.fileName();
        QCOMPARE(names, QStringList({"a.RTF", "b.txt", "d.docx"}));
    }

    void aTitleIsTheNameUpToTheLastDot_data() {
        columns<QString, QString>({"path", "title"});
        addRow("suffix", "/x/Interview 1.txt", "Interview 1");
        addRow("dots", "/x/a.b.txt", "a.b");
        addRow("no dot", "/x/notes", "notes");
        addRow("odd characters", "/x/50% #1?.txt", "50% #1?");
    }

    void aTitleIsTheNameUpToTheLastDot() {
        QFETCH(QString, path);
        QTEST(textfile::titleFor(QUrl::fromLocalFile(path)), "title");
    }
};

KERNOVA_TEST_MAIN(tst_TextFile)
#include "tst_textfile.moc"
