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
           codeIntoNew() && codeWithList() && bindKey() && writeMemo() && makeKerno() && goOverCanvas();
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
           shoot(QStringLiteral("memo")) && undo() && undo() &&
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
