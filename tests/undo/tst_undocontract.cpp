#include "UndoProject.h"
#include "tests_support/TestMain.h"

#include <functional>
#include <utility>

using namespace undotest;

namespace {

QStringList rangesOf(KRNFile& file, int kernoId) {
    QStringList ranges;
    for (const Highlight& h : file.highlightsOfKerno(kernoId))
        ranges << "%1.%2 %3-%4"_s.arg(h.sourceId()).arg(h.questionId()).arg(h.start()).arg(h.end());
    ranges.sort();
    return ranges;
}

/// The id of one of the records; 99 when there is none.
template <typename Model> int anyOf(QRandomGenerator& random, const Model* model) {
    return model->rowCount() > 0 ? model->at(random.bounded(model->rowCount())).id() : 99;
}

/// Changes something at random, or tries to.
void changeAnything(QRandomGenerator& random, UndoManager& undo, KRNFile& file) {
    const int number = random.bounded(7);
    const QString name = number > 0 ? "n%1"_s.arg(number) : QString();
    const int kerno = anyOf(random, file.kernoModel());
    const int source = anyOf(random, file.sourceModel());
    const int question = anyOf(random, file.questionListModel());
    const int group = anyOf(random, file.groupModel());
    const int key = anyOf(random, file.metadataKeyModel());
    const int value = anyOf(random, file.metadataValueModel());
    if (kerno == 99)
        return undo.addKerno({{"title"_s, name}});
    if (source == 99)
        return undo.addSource(Source(-1, name, {}, {}, {}));
    if (question == 99)
        return undo.addQuestion(Question(-1, "q"_s, 1));
    if (group == 99)
        return undo.addGroup(-1, "g"_s);
    if (key == 99 || value == 99)
        return undo.addMetadataKeyAndValue("k"_s, "v"_s);
    // What is looked for may be gone.
    const auto maybe = [&random](int id) { return random.bounded(6) > 0 ? id : 99; };
    const int otherKerno = maybe(anyOf(random, file.kernoModel()));
    const QVariantList highlights = file.highlightIds();
    const int start = random.bounded(20);
    const int end = start + random.bounded(20);
    const QList<std::function<void()>> changes{
        [&] { undo.addHighlight(highlight(-1, kerno, source, question, start, end, {})); },
        [&] { undo.addHighlight(highlight(-1, kerno, source, question, start, end)); },
        [&] { undo.deleteHighlight(maybe(highlights.value(random.bounded(highlights.size() + 1)).toInt())); },
        [&] { undo.addHighlightToNewKerno(highlight(-1, -1, source, question, start, end), Kerno()); },
        [&] { undo.tryAddHighlightByShortcut(highlight(-1, -1, source, question, start, end), "a"_s); },
        [&] { undo.addMemo(memo(-1, source, question, start, end, name)); },
        [&] {
            Memo changed = file.memo(1 + random.bounded(6));
            changed.detach();
            changed.setContent(name);
            undo.updateMemo(changed);
        },
        [&] { undo.deleteMemo(1 + random.bounded(6)); },
        [&] {
            undo.addKerno({{"title"_s, name}, {"parentKernoId"_s, kerno}});
        },
        [&] {
            Kerno changed = file.kerno(kerno);
            changed.setTitle(name);
            changed.setParentKernoId(anyOf(random, file.kernoModel()));
            undo.updateKerno(changed);
        },
        [&] { undo.deleteKerno(maybe(kerno)); },
        [&] { undo.mergeKernos(kerno, otherKerno, name); },
        [&] { undo.duplicateKerno(maybe(kerno)); },
        [&] { undo.addGroup(maybe(group), name); },
        [&] { undo.deleteGroup(maybe(group)); },
        [&] { undo.addKernoGroup(kerno, group); },
        [&] { undo.deleteKernoGroup(kerno, group); },
        [&] { undo.setKernoShortcut("A"_s, kerno); },
        [&] { undo.setKernoShortcut("A"_s, -1); },
        [&] { undo.addSource(Source(-1, name, {}, {}, {})); },
        [&] { undo.updateSourceTitle(maybe(source), name); },
        [&] { undo.updateSourceIcon(maybe(source), name); },
        [&] { undo.deleteSource(maybe(source)); },
        [&] { undo.addQuestion(Question(-1, name, 1)); },
        [&] { undo.updateQuestion(Question(maybe(question), name, number)); },
        [&] { undo.deleteQuestion(maybe(question)); },
        [&] { undo.addAnswer(QuestionAnswer(-1, 50 + number, source, {}, name, {})); },
        [&] {
            QuestionAnswer changed = file.answer(1 + random.bounded(12));
            changed.setAnswer(name);
            undo.updateAnswer(changed);
        },
        [&] {
            undo.addMetadataKeyAndValues(name, {"x"_s, name, "x"_s}, source);
        },
        [&] { undo.addMetadataKey(SourceMetadataKey(-1, true, false, name)); },
        [&] { undo.updateMetadataKey(SourceMetadataKey(maybe(key), true, true, name)); },
        [&] { undo.addMetadataValue(SourceMetadataValue(-1, key, name)); },
        [&] {
            undo.updateMetadataValue(
                SourceMetadataValue(maybe(value), file.metadataValueModel()->record(value).keyId(), name));
        },
        [&] { undo.deleteMetadata(1 + random.bounded(6)); },
        [&] { undo.addMetadata(file.metadataValueModel()->record(value).keyId(), value, source); },
        [&] { undo.deleteMetadata(key, maybe(source)); },
        [&] { undo.deleteMetadataKey(maybe(key)); },
        [&] { undo.deleteMetadataValue(maybe(value)); }};
    changes.at(random.bounded(changes.size()))();
}

/// The first record that hangs on another one which isn't there; empty when there is none.
QString danglingRecord(const QJsonObject& project) {
    const QHash<QString, QString> lists{{"kernoId"_s, "kernos"_s},
                                        {"groupId"_s, "groups"_s},
                                        {"sourceId"_s, "sources"_s},
                                        {"keyId"_s, "source_metadata_keys"_s},
                                        {"valueId"_s, "source_metadata_values"_s}};
    QHash<QString, QSet<int>> ids;
    for (const QString& list : lists) {
        for (const QJsonValue& record : project.value(list).toArray())
            ids[list].insert(record.toObject().value("id"_s).toInt());
    }
    for (const QString& list : project.keys()) {
        for (const QJsonValue& value : project.value(list).toArray()) {
            const QJsonObject record = value.toObject();
            for (auto link = lists.cbegin(); link != lists.cend(); ++link) {
                if (record.contains(link.key()) && !ids[*link].contains(record.value(link.key()).toInt()))
                    return "%1 of %2 %3"_s.arg(link.key(), list).arg(record.value("id"_s).toInt());
            }
        }
    }
    return {};
}

}  // namespace

/// Undo gives back exactly what was there, and redo what was done: ids, links, texts and times, both in what
/// is stored and in the models. The order of rows is that of ids here; what a person sees is sorted by the
/// views.
class tst_UndoContract : public QObject {
    Q_OBJECT

private slots:
    void init() { QVERIFY2(m_project.open(), qPrintable(m_project.error)); }

    void aLongSequenceIsTakenBackAndDoneAgain_data() {
        columns<QString, uint>({"password", "seed"});
        addRow("open", QString(), 1u);
        addRow("under a password", "s3cret"_s, 2u);
    }

    void aLongSequenceIsTakenBackAndDoneAgain() {
        FETCH(QString, password, uint, seed);
        UndoProject project(password);
        QVERIFY2(project.open(), qPrintable(project.error));
        UndoManager& undo = project.undo;
        QRandomGenerator random(seed);
        QList<QJsonObject> stored{project.json()};
        QList<QStringList> rows{project.modelTexts()};
        while (undo.count() < 100) {
            const int before = undo.count();
            changeAnything(random, undo, project.file);
            const QJsonObject now = project.json();
            if (undo.count() == before) {
                QCOMPARE(difference(stored.last(), now), QString());
                continue;
            }
            const QStringList rowsNow = project.modelTexts();
            QVERIFY2(now != stored.last() || rowsNow != rows.last(), qPrintable(undo.undoText()));
            QCOMPARE(danglingRecord(now), QString());
            stored.append(now);
            rows.append(rowsNow);
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

    void aNewSourceGetsATitleAndAnswers() {
        m_project.undo.addSource(Source(-1, "  "_s, QString(), {}, {}));
        m_project.settle();
        const Source source = m_project.file.sourceModel()->snapshot().last();
        QCOMPARE(source.title(), "Source %1"_s.arg(source.id()));
        QCOMPARE(source.author(), "Bea"_s);
        const QList<QuestionAnswer> answers = m_project.file.answerModel()->answers(source.id());
        QCOMPARE(answers.size(), 2);
        QVERIFY(answers.first().plainAnswer().isEmpty());
        QCOMPARE(answers.first().author(), "Bea"_s);
    }

    void mergingJoinsWhatOverlapsAndGivesTheKernosBelowAsTheyAre() {
        m_project.undo.mergeKernos(1, 5, "Both"_s);
        m_project.settle();
        KRNFile& file = m_project.file;
        const Kerno merged = file.kernoModel()->snapshot().last();
        QCOMPARE(merged.title(), "Both"_s);
        QCOMPARE(merged.color(), QColor(50, 20, 30));
        QCOMPARE(merged.x(), 5);
        QCOMPARE(rangesOf(file, merged.id()),
                 (QStringList{"1.1 0-15"_s, "1.1 20-30"_s, "1.1 30-40"_s, "2.2 0-5"_s, "2.2 6-9"_s}));
        const Highlight first = file.highlightsOfKerno(merged.id()).first();
        QCOMPARE(first.id(), 1);
        QCOMPARE(first.author(), ann);
        QCOMPARE(first.timestamp().date().year(), 2019);
        QCOMPARE(file.kernoModel()->childIdsOf(merged.id()), (QList<int>{2, 3}));
        QCOMPARE(file.kerno(2).timestamp().date().year(), 2019);
        QCOMPARE(rangesOf(file, 2), QStringList{"2.1 0-8"_s});
        QVERIFY(file.kernoGroupModel()->link(2, 1).isValid());
        QCOMPARE(file.shortcutKeyModel()->record("B"_s).kernoId(), 2);
    }

    void mergingDownwardsKeepsTheWayUp() {
        m_project.undo.mergeKernos(1, 4, "Both"_s);
        m_project.settle();
        const Kerno merged = m_project.file.kernoModel()->snapshot().last();
        QCOMPARE(merged.parentKernoId(), -1);
        QCOMPARE(m_project.file.kerno(2).parentKernoId(), merged.id());
    }

    void duplicatingCopiesTheCodings() {
        m_project.undo.duplicateKerno(2);
        m_project.settle();
        const Kerno copy = m_project.file.kernoModel()->snapshot().last();
        QCOMPARE(copy.title(), "Doubt Duplicate"_s);
        QCOMPARE(copy.parentKernoId(), -1);
        QCOMPARE(copy.color(), QColor("#E12081"_s));
        QCOMPARE(copy.author(), "Bea"_s);
        QCOMPARE(rangesOf(m_project.file, copy.id()), QStringList{"2.1 0-8"_s});
        QCOMPARE(rangesOf(m_project.file, 2), QStringList{"2.1 0-8"_s});
        QCOMPARE(m_project.file.highlightsOfKerno(copy.id()).first().author(), ann);
    }

    void aPropertyOfOneValueHasItReplaced() {
        m_project.undo.addMetadata(1, 2, 1);
        m_project.undo.addMetadataKeyAndValue("Age"_s, "50"_s, 2);
        m_project.settle();
        m_project.undo.addMetadataKeyAndValue("Age"_s, "40"_s, 2);
        m_project.settle();
        SourceMetadataModel* links = m_project.file.metadataModel();
        QCOMPARE(links->links(1, 1).size(), 1);
        QCOMPARE(links->links(1, 1).first().valueId(), 2);
        QCOMPARE(links->links(1, 2).size(), 1);
        QCOMPARE(links->links(1, 2).first().valueId(), 2);

        m_project.undo.addMetadataKeyAndValues("Town"_s, {"Oslo"_s, "Oslo"_s, "Rome"_s}, 3);
        m_project.settle();
        const int town = m_project.file.metadataKeyModel()->snapshot().last().id();
        const auto values = m_project.file.metadataValueModel()->valuesOfKey(town);
        QCOMPARE(values.size(), 2);
        QCOMPARE(links->links(town, 3).size(), 1);
        QCOMPARE(links->links(town, 3).first().valueId(), values.last().id());
    }

private:
    UndoProject m_project;
};

KERNOVA_TEST_MAIN(tst_UndoContract)
#include "tst_undocontract.moc"
