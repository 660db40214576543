#include "ProjectSupport.h"
#include "tests_support/TestMain.h"

#include <functional>

namespace {

const QString stamp = "2024-01-02T03:04:05Z"_s;

QJsonObject kernoJson(int id, const QString& title) {
    return {{"id", id}, {"parentKernoId", -1}, {"title", title}};
}

QJsonObject highlightJson() {
    return {{"id", 4},    {"kernoId", 1}, {"sourceId", 2},   {"questionId", 3},   {"color", "#ff0000"},
            {"start", 0}, {"length", 5},  {"author", "Ann"}, {"timestamp", stamp}};
}

QJsonObject memoJson() {
    return {{"id", 4},    {"sourceId", 2}, {"questionId", 3}, {"content", "m"},
            {"start", 0}, {"length", 5},   {"author", "Ann"}, {"timestamp", stamp}};
}

using Start = std::function<void(BatchOperationManager&)>;

}  // namespace
Q_DECLARE_METATYPE(Start)

/// What the slots make of the service's notifications, without a service.
class TestNotifications : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<KRNFile> m_file;

    BatchOperationManager* batches() const { return m_file->batchOperationManager(); }

private slots:
    void init() {
        m_file = std::make_unique<KRNFile>(LinkTimings(), ProjectTimings{1, 1});
        m_file->initModels();
        IdManager::instance()->init(false, nullptr);
    }

    void cleanup() { m_file.reset(); }

    void othersKernosAreNoNewOnes() {
        SignalLog log;
        log.listen(m_file.get(), &KRNFile::newKernoAdded, "new");
        log.listen(m_file.get(), &KRNFile::kernoUpdated, "updated");
        log.listen(m_file.get(), &KRNFile::kernoDeleted, "deleted");
        m_file->onKernoSaved(kernoJson(5, "a"));
        QCOMPARE(log.names, QStringList{"updated"});
        m_file->onKernoSaved(kernoJson(5, "b"));
        QCOMPARE(m_file->kerno(5).title(), "b"_s);
        m_file->onKernoDeleted(kernoJson(6, "b"));
        m_file->onKernoDeleted(kernoJson(5, "b"));
        m_file->onKernoDeleted(kernoJson(5, "b"));
        QCOMPARE(log.names, QStringList({"updated", "updated", "deleted"}));
    }

    void passagesAreAnnouncedUnlessABatchRuns_data() {
        columns<Start, bool>({"start", "announced"});
        addRow("idle", Start([](BatchOperationManager&) {}), true);
        addRow("kernos", Start([](BatchOperationManager& b) { b.startKernoBatch(); }), false);
        addRow("here", Start([](BatchOperationManager& b) { b.startHighlightBatch(2, 3); }), false);
        addRow("elsewhere", Start([](BatchOperationManager& b) { b.startHighlightBatch(2, 4); }), true);
        addRow("edit", Start([](BatchOperationManager& b) { b.startAnswerEdit(2, 3); }), false);
        addRow("metadata", Start([](BatchOperationManager& b) { b.startMetadataBatch(); }), true);
    }

    void passagesAreAnnouncedUnlessABatchRuns() {
        FETCH(Start, start, bool, announced);
        SignalLog log;
        log.listen(m_file.get(), &KRNFile::highlightSaved, "highlight saved");
        log.listen(m_file.get(), &KRNFile::highlightDeleted, "highlight deleted");
        log.listen(m_file.get(), &KRNFile::memoSaved, "memo saved");
        log.listen(m_file.get(), &KRNFile::memoDeleted, "memo deleted");
        start(*batches());
        m_file->onHighlightSaved(highlightJson());
        m_file->onHighlightDeleted(highlightJson());
        m_file->onMemoSaved(memoJson());
        m_file->onMemoDeleted(memoJson());
        const QStringList all{"highlight saved", "highlight deleted", "memo saved", "memo deleted"};
        QCOMPARE(log.names, announced ? all : QStringList(all.first()));
    }

    void groupsShowTheirKernos() {
        for (int id = 1; id <= 3; ++id)
            m_file->onKernoSaved(kernoJson(id, "t"));
        const auto join = [this](int id, int group, int kerno) {
            m_file->onKernoGroupSaved({{"id", id}, {"groupId", group}, {"kernoId", kerno}});
        };
        join(1, 1, 1);
        join(2, 1, 2);
        for (int id = 1; id <= 2; ++id)
            m_file->onGroupSaved({{"id", id}, {"description", "g"}});
        QSignalSpy told(m_file->groupModel(), &QAbstractItemModel::dataChanged);
        join(3, 1, 3);
        QCOMPARE(told.count(), 1);
        join(3, 2, 2);  // both the new group and the former one are told
        QCOMPARE(told.count(), 3);
        QCOMPARE(m_file->getAssociatedGroups(2), QVariantList({1, 2}));
        const auto visible = [this] {
            return QList<bool>{m_file->kerno(1).visible(), m_file->kerno(2).visible(),
                               m_file->kerno(3).visible()};
        };
        m_file->applyGroupFilter(true);
        QCOMPARE(visible(), QList<bool>({false, false, false}));
        m_file->setGroupVisible(1, true);
        QCOMPARE(visible(), QList<bool>({true, true, false}));
        m_file->setGroupVisible(2, true);
        m_file->setGroupVisible(1, false);
        QCOMPARE(visible(), QList<bool>({false, true, false}));
        m_file->onKernoSaved(kernoJson(1, "renamed"));
        QCOMPARE(visible(), QList<bool>({false, true, false}));
        m_file->setGroupVisible(2, false);
        QCOMPARE(visible(), QList<bool>({false, false, false}));
        m_file->applyGroupFilter(false);
        QCOMPARE(visible(), QList<bool>({true, true, true}));
    }
};

KERNOVA_TEST_MAIN(TestNotifications)
#include "tst_notifications.moc"
