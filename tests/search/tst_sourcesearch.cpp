#include "../project/ProjectSupport.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "search/SourceSearch.h"
#include "tests_support/TestMain.h"

using namespace Search;

namespace {

// Source 1, by Ann, aged "30": kerno 1 on [0, 9), kerno 2 on [4, 20). Source 2, by Bob, without an age: kerno
// 1 on [4, 9).
const QString first = "one trust and two trusts in a row"_s;
const QString second = "any trust at all"_s;

QVariantMap row(const QString& kind, const QVariant& value, const QString& op) {
    return {{kind, kind == QLatin1String("property") ? QVariant(1) : QVariant(true)},
            {"value", value},
            {"operator", op}};
}

}  // namespace

class TestSourceSearch : public QObject {
    Q_OBJECT

private:
    ProjectUnderTest m_file;
    std::unique_ptr<SourceSearch> m_search;

    /// Source and place of each result, and what is marked in it.
    QStringList found(const Request& request) {
        QSignalSpy started(m_search.get(), &SourceSearch::started);
        QSignalSpy finished(m_search.get(), &SourceSearch::finished);
        QSignalSpy results(m_search.get(), &SourceSearch::resultsAvailable);
        m_search->search(request);
        if (started.size() != 1 || results.size() != 1 || finished.size() != 1)
            return {"signals"};
        QStringList list;
        for (const QVariant& result : results.first().first().toList()) {
            const auto answer = result.value<QuestionAnswer>();
            list.append("%1:%2 %3"_s.arg(answer.sourceId()).arg(answer.offset()).arg(answer.plainAnswer()));
        }
        return list;
    }

private slots:
    void initTestCase() {
        QVERIFY(m_file.create());
        for (int id : {1, 2}) {
            m_file->saveKerno(Kerno(id, -1, QColor(Qt::red), "Kerno", {}, {}, "Ann", 5, 6));
            m_file->saveSource(Source(id, "Interview", "md_generic", id == 1 ? "Ann" : "Bob", {}));
            m_file->saveAnswer(QuestionAnswer(id, 1, id, "Ann", id == 1 ? first : second, {}));
        }
        m_file->saveMetadataKey(SourceMetadataKey(1, false, false, "Age"));
        m_file->saveMetadataValue(SourceMetadataValue(1, 1, "30"));
        m_file->saveMetadata(SourceMetadata(1, 1, 1, 1, "Ann", {}));
        m_file->saveHighlight(ProjectUnderTest::highlight(1, 0, 9, 1, 1));
        m_file->saveHighlight(ProjectUnderTest::highlight(2, 4, 16, 2, 1));
        m_file->saveHighlight(ProjectUnderTest::highlight(3, 4, 5, 1, 2));
        QVERIFY(waitFor([&] {
            return m_file->answerModel()->rowCount() == 2 && m_file->metadataModel()->rowCount() == 1 &&
                   m_file->metadataValueModel()->rowCount() == 1 && m_file->totalHighlightsCount() == 3;
        }));
        m_search = std::make_unique<SourceSearch>(m_file.get());
    }

    void finds_data() {
        columns<Request, QStringList>({"request", "expected"});
        // "trust" ends inside "trusts": each word from there on takes the blank behind it, and the last has
        // none.
        const QString whole1 = "1:0 " + first.chopped(3), whole2 = "2:0 " + second;
        const Option coded = Option::CodedTextOnly;
        QTest::newRow("everywhere") << Request{"trust"} << QStringList{whole1, whole2};
        QTest::newRow("nothing") << Request{""} << QStringList{};
        QTest::newRow("invalid") << Request{"(trust", 0, Option::AlternativeEndings} << QStringList{};
        QTest::newRow("one source") << Request{"trust", 2} << QStringList{whole2};
        QTest::newRow("a missing source") << Request{"trust", 9} << QStringList{};
        const QVariantList ann{row("author", "Ann", "=")};
        const QVariantList both{row("author", "Ann", "="), row("author", "Bob", "=")};
        QTest::newRow("author") << Request{"trust", 0, {}, {}, ann, true} << QStringList{whole1};
        QTest::newRow("two authors, and") << Request{"trust", 0, {}, {}, both, true} << QStringList{};
        QTest::newRow("two authors, or") << Request{"trust", 0, {}, {}, both} << QStringList{whole1, whole2};
        QTest::newRow("a source that fails") << Request{"trust", 2, {}, {}, ann} << QStringList{};
        QTest::newRow("property") << Request{"trust", 0, {}, {}, {row("property", "30", "=")}}
                                  << QStringList{whole1};
        QTest::newRow("no value is another")
            << Request{"trust", 0, {}, {}, {row("property", "30", "!=")}} << QStringList{whole2};
        QTest::newRow("all coded text, or")
            << Request{"t", 0, coded} << QStringList{"1:0 one trust and two t", "2:4 trust"};
        QTest::newRow("all coded text, and")
            << Request{"t", 1, coded, {}, {}, true} << QStringList{"1:0 one trust", "1:4 trust and two t"};
        const QVariantList kernos{row("kerno", 1, "="), row("kerno", 2, "=")};
        QTest::newRow("both kernos") << Request{"trust", 0, {}, {}, kernos, true} << QStringList{"1:4 trust"};
        QTest::newRow("either kerno")
            << Request{"and", 0, {}, {}, kernos} << QStringList{"1:0 one trust and two tr"};
        QTest::newRow("one and not the other")
            << Request{"trust", 0, {}, {}, {row("kerno", 1, "="), row("kerno", 2, "!=")}, true}
            << QStringList{"2:4 trust"};
        QTest::newRow("cancelled") << Request{"row", 0, {}, {}, {row("kerno", 1, "="), row("kerno", 1, "!=")},
                                              true}
                                   << QStringList{"1:10 and two trusts in a row"};
        QTest::newRow("groups count for nothing")
            << Request{"row", 0, {}, {}, {row("kernoGroup", 1, "=")}, true}
            << QStringList{"1:10 and two trusts in a row"};
    }

    void finds() {
        QFETCH(Request, request);
        QTEST(found(request), "expected");
    }

    // One that is given up finds nothing, and says so.
    void waitsForTexts() {
        m_file->close();
        QVERIFY(m_file.open());
        QVERIFY(!m_file->allTextsHere());
        QCOMPARE(found({"trust"}).size(), 2);
        m_file->close();
        QVERIFY(m_file.open());
        QSignalSpy told(m_file.get(), &KRNFile::notifyUser);
        QTimer::singleShot(0, [this] { m_file->cancelTextWait(); });
        QCOMPARE(found({"trust"}), QStringList{"signals"});
        QCOMPARE(told.size(), 1);
        QVERIFY(m_file->waitForTexts());
    }

    void readsOn() {
        QCOMPARE(found({"trust", 2}).size(), 1);
        const QuestionAnswer more = m_search->extendedResult(1, 1, 4, 100);
        QCOMPARE(more.plainAnswer(), first.mid(4));
        QCOMPARE(more.offset(), 4);
        QCOMPARE(more.answer().count("orange"), 2);
        QCOMPARE(m_search->extendedResult(1, 1, 99, 5).answerId(), -1);
        QCOMPARE(m_search->extendedResult(7, 1, 0, 5).answerId(), -1);
    }
};

Q_DECLARE_METATYPE(Search::Request)

KERNOVA_TEST_MAIN(TestSourceSearch)
#include "tst_sourcesearch.moc"
