#include "project/CriteriaEvaluation.h"
#include "project/QueryCriterion.h"
#include "project/RecordNumbers.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "tests_support/TestMain.h"

using criteria::Item;
using criteria::Results;
using criteria::Term;

namespace {

QVariantMap row(const QVariant& property, const QString& op, const QVariant& value,
                const QString& junction = " AND"_s, int level = 0) {
    return {{"property", property},
            {"operator", op},
            {"value", value},
            {"junctionOperator", junction},
            {"level", level}};
}

/// Whether each of the rows is met, and how it is joined to the next.
using Rows = QVector<QPair<bool, bool>>;

bool isMet(const Rows& rows) {
    bool met = rows.last().first;
    for (int i = rows.size() - 2; i >= 0; --i)
        met = rows[i].second ? rows[i].first && met : rows[i].first || met;
    return met;
}

/// Whether one coding passes, by the query as it is read: neighbouring rows of level 1 are one.
bool passes(const QVector<Term>& terms, int kerno, int highlight) {
    Rows outer, bracket;
    for (int i = 0; i < terms.size(); ++i) {
        bracket.append({terms[i].results.at(kerno).highlights.contains(highlight), terms[i].isAnd});
        if (terms[i].level == 1 && i + 1 < terms.size() && terms[i + 1].level == 1)
            continue;
        outer.append({isMet(bracket), bracket.last().second});
        bracket.clear();
    }
    return isMet(outer);
}

constexpr int kernos = 4;
constexpr int codings = 6;

Results randomResults(QRandomGenerator& random) {
    Results results;
    for (int kerno = 0; kerno < kernos; ++kerno) {
        Item item{kerno, {}};
        for (int highlight = 0; highlight < codings; ++highlight) {
            if (random.bounded(2))
                item.highlights.append(highlight);
        }
        results.append(item);
    }
    return results;
}

}  // namespace

class TestCriteria : public QObject {
    Q_OBJECT

private slots:
    void readsRows_data() {
        columns<QVariantMap, bool, bool, bool>({"map", "valid", "isAnd", "ordered"});
        addRow("plain", row("HA", "=", "Ann"), true, true, false);
        addRow("ordered", row(7, ">=", 3, " or"), true, false, true);
        addRow("less", row(7, "<", 3), true, true, true);
        addRow("unequal", row(7, "!=", 3), true, true, false);
        addRow("empty value counts", row("HA", "=", ""), true, true, false);
        addRow("unknown operator", row("HA", "~", "Ann"), false, false, false);
        addRow("junction without its blank", row("HA", "<", "Ann", "AND"), false, false, true);
        addRow("no value", QVariantMap{{"property", "HA"}, {"operator", "="}, {"junctionOperator", " AND"}},
               false, true, false);
        addRow("no property", row("", "=", "Ann"), false, true, false);
        addRow("level 2", row("HA", "=", "Ann", " AND", 2), false, true, false);
    }

    void readsRows() {
        QFETCH(QVariantMap, map);
        const QueryCriterion criterion(map);
        QTEST(criterion.isValid(), "valid");
        QTEST(criterion.isAnd(), "isAnd");
        QTEST(criterion.isOrderedComparison(), "ordered");
    }

    void asksTheService_data() {
        columns<QVariantMap, QString>({"map", "arguments"});
        addRow("key", row(7, ">", 30), "(fieldName: \"value\" operator: \">\" value: \"30\" keyId: 7)");
        addRow("key as text", row("7", "=", "x"),
               "(fieldName: \"value\" operator: \"=\" value: \"x\" keyId: 7)");
        addRow("HA", row("HA", "=", "Ann"),
               "(fieldName: \"highlightAuthor\" operator: \"=\" value: \"Ann\")");
        addRow("QA", row("QA", "!=", "Ann"), "(fieldName: \"kernoAuthor\" operator: \"!=\" value: \"Ann\")");
        addRow("HD", row("HD", "<", "2020-01-01"),
               "(fieldName: \"highlightDate\" operator: \"<\" value: \"2020-01-01\")");
        addRow("QD", row("QD", "<=", "2020-01-01"),
               "(fieldName: \"kernoDate\" operator: \"<=\" value: \"2020-01-01\")");
        QTest::newRow("GR") << row("GR", "=", 4) << "(fieldName: \"level\" operator: \"=\" value: \"4\")";
        addRow("ST", row("ST", "=", 5), "(fieldName: \"sourceId\" operator: \"=\" value: \"5\")");
        addRow("unescaped", row("HA", "=", "a\"%1"),
               "(fieldName: \"highlightAuthor\" operator: \"=\" value: \"a\"%1\")");
        addRow("everything", row("HA", "!=", ""), "");
    }

    void asksTheService() {
        FETCH(QVariantMap, map, QString, arguments);
        QCOMPARE(QueryCriterion(map).queryText(),
                 "{kernoQueryListWithHighlightsAndCriteria" + arguments +
                     "{id parentKernoId color title description timestamp author x y  highlights{ "
                     "id kernoId sourceId questionId color start length author timestamp }}}");
    }

    void longerListComesFirst() {
        QCOMPARE(criteria::combine({{1, {5}}}, {{1, {6, 5, 7}}}, false), Results({{1, {6, 5, 7}}}));
        QCOMPARE(criteria::combine({{1, {1, 2}}}, {{1, {3, 4}}}, false), Results({{1, {1, 2, 3, 4}}}));
        QVERIFY(criteria::combine({{1, {5}}}, {{1, {5}}, {2, {}}}, true).isEmpty());
        QVERIFY(criteria::combine({{1, {5}}}, {{2, {5}}}, true).isEmpty());
        QCOMPARE(criteria::combine({{1, {5}}, {2, {6}}}, {{2, {6}}, {1, {5}}}, true),
                 Results({{1, {5}}, {2, {6}}}));
    }

    void agreesWithTheDefinition() {
        QRandomGenerator random(20240229);
        for (int round = 0; round < 1000; ++round) {
            QVector<Term> terms;
            for (int i = 1 + random.bounded(7); i > 0; --i)
                terms.append({random.bounded(2), random.bounded(2) == 0, randomResults(random)});
            const Results found = criteria::evaluate(terms);
            QCOMPARE(found.size(), kernos);
            for (int kerno = 0; kerno < kernos; ++kerno) {
                for (int highlight = 0; highlight < codings; ++highlight)
                    QCOMPARE(found.at(kerno).highlights.count(highlight),
                             passes(terms, kerno, highlight) ? 1 : 0);
            }
        }
    }

    void numbersRecordsThatAgree() {
        QJsonObject json{{"id", 4},         {"kernoId", 1},       {"sourceId", 1},
                         {"questionId", 1}, {"color", "#ff0000"}, {"start", 0},
                         {"length", 5},     {"author", "Ann"},    {"timestamp", "2024-01-02T03:04:05Z"}};
        RecordNumbers<Highlight> numbers;
        QCOMPARE(numbers.numberOf(json), 0);
        QCOMPARE(numbers.numberOf(json), 0);
        QJsonObject spelled = json;
        spelled["start"] = "0";
        QCOMPARE(numbers.numberOf(spelled), 0);
        const QList<QPair<QString, QJsonValue>> changes{
            {"author", "Bob"}, {"color", "#00ff00"}, {"length", 6}, {"timestamp", "2024-01-02T03:04:06Z"}};
        int next = 1;
        for (const auto& change : changes) {
            QJsonObject other = json;
            other[change.first] = change.second;
            QCOMPARE(numbers.numberOf(other), next++);
        }
        QCOMPARE(numbers.numberOf(json), 0);
        QCOMPARE(numbers.map(1).value("author").toString(), "Bob"_s);
        QCOMPARE(numbers.map(0), Highlight(json, "").toVariantMap());
    }
};

KERNOVA_TEST_MAIN(TestCriteria)
#include "tst_criteria.moc"
