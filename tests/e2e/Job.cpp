#include "Job.h"

#include "LayoutCheck.h"
#include "app/Session.h"
#include "project/KRNFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QQuickWindow>
#include <algorithm>

namespace {

constexpr int fadingMs = 10000;
constexpr int tellingMs = 15000;
constexpr int dialogAttempts = 4;

}  // namespace

std::vector<JobEntry>& jobs() {
    static std::vector<JobEntry> all;
    return all;
}

Job::Job(AppDriver& driver, Session& session, const QString& folder)
    : m_driver(driver), m_session(session), m_canvas(driver), m_source(driver), m_folder(folder) {}

bool Job::fail(const QString& what) {
    if (m_failure.isEmpty())
        m_failure = what;
    return false;
}

bool Job::until(const std::function<bool()>& condition, const QString& what) {
    return AppDriver::waitFor(condition) || fail(what);
}

bool Job::shown(const QString& text) {
    return until([&] { return m_driver.isShown(text); }, "nothing reads \"%1\""_s.arg(text));
}

bool Job::gone(const QString& text) {
    return until([&] { return !m_driver.isShown(text); }, "\"%1\" stays"_s.arg(text));
}

bool Job::click(const QString& text) {
    return m_driver.clickText(text) || fail("there is no \"%1\" to click"_s.arg(text));
}

bool Job::untilBubble(const QString& title, int level) {
    return until([&] { return m_canvas.bubble(title, level); }, "no bubble reads "_s + title);
}

bool Job::untilNoBubble(const QString& title) {
    return until([&] { return !m_canvas.bubble(title); }, "the bubble stays: "_s + title);
}

bool Job::untilAlone(const QStringList& titles, const QStringList& all) {
    return untilIs("the bubbles"_s, titles, [&] {
        QStringList drawn;
        std::copy_if(all.begin(), all.end(), std::back_inserter(drawn),
                     [&](const QString& title) { return m_canvas.bubble(title); });
        return drawn;
    });
}

bool Job::reads(const QString& text) {
    return expect(m_source.read(text), "the panel does not show \"%1\""_s.arg(text.left(60)));
}

bool Job::shoot(const QString& name) {
    m_driver.screenshot(name);
    return true;
}

// What moves or fades for a while is judged again.
bool Job::look(const QString& name, bool moving) {
    moving ? m_driver.snapshot(name) : m_driver.screenshot(name);
    QStringList faults;
    return AppDriver::waitFor([&] { return (faults = layout::screenFaults(m_driver)).isEmpty(); },
                              fadingMs) ||
           fail(name + ": "_s + faults.join("; "_s));
}

bool Job::resize(const QSize& size) {
    m_driver.mainWindow()->setGeometry(QRect(QPoint(0, 0), size));
    return until([&] { return m_driver.mainWindow()->size() == size; }, "the window keeps its size"_s);
}

bool Job::clickOn(const QString& objectName, Qt::MouseButton button) {
    return m_driver.click(m_driver.itemNamed(objectName), button) ||
           fail("there is no %1 to click"_s.arg(objectName));
}

bool Job::toggle(const QString& objectName) {
    QQuickItem* item = m_driver.itemNamed(objectName);
    return expect(item && m_driver.clickAt(item, QPointF(15, item->height() / 2)),
                  "there is no "_s + objectName);
}

bool Job::flip(int number) {
    return expect(m_driver.click(m_driver.itemsOfType("Switch"_s).value(number)),
                  "there is no such switch"_s);
}

bool Job::fillField(int number, const QString& text) {
    return expect(m_driver.fill(m_driver.itemsOfType("DialogTextField"_s).value(number), text),
                  "there is no field %1"_s.arg(number));
}

bool Job::fill(const QString& objectName, const QString& text) {
    return expect(m_driver.fill(m_driver.itemNamed(objectName), text), "there is no "_s + objectName);
}

QQuickItem* Job::partOf(QQuickItem* item, const QString& objectName) {
    if (!item || (item->objectName() == objectName && item->isVisible()))
        return item;
    const QList<QQuickItem*> children = item->childItems();
    for (QQuickItem* child : children) {
        if (QQuickItem* found = partOf(child, objectName))
            return found;
    }
    return nullptr;
}

bool Job::hasFocus(const QString& nameOrText) {
    const QQuickItem* item = m_driver.mainWindow()->activeFocusItem();
    if (item && item->property("text").toString() == nameOrText)
        return true;
    // A list has it by its row.
    while (item && item->objectName() != nameOrText)
        item = item->parentItem();
    return item;
}

bool Job::untilFocus(const QString& nameOrText) {
    return until([&] { return hasFocus(nameOrText); }, nameOrText + " does not take the keyboard"_s);
}

bool Job::enter(const QString& objectName, const QString& text) {
    if (!untilFocus(objectName))
        return false;
    m_driver.press(Qt::Key_A, Qt::ControlModifier);
    m_driver.type(text);
    m_driver.press(Qt::Key_Return);
    return true;
}

// The entries of a box or a menu are a window of their own. The box itself may read the same as one.
bool Job::choose(QQuickItem* box, const QString& entry) {
    return expect(box && m_driver.click(box), "there is no box for "_s + entry) &&
           expect(m_driver.click(m_driver.entryWithText(entry)), "there is no entry "_s + entry);
}

bool Job::menu(const QString& button, const QString& entry, const QString& picture) {
    if (!click(button))
        return false;
    QQuickItem* item = m_driver.entryWithText(entry);
    return (!item || picture.isEmpty() || shoot(picture)) &&
           expect(m_driver.click(item), "there is no entry "_s + entry);
}

bool Job::addMenu(const QString& entry) {
    return choose(m_driver.itemNamed("addSource"_s), entry);
}

bool Job::kernoMenu(const QString& title, const QString& entry) {
    return expect(m_canvas.chooseInMenu(title, entry), "%1 has no menu with %2"_s.arg(title, entry));
}

bool Job::answering(const std::function<void()>& action, const QString& button, const QString& told) {
    QString read;
    const bool answered = m_driver.during(action, [&] {
        read = m_driver.messageBoxText();
        return m_driver.answerMessageBox(button);
    });
    return expect(answered, "nothing asks for "_s + button) &&
           expect(told.isEmpty() || read == told, "told is: "_s + read);
}

void Job::nameService() {
    if (qEnvironmentVariableIsEmpty("KERNOVA_SERVICE_PROGRAM"))
        qputenv("KERNOVA_SERVICE_PROGRAM",
                QFile::encodeName(QCoreApplication::applicationDirPath() + "/kernova-service"_s));
}

bool Job::signIn() {
    return m_driver.itemWithText("Continue with local storage"_s) && shoot("sign-in"_s) &&
           click("Continue with local storage"_s) && shown("New Project"_s) && gone("Sign In"_s);
}

bool Job::chooseProject(const QString& button, const QString& path, const QString& told) {
    for (int attempt = 0; attempt < dialogAttempts; ++attempt) {
        if (!expect(m_driver.during([&] { m_driver.clickText(button); },
                                    [&] { return m_driver.chooseFiles({path}); }),
                    "\"%1\" does not ask for a file"_s.arg(button)))
            return false;
        if (told.isEmpty() || AppDriver::waitFor([&] { return m_driver.isShown(told); }, tellingMs))
            return true;
    }
    return fail("nothing reads \"%1\" after %2"_s.arg(told, path));
}

bool Job::createProject(const QString& path, bool structured) {
    // One of an earlier play would have the dialog ask whether to replace it.
    QFile::remove(path);
    return click("New Project"_s) && shown("Structured Questions"_s) && fill("author"_s, "Ada Berger"_s) &&
           (!structured || flip(1)) && shoot("new-project"_s) && chooseProject("New Project"_s, path) &&
           untilOpen();
}

bool Job::untilOpen() {
    return until([] { return KRNFile::instance()->isOpened(); }, "the project does not open"_s) &&
           gone("Author:"_s);
}

QString Job::currentName() const {
    return KRNFile::instance()->currentProject().value(QLatin1String("name")).toString();
}

bool Job::showOpenDialog() {
    return menu("Project"_s, "Open New or Existing"_s) && shown("Open Selected"_s);
}

bool Job::chooseTheme(bool dark) {
    if (!menu("Settings"_s, "General Project Preferences"_s) || !shown("Colour theme:"_s))
        return false;
    const QQuickItem* theme = m_driver.itemsOfType("Switch"_s).value(2);
    return expect(theme, "there is no switch for the theme"_s) &&
           (theme->property("checked").toBool() == dark || flip(2)) && click("Save"_s) &&
           gone("Colour theme:"_s);
}

bool Job::importTexts(const QList<QPair<QString, QString>>& titlesAndTexts) {
    QStringList files;
    for (const auto& [title, text] : titlesAndTexts) {
        files << path(title + ".txt"_s);
        if (!writeFile(files.last(), text))
            return false;
    }
    return importFiles(files);
}

bool Job::importBy(const QString& menuEntry, const QStringList& paths, QString* told) {
    // The tab strip asks for the first source; later ones come by the add button.
    if (!clickOn("addSource"_s))
        return false;
    QQuickItem* entry = m_driver.entryWithText(menuEntry);
    if (!entry)
        return fail("the add menu does not open"_s);
    shoot("add-menu"_s);
    // Two dialogs follow one another: the files, and the count of what was imported.
    bool filesChosen = false;
    const bool imported = m_driver.during([&] { m_driver.click(entry); },
                                          [&] {
                                              filesChosen = filesChosen || m_driver.chooseFiles(paths);
                                              if (told && filesChosen)
                                                  *told = m_driver.messageBoxText();
                                              return filesChosen && m_driver.answerMessageBox("OK"_s);
                                          });
    return expect(filesChosen, "the file dialog for sources does not come"_s) &&
           expect(imported, "the import does not tell what it did"_s);
}

bool Job::addKerno(const QString& title) {
    return expect(m_driver.click(m_canvas.addButton()), "there is no button to add a kerno"_s) &&
           nameNewKerno(title);
}

bool Job::addKerno(const QString& title, const QPointF& place) {
    return addKerno(title) && expect(m_canvas.drag(title, place), "there is no bubble "_s + title);
}

bool Job::nameNewKerno(const QString& title) {
    QQuickItem* field = m_driver.itemNamed("kernoTitle"_s);
    if (!field || !AppDriver::waitFor([&] { return field->hasActiveFocus(); }))
        return fail("the dialog of the new kerno does not take its title"_s);
    m_driver.press(Qt::Key_A, Qt::ControlModifier);
    m_driver.type(title);
    shoot("new-kerno"_s);
    m_driver.press(Qt::Key_Return);
    return gone("Kerno Properties"_s) &&
           until([&] { return m_canvas.bubble(title); }, "no bubble reads "_s + title);
}

bool Job::select(const QString& passage) {
    QString problem;
    return AppDriver::waitFor([&] { return (problem = m_source.select(passage)).isEmpty(); }) ||
           fail(problem);
}

bool Job::code(const QString& passage, const QString& title) {
    if (!select(passage))
        return false;
    m_source.dragSelectionTo(m_canvas.bubble(title));
    return until([&] { return coded(title).contains(passage); },
                 "\"%1\" is not coded with %2"_s.arg(passage, title));
}

bool Job::codePassage(const QString& text, const QString& words) {
    const QString kerno = "Belonging"_s;
    return importTexts({{"Yard"_s, text}}) && addKerno(kerno) &&
           expect(m_source.read(text), "the text is not shown"_s) && code(words, kerno);
}

QStringList Job::coded(const QString& title) {
    KRNFile* const project = KRNFile::instance();
    QList<Highlight> found;
    for (const Kerno& kerno : project->allKernos()) {
        if (kerno.title() == title)
            found << project->highlightsOfKerno(kerno.id());
    }
    std::sort(found.begin(), found.end(),
              [](const Highlight& a, const Highlight& b) { return a.start() < b.start(); });
    QStringList passages;
    for (const Highlight& coding : qAsConst(found))
        passages << project
                        ->partialAnswer(coding.sourceId(), coding.questionId(), coding.start(),
                                        coding.length())
                        .plainAnswer();
    return passages;
}

bool Job::closeProperties() {
    QQuickItem* title = m_driver.itemNamed("kernoTitle"_s);
    if (!expect(title && AppDriver::waitFor([&] { return title->hasActiveFocus(); }),
                "the dialog of the new kerno does not come"_s))
        return false;
    m_driver.press(Qt::Key_Escape);
    return gone("Kerno Properties"_s);
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
    return until([&] { return undoIndex() == index; }, "the undo stack is not at step %1"_s.arg(index));
}

bool Job::writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
                  "%1 can't be written"_s.arg(path));
}
