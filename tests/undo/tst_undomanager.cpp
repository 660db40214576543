#include "ScriptedProject.h"
#include "tests_support/TestMain.h"
#include "undo/FileManipulationCommand.h"
#include "undo/HighlightCommands.h"
#include "undo/KernoCommands.h"

#include <functional>

using Operation = std::function<void(UndoManager& undo)>;
Q_DECLARE_METATYPE(Operation)

namespace {

Highlight highlight(int start, int end) {
    return Highlight(-1, 1, 1, 1, {}, start, end - start, end, {}, {}, 0, 0, 0, false);
}

Kerno kerno(int id) {
    return Kerno(id, -1, {}, "Trust"_s, {}, {}, {}, 3, 4);
}

/// Counts what is done to it.
class CountingCommand : public FileManipulationCommand {
public:
    explicit CountingCommand(QUndoCommand* parent = nullptr) : FileManipulationCommand(nullptr, parent) {
        ++alive;
    }
    ~CountingCommand() override { --alive; }
    void redo() override {
        ++done;
        redoChildren();
    }
    void undo() override {
        --done;
        undoChildren();
    }
    using FileManipulationCommand::invalidate;

    static int alive;
    static int done;
};
int CountingCommand::alive = 0;
int CountingCommand::done = 0;

}  // namespace

/// The stack of changes: what becomes a step, what a step is made of, and what is told of it.
class tst_UndoManager : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_project = std::make_unique<ScriptedProject>();
        QVERIFY(m_project->isOpen);
    }

    void cleanup() {
        m_project.reset();
        QCOMPARE(CountingCommand::alive, 0);
        CountingCommand::done = 0;
    }

    void anInvalidPartMakesTheWholeInvalid() {
        auto whole = std::make_unique<CountingCommand>();
        auto* part = new CountingCommand(whole.get());
        new CountingCommand(part);
        auto* deep = new CountingCommand(part);
        new CountingCommand(whole.get());
        QVERIFY(whole->isValid());
        deep->invalidate();
        QVERIFY(!whole->isValid());
        QVERIFY(!undo()->push(std::move(whole)));
        QCOMPARE(CountingCommand::alive, 0);
        QCOMPARE(CountingCommand::done, 0);
        QCOMPARE(undo()->count(), 0);
    }

    void aReaderLeavesNoStep_data() {
        QTest::addColumn<Operation>("operation");
        const auto row = [](const char* name, Operation operation) { QTest::newRow(name) << operation; };
        row("a kerno", [](UndoManager& undo) { undo.addKerno({{"title"_s, "x"_s}}); });
        row("a highlight", [](UndoManager& undo) { undo.addHighlight(highlight(0, 4)); });
        row("a macro", [](UndoManager& undo) { undo.addHighlightToNewKerno(highlight(0, 4), kerno(5)); });
        row("a tree", [](UndoManager& undo) { undo.addMetadataKeyAndValue("Age"_s, "30"_s); });
        row("a group", [](UndoManager& undo) { undo.addGroup(-1, "x"_s); });
        row("a pushed command", [](UndoManager& undo) { undo.push(std::make_unique<CountingCommand>()); });
    }

    void aReaderLeavesNoStep() {
        QFETCH(Operation, operation);
        QVERIFY(m_project->setAccess("read"_s));
        QSignalSpy told(file(), &KRNFile::notifyUser);
        mutations();
        operation(m_project->undo);
        QCOMPARE(undo()->count(), 0);
        QVERIFY(!undo()->canUndo());
        QCOMPARE(m_project->reservations(), 0);
        QCOMPARE(mutations(), QStringList());
        QCoreApplication::processEvents();
        QCOMPARE(told.count(), 1);
    }

    void aStepOfAFormerWriterStays() {
        undo()->addKerno({{"title"_s, "x"_s}});
        undo()->addKerno({{"title"_s, "y"_s}});
        undo()->undo();
        mutations();
        QVERIFY(m_project->setAccess("read"_s));
        undo()->undo();
        undo()->redo();
        QCOMPARE(undo()->index(), 1);
        QCOMPARE(undo()->count(), 2);
        QCOMPARE(mutations(), QStringList());
    }

    void aClosedProjectLeavesNoStep() {
        QVERIFY(file()->dataHelper()->closeProject());
        QSignalSpy told(file(), &KRNFile::notifyUser);
        undo()->addKerno({{"title"_s, "x"_s}});
        undo()->addHighlight(highlight(0, 4));
        QCOMPARE(undo()->count(), 0);
        QCOMPARE(told.count(), 0);
    }

    void aLostLinkLeavesNoStep() {
        undo()->addKerno({{"title"_s, "x"_s}});
        m_project->service.setRefusing(true);
        m_project->service.abortAll();
        QVERIFY(waitFor([&] { return !file()->dataHelper()->isConnected(); }));
        undo()->addKerno({{"title"_s, "y"_s}});
        undo()->undo();
        QCOMPARE(undo()->count(), 1);
        QCOMPARE(undo()->index(), 1);
    }

    // Five operations don't tell that they have ended. All here change nothing, so that the stack itself is
    // silent.
    void operationsEndAlike_data() {
        columns<Operation, int>({"operation", "told"});
        const auto row = [](const char* name, int told, Operation operation) {
            addRow(name, operation, told);
        };
        row("a highlight", 1, [](UndoManager& undo) { undo.addHighlight(Highlight()); });
        row("the order of questions", 1, [](UndoManager& undo) { undo.updateQuestionsOrder({1, 2}); });
        row("a kerno", 1, [](UndoManager& undo) { undo.deleteKerno(99); });
        row("a group that is deleted", 1, [](UndoManager& undo) { undo.deleteGroup(99); });
        row("a property", 1, [](UndoManager& undo) { undo.deleteMetadata(1, 2); });
        row("the stack's end", 1, [](UndoManager& undo) { undo.clearStack(); });
        row("a group", 0, [](UndoManager& undo) { undo.addGroup(-1, QString()); });
        row("a group's kerno", 0, [](UndoManager& undo) { undo.addKernoGroup(0, 0); });
        row("a group's kerno that is deleted", 0, [](UndoManager& undo) { undo.deleteKernoGroup(9, 9); });
        row("a duplicate", 0, [](UndoManager& undo) { undo.duplicateKerno(99); });
        row("a merge", 0, [](UndoManager& undo) { undo.mergeKernos(98, 99, "x"_s); });
    }

    void operationsEndAlike() {
        QFETCH(Operation, operation);
        QSignalSpy canUndo(undo(), &UndoManager::canUndoChanged);
        QSignalSpy canRedo(undo(), &UndoManager::canRedoChanged);
        operation(m_project->undo);
        QTEST(canUndo.count(), "told");
        QTEST(canRedo.count(), "told");
        QCOMPARE(undo()->count(), 0);
        QCOMPARE(m_project->reservations(), 0);
    }

    void codingIntoANewKernoIsOneStep() {
        undo()->addHighlightToNewKerno(highlight(0, 4), kerno(5));
        QCOMPARE(mutations(), (QStringList{"kernoCreateOrUpdate"_s, "highlightCreateOrUpdate"_s}));
        QCOMPARE(undo()->count(), 1);
        QCOMPARE(undo()->undoText(), "Code into new Kerno."_s);
        undo()->undo();
        QCOMPARE(mutations(), (QStringList{"highlightRemove"_s, "kernoRemove"_s}));
        QCOMPARE(undo()->redoText(), "Code into new Kerno."_s);

        undo()->addHighlightToNewKerno(Highlight(), kerno(6));
        QCOMPARE(mutations(), QStringList{"kernoCreateOrUpdate"_s});
        QCOMPARE(undo()->count(), 1);
    }

    void whatIsPushedInAMacroIsOneStep() {
        undo()->beginMacro("Import"_s);
        undo()->endMacro();
        QCOMPARE(undo()->count(), 0);

        undo()->beginMacro("Import"_s);
        QVERIFY(undo()->push(std::make_unique<CountingCommand>()));
        auto invalid = std::make_unique<CountingCommand>();
        invalid->invalidate();
        QVERIFY(!undo()->push(std::move(invalid)));
        QVERIFY(undo()->push(std::make_unique<CountingCommand>()));
        QVERIFY(!undo()->canUndo());
        undo()->endMacro();
        QCOMPARE(CountingCommand::done, 2);
        QCOMPARE(undo()->count(), 1);
        QCOMPARE(undo()->undoText(), "Import"_s);
        undo()->undo();
        QCOMPARE(CountingCommand::done, 0);
        QVERIFY(undo()->canRedo());
    }

    void aMacroEndsWithItsProject() {
        undo()->beginMacro("Import"_s);
        QVERIFY(undo()->push(std::make_unique<CountingCommand>()));
        undo()->clearStack();
        undo()->endMacro();
        QCOMPARE(undo()->count(), 0);
        QCOMPARE(CountingCommand::alive, 0);
    }

    void manyHighlightsAreOneMutation() {
        QList<Highlight> highlights;
        for (int i = 0; i < 100; ++i)
            highlights.append(highlight(i, i + 1));
        QVERIFY(undo()->push(std::make_unique<BatchCreateHighlightsCommand>(highlights, file())));
        QCOMPARE(highlights.first().id(), -1);
        QCOMPARE(mutations(), QStringList{"highlightBatchCreateOrUpdate"_s});
        undo()->undo();
        QCOMPARE(mutations(), QStringList{"highlightBatchRemove"_s});
        highlights.last().setLength(0);
        QVERIFY(!BatchCreateHighlightsCommand(highlights, file()).isValid());
        QVERIFY(!BatchDeleteHighlightsCommand(highlights, file()).isValid());
    }

private:
    UndoManager* undo() { return &m_project->undo; }
    KRNFile* file() { return &m_project->file; }
    QStringList mutations() { return m_project->mutations(); }

    std::unique_ptr<ScriptedProject> m_project;
};

KERNOVA_TEST_MAIN(tst_UndoManager)
#include "tst_undomanager.moc"
