#include "ScriptedProject.h"
#include "models/GroupModel.h"
#include "models/KernoGroupModel.h"
#include "models/KernoModel.h"
#include "models/KernoShortcutKeyModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataKeyModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceMetadataValueModel.h"
#include "models/SourceModel.h"
#include "tests_support/TestMain.h"

#include <QLoggingCategory>
#include <functional>

using Operation = std::function<void(UndoManager& undo)>;
Q_DECLARE_METATYPE(Operation)

namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

const QString saves = text("CreateOrUpdate");
const QString removes = text("Remove");

/// What takes the mutations back: the opposite of each, from the last to the first.
QStringList opposite(const QStringList& mutations) {
    QStringList back;
    for (QString mutation : mutations)
        back.prepend(mutation.endsWith(saves) ? mutation.replace(saves, removes)
                                              : mutation.replace(removes, saves));
    return back;
}

/// A highlight and a memo in one: each reads its own fields.
QJsonObject stored(int id) {
    return {{text("id"), id},
            {text("kernoId"), 1},
            {text("sourceId"), 1},
            {text("questionId"), 1},
            {text("color"), text("#ff0000")},
            {text("content"), text("note")},
            {text("start"), 0},
            {text("length"), 5},
            {text("author"), QString()},
            {text("timestamp"), text("2024-05-01T10:00:00Z")}};
}

}  // namespace

/// The order in which the parts of a change reach the service: what depends on a record goes away before it
/// and comes back after it.
class tst_CommandOrder : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(text("*.debug=false")); }
    void dependantsGoFirstAndComeLast_data();
    void dependantsGoFirstAndComeLast();

private:
    static void fill(ScriptedProject& project);
};

/// One record of each kind, all of which hang together; kerno 2 lies below kerno 1.
void tst_CommandOrder::fill(ScriptedProject& project) {
    const KRNFile& file = project.file;
    file.kernoModel()->setData({Kerno(1, -1, Qt::red, text("a"), {}, {}, {}, 0, 0),
                                Kerno(2, 1, Qt::red, text("b"), {}, {}, {}, 0, 0)});
    file.groupModel()->setData({Group(1, text("g"), true)});
    file.kernoGroupModel()->setData({KernoGroup(1, 1, 1)});
    file.shortcutKeyModel()->setData({KernoShortcutKey(text("A"), 1, {})});
    file.sourceModel()->setData({Source(1, text("s"), {}, {}, {})});
    file.questionListModel()->setData({Question(1, text("q"), 1)});
    file.answerModel()->setData({QuestionAnswer(1, 1, 1, {}, text("An answer"), {})});
    file.metadataKeyModel()->setData({SourceMetadataKey(1, false, false, text("k"))});
    file.metadataValueModel()->setData({SourceMetadataValue(1, 1, text("v"))});
    file.metadataModel()->setData({SourceMetadata(1, 1, 1, 1, {}, {})});
    project.service.on(text("highlightQueryList"),
                       [](ScriptedClient& client, const ScriptedRequest& request) {
                           const bool isKerno2 = request.argument(text("kernoId")) == text("2");
                           const QJsonArray highlights = isKerno2 ? QJsonArray() : QJsonArray({stored(1)});
                           client.reply(request, {{text("highlightQueryList"), highlights}});
                       });
    project.service.answer(text("memoQueryList"), QJsonArray({stored(1)}));
}

void tst_CommandOrder::dependantsGoFirstAndComeLast_data() {
    QTest::addColumn<Operation>("operation");
    QTest::addColumn<QString>("mutations");
    const auto row = [](const char* name, const char* mutations, Operation operation) {
        QTest::newRow(name) << operation << text(mutations);
    };
    row("a kerno goes",
        "kernoRemove highlightBatchRemove groupKernoRemove kernoShortcutKeyRemove kernoRemove",
        [](UndoManager& undo) { undo.deleteKerno(1); });
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
        [](UndoManager& undo) { undo.addSource(Source(-1, text("t"), {}, {}, {})); });
    row("a question comes", "questionCreateOrUpdate questionAnswerCreateOrUpdate",
        [](UndoManager& undo) { undo.addQuestion(Question(-1, text("r"), 2)); });
    row("a property comes with a value",
        "sourceMetadataKeyCreateOrUpdate sourceMetadataValueCreateOrUpdate sourceMetadataCreateOrUpdate",
        [](UndoManager& undo) { undo.addMetadataKeyAndValue(text("l"), text("w"), 1); });
    row("a passage comes over another", "highlightRemove highlightCreateOrUpdate", [](UndoManager& undo) {
        undo.addHighlight(Highlight(-1, 1, 1, 1, {}, 3, 6, 9, {}, {}, 0, 0, 0, false));
    });
    row("a kerno comes once more", "kernoCreateOrUpdate highlightBatchCreateOrUpdate",
        [](UndoManager& undo) { undo.duplicateKerno(1); });
}

void tst_CommandOrder::dependantsGoFirstAndComeLast() {
    QFETCH(Operation, operation);
    QFETCH(QString, mutations);
    const QStringList expected = mutations.split(QLatin1Char(' '));
    ScriptedProject project;
    QVERIFY(project.isOpen);
    fill(project);
    operation(project.undo);
    QCOMPARE(project.mutations(), expected);
    project.undo.undo();
    QCOMPARE(project.mutations(), opposite(expected));
    project.undo.redo();
    QCOMPARE(project.mutations(), expected);
}

KERNOVA_TEST_MAIN(tst_CommandOrder)
#include "tst_commandorder.moc"
