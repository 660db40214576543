#include "project/CriteriaEvaluation.h"
#include "project/FileCopies.h"
#include "project/KernoTree.h"
#include "project/PassageRanges.h"
#include "project/QueryCriterion.h"
#include "tests_support/TestMain.h"

using criteria::Results;
using passages::Range;
using Ranges = QList<Range>;
Q_DECLARE_METATYPE(Ranges)

namespace {

Highlight highlight(const Range& range) {
    return {1,  1,  1, 1, QColor(), range.first, range.second - range.first, range.second,
            {}, {}, 0, 0, 0,        false};
}

QList<Highlight> highlights(const Ranges& ranges) {
    QList<Highlight> list;
    for (const Range& range : ranges)
        list.append(highlight(range));
    return list;
}

Kerno kerno(int id, int parent, const QString& title = {}, int second = 0) {
    const QDateTime time(QDate(2024, 1, 1), QTime(0, 0, second), Qt::UTC);
    return {id, parent, QColor(), title, {}, time, {}, 1, 1};
}

QList<int> ids(const QList<Kerno>& kernos) {
    QList<int> list;
    for (const Kerno& k : kernos)
        list.append(k.kernoId());
    return list;
}

QVariantMap row(const QVariant& property, const QString& op, const QVariant& value,
                const QString& junction = " AND"_s, int level = 0) {
    return {{"property", property},
            {"operator", op},
            {"value", value},
            {"junctionOperator", junction},
            {"level", level}};
}

}  // namespace

class TestProjectAlgorithms : public QObject {
    Q_OBJECT

private slots:
    void mergesRanges_data() {
        columns<Ranges, Ranges>({"ranges", "expected"});
        addRow("none", Ranges{}, Ranges{});
        addRow("apart", Ranges{{0, 3}, {4, 6}}, Ranges{{0, 3}, {4, 6}});
        addRow("touching", Ranges{{0, 3}, {3, 6}}, Ranges{{0, 6}});
        addRow("overlapping", Ranges{{0, 5}, {3, 6}, {6, 9}, {20, 21}}, Ranges{{0, 9}, {20, 21}});
        addRow("inside", Ranges{{0, 9}, {2, 4}, {3, 5}}, Ranges{{0, 9}});
        addRow("only the last one is widened", Ranges{{5, 9}, {20, 30}, {6, 8}},
               Ranges{{5, 9}, {20, 30}, {6, 8}});
        addRow("widened to the left", Ranges{{5, 9}, {3, 5}}, Ranges{{3, 9}});
    }

    void mergesRanges() {
        FETCH(Ranges, ranges, Ranges, expected);
        QCOMPARE(passages::mergedRanges(ranges), expected);
        QCOMPARE(passages::mergedRanges(highlights(ranges)), expected);
    }

    void findsOverlaps_data() {
        columns<Ranges, Ranges, Ranges>({"first", "second", "expected"});
        addRow("none", Ranges{{0, 5}}, Ranges{{5, 9}}, Ranges{});
        addRow("union", Ranges{{0, 5}}, Ranges{{4, 9}}, Ranges{{0, 9}});
        addRow("chain within the second", Ranges{{0, 5}}, Ranges{{4, 9}, {8, 12}}, Ranges{{0, 12}});
        addRow("an earlier one isn't asked again", Ranges{{5, 8}}, Ranges{{0, 3}, {2, 6}}, Ranges{{2, 8}});
        addRow("merged", Ranges{{0, 5}, {8, 12}, {30, 31}}, Ranges{{4, 9}}, Ranges{{0, 12}});
    }

    void findsOverlaps() {
        FETCH(Ranges, first, Ranges, second);
        QTEST(passages::overlapRanges(highlights(first), highlights(second)), "expected");
    }

    void aCircleOfParentsIsWalkedOnce() {
        QCOMPARE(ids(kernotree::descendants({kerno(1, 2), kerno(2, 1)}, 1)), QList<int>({2}));
        QCOMPARE(kernotree::parents({-1, 3, 3, 0, 1}), QVariantList({3, 1}));
    }

    void replacesBackups() {
        QTemporaryDir folder;
        const QString path = folder.filePath("p.krn");
        writeBytes(path, "one");
        QVERIFY(copies::replaceBackup(path));
        QCOMPARE(bytesOf(path + ".bak"), QByteArray("one"));
        writeBytes(path, "two");
        writeBytes(path + ".bak.tmp", "rest of a crash");
        QVERIFY(copies::replaceBackup(path));
        QCOMPARE(bytesOf(path + ".bak"), QByteArray("two"));
        QVERIFY(!QFile::exists(path + ".bak.tmp"));
        QVERIFY(QFile::remove(path));
        QVERIFY(!copies::replaceBackup(path));
        QCOMPARE(bytesOf(path + ".bak"), QByteArray("two"));
        QVERIFY(!QFile::exists(path + ".bak.tmp"));
    }

    void copiesLeaveNoJournalOfTheFormerFile() {
        QTemporaryDir folder;
        const QString path = folder.filePath("p.krn");
        const QString target = folder.filePath("t.krn");
        writeBytes(path, "one");
        writeBytes(target, "two");
        writeBytes(target + "-journal", "of two");
        QVERIFY(!copies::replace(folder.filePath("none.krn"), target));
        QCOMPARE(bytesOf(target + "-journal"), QByteArray("of two"));
        QVERIFY(copies::replace(path, target));
        QCOMPARE(bytesOf(target), QByteArray("one"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"p.krn", "t.krn"}));
    }

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

    void longerListComesFirst() {
        QCOMPARE(criteria::combine({{1, {5}}}, {{1, {6, 5, 7}}}, false), Results({{1, {6, 5, 7}}}));
        QCOMPARE(criteria::combine({{1, {1, 2}}}, {{1, {3, 4}}}, false), Results({{1, {1, 2, 3, 4}}}));
        QVERIFY(criteria::combine({{1, {5}}}, {{1, {5}}, {2, {}}}, true).isEmpty());
        QVERIFY(criteria::combine({{1, {5}}}, {{2, {5}}}, true).isEmpty());
        QCOMPARE(criteria::combine({{1, {5}}, {2, {6}}}, {{2, {6}}, {1, {5}}}, true),
                 Results({{1, {5}}, {2, {6}}}));
    }
};

KERNOVA_TEST_MAIN(TestProjectAlgorithms)
#include "tst_projectalgorithms.moc"
