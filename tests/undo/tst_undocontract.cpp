#include "UndoProject.h"
#include "tests_support/TestMain.h"

#include <QRandomGenerator>
#include <functional>
#include <utility>

using namespace undotest;

/// Changes the project through its manager of changes.
using Change = std::function<void(UndoManager& undo, KRNFile& file)>;
Q_DECLARE_METATYPE(Change)

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

QStringList rangesOf(KRNFile& file, int kernoId) {
    QStringList ranges;
    for (const Highlight& h : file.highlightsOfKerno(kernoId))
        ranges << text("%1.%2 %3-%4").arg(h.sourceId()).arg(h.questionId()).arg(h.start()).arg(h.end());
    ranges.sort();
    return ranges;
}

/// One of the ids, or one that there isn't.
int pick(QRandomGenerator& random, const QVariantList& ids) {
    const int place = random.bounded(ids.size() + 1);
    return place < ids.size() ? ids.at(place).toInt() : 99;
}

/// Changes something at random, or tries to.
void changeAnything(QRandomGenerator& random, UndoManager& undo, KRNFile& file) {
    const QString name = text("n%1").arg(random.bounded(6));
    const int kerno = pick(random, file.kernoIds());
    const int otherKerno = pick(random, file.kernoIds());
    const int source = pick(random, file.sourceIds());
    const int question = pick(random, file.questionIds());
    const int group = 1 + random.bounded(4);
    const int start = random.bounded(20);
    const int end = start + 1 + random.bounded(20);
    const QList<std::function<void()>> changes{
        [&] { undo.addHighlight(highlight(-1, kerno, source, question, start, end, {})); },
        [&] { undo.addHighlight(highlight(-1, kerno, source, question, start, end)); },
        [&] { undo.deleteHighlight(pick(random, file.highlightIds())); },
        [&] { undo.addHighlightToNewKerno(highlight(-1, -1, source, question, start, end), Kerno()); },
        [&] { undo.tryAddHighlightByShortcut(highlight(-1, -1, source, question, start, end), text("a")); },
        [&] { undo.addMemo(memo(-1, source, question, start, end, name)); },
        [&] { undo.deleteMemo(1 + random.bounded(6)); },
        [&] {
            undo.addKerno({{text("title"), name}, {text("parentKernoId"), kerno}});
        },
        [&] {
            Kerno changed = file.kerno(kerno);
            changed.setTitle(name);
            changed.setParentKernoId(otherKerno);
            undo.updateKerno(changed);
        },
        [&] { undo.deleteKerno(kerno); },
        [&] { undo.mergeKernos(kerno, otherKerno, name); },
        [&] { undo.duplicateKerno(kerno); },
        [&] { undo.addGroup(group, name); },
        [&] { undo.deleteGroup(group); },
        [&] { undo.addKernoGroup(kerno, group); },
        [&] { undo.deleteKernoGroup(kerno, group); },
        [&] { undo.setKernoShortcut(text("A"), kerno); },
        [&] { undo.setKernoShortcut(text("A"), -1); },
        [&] { undo.addSource(Source(-1, name, {}, {}, {})); },
        [&] { undo.updateSourceTitle(source, name); },
        [&] { undo.deleteSource(source); },
        [&] { undo.addQuestion(Question(-1, name, 1)); },
        [&] { undo.deleteQuestion(question); },
        [&] {
            QuestionAnswer changed = file.answer(1 + random.bounded(12));
            changed.setAnswer(name);
            undo.updateAnswer(changed);
        },
        [&] {
            undo.addMetadataKeyAndValues(name, {text("x"), name, text("x")}, source);
        },
        [&] { undo.addMetadata(1 + random.bounded(3), 1 + random.bounded(6), source); },
        [&] { undo.deleteMetadata(1 + random.bounded(3), source); },
        [&] { undo.deleteMetadataKey(1 + random.bounded(3)); },
        [&] { undo.deleteMetadataValue(1 + random.bounded(6)); }};
    changes.at(random.bounded(changes.size()))();
}

}  // namespace

/// Undo gives back exactly what was there, and redo what was done: ids, links, texts and times, both in what
/// is stored and in the models. The order of rows is that of ids here; what a person sees is sorted by the
/// views.
class tst_UndoContract : public QObject {
    Q_OBJECT

private slots:
    void init();
    void everyChangeIsTakenBackExactly_data();
    void everyChangeIsTakenBackExactly();
    void aLongSequenceIsTakenBackAndDoneAgain_data();
    void aLongSequenceIsTakenBackAndDoneAgain();
    void changesThatChangeNothingLeaveNoStep_data();
    void changesThatChangeNothingLeaveNoStep();
    void aNewSourceGetsATitleAndAnswers();
    void aPassageIsCodedByKey();
    void overlappingPassagesOfOneAuthorBecomeOne();
    void mergingJoinsWhatOverlaps();
    void mergingGivesTheKernosBelowAsTheyAre();
    void mergingDownwardsKeepsTheWayUp();
    void duplicatingCopiesTheCodings();
    void aPropertyOfOneValueHasItReplaced();

private:
    UndoProject m_project;
    bool m_isUntouched = false;  ///< the project is as it was made, and needn't be made again
};

void tst_UndoContract::init() {
    if (std::exchange(m_isUntouched, false))
        return;
    QVERIFY2(m_project.open(), qPrintable(m_project.error));
}

void tst_UndoContract::everyChangeIsTakenBackExactly_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("counts");  // what the change adds and removes
    const auto row = [](const char* name, const QString& counts, Change change) {
        QTest::newRow(name) << change << counts;
    };

    row("add a highlight", text("highlights +1"),
        [](UndoManager& undo, KRNFile&) { undo.addHighlight(highlight(-1, 3, 1, 1, 5, 15)); });
    row("add a highlight that swallows two", text("highlights -1"),
        [](UndoManager& undo, KRNFile&) { undo.addHighlight(highlight(-1, 1, 1, 1, 8, 22)); });
    row("add a highlight to a new kerno", text("highlights +1, kernos +1"), [](UndoManager& undo, KRNFile&) {
        Kerno kerno(77, -1, {}, text("New"), {}, {}, {}, 3, 4);
        undo.addHighlightToNewKerno(highlight(-1, 77, 1, 1, 0, 10), kerno);
    });
    row("delete a highlight", text("highlights -1"),
        [](UndoManager& undo, KRNFile&) { undo.deleteHighlight(3); });
    row("add a memo", text("memos +1"),
        [](UndoManager& undo, KRNFile&) { undo.addMemo(memo(-1, 1, 2, 0, 3, text("new"))); });
    row("update a memo", QString(), [](UndoManager& undo, KRNFile& file) {
        Memo changed = file.memo(1);
        changed.setContent(text("changed\\\n"));
        undo.updateMemo(changed);
    });
    row("delete a memo", text("memos -1"), [](UndoManager& undo, KRNFile&) { undo.deleteMemo(2); });

    row("add a kerno", text("kernos +1"), [](UndoManager& undo, KRNFile&) {
        undo.addKerno(
            {{text("title"), text("New")}, {text("parentKernoId"), 5}, {text("x"), 7}, {text("y"), 8}});
    });
    row("update a kerno", QString(), [](UndoManager& undo, KRNFile& file) {
        Kerno changed = file.kerno(2);
        changed.setTitle(text("Doubts"));
        changed.setParentKernoId(5);
        changed.setColor(QColor(Qt::red));
        undo.updateKerno(changed, {1, 2});
    });
    row("delete a kerno without others below", text("highlights -3, kerno_shortcut_keys -1, kernos -1"),
        [](UndoManager& undo, KRNFile&) { undo.deleteKerno(5); });
    row("delete a kerno with two levels below",
        text("group_kernos -3, highlights -5, kerno_shortcut_keys -2, kernos -4"),
        [](UndoManager& undo, KRNFile&) { undo.deleteKerno(1); });
    row("merge kernos", text("group_kernos -1, highlights -1, kerno_shortcut_keys -2, kernos -1"),
        [](UndoManager& undo, KRNFile&) { undo.mergeKernos(1, 5, text("Both")); });
    row("merge a kerno with the one above", text("group_kernos -2, kerno_shortcut_keys -2, kernos -1"),
        [](UndoManager& undo, KRNFile&) { undo.mergeKernos(2, 1, text("Both")); });
    row("duplicate a kerno", text("highlights +3, kernos +1"),
        [](UndoManager& undo, KRNFile&) { undo.duplicateKerno(1); });

    row("add a group", text("groups +1"),
        [](UndoManager& undo, KRNFile&) { undo.addGroup(-1, text("Third")); });
    row("rename a group", QString(), [](UndoManager& undo, KRNFile&) { undo.addGroup(1, text("Renamed")); });
    row("delete a group", text("group_kernos -2, groups -1"),
        [](UndoManager& undo, KRNFile&) { undo.deleteGroup(1); });
    row("put a kerno into a group", text("group_kernos +1"),
        [](UndoManager& undo, KRNFile&) { undo.addKernoGroup(5, 2); });
    row("take a kerno out of a group", text("group_kernos -1"),
        [](UndoManager& undo, KRNFile&) { undo.deleteKernoGroup(2, 1); });
    row("bind a key", text("kerno_shortcut_keys +1"),
        [](UndoManager& undo, KRNFile&) { undo.setKernoShortcut(text("C"), 3); });
    row("bind a key otherwise", QString(),
        [](UndoManager& undo, KRNFile&) { undo.setKernoShortcut(text("A"), 3); });
    row("free a key", text("kerno_shortcut_keys -1"),
        [](UndoManager& undo, KRNFile&) { undo.setKernoShortcut(text("A"), -1); });

    row("add a source", text("question_answers +2, sources +1"), [](UndoManager& undo, KRNFile&) {
        undo.addSource(Source(-1, text(" New "), text("md_male"), {}, {}));
    });
    row("retitle a source", QString(),
        [](UndoManager& undo, KRNFile&) { undo.updateSourceTitle(1, text("Other title")); });
    row("change a source's icon", QString(),
        [](UndoManager& undo, KRNFile&) { undo.updateSourceIcon(1, text("md_female")); });
    row("delete a source",
        text("highlights -4, memos -1, question_answers -2, source_metadatas -3, sources -1"),
        [](UndoManager& undo, KRNFile&) { undo.deleteSource(1); });
    row("add a question", text("question_answers +3, questions +1"),
        [](UndoManager& undo, KRNFile&) { undo.addQuestion(Question(-1, text("Why?"), 3)); });
    row("change a question", QString(),
        [](UndoManager& undo, KRNFile&) { undo.updateQuestion(Question(2, text("When?"), 0)); });
    row("delete a question", text("highlights -3, memos -1, question_answers -3, questions -1"),
        [](UndoManager& undo, KRNFile&) { undo.deleteQuestion(2); });
    row("add an answer", text("question_answers +1"), [](UndoManager& undo, KRNFile&) {
        undo.addAnswer(QuestionAnswer(-1, 9, 1, {}, text("To a question that is still to come"), {}));
    });
    row("change an answer", QString(), [](UndoManager& undo, KRNFile& file) {
        QuestionAnswer changed = file.answer(3);
        changed.setAnswer(text("now plain"));
        undo.updateAnswer(changed);
    });

    row("add a property", text("source_metadata_keys +1"), [](UndoManager& undo, KRNFile&) {
        undo.addMetadataKey(SourceMetadataKey(-1, true, false, text("Town")));
    });
    row("change a property", QString(), [](UndoManager& undo, KRNFile&) {
        undo.updateMetadataKey(SourceMetadataKey(1, true, true, text("Years")));
    });
    row("delete a property", text("source_metadata_keys -1, source_metadata_values -2, source_metadatas -3"),
        [](UndoManager& undo, KRNFile&) { undo.deleteMetadataKey(2); });
    row("add a value", text("source_metadata_values +1"),
        [](UndoManager& undo, KRNFile&) { undo.addMetadataValue(SourceMetadataValue(-1, 1, text("50"))); });
    row("change a value", QString(),
        [](UndoManager& undo, KRNFile&) { undo.updateMetadataValue(SourceMetadataValue(1, 1, text("31"))); });
    row("delete a value", text("source_metadata_values -1, source_metadatas -2"),
        [](UndoManager& undo, KRNFile&) { undo.deleteMetadataValue(3); });
    row("add a property with a value to a source",
        text("source_metadata_keys +1, source_metadata_values +1, source_metadatas +1"),
        [](UndoManager& undo, KRNFile&) { undo.addMetadataKeyAndValue(text("Town"), text("Oslo"), 3); });
    row("add a property with values", text("source_metadata_keys +1, source_metadata_values +2"),
        [](UndoManager& undo, KRNFile&) {
            undo.addMetadataKeyAndValues(text("Asked"), {text("Yes"), text("No")});
        });
    row("add the missing value of a property to a source",
        text("source_metadata_values +1, source_metadatas +2"), [](UndoManager& undo, KRNFile&) {
            undo.addMetadataKeyAndValues(text("Role"), {text("Nurse"), text("Cook")}, 3);
        });
    row("give a value", text("source_metadatas +1"),
        [](UndoManager& undo, KRNFile&) { undo.addMetadata(2, 3, 3); });
    row("give another value of a property of one", QString(),
        [](UndoManager& undo, KRNFile&) { undo.addMetadata(1, 2, 1); });
    row("take a value", text("source_metadatas -1"),
        [](UndoManager& undo, KRNFile&) { undo.deleteMetadata(4); });
    row("take all values of a property", text("source_metadatas -2"),
        [](UndoManager& undo, KRNFile&) { undo.deleteMetadata(2, 1); });
}

void tst_UndoContract::everyChangeIsTakenBackExactly() {
    QFETCH(Change, change);
    QFETCH(QString, counts);
    UndoManager& undo = m_project.undo;
    const QJsonObject before = m_project.json();
    const QStringList rowsBefore = m_project.modelTexts();

    change(undo, m_project.file);
    QCOMPARE(undo.count(), 1);
    const QJsonObject after = m_project.json();
    const QStringList rowsAfter = m_project.modelTexts();
    QCOMPARE(countChanges(before, after), counts);
    QVERIFY(before != after);

    undo.undo();
    QCOMPARE(difference(before, m_project.json()), QString());
    QCOMPARE(m_project.modelTexts(), rowsBefore);
    undo.redo();
    QCOMPARE(difference(after, m_project.json()), QString());
    QCOMPARE(m_project.modelTexts(), rowsAfter);
    undo.undo();
    QCOMPARE(difference(before, m_project.json()), QString());
}

void tst_UndoContract::aLongSequenceIsTakenBackAndDoneAgain_data() {
    QTest::addColumn<QString>("password");
    QTest::addColumn<uint>("seed");
    QTest::newRow("open") << QString() << 1u;
    QTest::newRow("under a password") << text("s3cret") << 2u;
}

void tst_UndoContract::aLongSequenceIsTakenBackAndDoneAgain() {
    QFETCH(QString, password);
    QFETCH(uint, seed);
    UndoProject project(password);
    QVERIFY2(project.open(), qPrintable(project.error));
    UndoManager& undo = project.undo;
    QRandomGenerator random(seed);
    QList<QJsonObject> stored{project.json()};
    QList<QStringList> rows{project.modelTexts()};
    while (undo.count() < 60) {
        const int before = undo.count();
        changeAnything(random, undo, project.file);
        const QJsonObject now = project.json();
        if (undo.count() == before) {
            QCOMPARE(difference(stored.last(), now), QString());
            continue;
        }
        stored.append(now);
        rows.append(project.modelTexts());
    }
    for (int step = undo.count() - 1; step >= 0; --step) {
        undo.undo();
        QCOMPARE(difference(stored.at(step), project.json()), QString());
        QCOMPARE(project.modelTexts(), rows.at(step));
    }
    // In haste: each of these begins before the notifications of the one before have come.
    for (int round = 0; round < 2; ++round) {
        while (undo.canRedo())
            undo.redo();
        QCOMPARE(difference(stored.last(), project.json()), QString());
        QCOMPARE(project.modelTexts(), rows.last());
        while (undo.canUndo())
            undo.undo();
        QCOMPARE(difference(stored.first(), project.json()), QString());
        QCOMPARE(project.modelTexts(), rows.first());
    }
}

void tst_UndoContract::changesThatChangeNothingLeaveNoStep_data() {
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, Change change) { QTest::newRow(name) << change; };

    row("a passage within a coded one, of whatever author",
        [](UndoManager& undo, KRNFile&) { undo.addHighlight(highlight(-1, 1, 1, 1, 2, 8, text("Bob"))); });
    row("a passage without length", [](UndoManager& undo, KRNFile&) {
        Highlight empty = highlight(-1, 1, 1, 2, 2, 8);
        empty.setLength(0);
        undo.addHighlight(empty);
    });
    row("a key that stands for nothing", [](UndoManager& undo, KRNFile&) {
        undo.tryAddHighlightByShortcut(highlight(-1, -1, 1, 2, 2, 8), text("z"));
    });
    row("an unknown highlight", [](UndoManager& undo, KRNFile&) { undo.deleteHighlight(99); });
    row("an unchanged memo", [](UndoManager& undo, KRNFile& file) { undo.updateMemo(file.memo(1)); });
    row("an unknown memo", [](UndoManager& undo, KRNFile&) { undo.deleteMemo(99); });
    row("an unchanged kerno", [](UndoManager& undo, KRNFile& file) { undo.updateKerno(file.kerno(1)); });
    row("a kerno below itself", [](UndoManager& undo, KRNFile& file) {
        Kerno kerno = file.kerno(5);
        kerno.setParentKernoId(5);
        undo.updateKerno(kerno);
    });
    row("an unknown kerno", [](UndoManager& undo, KRNFile&) { undo.deleteKerno(99); });
    row("a merge with nothing", [](UndoManager& undo, KRNFile&) { undo.mergeKernos(1, 99, text("x")); });
    row("a merge with itself", [](UndoManager& undo, KRNFile&) { undo.mergeKernos(1, 1, text("x")); });
    row("a duplicate of nothing", [](UndoManager& undo, KRNFile&) { undo.duplicateKerno(99); });
    row("the same title",
        [](UndoManager& undo, KRNFile&) { undo.updateSourceTitle(1, text("Interview 1")); });
    row("the icon of no source",
        [](UndoManager& undo, KRNFile&) { undo.updateSourceIcon(99, text("md_male")); });
    row("an unknown source", [](UndoManager& undo, KRNFile&) { undo.deleteSource(99); });
    row("an unknown question", [](UndoManager& undo, KRNFile&) { undo.deleteQuestion(99); });
    row("a group without title", [](UndoManager& undo, KRNFile&) { undo.addGroup(-1, QString()); });
    row("a link that is there", [](UndoManager& undo, KRNFile&) { undo.addKernoGroup(1, 1); });
    row("a link that isn't there", [](UndoManager& undo, KRNFile&) { undo.deleteKernoGroup(5, 1); });
    row("the same key again", [](UndoManager& undo, KRNFile&) { undo.setKernoShortcut(text("A"), 1); });
    row("a key that is free", [](UndoManager& undo, KRNFile&) { undo.setKernoShortcut(text("Z"), 0); });
    row("no key", [](UndoManager& undo, KRNFile&) { undo.setKernoShortcut(QString(), 1); });
    row("a property without name",
        [](UndoManager& undo, KRNFile&) { undo.addMetadataKeyAndValue(QString(), text("x")); });
    row("a property and value that are there",
        [](UndoManager& undo, KRNFile&) { undo.addMetadataKeyAndValue(text("Age"), text("30"), 1); });
    row("a value that the source has", [](UndoManager& undo, KRNFile&) { undo.addMetadata(2, 3, 1); });
    row("a value of no property", [](UndoManager& undo, KRNFile&) { undo.addMetadata(9, 3, 1); });
    row("values that a source hasn't", [](UndoManager& undo, KRNFile&) { undo.deleteMetadata(1, 3); });
}

void tst_UndoContract::changesThatChangeNothingLeaveNoStep() {
    QFETCH(Change, change);
    const QJsonObject before = m_project.json();
    change(m_project.undo, m_project.file);
    QCOMPARE(m_project.undo.count(), 0);
    QCOMPARE(difference(before, m_project.json()), QString());
    m_isUntouched = true;
}

void tst_UndoContract::aNewSourceGetsATitleAndAnswers() {
    m_project.undo.addSource(Source(-1, text("  "), QString(), {}, {}));
    m_project.settle();
    const Source source = m_project.file.sourceModel()->snapshot().last();
    QCOMPARE(source.title(), text("Source %1").arg(source.id()));
    QCOMPARE(source.author(), text("Bea"));
    const QList<QuestionAnswer> answers = m_project.file.answerModel()->answers(source.id());
    QCOMPARE(answers.size(), 2);
    QVERIFY(answers.first().plainAnswer().isEmpty());
    QCOMPARE(answers.first().author(), text("Bea"));
}

void tst_UndoContract::aPassageIsCodedByKey() {
    m_project.undo.tryAddHighlightByShortcut(highlight(-1, -1, 3, 1, 2, 8), text("b"));
    QCOMPARE(rangesOf(m_project.file, 2), (QStringList{text("2.1 0-8"), text("3.1 2-8")}));
    QCOMPARE(m_project.file.highlightsOfKerno(2).last().author(), text("Bea"));
}

void tst_UndoContract::overlappingPassagesOfOneAuthorBecomeOne() {
    m_project.undo.addHighlight(highlight(-1, 1, 1, 1, 10, 20));
    QCOMPARE(rangesOf(m_project.file, 1),
             (QStringList{text("1.1 0-10"), text("1.1 10-20"), text("1.1 20-30"), text("2.2 6-9")}));
    m_project.undo.undo();
    m_project.undo.addHighlight(highlight(-1, 1, 1, 1, 8, 22));
    QCOMPARE(rangesOf(m_project.file, 1), (QStringList{text("1.1 0-30"), text("2.2 6-9")}));
}

void tst_UndoContract::mergingJoinsWhatOverlaps() {
    m_project.undo.mergeKernos(1, 5, text("Both"));
    m_project.settle();
    const Kerno merged = m_project.file.kernoModel()->snapshot().last();
    QCOMPARE(merged.title(), text("Both"));
    QCOMPARE(merged.color(), QColor(50, 20, 30));
    QCOMPARE(merged.x(), 5);
    QCOMPARE(rangesOf(m_project.file, merged.id()),
             (QStringList{text("1.1 0-15"), text("1.1 20-30"), text("1.1 30-40"), text("2.2 0-5"),
                          text("2.2 6-9")}));
    const QList<Highlight> highlights = m_project.file.highlightsOfKerno(merged.id());
    QCOMPARE(highlights.first().id(), 1);
    QCOMPARE(highlights.first().author(), ann);
    QVERIFY(highlights.first().timestamp().date().year() == 2019);
}

void tst_UndoContract::mergingGivesTheKernosBelowAsTheyAre() {
    m_project.undo.mergeKernos(1, 5, text("Both"));
    m_project.settle();
    KRNFile& file = m_project.file;
    const int merged = file.kernoModel()->snapshot().last().id();
    QCOMPARE(file.kernoModel()->childIdsOf(merged), (QList<int>{2, 3}));
    QCOMPARE(file.kerno(2).timestamp().date().year(), 2019);
    QCOMPARE(file.kernoModel()->childIdsOf(2), QList<int>{4});
    QCOMPARE(rangesOf(file, 2), QStringList{text("2.1 0-8")});
    QCOMPARE(rangesOf(file, 4), QStringList{text("3.2 1-4")});
    QVERIFY(file.kernoGroupModel()->link(2, 1).isValid());
    QCOMPARE(file.shortcutKeyModel()->record(text("B")).kernoId(), 2);
}

void tst_UndoContract::mergingDownwardsKeepsTheWayUp() {
    m_project.undo.mergeKernos(1, 4, text("Both"));
    m_project.settle();
    const Kerno merged = m_project.file.kernoModel()->snapshot().last();
    QCOMPARE(merged.parentKernoId(), -1);
    QCOMPARE(m_project.file.kerno(2).parentKernoId(), merged.id());
}

void tst_UndoContract::duplicatingCopiesTheCodings() {
    m_project.undo.duplicateKerno(2);
    m_project.settle();
    const Kerno copy = m_project.file.kernoModel()->snapshot().last();
    QCOMPARE(copy.title(), text("Doubt Duplicate"));
    QCOMPARE(copy.parentKernoId(), -1);
    QCOMPARE(copy.color(), QColor(text("#E12081")));
    QCOMPARE(copy.author(), text("Bea"));
    QCOMPARE(rangesOf(m_project.file, copy.id()), QStringList{text("2.1 0-8")});
    QCOMPARE(rangesOf(m_project.file, 2), QStringList{text("2.1 0-8")});
    QCOMPARE(m_project.file.highlightsOfKerno(copy.id()).first().author(), ann);
}

void tst_UndoContract::aPropertyOfOneValueHasItReplaced() {
    m_project.undo.addMetadata(1, 2, 1);
    m_project.undo.addMetadataKeyAndValue(text("Age"), text("50"), 2);
    m_project.settle();
    m_project.undo.addMetadataKeyAndValue(text("Age"), text("40"), 2);
    m_project.settle();
    SourceMetadataModel* links = m_project.file.metadataModel();
    QCOMPARE(links->links(1, 1).size(), 1);
    QCOMPARE(links->links(1, 1).first().valueId(), 2);
    QCOMPARE(links->links(1, 2).size(), 1);
    QCOMPARE(links->links(1, 2).first().valueId(), 2);

    m_project.undo.addMetadataKeyAndValues(text("Town"), {text("Oslo"), text("Oslo"), text("Rome")}, 3);
    m_project.settle();
    const int town = m_project.file.metadataKeyModel()->snapshot().last().id();
    const auto values = m_project.file.metadataValueModel()->valuesOfKey(town);
    QCOMPARE(values.size(), 2);
    QCOMPARE(links->links(town, 3).size(), 1);
    QCOMPARE(links->links(town, 3).first().valueId(), values.last().id());
}

KERNOVA_TEST_MAIN(tst_UndoContract)
#include "tst_undocontract.moc"
