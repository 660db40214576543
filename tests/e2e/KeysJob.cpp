#include "KeysJob.h"

#include "project/KRNFile.h"

#include <QQuickWindow>

namespace {

const QString care = QStringLiteral("Care");
const QString home = QStringLiteral("Home ground");
const QString text = QStringLiteral("The garden was all we had that spring.\nWe met there every evening.\n");

}  // namespace

bool KeysJob::play(const QString&) {
    const QString first = path(QStringLiteral("Garden.txt"));
    const QString second = path(QStringLiteral("Yard.txt"));
    return signIn() && createProject(path(QStringLiteral("keys.krn"))) && writeFile(first, text) &&
           writeFile(second, QStringLiteral("The yard.")) && importFiles({first, second}) && chooseSource() &&
           codeIntoNew() && codeWithList() && bindKey() && removeCodings() && writeMemo() && makeKerno() &&
           goOverCanvas() && editInBar() && nestInTree();
}

bool KeysJob::hasFocus(const QString& nameOrText) {
    const QQuickItem* item = m_driver.mainWindow()->activeFocusItem();
    if (item && item->property("text").toString() == nameOrText)
        return true;
    // A list has it by its row.
    for (; item; item = item->parentItem()) {
        if (item->objectName() == nameOrText)
            return true;
    }
    return false;
}

bool KeysJob::goTo(const QString& nameOrText) {
    for (int part = 0; part < 8; ++part) {
        m_driver.press(Qt::Key_F6);
        if (hasFocus(nameOrText))
            return true;
    }
    return fail(QStringLiteral("no part begins with ") + nameOrText);
}

bool KeysJob::chooseSource() {
    if (!goTo(QStringLiteral("toggleSources")) || !shoot(QStringLiteral("ring")))
        return false;
    m_driver.press(Qt::Key_Return);
    if (!until([&] { return hasFocus(QStringLiteral("allSources")); },
               QStringLiteral("the sources do not take the keyboard")))
        return false;
    m_driver.press(Qt::Key_Home);
    m_driver.press(Qt::Key_Up);
    shoot(QStringLiteral("sources"));
    m_driver.press(Qt::Key_Return);
    return gone(QStringLiteral("All Sources")) &&
           expect(m_source.read(text), QStringLiteral("Return does not open the first source")) &&
           goTo(QStringLiteral("answerText"));
}

bool KeysJob::selectWords(int skipped, int count, const QString& expected) {
    m_driver.press(Qt::Key_Home, Qt::ControlModifier);
    for (int word = 0; word < skipped; ++word)
        m_driver.press(Qt::Key_Right, Qt::ControlModifier);
    for (int word = 0; word < count; ++word)
        m_driver.press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    m_driver.press(Qt::Key_Left, Qt::ShiftModifier);
    return expect(m_source.selectedText() == expected,
                  QStringLiteral("selected is \"%1\"").arg(m_source.selectedText()));
}

bool KeysJob::untilCodings(const QString& kerno, int count) {
    return until([&] { return m_canvas.codings(kerno) == count; },
                 QStringLiteral("%1 is coded %2 times").arg(kerno).arg(m_canvas.codings(kerno))) &&
           until([&] { return hasFocus(QStringLiteral("answerText")); },
                 QStringLiteral("the text does not get the keyboard back"));
}

bool KeysJob::codeIntoNew() {
    if (!selectWords(1, 2, QStringLiteral("garden was")))
        return false;
    m_driver.press(Qt::Key_K, Qt::ControlModifier);
    if (!until([&] { return m_driver.itemNamed(QStringLiteral("codeWithFilter"))->hasActiveFocus(); },
               QStringLiteral("\"Code with...\" does not open")))
        return false;
    m_driver.type(care);
    shoot(QStringLiteral("code-with-new"));
    m_driver.press(Qt::Key_N, Qt::ControlModifier);
    QQuickItem* title = m_driver.itemNamed(QStringLiteral("kernoTitle"));
    if (!expect(title && title->property("text").toString() == care,
                QStringLiteral("the new kerno has another title")))
        return false;
    m_driver.press(Qt::Key_Return);
    return gone(QStringLiteral("Kerno Properties")) && untilCodings(care, 1);
}

bool KeysJob::codeWithList() {
    if (!selectWords(5, 2, QStringLiteral("had that")))
        return false;
    m_driver.press(Qt::Key_K, Qt::ControlModifier);
    m_driver.type(QStringLiteral("zz"));
    m_driver.press(Qt::Key_Return);
    if (!shown(QStringLiteral("Code with...")))
        return false;
    m_driver.press(Qt::Key_Escape);
    if (!gone(QStringLiteral("Code with...")) || !untilCodings(care, 1))
        return false;
    m_driver.press(Qt::Key_K, Qt::ControlModifier);
    m_driver.type(QStringLiteral("ca"));
    shoot(QStringLiteral("code-with"));
    m_driver.press(Qt::Key_Return);
    return gone(QStringLiteral("Code with...")) && untilCodings(care, 2) && undo() && untilCodings(care, 1) &&
           redo() && untilCodings(care, 2);
}

bool KeysJob::bindKey() {
    if (!goTo(QStringLiteral("Home")))
        return false;
    m_driver.press(Qt::Key_Backtab, Qt::ShiftModifier);
    for (int button = 0; button < 12 && !hasFocus(QStringLiteral("Settings")); ++button)
        m_driver.press(Qt::Key_Tab);
    if (!expect(hasFocus(QStringLiteral("Settings")), QStringLiteral("Tab does not reach the settings")))
        return false;
    m_driver.press(Qt::Key_Return);
    m_driver.press(Qt::Key_Down);
    m_driver.press(Qt::Key_Down);
    shoot(QStringLiteral("menu"));
    m_driver.press(Qt::Key_Return);
    if (!shown(QStringLiteral("Kerno Shortcut Key Editor")))
        return false;
    m_driver.press(Qt::Key_Tab);
    const int index = undoIndex();
    m_driver.press(Qt::Key_Down);
    shoot(QStringLiteral("keys"));
    if (!untilUndoIndex(index + 1))
        return false;
    m_driver.press(Qt::Key_Escape);
    if (!gone(QStringLiteral("Kerno Shortcut Key Editor")) || !goTo(QStringLiteral("answerText")) ||
        !selectWords(10, 2, QStringLiteral("We met")))
        return false;
    m_driver.type(QStringLiteral("0"));
    return untilCodings(care, 3) && shoot(QStringLiteral("coded"));
}

bool KeysJob::tabTo(const QString& name, int times) {
    for (int i = 0; i < times; ++i)
        m_driver.press(Qt::Key_Tab);
    return expect(hasFocus(name), QStringLiteral("Tab does not lead to the ") + name);
}

void KeysJob::takeFirstOfMenu() {
    m_driver.press(Qt::Key_F10, Qt::ShiftModifier);
    AppDriver::waitFor([&] { return !m_driver.popups().isEmpty(); });
    m_driver.press(Qt::Key_Down);
    shoot(QStringLiteral("menu-by-key"));
    m_driver.press(Qt::Key_Return);
}

// Older ones, beside the text: by the menu and by Delete.
bool KeysJob::removeCodings() {
    const auto untilCount = [&](int count) {
        return until([&] { return m_canvas.codings(care) == count; },
                     QStringLiteral("%1 codings are left").arg(m_canvas.codings(care)));
    };
    if (!tabTo(QStringLiteral("codings"), 1))
        return false;
    m_driver.press(Qt::Key_End);
    shoot(QStringLiteral("codings"));
    takeFirstOfMenu();
    if (!untilCount(2))
        return false;
    m_driver.press(Qt::Key_Delete);
    if (!untilCount(1) || !undo() || !untilCount(2))
        return false;
    m_driver.press(Qt::Key_Escape);
    return untilCodings(care, 2);
}

// Goes to the memo again, writes on, and removes it by its menu.
bool KeysJob::changeMemo(int id) {
    if (!tabTo(QStringLiteral("memos"), 2))
        return false;
    m_driver.press(Qt::Key_Return);
    m_driver.press(Qt::Key_End, Qt::ControlModifier);
    m_driver.type(QStringLiteral(" Ours."));
    m_driver.press(Qt::Key_Escape);
    const QString changed = QStringLiteral("Whose garden? Ours.");
    if (!until([&] { return KRNFile::instance()->memo(id).content() == changed; },
               QStringLiteral("the memo is ") + KRNFile::instance()->memo(id).content()) ||
        !tabTo(QStringLiteral("memos"), 2))
        return false;
    takeFirstOfMenu();
    return until([&] { return m_source.memos().isEmpty(); }, QStringLiteral("the memo stays")) &&
           until([&] { return hasFocus(QStringLiteral("answerText")); },
                 QStringLiteral("nothing has the keyboard once the last memo is gone"));
}

bool KeysJob::writeMemo() {
    const QString note = QStringLiteral("Whose garden?");
    if (!selectWords(1, 1, QStringLiteral("garden")))
        return false;
    m_driver.press(Qt::Key_M, Qt::ControlModifier);
    if (!until([&] { return m_source.memos().size() == 1; }, QStringLiteral("there is no memo")))
        return false;
    const int id = m_source.memos()[0]->property("memoId").toInt();
    if (!until([&] { return !hasFocus(QStringLiteral("answerText")); },
               QStringLiteral("the memo does not take the keyboard")))
        return false;
    m_driver.type(note);
    m_driver.press(Qt::Key_Escape);
    return until([&] { return KRNFile::instance()->memo(id).content() == note; },
                 QStringLiteral("the memo is not saved")) &&
           until([&] { return hasFocus(QStringLiteral("answerText")); },
                 QStringLiteral("Esc does not leave the memo")) &&
           shoot(QStringLiteral("memo")) && changeMemo(id) && undo() && undo() && undo() && undo() &&
           until([&] { return m_source.memos().isEmpty(); }, QStringLiteral("undo leaves the memo"));
}

bool KeysJob::makeKerno() {
    if (!goTo(QStringLiteral("canvasKeys")))
        return false;
    m_driver.press(Qt::Key_Tab);
    m_driver.press(Qt::Key_Space);
    return nameNewKerno(home);
}

bool KeysJob::goOverCanvas() {
    if (!goTo(QStringLiteral("canvasKeys")))
        return false;
    const auto current = [&] {
        return m_driver.itemNamed(QStringLiteral("canvasKeys"))->property("__kernoId").toInt();
    };
    const int before = current();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        if (current() == before)
            m_driver.press(key);
    }
    if (!expect(current() != before, QStringLiteral("the arrows do not go to the other bubble")) ||
        !shoot(QStringLiteral("canvas")))
        return false;
    m_driver.press(Qt::Key_Return);
    return until([&] { return m_driver.itemNamed(QStringLiteral("canvasKeys"), 0) == nullptr; },
                 QStringLiteral("Return does not open the overview")) &&
           shoot(QStringLiteral("overview"));
}

bool KeysJob::editInBar() {
    if (!click(QStringLiteral("Home")) || !goTo(QStringLiteral("canvasKeys")))
        return false;
    const int id = m_driver.itemNamed(QStringLiteral("canvasKeys"))->property("__kernoId").toInt();
    const QString title = QStringLiteral("Yard and garden");
    m_driver.press(Qt::Key_F2);
    if (!until([&] { return hasFocus(QStringLiteral("editBarTitle")); },
               QStringLiteral("F2 does not lead to the title")))
        return false;
    m_driver.press(Qt::Key_A, Qt::ControlModifier);
    m_driver.type(title);
    m_driver.press(Qt::Key_Return);
    if (!until([&] { return KRNFile::instance()->kerno(id).title() == title; },
               QStringLiteral("the title is not stored")) ||
        !expect(hasFocus(QStringLiteral("canvasKeys")), QStringLiteral("Return does not lead back")) ||
        !shoot(QStringLiteral("edit-bar")))
        return false;
    const QPointF before(KRNFile::instance()->kerno(id).x(), KRNFile::instance()->kerno(id).y());
    m_driver.press(before.x() < 300 ? Qt::Key_Right : Qt::Key_Left, Qt::ControlModifier);
    if (!until([&] { return qAbs(KRNFile::instance()->kerno(id).x() - before.x()) == 10; },
               QStringLiteral("Ctrl and an arrow do not move the bubble")))
        return false;
    takeFirstOfMenu();
    return until([&] { return m_driver.itemNamed(QStringLiteral("canvasKeys"), 0) == nullptr; },
                 QStringLiteral("the menu's first entry does not open the overview")) &&
           click(QStringLiteral("Home"));
}

// From the first label, which is put below the second and taken out again.
bool KeysJob::nestInTree() {
    if (!click(QStringLiteral("View")) || !click(QStringLiteral("Kernos as Tree View")) ||
        !goTo(QStringLiteral("treeView")))
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
    if (!expect(moved != parent, QStringLiteral("there is one label only")) ||
        !until([&] { return parentOf(moved) == parent; }, QStringLiteral("Ctrl+V does not nest")) ||
        !shoot(QStringLiteral("nested")))
        return false;
    m_driver.press(Qt::Key_Down);
    if (!until([&] { return focused() == moved; }, QStringLiteral("the child is not reached")))
        return false;
    m_driver.press(Qt::Key_Backspace);
    return until([&] { return parentOf(moved) == -1; }, QStringLiteral("Backspace does not take it out"));
}
