#include "ProjectSupport.h"
#include "project/ModelInstantiator.h"
#include "tests_support/TestMain.h"

#include <functional>

/// Reads and writes against the real service.
class TestReads : public QObject {
    Q_OBJECT

private:
    ProjectUnderTest m_file;

    bool storeHighlights(const QList<Highlight>& highlights) {
        return m_file->batchSaveHighlights(highlights) && m_file->totalHighlightsCount() >= highlights.size();
    }

    static QList<int> ints(const QVariantList& list) {
        QList<int> numbers;
        for (const QVariant& value : list)
            numbers.append(value.toInt());
        return numbers;
    }

    static QList<int> ints(const QVariantList& maps, const QString& name) {
        QList<int> numbers;
        for (const QVariant& map : maps)
            numbers.append(map.toMap().value(name).toInt());
        return numbers;
    }

    static QSet<int> idSet(const QVariantList& list, const QString& name = {}) {
        const QList<int> ids = name.isEmpty() ? ints(list) : ints(list, name);
        return QSet<int>(ids.begin(), ids.end());
    }

    void addKerno(int id, int parent, const QString& title, const QString& author = "Ann") {
        m_file->saveKerno(Kerno(id, parent, QColor(Qt::blue), title, {}, {}, author, 1, 1));
    }

private slots:
    void init() {
        m_file.restart();
        QVERIFY(m_file.create({}, false));
    }

    void preferencesComeBack() {
        for (const QVariant& value : {QVariant(-1), QVariant(0.25), QVariant("007"), QVariant(QString("")),
                                      QVariant("a \"quoted\"\\ line\nand \xF0\x9F\x98\x80"_s)}) {
            QVERIFY(m_file->savePreference("key", value));
            QCOMPARE(m_file->getPreference("key", "default").toString(), value.toString());
        }
        QVERIFY(m_file->savePreference("key", true));
        QCOMPARE(m_file->getPreference("key").toString(), "1"_s);
        QVERIFY(m_file->savePreference("key", false));
        QCOMPARE(m_file->getPreference("key", true).toBool(), false);
        QCOMPARE(m_file->getPreference("unknown", 9).toInt(), 9);
    }

    void kernosAreAnswered() {
        addKerno(1, -1, "b");
        addKerno(2, 1, "d", "Bob");
        addKerno(3, 1, "c", "ann");
        addKerno(4, 2, "e");
        addKerno(5, -1, "a");
        QCOMPARE(ints(m_file->kernoIds()), QList<int>({1, 2, 3, 4, 5}));
        QCOMPARE(ints(m_file->kernoIds(1)), QList<int>({2, 3}));
        QCOMPARE(ints(m_file->kernoIds(QVariant(-1))), QList<int>({1, 5}));
        QCOMPARE(ints(m_file->kernoIds(1, {3, 9, 2}, 0, 0)), QList<int>({3, 2}));
        QCOMPARE(ints(m_file->kernoIds(1, {}, 260, 0)), QList<int>({3, 2}));
        QCOMPARE(ints(m_file->kernoIds(1, {}, 260, 1)), QList<int>({2, 3}));
        QCOMPARE(ints(m_file->kernoIdsForKernosWithChildren()), QList<int>({1, 2}));
        QVERIFY(m_file->kernoHasChildren(2));
        QVERIFY(!m_file->kernoHasChildren(3));
        QCOMPARE(ints(m_file->kernos({2, 5}), "kernoId"), QList<int>({1, 3, 4}));
        QCOMPARE(ints(m_file->kernosWithoutParent(), "kernoId"), QList<int>({1, 5}));
        QCOMPARE(ints(m_file->kernosWithoutParent({1}), "kernoId"), QList<int>({5}));
        QCOMPARE(m_file->kernosForParent(1).size(), 2);
        QCOMPARE(m_file->kernosAuthors(), QStringList({"Ann", "Bob", "ann"}));
        QVERIFY(m_file->anyVisibleChildren(1));
        m_file->filterKernosByName("e");
        QVERIFY(m_file->anyVisibleChildren(1));
        QVERIFY(!m_file->anyVisibleChildren(4));
        m_file->filterKernosByName("b");
        QVERIFY(!m_file->anyVisibleChildren(1));
    }

    // Each place, source and kerno has codings of its own, so that no argument can stand for another.
    void passagesAreAnswered() {
        addKerno(1, -1, "parent");
        addKerno(2, 1, "child");
        const auto coding = [](int id, int kerno, int source, int question, int start, int length) {
            return Highlight(id, kerno, source, question, {}, start, length, start + length, "Ann", {}, 0, 0,
                             0, false);
        };
        QVERIFY(
            storeHighlights({coding(1, 1, 3, 2, 0, 4), coding(2, 2, 3, 2, 2, 4), coding(3, 1, 3, 2, 6, 2),
                             coding(4, 1, 2, 2, 0, 4), coding(5, 1, 3, 4, 0, 4), coding(6, 5, 2, 4, 0, 4)}));
        QCOMPARE(idSet(m_file->highlightIds()), QSet<int>({1, 2, 3, 4, 5, 6}));
        QCOMPARE(idSet(m_file->highlights(3), "highlightId"), QSet<int>({1, 2, 3, 5}));
        QCOMPARE(m_file->highlightsCount(3), 4);
        QCOMPARE(m_file->highlights(3, 2).size(), 3);
        QCOMPARE(idSet(m_file->highlights(3, 2, 4, 2), "highlightId"), QSet<int>({2}));
        QCOMPARE(idSet(m_file->highlights(3, 2, 5, -1), "highlightId"), QSet<int>({2, 3}));
        QCOMPARE(m_file->highlight(2).start(), 2);
        QVERIFY(!m_file->highlight(99).isValid());
        QCOMPARE(idSet(m_file->highlightIdsByKernoId(1)), QSet<int>({1, 3, 4, 5}));
        QCOMPARE(idSet(m_file->highlightIdsByQuestionId(2)), QSet<int>({1, 2, 3, 4}));
        QCOMPARE(idSet(m_file->highlightIdsByQuestionAndSourceId(2, 3)), QSet<int>({1, 2, 3}));
        QCOMPARE(idSet(m_file->highlightIdsByKernoIdAndSourceId(1, 2)), QSet<int>({4}));
        QCOMPARE(m_file->highlightsOfKerno(1).size(), 4);
        QCOMPARE(m_file->highlightsOfKerno(1, 3, 2).size(), 2);
        QVERIFY(waitFor([&] { return m_file->highlightsCountForKernoWithChildren(1) == 5; }));
        QVERIFY(m_file->batchDeleteHighlights(m_file->highlightsOfKerno(1)));
        QCOMPARE(m_file->totalHighlightsCount(), 2);
        QVERIFY(m_file->batchSaveHighlights({}));

        const auto memo = [](int id, int source, int question) {
            return Memo(id, source, question, "m", 0, 4, 4, "Ann", {}, 0, 0);
        };
        QVERIFY(m_file->batchSaveMemos({memo(1, 3, 2), memo(2, 3, 4), memo(3, 2, 2)}));
        QCOMPARE(ints(m_file->memos(3), "memoId"), QList<int>({1, 2}));
        QCOMPARE(m_file->memos(3, 2).size(), 1);
        m_file->saveAnswer(QuestionAnswer(1, 2, 3, "Ann", "here", {}));
        m_file->saveAnswer(QuestionAnswer(2, 3, 2, "Ann", "there", {}));
        QCOMPARE(ints(m_file->answers(3), "answerId"), QList<int>({1}));
    }

    void passagesAreCut() {
        QVERIFY(m_file.addContents("0123456789abcdefghij"));
        addKerno(2, -1, "other");
        QVERIFY(storeHighlights(
            {ProjectUnderTest::highlight(1, 0, 4), ProjectUnderTest::highlight(2, 4, 3, 2),
             ProjectUnderTest::highlight(3, 10, 4), ProjectUnderTest::highlight(4, 12, 4, 2)}));
        const QVariantList both = m_file->partialAnswersForKernos({1, 2, 1});
        QCOMPARE(ints(both, "offset"), QList<int>({0, 10}));
        QVERIFY(both.first().toMap().value("answer").toString().contains(">0123456<"));
        QCOMPARE(both.first().toMap().value("sourceTitle").toString(), "Interview"_s);
        QVERIFY(m_file->partialAnswersForKernos({}).isEmpty());
        const QVariantList overlaps = m_file->partialAnswersForOverlapsBetweenKernos(1, 2);
        QCOMPARE(ints(overlaps, "offset"), QList<int>({10}));
        QVERIFY(overlaps.first().toMap().value("answer").toString().contains(">abcdef<"));
        QCOMPARE(ints(m_file->partialAnswersForOverlapsBetweenKernos(1, 1), "offset"), QList<int>({0, 10}));
        QCOMPARE(m_file->partialAnswer(1, 1, 2, 3).plainAnswer(), "234"_s);
        QCOMPARE(m_file->partialAnswer(QVariant("1"), 1, 2, 3).plainAnswer(), "234"_s);
        QVERIFY(m_file->partialAnswer(1, 1, 20, 3).answerId() < 1);
    }

    void removesWhatHasNotComeBackYet() {
        m_file->saveSource(ProjectUnderTest::source(4, "new"));
        QVERIFY(m_file->deleteSource(4));
        QVERIFY(m_file->sourceIds().isEmpty());
    }

    void newRecordsGoLast() {
        QCOMPARE(m_file->saveQuestion(Question(IdManager::instance()->nextQuestionId(), "Why?", 2)), 2);
        QVERIFY(m_file->hasQuestion("Why?") && !m_file->hasQuestion("why?"));
        ModelInstantiator instantiator;
        QCOMPARE(instantiator.question(false).questionOrder(), 3);
        QCOMPARE(instantiator.question(true).questionId(), 3);
    }

    void metadataIsAnswered() {
        m_file->saveMetadataKey(SourceMetadataKey(1, false, false, "town"));
        m_file->saveMetadataKey(SourceMetadataKey(2, false, false, "a\"ge"));
        for (const char* value : {"b", "a", "c"})
            m_file->saveMetadataValue(
                SourceMetadataValue(IdManager::instance()->nextSourceMetadataValueId(), 1, value));
        QCOMPARE(ints(m_file->metadataKeys(), "keyId"), QList<int>({1, 2}));
        QCOMPARE(ints(m_file->metadataKeys(1), "keyId"), QList<int>({2, 1}));
        QCOMPARE(ints(m_file->metadataKeys(1, 1), "keyId"), QList<int>({1, 2}));
        QCOMPARE(m_file->metadataKeyByKeyName("a\"ge").value("keyId").toInt(), 2);
        QVERIFY(m_file->metadataKeyByKeyName("size").isEmpty());
        QCOMPARE(ints(m_file->metadataValues(1), "valueId"), QList<int>({1, 2, 3}));
        QCOMPARE(ints(m_file->metadataValues(1, true), "valueId"), QList<int>({2, 1, 3}));
        QVERIFY(waitFor([&] { return m_file->metadataKeyValuesForKey(1).size() == 3; }));
        QCOMPARE(m_file->metadataKey(2).key(), "a\"ge"_s);

        m_file->saveSource(ProjectUnderTest::source(2, "2"));
        m_file->saveMetadata(SourceMetadata(2, 2, 1, 1, "Ann", {}));
        const QVariantMap link = m_file->sourceMetadataListForReport(2).first().toMap();
        QCOMPARE(link.value("metadataId").toInt(), 2);
        QCOMPARE(link.value("key").toString(), "town"_s);
    }

    void savedKernosAreThereAtOnce() {
        QSignalSpy added(m_file.get(), &KRNFile::newKernoAdded);
        QSignalSpy updated(m_file.get(), &KRNFile::kernoUpdated);
        const int id = IdManager::instance()->nextKernoId();
        addKerno(id, -1, "mine");
        QCOMPARE(added.count(), 1);
        QCOMPARE(updated.count(), 1);
        QCOMPARE(m_file->kerno(id).title(), "mine"_s);
        QVERIFY(waitFor([&] { return updated.count() == 2; }));
        QCOMPARE(added.count(), 1);
        QVERIFY(m_file->kerno(id).timestamp().isValid());
        QSignalSpy gone(m_file.get(), &KRNFile::kernoDeleted);
        QVERIFY(m_file->deleteKerno(m_file->kerno(id)));
        QVERIFY(waitFor([&] { return gone.count() == 1; }));
    }
};

KERNOVA_TEST_MAIN(TestReads)
#include "tst_reads.moc"
