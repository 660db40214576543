#include "ProjectSupport.h"
#include "RandomProject.h"
#include "tests_support/TestMain.h"
#include "wire/QueryText.h"

#include <functional>
#include <map>
#include <numeric>

namespace {

/// A row of a query, and what it asks.
struct Condition {
    QVariant property;
    const char* op;
    const char* value;
    std::function<bool(const Passage&)> holds;
};

struct Row {
    Condition condition;
    bool isAnd;  ///< how it is joined to the next
    int level;
};

QVariantMap map(const Row& row) {
    return {{"property", row.condition.property},
            {"operator", row.condition.op},
            {"value", row.condition.value},
            {"junctionOperator", row.isAnd ? " AND" : " OR"},
            {"level", row.level}};
}

bool isMet(const std::vector<std::pair<bool, bool>>& rows) {
    bool met = rows.back().first;
    for (int i = static_cast<int>(rows.size()) - 2; i >= 0; --i) {
        const auto& [holds, isAnd] = rows[size_t(i)];
        met = isAnd ? holds && met : holds || met;
    }
    return met;
}

/// The query as it is read: neighbouring rows of level 1 are one.
bool passes(const std::vector<Row>& rows, const Passage& passage) {
    std::vector<std::pair<bool, bool>> outer, bracket;
    for (size_t i = 0; i < rows.size(); ++i) {
        bracket.emplace_back(rows[i].condition.holds(passage), rows[i].isAnd);
        if (rows[i].level == 1 && i + 1 < rows.size() && rows[i + 1].level == 1)
            continue;
        outer.emplace_back(isMet(bracket), bracket.back().second);
        bracket.clear();
    }
    return isMet(outer);
}

}  // namespace

/// What the project and the service count together, against a count by hand over random projects.
class TestFigures : public QObject {
    Q_OBJECT

private slots:
    void allAgreeWithCounting_data() {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 6; ++seed)
            addRow(qPrintable(QString::number(seed)), seed);
    }

    void allAgreeWithCounting() {
        QFETCH(quint32, seed);
        const Project project(seed);
        m_file.restart();
        QVERIFY(m_file.create());
        store(project);
        checkCoverage(project);
        checkKernos(project);
        for (int key = 1; key <= project.keys; ++key)
            checkValues(project, key);
        checkCriteria(project);
    }

private:
    void store(const Project& project) {
        for (int id = 1; id <= project.kernos; ++id)
            m_file->saveKerno(
                Kerno(id, -1, Qt::red, QString::number(id), {}, {}, project.kernoAuthor(id), 1, 1));
        for (int id = 1; id <= project.sources; ++id)
            m_file->saveSource(ProjectUnderTest::source(id, QString::number(id)));
        for (int id = 1; id <= project.keys * project.valuesOfKey; ++id)
            m_file->saveMetadataValue(
                SourceMetadataValue(id, (id - 1) / project.valuesOfKey + 1, Project::valueText(id)));
        for (const auto& [id, source, key, value] : project.links)
            m_file->saveMetadata(SourceMetadata(id, source, key, value, "Ann"_s, {}));
        int membership = 0;
        for (const auto& [kerno, group] : project.memberships)
            m_file->saveKernoGroup(KernoGroup(++membership, group, kerno));
        QList<Highlight> highlights;
        for (const auto& [id, kerno, source, question, start, length, author] : project.highlights)
            highlights << Highlight(id, kerno, source, question, {}, start, length, start + length, author,
                                    {}, 0, 0, 0, false);
        QVERIFY(m_file->batchSaveHighlights(highlights));
        QCOMPARE(m_file->totalHighlightsCount(), highlights.size());
    }

    // Of a whole of 100 characters, so that shares are lengths.
    void checkCoverage(const Project& project) {
        const auto check = [&](const QVariantMap& row, auto counts) {
            QCOMPARE(row["coverage"].toInt(), covered(project, counts));
            QCOMPARE(row["count"].toInt(), number(project, counts));
        };
        int total = 0;
        for (const QString& author : project.authors)
            total += covered(project, [&](const Passage& each) { return each.author == author; });
        const QVariantList byAuthor = m_file->highlightsCoverageByAuthor(100);
        QCOMPARE(byAuthor.size(), 3);
        for (const QVariant& value : byAuthor) {
            const QVariantMap row = value.toMap();
            check(row, [&](const Passage& each) { return each.author == row["author"].toString(); });
            QCOMPARE(row["share"].toDouble(), row["coverage"].toDouble() / total * 100);
        }
        const QVariantList byKerno = m_file->highlightsCoverageByKerno(100);
        QCOMPARE(byKerno.size(), project.kernos);
        for (const QVariant& row : byKerno)
            check(row.toMap(),
                  [&](const Passage& each) { return each.kernoId == row.toMap()["kernoId"].toInt(); });
        const QVariantList byBoth = m_file->highlightsCoverageByKernoAndAuthor(100);
        QCOMPARE(byBoth.size(), project.kernos);
        for (const QVariant& value : byBoth) {
            double share = 0;
            const int kernoId = value.toMap()["kernoId"].toInt();
            for (const QVariant& each : value.toMap()["authors"].toList()) {
                const QVariantMap row = each.toMap();
                check(row, [&](const Passage& passage) {
                    return passage.kernoId == kernoId && passage.author == row["author"].toString();
                });
                share += row["share"].toDouble();
            }
            QVERIFY(qAbs(share - 100) < 1e-6);
        }
        const QJsonArray lengths =
            m_file->dataHelper()
                ->queryValue(wire::sourceCodedLengthById(), wire::name::sourceCodedLengthById)
                .toArray();
        QCOMPARE(lengths.size(), project.sources);
        for (const QJsonValue& row : lengths)
            QCOMPARE(row["coded_length"].toInt(), covered(project, [&](const Passage& each) {
                         return each.sourceId == row["id"].toInt();
                     }));
    }

    void checkKernos(const Project& project) {
        int most = 0;
        QList<QVariant> overlapping;
        for (int id = 1; id <= project.kernos; ++id) {
            const int count = number(project, [&](const Passage& each) { return each.kernoId == id; });
            most = std::max(most, count);
            QCOMPARE(m_file->totalHighlightsCountByKernoId(id), count);
            QVERIFY(waitFor([&] { return m_file->highlightsCountForKerno(id) == count; }));
            int others = 0;
            for (int other = 1; other <= project.kernos; ++other) {
                const int expected = pairs(project, id, other);
                QCOMPARE(m_file->getOverlap(id, other), expected);
                others += other != id && expected > 0;
            }
            QCOMPARE(m_file->getOverlappingKernosCount(id), others);
            if (others > 0)
                overlapping << id;
            const QVariantList overview = m_file->highlightsOverviewPerSourceForKerno(id);
            QCOMPARE(overview.size(), static_cast<int>(project.sourcesOfKernos({id}).size()));
            for (const QVariant& value : overview) {
                const QVariantMap row = value.toMap();
                const int source = row["sourceTitle"].toInt();
                QCOMPARE(row["sourceHighlights"].toInt(),
                         number(project, [&](const Passage& each) { return each.sourceId == source; }));
                const int here = number(project, [&](const Passage& each) {
                    return each.sourceId == source && each.kernoId == id;
                });
                QCOMPARE(row["kernoHighlights"].toInt(), here);
                QCOMPARE(m_file->totalHighlightsCountByKernoIdAndSourceId(id, source), here);
            }
        }
        QCOMPARE(m_file->maxHighlightsCount(), most);
        QCOMPARE(m_file->kernoIdsForKernosWithOverlaps(), overlapping);
    }

    // Rows of the values that are used, and one of the sources without any.
    void checkValues(const Project& project, int key) {
        const std::set<int> within = project.sourcesOfKernos({2, 5});
        std::map<QString, int> uses, usesWithin;
        std::set<int> withKey;
        int links = 0;
        for (const Link& link : project.links) {
            if (link.keyId != key)
                continue;
            ++links;
            ++uses[Project::valueText(link.valueId)];
            withKey.insert(link.sourceId);
            if (within.count(link.sourceId))
                ++usesWithin[Project::valueText(link.valueId)];
        }
        const int missing = project.sources - static_cast<int>(withKey.size());
        const double sources = project.sources;
        const QVariantList overview = m_file->metadataOverviewForKeyId(key);
        QCOMPARE(overview.size(), static_cast<int>(uses.size()) + (missing > 0));
        for (int i = 0; i < overview.size(); ++i) {
            const QVariantMap row = overview.at(i).toMap();
            const bool isMissing = missing > 0 && i == overview.size() - 1;
            const QString value = row["value"].toString();
            const int count = isMissing ? missing : uses[value];
            QCOMPARE(isMissing, value == QLatin1String("Not Defined"));
            QCOMPARE(row["valueOccurrences"].toInt(), count);
            QCOMPARE(row["valueFactor"].toDouble(), count / sources);
            QCOMPARE(row["sourcesCount"].toInt(), project.sources);
            if (links > 0) {
                QCOMPARE(row["keyOccurrences"].toInt(), links + (missing > 0));
                QCOMPARE(row["keyFactor"].toDouble(), count / double(links + missing));
            }
        }
        int sum = 0;
        for (const QVariant& each : m_file->metadataOverviewForKeyAndKernoId(key, {2, 5})) {
            const QVariantMap row = each.toMap();
            const int count = row["valueOccurrences"].toInt();
            const QString value = row["value"].toString();
            sum += value == QLatin1String("Not Defined") ? 0 : count;
            QVERIFY(value == QLatin1String("Not Defined") || count == usesWithin[value]);
            QCOMPARE(row["keyFactor"].toDouble(), count / double(within.size()));
        }
        QCOMPARE(sum, std::accumulate(usesWithin.begin(), usesWithin.end(), 0,
                                      [](int all, const auto& use) { return all + use.second; }));
        QVERIFY(m_file->metadataOverviewForKeyAndKernoId(key, {}).isEmpty());
    }

    void checkCriteria(const Project& project) {
        const auto hasValue = [&](const Passage& each, const char* text) {
            return std::any_of(project.links.begin(), project.links.end(), [&](const Link& link) {
                return link.sourceId == each.sourceId && link.keyId == 1 &&
                       Project::valueText(link.valueId) == QLatin1String(text);
            });
        };
        const auto inGroup = [&](const Passage& passage, auto holds) {
            return std::any_of(project.memberships.begin(), project.memberships.end(), [&](const auto& each) {
                return each.first == passage.kernoId && holds(each.second);
            });
        };
        const auto all = [](const Passage&) { return true; };
        const auto none = [](const Passage&) { return false; };
        const std::vector<Condition> conditions{
            {"HA", "=", "Bo", [](const Passage& each) { return each.author == QLatin1String("Bo"); }},
            {"QA", "!=", "Ann",
             [&](const Passage& each) { return project.kernoAuthor(each.kernoId) != "Ann"_s; }},
            {"ST", ">=", "3", [](const Passage& each) { return each.sourceId >= 3; }},
            {"ST", "!=", "x", all},
            {"GR", "=", "2",
             [&](const Passage& each) { return inGroup(each, [](int g) { return g == 2; }); }},
            {"GR", "!=", "2",
             [&](const Passage& each) { return !inGroup(each, [](int g) { return g == 2; }); }},
            {"GR", "<", "3", [&](const Passage& each) { return inGroup(each, [](int g) { return g < 3; }); }},
            {"HD", "<=", "2999-01-01", all},
            {"QD", "<", "1999-01-01", none},
            {1, "=", "tOWN", [&](const Passage& each) { return hasValue(each, "Town"); }},
            {"1", "!=", "7.0", [&](const Passage& each) { return !hasValue(each, "7"); }},
            // As numbers 7 is less than 30; the word is compared as a text.
            {1, "<", "8", [&](const Passage& each) { return hasValue(each, "7"); }},
            {"HA", "!=", "", all}};
        for (const Condition& each : conditions)
            checkQuery(project, {{each, true, 0}});
        QRandomGenerator random(11);
        for (int round = 0; round < 40; ++round) {
            std::vector<Row> rows;
            for (int i = 2 + random.bounded(4); i > 0; --i)
                rows.push_back({conditions[random.bounded(quint32(conditions.size()))],
                                random.bounded(2) == 0, random.bounded(2)});
            checkQuery(project, rows);
        }
        // What the service can't read as one row is none.
        for (const char* value : {"a\"b", "Ann\"},{fieldName:\""})
            QVERIFY(m_file->kernosWithHighlightsAndCriteria({map({{"HA", "!=", value, all}, true, 0})})
                        .isEmpty());
        // A row that isn't filled in yet limits nothing.
        QCOMPARE(m_file->kernosWithHighlightsAndCriteria({QVariantMap{{"property", "HA"}}}),
                 m_file->kernosWithHighlightsAndCriteria({}));
    }

    /// Compares with a plain filter over all highlights.
    void checkQuery(const Project& project, const std::vector<Row>& rows) {
        std::map<int, std::set<int>> expected, found;
        for (int kernoId = 1; kernoId <= project.kernos; ++kernoId)
            expected[kernoId];
        for (const Passage& each : project.highlights) {
            if (passes(rows, each))
                expected[each.kernoId].insert(each.id);
        }
        QVariantList maps;
        for (const Row& row : rows)
            maps.append(map(row));
        for (const QVariant& each : m_file->kernosWithHighlightsAndCriteria(maps)) {
            std::set<int>& ids = found[each.toMap()["kerno"].toMap()["kernoId"].toInt()];
            for (const QVariant& value : each.toMap()["highlights"].toList()) {
                const QVariantMap highlight = value.toMap();
                const int id = highlight["highlightId"].toInt();
                const Passage& passage = project.highlights.at(size_t(id - 1));
                QCOMPARE(highlight["author"].toString(), passage.author);
                QCOMPARE(highlight["end"].toInt(), passage.end());
                ids.insert(id);
            }
        }
        const auto json = QJsonDocument::fromVariant(maps).toJson(QJsonDocument::Compact);
        QVERIFY2(found == expected, json.constData());
    }

    ProjectUnderTest m_file;
};

KERNOVA_TEST_MAIN(TestFigures)
#include "tst_figures.moc"
