#include "LinearWalk.h"
#include "RandomRecords.h"
#include "merge/FullProjectJson.h"
#include "merge/Merging.h"
#include "records/SimpleCipher.h"
#include "tests_support/TestMain.h"

class tst_Merging : public QObject {
    Q_OBJECT

private slots:
    void mergingEqualsALinearWalk_data();
    void mergingEqualsALinearWalk();
    void kernosOfOneTitleNeverGoRoundInACircle();
};

namespace {

// One title has texts so short that a letter decides whether they are one.
ProjectRecords input(quint32 seed, int questions) {
    ProjectRecords r = RandomRecords(seed).make(questions);
    static const char* const texts[] = {"", "a", "b", "ab"};
    r.sources.append(Source(90, "Short", {}, {}, {}));
    r.answers.append(QuestionAnswer(99, 2, 90, {}, texts[seed % 4], {}));
    return r;
}

QJsonObject jsonOf(const ProjectRecords& records) {
    SimpleCipher none;
    return fullprojectjson::toJson(records, none);
}

}  // namespace

void tst_Merging::mergingEqualsALinearWalk_data() {
    columns<int, int>({"projects", "questions"});
    QTest::newRow("pairs") << 2 << 1;
    QTest::newRow("triples") << 3 << 1;
    QTest::newRow("pairs of several questions") << 2 << 3;
}

void tst_Merging::mergingEqualsALinearWalk() {
    FETCH(int, projects, int, questions);
    for (quint32 seed = 0; seed < 150; ++seed) {
        // Made anew for each that takes it, because copies of a passage share what they hold.
        const auto project = [&](int i) {
            return input(seed * 10 + static_cast<quint32>(i) * (1 + seed % 3), questions);
        };
        Merging merging(project(0));
        LinearWalk walk(project(0));
        for (int i = 1; i < projects; ++i) {
            merging.add(project(i));
            walk.add(project(i));
        }
        QVERIFY2(jsonOf(merging.result()) == jsonOf(walk.m), qPrintable(QString("seed %1").arg(seed)));
    }
}

void tst_Merging::kernosOfOneTitleNeverGoRoundInACircle() {
    ProjectRecords added;
    added.kernos = {Kerno(1, 2, {}, "Twin", {}, {}, {}, 0, 0), Kerno(2, 3, {}, "Child", {}, {}, {}, 0, 0),
                    Kerno(3, -1, {}, "Twin", {}, {}, {}, 0, 0)};
    Merging merging({});
    merging.add(added);
    const QList<Kerno>& kernos = merging.result().kernos;
    QCOMPARE(kernos.size(), 2);
    QCOMPARE(kernos.at(0).parentKernoId(), -1);
    QCOMPARE(kernos.at(1).parentKernoId(), kernos.at(0).id());
}

KERNOVA_TEST_MAIN(tst_Merging)
#include "tst_merging.moc"
