#include "ScriptedProject.h"
#include "tests_support/TestMain.h"

#include <functional>
#include <utility>

using Operation = std::function<void(UndoManager& undo)>;
Q_DECLARE_METATYPE(Operation)

namespace {

const QString saves = "CreateOrUpdate"_s;
const QString removes = "Remove"_s;

/// The operations as they are sent: a record that is replaced is marked by a "=".
QStringList sent(QStringList mutations) {
    return mutations.replaceInStrings("="_s, QString());
}

/// What takes the mutations back: the opposite of each, from the last to the first.
QStringList opposite(const QStringList& mutations) {
    QStringList back;
    for (QString mutation : mutations) {
        if (mutation.endsWith(saves))
            mutation.replace(saves, removes);
        else if (mutation.endsWith(removes))
            mutation.replace(removes, saves);
        back.prepend(mutation);
    }
    return sent(back);
}

/// The signals of bulk changes, in their order.
class BulkLog : public QObject {
public:
    explicit BulkLog(const BatchOperationManager* batches) {
        const auto add = [this](const char* what) {
            return [this, what] { m_entries << QString::fromLatin1(what); };
        };
        connect(batches, &BatchOperationManager::aboutToBatchUpdateKernos, this, add("kernos"));
        connect(batches, &BatchOperationManager::batchUpdateKernosFinished, this, add("/kernos"));
        connect(batches, &BatchOperationManager::metadataBatchUpdateFinished, this, add("/metadata"));
        connect(batches, &BatchOperationManager::sourcesBatchUpdateFinished, this, add("/sources"));
        connect(batches, &BatchOperationManager::editAnswerFinished, this, add("/answer"));
        connect(batches, &BatchOperationManager::highlightsBatchUpdateFinished, this,
                [this](int source, int question) {
                    m_entries << "/highlights %1.%2"_s.arg(source).arg(question);
                });
    }

    /// All since the last call, with commas.
    QString take() { return std::exchange(m_entries, {}).join(", "_s); }

private:
    QStringList m_entries;
};

/// A highlight and a memo in one: each reads its own fields.
QJsonObject stored(int id) {
    return {{"id"_s, id},
            {"kernoId"_s, 1},
            {"sourceId"_s, 1},
            {"questionId"_s, 1},
            {"color"_s, "#ff0000"_s},
            {"content"_s, "note"_s},
            {"start"_s, 0},
            {"length"_s, 5},
            {"author"_s, QString()},
            {"timestamp"_s, "2024-05-01T10:00:00Z"_s}};
}

}  // namespace

/// What a change sends and announces: the parts of it in their order, since what depends on a record goes
/// away before it and comes back after it; and nothing at all when it can't be prepared whole.
class tst_CommandOrder : public QObject {
    Q_OBJECT

private slots:
    void dependantsGoFirstAndComeLast_data() {
        // what is announced around them
        columns<Operation, QString, QString>({"operation", "mutations", "bulk"});
        const auto row = [](const char* name, const char* mutations, Operation operation,
                            const char* bulk = "") {
            addRow(name, operation, QString::fromLatin1(mutations), QString::fromLatin1(bulk));
        };
        const char* const all = "kernoRemove kernoRemove highlightBatchRemove groupKernoRemove "
                                "kernoShortcutKeyRemove kernoRemove";
        row(
            "a kerno goes", all, [](UndoManager& undo) { undo.deleteKerno(1); }, "kernos, /kernos");
        row(
            "kernos in a circle go", all,
            [](UndoManager& undo) {
                Kerno top = undo.file()->kerno(1);
                top.setParentKernoId(3);
                undo.file()->kernoModel()->addOrUpdate(top);
                undo.deleteKerno(1);
            },
            "kernos, /kernos");
        row(
            "two kernos become one",
            "highlightBatchRemove groupKernoRemove kernoShortcutKeyRemove kernoRemove kernoRemove "
            "kernoCreateOrUpdate highlightBatchCreateOrUpdate kernoCreateOrUpdate=",
            [](UndoManager& undo) { undo.mergeKernos(1, 2, "x"_s); }, "kernos, /kernos, /highlights 1.1");
        row("a group goes", "groupKernoRemove groupRemove", [](UndoManager& undo) { undo.deleteGroup(1); });
        row("a source goes",
            "highlightBatchRemove memoBatchRemove questionAnswerRemove sourceMetadataRemove sourceRemove",
            [](UndoManager& undo) { undo.deleteSource(1); });
        row("a question goes", "highlightBatchRemove memoBatchRemove questionAnswerRemove questionRemove",
            [](UndoManager& undo) { undo.deleteQuestion(1); });
        row("a property goes", "sourceMetadataRemove sourceMetadataValueRemove sourceMetadataKeyRemove",
            [](UndoManager& undo) { undo.deleteMetadataKey(1); });
        row("a value goes", "sourceMetadataRemove sourceMetadataValueRemove",
            [](UndoManager& undo) { undo.deleteMetadataValue(1); });
        row("a source comes", "sourceCreateOrUpdate questionAnswerCreateOrUpdate",
            [](UndoManager& undo) { undo.addSource(Source(-1, "t"_s, {}, {}, {})); });
        row("a question comes", "questionCreateOrUpdate questionAnswerCreateOrUpdate",
            [](UndoManager& undo) { undo.addQuestion(Question(-1, "r"_s, 2)); });
        row(
            "a property comes with a value",
            "sourceMetadataKeyCreateOrUpdate sourceMetadataValueCreateOrUpdate sourceMetadataCreateOrUpdate",
            [](UndoManager& undo) { undo.addMetadataKeyAndValue("l"_s, "w"_s, 1); }, "/metadata");
        row("a passage comes over another", "highlightRemove highlightCreateOrUpdate", [](UndoManager& undo) {
            undo.addHighlight(Highlight(-1, 1, 1, 1, {}, 3, 6, 9, {}, {}, 0, 0, 0, false));
        });
        row(
            "a kerno comes once more", "kernoCreateOrUpdate highlightBatchCreateOrUpdate",
            [](UndoManager& undo) { undo.duplicateKerno(1); }, "kernos, /kernos, /highlights 1.1");
    }

    void dependantsGoFirstAndComeLast() {
        FETCH(Operation, operation, QString, mutations, QString, bulk);
        const QStringList expected = mutations.split(QLatin1Char(' '));
        ScriptedProject project;
        QVERIFY(project.isOpen);
        fill(project);
        BulkLog log(project.file.batchOperationManager());
        operation(project.undo);
        QCOMPARE(project.mutations(), sent(expected));
        QCOMPARE(log.take(), bulk);
        project.undo.undo();
        QCOMPARE(project.mutations(), opposite(expected));
        QCOMPARE(log.take(), bulk);
        project.undo.redo();
        QCOMPARE(project.mutations(), sent(expected));
        QCOMPARE(log.take(), bulk);
    }

    void whatCantBePreparedWholeIsRefused_data() { dependantsGoFirstAndComeLast_data(); }

    // Without an id the parts would name different records; without the codings these would be left behind.
    void whatCantBePreparedWholeIsRefused() {
        FETCH(Operation, operation, QString, mutations);
        ScriptedProject project;
        QVERIFY(project.isOpen);
        fill(project);
        QSignalSpy refused(&project.undo, &UndoManager::changeRefused);
        const bool reads = mutations.contains("highlight"_s);
        const bool reserves = mutations.contains(QRegularExpression("CreateOrUpdate( |$)"_s));
        if (reads) {
            project.service.answer("highlightQueryList"_s, QJsonValue());
            operation(project.undo);
            QCOMPARE(project.mutations(), QStringList());
            fill(project);
        }
        if (reserves) {
            for (const QString& word : project.words())
                project.service.answer(word + "MaxId"_s, 0);
            operation(project.undo);
            QCOMPARE(project.mutations(), QStringList());
        }
        QCOMPARE(project.undo.count(), 0);
        // The user is told, once for each.
        QCOMPARE(refused.count(), static_cast<int>(reads) + static_cast<int>(reserves));
        project.undo.deleteKerno(99);
        QCOMPARE(refused.count(), static_cast<int>(reads) + static_cast<int>(reserves));
    }

    void kernosMergedInACircleStandOnTop() {
        ScriptedProject project;
        QVERIFY(project.isOpen);
        const KernoModel* const kernos = project.file.kernoModel();
        project.file.kernoModel()->setData(
            {Kerno(1, 2, Qt::red, "a"_s, {}, {}, {}, 0, 0), Kerno(2, 1, Qt::red, "b"_s, {}, {}, {}, 0, 0)});
        project.undo.mergeKernos(1, 2, "x"_s);
        QCOMPARE(kernos->snapshot().last().title(), "x"_s);
        QCOMPARE(kernos->snapshot().last().parentKernoId(), -1);
    }

private:
    /// One record of each kind, all of which hang together; kerno 2 lies below kerno 1, and 3 below 2.
    static void fill(ScriptedProject& project) {
        const KRNFile& file = project.file;
        file.kernoModel()->setData({Kerno(1, -1, Qt::red, "a"_s, {}, {}, {}, 0, 0),
                                    Kerno(2, 1, Qt::red, "b"_s, {}, {}, {}, 0, 0),
                                    Kerno(3, 2, Qt::red, "c"_s, {}, {}, {}, 0, 0)});
        file.groupModel()->setData({Group(1, "g"_s, true)});
        file.kernoGroupModel()->setData({KernoGroup(1, 1, 1)});
        file.shortcutKeyModel()->setData({KernoShortcutKey("A"_s, 1, {})});
        file.sourceModel()->setData({Source(1, "s"_s, {}, {}, {})});
        file.questionListModel()->setData({Question(1, "q"_s, 1)});
        file.answerModel()->setData({QuestionAnswer(1, 1, 1, {}, "An answer"_s, {})});
        file.metadataKeyModel()->setData({SourceMetadataKey(1, false, false, "k"_s)});
        file.metadataValueModel()->setData({SourceMetadataValue(1, 1, "v"_s)});
        file.metadataModel()->setData({SourceMetadata(1, 1, 1, 1, {}, {})});
        project.service.on("highlightQueryList"_s,
                           [](ScriptedClient& client, const ScriptedRequest& request) {
                               const bool isBelow = request.argument("kernoId"_s).toInt() > 1;
                               const QJsonArray highlights = isBelow ? QJsonArray() : QJsonArray({stored(1)});
                               client.reply(request, {{"highlightQueryList"_s, highlights}});
                           });
        project.service.answer("memoQueryList"_s, QJsonArray({stored(1)}));
    }
};

KERNOVA_TEST_MAIN(tst_CommandOrder)
#include "tst_commandorder.moc"
