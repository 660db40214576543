#include "project/AnswerCache.h"
#include "project/FileCopies.h"
#include "project/KernoTree.h"
#include "project/PassageRanges.h"
#include "project/SortOrder.h"
#include "tests_support/TestMain.h"

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

void write(const QString& path, const QByteArray& text) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
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

    void keepsManualOrder_data() {
        columns<QVariantList, QVariantList>({"manual", "expected"});
        addRow("none", QVariantList{}, QVariantList{3, 1, 2});
        addRow("gone and twice", QVariantList{2, 9, 2, 1.0}, QVariantList{2, 1, 3});
        addRow("whole", QVariantList{1, 2, 3}, QVariantList{1, 2, 3});
    }

    void keepsManualOrder() {
        QFETCH(QVariantList, manual);
        QTEST(order::byManualOrder({3, 1, 2}, manual), "expected");
    }

    void sortsByField() {
        const QList<Kerno> list{kerno(1, -1, "b", 3), kerno(2, -1, "a", 2), kerno(3, -1, "b", 1)};
        QCOMPARE(kernotree::sortedIds(list, 260, false), QVariantList({2, 1, 3}));
        QCOMPARE(kernotree::sortedIds(list, 260, true), QVariantList({1, 3, 2}));
        QCOMPARE(kernotree::sortedIds(list, 262, false), QVariantList({3, 2, 1}));
        QCOMPARE(kernotree::sortedIds(list, 999, true), QVariantList({1, 2, 3}));
        const QVariantMap a{{"key", "a"}}, b{{"key", "b"}};
        QCOMPARE(order::byMember({b, a}, "key"), QVariantList({a, b}));
        QVERIFY(order::lessThan(9, 10));
    }

    void walksTheTree() {
        const QList<Kerno> list{kerno(1, -1), kerno(2, 1), kerno(3, 2), kerno(4, 0), kerno(5, 1)};
        QCOMPARE(ids(kernotree::topLevel(list)), QList<int>({1, 4}));
        QCOMPARE(ids(kernotree::descendants(list, 1)), QList<int>({2, 5, 3}));
        QVERIFY(kernotree::descendants(list, 3).isEmpty());
        QCOMPARE(ids(kernotree::without(list, {2, 4, 9})), QList<int>({1, 3, 5}));
        const QList<Kerno> circle{kerno(1, 2), kerno(2, 1)};
        QCOMPARE(ids(kernotree::descendants(circle, 1)), QList<int>({2}));
        QCOMPARE(kernotree::parents({-1, 3, 3, 0, 1}), QVariantList({3, 1}));
    }

    void replacesBackups() {
        QTemporaryDir folder;
        const QString path = folder.filePath("p.krn");
        write(path, "one");
        QVERIFY(copies::replaceBackup(path));
        QCOMPARE(read(path + ".bak"), QByteArray("one"));
        write(path, "two");
        write(path + ".bak.tmp", "rest of a crash");
        QVERIFY(copies::replaceBackup(path));
        QCOMPARE(read(path + ".bak"), QByteArray("two"));
        QVERIFY(!QFile::exists(path + ".bak.tmp"));
        QVERIFY(QFile::remove(path));
        QVERIFY(!copies::replaceBackup(path));
        QCOMPARE(read(path + ".bak"), QByteArray("two"));
        QVERIFY(!QFile::exists(path + ".bak.tmp"));
    }

    void copiesLeaveNoJournalOfTheFormerFile() {
        QTemporaryDir folder;
        const QString path = folder.filePath("p.krn");
        const QString target = folder.filePath("t.krn");
        write(path, "one");
        write(target, "two");
        write(target + "-journal", "of two");
        QVERIFY(!copies::replace(folder.filePath("none.krn"), target));
        QCOMPARE(read(target + "-journal"), QByteArray("of two"));
        QVERIFY(copies::replace(path, target));
        QCOMPARE(read(target), QByteArray("one"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({"p.krn", "t.krn"}));
    }

    void keepsAHundredAnswers() {
        AnswerCache cache;
        for (int i = 1; i <= 101; ++i)
            cache.insert(i, 1, {{"sourceId", i}});
        QVERIFY(cache.find(1, 1).isEmpty());
        QCOMPARE(cache.find(101, 1).value("sourceId").toInt(), 101);
        QVERIFY(cache.find(101, 2).isEmpty());
        cache.clear();
        QVERIFY(cache.find(101, 1).isEmpty());
    }
};

KERNOVA_TEST_MAIN(TestProjectAlgorithms)
#include "tst_projectalgorithms.moc"
