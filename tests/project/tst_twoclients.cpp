#include "../models/FakeText.h"
#include "LookUps.h"
#include "ProjectSupport.h"
#include "ProjectViews.h"
#include "link/ServiceConfig.h"
#include "models/HighlightsModel.h"
#include "models/MemosModel.h"
#include "models/ModelDelays.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"

#include <functional>
#include <vector>

namespace {

constexpr int ids = 8;  // of each kind: few, so that both clients change the same records
constexpr int steps = 500;

/// What the service stores of a record, as text.
template <typename T> QString storedText(const T& record) {
    QStringList values;
    for (const FieldInfo& field : T::fieldInfos()) {
        if (!field.local)
            values << field.wireName + '=' + record.fieldValue(field.number, false).toString();
    }
    return values.join(", "_s);
}

/// A client with all its models and views, and the codings and memos of one answer.
class Client {
    FakeText m_text;

public:
    Client() : file(LinkTimings(), ProjectTimings{0, 0}) {
        file.initModels();
        for (QAbstractItemModel* model : QList<QAbstractItemModel*>{
                 file.kernoModel(), file.sourceModel(), file.questionListModel(), file.answerModel(),
                 file.metadataKeyModel(), file.metadataValueModel(), file.metadataModel(), file.groupModel(),
                 file.kernoGroupModel(), file.chatModel()})
            m_testers.push_back(std::make_unique<QAbstractItemModelTester>(model));
        views = std::make_unique<ProjectViews>();
        highlights = std::make_unique<HighlightsModel>(&m_text, file.dataHelper());
        memos = std::make_unique<MemosModel>(&m_text, file.dataHelper());
    }

    KRNFile file;
    std::unique_ptr<ProjectViews> views;
    std::unique_ptr<HighlightsModel> highlights;
    std::unique_ptr<MemosModel> memos;

    bool open(const QString& path, bool create) {
        const bool opened = file.dataHelper()->connection()->connect(false) &&
                            file.openProject(localProject(path), create, QString(), false, true);
        if (create)
            file.saveKerno(Kerno(1, -1, Qt::red, "first"_s, {}, {}, "Ann"_s, 1, 1));
        views->showHierarchy(1);
        highlights->setSource(1, 1, 0, -1);
        memos->setSource(1, 1, 0, -1);
        return opened;
    }

    /// All rows of the views, and the records that no view shows whole, in an order that doesn't depend on
    /// how they came.
    QStringList lists() const {
        QStringList all;
        const auto add = [&all](const auto* model) {
            for (const auto& record : model->snapshot())
                all << QString::fromLatin1(model->metaObject()->className()) + ' ' + storedText(record);
        };
        add(file.questionListModel());
        add(file.answerModel());
        add(file.metadataValueModel());
        add(file.metadataModel());
        add(file.groupModel());
        add(file.kernoGroupModel());
        add(file.chatModel());
        for (const Highlight& h : highlights->snapshot())
            all << "highlight %1 of %2: %3-%4"_s.arg(h.id()).arg(h.kernoId()).arg(h.start()).arg(h.end());
        for (const Memo& m : memos->snapshot())
            all << "memo %1 %2: %3-%4"_s.arg(m.id()).arg(m.content()).arg(m.start()).arg(m.end());
        for (int row = 0; row < file.groupModel()->count(); ++row)
            all << "group %1: %2"_s.arg(row).arg(
                file.groupModel()->get(row, "associatedKernosCount").toInt());
        all += views->rows();
        all.sort();
        return all;
    }

private:
    std::vector<std::unique_ptr<QAbstractItemModelTester>> m_testers;
};

/// What only one of the lists holds, a line each.
QString differences(const QStringList& shown, const QStringList& stored) {
    QString text;
    for (const QString& line : shown) {
        if (!stored.contains(line))
            text += "\nonly shown: "_s + line;
    }
    for (const QString& line : stored) {
        if (!shown.contains(line))
            text += "\nonly stored: "_s + line;
    }
    return shown.size() == stored.size() || !text.isEmpty() ? text : "rows stand twice"_s;
}

int anyId(QRandomGenerator& random) {
    return 1 + random.bounded(ids);
}

QString anyText(QRandomGenerator& random) {
    // No two alike, so that what is sorted by it has one order.
    static int number = 0;
    return "text %1 \"%2\"\\"_s.arg(random.bounded(100)).arg(++number);
}

// A passage never moves to another answer.
Highlight anyHighlight(QRandomGenerator& random) {
    const int id = 1 + random.bounded(5 * ids);
    const int start = random.bounded(50);
    return Highlight(id, anyId(random), 1 + id % 2, 1, {}, start, 10, start + 10, "Ann"_s, {}, 0, 0, 0,
                     false);
}

Memo anyMemo(QRandomGenerator& random) {
    const int id = 1 + random.bounded(3 * ids);
    const int start = random.bounded(50);
    return Memo(id, 1 + id % 2, 1, anyText(random), start, 10, start + 10, "Ann"_s, {}, 0, 0);
}

template <typename T> QList<T> several(T (*any)(QRandomGenerator&), QRandomGenerator& random) {
    QList<T> list;
    for (int i = random.bounded(1, 6); i > 0; --i)
        list.append(any(random));
    return list;
}

Source anySource(QRandomGenerator& random) {
    return ProjectUnderTest::source(anyId(random), anyText(random));
}

QuestionAnswer anyAnswer(QRandomGenerator& random) {
    return QuestionAnswer(anyId(random), 1, anyId(random), "Ann"_s, anyText(random), {});
}

SourceMetadataValue anyValue(QRandomGenerator& random) {
    return SourceMetadataValue(anyId(random), anyId(random), anyText(random));
}

SourceMetadata anyLink(QRandomGenerator& random) {
    return SourceMetadata(anyId(random), anyId(random), anyId(random), anyId(random), "Ann"_s, {});
}

template <typename T> void changeMany(KRNFile& file, T (*any)(QRandomGenerator&), QRandomGenerator& random) {
    random.bounded(2) ? file.saveAll(several(any, random)) : file.deleteAll(several(any, random));
}

/// Does something at random that both clients hear of.
void changeAnything(KRNFile& file, QRandomGenerator& random) {
    BatchOperationManager& batches = *file.batchOperationManager();
    const int id = anyId(random);
    const auto meanwhile = [&random] {
        if (random.bounded(2))
            QCoreApplication::processEvents();
    };
    const std::vector<std::function<void()>> changes{
        [&] {
            // Parents have lower ids, so that there is no circle.
            const int parent = id > 1 && random.bounded(3) ? 1 + random.bounded(id - 1) : -1;
            file.saveKerno(Kerno(id, parent, random.bounded(2) ? Qt::red : Qt::blue, anyText(random), {}, {},
                                 "Ann"_s, id, random.bounded(100)));
        },
        // The hierarchy of the first is shown.
        [&] { file.deleteKerno(file.kerno(2 + random.bounded(ids - 1))); },
        [&] { file.saveSource(anySource(random)); }, [&] { file.deleteSource(id); },
        [&] {
            batches.startSourcesBatch();
            for (const Source& source : several(anySource, random))
                file.saveSource(source);
            meanwhile();
            batches.finishSourcesBatch();
        },
        [&] { file.saveQuestion(Question(id, anyText(random), random.bounded(1000000)), random.bounded(2)); },
        [&] { file.deleteQuestion(id); }, [&] { file.saveAnswer(anyAnswer(random)); },
        [&] { file.deleteAnswer(id); },
        [&] { file.saveMetadataKey(SourceMetadataKey(id, random.bounded(2), true, anyText(random))); },
        [&] { file.deleteMetadataKey(file.metadataKey(id)); },
        [&] { file.saveMetadataValue(anyValue(random)); },
        [&] { file.deleteMetadataValue(file.metadataValueModel()->record(id)); },
        [&] { file.saveMetadata(anyLink(random)); },
        [&] { file.deleteMetadata(file.metadataModel()->record(id)); },
        [&] {
            batches.startMetadataBatch();
            for (const SourceMetadata& link : several(anyLink, random))
                file.saveMetadata(link);
            meanwhile();
            batches.finishMetadataBatch();
        },
        [&] { file.saveGroup(Group(id, anyText(random), true)); },
        [&] { file.deleteGroup(file.groupModel()->record(id)); },
        [&] { file.saveKernoGroup(KernoGroup(id, anyId(random), anyId(random))); },
        [&] { file.deleteKernoGroup(file.kernoGroupModel()->record(id)); },
        [&] { file.saveChatMessage(ChatMessage(id, anyText(random), "Ann"_s, {})); },
        [&] { file.deleteChatMessage(file.chatModel()->record(id)); },
        [&] { file.saveHighlight(anyHighlight(random)); },
        [&] { file.deleteHighlight(anyHighlight(random)); },
        [&] { file.batchSaveHighlights(several(anyHighlight, random)); },
        [&] { file.batchDeleteHighlights(several(anyHighlight, random)); },
        [&] {
            batches.startHighlightBatch(1, 1);
            file.batchSaveHighlights(several(anyHighlight, random));
            file.batchDeleteHighlights(several(anyHighlight, random));
            batches.finishHighlightBatch(1, 1);
        },
        [&] { file.saveMemo(anyMemo(random)); }, [&] { file.deleteMemo(anyMemo(random)); },
        [&] { file.batchSaveMemos(several(anyMemo, random)); },
        [&] { file.batchDeleteMemos(several(anyMemo, random)); },
        [&] { changeMany(file, anySource, random); }, [&] { changeMany(file, anyAnswer, random); },
        [&] { changeMany(file, anyLink, random); }, [&] { changeMany(file, anyValue, random); }};
    changes[random.bounded(quint32(changes.size()))]();
}

}  // namespace

/// Two clients on one project of one service: the models keep the contract of views at every step, and both
/// end with what a third reads anew.
class tst_TwoClients : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        modelDelays().comboBox = 1;
        modelDelays().hierarchy = 1;
        modelDelays().codingStats = 1;
    }

    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        m_service = std::make_unique<RealService>(ServiceConfig::instance().serviceToken());
        QVERIFY(m_service->start());
        QVERIFY(m_service->share());
        m_ann = std::make_unique<Client>();
        QVERIFY(m_ann->open(path(), true));
        m_bea = std::make_unique<Client>();
        QVERIFY(m_bea->open(path(), false));
        QTRY_COMPARE(m_ann->file.connectedUserCount(), 2);
    }

    void cleanup() {
        m_bea.reset();
        m_ann.reset();
        m_service.reset();
    }

    // More than a burst of requests at once, single ones around it, and none twice.
    void idsAreSharedOut() {
        const QString word = wire::word(wire::Record::Highlight);
        QList<int> taken;
        for (int round = 0; round < 3; ++round) {
            taken += m_ann->file.dataHelper()->nextIds(word, 2500);
            taken << m_bea->file.dataHelper()->nextId(word, true);
            taken += m_bea->file.dataHelper()->nextIds(word, 50);
        }
        QCOMPARE(taken.size(), 7653);
        QCOMPARE(QSet<int>(taken.begin(), taken.end()).size(), 7653);
    }

    void bothEndWithWhatIsStored_data() {
        QTest::addColumn<uint>("seed");
        for (uint seed = 1; seed <= 3; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    void bothEndWithWhatIsStored() {
        QFETCH(uint, seed);
        QRandomGenerator random(seed);
        const Mirror kernos(*m_ann->file.kernoModel(), KernoModel::HighlightsCountWithChildrenRole);
        const Mirror questions(*m_ann->file.questionListModel());
        const Mirror groups(*m_bea->file.kernoGroupModel());
        for (int step = 0; step < steps; ++step) {
            Client& client = random.bounded(2) ? *m_ann : *m_bea;
            changeAnything(client.file, random);
            if (random.bounded(4) == 0)
                QCoreApplication::processEvents();
            for (const Mirror* mirror : {&kernos, &questions, &groups})
                QCOMPARE(mirror->difference(), QString());
            checkLookUps(m_ann->file, anyId(random), anyId(random));
            if (step % 120 == 119) {
                m_bea->file.close();
                QVERIFY(m_bea->open(path(), false));
            }
            if (QTest::currentTestFailed())
                return;
        }
        // A reply tells that the changes before it are stored, and stands behind their notifications. Ann's
        // second one stands behind Bea's too.
        m_ann->file.kernoIds();
        m_bea->file.kernoIds();
        m_ann->file.kernoIds();

        Client fresh;
        QVERIFY(fresh.open(path(), false));
        // Overlaps are read by the project that was made last, which was closed until now.
        emit m_ann->file.kernoUpdated(1);
        emit m_bea->file.kernoUpdated(1);
        // Some models fetch later, on their own. The comparisons after the wait tell what differs.
        waitFor([&] { return m_ann->lists() == fresh.lists() && m_bea->lists() == fresh.lists(); });
        QVERIFY(fresh.lists().size() > 5 * ids);
        QCOMPARE(differences(m_ann->lists(), fresh.lists()), QString());
        QCOMPARE(differences(m_bea->lists(), fresh.lists()), QString());
    }

private:
    QString path() const { return m_folder->filePath("shared.krn"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<RealService> m_service;
    std::unique_ptr<Client> m_ann;
    std::unique_ptr<Client> m_bea;
};

KERNOVA_TEST_MAIN(tst_TwoClients)
#include "../models/moc_FakeText.cpp"
#include "tst_twoclients.moc"
