#include "Job.h"

#include "app/Session.h"
#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QFile>

Job::Job(AppDriver& driver, Session& session, const QString& folder)
    : m_driver(driver), m_session(session), m_canvas(driver), m_source(driver), m_folder(folder) {}

bool Job::fail(const QString& what) {
    if (m_failure.isEmpty())
        m_failure = what;
    return false;
}

bool Job::until(const std::function<bool()>& condition, const QString& what, int milliseconds) {
    return AppDriver::waitFor(condition, milliseconds) || fail(what);
}

bool Job::shown(const QString& text) {
    return until([&] { return m_driver.isShown(text); }, QStringLiteral("nothing reads \"%1\"").arg(text));
}

bool Job::gone(const QString& text) {
    return until([&] { return !m_driver.isShown(text); }, QStringLiteral("\"%1\" stays").arg(text));
}

bool Job::click(const QString& text) {
    return m_driver.clickText(text) || fail(QStringLiteral("there is no \"%1\" to click").arg(text));
}

bool Job::shoot(const QString& name) {
    m_driver.screenshot(name);
    return true;
}

QQuickItem* Job::partOf(QQuickItem* item, const QString& objectName) {
    if (item->objectName() == objectName && item->isVisible())
        return item;
    const QList<QQuickItem*> children = item->childItems();
    for (QQuickItem* child : children) {
        if (QQuickItem* found = partOf(child, objectName))
            return found;
    }
    return nullptr;
}

// The entries of a box are a window of their own.
bool Job::choose(QQuickItem* box, const QString& entry) {
    return expect(box && m_driver.click(box), QStringLiteral("there is no box for ") + entry) && click(entry);
}

void Job::nameService() {
    if (qEnvironmentVariableIsEmpty("KERNOVA_SERVICE_PROGRAM"))
        qputenv("KERNOVA_SERVICE_PROGRAM", QFile::encodeName(QCoreApplication::applicationDirPath() +
                                                             QStringLiteral("/kernova-service")));
}

bool Job::signIn() {
    return m_driver.itemWithText(QStringLiteral("Continue with local storage")) &&
           shoot(QStringLiteral("sign-in")) && click(QStringLiteral("Continue with local storage")) &&
           shown(QStringLiteral("New Project")) && gone(QStringLiteral("Sign In"));
}

bool Job::chooseProject(const QString& button, const QString& path) {
    return expect(
        m_driver.during([&] { m_driver.clickText(button); }, [&] { return m_driver.chooseFiles({path}); }),
        QStringLiteral("\"%1\" does not ask for a file").arg(button));
}

bool Job::createProject(const QString& path, bool structured) {
    // One of an earlier play would have the dialog ask whether to replace it.
    QFile::remove(path);
    if (!click(QStringLiteral("New Project")))
        return false;
    QQuickItem* author = m_driver.itemNamed(QStringLiteral("author"));
    if (!author || !m_driver.fill(author, QStringLiteral("Ada Berger")))
        return fail(QStringLiteral("there is no field for the author"));
    if (structured)
        m_driver.click(m_driver.itemsOfType(QStringLiteral("Switch")).value(1));
    return shoot(QStringLiteral("new-project")) && chooseProject(QStringLiteral("New Project"), path) &&
           untilOpen();
}

bool Job::untilOpen() {
    return until([] { return KRNFile::instance()->isOpened(); },
                 QStringLiteral("the project does not open")) &&
           gone(QStringLiteral("Author:"));
}

bool Job::chooseTheme(bool dark) {
    if (!click(QStringLiteral("Settings")) || !click(QStringLiteral("General Project Preferences")) ||
        !shown(QStringLiteral("Colour theme:")))
        return false;
    const QList<QQuickItem*> switches = m_driver.itemsOfType(QStringLiteral("Switch"));
    if (switches.value(2) && switches[2]->property("checked").toBool() != dark)
        m_driver.click(switches[2]);
    return click(QStringLiteral("Save")) && gone(QStringLiteral("Colour theme:"));
}

bool Job::importBy(const QString& menuEntry, const QStringList& paths, QString* told) {
    // The tab strip asks for the first source; later ones come by the add button.
    QQuickItem* add = m_driver.itemNamed(QStringLiteral("addSource"));
    if (!expect(m_driver.click(add), QStringLiteral("there is no button to add a source")))
        return false;
    QQuickItem* entry = m_driver.itemWithText(menuEntry);
    if (!entry)
        return fail(QStringLiteral("the add menu does not open"));
    shoot(QStringLiteral("add-menu"));
    // Two dialogs follow one another: the files, and the count of what was imported.
    bool filesChosen = false;
    const bool imported =
        m_driver.during([&] { m_driver.click(entry); },
                        [&] {
                            filesChosen = filesChosen || m_driver.chooseFiles(paths);
                            if (told && filesChosen)
                                *told = m_driver.messageBoxText();
                            return filesChosen && m_driver.answerMessageBox(QStringLiteral("OK"));
                        });
    return expect(filesChosen, QStringLiteral("the file dialog for sources does not come")) &&
           expect(imported, QStringLiteral("the import does not tell what it did"));
}

bool Job::addKerno(const QString& title) {
    QQuickItem* button = m_canvas.addButton();
    return expect(button && m_driver.click(button), QStringLiteral("there is no button to add a kerno")) &&
           nameNewKerno(title);
}

bool Job::nameNewKerno(const QString& title) {
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("kernoTitle"));
    if (!field || !AppDriver::waitFor([&] { return field->hasActiveFocus(); }))
        return fail(QStringLiteral("the dialog of the new kerno does not take its title"));
    m_driver.press(Qt::Key_A, Qt::ControlModifier);
    m_driver.type(title);
    shoot(QStringLiteral("new-kerno"));
    m_driver.press(Qt::Key_Return);
    return gone(QStringLiteral("Kerno Properties")) &&
           until([&] { return m_canvas.bubble(title); }, QStringLiteral("no bubble reads ") + title);
}

bool Job::codePassage(const QString& text, const QString& words) {
    const QString source = path(QStringLiteral("Yard.txt"));
    const QString kerno = QStringLiteral("Belonging");
    if (!writeFile(source, text) || !importFiles({source}) || !addKerno(kerno))
        return false;
    const QString problem =
        m_source.read(text) ? m_source.select(words) : QStringLiteral("the text is not shown");
    if (!expect(problem.isEmpty(), problem))
        return false;
    m_source.dragSelectionTo(m_canvas.bubble(kerno));
    return until([] { return KRNFile::instance()->totalHighlightsCount() == 1; },
                 QStringLiteral("the passage is not coded"));
}

bool Job::closeProperties() {
    QQuickItem* title = m_driver.itemNamed(QStringLiteral("kernoTitle"));
    if (!expect(title && AppDriver::waitFor([&] { return title->hasActiveFocus(); }),
                QStringLiteral("the dialog of the new kerno does not come")))
        return false;
    m_driver.press(Qt::Key_Escape);
    return gone(QStringLiteral("Kerno Properties"));
}

bool Job::undo() {
    const int index = undoIndex();
    m_driver.press(Qt::Key_Z, Qt::ControlModifier);
    return untilUndoIndex(index - 1);
}

bool Job::redo() {
    const int index = undoIndex();
    m_driver.press(Qt::Key_Y, Qt::ControlModifier);
    return untilUndoIndex(index + 1);
}

int Job::undoIndex() const {
    return m_session.undoManager().index();
}

bool Job::untilUndoIndex(int index) {
    return until([&] { return undoIndex() == index; },
                 QStringLiteral("the undo stack is not at step %1").arg(index));
}

bool Job::writeFile(const QString& path, const QString& text) {
    QFile file(path);
    return expect(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0,
                  QStringLiteral("%1 can't be written").arg(path));
}
