#include "Job.h"

#include "app/Session.h"
#include "link/IdManager.h"
#include "models/ChatModel.h"
#include "models/QuestionAnswerMainModel.h"
#include "project/KRNFile.h"

#include <QClipboard>
#include <QColor>
#include <QDir>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QToolTip>

namespace {

constexpr int kernoCount = 200;
constexpr int sourceCount = 40;
constexpr int valueCount = 200;
const QSize smallest(980, 680);
const QSize wholeScreen(1920, 1080);
const QString longTitle = "A very long title that somebody has pasted from elsewhere, and never shortened"_s;

QString kernoTitle(int number) {
    return number == 1 ? longTitle : "Theme %1"_s.arg(number);
}

Highlight codingOf(const Kerno& kerno, int sourceId, int questionId, int start, int length) {
    return Highlight(IdManager::instance()->nextHighlightId(), kerno.kernoId(), sourceId, questionId,
                     kerno.color(), start, length, start + length, "Ada Berger"_s, {}, 0, 0, 0, false);
}

// One value for both sources, and many for the second.
void giveProperties(KRNFile& project, int firstSource, int sourceId) {
    project.saveMetadataKey(SourceMetadataKey(1, false, false, "Attitude"_s));
    project.saveMetadataKey(SourceMetadataKey(2, true, false, "Topics"_s));
    project.saveMetadataValue(SourceMetadataValue(1, 1, longTitle));
    project.saveMetadata(SourceMetadata(1, sourceId, 1, 1, "Ada Berger"_s, {}));
    project.saveMetadata(SourceMetadata(2 + valueCount, firstSource, 1, 1, "Ada Berger"_s, {}));
    for (int number = 1; number <= valueCount; ++number) {
        project.saveMetadataValue(SourceMetadataValue(1 + number, 2, "Value %1"_s.arg(number)));
        project.saveMetadata(SourceMetadata(1 + number, sourceId, 2, 1 + number, "Ada Berger"_s, {}));
    }
}

/// Goes through all screens of a large project in both themes, in the smallest window and in a whole screen,
/// and looks whether everything can be read.
class LooksJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override {
        if (!signIn() || !makeLargeProject(run) || !chooseTheme(!run.startsWith("light"_s)))
            return false;
        // At more pixels the smallest window takes most of the screen.
        const QString scale = run.section("-x"_s, 1);
        const QVector<QSize> sizes = run.endsWith("-all"_s) ? QVector<QSize>{smallest, wholeScreen}
                                     : run == "dark"_s      ? QVector<QSize>{wholeScreen}
                                                            : QVector<QSize>{smallest};
        const auto inAllSizes = [&](bool (LooksJob::*lookAtScreens)()) {
            for (const QSize& size : sizes) {
                m_size = scale.isEmpty() ? QString::number(size.width()) : scale + QLatin1Char('x');
                if (!resize(size) || !(this->*lookAtScreens)())
                    return false;
            }
            return true;
        };
        return inAllSizes(&LooksJob::lookAtAll) && makeStructured(run) &&
               inAllSizes(&LooksJob::lookAtQuestions);
    }

private:
    // A project as it is after years, made at once and not by hand.
    bool makeLargeProject(const QString& name) {
        if (!createProject(path(name + ".krn"_s)))
            return false;
        QList<QPair<QString, QString>> texts;
        for (int number = 1; number <= sourceCount; ++number)
            texts.append({number == sourceCount ? longTitle : "Interview %1"_s.arg(number),
                          "This is what was said in interview %1. "_s.arg(number).repeated(40)});
        if (!importTexts(texts))
            return false;
        KRNFile* const project = KRNFile::instance();
        IdManager* const ids = IdManager::instance();
        const int firstSource = project->sourceIds().value(0).toInt();
        const int question = project->questionIds().value(0).toInt();
        for (int number = 1; number <= kernoCount; ++number) {
            const Kerno kerno(ids->nextKernoId(), number > 180 ? 1 : -1,
                              QColor::fromHsv((number * 47) % 360, 200, 220), kernoTitle(number), {},
                              QDateTime::currentDateTime(), "Ada Berger"_s, 30 + (number % 16) * 40,
                              30 + number / 16 * 38);
            project->saveKerno(kerno);
            if (number % 9 == 1)
                project->saveHighlight(codingOf(kerno, firstSource, question, number * 3, 20 + number));
        }
        giveProperties(*project, firstSource, project->sourceIds().last().toInt());
        for (const QString& group : {"Family"_s, "Work"_s, longTitle})
            m_session.undoManager().addGroup(-1, group);
        for (const QString& author : {"Ada Berger"_s, "Ben Otto"_s, "Ada Berger"_s}) {
            ChatMessage message;
            message.setChatMessageId(ids->nextChatMessageId());
            message.setAuthor(author);
            message.setMessage("I wonder whether the garden and the kitchen are two themes or one."_s);
            project->saveChatMessage(message);
        }
        // The dialog follows the last of them.
        return untilIs("the messages"_s, 3, [=] { return project->getChatModel()->count(); }) &&
               closeProperties() && untilBubble(longTitle);
    }

    // Pictures are named by the size of the window.
    bool look(const QString& name, bool moving = false) { return Job::look(m_size + '-' + name, moving); }

    // Looks at the dialog that holds the text, and closes it by Esc.
    bool closeDialog(const QString& name, const QString& text) {
        if (!shown(text) || !look(name))
            return false;
        m_driver.press(Qt::Key_Escape);
        return gone(text);
    }

    bool lookAtAll() {
        m_canvas.leave();
        return look("main"_s) && lookAtMenus() && lookAtNotes() && lookAtSources() &&
               lookAtEditor("Edit Source Text"_s) && lookAtViews() && lookAtDialogs() && lookAtSearch() &&
               lookAtProperties() && lookAtQuery() && lookAtOpening();
    }

    bool lookAtMenus() {
        const auto lookAtOpen = [&](const QString& name) {
            const bool opened = until([&] { return !m_driver.popups().isEmpty(); }, "no "_s + name);
            const bool fine = opened && look(name);
            m_driver.press(Qt::Key_Escape);
            return fine && until([&] { return m_driver.popups().isEmpty(); }, name + " stays"_s);
        };
        for (const QString& button :
             {"Project"_s, "Export"_s, "View"_s, "Groups"_s, "Help"_s, "Settings"_s}) {
            if (!click(button) || !lookAtOpen(button.toLower() + "-menu"_s))
                return false;
        }
        return clickOn("addSource"_s) && lookAtOpen("add-menu"_s) &&
               m_driver.click(m_canvas.bubble("Theme 5"_s), Qt::RightButton) && lookAtOpen("kerno-menu"_s);
    }

    bool tellsOfKerno() {
        return until(
            [&] {
                const QQuickItem* note = m_driver.itemsOfType("GeneralKernoToolTip"_s).value(0);
                return note && note->opacity() > 0.89;
            },
            "a bubble does not tell about its kerno"_s);
    }

    bool quotesStand(int count = 1) {
        return until(
            [&] {
                const QList<QQuickItem*> quotes = m_driver.itemsOfType("SearchResultsItem"_s);
                return quotes.size() >= count && quotes.first()->opacity() == 1;
            },
            "no quote stands"_s);
    }

    // What comes up when the mouse rests.
    bool lookAtNotes() {
        QQuickItem* toggle = m_driver.itemNamed("toggleSources"_s);
        m_driver.hover(toggle, QPointF(8, 8));
        if (!until([] { return QToolTip::isVisible(); }, "a button does not tell what it is for"_s) ||
            !look("tooltip"_s))
            return false;
        QQuickItem* bubble = m_canvas.bubble("Theme 28"_s);
        m_driver.hover(bubble, QPointF(bubble->width() / 2, bubble->height() / 2));
        const bool fine = tellsOfKerno() && look("kerno-tooltip"_s);
        m_canvas.leave();
        return fine;
    }

    bool lookAtSources() {
        return clickOn("toggleSources"_s) && shown("All Sources"_s) && look("sources"_s) && filterSources() &&
               clickOn("toggleSources"_s) && gone("All Sources"_s) && clickOn("memosToggle"_s) &&
               look("memos"_s) && clickOn("memosToggle"_s);
    }

    // The filter is an expression over the titles. It changes the list alone, and no tab.
    bool filterSources() {
        const auto rows = [&] { return m_driver.itemsOfType("SourceRow"_s).size(); };
        const auto tabs = [&] { return m_driver.itemsOfType("TabShape"_s).size(); };
        const int allRows = rows();
        const int allTabs = tabs();
        return fill("sourceFilter"_s, "VIEW 7$"_s) && untilIs("the filtered sources"_s, 1, rows) &&
               expect(tabs() == allTabs, "a filtered list takes tabs away"_s) &&
               fill("sourceFilter"_s, QString()) && untilIs("all sources"_s, allRows, rows);
    }

    // The first kerno has children and quotes; the tenth shares some of them.
    bool lookAtViews() {
        const auto home = [&] { return click("Home"_s) && untilBubble("Theme 5"_s, 0); };
        const auto toggleTree = [&] { return menu("View"_s, "Kernos as Tree View"_s); };
        const auto stands = [&](const char* type, int count) {
            return until([&] { return m_driver.itemsOfType(QString::fromLatin1(type)).size() >= count; },
                         "there are too few "_s + QString::fromLatin1(type));
        };
        if (!toggleTree() || !stands("TreeViewKerno", kernoCount) || !look("tree"_s) || !toggleTree() ||
            !home() || !kernoMenu("Theme 10"_s, "Overlap"_s) || !stands("KernoViewBubble", kernoCount) ||
            !quotesStand() || !look("overlap"_s))
            return false;
        QQuickItem* inner = m_canvas.bubble("Theme 19"_s);
        m_driver.click(inner);
        m_driver.hover(inner, QPointF(20, 20));
        if (!tellsOfKerno() || !quotesStand() || !look("overlap-second"_s) || !home() ||
            !kernoMenu(longTitle, "Overview"_s) || !stands("HierarchyRow", 20) || !quotesStand() ||
            !look("hierarchy"_s))
            return false;
        m_driver.click(m_canvas.bubble("Theme 181"_s));
        return quotesStand() && look("hierarchy-selected"_s) && home();
    }

    bool lookAtDialogs() {
        const struct {
            QString button, entry, name, text;
        } dialogs[] = {
            {"Help"_s, "About"_s, "about"_s, "Go to Website"_s},
            {"Settings"_s, "General Project Preferences"_s, "preferences"_s, "General Preferences"_s},
            {"Settings"_s, "Kerno Coding Shortcut Keys"_s, "keys"_s, "Kerno Shortcut Key Editor"_s},
            {"Groups"_s, "New/Change Group"_s, "groups"_s, "Edit Groups"_s},
            {"Export"_s, "Export as REFI-QDA"_s, "exchange"_s, "Save As..."_s},
            {"Project"_s, "Merge Projects"_s, "merge-projects"_s, "Change Master Project"_s},
            {"Help"_s, "Keyboard Shortcuts"_s, "sheet"_s, "On the canvas"_s},
            {"Help"_s, "Show Introduction"_s, "introduction"_s, "Add Sources"_s}};
        for (const auto& dialog : dialogs) {
            if (!menu(dialog.button, dialog.entry) || !closeDialog(dialog.name, dialog.text))
                return false;
        }
        const QString themeFive = "Theme 5"_s;
        QGuiApplication::clipboard()->setText("Somebody said this elsewhere. "_s.repeated(200));
        return addMenu("Import Source: From Clipboard"_s) && closeDialog("import"_s, "Source Title:"_s) &&
               kernoMenu(themeFive, "Edit"_s) && closeDialog("kerno"_s, "Kerno Properties"_s) &&
               kernoMenu(themeFive, "Merge"_s) && closeDialog("merge"_s, "Merge into:"_s) &&
               lookAtEditBar() && lookAtCodeWith() && lookAtTable() && lookAtReport() && lookAtChat();
    }

    bool lookAtEditBar() {
        const auto toggle = [&] { return menu("View"_s, "Quick Edit Bar"_s); };
        if (!toggle() || !look("edit-bar-empty"_s))
            return false;
        m_driver.click(m_canvas.bubble("Theme 5"_s));
        m_canvas.leave();
        return look("edit-bar"_s) && clickOn("editBarGroups"_s) &&
               closeDialog("groups-of-kerno"_s, "Groups of "_s) && toggle();
    }

    bool lookAtCodeWith() {
        QQuickItem* text = m_source.textItem();
        QMetaObject::invokeMethod(text, "select", Q_ARG(int, 3), Q_ARG(int, 40));
        text->forceActiveFocus();
        m_driver.press(Qt::Key_K, Qt::ControlModifier);
        return closeDialog("code-with"_s, "Code with..."_s);
    }

    // A table with more columns than there is room for, and a report on its way, which is given up.
    bool lookAtTable() {
        const QString table = path("columns.csv"_s);
        QStringList names{longTitle};
        for (int number = 1; number <= 30; ++number)
            names << "Column %1"_s.arg(number);
        return writeFile(table, names.join(',') + "\nAnn\n"_s) && addMenu("Import Sources From CSV"_s) &&
               shown("No file selected."_s) &&
               chooseProject("Select File"_s, table, "Sources to import: 1"_s) &&
               closeDialog("table"_s, "Sources to import: 1"_s);
    }

    bool lookAtReport() {
        const QString title = "Generating Report..."_s;
        bool fine = false;
        const bool cancelled = m_driver.during([&] { menu("Export"_s, "Create Report"_s); },
                                               [&] {
                                                   if (!m_driver.isShown(title))
                                                       return false;
                                                   fine = look("report-progress"_s, true);
                                                   return m_driver.clickText("Cancel"_s);
                                               });
        return fine && expect(cancelled, "a report can't be cancelled"_s) && gone(title);
    }

    bool lookAtChat() {
        return clickOn("chatToggle"_s) &&
               untilIs("the messages"_s, 3, [&] { return m_driver.itemsOfType("ChatItem"_s).size(); }) &&
               look("chat"_s) && clickOn("chatToggle"_s);
    }

    bool lookAtSearch() {
        if (!clickOn("searchToggle"_s) || !untilFocus("searchTerm"_s) || !fill("searchTerm"_s, "interview"_s))
            return false;
        if (!m_driver.itemNamed("useSynonyms"_s)->property("checked").toBool())
            toggle("useSynonyms"_s);
        return clickOn("searchTerm"_s) && (m_driver.press(Qt::Key_Return), shown("consultation"_s)) &&
               quotesStand() && look("search"_s) && clickOn("dockSearchPanel"_s) && look("search-docked"_s) &&
               clickOn("searchToggle"_s);
    }

    // A property of 200 values beside one of two, in the panel, in the editor and in the overview.
    bool lookAtProperties() {
        return clickOn("propertiesTab"_s) && shown("Source Properties"_s) && shown("Value 1"_s) &&
               look("properties"_s) && click("+"_s) &&
               closeDialog("quick-property"_s, "Quick Property Editor"_s) &&
               click("Properties and Values Editor"_s) && shown("New Property"_s) && click("Attitude"_s) &&
               shown("Add Value"_s) && shown(longTitle) &&
               closeDialog("edit-properties"_s, "Edit Properties and Values"_s) &&
               clickOn("propertiesOverview"_s) && shown("Properties Overview"_s) &&
               shown(longTitle + ": 2"_s) && look("properties-overview"_s) &&
               clickOn("closeOverviewAndProperties"_s) && gone("Properties Overview"_s);
    }

    bool lookAtQuery() {
        const QString theme = "Theme 10"_s;
        if (!click("Query"_s) || !shown("Main Query:"_s) || !click("Update"_s) || !click(theme) ||
            !quotesStand() || !look("query"_s) || !click("Compare"_s) || !shown("Right Query:"_s))
            return false;
        // One row on the left. The panel grows in a movement, and what it doesn't show yet can't be clicked.
        const auto allRows = [&] {
            if (m_driver.itemsOfType("QueryCriterionDelegate"_s).size() == 11)
                return true;
            clickOn("addCriterion"_s);
            return false;
        };
        return until(allRows, "a query has no ten rows"_s) && click("Update"_s) && look("query-compared"_s) &&
               click("Single"_s) && click("Home"_s) && gone("Main Query:"_s);
    }

    bool lookAtOpening() {
        return showOpenDialog() && look("open"_s) && click("New Project"_s) && flip(0) &&
               fillField(1, "one"_s) && look("new"_s) && click("Cancel"_s) && gone("Author:"_s);
    }

    // The uppermost that has words.
    QQuickItem* firstText() const {
        QQuickItem* first = nullptr;
        for (QQuickItem* item : m_driver.itemsOfType("KernovaTextEdit"_s)) {
            if (item->property("length").toInt() > 0 &&
                (!first || item->mapToScene({}).y() < first->mapToScene({}).y()))
                first = item;
        }
        return first;
    }

    // Texts that have just come may come anew under the menu, which then goes: a person clicks once more.
    bool openMenuOfText() {
        constexpr int soon = 5000;  // ms
        const auto isOpen = [&] { return !m_driver.popups().isEmpty(); };
        return until(
            [&] {
                return m_driver.clickAt(firstText(), QPointF(60, 12), Qt::RightButton) &&
                       AppDriver::waitFor(isOpen, soon);
            },
            "the text has no menu"_s);
    }

    bool lookAtEditor(const QString& entry) {
        SourcePage editor(m_driver, "editedText"_s);
        if (!openMenuOfText())
            return false;
        const int sourceId = firstText()->property("sourceId").toInt();
        const int questionId = firstText()->property("questionId").toInt();
        if (!click(entry) || !until([&] { return editor.textItem() && editor.textItem()->hasActiveFocus(); },
                                    "the text can't be edited"_s))
            return false;
        m_driver.type("Well, "_s);
        m_driver.press(Qt::Key_Escape);
        if (!shown("There are changes. Save them, or drop them by Cancel."_s) || !look("editor"_s))
            return false;
        KRNFile* const project = KRNFile::instance();
        QuestionAnswer answer = project->answerModel()->answer(sourceId, questionId);
        answer.setAnswer(answer.plainAnswer() + "And so on."_s);
        project->saveAnswer(answer);
        return shown("Save as New Source"_s) && look("editor-outdated"_s) && click("Cancel"_s) && gone(entry);
    }

    bool makeStructured(const QString& name) {
        const QString file = path("Answers.txt"_s);
        QString interview;
        for (const char* question :
             {"Where do you live, and with whom?", "And before?",
              "What do you remember of the garden of your grandparents, of its paths and of all "
              "who worked in it when you were a child?"})
            interview += "Question: %1\nAnswer: %2\n"_s.arg(QString::fromUtf8(question),
                                                            "That was long ago. "_s.repeated(30));
        return writeFile(file, interview) && menu("Project"_s, "Open New or Existing"_s) &&
               createProject(path(name + "-questions.krn"_s), true) && lookAtPreview() && click("Import"_s) &&
               gone("Source Title:"_s) && shown("Q:"_s);
    }

    bool lookAtPreview() {
        return addMenu("Import Source: Single File"_s) && shown("Source Title:"_s) &&
               chooseProject("Select File"_s, path("Answers.txt"_s)) && shown("And before?"_s) &&
               look("import-preview"_s);
    }

    bool lookAtQuestions() {
        const QString newQuestion = "New question:"_s;
        if (!look("answers"_s) || !lookAtEditor("Edit Answer"_s) || !lookAtPreview())
            return false;
        m_driver.press(Qt::Key_Escape);
        if (!gone("Source Title:"_s) || !clickOn("questionsTab"_s) || !shown(newQuestion) ||
            !m_driver.fill(m_driver.itemNamed("questionText"_s), "And before?"_s) || !click("Save"_s) ||
            !shown("Question already exists!"_s))
            return false;
        return closeDialog("questions"_s, newQuestion);
    }

    QString m_size;  ///< of the window, for the names of the pictures
};

// Each theme at one size: what is cut off in one is in the other. By --run and QT_SCALE_FACTOR others can be
// played, too, such as "light-all" and "light-x1.5".
const Played<LooksJob> played{"looks"_s, {"dark"_s, "light"_s, "dark-x2"_s}};

}  // namespace
