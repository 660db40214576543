#include "RandomProject.h"
#include "ServiceClient.h"
#include "store/Sweeps.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"
#include "wire/QueryText.h"

#include <QDateTime>
#include <QPoint>
#include <QRandomGenerator>
#include <QTemporaryDir>
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
        QStringList queries;
        const auto add = [&](Record record, const QString& arguments) {
            queries << ServiceClient::saving(record, arguments);
        };
        for (int id = 1; id <= project.kernos; ++id)
            add(Record::Kerno, QStringLiteral("id:%1 author:\"%2\"").arg(id).arg(project.authors[id % 3]));
        for (int id = 1; id <= project.sources; ++id)
            add(Record::Source, QStringLiteral("id:%1 title:\"Source %1\"").arg(id));
        for (int id = 1; id <= project.keys * project.valuesOfKey; ++id) {
            add(Record::SourceMetadataValue, QStringLiteral("id:%1 keyId:%2 value:\"%3\"")
                                                 .arg(id)
                                                 .arg((id - 1) / project.valuesOfKey + 1)
                                                 .arg(valueText(id)));
        }
        for (const Link& link : project.links) {
            add(Record::SourceMetadata, QStringLiteral("id:%1 sourceId:%2 keyId:%3 valueId:%4")
                                            .arg(link.id)
                                            .arg(link.sourceId)
                                            .arg(link.keyId)
                                            .arg(link.valueId));
        }
        int id = 0;
        for (const auto& membership : project.memberships) {
            add(Record::KernoGroup, QStringLiteral("id:%1 kernoId:%2 groupId:%3")
                                        .arg(++id)
                                        .arg(membership.first)
                                        .arg(membership.second));
        }
        for (const Passage& each : project.highlights) {
            add(Record::Highlight,
                QStringLiteral("id:%1 kernoId:%2 sourceId:%3 questionId:%4 start:%5 length:%6 author:\"%7\"")
                    .arg(each.id)
                    .arg(each.kernoId)
                    .arg(each.sourceId)
                    .arg(each.questionId)
                    .arg(each.start)
                    .arg(each.length)
                    .arg(each.author));
        }
        for (const QString& query : queries)
            m_client.send(query);
        // A read is answered after everything before it.
        QVERIFY(m_client.ask(QStringLiteral("{kernoMaxId(next: false)}")).isDouble());
    }

    /// Values of a key: a number as text, a word, a greater number.
    static QString valueText(int id) {
        const QStringList texts{QStringLiteral("7"), QStringLiteral("Town"), QStringLiteral("30")};
        return texts[(id - 1) % 3];
    }

    QJsonArray rows(const QString& query) { return m_client.ask(query).toArray(); }

    /// Ids of the passing highlights by kerno, of the criteria read.
    std::map<int, std::set<int>> passing(const QString& arguments) {
        std::map<int, std::set<int>> found;
        int last = 0;
        for (const QJsonValue& kerno :
             rows(wire::read(wire::name::kernoQueryListWithHighlightsAndCriteria, arguments,
                             QStringLiteral("id title highlights{id start}")))) {
            const int id = kerno[QStringLiteral("id")].toInt();
            if (id <= last)
                return {};
            last = id;
            std::set<int>& ids = found[id];
            for (const QJsonValue& highlight : kerno[QStringLiteral("highlights")].toArray())
                ids.insert(highlight[QStringLiteral("id")].toInt());
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
            QTest::newRow(qPrintable(QString::number(seed))) << seed;
    }

    void agreesWithCounting() {
        QFETCH(quint32, seed);
        const Project project(seed);
        QVERIFY(m_client.open(m_folder.filePath(QString::number(seed) + QStringLiteral(".krn"))));
        store(project);

        // Coverage.
        int total = 0;
        for (const QString& author : project.authors)
            total += covered(project, [&](const Passage& each) { return each.author == author; });
        const QJsonArray byAuthor = rows(wire::highlightsCoverageByAuthor());
        QCOMPARE(byAuthor.size(), 3);
        for (const QJsonValue& row : byAuthor) {
            const auto counts = [&](const Passage& each) {
                return each.author == row[QStringLiteral("author")].toString();
            };
            QCOMPARE(row[QStringLiteral("len")].toInt(), covered(project, counts));
            QCOMPARE(row[QStringLiteral("count")].toInt(), number(project, counts));
            QCOMPARE(row[QStringLiteral("totalLen")].toInt(), total);
        }
        std::map<int, int> sums;
        for (const QJsonValue& row : rows(wire::highlightsCoverageByKernoAndAuthor())) {
            const int kernoId = row[QStringLiteral("kernoId")].toInt();
            const auto counts = [&](const Passage& each) {
                return each.kernoId == kernoId && each.author == row[QStringLiteral("author")].toString();
            };
            QVERIFY(sums.empty() || sums.rbegin()->first <= kernoId);
            QCOMPARE(row[QStringLiteral("len")].toInt(), covered(project, counts));
            QCOMPARE(row[QStringLiteral("count")].toInt(), number(project, counts));
            sums[kernoId] += row[QStringLiteral("len")].toInt();
        }
        for (const QJsonValue& row : rows(wire::highlightsCoverageByKernoAndAuthor()))
            QCOMPARE(row[QStringLiteral("totalLen")].toInt(), sums[row[QStringLiteral("kernoId")].toInt()]);
        int most = 0;
        QCOMPARE(rows(wire::highlightsCoverageByKerno()).size(), project.kernos);
        QCOMPARE(rows(wire::quoteCountsInKernos()).size(), project.kernos);
        QVERIFY(static_cast<int>(sums.size()) == project.kernos);
        for (const QJsonValue& row : rows(wire::highlightsCoverageByKerno())) {
            const auto counts = [&](const Passage& each) {
                return each.kernoId == row[QStringLiteral("kernoId")].toInt();
            };
            QCOMPARE(row[QStringLiteral("len")].toInt(), covered(project, counts));
            QCOMPARE(row[QStringLiteral("count")].toInt(), number(project, counts));
            most = std::max(most, number(project, counts));
        }
        QCOMPARE(m_client.ask(wire::maxHighlightsCount()).toInt(), most);
        QCOMPARE(rows(wire::sourceCodedLengthById()).size(), project.sources);
        for (const QJsonValue& row : rows(wire::sourceCodedLengthById())) {
            QCOMPARE(row[QStringLiteral("coded_length")].toInt(), covered(project, [&](const Passage& each) {
                         return each.sourceId == row[QStringLiteral("id")].toInt();
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
            const int kernoId = row[QStringLiteral("key")].toInt();
            QCOMPARE(row[QStringLiteral("value")].toInt(),
                     number(project, [&](const Passage& each) { return each.kernoId == kernoId; }));
            QCOMPARE(row[QStringLiteral("subvalue")].toInt(),
                     static_cast<int>(project.sourcesOfKernos({kernoId}).size()));
        }
        for (int kernoId = 1; kernoId <= project.kernos; ++kernoId) {
            const QJsonArray overview = rows(wire::highlightsOverviewPerSourceForKerno(kernoId));
            QCOMPARE(overview.size(), static_cast<int>(project.sourcesOfKernos({kernoId}).size()));
            for (const QJsonValue& row : overview) {
                const int source = row[QStringLiteral("sourceTitle")].toString().mid(7).toInt();
                QCOMPARE(row[QStringLiteral("sourceHighlights")].toInt(),
                         number(project, [&](const Passage& each) { return each.sourceId == source; }));
                QCOMPARE(row[QStringLiteral("kernoHighlights")].toInt(),
                         number(project, [&](const Passage& each) {
                             return each.sourceId == source && each.kernoId == kernoId;
                         }));
            }
        }
        checkMetadata(project);
        checkCriteria(project);
    }

    void sweepsKnownCases_data() {
        QTest::addColumn<QList<QPoint>>("ranges");  // start and end, each of a kerno of its own
        QTest::addColumn<int>("pairsFound");
        QTest::newRow("touching") << QList<QPoint>{{0, 5}, {5, 9}} << 0;
        QTest::newRow("nested") << QList<QPoint>{{0, 9}, {2, 4}, {3, 5}} << 3;
        QTest::newRow("equal") << QList<QPoint>{{1, 3}, {1, 3}} << 1;
        QTest::newRow("empty inside") << QList<QPoint>{{0, 9}, {4, 4}} << 1;
        QTest::newRow("empty at the start") << QList<QPoint>{{4, 9}, {4, 4}} << 0;
        QTest::newRow("empty, then more") << QList<QPoint>{{0, 3}, {4, 9}, {4, 4}, {5, 6}} << 1;
    }

    void sweepsKnownCases() {
        QFETCH(QList<QPoint>, ranges);
        QFETCH(int, pairsFound);
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
                QCOMPARE(row[QStringLiteral("value")].toString(), valueText(use->first));
                QCOMPARE(row[QStringLiteral("valueOccurrences")].toInt(), use->second);
                QCOMPARE(row[QStringLiteral("keyOccurrences")].toInt(), links);
                QCOMPARE(row[QStringLiteral("sourcesCount")].toInt(), project.sources);
                QCOMPARE(row[QStringLiteral("sourcesOccurrences")].toInt(), static_cast<int>(sources.size()));
                QCOMPARE(row[QStringLiteral("valueFactor")].toDouble(),
                         double(use->second) / project.sources);
                QCOMPARE(row[QStringLiteral("keyFactor")].toDouble(), double(use->second) / links);
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
                QCOMPARE(row[QStringLiteral("valueOccurrences")].toInt(), use->second);
                QCOMPARE(row[QStringLiteral("sourcesOccurrences")].toInt(), static_cast<int>(within.size()));
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
            return QStringLiteral("fieldName: \"%1\" operator: \"%2\" value: \"%3\"")
                .arg(QLatin1String(field), QLatin1String(op), QLatin1String(value));
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
        const QString withKey = QStringLiteral(" keyId: 1");

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
                                         criterion("author", "=", "x"), QStringLiteral("id highlights{id}")))
                     .isEmpty(),
                 false);
    }
};

KERNOVA_TEST_MAIN(TestStatistics)
#include "tst_statistics.moc"
