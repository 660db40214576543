#include "tests_support/TestMain.h"
#include "text/RichText.h"

#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

/// Texts with styles, and what is stored of them.
class tst_RichText : public QObject {
    Q_OBJECT

private slots:
    void onlyThreeStylesAreWritten_data();
    void onlyThreeStylesAreWritten();
    void aStyleIsToggledOverTheWholeRange_data();
    void aStyleIsToggledOverTheWholeRange();
    void aToggleIsOneStepOfUndo();
};

namespace {

QString inWrapper(const QString& text) {
    return QStringLiteral("<body style=\"white-space: pre-wrap;\">\n%1\n</body>").arg(text);
}

using Toggle = void (*)(QTextDocument*, int, int);

}  // namespace

Q_DECLARE_METATYPE(Toggle)

void tst_RichText::onlyThreeStylesAreWritten_data() {
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "one two"
                           << "one two";
    QTest::newRow("paragraphs") << "<p>one</p><p>two</p>"
                                << "one\ntwo";
    QTest::newRow("bold in the middle") << "a<b>bc</b>d"
                                        << "a<b>bc</b>d";
    QTest::newRow("all three nest") << "<u><i><b>x</b></i></u>"
                                    << "<b><i><u>x</u></i></b>";
    QTest::newRow("runs that share a style") << "<b>a<i>b</i></b>"
                                             << "<b>a</b><b><i>b</i></b>";
    QTest::newRow("several paragraphs") << "<p><b>a</b></p><p>b <i>c</i> d</p>"
                                        << "<b>a</b>\nb <i>c</i> d";
    QTest::newRow("colour and links are lost")
        << "<a href=\"x\" style=\"color:red;text-decoration:none\">a</a>"
        << "a";
    QTest::newRow("nothing is escaped") << "a &lt; b &amp; c"
                                        << "a < b & c";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_RichText::onlyThreeStylesAreWritten() {
    QFETCH(QString, html);
    QFETCH(QString, text);
    QTextDocument document;
    document.setHtml(html);
    QCOMPARE(richTextFromDocument(&document), inWrapper(text));
}

void tst_RichText::aStyleIsToggledOverTheWholeRange_data() {
    QTest::addColumn<Toggle>("toggle");
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("text");
    QTest::newRow("bold") << &toggleBold << "abcd" << 1 << 3 << "a<b>bc</b>d";
    QTest::newRow("one plain character") << &toggleBold << "<b>a</b>b<b>c</b>" << 0 << 3 << "<b>abc</b>";
    QTest::newRow("plain first character") << &toggleBold << "a<b>bc</b>" << 0 << 3 << "<b>abc</b>";
    QTest::newRow("all bold") << &toggleBold << "<b>abc</b>d" << 0 << 3 << "abcd";
    QTest::newRow("part of a bold run") << &toggleBold << "<b>abc</b>" << 1 << 2 << "<b>a</b>b<b>c</b>";
    QTest::newRow("empty range") << &toggleBold << "abc" << 1 << 1 << "abc";
    QTest::newRow("beyond the end") << &toggleBold << "abc" << 0 << 3 << "<b>abc</b>";
    QTest::newRow("over paragraphs") << &toggleItalic << "<p>ab</p><p>cd</p>" << 1 << 4
                                     << "a<i>b</i>\n<i>c</i>d";
    QTest::newRow("italic off") << &toggleItalic << "<i>ab</i>" << 0 << 2 << "ab";
    QTest::newRow("underline") << &toggleUnderline << "ab" << 0 << 1 << "<u>a</u>b";
    QTest::newRow("underline off") << &toggleUnderline << "<u>ab</u>" << 0 << 2 << "ab";
    QTest::newRow("other styles stay") << &toggleUnderline << "<b>ab</b>" << 0 << 2 << "<b><u>ab</u></b>";
}

void tst_RichText::aStyleIsToggledOverTheWholeRange() {
    QFETCH(Toggle, toggle);
    QFETCH(QString, html);
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(QString, text);
    QTextDocument document;
    document.setHtml(html);
    toggle(&document, start, end);
    QCOMPARE(richTextFromDocument(&document), inWrapper(text));
}

void tst_RichText::aToggleIsOneStepOfUndo() {
    QTextDocument document;
    document.setHtml(QStringLiteral("<b>a</b>b<p>c</p>"));
    const QString before = richTextFromDocument(&document);
    toggleBold(&document, 0, 4);
    QVERIFY(richTextFromDocument(&document) != before);
    document.undo();
    QCOMPARE(richTextFromDocument(&document), before);
}

KERNOVA_GUI_TEST_MAIN(tst_RichText)
#include "tst_richtext.moc"
