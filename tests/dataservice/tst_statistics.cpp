#include "RandomProject.h"
#include "ServiceClient.h"
#include "store/Sweeps.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"
#include "wire/QueryText.h"

#include <algorithm>
#include <map>
#include <set>

using wire::Record;

class TestStatistics : public QObject {
    Q_OBJECT
private:
    QTemporaryDir m_folder;
    RealService m_service;
    ServiceClient m_client;

    void store(const Project& project) {
        const auto add = [&](Record record, const QList<QPair<QString, QVariant>>& fields) {
            QStringList arguments;
            for (const auto& [name, value] : fields)
                arguments << (value.type() == QVariant::Int ? wire::argument(name, value.toInt())
                                                            : wire::argument(name, value.toString()));
            m_client.send(ServiceClient::saving(record, arguments.join(' ')));
        };
        for (int id = 1; id <= project.kernos; ++id)
            add(Record::Kerno, {{"id", id}, {"author", project.authors[id % 3]}});
        for (int id = 1; id <= project.sources; ++id)
            add(Record::Source, {{"id", id}, {"title", "Source %1"_s.arg(id)}});
        for (int id = 1; id <= project.keys * project.valuesOfKey; ++id) {
            const int key = (id - 1) / project.valuesOfKey + 1;
            add(Record::SourceMetadataValue, {{"id", id}, {"keyId", key}, {"value", valueText(id)}});
        }
        for (const auto& [id, source, key, value] : project.links)
            add(Record::SourceMetadata,
                {{"id", id}, {"sourceId", source}, {"keyId", key}, {"valueId", value}});
        int membership = 0;
        for (const auto& [kerno, group] : project.memberships)
            add(Record::KernoGroup, {{"id", ++membership}, {"kernoId", kerno}, {"groupId", group}});
        for (const auto& [id, kerno, source, question, start, length, author] : project.highlights)
            add(Record::Highlight, {{"id", id},
                                    {"kernoId", kerno},
                                    {"sourceId", source},
                                    {"questionId", question},
                                    {"start", start},
                                    {"length", length},
                                    {"author", author}});
        // A read is answered after everything before it.
        QVERIFY(m_client.ask("{kernoMaxId(next: false)}"_s).isDouble());
    }

    /// Values of a key: a number as text, a word, a greater number.
    static QString valueText(int id) {
        const QStringList texts{"7"_s, "Town"_s, "30"_s};
        return texts[(id - 1) % 3];
    }

    QJsonArray rows(const QString& query) { return m_client.ask(query).toArray(); }

    /// Ids of the passing highlights by kerno, of the criteria read.
    std::map<int, std::set<int>> passing(const QString& arguments) {
        std::map<int, std::set<int>> found;
        int last = 0;
        for (const QJsonValue& kerno : rows(wire::read(wire::name::kernoQueryListWithHighlightsAndCriteria,
                                                       arguments, "id title highlights{id start}"_s))) {
            const int id = kerno["id"_s].toInt();
            if (id <= last)
                return {};
            last = id;
            std::set<int>& ids = found[id];
            for (const QJsonValue& highlight : kerno["highlights"_s].toArray())
                ids.insert(highlight["id"_s].toInt());
        }
        return found;
    }

private slots:
    void initTestCase() {
        QVERIFY(m_service.start());
        QVERIFY(m_client.connectTo(m_service.port()));
    }

    void agreesWithCounting_data() {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 6; ++seed)
            addRow(qPrintable(QString::number(seed)), seed);
    }

    void agreesWithCounting() {
        QFETCH(quint32, seed);
        const Project project(seed);
        QVERIFY(m_client.open(m_folder.filePath(QString::number(seed) + ".krn"_s)));
        store(project);

        // Coverage.
        int total = 0;
        for (const QString& author : project.authors)
            total += covered(project, [&](const Passage& each) { return each.author == author; });
        const QJsonArray byAuthor = rows(wire::highlightsCoverageByAuthor());
        QCOMPARE(byAuthor.size(), 3);
        for (const QJsonValue& row : byAuthor) {
            const auto counts = [&](const Passage& each) {
                return each.author == row["author"_s].toString();
            };
            QCOMPARE(row["len"_s].toInt(), covered(project, counts));
            QCOMPARE(row["count"_s].toInt(), number(project, counts));
            QCOMPARE(row["totalLen"_s].toInt(), total);
        }
        std::map<int, int> sums;
        for (const QJsonValue& row : rows(wire::highlightsCoverageByKernoAndAuthor())) {
            const int kernoId = row["kernoId"_s].toInt();
            const auto counts = [&](const Passage& each) {
                return each.kernoId == kernoId && each.author == row["author"_s].toString();
            };
            QVERIFY(sums.empty() || sums.rbegin()->first <= kernoId);
            QCOMPARE(row["len"_s].toInt(), covered(project, counts));
            QCOMPARE(row["count"_s].toInt(), number(project, counts));
            sums[kernoId] += row["len"_s].toInt();
        }
        for (const QJsonValue& row : rows(wire::highlightsCoverageByKernoAndAuthor()))
            QCOMPARE(row["totalLen"_s].toInt(), sums[row["kernoId"_s].toInt()]);
        int most = 0;
        QCOMPARE(rows(wire::highlightsCoverageByKerno()).size(), project.kernos);
        QCOMPARE(rows(wire::quoteCountsInKernos()).size(), project.kernos);
        QVERIFY(static_cast<int>(sums.size()) == project.kernos);
        for (const QJsonValue& row : rows(wire::highlightsCoverageByKerno())) {
            const auto counts = [&](const Passage& each) { return each.kernoId == row["kernoId"_s].toInt(); };
            QCOMPARE(row["len"_s].toInt(), covered(project, counts));
            QCOMPARE(row["count"_s].toInt(), number(project, counts));
            most = std::max(most, number(project, counts));
        }
        QCOMPARE(m_client.ask(wire::maxHighlightsCount()).toInt(), most);
        QCOMPARE(rows(wire::sourceCodedLengthById()).size(), project.sources);
        for (const QJsonValue& row : rows(wire::sourceCodedLengthById())) {
            QCOMPARE(row["coded_length"_s].toInt(), covered(project, [&](const Passage& each) {
                         return each.sourceId == row["id"_s].toInt();
                     }));
        }

        // Overlaps.
        std::set<int> overlapping;
        for (int one = 1; one <= project.kernos; ++one) {
            int others = 0;
            for (int other = 1; other <= project.kernos; ++other) {
                const int expected = pairs(project, one, other);
                QCOMPARE(m_client.ask(wire::highlightOverlapCount(one, other)).toInt(), expected);
                others += other != one && expected > 0;
            }
            QCOMPARE(m_client.ask(wire::kernoOverlapCount(one)).toInt(), others);
            if (others > 0)
                overlapping.insert(one);
        }
        std::set<int> answered;
        for (const QJsonValue& id : rows(wire::kernoIdsForKernosWithOverlap()))
            answered.insert(id.toInt());
        QCOMPARE(answered, overlapping);

        // Counts by kerno and source.
        for (const QJsonValue& row : rows(wire::quoteCountsInKernos())) {
            const int kernoId = row["key"_s].toInt();
            QCOMPARE(row["value"_s].toInt(),
                     number(project, [&](const Passage& each) { return each.kernoId == kernoId; }));
            QCOMPARE(row["subvalue"_s].toInt(), static_cast<int>(project.sourcesOfKernos({kernoId}).size()));
        }
        for (int kernoId = 1; kernoId <= project.kernos; ++kernoId) {
            const QJsonArray overview = rows(wire::highlightsOverviewPerSourceForKerno(kernoId));
            QCOMPARE(overview.size(), static_cast<int>(project.sourcesOfKernos({kernoId}).size()));
            for (const QJsonValue& row : overview) {
                const int source = row["sourceTitle"_s].toString().mid(7).toInt();
                QCOMPARE(row["sourceHighlights"_s].toInt(),
                         number(project, [&](const Passage& each) { return each.sourceId == source; }));
                QCOMPARE(row["kernoHighlights"_s].toInt(), number(project, [&](const Passage& each) {
                             return each.sourceId == source && each.kernoId == kernoId;
                         }));
            }
        }
        checkMetadata(project);
        checkCriteria(project);
    }

    void sweepsKnownCases_data() {
        // start and end, each of a kerno of its own
        columns<QList<QPoint>, int>({"ranges", "pairsFound"});
        addRow("touching", QList<QPoint>{{0, 5}, {5, 9}}, 0);
        addRow("nested", QList<QPoint>{{0, 9}, {2, 4}, {3, 5}}, 3);
        addRow("equal", QList<QPoint>{{1, 3}, {1, 3}}, 1);
        addRow("empty inside", QList<QPoint>{{0, 9}, {4, 4}}, 1);
        addRow("empty at the start", QList<QPoint>{{4, 9}, {4, 4}}, 0);
        addRow("empty, then more", QList<QPoint>{{0, 3}, {4, 9}, {4, 4}, {5, 6}}, 1);
    }

    void sweepsKnownCases() {
        FETCH(QList<QPoint>, ranges, int, pairsFound);
        qint64 found = 0;
        OverlapSweep sweep([&](qint64, qint64, qint64 count) { found += count; });
        int kerno = 0;
        for (const QPoint& range : ranges)
            sweep.add(++kerno, range.x(), range.y());
        QCOMPARE(found, static_cast<qint64>(pairsFound));
        found = 0;
        for (const QPoint& range : ranges) {
            sweep.nextText();
            sweep.add(1, range.x(), range.y());
        }
        QCOMPARE(found, qint64(0));
    }

private:
    void checkMetadata(const Project& project) {
        for (int key = 1; key <= project.keys; ++key) {
            std::map<int, int> uses;
            std::set<int> sources;
            int links = 0;
            for (const Link& link : project.links) {
                if (link.keyId != key)
                    continue;
                ++uses[link.valueId];
                ++links;
                sources.insert(link.sourceId);
            }
            const QJsonArray overview = rows(wire::sourceMetadataOverviewForKeyId(key));
            QCOMPARE(overview.size(), static_cast<int>(uses.size()));
            auto use = uses.begin();
            for (const QJsonValue& row : overview) {
                QCOMPARE(row["value"_s].toString(), valueText(use->first));
                QCOMPARE(row["valueOccurrences"_s].toInt(), use->second);
                QCOMPARE(row["keyOccurrences"_s].toInt(), links);
                QCOMPARE(row["sourcesCount"_s].toInt(), project.sources);
                QCOMPARE(row["sourcesOccurrences"_s].toInt(), static_cast<int>(sources.size()));
                QCOMPARE(row["valueFactor"_s].toDouble(), double(use->second) / project.sources);
                QCOMPARE(row["keyFactor"_s].toDouble(), double(use->second) / links);
                ++use;
            }
            const std::set<int> within = project.sourcesOfKernos({2, 5});
            std::map<int, int> usesWithin;
            for (const Link& link : project.links) {
                if (link.keyId == key && within.count(link.sourceId))
                    ++usesWithin[link.valueId];
            }
            const QJsonArray limited = rows(wire::sourceMetadataOverviewForKeyAndKernosId(key, {2, 5}));
            QCOMPARE(limited.size(), static_cast<int>(usesWithin.size()));
            use = usesWithin.begin();
            for (const QJsonValue& row : limited) {
                QCOMPARE(row["valueOccurrences"_s].toInt(), use->second);
                QCOMPARE(row["sourcesOccurrences"_s].toInt(), static_cast<int>(within.size()));
                ++use;
            }
        }
        QCOMPARE(rows(wire::sourceMetadataOverviewForKeyAndKernosId(1, {})).size(), 0);
    }

    /// Compares with a plain filter over all highlights.
    template <typename Passes>
    void compareCriteria(const Project& project, const QString& arguments, Passes passes) {
        std::map<int, std::set<int>> expected;
        for (int kernoId = 1; kernoId <= project.kernos; ++kernoId)
            expected[kernoId];
        for (const Passage& each : project.highlights) {
            if (passes(each))
                expected[each.kernoId].insert(each.id);
        }
        QVERIFY2(passing(arguments) == expected, qPrintable(arguments));
    }

    void checkCriteria(const Project& project) {
        const auto criterion = [](const char* field, const char* op, const char* value) {
            return "fieldName: \"%1\" operator: \"%2\" value: \"%3\""_s.arg(
                QLatin1String(field), QLatin1String(op), QLatin1String(value));
        };
        const auto hasValue = [&](const Passage& each, int key, auto holds) {
            return std::any_of(project.links.begin(), project.links.end(), [&](const Link& link) {
                return link.sourceId == each.sourceId && link.keyId == key && holds(valueText(link.valueId));
            });
        };
        const auto inGroup = [&](int kernoId, auto holds) {
            return std::any_of(project.memberships.begin(), project.memberships.end(),
                               [&](const auto& each) { return each.first == kernoId && holds(each.second); });
        };
        const auto kernoAuthor = [&](const Passage& each) { return project.authors[each.kernoId % 3]; };
        const QString withKey = " keyId: 1"_s;

        compareCriteria(project, criterion("highlightAuthor", "=", "Bo"),
                        [](const Passage& each) { return each.author == QLatin1String("Bo"); });
        compareCriteria(project, criterion("kernoAuthor", "!=", "Ann"),
                        [&](const Passage& each) { return kernoAuthor(each) != QLatin1String("Ann"); });
        compareCriteria(project, criterion("sourceId", ">=", "3"),
                        [](const Passage& each) { return each.sourceId >= 3; });
        compareCriteria(project, criterion("sourceId", "!=", "x"), [](const Passage&) { return true; });
        compareCriteria(project, criterion("level", "=", "2"), [&](const Passage& each) {
            return inGroup(each.kernoId, [](int group) { return group == 2; });
        });
        compareCriteria(project, criterion("level", "!=", "2"), [&](const Passage& each) {
            return !inGroup(each.kernoId, [](int group) { return group == 2; });
        });
        compareCriteria(project, criterion("level", "<", "3"), [&](const Passage& each) {
            return inGroup(each.kernoId, [](int group) { return group < 3; });
        });
        compareCriteria(project, criterion("highlightDate", "<=", "2999-01-01"),
                        [](const Passage&) { return true; });
        compareCriteria(project, criterion("kernoDate", "<", "1999-01-01"),
                        [](const Passage&) { return false; });
        compareCriteria(project, criterion("value", "=", "tOWN") + withKey, [&](const Passage& each) {
            return hasValue(each, 1, [](const QString& text) { return text == QLatin1String("Town"); });
        });
        compareCriteria(project, criterion("value", "!=", "7.0") + withKey, [&](const Passage& each) {
            return !hasValue(each, 1, [](const QString& text) { return text == QLatin1String("7"); });
        });
        // As numbers 7 is less than 30; the word is compared as a text.
        compareCriteria(project, criterion("value", "<", "8") + withKey, [&](const Passage& each) {
            return hasValue(each, 1, [](const QString& text) { return text == QLatin1String("7"); });
        });
        QCOMPARE(m_client
                     .errorOf(wire::read(wire::name::kernoQueryListWithHighlightsAndCriteria,
                                         criterion("author", "=", "x"), "id highlights{id}"_s))
                     .isEmpty(),
                 false);
    }
};

KERNOVA_TEST_MAIN(TestStatistics)
#include "tst_statistics.moc"
