#include "models/GroupModel.h"
#include "models/KernoModel.h"
#include "project/KRNFile.h"
#include "service/DataHelper.h"
#include "service/IdManager.h"
#include "service/LinkTimings.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"
#include "undo/FileManipulationCommand.h"
#include "undo/HighlightCommands.h"
#include "undo/KernoCommands.h"
#include "undo/UndoManager.h"

#include <QRegularExpression>
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
    QStringList mutations();
    void setAccess(const char* level);

    std::unique_ptr<ScriptedService> m_service;
    std::unique_ptr<KRNFile> m_file;
    std::unique_ptr<UndoManager> m_undo;
};

void tst_UndoManager::init() {
    m_service = std::make_unique<ScriptedService>();
    for (const char* word :
         {"kerno", "highlight", "memo", "group", "sourceMetadataKey", "sourceMetadataValue"}) {
        const QString operation = text(word) + text("MaxId");
        m_service->on(operation,
                      [operation, last = 0](ScriptedClient& client, const ScriptedRequest& request) mutable {
                          client.reply(request, {{operation, ++last}});
                      });
    }
    LinkTimings timings;
    timings.reconnect = 50;
    m_file = std::make_unique<KRNFile>(timings, ProjectTimings{0, 0});
    m_file->initModels();
    m_undo = std::make_unique<UndoManager>(m_file.get());
    QVERIFY(m_file->dataHelper()->openProject({{text("name"), text("/data/a.krn")}}));
    IdManager::instance()->init(false, m_file->dataHelper());
    m_service->forgetRequests();
}

void tst_UndoManager::cleanup() {
    IdManager::instance()->init(false, nullptr);
    m_undo.reset();
    m_file.reset();
    m_service.reset();
    QCOMPARE(CountingCommand::alive, 0);
    CountingCommand::done = 0;
}

/// The operations of all mutations since the start or the last call, in order.
QStringList tst_UndoManager::mutations() {
    m_file->highlightIds();
    static const QRegularExpression mutation(text("^mutation\\{(\\w+)"));
    QStringList operations;
    for (const QString& request : m_service->requestTexts()) {
        const QRegularExpressionMatch match = mutation.match(request);
        if (match.hasMatch())
            operations << match.captured(1);
    }
    m_service->forgetRequests();
    return operations;
}

void tst_UndoManager::setAccess(const char* level) {
    m_service->push({{text("access_privilege"), text(level)}});
    QVERIFY(waitFor([&] { return m_file->dataHelper()->access() == text(level); }));
}

void tst_UndoManager::anInvalidPartMakesTheWholeInvalid() {
    auto* whole = new CountingCommand;
    auto* part = new CountingCommand(whole);
    new CountingCommand(part);
    auto* deep = new CountingCommand(part);
    new CountingCommand(whole);
    QVERIFY(whole->isValid());
    deep->invalidate();
    QVERIFY(!whole->isValid());
    QVERIFY(!m_undo->push(whole));
    QCOMPARE(CountingCommand::alive, 0);
    QCOMPARE(CountingCommand::done, 0);
    QCOMPARE(m_undo->count(), 0);
}

void tst_UndoManager::aReaderLeavesNoStep_data() {
    QTest::addColumn<Operation>("operation");
    const auto row = [](const char* name, Operation operation) { QTest::newRow(name) << operation; };
    row("a kerno", [](UndoManager& undo) { undo.addKerno({{text("title"), text("x")}}); });
    row("a highlight", [](UndoManager& undo) { undo.addHighlight(highlight(0, 4)); });
    row("a macro", [](UndoManager& undo) { undo.addHighlightToNewKerno(highlight(0, 4), kerno(5)); });
    row("a tree", [](UndoManager& undo) { undo.addMetadataKeyAndValue(text("Age"), text("30")); });
    row("a group", [](UndoManager& undo) { undo.addGroup(-1, text("x")); });
    row("a pushed command", [](UndoManager& undo) { undo.push(new CountingCommand); });
}

void tst_UndoManager::aReaderLeavesNoStep() {
    QFETCH(Operation, operation);
    setAccess("read");
    QSignalSpy told(m_file.get(), &KRNFile::notifyUser);
    mutations();
    operation(*m_undo);
    QCOMPARE(m_undo->count(), 0);
    QVERIFY(!m_undo->canUndo());
    QCOMPARE(mutations(), QStringList());
    QCoreApplication::processEvents();
    QCOMPARE(told.count(), 1);
}

void tst_UndoManager::aStepOfAFormerWriterStays() {
    m_undo->addKerno({{text("title"), text("x")}});
    m_undo->addKerno({{text("title"), text("y")}});
    m_undo->undo();
    mutations();
    setAccess("read");
    m_undo->undo();
    m_undo->redo();
    QCOMPARE(m_undo->index(), 1);
    QCOMPARE(m_undo->count(), 2);
    QCOMPARE(mutations(), QStringList());
}

void tst_UndoManager::aClosedProjectLeavesNoStep() {
    QVERIFY(m_file->dataHelper()->closeProject());
    QSignalSpy told(m_file.get(), &KRNFile::notifyUser);
    m_undo->addKerno({{text("title"), text("x")}});
    m_undo->addHighlight(highlight(0, 4));
    QCOMPARE(m_undo->count(), 0);
    QCOMPARE(told.count(), 0);
}

void tst_UndoManager::aLostLinkLeavesNoStep() {
    m_undo->addKerno({{text("title"), text("x")}});
    m_service->setRefusing(true);
    m_service->abortAll();
    QVERIFY(waitFor([&] { return !m_file->dataHelper()->isConnected(); }));
    m_undo->addKerno({{text("title"), text("y")}});
    m_undo->undo();
    QCOMPARE(m_undo->count(), 1);
    QCOMPARE(m_undo->index(), 1);
}

void tst_UndoManager::anEmptyStackIsSilent() {
    QSignalSpy canUndo(m_undo.get(), &UndoManager::canUndoChanged);
    QSignalSpy canRedo(m_undo.get(), &UndoManager::canRedoChanged);
    QSignalSpy index(m_undo.get(), &UndoManager::indexChanged);
    m_undo->undo();
    m_undo->redo();
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
    QSignalSpy canUndo(m_undo.get(), &UndoManager::canUndoChanged);
    QSignalSpy canRedo(m_undo.get(), &UndoManager::canRedoChanged);
    operation(*m_undo);
    QTEST(canUndo.count(), "told");
    QTEST(canRedo.count(), "told");
    QCOMPARE(m_undo->count(), 0);
}

void tst_UndoManager::codingIntoANewKernoIsOneStep() {
    m_undo->addHighlightToNewKerno(highlight(0, 4), kerno(5));
    QCOMPARE(mutations(), (QStringList{text("kernoCreateOrUpdate"), text("highlightCreateOrUpdate")}));
    QCOMPARE(m_undo->count(), 1);
    QCOMPARE(m_undo->undoText(), text("Code into new Kerno."));
    m_undo->undo();
    QCOMPARE(mutations(), (QStringList{text("highlightRemove"), text("kernoRemove")}));
    QCOMPARE(m_undo->redoText(), text("Code into new Kerno."));

    m_undo->addHighlightToNewKerno(Highlight(), kerno(6));
    QCOMPARE(mutations(), QStringList{text("kernoCreateOrUpdate")});
    QCOMPARE(m_undo->count(), 1);
}

void tst_UndoManager::codingIntoANewKernoThatIsRefused() {
    setAccess("read");
    QTest::ignoreMessage(QtDebugMsg, "No pending commands. Ignoring macro: \"Code into new Kerno.\"");
    m_undo->addHighlightToNewKerno(highlight(0, 4), kerno(5));
    QCOMPARE(m_undo->count(), 0);
    setAccess("write");
    m_undo->addKerno({{text("title"), text("x")}});
    QCOMPARE(m_undo->count(), 1);
}

void tst_UndoManager::whatIsPushedInAMacroIsOneStep() {
    m_undo->beginMacro(text("Import"));
    m_undo->endMacro();
    QCOMPARE(m_undo->count(), 0);

    m_undo->beginMacro(text("Import"));
    QVERIFY(m_undo->push(new CountingCommand));
    auto* invalid = new CountingCommand;
    invalid->invalidate();
    QVERIFY(!m_undo->push(invalid));
    QVERIFY(m_undo->push(new CountingCommand));
    QVERIFY(!m_undo->canUndo());
    m_undo->endMacro();
    QCOMPARE(CountingCommand::done, 2);
    QCOMPARE(m_undo->count(), 1);
    QCOMPARE(m_undo->undoText(), text("Import"));
    m_undo->undo();
    QCOMPARE(CountingCommand::done, 0);
    QVERIFY(m_undo->canRedo());
}

void tst_UndoManager::aMacroEndsWithItsProject() {
    m_undo->beginMacro(text("Import"));
    QVERIFY(m_undo->push(new CountingCommand));
    m_undo->clearStack();
    m_undo->endMacro();
    QCOMPARE(m_undo->count(), 0);
    QCOMPARE(CountingCommand::alive, 0);
}

void tst_UndoManager::newKernosGoRoundThePalette() {
    const QStringList palette{text("#e1e120"), text("#81e120"), text("#2081e1"),
                              text("#8120e1"), text("#e120e1"), text("#e12081"),
                              text("#e12020"), text("#e18120"), text("#e1e120")};
    QStringList colors;
    QList<Kerno> kernos;
    for (int count = 0; count < palette.size(); ++count) {
        m_file->kernoModel()->setData(kernos);
        colors << AddKernoCommand(kerno(-1), m_file.get()).record().color().name();
        kernos.append(kerno(count + 1));
    }
    QCOMPARE(colors, palette);
    Kerno coloured = kerno(7);
    coloured.setColor(Qt::blue);
    QCOMPARE(AddKernoCommand(coloured, m_file.get()).record().color(), QColor(Qt::blue));
}

void tst_UndoManager::aParentBelowOneIsNone() {
    QCOMPARE(AddKernoCommand(text("x"), 0, 1, 2, m_file.get()).record().parentKernoId(), -1);
    QCOMPARE(AddKernoCommand(text("x"), 3, 1, 2, m_file.get()).record().parentKernoId(), 3);
}

void tst_UndoManager::manyHighlightsAreOneMutation() {
    QList<Highlight> highlights;
    for (int i = 0; i < 100; ++i)
        highlights.append(highlight(i, i + 1));
    QVERIFY(m_undo->push(new BatchCreateHighlightsCommand(highlights, m_file.get())));
    QCOMPARE(highlights.first().id(), -1);
    QCOMPARE(mutations(), QStringList{text("highlightBatchCreateOrUpdate")});
    m_undo->undo();
    QCOMPARE(mutations(), QStringList{text("highlightBatchRemove")});
    highlights.last().setLength(0);
    QVERIFY(!BatchCreateHighlightsCommand(highlights, m_file.get()).isValid());
    QVERIFY(!BatchDeleteHighlightsCommand(highlights, m_file.get()).isValid());
}

KERNOVA_TEST_MAIN(tst_UndoManager)
#include "tst_undomanager.moc"
