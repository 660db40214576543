#include "project/Statistics.h"
#include "tests_support/TestMain.h"

namespace {

QJsonObject valueRow(const QString& value, int occurrences, int sources, int withKey) {
    return {{"value", value},
            {"valueFactor", 0.5},
            {"valueOccurrences", occurrences},
            {"keyOccurrences", 3},
            {"keyFactor", 0.7},
            {"sourcesCount", sources},
            {"sourcesOccurrences", withKey}};
}

QVariantMap at(const QVariantList& list, int row) {
    return list.at(row).toMap();
}

}  // namespace

class TestStatistics : public QObject {
    Q_OBJECT

private slots:
    void keepsCompleteOverviews() {
        const QJsonArray answer{valueRow("a", 1, 3, 3), valueRow("b", 2, 3, 3)};
        QCOMPARE(statistics::metadataOverview(answer, "ND"), answer.toVariantList());
    }

    void addsSourcesWithoutTheKey() {
        const QJsonArray answer{valueRow("a", 1, 4, 3), valueRow("b", 2, 4, 3)};
        const QVariantList list = statistics::metadataOverview(answer, "ND");
        QCOMPARE(list.size(), 3);
        QCOMPARE(at(list, 0), (QVariantMap{{"value", "a"},
                                           {"valueFactor", 0.5},
                                           {"valueOccurrences", 1.0},
                                           {"keyOccurrences", 4},
                                           {"keyFactor", 0.25},
                                           {"sourcesCount", 4.0},
                                           {"sourcesOccurrences", 3.0}}));
        QCOMPARE(at(list, 1).value("keyFactor").toDouble(), 0.5);
        QCOMPARE(at(list, 2), (QVariantMap{{"value", "ND"},
                                           {"valueFactor", 0.25},
                                           {"valueOccurrences", 1},
                                           {"keyOccurrences", 4},
                                           {"keyFactor", 0.25},
                                           {"sourcesCount", 4}}));
    }

    void countsSourcesOfKernos() {
        const auto row = [](const QString& value, int occurrences, int sources) {
            return QJsonObject{
                {"value", value}, {"valueOccurrences", occurrences}, {"sourcesOccurrences", sources}};
        };
        QVERIFY(statistics::metadataOverviewForKernos({}).isEmpty());
        const QVariantList list = statistics::metadataOverviewForKernos({row("a", 1, 4), row("b", 2, 4)});
        QCOMPARE(list.size(), 3);
        QCOMPARE(
            at(list, 1),
            (QVariantMap{{"value", "b"}, {"valueOccurrences", 2}, {"keyFactor", 0.5}, {"valueFactor", 0.5}}));
        QCOMPARE(at(list, 2), (QVariantMap{{"value", "Not Defined"},
                                           {"valueOccurrences", 1},
                                           {"keyFactor", 0.25},
                                           {"valueFactor", 0.25}}));
        QCOMPARE(statistics::metadataOverviewForKernos({row("a", 3, 3)}).size(), 1);
        QVERIFY(qIsInf(
            at(statistics::metadataOverviewForKernos({row("a", 1, 0)}), 0).value("keyFactor").toDouble()));
    }

    void sharesCoverage() {
        const auto row = [](int kerno, const QString& author, int len, int total) {
            return QJsonObject{
                {"kernoId", kerno}, {"author", author}, {"len", len}, {"totalLen", total}, {"count", 2}};
        };
        const QJsonArray answer{row(1, "Ann", 10, 40), row(1, "Bob", 30, 40), row(5, "Ann", 5, 0)};
        const QVariantMap ann{{"author", "Ann"}, {"coverage", 5.0}, {"count", 2.0}, {"share", 25.0}};
        const QVariantMap bob{{"author", "Bob"}, {"coverage", 15.0}, {"count", 2.0}, {"share", 75.0}};
        const QVariantMap late{{"author", "Ann"}, {"coverage", 2.5}, {"count", 2.0}, {"share", 0.0}};
        QCOMPARE(statistics::coverageByAuthor(answer, 200), QVariantList({ann, bob, late}));
        QCOMPARE(at(statistics::coverageByAuthor(answer, 0), 0).value("coverage").toDouble(), 0.0);
        QCOMPARE(at(statistics::coverageByKerno(answer, 200), 1),
                 (QVariantMap{{"kernoId", 1.0}, {"coverage", 15.0}, {"count", 2.0}}));
        QCOMPARE(statistics::coverageByKernoAndAuthor(answer, 200),
                 QVariantList({QVariantMap{{"kernoId", 1.0}, {"authors", QVariantList{ann, bob}}},
                               QVariantMap{{"kernoId", 5.0}, {"authors", QVariantList{late}}}}));
        QVERIFY(statistics::coverageByKernoAndAuthor({}, 200).isEmpty());
    }
};

KERNOVA_TEST_MAIN(TestStatistics)
#include "tst_statistics.moc"
