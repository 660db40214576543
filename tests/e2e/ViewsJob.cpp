#include "ViewsJob.h"

#include "app/Session.h"
#include "project/KRNFile.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineF>
#include <algorithm>

namespace {

const QString garden = QStringLiteral("Garden");
const QString kitchen = QStringLiteral("Kitchen");
const QString street = QStringLiteral("Street");
const QString herbs = QStringLiteral("Herbs");

const QString text = QStringLiteral("In spring we dig the beds behind the house.\n"
                                    "What we pick in the morning is on the table at noon.\n"
                                    "The road in front of the house has become loud.\n");
const QString bed = QStringLiteral("we dig the beds");
const QString pick = QStringLiteral("What we pick in the morning");
const QString cook = QStringLiteral("the morning is on the table");
const QString both = QStringLiteral("What we pick in the morning is on the table");
const QString road = QStringLiteral("The road in front");
const QString loud = QStringLiteral("has become loud");

QPointF middleOf(const QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
}

}  // namespace

bool ViewsJob::play(const QString&) {
    return signIn() && createProject(path(QStringLiteral("views.krn"))) && makeProject() && openTree() &&
           nestInTree() && codeInTree() && walkTree() && openHierarchy() && selectInHierarchy() &&
           codeQuote() && addChild() && removeChild() && leaveHierarchy() && openOverlaps() &&
           chooseSecond() && copyQuotes() && leaveOverlaps();
}

Kerno ViewsJob::kerno(const QString& title) const {
    const QList<Kerno> all = KRNFile::instance()->allKernos();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Kerno& kerno) { return kerno.title() == title; });
    return found == all.end() ? Kerno() : *found;
}

QStringList ViewsJob::codedIn(const QString& title) const {
    QStringList passages;
    const QList<Highlight> highlights = KRNFile::instance()->highlightsOfKerno(kerno(title).kernoId());
    for (const Highlight& found : highlights) {
        passages << KRNFile::instance()
                        ->partialAnswer(found.sourceId(), found.questionId(), found.start(), found.length())
                        .plainAnswer();
    }
    passages.sort();
    return passages;
}

bool ViewsJob::code(const QString& passage, const QString& title) {
    const QString problem = m_source.select(passage);
    if (!expect(problem.isEmpty(), problem))
        return false;
    m_source.dragSelectionTo(m_canvas.bubble(title));
    return until([&] { return codedIn(title).contains(passage); },
                 QStringLiteral("\"%1\" is not coded").arg(passage));
}

bool ViewsJob::makeProject() {
    const QString file = path(QStringLiteral("A house.txt"));
    if (!writeFile(file, text) || !importFiles({file}) ||
        !expect(m_source.read(text), QStringLiteral("the text is not shown whole")))
        return false;
    const QList<QPair<QString, QPointF>> wanted{
        {garden, {150, 150}}, {kitchen, {450, 150}}, {street, {300, 380}}};
    for (const auto& [title, place] : wanted) {
        if (!addKerno(title) || !expect(m_canvas.drag(title, place), QStringLiteral("nothing to drag")))
            return false;
    }
    return code(bed, garden) && code(pick, garden) && code(cook, kitchen) && code(road, street);
}

QQuickItem* ViewsJob::label(const QString& title) {
    const QList<QQuickItem*> labels = m_driver.itemsOfType(QStringLiteral("TreeViewKerno"));
    for (QQuickItem* label : labels) {
        if (label->property("title").toString() == title)
            return label;
    }
    return nullptr;
}

bool ViewsJob::openTree() {
    return click(QStringLiteral("View")) && click(QStringLiteral("Kernos as Tree View")) &&
           until([&] { return label(garden) && label(kitchen) && label(street); },
                 QStringLiteral("the tree does not come")) &&
           shown(QStringLiteral("2 | Garden")) && shown(QStringLiteral("1 | Street")) &&
           shoot(QStringLiteral("tree"));
}

bool ViewsJob::nestInTree() {
    const int index = undoIndex();
    const auto isNested = [&] {
        return kerno(kitchen).parentKernoId() == kerno(garden).kernoId() && label(kitchen) &&
               label(kitchen)->mapToScene({}).x() > label(garden)->mapToScene({}).x();
    };
    const auto dragOnto = [&](const QString& title, const QString& onto) {
        m_driver.drag(label(title), QPointF(60, 10), label(onto), QPointF(80, 10));
    };
    dragOnto(kitchen, garden);
    if (!until(isNested, QStringLiteral("a dropped label does not become a child")) ||
        !untilUndoIndex(index + 1) || !shown(QStringLiteral("2 (3) | Garden")) ||
        !shoot(QStringLiteral("nested")))
        return false;
    // A kerno with children goes below none that has a parent. What shows that nothing came of it is the undo
    // that takes back the step before.
    dragOnto(garden, kitchen);
    return undo() &&
           until([&] { return kerno(kitchen).parentKernoId() == -1; },
                 QStringLiteral("a refused drop makes a step")) &&
           redo() && until(isNested, QStringLiteral("redo does not nest it again"));
}

bool ViewsJob::codeInTree() {
    const QString problem = m_source.select(loud);
    if (!expect(problem.isEmpty(), problem))
        return false;
    m_source.dragSelectionTo(label(street));
    return shown(QStringLiteral("2 | Street")) &&
           expect(codedIn(street) == QStringList({road, loud}),
                  QStringLiteral("coded is ") + codedIn(street).join(QLatin1Char(','))) &&
           shoot(QStringLiteral("coded-in-tree"));
}

// By keys down from the first label, and on to the hierarchy of the child.
bool ViewsJob::walkTree() {
    m_driver.click(label(garden));
    m_driver.press(Qt::Key_Down);
    if (!until([&] { return label(kitchen)->hasActiveFocus(); }, QStringLiteral("Down does not move")))
        return false;
    shoot(QStringLiteral("tree-keys"));
    m_driver.press(Qt::Key_Return);
    return untilQuotes({cook}) && click(QStringLiteral("Home")) &&
           until([&] { return label(garden) != nullptr; }, QStringLiteral("Home does not lead back")) &&
           click(QStringLiteral("View")) && click(QStringLiteral("Kernos as Tree View")) &&
           until([&] { return m_canvas.bubble(garden) != nullptr; },
                 QStringLiteral("the canvas does not come back"));
}

QStringList ViewsJob::quotes() {
    QList<QQuickItem*> items = m_driver.itemsOfType(QStringLiteral("SearchResultsItem"));
    std::sort(items.begin(), items.end(), [](const QQuickItem* a, const QQuickItem* b) {
        return a->mapToScene({}).y() < b->mapToScene({}).y();
    });
    QStringList texts;
    for (const QQuickItem* item : qAsConst(items)) {
        const auto* edit = item->findChild<QQuickItem*>(QStringLiteral("answerText"));
        QString text;
        if (edit && item->opacity() == 1)
            QMetaObject::invokeMethod(const_cast<QQuickItem*>(edit), "getText", Q_RETURN_ARG(QString, text),
                                      Q_ARG(int, 0), Q_ARG(int, edit->property("length").toInt()));
        texts << text;
    }
    return texts;
}

bool ViewsJob::untilQuotes(const QStringList& texts) {
    if (AppDriver::waitFor([&] { return quotes() == texts; }))
        return true;
    return fail(QStringLiteral("the quotes are \"%1\"").arg(quotes().join(QStringLiteral("\", \""))));
}

bool ViewsJob::openHierarchy() {
    m_canvas.leave();
    m_driver.doubleClick(m_canvas.bubble(garden));
    return untilQuotes({bed, both}) &&
           until([&] { return m_canvas.bubble(garden) && m_canvas.bubble(kitchen); },
                 QStringLiteral("the hierarchy does not show the child")) &&
           expect(!m_canvas.bubble(street), QStringLiteral("a stranger stands in the hierarchy")) &&
           expect(middleOf(m_canvas.bubble(kitchen)).y() > middleOf(m_canvas.bubble(garden)).y(),
                  QStringLiteral("the child is not below")) &&
           shoot(QStringLiteral("hierarchy"));
}

bool ViewsJob::selectInHierarchy() {
    m_driver.click(m_canvas.bubble(kitchen));
    if (!untilQuotes({cook}) || !shoot(QStringLiteral("selected")))
        return false;
    m_driver.click(m_canvas.bubble(kitchen));
    return untilQuotes({bed, both});
}

// Words of a quote that does not begin its answer.
bool ViewsJob::codeQuote() {
    const int index = undoIndex();
    const QString words = QStringLiteral("on the table");
    m_driver.click(m_canvas.bubble(kitchen));
    if (!untilQuotes({cook}) || !expect(m_source.read(cook), QStringLiteral("there is no quote")))
        return false;
    const QString problem = m_source.select(words);
    if (!expect(problem.isEmpty(), problem))
        return false;
    m_source.dragSelectionTo(m_canvas.bubble(garden));
    return until([&] { return codedIn(garden).contains(words); },
                 QStringLiteral("coded is ") + codedIn(garden).join(QLatin1Char(','))) &&
           untilUndoIndex(index + 1) && shoot(QStringLiteral("quote-coded")) && undo();
}

// The selected child is the new one's parent; a third level would be the deepest.
bool ViewsJob::addChild() {
    return addKerno(herbs) &&
           until([&] { return kerno(herbs).parentKernoId() == kerno(kitchen).kernoId(); },
                 QStringLiteral("the new kerno is no child of the selected one")) &&
           expect(middleOf(m_canvas.bubble(herbs)).x() > middleOf(m_canvas.bubble(kitchen)).x(),
                  QStringLiteral("the grandchild is not indented")) &&
           shoot(QStringLiteral("new-child"));
}

bool ViewsJob::removeChild() {
    const auto openMenu = [&](const QString& title) {
        return m_driver.click(m_canvas.bubble(title), Qt::RightButton);
    };
    openMenu(garden);
    QQuickItem* entry = m_driver.itemWithText(QStringLiteral("Delete"));
    shoot(QStringLiteral("hierarchy-menu"));
    m_driver.click(entry);
    m_driver.press(Qt::Key_Escape);
    openMenu(herbs);
    return click(QStringLiteral("Delete")) &&
           until([&] { return !m_canvas.bubble(herbs); }, QStringLiteral("the kerno is not deleted")) &&
           expect(m_canvas.bubble(garden), QStringLiteral("the main kerno can be deleted")) && undo() &&
           until([&] { return m_canvas.bubble(herbs); }, QStringLiteral("undo does not bring it back")) &&
           closeProperties();
}

bool ViewsJob::leaveHierarchy() {
    m_driver.doubleClick(m_canvas.bubble(garden));
    return until([&] { return m_canvas.bubble(street) != nullptr; },
                 QStringLiteral("a double click does not leave the hierarchy"));
}

bool ViewsJob::openOverlaps() {
    if (!expect(m_canvas.chooseInMenu(garden, QStringLiteral("Overlap")), QStringLiteral("there is no menu")))
        return false;
    const auto distance = [&](const QString& title) {
        return QLineF(middleOf(m_canvas.bubble(garden)), middleOf(m_canvas.bubble(title))).length();
    };
    const auto rings = [&] { return m_driver.itemsOfType(QStringLiteral("OverlapRing")).size(); };
    return untilQuotes({bed, pick}) &&
           until([&] { return m_canvas.bubble(kitchen) && m_canvas.bubble(street); },
                 QStringLiteral("not all kernos stand around")) &&
           expect(distance(kitchen) < distance(street),
                  QStringLiteral("who overlaps more does not stand nearer")) &&
           until([&] { return rings() == 2; }, QStringLiteral("there are not two rings")) &&
           shoot(QStringLiteral("overlaps"));
}

bool ViewsJob::chooseSecond() {
    m_driver.click(m_canvas.bubble(kitchen));
    if (!untilQuotes({both}) || !shoot(QStringLiteral("second-kerno")))
        return false;
    m_driver.click(m_canvas.bubble(kitchen));
    return untilQuotes({bed, pick});
}

bool ViewsJob::copyQuotes() {
    m_driver.click(m_driver.itemNamed(QStringLiteral("selectAllQuotes")));
    m_driver.click(m_driver.itemNamed(QStringLiteral("copySelectedParts")));
    const QString expected =
        QStringLiteral("%1\n\n-- A house --\n\n\n%2\n\n-- A house --\n\n\n").arg(bed, pick);
    return until([&] { return QGuiApplication::clipboard()->text() == expected; },
                 QStringLiteral("copied is ") + QGuiApplication::clipboard()->text()) &&
           shoot(QStringLiteral("all-selected"));
}

bool ViewsJob::leaveOverlaps() {
    return click(QStringLiteral("Home")) &&
           until([&] { return m_canvas.surface() && m_canvas.bubble(garden, 0); },
                 QStringLiteral("Home does not lead back")) &&
           until([&] { return m_driver.itemsOfType(QStringLiteral("SearchResultsItem")).isEmpty(); },
                 QStringLiteral("the quotes stay"));
}
