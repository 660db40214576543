#include "ProjectSupport.h"
#include "link/ServiceConfig.h"
#include "models/HighlightsModel.h"
#include "models/MemosModel.h"
#include "models/TextGeometry.h"
#include "tests_support/RealService.h"
#include "tests_support/TestMain.h"

#include <functional>
#include <vector>

namespace {

constexpr int ids = 8;  // of each kind: few, so that both clients change the same records
constexpr int steps = 500;

/// A text of which only the codings are watched.
class StillText : public QObject, public TextGeometry {
    Q_OBJECT

public:
    QRectF rectangleAt(int position) const override { return {0, position * 1.0, 1, 1}; }
    double lineHeight() const override { return 1; }
    int textLength() const override { return 1000; }
    bool isReadOnlyText() const override { return true; }
    bool isComplete() const override { return true; }
    QObject* item() override { return this; }

signals:
    void contentSizeChanged();
    void readOnlyChanged(bool readOnly);
};

/// What the service stores of a record, as text.
template <typename T> QString storedText(const T& record) {
    QStringList values;
    for (const FieldInfo& field : T::fieldInfos()) {
        if (!field.local)
            values << field.wireName + '=' + record.fieldValue(field.number, false).toString();
    }
    return values.join(", "_s);
}

/// A client with all its models and the codings and memos of one answer.
class Client {
    StillText m_text;

public:
    Client() : file(LinkTimings(), ProjectTimings{0, 0}) {
        file.initModels();
        highlights = std::make_unique<HighlightsModel>(&m_text, file.dataHelper());
        memos = std::make_unique<MemosModel>(&m_text, file.dataHelper());
    }

    KRNFile file;
    std::unique_ptr<HighlightsModel> highlights;
    std::unique_ptr<MemosModel> memos;

    bool open(const QString& path, bool create) {
        const bool opened = file.dataHelper()->connection()->connect(false) &&
                            file.openProject(localProject(path), create, QString(), false, true);
        highlights->setSource(1, 1, 0, -1);
        memos->setSource(1, 1, 0, -1);
        return opened;
    }

    /// All records of the models, and the counts of codings, in an order that doesn't depend on how they
    /// came.
    QStringList lists() const {
        QStringList all;
        const auto add = [&all](const auto* model) {
            for (const auto& record : model->snapshot())
                all << QString::fromLatin1(model->metaObject()->className()) + ' ' + storedText(record);
        };
        add(file.kernoModel());
        add(file.sourceModel());
        add(file.questionListModel());
        add(file.answerModel());
        add(file.metadataKeyModel());
        add(file.metadataValueModel());
        add(file.metadataModel());
        add(file.groupModel());
        add(file.kernoGroupModel());
        add(file.chatModel());
        for (const Highlight& h : highlights->snapshot())
            all << "highlight %1 of %2: %3-%4"_s.arg(h.id()).arg(h.kernoId()).arg(h.start()).arg(h.end());
        for (const Memo& m : memos->snapshot())
            all << "memo %1 %2: %3-%4"_s.arg(m.id()).arg(m.content()).arg(m.start()).arg(m.end());
        for (const Kerno& kerno : file.kernoModel()->snapshot())
            all << "count of %1: %2"_s.arg(kerno.id()).arg(file.kernoModel()->highlightsCount(kerno.id()));
        for (const Group& group : file.groupModel()->snapshot())
            all << "kernos in %1: %2"_s.arg(group.id()).arg(file.kernoGroupModel()->countOfGroup(group.id()));
        all.sort();
        return all;
    }
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

using Change = std::function<void(KRNFile& file, QRandomGenerator& random)>;

int anyId(QRandomGenerator& random) {
    return 1 + random.bounded(ids);
}

QString anyText(QRandomGenerator& random) {
    return "text \"%1\"\\"_s.arg(random.bounded(1000));
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

SourceMetadata anyLink(QRandomGenerator& random) {
    return SourceMetadata(anyId(random), anyId(random), anyId(random), anyId(random), "Ann"_s, {});
}

/// Everything that both clients hear of.
std::vector<Change> changes() {
    return {
        [](KRNFile& file, QRandomGenerator& random) {
            const int id = anyId(random);
            file.saveKerno(Kerno(id, id > 2 ? id / 2 : -1, QColor(Qt::red), anyText(random), {}, {}, "Ann"_s,
                                 id, random.bounded(100)));
        },
        [](KRNFile& file, QRandomGenerator& random) { file.deleteKerno(file.kerno(anyId(random))); },
        [](KRNFile& file, QRandomGenerator& random) { file.saveSource(anySource(random)); },
        [](KRNFile& file, QRandomGenerator& random) { file.deleteSource(anyId(random)); },
        [](KRNFile& file, QRandomGenerator& random) {
            file.batchOperationManager()->startSourcesBatch();
            for (const Source& source : several(anySource, random))
                file.saveSource(source);
            if (random.bounded(2))
                QCoreApplication::processEvents();
            file.batchOperationManager()->finishSourcesBatch();
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.saveQuestion(Question(anyId(random), anyText(random), anyId(random)), random.bounded(2));
        },
        [](KRNFile& file, QRandomGenerator& random) { file.deleteQuestion(anyId(random)); },
        [](KRNFile& file, QRandomGenerator& random) { file.saveAnswer(anyAnswer(random)); },
        [](KRNFile& file, QRandomGenerator& random) { file.deleteAnswer(anyId(random)); },
        [](KRNFile& file, QRandomGenerator& random) {
            file.saveMetadataKey(SourceMetadataKey(anyId(random), random.bounded(2), true, anyText(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.deleteMetadataKey(file.metadataKey(anyId(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.saveMetadataValue(SourceMetadataValue(anyId(random), anyId(random), anyText(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.deleteMetadataValue(file.metadataValueModel()->record(anyId(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) { file.saveMetadata(anyLink(random)); },
        [](KRNFile& file, QRandomGenerator& random) {
            file.deleteMetadata(file.metadataModel()->record(anyId(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.batchOperationManager()->startMetadataBatch();
            for (const SourceMetadata& link : several(anyLink, random))
                file.saveMetadata(link);
            if (random.bounded(2))
                QCoreApplication::processEvents();
            file.batchOperationManager()->finishMetadataBatch();
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.saveGroup(Group(anyId(random), anyText(random), true));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.deleteGroup(file.groupModel()->record(anyId(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.saveKernoGroup(KernoGroup(anyId(random), anyId(random), anyId(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.deleteKernoGroup(file.kernoGroupModel()->record(anyId(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.saveChatMessage(ChatMessage(anyId(random), anyText(random), "Ann"_s, {}));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.deleteChatMessage(file.chatModel()->record(anyId(random)));
        },
        [](KRNFile& file, QRandomGenerator& random) { file.saveHighlight(anyHighlight(random)); },
        [](KRNFile& file, QRandomGenerator& random) { file.deleteHighlight(anyHighlight(random)); },
        [](KRNFile& file, QRandomGenerator& random) {
            file.batchSaveHighlights(several(anyHighlight, random));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.batchDeleteHighlights(several(anyHighlight, random));
        },
        [](KRNFile& file, QRandomGenerator& random) {
            file.batchOperationManager()->startHighlightBatch(1, 1);
            file.batchSaveHighlights(several(anyHighlight, random));
            file.batchDeleteHighlights(several(anyHighlight, random));
            file.batchOperationManager()->finishHighlightBatch(1, 1);
        },
        [](KRNFile& file, QRandomGenerator& random) { file.saveMemo(anyMemo(random)); },
        [](KRNFile& file, QRandomGenerator& random) { file.deleteMemo(anyMemo(random)); },
        [](KRNFile& file, QRandomGenerator& random) { file.batchSaveMemos(several(anyMemo, random)); },
        [](KRNFile& file, QRandomGenerator& random) { file.batchDeleteMemos(several(anyMemo, random)); },
    };
}

}  // namespace

/// Two clients on one project of one service.
class tst_TwoClients : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {}

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

    void idsAreSharedOut() {
        const QString word = wire::word(wire::Record::Highlight);
        QList<int> taken;
        for (int round = 0; round < 3; ++round) {
            taken += m_ann->file.dataHelper()->nextIds(word, 50);
            taken << m_bea->file.dataHelper()->nextId(word, true);
            taken += m_bea->file.dataHelper()->nextIds(word, 50);
        }
        QCOMPARE(taken.size(), 303);
        QCOMPARE(QSet<int>(taken.begin(), taken.end()).size(), 303);
    }

    void bothEndWithWhatIsStored_data() {
        QTest::addColumn<uint>("seed");
        for (uint seed = 1; seed <= 3; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }

    void bothEndWithWhatIsStored() {
        QFETCH(uint, seed);
        QRandomGenerator random(seed);
        const std::vector<Change> all = changes();
        for (int step = 0; step < steps; ++step) {
            Client& client = random.bounded(2) ? *m_ann : *m_bea;
            all[static_cast<size_t>(random.bounded(static_cast<int>(all.size())))](client.file, random);
            if (random.bounded(4) == 0)
                QCoreApplication::processEvents();
        }
        // A reply tells that the changes before it are stored, and stands behind their notifications. Ann's
        // second one stands behind Bea's too.
        m_ann->file.kernoIds();
        m_bea->file.kernoIds();
        m_ann->file.kernoIds();

        Client fresh;
        QVERIFY(fresh.open(path(), false));
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
#include "tst_twoclients.moc"
