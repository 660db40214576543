#include "OddTexts.h"
#include "export/DocxDocument.h"
#include "export/DocxSourceExporter.h"
#include "import/DOCXTextExtractor.h"
#include "import/archive/ZipArchive.h"
#include "tests_support/TestMain.h"

/// Word documents, read back by an XML reader and by pandoc.
class tst_DocxExport : public QObject {
    Q_OBJECT

private slots:
    void anyTextAndAnyCommentsAreReadBack();
    void theProjectIsReadBack();
    void filesAreWholeOrAsTheyWere();
};

namespace {

struct ReadBack {
    QString text;
    QHash<QString, QString> anchors;  ///< by comment id
    QHash<QString, QString> comments;
    QString looks;  ///< a letter for each character: n, b, i, u, or x for several
    bool wellFormed = false;
};

/// The body as a word processor takes it, and what each comment stands on.
ReadBack readBack(const QVector<ZipEntry>& entries) {
    ReadBack back;
    QSet<QString> open;
    QString look;
    for (const ZipEntry& entry : entries) {
        if (entry.name != QLatin1String("word/document.xml"))
            continue;
        QXmlStreamReader xml(entry.bytes);
        const auto add = [&](const QString& text) {
            back.text += text;
            back.looks += QString(text.size(), look.isEmpty() ? 'n' : look.size() > 1 ? 'x' : look.at(0));
            for (const QString& id : qAsConst(open))
                back.anchors[id] += text;
        };
        bool inText = false;
        while (!xml.atEnd()) {
            xml.readNext();
            const QString name = xml.name().toString();
            const QString id = xml.attributes().value("w:id"_s).toString();
            if (xml.isStartElement() && name == "r")
                look.clear();
            else if (xml.isStartElement() && (name == "b" || name == "i" || name == "u"))
                look += name;
            else if (xml.isStartElement() && name == "commentRangeStart")
                open.insert(id);
            else if (xml.isStartElement() && name == "commentRangeEnd")
                open.remove(id);
            else if (xml.isStartElement() && name == "br")
                add("\n"_s);
            else if (name == "t")
                inText = xml.isStartElement();
            else if (xml.isCharacters() && inText)
                add(xml.text().toString());
        }
        back.wellFormed = !xml.hasError() && open.isEmpty();
    }
    return back;
}

QString kept(QString text) {
    return text.remove(QRegularExpression("[\\x00-\\x08\\x0b\\x0c\\x0e-\\x1f\\x{fffe}\\x{ffff}]"));
}

/// The text of inline elements, with the comments that open and close among them taken down.
void readInlines(const QJsonArray& inlines, QHash<QString, QString>& open, ReadBack& back) {
    const auto add = [&](const QString& text) {
        back.text += text;
        for (auto it = open.begin(); it != open.end(); ++it)
            *it += text;
    };
    for (const QJsonValue& element : inlines) {
        const QString type = element["t"].toString();
        const QJsonValue content = element["c"];
        if (type == "Str")
            add(content.toString());
        else if (type == "Space" || type == "SoftBreak")
            add(" ");
        else if (type == "LineBreak")
            add("\n");
        else if (type == "Strong" || type == "Emph" || type == "Underline")
            readInlines(content.toArray(), open, back);
        else if (type == "Span") {
            const QString kind = content[0][1][0].toString();
            QString id = content[0][0].toString();
            for (const QJsonValue& pair : content[0][2].toArray()) {
                if (pair[0] == QLatin1String("id"))
                    id = pair[1].toString();
            }
            if (kind == "comment-start") {
                open.insert(id, QString());
                ReadBack comment;
                QHash<QString, QString> none;
                readInlines(content[1].toArray(), none, comment);
                back.comments.insert(id, comment.text);
            } else if (kind == "comment-end") {
                back.anchors.insert(id, open.take(id));
            }
            if (kind != "comment-start")
                readInlines(content[1].toArray(), open, back);
        }
    }
}

ReadBack readByPandoc(const QString& path) {
    QProcess pandoc;
    pandoc.start("pandoc", {"--track-changes=all", "-f", "docx", "-t", "json", path});
    ReadBack back;
    if (!pandoc.waitForFinished() || pandoc.exitCode() != 0)
        return back;
    QHash<QString, QString> open;
    for (const QJsonValue& block :
         QJsonDocument::fromJson(pandoc.readAllStandardOutput()).object()["blocks"].toArray()) {
        const bool isHeader = block["t"] == QLatin1String("Header");
        readInlines((isHeader ? block["c"][2] : block["c"]).toArray(), open, back);
        back.text += isHeader ? "#\n" : "\n";
    }
    back.wellFormed = open.isEmpty();
    return back;
}

}  // namespace

// Texts of marks, control characters, line ends and emoji, under comments that overlap in every way.
void tst_DocxExport::anyTextAndAnyCommentsAreReadBack() {
    const QStringList pieces{"word ", "<b>", "</b>", "&lt;",       "&",      "\"",  "\n",  "\t",
                             "  ",    "\f",  "\x01", "\U0001F600", "\uffff", "]]>", "<i>", "<u>x"};
    QRandomGenerator random(7);
    for (int round = 0; round < 300; ++round) {
        QString html;
        QHash<QChar, int> open;  // how often each mark is
        QString looks;
        for (int i = random.bounded(30); i >= 0; --i) {
            const QString piece = pieces[random.bounded(pieces.size())];
            html += QString(piece).replace('&', "&amp;").replace('<', "&lt;");
            QString look;
            for (const QChar mark : "biu"_s)
                look += open.value(mark) > 0 ? QString(mark) : QString();
            if (look.isEmpty() || normalizedFromService(piece) == "\n")
                look = "n";
            looks += QString(kept(normalizedFromService(piece)).size(), look.size() > 1 ? 'x' : look.at(0));
            const QChar mark = "biu"_s.at(random.bounded(3));
            const bool opens = random.bounded(3) >= open.value(mark);
            html += (opens ? "<" : "</") + QString(mark) + '>';
            open[mark] += opens ? 1 : -1;
        }
        const MarkedText text = MarkedText::fromStored(html);
        QVector<DocxComment> comments;
        for (int i = random.bounded(8); i > 0; --i)
            comments << DocxComment{random.bounded(text.plain().size()), random.bounded(1, 20), "T", "A", {}};
        DocxDocument document;
        document.addText(text, comments);
        const ReadBack back = readBack(document.finish());
        QVERIFY(back.wellFormed);
        QCOMPARE(back.text, kept(text.plain()));
        QCOMPARE(back.looks, looks);
        for (int i = 0; i < comments.size(); ++i) {
            int start = comments[i].start;
            int end = qMin(start + comments[i].length, text.plain().size());
            start -= text.plain().at(start).isLowSurrogate() ? 1 : 0;
            end += text.plain().at(end - 1).isHighSurrogate() ? 1 : 0;
            QCOMPARE(back.anchors.value(QString::number(i)), kept(text.plain().mid(start, end - start)));
        }
    }
}

void tst_DocxExport::theProjectIsReadBack() {
    UndoProject project;
    QVERIFY2(project.open(), qPrintable(project.error));
    addOddTexts(project);
    QTemporaryDir folder;
    const QString path = folder.filePath("all.docx");
    const auto result = DocxSourceExporter(&project.file).exportAll(path);
    QVERIFY2(result.written == 1 && result.sentence.isEmpty(), qPrintable(result.sentence));

    const ReadBack back = readByPandoc(path);
    QVERIFY(back.wellFormed);
    QString expected;
    QStringList anchors;
    for (const Source& source : project.file.sourceModel()->snapshot()) {
        expected += source.title() + "#\n";
        for (const QuestionAnswer& answer : project.file.answerModel()->answers(source.sourceId())) {
            const QString question = project.file.questionText(answer.questionId());
            expected += question + "#\n" + answer.plainAnswer() + "\n";
            for (const Highlight& h : project.file.highlights(source.sourceId(), answer.questionId()))
                anchors
                    << kept(answer.plainAnswer().mid(h.start(), h.length())).simplified() + '|' +
                           kept(project.file.kerno(h.kernoId()).title() + " by " + h.author()).simplified();
        }
    }
    QCOMPARE(back.text.simplified(), kept(expected).simplified());
    QStringList readAnchors;
    for (auto it = back.anchors.cbegin(); it != back.anchors.cend(); ++it)
        readAnchors << it->simplified() + '|' + back.comments.value(it.key()).simplified();
    anchors.sort();
    readAnchors.sort();
    QCOMPARE(readAnchors.size(), 12);
    // The passage that begins inside of an emoji takes all of it.
    const auto halfOrWhole = [](const QStringList& texts) {
        return QString::fromUtf8(texts.join('\n').toUtf8()).replace("\U0001F600"_s, "?");
    };
    QCOMPARE(halfOrWhole(readAnchors), halfOrWhole(anchors));

    const QStringList parts = ZipArchive(path).names();
    QCOMPARE(parts.mid(4).join(' '),
             QString("docProps/custom.xml docProps/core.xml docProps/app.xml _rels/.rels word/fontTable.xml "
                     "word/settings.xml word/styles.xml word/_rels/document.xml.rels [Content_Types].xml "
                     "word/comments.xml word/document.xml"));
    QVERIFY(DOCXTextExtractor(path).extract().contains("Interview 1"));
}

void tst_DocxExport::filesAreWholeOrAsTheyWere() {
    UndoProject project;
    QVERIFY2(project.open(), qPrintable(project.error));
    project.file.saveSource(Source(4, "../../up: <1>?", {}, "Ann", {}));
    project.settle();
    QTemporaryDir folder;
    const auto names = [&] { return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); };
    DocxSourceExporter exporter(&project.file);

    int calls = 0;
    const auto cancelled =
        exporter.exportAll(folder.filePath("all.docx"), [&](qint64, qint64) { return ++calls < 7; });
    QVERIFY(cancelled.cancelled && cancelled.sentence.isEmpty());
    QCOMPARE(names(), QStringList());
    const auto nowhere = exporter.exportAll(folder.filePath("no/all.docx"));
    QVERIFY(nowhere.sentence.contains("all.docx can't be written"));

    QVERIFY(QDir(folder.path()).mkdir("2_Interview 2.docx"));
    const auto separate = exporter.exportSeparately(folder.path(), {});
    QVERIFY2(separate.written == 3 && separate.sentence.contains("2_Interview 2.docx"),
             qPrintable(separate.sentence));
    QCOMPARE(names().join('|'),
             QString("1_Interview 1.docx|2_Interview 2.docx|3_Interview 3.docx|4_.._.._up_ _1__.docx"));
    const ReadBack third = readByPandoc(folder.filePath("3_Interview 3.docx"));
    QVERIFY(third.text.startsWith("Interview 3#\n") && !third.text.contains("Interview 1"));
    QVERIFY(exporter.exportSeparately(folder.filePath("new"), {true, false}).sentence.isEmpty());
    QCOMPARE(QDir(folder.filePath("new")).entryList(QDir::Files).at(0).size(), 36 + 5);
}

KERNOVA_TEST_MAIN(tst_DocxExport)
#include "tst_docxexport.moc"
