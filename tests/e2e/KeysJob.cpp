#include "Job.h"

#include "project/KRNFile.h"

#include <QQuickWindow>

namespace {

const QString care = "Care"_s;
const QString home = "Home ground"_s;
const QString text = "The garden was all we had that spring.\nWe met there every evening.\n"_s;

/// The whole coding job without a mouse: chooses a source, selects words, codes them in every way that the
/// keys offer, writes a memo, makes a kerno, and goes back.
class KeysJob : public Job {
public:
    using Job::Job;

    bool play(const QString&) override {
        return signIn() && createProject(path("keys.krn"_s)) &&
               importTexts({{"Garden"_s, text}, {"Yard"_s, "The yard."_s}}) && chooseSource() &&
               codeIntoNew() && codeWithList() && bindKey() && removeCodings() && writeMemo() &&
               makeKerno() && goOverCanvas() && editInBar() && nestInTree();
    }

private:
    // Goes to the next part until the item of that name, or of that text, has the keyboard.
    bool goTo(const QString& nameOrText) {
        for (int part = 0; part < 8; ++part) {
            m_driver.press(Qt::Key_F6);
            if (hasFocus(nameOrText))
                return true;
        }
        return fail("no part begins with "_s + nameOrText);
    }

    bool chooseSource() {
        if (!goTo("toggleSources"_s) || !shoot("ring"_s))
            return false;
        m_driver.press(Qt::Key_Return);
        if (!untilFocus("allSources"_s))
            return false;
        m_driver.press(Qt::Key_Home);
        m_driver.press(Qt::Key_Up);
        shoot("sources"_s);
        m_driver.press(Qt::Key_Return);
        return gone("All Sources"_s) && reads(text) && goTo("answerText"_s);
    }

    // From the beginning of the text, skips some words and selects some.
    bool selectWords(int skipped, int count, const QString& expected) {
        m_driver.press(Qt::Key_Home, Qt::ControlModifier);
        for (int word = 0; word < skipped; ++word)
            m_driver.press(Qt::Key_Right, Qt::ControlModifier);
        for (int word = 0; word < count; ++word)
            m_driver.press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
        m_driver.press(Qt::Key_Left, Qt::ShiftModifier);
        return expect(m_source.selectedText() == expected,
                      "selected is \"%1\""_s.arg(m_source.selectedText()));
    }

    bool untilCodings(const QString& kerno, int count) {
        return untilIs(kerno + " is coded"_s, count, [&] { return m_canvas.codings(kerno); }) &&
               untilFocus("answerText"_s);
    }

    bool codeIntoNew() {
        if (!selectWords(1, 2, "garden was"_s))
            return false;
        m_driver.press(Qt::Key_K, Qt::ControlModifier);
        if (!untilFocus("codeWithFilter"_s))
            return false;
        m_driver.type(care);
        shoot("code-with-new"_s);
        m_driver.press(Qt::Key_N, Qt::ControlModifier);
        QQuickItem* title = m_driver.itemNamed("kernoTitle"_s);
        if (!untilFocus("kernoTitle"_s) ||
            !expect(title->property("text").toString() == care, "the new kerno has another title"_s))
            return false;
        m_driver.press(Qt::Key_Return);
        return gone("Kerno Properties"_s) && untilCodings(care, 1);
    }

    bool codeWithList() {
        if (!selectWords(5, 2, "had that"_s))
            return false;
        const auto openDialog = [&] {
            m_driver.press(Qt::Key_K, Qt::ControlModifier);
            return untilFocus("codeWithFilter"_s);
        };
        if (!openDialog())
            return false;
        m_driver.type("zz"_s);
        m_driver.press(Qt::Key_Return);
        if (!shown("Code with..."_s))
            return false;
        m_driver.press(Qt::Key_Escape);
        if (!gone("Code with..."_s) || !untilCodings(care, 1) || !openDialog())
            return false;
        m_driver.type("ca"_s);
        shoot("code-with"_s);
        m_driver.press(Qt::Key_Return);
        return gone("Code with..."_s) && untilCodings(care, 2) && undo() && untilCodings(care, 1) && redo() &&
               untilCodings(care, 2);
    }

    bool bindKey() {
        if (!goTo("Home"_s))
            return false;
        m_driver.press(Qt::Key_Backtab, Qt::ShiftModifier);
        for (int button = 0; button < 12 && !hasFocus("Settings"_s); ++button)
            m_driver.press(Qt::Key_Tab);
        if (!expect(hasFocus("Settings"_s), "Tab does not reach the settings"_s))
            return false;
        m_driver.press(Qt::Key_Return);
        takeFromMenu(2);
        if (!shown("Kerno Shortcut Key Editor"_s))
            return false;
        m_driver.press(Qt::Key_Tab);
        const int index = undoIndex();
        m_driver.press(Qt::Key_Down);
        shoot("keys"_s);
        if (!untilUndoIndex(index + 1))
            return false;
        m_driver.press(Qt::Key_Escape);
        if (!gone("Kerno Shortcut Key Editor"_s) || !goTo("answerText"_s) || !selectWords(10, 2, "We met"_s))
            return false;
        m_driver.type("0"_s);
        return untilCodings(care, 3) && shoot("coded"_s);
    }

    // From the text by Tab.
    bool tabTo(const QString& name, int times) {
        for (int i = 0; i < times; ++i)
            m_driver.press(Qt::Key_Tab);
        return untilFocus(name);
    }

    // Takes the first entry of the menu of what has the keyboard, or another one of the menu that is open.
    void takeFirstOfMenu() {
        m_driver.press(Qt::Key_F10, Qt::ShiftModifier);
        takeFromMenu(1);
    }
    void takeFromMenu(int number) {
        AppDriver::waitFor([&] { return !m_driver.popups().isEmpty(); });
        for (int entry = 0; entry < number; ++entry)
            m_driver.press(Qt::Key_Down);
        shoot("menu-by-key"_s);
        m_driver.press(Qt::Key_Return);
        AppDriver::waitFor([&] { return m_driver.popups().isEmpty(); });
    }

    // Older ones, beside the text: by the menu and by Delete.
    bool removeCodings() {
        const auto untilCount = [&](int count) {
            return untilIs("codings are left"_s, count, [&] { return m_canvas.codings(care); });
        };
        if (!tabTo("codings"_s, 1))
            return false;
        m_driver.press(Qt::Key_End);
        shoot("codings"_s);
        takeFirstOfMenu();
        if (!untilCount(2))
            return false;
        m_driver.press(Qt::Key_Delete);
        if (!untilCount(1) || !undo() || !untilCount(2))
            return false;
        m_driver.press(Qt::Key_Escape);
        return untilCodings(care, 2);
    }

    bool untilMemo(int id, const QString& content) {
        return untilIs("the memo"_s, content, [=] { return KRNFile::instance()->memo(id).content(); });
    }

    // Goes to the memo again, writes on, and removes it by its menu.
    bool changeMemo(int id) {
        if (!tabTo("memos"_s, 2))
            return false;
        m_driver.press(Qt::Key_Return);
        m_driver.press(Qt::Key_End, Qt::ControlModifier);
        m_driver.type(" Ours."_s);
        m_driver.press(Qt::Key_Escape);
        if (!untilMemo(id, "Whose garden? Ours."_s) || !tabTo("memos"_s, 2))
            return false;
        takeFirstOfMenu();
        return until([&] { return m_source.memos().isEmpty(); }, "the memo stays"_s) &&
               untilFocus("answerText"_s);
    }

    bool writeMemo() {
        const QString note = "Whose garden?"_s;
        if (!selectWords(1, 1, "garden"_s))
            return false;
        m_driver.press(Qt::Key_M, Qt::ControlModifier);
        if (!until([&] { return m_source.memos().size() == 1; }, "there is no memo"_s))
            return false;
        const int id = m_source.memos()[0]->property("memoId").toInt();
        if (!until([&] { return !hasFocus("answerText"_s); }, "the memo does not take the keyboard"_s))
            return false;
        m_driver.type(note);
        m_driver.press(Qt::Key_Escape);
        return untilMemo(id, note) && untilFocus("answerText"_s) && shoot("memo"_s) && changeMemo(id) &&
               undo() && undo() && undo() && undo() &&
               until([&] { return m_source.memos().isEmpty(); }, "undo leaves the memo"_s);
    }

    bool makeKerno() {
        if (!goTo("canvasKeys"_s))
            return false;
        m_driver.press(Qt::Key_Tab);
        m_driver.press(Qt::Key_Space);
        return nameNewKerno(home);
    }

    bool goOverCanvas() {
        if (!goTo("canvasKeys"_s))
            return false;
        const auto current = [&] {
            return m_driver.itemNamed("canvasKeys"_s)->property("__kernoId").toInt();
        };
        const int before = current();
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
            if (current() == before)
                m_driver.press(key);
        }
        if (!expect(current() != before, "the arrows do not go to the other bubble"_s) || !shoot("canvas"_s))
            return false;
        m_driver.press(Qt::Key_Return);
        return until([&] { return m_driver.itemNamed("canvasKeys"_s, 0) == nullptr; },
                     "Return does not open the overview"_s) &&
               shoot("overview"_s);
    }

    bool editInBar() {
        if (!click("Home"_s) || !goTo("canvasKeys"_s))
            return false;
        const int id = m_driver.itemNamed("canvasKeys"_s)->property("__kernoId").toInt();
        const QString title = "Yard and garden"_s;
        m_driver.press(Qt::Key_F2);
        if (!enter("editBarTitle"_s, title) ||
            !untilIs("the title"_s, title, [&] { return KRNFile::instance()->kerno(id).title(); }) ||
            !untilFocus("canvasKeys"_s) || !shoot("edit-bar"_s))
            return false;
        const QPointF before(KRNFile::instance()->kerno(id).x(), KRNFile::instance()->kerno(id).y());
        m_driver.press(before.x() < 300 ? Qt::Key_Right : Qt::Key_Left, Qt::ControlModifier);
        if (!until([&] { return qAbs(KRNFile::instance()->kerno(id).x() - before.x()) == 10; },
                   "Ctrl and an arrow do not move the bubble"_s))
            return false;
        takeFirstOfMenu();
        return until([&] { return m_driver.itemNamed("canvasKeys"_s, 0) == nullptr; },
                     "the menu's first entry does not open the overview"_s) &&
               click("Home"_s);
    }

    // From the first label, which is put below the second and taken out again.
    bool nestInTree() {
        if (!menu("View"_s, "Kernos as Tree View"_s) || !goTo("treeView"_s))
            return false;
        m_driver.press(Qt::Key_Home);
        const auto focused = [&] {
            return m_driver.mainWindow()->activeFocusItem()->property("kernoId").toInt();
        };
        const int moved = focused();
        m_driver.press(Qt::Key_X, Qt::ControlModifier);
        m_driver.press(Qt::Key_Down);
        const int parent = focused();
        m_driver.press(Qt::Key_V, Qt::ControlModifier);
        const auto parentOf = [](int id) { return KRNFile::instance()->kerno(id).parentKernoId(); };
        if (!expect(moved != parent, "there is one label only"_s) ||
            !until([&] { return parentOf(moved) == parent; }, "Ctrl+V does not nest"_s) || !shoot("nested"_s))
            return false;
        m_driver.press(Qt::Key_Down);
        if (!until([&] { return focused() == moved; }, "the child is not reached"_s))
            return false;
        m_driver.press(Qt::Key_Backspace);
        return until([&] { return parentOf(moved) == -1; }, "Backspace does not take it out"_s);
    }
};

const Played<KeysJob> played{"keys"_s, {"keys"_s}};

}  // namespace
