#include "ScriptedProject.h"
#include "tests_support/TestMain.h"
#include "undo/FileManipulationCommand.h"
#include "undo/KernoCommands.h"

#include <functional>

using Operation = std::function<void(UndoManager& undo)>;
Q_DECLARE_METATYPE(Operation)

namespace {

enum State { Reader, Closed, Lost };

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

Q_DECLARE_METATYPE(State)

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

    void whoMayNotChangeAnythingLeavesNoStep_data() {
        columns<State, Operation>({"state", "operation"});
        for (const auto& [state, name] :
             {std::pair{Reader, "a reader"}, {Closed, "closed"}, {Lost, "lost"}}) {
            const auto row = [state = state, name = name](const char* what, Operation operation) {
                QTest::addRow("%s, %s", name, what) << state << operation;
            };
            row("a kerno", [](UndoManager& undo) { undo.addKerno({{"title"_s, "x"_s}}); });
            row("a highlight", [](UndoManager& undo) { undo.addHighlight(highlight(0, 4)); });
            row("a macro", [](UndoManager& undo) { undo.addHighlightToNewKerno(highlight(0, 4), kerno(5)); });
            row("a tree", [](UndoManager& undo) { undo.addMetadataKeyAndValue("Age"_s, "30"_s); });
            row("a group", [](UndoManager& undo) { undo.addGroup(-1, "x"_s); });
            row("a step back", [](UndoManager& undo) { undo.undo(); });
            row("a step on", [](UndoManager& undo) { undo.redo(); });
        }
    }

    void whoMayNotChangeAnythingLeavesNoStep() {
        FETCH(State, state, Operation, operation);
        undo()->addKerno({{"title"_s, "x"_s}});
        undo()->addKerno({{"title"_s, "y"_s}});
        undo()->undo();
        switch (state) {
        case Reader:
            QVERIFY(m_project->setAccess("read"_s));
            break;
        case Closed:
            QVERIFY(file()->dataHelper()->closeProject());
            break;
        default:
            m_project->service.setRefusing(true);
            m_project->service.abortAll();
            QVERIFY(waitFor([&] { return !file()->dataHelper()->isConnected(); }));
        }
        mutations();
        QSignalSpy told(file(), &KRNFile::notifyUser);
        operation(m_project->undo);
        QCOMPARE(undo()->index(), 1);
        QCOMPARE(undo()->count(), 2);
        QCOMPARE(m_project->reservations(), 0);
        QCOMPARE(mutations(), QStringList());
        QCoreApplication::processEvents();
        QCOMPARE(told.count(), state == Reader ? 1 : 0);
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

private:
    UndoManager* undo() { return &m_project->undo; }
    KRNFile* file() { return &m_project->file; }
    QStringList mutations() { return m_project->mutations(); }

    std::unique_ptr<ScriptedProject> m_project;
};

KERNOVA_TEST_MAIN(tst_UndoManager)
#include "tst_undomanager.moc"
