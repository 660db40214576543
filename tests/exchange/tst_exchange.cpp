#include "ExchangeExercise.h"
#include "RandomRecords.h"
#include "RecordFacts.h"
#include "exchange/QDPXExporter.h"
#include "import/archive/ZipArchive.h"
#include "tests_support/TestMain.h"

class tst_Exchange : public QObject {
    Q_OBJECT

private slots:
    void roundTrips_data();
    void roundTrips();
    void codingsStandOnTheirWords();
    void badArchivesAreRefused_data();
    void badArchivesAreRefused();
    void brokenDocumentsGiveSoundProjects();
    void cancelledWorkLeavesNothing();
};

using Kind = SkippedElements::Kind;

namespace {

// All that an archive holds of a project, as one line for each thing. `ofSource`: positions count in all
// answers of a source.
QStringList story(const ProjectRecords& r, bool ofSource) {
    const RecordFacts facts(r);
    QHash<int, QString> wholes;
    QHash<QPair<int, int>, int> offsets;
    for (const QuestionAnswer& a : r.answers) {
        offsets.insert({a.sourceId(), a.questionId()}, wholes[a.sourceId()].size());
        wholes[a.sourceId()] += a.plainAnswer();
    }
    const auto place = [&](const auto& p) {
        const int from = ofSource ? offsets.value({p.sourceId(), p.questionId()}) : 0;
        return QString("%1 %2-%3 %4 %5")
            .arg(facts.sources.value(p.sourceId()).title())
            .arg(p.start() + from)
            .arg(p.end() + from)
            .arg(p.author(), p.timestamp().toUTC().toString(Qt::ISODate));
    };
    QStringList lines;
    for (const Source& s : r.sources)
        lines << "source " + s.title() + ' ' + s.author() + s.timestamp().toUTC().toString(Qt::ISODate) +
                     wholes.value(s.id());
    for (const Kerno& k : r.kernos)
        lines << "kerno " + k.title() + k.color().name() + k.description() + facts.kerno(k.parentKernoId());
    for (const Highlight& h : r.highlights)
        lines << "coding " + place(h) + ' ' + facts.kerno(h.kernoId());
    for (const Memo& m : r.memos)
        lines << "memo " + place(m) + ' ' + m.content();
    lines += facts.properties().values() + facts.groupLinks().values();
    lines.sort();
    return lines;
}

// Of all that has a record in the project.
QStringList storedGuids(const QByteArray& document) {
    static const QRegularExpression stored(R"x(<(?:Code|TextSource|Variable|Note|Set)\s+guid="([^"]{36}))x");
    QStringList guids;
    for (auto it = stored.globalMatch(QString::fromUtf8(document)); it.hasNext();)
        guids << it.next().captured(1);
    return guids;
}

QString danglingReference(const QByteArray& document) {
    QXmlStreamReader xml(document);
    QSet<QString> defined;
    QStringList referred;
    while (!xml.atEnd()) {
        xml.readNext();
        for (const QXmlStreamAttribute& a : xml.attributes()) {
            if (a.name() == "guid")
                defined.insert(a.value().toString());
            else if (a.name() == "targetGUID" || a.name().startsWith("modifyingUser"))
                referred << a.value().toString();
        }
    }
    for (const QString& guid : qAsConst(referred)) {
        if (!defined.contains(guid))
            return "nothing has the GUID " + guid;
    }
    return xml.hasError() ? xml.errorString() : QString();
}

}  // namespace

void tst_Exchange::roundTrips_data() {
    columns<int, int, int, int>({"form", "questions", "codings", "rounds"});
    const int own = static_cast<int>(ExchangeForm::Own);
    const int standard = static_cast<int>(ExchangeForm::Standard);
    QTest::newRow("own") << own << 1 << 30 << 40;
    QTest::newRow("standard") << standard << 1 << 30 << 40;
    // Our own form counts positions within one answer.
    QTest::newRow("own, several answers") << own << 3 << 30 << 20;
    QTest::newRow("standard, several answers") << standard << 3 << 30 << 20;
    QTest::newRow("own, 2,000 codings in one text") << own << 1 << 2000 << 1;
    QTest::newRow("standard, 2,000 codings in one text") << standard << 1 << 2000 << 1;
}

void tst_Exchange::roundTrips() {
    FETCH(int, form, int, questions, int, codings, int, rounds);
    const auto as = static_cast<ExchangeForm>(form);
    const ExchangeExercise exercise;
    const QString file = exercise.path("out.qdpx");
    QStringList guids;
    for (int seed = 0; seed < rounds; ++seed) {
        const QJsonObject identity{{"name", QString("/some where/%1/A & B.krn").arg(seed)}};
        Project project(identity);
        project.records() = RandomRecords(static_cast<quint32>(seed)).make(questions, codings);
        QVERIFY(QDPXExporter(as, "Author 1").exportProject(project, file));
        const QDPXImporter::Result result = QDPXImporter({"Importer", 800, 600}).importProject(file);
        QVERIFY2(result.project, qPrintable(result.error));
        const bool ofSource = as == ExchangeForm::Standard;
        // A passage of a later answer can reach beyond the first; there our own form can't tell it apart.
        if (ofSource || questions == 1) {
            QCOMPARE(story(result.project->records(), ofSource), story(project.records(), ofSource));
            QVERIFY2(result.skipped.isEmpty(), qPrintable(result.skipped.toText()));
        }
        const QByteArray document = ZipArchive(file).read("project.qde");
        QCOMPARE(danglingReference(document), QString());
        QCOMPARE(document.contains("name=\"A &amp; B\""), ofSource);
        QCOMPARE(document.contains("richTextPath"), !ofSource);
        Project again(identity);
        again.records() = RandomRecords(static_cast<quint32>(seed)).make(questions, codings);
        QVERIFY(QDPXExporter(as, "Author 1").exportProject(again, file));
        QCOMPARE(storedGuids(ZipArchive(file).read("project.qde")), storedGuids(document));
        guids += storedGuids(document);
    }
    QVERIFY(QDir(QDir::tempPath()).entryList({"Kernova_*_qdpx*"}).isEmpty());
    QVERIFY(guids.size() > 10 * rounds && guids.removeDuplicates() == 0);
}

// An archive as other programs write it, with everything that the schema knows.
void tst_Exchange::codingsStandOnTheirWords() {
    const QDPXImporter::Result result =
        ExchangeExercise().importDocument(bytesOf(KERNOVA_EXCHANGE_CORPUS "/other-program.qde"));
    QVERIFY2(result.project, qPrintable(result.error));
    const ProjectRecords& r = result.project->records();
    const RecordFacts facts(r);
    QCOMPARE(r.answers.at(0).plainAnswer(), "<laughs> one &amp; two\nsecond \U0001F600 line"_s);
    QCOMPARE(r.answers.at(1).plainAnswer(), QString("in <b>line</b> text"));
    QStringList codings;
    for (const Highlight& h : r.highlights)
        codings << facts.words(h) + '|' + facts.kerno(h.kernoId()) + '|' + h.author() + '|' +
                       QString::number(h.timestamp().date().year());
    const QString now = QString::number(QDate::currentDate().year());
    QCOMPARE(codings, (QStringList{"<laughs>|L1 <&>|Ann \"A\"|2020", "<laughs>|L5|Bob|2021",
                                   "second \U0001F600|L2|Importer|"_s + now, "line|L2|Importer|" + now,
                                   "<b>|L3|Importer|" + now, "in <b>line</b> text|L4|Importer|" + now}));
    QStringList kernos;
    for (const Kerno& k : r.kernos)
        kernos << k.title() + '|' + facts.kerno(k.parentKernoId()) + '|' + k.color().name();
    QCOMPARE(kernos, (QStringList{"L1 <&>||#ff0000", "L2|L1 <&>|#ffff00", "L3|L2|#ffff00", "L4|L3|#ffff00",
                                  "L5|L4|#00ff00"}));
    QCOMPARE(r.kernos.at(0).description(), QString("about\n\non the code"));
    QStringList memos;
    for (const Memo& m : r.memos)
        memos << facts.words(m) + '|' + m.content() + '|' + m.author();
    memos.sort();
    QCOMPARE(memos, (QStringList{"<laughs>|Title\n\non the passage|Ann \"A\"", "<|the case|Importer",
                                 "i|plain|Importer", "i|the case|Importer"}));
    QCOMPARE(facts.properties().size(), 12);
    QVERIFY(facts.properties().contains("Inline|Note|a & b") && facts.properties().contains("Inline|Age|42"));
    QCOMPARE(facts.groupLinks().values(), QStringList{"Set '1'|L1 <&>"});
    QCOMPARE(r.sources.at(0).author(), QString("Bob"));
    QCOMPARE(r.sources.at(0).timestamp().toUTC(), QDateTime({2020, 3, 4}, {3, 6, 7}, Qt::UTC));
    const QMap<Kind, int> lost{{Kind::PdfSource, 1},
                               {Kind::PictureSource, 1},
                               {Kind::AudioSource, 1},
                               {Kind::CodingInSkippedSource, 1},
                               {Kind::SourceWithoutText, 1},
                               {Kind::Duplicate, 1},
                               {Kind::SelectionWithoutCode, 1},
                               {Kind::PassageOutsideText, 1},
                               {Kind::UnknownCode, 1},
                               {Kind::Note, 1},
                               {Kind::Case, 2},
                               {Kind::CaseName, 1},
                               {Kind::SetMember, 2},
                               {Kind::Link, 2},
                               {Kind::Graph, 1},
                               {Kind::ProjectDescription, 1}};
    QCOMPARE(result.skipped.toVariantList().size(), lost.size());
    for (auto it = lost.cbegin(); it != lost.cend(); ++it)
        QCOMPARE(result.skipped.count(it.key()), *it);
}

void tst_Exchange::badArchivesAreRefused_data() {
    columns<ExchangeExercise::Entries, QString>({"entries", "error"});
    using Entries = ExchangeExercise::Entries;
    const QString corrupted =
        "Corrupted file: Extracted directory does not contain qde file or sources folder.";
    const QByteArray document =
        "<Project><Sources><TextSource name='n'><PlainTextContent>t</PlainTextContent>"
        "</TextSource></Sources></Project>";
    QTest::newRow("no sources") << Entries{{"project.qde", document}} << corrupted;
    QTest::newRow("empty sources") << Entries{{"project.qde", document}, {"sources/", ""}} << corrupted;
    QTest::newRow("no document") << Entries{{"sources/a.txt", "a"}} << corrupted;
    QTest::newRow("names that lead out")
        << Entries{{"../project.qde", document}, {"sources/../../a.txt", "a"}} << corrupted;
    QTest::newRow("another root") << Entries{{"p.qde", "<Codebook/>"}, {"sources/a", "a"}}
                                  << "Invalid QDPX format.";
    QTest::newRow("cut off") << Entries{{"p.qde", document.chopped(5)}, {"sources/a", "a"}}
                             << "Error in QDPX parsing.";
    QTest::newRow("entities")
        << Entries{{"p.qde", "<!DOCTYPE p [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>" + document},
                   {"sources/a", "a"}}
        << "Invalid QDPX format.";
    QTest::newRow("too deep") << Entries{{"p.qde", "<Project><CodeBook><Codes>" +
                                                       QByteArray("<Code name='c'>").repeated(5000)},
                                         {"sources/a", "a"}}
                              << "Error in QDPX parsing.";
    QTest::newRow("packed too well") << Entries{{"p.qde",
                                                 "<Project>" + QByteArray(40 << 20, ' ') + "</Project>"},
                                                {"sources/a", "a"}}
                                     << "The archive cannot be unpacked: it is damaged or too large.";
}

void tst_Exchange::badArchivesAreRefused() {
    QFETCH(ExchangeExercise::Entries, entries);
    const QDPXImporter::Result result = ExchangeExercise().import(entries);
    QVERIFY(!result.project);
    QTEST(result.error, "error");
}

// Each document of the corpus, and many damaged ones.
void tst_Exchange::brokenDocumentsGiveSoundProjects() {
    const ExchangeExercise exercise;
    QVERIFY(!QDPXImporter({}).importProject(exercise.path("missing.qdpx")).project);
    QRandomGenerator random(11);
    const QFileInfoList corpus = QDir(KERNOVA_EXCHANGE_CORPUS).entryInfoList(QDir::Files);
    QVERIFY(corpus.size() >= 2);
    for (const QFileInfo& info : corpus) {
        const QByteArray document = bytesOf(info.filePath());
        QCOMPARE(exercise.faultOf(document), QString());
        QByteArrayList words = document.split('"');
        for (int i = 0; i < 400; ++i) {
            QByteArrayList damaged = words;
            // Values change places, so that GUIDs are given twice, refer to another kind, or to nothing.
            for (int n = 0; n < 3; ++n) {
                const int at = static_cast<int>(random.bounded(damaged.size() / 2)) * 2 + 1;
                const int from = static_cast<int>(random.bounded(damaged.size() / 2)) * 2 + 1;
                damaged[at] = random.bounded(4) == 0 ? QByteArray::number(random.generate() % 5000 - 1000)
                                                     : words.at(from);
            }
            QByteArray bytes = damaged.join('"');
            if (random.bounded(3) == 0)
                bytes[static_cast<int>(random.bounded(bytes.size()))] = static_cast<char>(random.generate());
            const QString fault = exercise.faultOf(bytes);
            QVERIFY2(fault.isEmpty(), qPrintable(fault + '\n' + QString::fromUtf8(bytes)));
        }
    }
}

void tst_Exchange::cancelledWorkLeavesNothing() {
    const ExchangeExercise exercise;
    const QString file = exercise.path("kept.qdpx");
    Project project({{"name", "p.krn"}});
    project.records() = RandomRecords(1).make();
    const QDPXExporter exporter(ExchangeForm::Own, "Ann");
    QVERIFY(!exporter.exportProject(project, file, [](qint64 done, qint64) { return done < 60; }));
    QCOMPARE(QFile::exists(file), false);
    QVERIFY(exporter.exportProject(project, file));
    QVERIFY(!exporter.exportProject(project, file, [](qint64, qint64) { return false; }));
    QVERIFY(QDPXImporter({}).importProject(file).project);
    const auto cancelled = QDPXImporter({}).importProject(file, [](qint64, qint64) { return false; });
    QVERIFY(!cancelled.project && cancelled.error.isEmpty());
    QVERIFY(!exporter.exportProject(project, exercise.path("missing/folder.qdpx")));
    QVERIFY(QDir(QDir::tempPath()).entryList({"Kernova_*_qdpx*"}).isEmpty());
}

KERNOVA_TEST_MAIN(tst_Exchange)
#include "tst_exchange.moc"
