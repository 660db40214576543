#include "Job.h"

#include "app/Session.h"
#include "project/KRNFile.h"
#include "records/Kerno.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineF>
#include <algorithm>

namespace {

const QString garden = "Garden"_s;
const QString kitchen = "Kitchen"_s;
const QString street = "Street"_s;
const QString herbs = "Herbs"_s;

const QString text = "In spring we dig the beds behind the house.\n"
                     "What we pick in the morning is on the table at noon.\n"
                     "The road in front of the house has become loud.\n"_s;
const QString bed = "we dig the beds"_s;
const QString pick = "What we pick in the morning"_s;
const QString cook = "the morning is on the table"_s;
const QString both = "What we pick in the morning is on the table"_s;
const QString road = "The road in front"_s;
const QString loud = "has become loud"_s;

QPointF middleOf(const QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
}

/// Works in the views of the kernos: the tree, the hierarchy and the overlaps, with their quotes beside them.
class ViewsJob : public Job {
public:
    using Job::Job;

    bool play(const QString&) override {
        return signIn() && createProject(path("views.krn"_s)) && makeProject() && openTree() &&
               nestInTree() && codeInTree() && walkTree() && openHierarchy() && selectInHierarchy() &&
               codeQuote() && addChild() && removeChild() && leaveHierarchy() && openOverlaps() &&
               chooseSecond() && copyQuotes() && leaveOverlaps();
    }

private:
    static Kerno kerno(const QString& title) {
        const QList<Kerno> all = KRNFile::instance()->allKernos();
        const auto found = std::find_if(all.begin(), all.end(),
                                        [&](const Kerno& candidate) { return candidate.title() == title; });
        return found == all.end() ? Kerno() : *found;
    }

    bool makeProject() {
        return importTexts({{"A house"_s, text}}) && reads(text) && addKerno(garden, {150, 150}) &&
               addKerno(kitchen, {450, 150}) && addKerno(street, {300, 380}) && code(bed, garden) &&
               code(pick, garden) && code(cook, kitchen) && code(road, street);
    }

    QQuickItem* label(const QString& title) {
        const QList<QQuickItem*> labels = m_driver.itemsOfType("TreeViewKerno"_s);
        for (QQuickItem* label : labels) {
            if (label->property("title").toString() == title)
                return label;
        }
        return nullptr;
    }

    bool openTree() {
        return menu("View"_s, "Kernos as Tree View"_s) &&
               until([&] { return label(garden) && label(kitchen) && label(street); },
                     "the tree does not come"_s) &&
               shown("2 | Garden"_s) && shown("1 | Street"_s) && shoot("tree"_s);
    }

    bool nestInTree() {
        const int index = undoIndex();
        const auto isNested = [&] {
            return kerno(kitchen).parentKernoId() == kerno(garden).kernoId() && label(kitchen) &&
                   label(kitchen)->mapToScene({}).x() > label(garden)->mapToScene({}).x();
        };
        const auto dragOnto = [&](const QString& title, const QString& onto) {
            m_driver.drag(label(title), QPointF(60, 10), label(onto), QPointF(80, 10));
        };
        dragOnto(kitchen, garden);
        if (!until(isNested, "a dropped label does not become a child"_s) || !untilUndoIndex(index + 1) ||
            !shown("2 (3) | Garden"_s) || !shoot("nested"_s))
            return false;
        // A kerno with children goes below none that has a parent. What shows that nothing came of it is the
        // undo that takes back the step before.
        dragOnto(garden, kitchen);
        return undo() &&
               until([&] { return kerno(kitchen).parentKernoId() == -1; }, "a refused drop makes a step"_s) &&
               redo() && until(isNested, "redo does not nest it again"_s);
    }

    bool codeInTree() {
        if (!select(loud))
            return false;
        m_source.dragSelectionTo(label(street));
        return shown("2 | Street"_s) &&
               untilIs("coded"_s, QStringList({road, loud}), [] { return coded(street); }) &&
               shoot("coded-in-tree"_s);
    }

    // By keys down from the first label, and on to the hierarchy of the child.
    bool walkTree() {
        m_driver.click(label(garden));
        m_driver.press(Qt::Key_Down);
        if (!until([&] { return label(kitchen)->hasActiveFocus(); }, "Down does not move"_s))
            return false;
        shoot("tree-keys"_s);
        m_driver.press(Qt::Key_Return);
        return untilQuotes({cook}) && click("Home"_s) &&
               until([&] { return label(garden) != nullptr; }, "Home does not lead back"_s) &&
               menu("View"_s, "Kernos as Tree View"_s) && untilBubble(garden);
    }

    // The texts of the quotes, once all of them stand.
    QStringList quotes() {
        QList<QQuickItem*> items = m_driver.itemsOfType("SearchResultsItem"_s);
        std::sort(items.begin(), items.end(), [](const QQuickItem* a, const QQuickItem* b) {
            return a->mapToScene({}).y() < b->mapToScene({}).y();
        });
        QStringList texts;
        for (const QQuickItem* item : qAsConst(items)) {
            const auto* edit = item->findChild<QQuickItem*>("answerText"_s);
            QString quote;
            if (edit && item->opacity() == 1)
                QMetaObject::invokeMethod(const_cast<QQuickItem*>(edit), "getText",
                                          Q_RETURN_ARG(QString, quote), Q_ARG(int, 0),
                                          Q_ARG(int, edit->property("length").toInt()));
            texts << quote;
        }
        return texts;
    }

    bool untilQuotes(const QStringList& texts) {
        return untilIs("the quotes"_s, texts, [&] { return quotes(); });
    }

    bool openHierarchy() {
        m_canvas.leave();
        m_driver.doubleClick(m_canvas.bubble(garden));
        return untilQuotes({bed, both}) &&
               until([&] { return m_canvas.bubble(garden) && m_canvas.bubble(kitchen); },
                     "the hierarchy does not show the child"_s) &&
               expect(!m_canvas.bubble(street), "a stranger stands in the hierarchy"_s) &&
               expect(middleOf(m_canvas.bubble(kitchen)).y() > middleOf(m_canvas.bubble(garden)).y(),
                      "the child is not below"_s) &&
               shoot("hierarchy"_s);
    }

    bool selectInHierarchy() {
        m_driver.click(m_canvas.bubble(kitchen));
        if (!untilQuotes({cook}) || !shoot("selected"_s))
            return false;
        m_driver.click(m_canvas.bubble(kitchen));
        return untilQuotes({bed, both});
    }

    // Words of a quote that does not begin its answer.
    bool codeQuote() {
        const int index = undoIndex();
        const QString words = "on the table"_s;
        m_driver.click(m_canvas.bubble(kitchen));
        if (!untilQuotes({cook}) || !reads(cook))
            return false;
        return code(words, garden) && untilUndoIndex(index + 1) && shoot("quote-coded"_s) && undo();
    }

    // The selected child is the new one's parent; a third level would be the deepest.
    bool addChild() {
        return addKerno(herbs) &&
               until([&] { return kerno(herbs).parentKernoId() == kerno(kitchen).kernoId(); },
                     "the new kerno is no child of the selected one"_s) &&
               expect(middleOf(m_canvas.bubble(herbs)).x() > middleOf(m_canvas.bubble(kitchen)).x(),
                      "the grandchild is not indented"_s) &&
               shoot("new-child"_s);
    }

    bool removeChild() {
        const auto openMenu = [&](const QString& title) {
            return m_driver.click(m_canvas.bubble(title), Qt::RightButton);
        };
        // Of the main kerno the entry is off.
        openMenu(garden);
        if (!expect(m_driver.entryWithText("Edit"_s), "there is no menu"_s) || !shoot("hierarchy-menu"_s) ||
            !expect(!m_driver.itemWithText("Delete"_s, 0), "the main kerno can be deleted"_s))
            return false;
        m_driver.press(Qt::Key_Escape);
        openMenu(herbs);
        return click("Delete"_s) && untilNoBubble(herbs) &&
               expect(m_canvas.bubble(garden), "the main kerno can be deleted"_s) && undo() &&
               untilBubble(herbs) && closeProperties();
    }

    bool leaveHierarchy() {
        m_driver.doubleClick(m_canvas.bubble(garden));
        return untilBubble(street);
    }

    bool openOverlaps() {
        if (!kernoMenu(garden, "Overlap"_s))
            return false;
        const auto distance = [&](const QString& title) {
            return QLineF(middleOf(m_canvas.bubble(garden)), middleOf(m_canvas.bubble(title))).length();
        };
        const auto rings = [&] { return m_driver.itemsOfType("OverlapRing"_s).size(); };
        return untilQuotes({bed, pick}) &&
               until([&] { return m_canvas.bubble(kitchen) && m_canvas.bubble(street); },
                     "not all kernos stand around"_s) &&
               expect(distance(kitchen) < distance(street), "who overlaps more does not stand nearer"_s) &&
               until([&] { return rings() == 2; }, "there are not two rings"_s) && shoot("overlaps"_s);
    }

    bool chooseSecond() {
        m_driver.click(m_canvas.bubble(kitchen));
        if (!untilQuotes({both}) || !shoot("second-kerno"_s))
            return false;
        m_driver.click(m_canvas.bubble(kitchen));
        return untilQuotes({bed, pick});
    }

    bool copyQuotes() {
        return clickOn("selectAllQuotes"_s) && clickOn("copySelectedParts"_s) &&
               untilIs("copied"_s, "%1\n\n-- A house --\n\n\n%2\n\n-- A house --\n\n\n"_s.arg(bed, pick),
                       [] { return QGuiApplication::clipboard()->text(); }) &&
               shoot("all-selected"_s);
    }

    bool leaveOverlaps() {
        return click("Home"_s) &&
               until([&] { return m_canvas.surface() && m_canvas.bubble(garden, 0); },
                     "Home does not lead back"_s) &&
               until([&] { return m_driver.itemsOfType("SearchResultsItem"_s).isEmpty(); },
                     "the quotes stay"_s);
    }
};

const Played<ViewsJob> played{"views"_s, {"views"_s}};

}  // namespace
