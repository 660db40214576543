#include "ImportExercise.h"
#include "SampleFiles.h"
#include "import/DOCXTextExtractor.h"
#include "import/ImportedText.h"
#include "import/PDFTextExtractor.h"
#include "import/RtfText.h"
#include "import/TextFile.h"
#include "import/archive/SafeXmlReader.h"
#include "import/archive/ZipArchive.h"
#include "records/AnswerText.h"
#include "records/RichTextFragment.h"
#include "tests_support/TestMain.h"

namespace {

const QString scripts =
    "Grüße, «Ähre» – „Zitat“ … ‘s’ ß\nПривет, мир\n中文 采访\nمرحبا 123 שלום\n"
    "😀 👩‍👩‍👧 e\u0301 \u2060\uFB01\n<laughs> 1 < 2 & 3 > 2 <P1> <br> </q> {\\} \"x\"\n"_s;

QString inner(const QString& fragment) {
    const QString start = richtext::wrapperStart() + QLatin1Char('\n');
    const QString end = QLatin1Char('\n') + richtext::wrapperEnd();
    return fragment.startsWith(start) && fragment.endsWith(end)
               ? fragment.mid(start.size(), fragment.size() - start.size() - end.size())
               : "no fragment: "_s + fragment;
}

}  // namespace

/// Files of all kinds: known text goes in, and its plain text comes out.
class tst_Importers : public QObject {
    Q_OBJECT

private slots:
    void aFolderOffersItsTextFilesByName() {
        const QTemporaryDir folder;
        QDir(folder.path()).mkdir("folder.txt"_s);
        for (const char* name : {"b.txt", "a.RTF", "c.doc", "notes", "d.docx", "e.pdf", "f.html"})
            writeBytes(folder.filePath(QString::fromLatin1(name)));
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

    void textSurvives_data() {
        columns<QString, QByteArray, QString>({"suffix", "bytes", "plain"});
        const QString text = scripts + "\ttab\t\ttabs\n  blanks  stay  \n\n\nlast, without end"_s;
        const QString paged = text + "\fpage"_s;
        const QString lines = text + "\npage"_s;
        addRow("text", "txt", samples::file("txt", paged), lines);
        addRow("other suffix", "notes", samples::file("txt", paged), lines);
        addRow("byte order mark", "TXT",
               QByteArray("\xEF\xBB\xBF"
                          "a"),
               "a");
        addRow("Windows line ends", "txt", QByteArray("a\r\n\r\nb\r\n"), "a\n\nb\n");
        addRow("old line ends", "txt", QByteArray("a\rb\r\rc\n\rd"), "a\nb\n\nc\n\nd");
        addRow("no Unicode", "txt", QByteArray("a\xE4z"), "a\uFFFDz"_s);
        addRow("RTF", "rtf", samples::file("rtf", paged), lines);
        // A paragraph of a Word document ends with an empty line.
        addRow("Word", "docx", samples::file("docx", paged), lines + "\n\n");
        addRow("suffix in capitals", "DOCX", samples::file("docx", "a"), "a\n\n");
        const QString pdf = "Grüße, «Ähre» – „Zitat“ … ß\nПривет, мир\n中文采访\nA 😀 <laughs> & <"_s;
        addRow("PDF", "pdf", samples::file("pdf", pdf), pdf);
    }

    void textSurvives() {
        FETCH(QString, suffix, QByteArray, bytes);
        QTEST(m_import.import(suffix, bytes), "plain");
    }

    void noWordIsTakenForATag_data() {
        columns<QString, QString, QString>({"text", "imported", "plain"});
        addRow("marks", "<b>x <i>y</i></b><u>z</u>", "<b>x <i>y</i></b><u>z</u>", "x yz");
        addRow("no marks", "<laughs> <B> <b class=x> </ b> <<b>b</b> <",
               "&lt;laughs> &lt;B> &lt;b class=x> &lt;/ b> &lt;<b>b</b> &lt;",
               "<laughs> <B> <b class=x> </ b> <b <");
        addRow("comments", "<!-- a --> <?php ?>", "&lt;!-- a --> &lt;?php ?>", "<!-- a --> <?php ?>");
        addRow("entities", "&lt;x&gt; &amp;amp; &uuml; AT&T", "&lt;x&gt; &amp;amp; &uuml; AT&T",
               "<x> &amp; ü AT&T"_s);
        addRow("HTML", "<p>a<br>b</p><laughs>", "<p>a<br>b</p><laughs>", "a\nb\n");
        addRow("HTML further on", "x <p>", "x &lt;p>", "x <p>");
        addRow("fragment", richtext::fragment("<P1> <b>a</b>"), richtext::fragment("&lt;P1> <b>a</b>"),
               "<P1> a");
        addRow("end of a fragment", "a <P1>\n</body>", "a &lt;P1>\n</body>", "a <P1>\n");
        addRow("wrapper within", "a </body> b", "a &lt;/body> b", "a </body> b");
        addRow("line ends", "a\r\nb\rc", "a\nb\nc", "a\nb\nc");
    }

    void noWordIsTakenForATag() {
        QFETCH(QString, text);
        QTEST(importedText(text), "imported");
        QTEST(AnswerText::prepare(importedText(text)).plain(), "plain");
    }

    void rtfIsRead_data() {
        columns<QByteArray, QString>({"body", "text"});
        const auto row = [](const char* name, const char* body, const char* text) {
            addRow(name, samples::rtfOfBody(body), QString::fromUtf8(text));
        };
        row("paragraphs", "one\\par\r\ntwo\\line three\\\nfour\\page five\\par",
            "one\ntwo\nthree\nfour\x0C"
            "five\n");
        row("styles", "a{\\b b{\\b0 c}\\i d}e\\ul f\\ulnone g\\b\\i\\ulwave h\\plain i",
            "a<b>b</b>c<b><i>d</i></b>e<u>f</u>g<b><i><u>h</u></i></b>i");
        row("style over paragraphs", "\\b one\\par two\\b0\\par", "<b>one</b>\n<b>two</b>\n");
        row("code page of the document", "\\'e4\\'80\\'93\\'94", "ä€“”");
        row("code page of a font", "{\\f1 \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2} \\f1\\'ff\\plain\\'ff",
            "Привет яÿ");
        row("font without charset", "\\f3\\'e4", "ä");
        row("two bytes", "\\f2 \\'93\\'fa\\'96\\'7b \\'83A\\'83\\\\ \\'83\\'5c", "日本 アソ ソ");
        row("Unicode", "\\u8364\\'80 \\u-10179\\'3f\\u-8704\\'3f \\u128512? {\\uc2\\u20013\\'d6\\'d0}\\u228?",
            "€ 😀 😀 中ä");
        row("Unicode without substitute", "{\\uc0\\u228 b}\\u228\\par{\\u246}\\u252", "äbä\nöü");
        row("substitutes of all kinds", "\\u8211\\endash\\u228\\~\\u228\\bin3 }{}x", "–ääx");
        row("characters",
            "\\lquote\\rquote\\ldblquote\\rdblquote\\bullet\\endash\\emdash\\_\\-\\~x\\emspace y",
            "‘’“”•–—\u2011\u00AD x\u2003y");
        row("escapes", "\\{a\\}\\\\b\\tab c\td", "{a}\\b\tc\td");
        row("table",
            "\\trowd\\cellx1\\cellx2\\pard\\intbl a\\cell\\cell c\\cell\\row\\pard\\intbl d\\cell "
            "e\\cell\\row x",
            "a\t\tc\nd\te\nx");
        row("field", "{\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt{\\ul link}}}.", "<u>link</u>.");
        row("footnotes",
            "a{\\super\\chftn{\\footnote\\pard\\plain{\\chftn} first}}b{\\footnote second}\\par c",
            "ab\nc\n first\nsecond");
        row("what isn't text",
            "{\\header head}{\\pict\\wmetafile8 0102ff}{\\*\\unknown{\\b x} y}{\\*\\bkmkstart m}"
            "{\\nonshppict{\\pict 00}}{\\xe{\\v entry}}{\\footer foot}x",
            "x");
        row("data", "{\\pict\\bin5 }}{{\\}x\\bin0 y", "xy");
        row("drawn box", "{\\shp{\\*\\shpinst{\\sp{\\sn no}{\\sv no}}{\\shptxt box\\par}}{\\shprslt no}}x",
            "box\nx");
        row("text twice", "{\\upr{no}{\\*\\ud yes}}{\\footnote{\\upr{no}{\\*\\ud note}}}", "yes\nnote");
        row("list number", "{\\listtext\\'b7\\tab}item", "·\titem");
        row("brackets stay", "<b> & <laughs>", "<b> & <laughs>");
        row("odd escapes", "\\'zz\\'4a\\' x\\unknownword-12 y", "zzJ xy");
        addRow("breaks off", QByteArray("{\\rtf1 a{\\b b"), "a<b>b</b>"_s);
        addRow("goes on after its end", QByteArray("{\\rtf1 a}b{c}"), "a"_s);
        addRow("too deep", "{\\rtf1 a" + QByteArray(100000, '{') + "b", "a"_s);
        addRow("Macintosh", QByteArray("{\\rtf1\\mac \\'8a}"), "ä"_s);
    }

    void rtfIsRead() {
        QFETCH(QByteArray, body);
        QTEST(inner(rtfToRichText(m_import.write("rtf", body))), "text");
    }

    void documentsAreRead_data() {
        columns<QByteArray, QString>({"document", "text"});
        const auto row = [](const char* name, const char* body, const char* text) {
            addRow(name, samples::docxOfBody(body), QString::fromUtf8(text));
        };
        row("runs",
            "<w:p><w:pPr><w:jc w:val=\"left\"/></w:pPr><w:r><w:t>Grü</w:t></w:r><w:r><w:t xml:space="
            "\"preserve\">ße </w:t><w:tab/><w:t>x</w:t><w:br/><w:cr/></w:r></w:p><w:p/>",
            "Grüße \tx\n\n\n\n\n\n");
        row("marks", "<w:p><w:r><w:rPr><w:b/><w:i/></w:rPr><w:t>a</w:t></w:r><w:r><w:t>b</w:t></w:r></w:p>",
            "<b><i>a</b></i>b\n\n");
        row("a mark that is switched off", "<w:r><w:rPr><w:b w:val=\"0\"/></w:rPr><w:t>a</w:t></w:r>",
            "<b>a</b>");
        row("a mark without a text", "<w:p><w:r><w:rPr><w:u/></w:rPr></w:r></w:p><w:r><w:t>a</w:t></w:r>",
            "<u>\n\na</u>");
        row("brackets stay", "<w:t>&lt;b> &amp; &lt;x></w:t><w:t><![CDATA[<y>]]></w:t>", "<b> & <x><y>");
        row("breaks off", "<w:t>one</w:t><w:t>tw", "onetw");
        row("is malformed", "<w:t>one</w:p>two", "one");
        const QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><d><t>elsewhere</t></d>";
        addRow("main part elsewhere", samples::docxOfPart(xml, "a/main2.xml"), "elsewhere"_s);
        addRow("byte order mark", samples::docxOfPart("\xEF\xBB\xBF" + xml), "elsewhere"_s);
        const QByteArray deep = "<d>text" + QByteArray("<d>").repeated(200000);
        addRow("too deep", samples::docxOfPart(deep), "text"_s);
    }

    void documentsAreRead() {
        QFETCH(QByteArray, document);
        QTEST(inner(DOCXTextExtractor(m_import.write("docx", document)).extract()), "text");
    }

    void pagesAreRead() {
        QCOMPARE(m_import.import("pdf", samples::pdf({"one\ntwo", "", "three"})), "one\ntwo\n\n\n\nthree"_s);
    }

    void badFilesGiveNoSource_data() {
        columns<QString, QByteArray>({"suffix", "bytes"});
        const QByteArray garbage = QByteArray::fromHex("00ff10fe7b5c72740a0d").repeated(300);
        const QByteArray word = samples::file("docx", scripts);
        for (const QString& suffix : textfile::suffixes())
            QTest::addRow("empty %s", qPrintable(suffix)) << suffix << QByteArray();
        for (const char* suffix : {"rtf", "docx", "pdf"}) {
            QTest::addRow("garbage %s", suffix) << suffix << garbage;
            QTest::addRow("text as %s", suffix) << suffix << QByteArray("Just text.\n");
        }
        addRow("PDF as Word", "docx", samples::file("pdf", "x"));
        addRow("Word as RTF", "rtf", word);
        addRow("half a Word document", "docx", word.left(word.size() / 2));
        addRow("protected Word document", "docx", QByteArray::fromHex("d0cf11e0a1b11ae1") + garbage);
        addRow("archive without a document", "docx", samples::zip({{"a.txt", "text"}}));
        addRow("document without a part", "docx", samples::docxOfPart(""));
        addRow("part that isn't XML", "docx", samples::docxOfPart("no XML"));
        addRow("document type", "docx",
               samples::docxOfPart("<!DOCTYPE d [<!ENTITY a \"text\"><!ENTITY f SYSTEM "
                                   "\"file:///etc/passwd\">]><d><t>&a;&f;</t></d>"));
        addRow("huge part", "docx", samples::docxOfPart(QByteArray(60 << 20, ' ') + "<d>x</d>"));
        addRow("scanned PDF", "pdf", samples::pdf({"", ""}));
        const QByteArray key = '<' + QByteArray("00").repeated(32) + '>';
        addRow("protected PDF", "pdf",
               samples::pdf({"secret"},
                            "/ID [<00><00>] /Encrypt << /Filter /Standard /V 2 /R 3 /Length 128 /P -4 /O " +
                                key + " /U " + key + " >>"));
    }

    void badFilesGiveNoSource() {
        FETCH(QString, suffix, QByteArray, bytes);
        bool source = true;
        m_import.import(suffix, bytes, &source);
        QVERIFY(!source);
        // Neither is a folder of that name, or no file at all.
        const QTemporaryDir folder;
        const QString path = folder.filePath(QLatin1String("x.") + suffix);
        QVERIFY(textfile::read(QUrl::fromLocalFile(path)).isEmpty());
        QVERIFY(QDir().mkdir(path));
        QVERIFY(textfile::read(QUrl::fromLocalFile(path)).isEmpty());
    }

    void archivesAreBounded_data() {
        columns<QString, bool, bool, bool>({"limit", "open", "small", "large"});
        addRow("none", "none", true, true, true);
        addRow("entries", "entries", false, false, false);
        addRow("entry", "entry", true, true, false);
        addRow("total", "total", true, true, false);
        addRow("ratio", "ratio", true, true, false);
    }

    void archivesAreBounded() {
        QFETCH(QString, limit);
        const QByteArray content(1 << 20, 'x');
        const QString path = m_import.write("zip", samples::zip({{"../small", "abc"}, {"large", content}}));
        ZipLimits limits;
        if (limit == QLatin1String("entries"))
            limits.entries = 1;
        if (limit == QLatin1String("entry"))
            limits.entryBytes = content.size() - 1;
        if (limit == QLatin1String("total"))
            limits.totalBytes = content.size() + 2;
        if (limit == QLatin1String("ratio"))
            limits.freeBytes = 1000;
        ZipArchive archive(path, limits);
        QTEST(archive.isOpen(), "open");
        QTEST(archive.read("../small") == "abc", "small");
        QTEST(archive.read("large") == content, "large");
        QCOMPARE(archive.error().isEmpty(), limit == QLatin1String("none"));
        if (!archive.isOpen() || limit == QLatin1String("total"))
            return;
        QCOMPARE(archive.names(), QStringList({"../small", "large"}));
        QVERIFY(archive.contains("large") && !archive.contains("other"));
        QBuffer out;
        QVERIFY(out.open(QIODevice::WriteOnly));
        QVERIFY(archive.unpack("../small", out));
        QCOMPARE(out.data(), QByteArray("abc"));
        QVERIFY(archive.read("other").isNull());
        QVERIFY(!archive.error().isEmpty());
    }

    void xmlIsBounded() {
        SafeXmlReader flat("<a><b>1<c>2</c></b><b/><b>3</b></a>"_s, {3});
        QString texts;
        QVERIFY(flat.readNextStartElement());
        for (bool skip = false; flat.readNextStartElement(); skip = !skip) {
            if (skip)
                flat.skipCurrentElement();
            else
                texts += flat.readElementText();
        }
        QCOMPARE(texts, "123"_s);
        QVERIFY(flat.failure().isEmpty());

        SafeXmlReader deep("<a>\n<b><c><d/></c></b></a>"_s, {3});
        while (!deep.atEnd())
            deep.readNext();
        QVERIFY2(deep.failure().startsWith("Parse error at line 2, column "_s), qPrintable(deep.failure()));
        SafeXmlReader cut("<a>\n  text <b>bo"_s);
        while (!cut.atEnd())
            cut.readNext();
        QCOMPARE(cut.failure(), "Parse error at line 2, column 13: Premature end of document."_s);
    }

    void aConverterThatHangsIsEnded() {
        const QString script = m_import.write("sh", "#!/bin/sh\necho half > \"$4\"\nexec sleep 600\n");
        QVERIFY(QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        const QString pdf = m_import.write("pdf", samples::file("pdf", "x"));
        const auto codeOf = [&](const QString& program, int limit, const std::function<bool()>& cancelled) {
            PDFTextExtractor extractor(pdf);
            extractor.setConverter(program, {limit, 10});
            int code = 0;
            connect(&extractor, &PDFTextExtractor::extracted, [&code](int exitCode) { code = exitCode; });
            return extractor.extract(cancelled).isEmpty() ? code : 0;
        };
        QCOMPARE(codeOf(script, 100, {}), -1);
        int asked = 0;
        QCOMPARE(codeOf(script, 600000, [&asked] { return ++asked == 3; }), -1);
        QCOMPARE(codeOf("/no/such/program"_s, 600000, {}), -2);
        QCOMPARE(codeOf("/bin/false"_s, 600000, {}), 1);
    }

private:
    ImportExercise m_import;
};

KERNOVA_GUI_TEST_MAIN(tst_Importers)
#include "tst_importers.moc"
