#include "LooksJob.h"

#include "LayoutCheck.h"
#include "app/Session.h"
#include "link/IdManager.h"
#include "models/ChatModel.h"
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
const QString longTitle =
    QStringLiteral("A very long title that somebody has pasted from elsewhere, and never shortened");

QString kernoTitle(int number) {
    return number == 1 ? longTitle : QStringLiteral("Theme %1").arg(number);
}

Highlight codingOf(const Kerno& kerno, int sourceId, int questionId, int start, int length) {
    Highlight highlight;
    highlight.setHighlightId(IdManager::instance()->nextHighlightId());
    highlight.setKernoId(kerno.kernoId());
    highlight.setColor(kerno.color());
    highlight.setSourceId(sourceId);
    highlight.setQuestionId(questionId);
    highlight.setStart(start);
    highlight.setLength(length);
    return highlight;
}

// One value for both sources, and many for the second.
void giveProperties(KRNFile& project, int firstSource, int sourceId) {
    project.saveMetadataKey(SourceMetadataKey(1, false, false, QStringLiteral("Attitude")));
    project.saveMetadataKey(SourceMetadataKey(2, true, false, QStringLiteral("Topics")));
    project.saveMetadataValue(SourceMetadataValue(1, 1, longTitle));
    project.saveMetadata(SourceMetadata(1, sourceId, 1, 1, QStringLiteral("Ada Berger"), {}));
    project.saveMetadata(SourceMetadata(2 + valueCount, firstSource, 1, 1, QStringLiteral("Ada Berger"), {}));
    for (int number = 1; number <= valueCount; ++number) {
        project.saveMetadataValue(SourceMetadataValue(1 + number, 2, QStringLiteral("Value %1").arg(number)));
        project.saveMetadata(
            SourceMetadata(1 + number, sourceId, 2, 1 + number, QStringLiteral("Ada Berger"), {}));
    }
}

}  // namespace

QStringList LooksJob::runs() {
    return {QStringLiteral("dark"), QStringLiteral("light"), QStringLiteral("dark-x2")};
}

bool LooksJob::play(const QString& run) {
    if (!signIn() || !makeLargeProject(run) || !chooseTheme(!run.startsWith(QLatin1String("light"))))
        return false;
    // At more pixels the smallest window takes most of the screen.
    const QString scale = run.section(QLatin1String("-x"), 1);
    const auto inAllSizes = [&](bool (LooksJob::*lookAtScreens)()) {
        for (const QSize& size :
             scale.isEmpty() ? QVector<QSize>{smallest, wholeScreen} : QVector<QSize>{smallest}) {
            m_driver.mainWindow()->setGeometry(QRect(QPoint(0, 0), size));
            m_size = scale.isEmpty() ? QString::number(size.width()) : scale + QLatin1Char('x');
            if (!until([&] { return m_driver.mainWindow()->size() == size; },
                       QStringLiteral("the window keeps its size")) ||
                !(this->*lookAtScreens)())
                return false;
        }
        return true;
    };
    return inAllSizes(&LooksJob::lookAtAll) && makeStructured(run) && inAllSizes(&LooksJob::lookAtQuestions);
}

// A project as it is after years, made at once and not by hand.
bool LooksJob::makeLargeProject(const QString& name) {
    if (!createProject(path(name + QStringLiteral(".krn"))))
        return false;
    QStringList files;
    for (int number = 1; number <= sourceCount; ++number) {
        const QString title = number == sourceCount ? longTitle : QStringLiteral("Interview %1").arg(number);
        files << path(title + QStringLiteral(".txt"));
        if (!writeFile(files.last(),
                       QStringLiteral("This is what was said in interview %1. ").arg(number).repeated(40)))
            return false;
    }
    if (!importFiles(files))
        return false;
    KRNFile* const project = KRNFile::instance();
    IdManager* const ids = IdManager::instance();
    const int firstSource = project->sourceIds().value(0).toInt();
    const int question = project->questionIds().value(0).toInt();
    for (int number = 1; number <= kernoCount; ++number) {
        const QColor color = QColor::fromHsv((number * 47) % 360, 200, 220);
        const Kerno kerno(ids->nextKernoId(), number > 180 ? 1 : -1, color, kernoTitle(number), QString(),
                          QDateTime::currentDateTime(), QStringLiteral("Ada Berger"), 30 + (number % 16) * 40,
                          30 + number / 16 * 38);
        project->saveKerno(kerno);
        if (number % 9 == 1) {
            project->saveHighlight(codingOf(kerno, firstSource, question, number * 3, 20 + number));
        }
    }
    giveProperties(*project, firstSource, project->sourceIds().last().toInt());
    for (const QString& group : {QStringLiteral("Family"), QStringLiteral("Work"), longTitle})
        m_session.undoManager().addGroup(-1, group);
    for (const QString& author :
         {QStringLiteral("Ada Berger"), QStringLiteral("Ben Otto"), QStringLiteral("Ada Berger")}) {
        ChatMessage message;
        message.setChatMessageId(ids->nextChatMessageId());
        message.setAuthor(author);
        message.setMessage(
            QStringLiteral("I wonder whether the garden and the kitchen are two themes or one."));
        project->saveChatMessage(message);
    }
    // The dialog follows the last of them.
    if (!until([=] { return project->getChatModel()->count() == 3; }, QStringLiteral("messages stay away")))
        return false;
    QQuickItem* title = m_driver.itemNamed(QStringLiteral("kernoTitle"));
    AppDriver::waitFor([&] { return title && title->hasActiveFocus(); });
    m_driver.press(Qt::Key_Escape);
    return gone(QStringLiteral("Kerno Properties")) &&
           until([&] { return m_canvas.bubble(longTitle); }, QStringLiteral("the bubbles do not come"));
}

bool LooksJob::look(const QString& name) {
    m_driver.screenshot(m_size + QLatin1Char('-') + name);
    const QStringList faults = layout::screenFaults(m_driver);
    return expect(faults.isEmpty(), m_size + QLatin1Char(' ') + name + QStringLiteral(": ") +
                                        faults.join(QStringLiteral("; ")));
}

bool LooksJob::closeDialog(const QString& name, const QString& text) {
    if (!shown(text) || !look(name))
        return false;
    m_driver.press(Qt::Key_Escape);
    return gone(text);
}

bool LooksJob::lookAtAll() {
    m_canvas.leave();
    return look(QStringLiteral("main")) && lookAtMenus() && lookAtNotes() && lookAtSources() &&
           lookAtEditor(QStringLiteral("Edit Source Text")) && lookAtViews() && lookAtDialogs() &&
           lookAtSearch() && lookAtProperties() && lookAtQuery() && lookAtOpening();
}

bool LooksJob::lookAtMenus() {
    const auto lookAtOpen = [&](const QString& name) {
        const bool fine = look(name);
        m_driver.press(Qt::Key_Escape);
        return fine;
    };
    for (const QString& button :
         {QStringLiteral("Project"), QStringLiteral("Export"), QStringLiteral("View"),
          QStringLiteral("Groups"), QStringLiteral("Help"), QStringLiteral("Settings")}) {
        if (!click(button) || !lookAtOpen(button.toLower() + QStringLiteral("-menu")))
            return false;
    }
    m_driver.click(m_driver.itemNamed(QStringLiteral("addSource")));
    if (!lookAtOpen(QStringLiteral("add-menu")))
        return false;
    m_driver.click(m_canvas.bubble(QStringLiteral("Theme 5")), Qt::RightButton);
    return lookAtOpen(QStringLiteral("kerno-menu"));
}

// What comes up when the mouse rests.
bool LooksJob::lookAtNotes() {
    QQuickItem* toggle = m_driver.itemNamed(QStringLiteral("toggleSources"));
    m_driver.hover(toggle, QPointF(8, 8));
    if (!until([] { return QToolTip::isVisible(); },
               QStringLiteral("a button does not tell what it is for")) ||
        !look(QStringLiteral("tooltip")))
        return false;
    QQuickItem* bubble = m_canvas.bubble(QStringLiteral("Theme 28"));
    m_driver.hover(bubble, QPointF(bubble->width() / 2, bubble->height() / 2));
    const auto isTold = [&] {
        const QQuickItem* note = m_driver.itemsOfType(QStringLiteral("GeneralKernoToolTip")).value(0);
        return note && note->opacity() > 0.89;
    };
    const bool fine = until(isTold, QStringLiteral("a bubble does not tell about its kerno")) &&
                      look(QStringLiteral("kerno-tooltip"));
    m_canvas.leave();
    return fine;
}

bool LooksJob::lookAtSources() {
    QQuickItem* toggle = m_driver.itemNamed(QStringLiteral("toggleSources"));
    QQuickItem* memos = m_driver.itemNamed(QStringLiteral("memosToggle"));
    m_driver.click(toggle);
    if (!shown(QStringLiteral("All Sources")) || !look(QStringLiteral("sources")) || !filterSources())
        return false;
    m_driver.click(toggle);
    if (!gone(QStringLiteral("All Sources")))
        return false;
    m_driver.click(memos);
    const bool fine = look(QStringLiteral("memos"));
    m_driver.click(memos);
    return fine;
}

// The filter is an expression over the titles. It changes the list alone, and no tab.
bool LooksJob::filterSources() {
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("sourceFilter"));
    const auto rows = [&] { return m_driver.itemsOfType(QStringLiteral("SourceRow")).size(); };
    const auto tabs = [&] { return m_driver.itemsOfType(QStringLiteral("TabShape")).size(); };
    const int allRows = rows();
    const int allTabs = tabs();
    return expect(field && m_driver.fill(field, QStringLiteral("VIEW 7$")),
                  QStringLiteral("the sources have no filter")) &&
           until([&] { return rows() == 1; }, QStringLiteral("the filter leaves other sources")) &&
           expect(tabs() == allTabs, QStringLiteral("a filtered list takes tabs away")) &&
           m_driver.fill(field, QString()) &&
           until([&] { return rows() == allRows; }, QStringLiteral("sources stay away"));
}

// The first kerno has children and quotes; the tenth shares some of them.
bool LooksJob::lookAtViews() {
    const auto home = [&] {
        return click(QStringLiteral("Home")) &&
               until([&] { return m_canvas.bubble(QStringLiteral("Theme 5"), 0); },
                     QStringLiteral("the canvas does not come back"));
    };
    const auto toggleTree = [&] {
        return click(QStringLiteral("View")) && click(QStringLiteral("Kernos as Tree View"));
    };
    const auto stands = [&](const char* type, int count) {
        return until([&] { return m_driver.itemsOfType(QString::fromLatin1(type)).size() >= count; },
                     QStringLiteral("there are too few ") + QString::fromLatin1(type));
    };
    const auto quotesStand = [&] {
        return until(
            [&] {
                const QQuickItem* quote = m_driver.itemsOfType(QStringLiteral("SearchResultsItem")).value(0);
                return quote && quote->opacity() == 1;
            },
            QStringLiteral("no quote stands"));
    };
    if (!toggleTree() || !stands("TreeViewKerno", kernoCount) || !look(QStringLiteral("tree")) ||
        !toggleTree() || !home() ||
        !m_canvas.chooseInMenu(QStringLiteral("Theme 10"), QStringLiteral("Overlap")) ||
        !stands("KernoViewBubble", kernoCount) || !quotesStand() || !look(QStringLiteral("overlap")))
        return false;
    QQuickItem* inner = m_canvas.bubble(QStringLiteral("Theme 19"));
    m_driver.click(inner);
    m_driver.hover(inner, QPointF(20, 20));
    const auto isTold = [&] {
        const QQuickItem* note = m_driver.itemsOfType(QStringLiteral("GeneralKernoToolTip")).value(0);
        return note && note->opacity() > 0.89;
    };
    if (!until(isTold, QStringLiteral("a bubble does not tell about its overlaps")) || !quotesStand() ||
        !look(QStringLiteral("overlap-second")) || !home() ||
        !m_canvas.chooseInMenu(longTitle, QStringLiteral("Overview")) || !stands("HierarchyRow", 20) ||
        !quotesStand() || !look(QStringLiteral("hierarchy")))
        return false;
    m_driver.click(m_canvas.bubble(QStringLiteral("Theme 181")));
    return quotesStand() && look(QStringLiteral("hierarchy-selected")) && home();
}

// Each is closed by Esc.
bool LooksJob::lookAtDialogs() {
    const QString themeFive = QStringLiteral("Theme 5");
    QGuiApplication::clipboard()->setText(QStringLiteral("Somebody said this elsewhere. ").repeated(200));
    m_driver.click(m_driver.itemNamed(QStringLiteral("addSource")));
    return click(QStringLiteral("Import Source: From Clipboard")) &&
           closeDialog(QStringLiteral("import"), QStringLiteral("Source Title:")) &&
           click(QStringLiteral("Help")) && click(QStringLiteral("About")) &&
           closeDialog(QStringLiteral("about"), QStringLiteral("Go to Website")) &&
           click(QStringLiteral("Settings")) && click(QStringLiteral("General Project Preferences")) &&
           closeDialog(QStringLiteral("preferences"), QStringLiteral("General Preferences")) &&
           click(QStringLiteral("Settings")) && click(QStringLiteral("Kerno Coding Shortcut Keys")) &&
           closeDialog(QStringLiteral("keys"), QStringLiteral("Kerno Shortcut Key Editor")) &&
           m_canvas.chooseInMenu(themeFive, QStringLiteral("Edit")) &&
           closeDialog(QStringLiteral("kerno"), QStringLiteral("Kerno Properties")) &&
           m_canvas.chooseInMenu(themeFive, QStringLiteral("Merge")) &&
           closeDialog(QStringLiteral("merge"), QStringLiteral("Merge into:")) && lookAtEditBar() &&
           click(QStringLiteral("Groups")) && click(QStringLiteral("New/Change Group")) &&
           closeDialog(QStringLiteral("groups"), QStringLiteral("Edit Groups")) &&
           click(QStringLiteral("Export")) && click(QStringLiteral("Export as REFI-QDA")) &&
           closeDialog(QStringLiteral("exchange"), QStringLiteral("Save As...")) &&
           click(QStringLiteral("Project")) && click(QStringLiteral("Merge Projects")) &&
           closeDialog(QStringLiteral("merge-projects"), QStringLiteral("Change Master Project")) &&
           click(QStringLiteral("Help")) && click(QStringLiteral("Keyboard Shortcuts")) &&
           closeDialog(QStringLiteral("sheet"), QStringLiteral("On the canvas")) &&
           click(QStringLiteral("Help")) && click(QStringLiteral("Show Introduction")) &&
           closeDialog(QStringLiteral("introduction"), QStringLiteral("Add Sources")) && lookAtCodeWith() &&
           lookAtTable() && lookAtReport() && lookAtChat();
}

bool LooksJob::lookAtEditBar() {
    const auto toggle = [&] {
        return click(QStringLiteral("View")) && click(QStringLiteral("Quick Edit Bar"));
    };
    if (!toggle() || !look(QStringLiteral("edit-bar-empty")))
        return false;
    m_driver.click(m_canvas.bubble(QStringLiteral("Theme 5")));
    m_canvas.leave();
    return look(QStringLiteral("edit-bar")) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("editBarGroups"))) &&
           closeDialog(QStringLiteral("groups-of-kerno"), QStringLiteral("Groups of ")) && toggle();
}

bool LooksJob::lookAtCodeWith() {
    QQuickItem* text = m_source.textItem();
    QMetaObject::invokeMethod(text, "select", Q_ARG(int, 3), Q_ARG(int, 40));
    text->forceActiveFocus();
    m_driver.press(Qt::Key_K, Qt::ControlModifier);
    return closeDialog(QStringLiteral("code-with"), QStringLiteral("Code with..."));
}

// A table with more columns than there is room for, and a report on its way, which is given up.
bool LooksJob::lookAtTable() {
    const QString table = path(QStringLiteral("columns.csv"));
    QStringList names{longTitle};
    for (int number = 1; number <= 30; ++number)
        names << QStringLiteral("Column %1").arg(number);
    m_driver.click(m_driver.itemNamed(QStringLiteral("addSource")));
    return writeFile(table, names.join(',') + QStringLiteral("\nAnn\n")) &&
           click(QStringLiteral("Import Sources From CSV")) && shown(QStringLiteral("No file selected.")) &&
           chooseProject(QStringLiteral("Select File"), table) &&
           closeDialog(QStringLiteral("table"), QStringLiteral("Sources to import: 1"));
}

bool LooksJob::lookAtReport() {
    const QString title = QStringLiteral("Generating Report...");
    bool fine = false;
    const bool cancelled =
        m_driver.during([&] { click(QStringLiteral("Export")) && click(QStringLiteral("Create Report")); },
                        [&] {
                            if (!m_driver.isShown(title))
                                return false;
                            fine = look(QStringLiteral("report-progress"));
                            return m_driver.clickText(QStringLiteral("Cancel"));
                        });
    return fine && expect(cancelled, QStringLiteral("a report can't be cancelled")) && gone(title);
}

bool LooksJob::lookAtChat() {
    QQuickItem* toggle = m_driver.itemNamed(QStringLiteral("chatToggle"));
    m_driver.click(toggle);
    const auto bubbles = [&] { return m_driver.itemsOfType(QStringLiteral("ChatItem")).size(); };
    if (!until([&] { return bubbles() >= 3; }, QStringLiteral("the messages do not show")) ||
        !look(QStringLiteral("chat")))
        return false;
    m_driver.click(toggle);
    return true;
}

bool LooksJob::lookAtSearch() {
    QQuickItem* toggle = m_driver.itemNamed(QStringLiteral("searchToggle"));
    m_driver.click(toggle);
    QQuickItem* panel = m_driver.itemNamed(QStringLiteral("searchPanel"));
    QQuickItem* term = m_driver.itemNamed(QStringLiteral("searchTerm"));
    // A click while the panel slides would go beside it.
    if (!until([&] { return panel && panel->x() == 0 && term && term->hasActiveFocus(); },
               QStringLiteral("there is no search panel")) ||
        !m_driver.fill(term, QStringLiteral("interview")))
        return false;
    QQuickItem* synonyms = m_driver.itemNamed(QStringLiteral("useSynonyms"));
    if (!synonyms->property("checked").toBool())
        m_driver.clickAt(synonyms, QPointF(15, synonyms->height() / 2));
    m_driver.press(Qt::Key_Return);
    const auto firstStands = [&] {
        const QList<QQuickItem*> quotes = m_driver.itemsOfType(QStringLiteral("SearchResultsItem"));
        return !quotes.isEmpty() && quotes.first()->opacity() == 1;
    };
    if (!shown(QStringLiteral("consultation")) ||
        !until(firstStands, QStringLiteral("the results do not stand")) || !look(QStringLiteral("search")))
        return false;
    m_driver.click(m_driver.itemNamed(QStringLiteral("dockSearchPanel")));
    const bool fine = look(QStringLiteral("search-docked"));
    m_driver.click(toggle);
    return fine;
}

// A property of 200 values beside one of two, in the panel, in the editor and in the overview.
bool LooksJob::lookAtProperties() {
    QQuickItem* tab = m_driver.itemNamed(QStringLiteral("propertiesTab"));
    return m_driver.click(tab) && shown(QStringLiteral("Source Properties")) &&
           shown(QStringLiteral("Value 1")) && look(QStringLiteral("properties")) &&
           click(QStringLiteral("+")) &&
           closeDialog(QStringLiteral("quick-property"), QStringLiteral("Quick Property Editor")) &&
           click(QStringLiteral("Properties and Values Editor")) && shown(QStringLiteral("New Property")) &&
           click(QStringLiteral("Attitude")) && shown(QStringLiteral("Add Value")) && shown(longTitle) &&
           closeDialog(QStringLiteral("edit-properties"), QStringLiteral("Edit Properties and Values")) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("propertiesOverview"))) &&
           shown(QStringLiteral("Properties Overview")) && shown(longTitle + QStringLiteral(": 2")) &&
           look(QStringLiteral("properties-overview")) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("closeOverviewAndProperties"))) &&
           gone(QStringLiteral("Properties Overview"));
}

bool LooksJob::lookAtQuery() {
    const QString theme = QStringLiteral("Theme 10");
    if (!click(QStringLiteral("Query")) || !shown(QStringLiteral("Main Query:")) ||
        !click(QStringLiteral("Update")) || !click(theme) ||
        !until(
            [&] {
                const auto quotes = m_driver.itemsOfType(QStringLiteral("SearchResultsItem"));
                return quotes.size() == 1 && quotes.first()->opacity() == 1;
            },
            QStringLiteral("a query's quote does not come")) ||
        !look(QStringLiteral("query")) || !click(QStringLiteral("Compare")) ||
        !shown(QStringLiteral("Right Query:")))
        return false;
    // One row on the left. The panel grows in a movement, and what it doesn't show yet can't be clicked.
    const auto allRows = [&] {
        if (m_driver.itemsOfType(QStringLiteral("QueryCriterionDelegate")).size() == 11)
            return true;
        m_driver.click(m_driver.itemNamed(QStringLiteral("addCriterion")));
        return false;
    };
    return until(allRows, QStringLiteral("a query has no ten rows")) && click(QStringLiteral("Update")) &&
           look(QStringLiteral("query-compared")) && click(QStringLiteral("Single")) &&
           click(QStringLiteral("Home")) && gone(QStringLiteral("Main Query:"));
}

bool LooksJob::lookAtOpening() {
    if (!click(QStringLiteral("Project")) || !click(QStringLiteral("Open New or Existing")) ||
        !shown(QStringLiteral("Open Selected")) || !look(QStringLiteral("open")) ||
        !click(QStringLiteral("New Project")))
        return false;
    const QList<QQuickItem*> switches = m_driver.itemsOfType(QStringLiteral("Switch"));
    m_driver.click(switches.value(0));
    const QList<QQuickItem*> fields = m_driver.itemsOfType(QStringLiteral("DialogTextField"));
    m_driver.fill(fields.value(1), QStringLiteral("one"));
    return look(QStringLiteral("new")) && click(QStringLiteral("Cancel")) && gone(QStringLiteral("Author:"));
}
