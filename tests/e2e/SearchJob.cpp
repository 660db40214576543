#include "SearchJob.h"

#include "app/Session.h"
#include "project/KRNFile.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJSValue>
#include <algorithm>

namespace {

const QString trust = QStringLiteral("Trust");
const QString filler =
    QStringLiteral("They spoke of many other things that day, and nobody wrote them down. ");
// "trust" four times in the first text, three of them far apart, and once in the second.
const QString firstText = QStringLiteral("We learned to trust one another. ") + filler.repeated(3) +
                          QStringLiteral("Nobody trusted the new plan. ") + filler.repeated(3) +
                          QStringLiteral("We had faith in the old one. ") + filler.repeated(3) +
                          QStringLiteral("In the end trust and mistrust lived side by side. ");
const QString secondText =
    QStringLiteral("Work began early. ") + filler.repeated(2) + QStringLiteral("My trust came late.");

}  // namespace

bool SearchJob::play(const QString&) {
    return signIn() && createProject(path(QStringLiteral("search.krn"))) && makeMaterial() && openPanel() &&
           searchByOptions() && searchSynonyms() && restoreFromHistory() && searchByCriteria() && readOn() &&
           copyFromSeveral() && codeHit() && fillHistory() && dock();
}

bool SearchJob::makeMaterial() {
    const QString first = path(QStringLiteral("Anna.txt"));
    const QString second = path(QStringLiteral("Ben.txt"));
    return writeFile(first, firstText) && writeFile(second, secondText) && importFiles({first, second}) &&
           addKerno(trust) && m_canvas.drag(trust, QPointF(150, 150));
}

bool SearchJob::openPanel() {
    QQuickItem* toggleButton = m_driver.itemNamed(QStringLiteral("searchToggle"));
    if (!expect(toggleButton && m_driver.click(toggleButton), QStringLiteral("there is no search toggle")))
        return false;
    QQuickItem* term = m_driver.itemNamed(QStringLiteral("searchTerm"));
    return until([&] { return term && term->hasActiveFocus(); }, QStringLiteral("the term has no focus")) &&
           shown(QStringLiteral("No Data to Display")) && shown(QStringLiteral("Search Results")) &&
           shoot(QStringLiteral("panel"));
}

bool SearchJob::untilResults(int count) {
    QQuickItem* shownCount = m_driver.itemNamed(QStringLiteral("searchResultsCount"));
    return until([&] { return shownCount && shownCount->property("text").toString().toInt() == count; },
                 QStringLiteral("there are %1 results, not %2")
                     .arg(shownCount ? shownCount->property("text").toString() : QString())
                     .arg(count)) &&
           until(
               [&] {
                   const QList<QQuickItem*> items = results();
                   return items.size() == count &&
                          std::all_of(items.cbegin(), items.cend(),
                                      [](QQuickItem* item) { return item->opacity() > 0.99; });
               },
               QStringLiteral("%1 results are drawn, not %2").arg(results().size()).arg(count));
}

bool SearchJob::search(const QString& term, int count) {
    QQuickItem* field = m_driver.itemNamed(QStringLiteral("searchTerm"));
    if (!expect(field && m_driver.fill(field, term), QStringLiteral("the term can't be entered")))
        return false;
    m_driver.press(Qt::Key_Return);
    return untilResults(count);
}

bool SearchJob::toggle(const QString& objectName) {
    QQuickItem* item = m_driver.itemNamed(objectName);
    return expect(item && m_driver.clickAt(item, QPointF(15, item->height() / 2)),
                  QStringLiteral("there is no ") + objectName);
}

bool SearchJob::isOn(const QString& objectName) {
    const QQuickItem* item = m_driver.itemNamed(objectName);
    return item && item->property("checked").toBool();
}

QList<QQuickItem*> SearchJob::results() {
    return m_driver.itemsOfType(QStringLiteral("SearchResultsItem"));
}

bool SearchJob::searchByOptions() {
    return search(QStringLiteral("trust"), 4) && shoot(QStringLiteral("results")) &&
           toggle(QStringLiteral("wholeWords")) && search(QStringLiteral("trust"), 3) &&
           toggle(QStringLiteral("wholeWords")) && toggle(QStringLiteral("alternativeEndings")) &&
           search(QStringLiteral("trusts"), 1) && toggle(QStringLiteral("alternativeEndings")) &&
           toggle(QStringLiteral("searchScope")) && search(QStringLiteral("trust"), 1) &&
           toggle(QStringLiteral("searchScope")) && untilResults(4) &&
           toggle(QStringLiteral("codedTextOnly")) && search(QStringLiteral("trust"), 0) &&
           shown(QStringLiteral("No Results to Display")) && toggle(QStringLiteral("codedTextOnly"));
}

bool SearchJob::searchSynonyms() {
    if (!shown(QStringLiteral("Synonyms Disabled")) || !toggle(QStringLiteral("useSynonyms")) ||
        !shown(QStringLiteral("faith")) || !shoot(QStringLiteral("synonyms")))
        return false;
    QQuickItem* row = m_driver.itemWithText(QStringLiteral("faith"))->parentItem();
    return expect(m_driver.click(partOf(row, QStringLiteral("synonymSwitch"))),
                  QStringLiteral("the synonym has no switch")) &&
           click(QStringLiteral("Search")) && untilResults(5) && shoot(QStringLiteral("synonym-found"));
}

// Any search that comes back covers coded text only.
bool SearchJob::restoreFromHistory() {
    if (!toggle(QStringLiteral("useSynonyms")) || !toggle(QStringLiteral("wholeWords")) ||
        !choose(m_driver.itemNamed(QStringLiteral("searchHistory")),
                QStringLiteral("Term: trusts | ALL: Y | WW: N | SYN: N | ALT: Y | CTO: Y")))
        return false;
    const QQuickItem* term = m_driver.itemNamed(QStringLiteral("searchTerm"));
    return expect(term->property("text").toString() == QLatin1String("trusts") &&
                      isOn(QStringLiteral("alternativeEndings")) && isOn(QStringLiteral("codedTextOnly")) &&
                      !isOn(QStringLiteral("wholeWords")),
                  QStringLiteral("the search is not restored")) &&
           shoot(QStringLiteral("restored")) && toggle(QStringLiteral("codedTextOnly")) &&
           toggle(QStringLiteral("alternativeEndings"));
}

bool SearchJob::searchByCriteria() {
    QQuickItem* row = m_driver.itemsOfType(QStringLiteral("SearchCriterionRow")).value(0);
    return expect(row, QStringLiteral("there are no criteria")) &&
           choose(partOf(row, QStringLiteral("criterionProperty")), QStringLiteral("Author")) &&
           choose(partOf(row, QStringLiteral("criterionOperator")), QStringLiteral("!=")) &&
           search(QStringLiteral("trust"), 0) && shoot(QStringLiteral("criteria")) &&
           expect(m_driver.click(m_driver.itemNamed(QStringLiteral("clearCriteria"))),
                  QStringLiteral("the criteria can't be cleared")) &&
           search(QStringLiteral("trust"), 4);
}

QString SearchJob::textOf(QQuickItem* result) {
    QQuickItem* item = partOf(result, QStringLiteral("answerText"));
    QString text;
    QMetaObject::invokeMethod(item, "getText", Q_RETURN_ARG(QString, text), Q_ARG(int, 0),
                              Q_ARG(int, item->property("length").toInt()));
    return text;
}

int SearchJob::offsetOf(QQuickItem* result) {
    return partOf(result, QStringLiteral("answerText"))->parentItem()->property("offset").toInt();
}

bool SearchJob::readOn() {
    QQuickItem* const second = results().value(1);
    const QList<QQuickItem*> buttons = m_driver.itemsOfType(QStringLiteral("MoreButton"));
    const QString before = textOf(second);
    const int start = offsetOf(second);
    if (!expect(start > 0 && firstText.mid(start, before.size()) == before,
                QStringLiteral("the second result lies at %1 and reads \"%2\"").arg(start).arg(before)))
        return false;
    m_driver.click(buttons.value(2));
    if (!until([&] { return offsetOf(second) < start && textOf(second).endsWith(before); },
               QStringLiteral("nothing comes before the result")))
        return false;
    const QString longer = textOf(second);
    m_driver.click(buttons.value(3));
    return until([&] { return textOf(second).size() > longer.size() && textOf(second).startsWith(longer); },
                 QStringLiteral("nothing comes after the result")) &&
           expect(firstText.mid(offsetOf(second), textOf(second).size()) == textOf(second),
                  QStringLiteral("what was read on is not the text")) &&
           shoot(QStringLiteral("read-on"));
}

bool SearchJob::copyFromSeveral() {
    QQuickItem* all = m_driver.itemNamed(QStringLiteral("selectAllQuotes"));
    if (!expect(all && m_driver.click(all), QStringLiteral("the results can't be selected")) ||
        !shoot(QStringLiteral("selected")) ||
        !m_driver.click(m_driver.itemNamed(QStringLiteral("copySelectedParts"))))
        return fail(QStringLiteral("the selected parts can't be copied"));
    const QString copied = QGuiApplication::clipboard()->text();
    return expect(copied.count(QStringLiteral("-- Anna --")) == 3 &&
                      copied.count(QStringLiteral("-- Ben --")) == 1 &&
                      copied.contains(QStringLiteral("My trust came late.")),
                  QStringLiteral("copied is \"%1\"").arg(copied)) &&
           m_driver.click(all);
}

// A hit is coded like any text: its place counts in the whole text.
bool SearchJob::codeHit() {
    QQuickItem* text = partOf(results().last(), QStringLiteral("answerText"));
    QMetaObject::invokeMethod(text, "selectAll");
    const int start = offsetOf(results().last());
    QQuickItem* const panel = m_driver.itemNamed(QStringLiteral("searchPanel"));
    const qreal out = panel->x();
    qreal farthest = out;
    const auto watching =
        QObject::connect(panel, &QQuickItem::xChanged, [&] { farthest = std::max(farthest, panel->x()); });
    const QString selected = text->property("selectedText").toString();
    m_driver.drag(text, QPointF(60, text->property("contentHeight").toReal() / 2), m_canvas.bubble(trust),
                  QPointF(30, 30));
    QObject::disconnect(watching);
    const auto coded = [&] {
        return KRNFile::instance()->highlightsOfKerno(m_canvas.kernoId(trust)).value(0);
    };
    return until([&] { return coded().isValid(); }, QStringLiteral("the hit is not coded")) &&
           expect(coded().start() == start && coded().length() == selected.size() &&
                      secondText.mid(coded().start(), coded().length()) == selected,
                  QStringLiteral("coded is [%1, %2)").arg(coded().start()).arg(coded().end())) &&
           expect(farthest > out + 100, QStringLiteral("the panel stays before the bubbles")) &&
           until([&] { return panel->x() == out; }, QStringLiteral("the panel does not come back")) &&
           shoot(QStringLiteral("hit-coded")) && toggle(QStringLiteral("codedTextOnly")) &&
           search(QStringLiteral("trust"), 1) && toggle(QStringLiteral("codedTextOnly"));
}

// The eleventh search takes the place of the one before the oldest.
bool SearchJob::fillHistory() {
    const auto entries = [&] {
        QStringList texts;
        const QVariant list = m_driver.itemNamed(QStringLiteral("searchHistory"))
                                  ->property("entries")
                                  .value<QJSValue>()
                                  .toVariant();
        for (const QVariant& entry : list.toList())
            texts << entry.toMap().value(QStringLiteral("text")).toString().section(QLatin1Char(' '), 1, 1);
        return texts;
    };
    const QString oldest = entries().last();
    QStringList expected;
    for (int number = 1; number <= 11; ++number) {
        const QString term = QStringLiteral("term%1").arg(number);
        if (!search(term, 0))
            return false;
        expected.prepend(term);
    }
    expected = expected.mid(0, 9) << oldest;
    return expect(entries() == expected,
                  QStringLiteral("the history holds ") + entries().join(QLatin1Char(' ')));
}

bool SearchJob::dock() {
    QQuickItem* panel = m_driver.itemNamed(QStringLiteral("searchPanel"));
    const qreal out = panel->x();
    m_driver.click(m_driver.itemNamed(QStringLiteral("dockSearchPanel")));
    if (!until([&] { return panel->x() > out + 100; }, QStringLiteral("the panel does not fold away")) ||
        !shoot(QStringLiteral("docked")))
        return false;
    QQuickItem* button = m_driver.itemNamed(QStringLiteral("dockSearchPanel"));
    m_driver.clickAt(button, QPointF(8, button->height() / 2));
    return until([&] { return panel->x() == out; }, QStringLiteral("the panel does not unfold")) &&
           m_driver.click(m_driver.itemNamed(QStringLiteral("searchToggle")));
}
