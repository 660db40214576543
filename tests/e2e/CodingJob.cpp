#include "CodingJob.h"

#include "app/Session.h"
#include "project/KRNFile.h"
#include "text/HighlightPainting.h"

#include <algorithm>

namespace {

const QString belonging = QStringLiteral("Zugehörigkeit");
const QString food = QStringLiteral("Essen");

// Umlauts take one unit of the text, the pictures two.
const QString text = QStringLiteral("Grüße aus dem Brückenhof 🌻 von Jürgen.\n"
                                    "Die Möhren 🥕🥕 sind größer als im Frühling.\n"
                                    "Später kochen wir zusammen für alle Nachbarn im Hof.\n");
const QString first = QStringLiteral("dem Brückenhof 🌻 von");
const QString second = QStringLiteral("🌻 von Jürgen");
const QString carrots = QStringLiteral("Möhren 🥕🥕 sind");
const QString cooking = QStringLiteral("kochen wir zusammen");

}  // namespace

bool CodingJob::play(const QString&) {
    return signIn() && createProject(path(QStringLiteral("coding.krn"))) && readSource() &&
           addKerno(belonging) && m_canvas.drag(belonging, QPointF(200, 200)) && addKerno(food) &&
           m_canvas.drag(food, QPointF(400, 300)) && codeOverlapping() && codeTwice() && codeByKey() &&
           hoverStripe() && removeHighlight() && writeMemo() && editMemo() && removeMemo();
}

bool CodingJob::readSource() {
    const QString file = path(QStringLiteral("Grüße 🌻.txt"));
    return writeFile(file, text) && importFiles({file}) &&
           expect(m_source.read(text), QStringLiteral("the text is not shown whole")) &&
           shown(QStringLiteral("Grüße 🌻"));
}

bool CodingJob::select(const QString& passage) {
    const QString problem = m_source.select(passage);
    return expect(problem.isEmpty(), problem);
}

bool CodingJob::codeInto(const QString& passage, const QString& title) {
    if (!select(passage))
        return false;
    m_source.dragSelectionTo(m_canvas.bubble(title));
    return true;
}

bool CodingJob::untilStripes(int count) {
    return until([&] { return m_source.stripes().size() == count; },
                 QStringLiteral("there are %1 stripes, not %2").arg(m_source.stripes().size()).arg(count));
}

QString CodingJob::coded(const QString& title, int number) {
    QList<Highlight> highlights = KRNFile::instance()->highlightsOfKerno(m_canvas.kernoId(title));
    std::sort(highlights.begin(), highlights.end(),
              [](const Highlight& a, const Highlight& b) { return a.start() < b.start(); });
    const Highlight found = highlights.value(number);
    return KRNFile::instance()
        ->partialAnswer(found.sourceId(), found.questionId(), found.start(), found.length())
        .plainAnswer();
}

QList<int> CodingJob::stripeIds() {
    QList<int> ids;
    const QList<QQuickItem*> stripes = m_source.stripes();
    for (const QQuickItem* stripe : stripes)
        ids << stripe->property("highlightId").toInt();
    std::sort(ids.begin(), ids.end());
    return ids;
}

bool CodingJob::codeOverlapping() {
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
    return shoot(QStringLiteral("overlapping")) &&
           expect(stripes[0]->x() < half && stripes[1]->x() >= half,
                  QStringLiteral("the stripes share a column")) &&
           expect(coded(belonging) == first && coded(food) == second,
                  QStringLiteral("coded is \"%1\" and \"%2\"").arg(coded(belonging), coded(food))) &&
           until([&] { return backgroundOf(QStringLiteral("von Jür")) == painting::overlapColor(); },
                 QStringLiteral("the overlap is not painted"));
}

bool CodingJob::codeTwice() {
    const int index = undoIndex();
    const QList<int> before = stripeIds();
    if (!codeInto(first, belonging))
        return false;
    // What shows that nothing came of it is a step that is made after it.
    return codeInto(carrots, food) && untilStripes(3) && untilUndoIndex(index + 1) && undo() &&
           untilStripes(2) &&
           expect(stripeIds() == before, QStringLiteral("coding the same again changes the codings"));
}

bool CodingJob::codeByKey() {
    const int index = undoIndex();
    if (!click(QStringLiteral("Settings")) || !click(QStringLiteral("Kerno Coding Shortcut Keys")) ||
        !shown(QStringLiteral("Kerno Shortcut Key Editor")))
        return false;
    QQuickItem* row = m_driver.itemsOfType(QStringLiteral("ShortcutKeyRow")).value(0);
    if (!expect(row, QStringLiteral("there are no keys")))
        return false;
    const QString key = row->property("shortcutKey").toString();
    shoot(QStringLiteral("keys"));
    m_driver.clickAt(row, QPointF(row->width() - 40, row->height() / 2));
    if (!shoot(QStringLiteral("key-choices")) || !click(food) || !untilUndoIndex(index + 1) ||
        !shoot(QStringLiteral("key-chosen")) || !click(QStringLiteral("OK")) ||
        !gone(QStringLiteral("Kerno Shortcut Key Editor")) || !select(carrots))
        return false;
    m_driver.type(key);
    return untilStripes(3) &&
           expect(coded(food, 1) == carrots, QStringLiteral("coded is \"%1\"").arg(coded(food, 1))) &&
           expect(m_source.selectedText() == carrots, QStringLiteral("the selection is lost")) && undo() &&
           untilStripes(2) && redo() && untilStripes(3) && shoot(QStringLiteral("coded-by-key"));
}

bool CodingJob::hoverStripe() {
    QQuickItem* stripe = m_source.stripes().value(0);
    const QColor color = KRNFile::instance()->kerno(m_canvas.kernoId(belonging)).color();
    m_driver.hover(stripe, QPointF(stripe->width() / 2, stripe->height() / 2));
    const auto titleShown = [&] {
        const QQuickItem* note = m_driver.itemsOfType(QStringLiteral("HighlightToolTip")).value(0);
        return note && note->property("title").toString() == belonging;
    };
    return until(titleShown, QStringLiteral("no note names the stripe's kerno")) &&
           until(
               [&] { return m_source.backgroundAt(m_source.positionOf(QStringLiteral("von Jür"))) == color; },
               QStringLiteral("the passage of the stripe is not painted over the overlap")) &&
           shoot(QStringLiteral("stripe"));
}

bool CodingJob::removeHighlight() {
    const QList<int> before = stripeIds();
    QQuickItem* stripe = m_source.stripes().value(0);
    m_driver.click(stripe, Qt::RightButton);
    return shoot(QStringLiteral("stripe-menu")) && click(QStringLiteral("Remove Highlight")) &&
           untilStripes(2) && undo() && untilStripes(3) &&
           expect(stripeIds() == before, QStringLiteral("undo gives other codings"));
}

bool CodingJob::writeMemo() {
    if (!select(cooking))
        return false;
    m_source.dragSelectionTo(m_driver.itemNamed(QStringLiteral("memosToggle")));
    return until([&] { return m_source.memos().size() == 1; }, QStringLiteral("there is no memo")) &&
           shoot(QStringLiteral("memo"));
}

bool CodingJob::editMemo() {
    const int index = undoIndex();
    const QString note = QStringLiteral("Gemeinsam 🍲 gekocht");
    const auto memo = [&] { return m_source.memos().value(0); };
    const int id = memo()->property("memoId").toInt();
    // The first click makes it the current one, the second places the cursor.
    m_driver.clickAt(memo(), QPointF(40, 10));
    m_driver.clickAt(memo(), QPointF(40, 10));
    m_driver.type(note);
    shoot(QStringLiteral("memo-written"));
    // Losing the focus saves.
    m_driver.clickAt(m_canvas.surface(), QPointF(10, 10));
    return until([&] { return KRNFile::instance()->memo(id).content() == note; },
                 QStringLiteral("the memo is not saved")) &&
           untilUndoIndex(index + 1) && undo() &&
           until([&] { return KRNFile::instance()->memo(id).content().isEmpty(); },
                 QStringLiteral("undo leaves the memo's text")) &&
           redo();
}

bool CodingJob::removeMemo() {
    QQuickItem* memo = m_source.memos().value(0);
    m_driver.clickAt(memo, QPointF(memo->width() - 10, 10), Qt::RightButton);
    return shoot(QStringLiteral("memo-menu")) && click(QStringLiteral("Remove Memo")) &&
           until([&] { return m_source.memos().isEmpty(); }, QStringLiteral("the memo stays")) && undo() &&
           until([&] { return m_source.memos().size() == 1; },
                 QStringLiteral("undo does not bring the memo back")) &&
           shoot(QStringLiteral("memo-back"));
}
