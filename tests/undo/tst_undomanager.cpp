#include "ScriptedProject.h"
#include "models/KernoModel.h"
#include "models/SourceModel.h"
#include "tests_support/TestMain.h"
#include "undo/FileManipulationCommand.h"
#include "undo/HighlightCommands.h"
#include "undo/KernoCommands.h"

#include <QSignalSpy>
#include <functional>

using Operation = std::function<void(UndoManager& undo)>;
Q_DECLARE_METATYPE(Operation)

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

Highlight highlight(int start, int end) {
    return Highlight(-1, 1, 1, 1, {}, start, end - start, end, {}, {}, 0, 0, 0, false);
}

Kerno kerno(int id) {
    return Kerno(id, -1, {}, text("Trust"), {}, {}, {}, 3, 4);
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
    void init();
    void cleanup();
    void anInvalidPartMakesTheWholeInvalid();
    void aReaderLeavesNoStep_data();
    void aReaderLeavesNoStep();
    void aStepOfAFormerWriterStays();
    void aClosedProjectLeavesNoStep();
    void aLostLinkLeavesNoStep();
    void anEmptyStackIsSilent();
    void operationsEndAlike_data();
    void operationsEndAlike();
    void codingIntoANewKernoIsOneStep();
    void codingIntoANewKernoThatIsRefused();
    void whatIsPushedInAMacroIsOneStep();
    void aMacroEndsWithItsProject();
    void newKernosGoRoundThePalette();
    void aParentBelowOneIsNone();
    void manyHighlightsAreOneMutation();

private:
    UndoManager* undo() { return &m_project->undo; }
    KRNFile* file() { return &m_project->file; }
    QStringList mutations() { return m_project->mutations(); }

    std::unique_ptr<ScriptedProject> m_project;
};

void tst_UndoManager::init() {
    m_project = std::make_unique<ScriptedProject>();
    QVERIFY(m_project->isOpen);
}

void tst_UndoManager::cleanup() {
    m_project.reset();
    QCOMPARE(CountingCommand::alive, 0);
    CountingCommand::done = 0;
}

void tst_UndoManager::anInvalidPartMakesTheWholeInvalid() {
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

void tst_UndoManager::aReaderLeavesNoStep_data() {
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char* name, Operation operation) { QTest::newRow(name) << operation; };
    row("a kerno", [](UndoManager& undo) { undo.addKerno({{text("title"), text("x")}}); });
    row("a highlight", [](UndoManager& undo) { undo.addHighlight(highlight(0, 4)); });
    row("a macro", [](UndoManager& undo) { undo.addHighlightToNewKerno(highlight(0, 4), kerno(5)); });
    row("a tree", [](UndoManager& undo) { undo.addMetadataKeyAndValue(text("Age"), text("30")); });
    row("a group", [](UndoManager& undo) { undo.addGroup(-1, text("x")); });
    row("a pushed command", [](UndoManager& undo) { undo.push(std::make_unique<CountingCommand>()); });
}

void tst_UndoManager::aReaderLeavesNoStep() {
    QFETCH(Operation, operation);
    QVERIFY(m_project->setAccess(text("read")));
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

void tst_UndoManager::aStepOfAFormerWriterStays() {
    undo()->addKerno({{text("title"), text("x")}});
    undo()->addKerno({{text("title"), text("y")}});
    undo()->undo();
    mutations();
    QVERIFY(m_project->setAccess(text("read")));
    undo()->undo();
    undo()->redo();
    QCOMPARE(undo()->index(), 1);
    QCOMPARE(undo()->count(), 2);
    QCOMPARE(mutations(), QStringList());
}

void tst_UndoManager::aClosedProjectLeavesNoStep() {
    QVERIFY(file()->dataHelper()->closeProject());
    QSignalSpy told(file(), &KRNFile::notifyUser);
    undo()->addKerno({{text("title"), text("x")}});
    undo()->addHighlight(highlight(0, 4));
    QCOMPARE(undo()->count(), 0);
    QCOMPARE(told.count(), 0);
}

void tst_UndoManager::aLostLinkLeavesNoStep() {
    undo()->addKerno({{text("title"), text("x")}});
    m_project->service.setRefusing(true);
    m_project->service.abortAll();
    QVERIFY(waitFor([&] { return !file()->dataHelper()->isConnected(); }));
    undo()->addKerno({{text("title"), text("y")}});
    undo()->undo();
    QCOMPARE(undo()->count(), 1);
    QCOMPARE(undo()->index(), 1);
}

void tst_UndoManager::anEmptyStackIsSilent() {
    QSignalSpy canUndo(undo(), &UndoManager::canUndoChanged);
    QSignalSpy canRedo(undo(), &UndoManager::canRedoChanged);
    QSignalSpy index(undo(), &UndoManager::indexChanged);
    undo()->undo();
    undo()->redo();
    QCOMPARE(canUndo.count() + canRedo.count() + index.count(), 0);
}

// Five operations don't tell that they have ended. All here change nothing, so that the stack itself is
// silent.
void tst_UndoManager::operationsEndAlike_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<int>("told");
    const auto row = [](const char* name, int told, Operation operation) {
        QTest::newRow(name) << operation << told;
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
    row("a merge", 0, [](UndoManager& undo) { undo.mergeKernos(98, 99, text("x")); });
}

void tst_UndoManager::operationsEndAlike() {
    QFETCH(Operation, operation);
    QSignalSpy canUndo(undo(), &UndoManager::canUndoChanged);
    QSignalSpy canRedo(undo(), &UndoManager::canRedoChanged);
    operation(m_project->undo);
    QTEST(canUndo.count(), "told");
    QTEST(canRedo.count(), "told");
    QCOMPARE(undo()->count(), 0);
    QCOMPARE(m_project->reservations(), 0);
}

void tst_UndoManager::codingIntoANewKernoIsOneStep() {
    undo()->addHighlightToNewKerno(highlight(0, 4), kerno(5));
    QCOMPARE(mutations(), (QStringList{text("kernoCreateOrUpdate"), text("highlightCreateOrUpdate")}));
    QCOMPARE(undo()->count(), 1);
    QCOMPARE(undo()->undoText(), text("Code into new Kerno."));
    undo()->undo();
    QCOMPARE(mutations(), (QStringList{text("highlightRemove"), text("kernoRemove")}));
    QCOMPARE(undo()->redoText(), text("Code into new Kerno."));

    undo()->addHighlightToNewKerno(Highlight(), kerno(6));
    QCOMPARE(mutations(), QStringList{text("kernoCreateOrUpdate")});
    QCOMPARE(undo()->count(), 1);
}

void tst_UndoManager::codingIntoANewKernoThatIsRefused() {
    QVERIFY(m_project->setAccess(text("read")));
    QTest::ignoreMessage(QtDebugMsg, "No pending commands. Ignoring macro: \"Code into new Kerno.\"");
    undo()->addHighlightToNewKerno(highlight(0, 4), kerno(5));
    QCOMPARE(undo()->count(), 0);
    QVERIFY(m_project->setAccess(text("write")));
    undo()->addKerno({{text("title"), text("x")}});
    QCOMPARE(undo()->count(), 1);
}

void tst_UndoManager::whatIsPushedInAMacroIsOneStep() {
    undo()->beginMacro(text("Import"));
    undo()->endMacro();
    QCOMPARE(undo()->count(), 0);

    undo()->beginMacro(text("Import"));
    QVERIFY(undo()->push(std::make_unique<CountingCommand>()));
    auto invalid = std::make_unique<CountingCommand>();
    invalid->invalidate();
    QVERIFY(!undo()->push(std::move(invalid)));
    QVERIFY(undo()->push(std::make_unique<CountingCommand>()));
    QVERIFY(!undo()->canUndo());
    undo()->endMacro();
    QCOMPARE(CountingCommand::done, 2);
    QCOMPARE(undo()->count(), 1);
    QCOMPARE(undo()->undoText(), text("Import"));
    undo()->undo();
    QCOMPARE(CountingCommand::done, 0);
    QVERIFY(undo()->canRedo());
}

void tst_UndoManager::aMacroEndsWithItsProject() {
    undo()->beginMacro(text("Import"));
    QVERIFY(undo()->push(std::make_unique<CountingCommand>()));
    undo()->clearStack();
    undo()->endMacro();
    QCOMPARE(undo()->count(), 0);
    QCOMPARE(CountingCommand::alive, 0);
}

void tst_UndoManager::newKernosGoRoundThePalette() {
    const QStringList palette{text("#e1e120"), text("#81e120"), text("#2081e1"),
                              text("#8120e1"), text("#e120e1"), text("#e12081"),
                              text("#e12020"), text("#e18120"), text("#e1e120")};
    QStringList colors;
    QList<Kerno> kernos;
    for (int count = 0; count < palette.size(); ++count) {
        file()->kernoModel()->setData(kernos);
        colors << AddKernoCommand(kerno(-1), file()).record().color().name();
        kernos.append(kerno(count + 1));
    }
    QCOMPARE(colors, palette);
    Kerno coloured = kerno(7);
    coloured.setColor(Qt::blue);
    QCOMPARE(AddKernoCommand(coloured, file()).record().color(), QColor(Qt::blue));
}

void tst_UndoManager::aParentBelowOneIsNone() {
    QCOMPARE(AddKernoCommand(text("x"), 0, 1, 2, file()).record().parentKernoId(), -1);
    QCOMPARE(AddKernoCommand(text("x"), 3, 1, 2, file()).record().parentKernoId(), 3);
}

void tst_UndoManager::manyHighlightsAreOneMutation() {
    QList<Highlight> highlights;
    for (int i = 0; i < 100; ++i)
        highlights.append(highlight(i, i + 1));
    QVERIFY(undo()->push(std::make_unique<BatchCreateHighlightsCommand>(highlights, file())));
    QCOMPARE(highlights.first().id(), -1);
    QCOMPARE(mutations(), QStringList{text("highlightBatchCreateOrUpdate")});
    undo()->undo();
    QCOMPARE(mutations(), QStringList{text("highlightBatchRemove")});
    highlights.last().setLength(0);
    QVERIFY(!BatchCreateHighlightsCommand(highlights, file()).isValid());
    QVERIFY(!BatchDeleteHighlightsCommand(highlights, file()).isValid());
}

KERNOVA_TEST_MAIN(tst_UndoManager)
#include "tst_undomanager.moc"
