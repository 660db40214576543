#include "Job.h"

#include "app/Session.h"
#include "project/KRNFile.h"
#include "text/HighlightPainting.h"

#include <algorithm>

namespace {

const QString belonging = "Zugehörigkeit"_s;
const QString food = "Essen"_s;

// Umlauts take one unit of the text, the pictures two.
const QString text = "Grüße aus dem Brückenhof 🌻 von Jürgen.\n"
                     "Die Möhren 🥕🥕 sind größer als im Frühling.\n"
                     "Später kochen wir zusammen für alle Nachbarn im Hof.\n"_s;
const QString first = "dem Brückenhof 🌻 von"_s;
const QString second = "🌻 von Jürgen"_s;
const QString carrots = "Möhren 🥕🥕 sind"_s;
const QString cooking = "kochen wir zusammen"_s;

/// Codes passages of a text with letters beyond the basic plane: overlaps, keys, stripes, and memos.
class CodingJob : public Job {
public:
    using Job::Job;

    bool play(const QString&) override {
        return signIn() && createProject(path("coding.krn"_s)) && readSource() && addKerno(belonging) &&
               m_canvas.drag(belonging, QPointF(200, 200)) && addKerno(food) &&
               m_canvas.drag(food, QPointF(400, 300)) && codeOverlapping() && codeTwice() && codeByKey() &&
               hoverStripe() && removeHighlight() && writeMemo() && editMemo() && removeMemo();
    }

private:
    bool readSource() { return importTexts({{"Grüße 🌻"_s, text}}) && reads(text) && shown("Grüße 🌻"_s); }

    bool codeInto(const QString& passage, const QString& title) {
        if (!select(passage))
            return false;
        m_source.dragSelectionTo(m_canvas.bubble(title));
        return true;
    }

    bool untilStripes(int count) {
        return untilIs("the stripes"_s, count, [&] { return m_source.stripes().size(); });
    }

    // What the coding of a kerno with this number, in the order of the text, holds.
    QList<int> stripeIds() {
        QList<int> ids;
        const QList<QQuickItem*> stripes = m_source.stripes();
        for (const QQuickItem* stripe : stripes)
            ids << stripe->property("highlightId").toInt();
        std::sort(ids.begin(), ids.end());
        return ids;
    }

    bool codeOverlapping() {
        const int index = undoIndex();
        if (!codeInto(first, belonging) || !untilStripes(1) || !codeInto(second, food) || !untilStripes(2) ||
            !untilUndoIndex(index + 2))
            return false;
        m_canvas.leave();
        const QList<QQuickItem*> stripes = m_source.stripes();
        const qreal half = m_source.stripeColumn()->width() / 2;
        const auto backgroundOf = [&](const QString& passage) {
            return m_source.backgroundAt(m_source.positionOf(passage));
        };
        return shoot("overlapping"_s) &&
               expect(stripes[0]->x() < half && stripes[1]->x() >= half, "the stripes share a column"_s) &&
               expect(coded(belonging) + coded(food) == QStringList({first, second}),
                      "coded is another text"_s) &&
               until([&] { return backgroundOf("von Jür"_s) == painting::overlapColor(); },
                     "the overlap is not painted"_s);
    }

    bool codeTwice() {
        const int index = undoIndex();
        const QList<int> before = stripeIds();
        if (!codeInto(first, belonging))
            return false;
        // What shows that nothing came of it is a step that is made after it.
        return codeInto(carrots, food) && untilStripes(3) && untilUndoIndex(index + 1) && undo() &&
               untilStripes(2) &&
               expect(stripeIds() == before, "coding the same again changes the codings"_s);
    }

    bool codeByKey() {
        const int index = undoIndex();
        if (!menu("Settings"_s, "Kerno Coding Shortcut Keys"_s) || !shown("Kerno Shortcut Key Editor"_s))
            return false;
        QQuickItem* row = m_driver.itemsOfType("ShortcutKeyRow"_s).value(0);
        if (!expect(row, "there are no keys"_s))
            return false;
        const QString key = row->property("shortcutKey").toString();
        shoot("keys"_s);
        m_driver.clickAt(row, QPointF(row->width() - 40, row->height() / 2));
        if (!shoot("key-choices"_s) || !click(food) || !untilUndoIndex(index + 1) || !shoot("key-chosen"_s) ||
            !click("OK"_s) || !gone("Kerno Shortcut Key Editor"_s) || !select(carrots))
            return false;
        m_driver.type(key);
        return untilStripes(3) && expect(coded(food).contains(carrots), "other words are coded"_s) &&
               expect(m_source.selectedText() == carrots, "the selection is lost"_s) && undo() &&
               untilStripes(2) && redo() && untilStripes(3) && shoot("coded-by-key"_s);
    }

    bool hoverStripe() {
        QQuickItem* stripe = m_source.stripes().value(0);
        const QColor color = KRNFile::instance()->kerno(m_canvas.kernoId(belonging)).color();
        m_driver.hover(stripe, QPointF(stripe->width() / 2, stripe->height() / 2));
        const auto titleShown = [&] {
            const QQuickItem* note = m_driver.itemsOfType("HighlightToolTip"_s).value(0);
            return note && note->property("title").toString() == belonging;
        };
        return until(titleShown, "no note names the stripe's kerno"_s) &&
               until([&] { return m_source.backgroundAt(m_source.positionOf("von Jür"_s)) == color; },
                     "the passage of the stripe is not painted over the overlap"_s) &&
               shoot("stripe"_s);
    }

    bool removeHighlight() {
        const QList<int> before = stripeIds();
        QQuickItem* stripe = m_source.stripes().value(0);
        m_driver.click(stripe, Qt::RightButton);
        return shoot("stripe-menu"_s) && click("Remove Highlight"_s) && untilStripes(2) && undo() &&
               untilStripes(3) && expect(stripeIds() == before, "undo gives other codings"_s);
    }

    bool writeMemo() {
        if (!select(cooking))
            return false;
        m_source.dragSelectionTo(m_driver.itemNamed("memosToggle"_s));
        return until([&] { return m_source.memos().size() == 1; }, "there is no memo"_s) && shoot("memo"_s);
    }

    bool editMemo() {
        const int index = undoIndex();
        const QString note = "Gemeinsam 🍲 gekocht"_s;
        const auto memo = [&] { return m_source.memos().value(0); };
        const int id = memo()->property("memoId").toInt();
        // The first click makes it the current one, the second places the cursor.
        m_driver.clickAt(memo(), QPointF(40, 10));
        m_driver.clickAt(memo(), QPointF(40, 10));
        m_driver.type(note);
        shoot("memo-written"_s);
        // Losing the focus saves.
        m_driver.clickAt(m_canvas.surface(), QPointF(10, 10));
        return until([&] { return KRNFile::instance()->memo(id).content() == note; },
                     "the memo is not saved"_s) &&
               untilUndoIndex(index + 1) && undo() &&
               until([&] { return KRNFile::instance()->memo(id).content().isEmpty(); },
                     "undo leaves the memo's text"_s) &&
               redo();
    }

    bool removeMemo() {
        QQuickItem* memo = m_source.memos().value(0);
        m_driver.clickAt(memo, QPointF(memo->width() - 10, 10), Qt::RightButton);
        return shoot("memo-menu"_s) && click("Remove Memo"_s) &&
               until([&] { return m_source.memos().isEmpty(); }, "the memo stays"_s) && undo() &&
               until([&] { return m_source.memos().size() == 1; }, "undo does not bring the memo back"_s) &&
               shoot("memo-back"_s);
    }
};

const Played<CodingJob> played{"coding"_s, {"code"_s}};

}  // namespace
