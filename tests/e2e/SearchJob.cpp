#include "Job.h"

#include "app/Session.h"
#include "project/KRNFile.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJSValue>
#include <QQuickWindow>
#include <QTest>
#include <algorithm>

namespace {

const QString trust = "Trust"_s;
const QString filler = "They spoke of many other things that day, and nobody wrote them down. "_s;
// "trust" four times in the first text, three of them far apart, and once in the second.
const QString firstText = "We learned to trust one another. "_s + filler.repeated(3) +
                          "Nobody trusted the new plan. "_s + filler.repeated(3) +
                          "We had faith in the old one. "_s + filler.repeated(3) +
                          "In the end trust and mistrust lived side by side. "_s;
const QString secondText = "Work began early. "_s + filler.repeated(2) + "My trust came late."_s;

/// Asks the material: a search by each of its options, and what can be done with its results.
class SearchJob : public Job {
public:
    using Job::Job;

    bool play(const QString&) override {
        return signIn() && createProject(path("search.krn"_s)) && makeMaterial() && openPanel() &&
               searchByOptions() && searchSynonyms() && restoreFromHistory() && searchByCriteria() &&
               readOn() && copyFromSeveral() && codeHit() && fillHistory() && dock();
    }

private:
    bool makeMaterial() {
        return importTexts({{"Anna"_s, firstText}, {"Ben"_s, secondText}}) &&
               addKerno(trust, QPointF(150, 150));
    }

    bool openPanel() {
        return clickOn("searchToggle"_s) && untilFocus("searchTerm"_s) && shown("No Data to Display"_s) &&
               shown("Search Results"_s) && shoot("panel"_s);
    }

    bool untilResults(int count) {
        const QQuickItem* shownCount = m_driver.itemNamed("searchResultsCount"_s);
        const auto drawn = [&] {
            const QList<QQuickItem*> items = results();
            return std::count_if(items.cbegin(), items.cend(),
                                 [](QQuickItem* item) { return item->opacity() > 0.99; });
        };
        return untilIs("results"_s, QString::number(count),
                       [&] { return shownCount->property("text").toString(); }) &&
               untilIs("results that are drawn"_s, std::ptrdiff_t(count), drawn);
    }

    bool search(const QString& term, int count) {
        if (!fill("searchTerm"_s, term))
            return false;
        m_driver.press(Qt::Key_Return);
        return untilResults(count);
    }

    bool isOn(const QString& objectName) {
        const QQuickItem* item = m_driver.itemNamed(objectName);
        return item && item->property("checked").toBool();
    }

    QList<QQuickItem*> results() { return m_driver.itemsOfType("SearchResultsItem"_s); }

    bool searchByOptions() {
        return search("trust"_s, 4) && shoot("results"_s) && toggle("wholeWords"_s) && search("trust"_s, 3) &&
               toggle("wholeWords"_s) && toggle("alternativeEndings"_s) && search("trusts"_s, 1) &&
               toggle("alternativeEndings"_s) && toggle("searchScope"_s) && search("trust"_s, 1) &&
               toggle("searchScope"_s) && untilResults(4) && toggle("codedTextOnly"_s) &&
               search("trust"_s, 0) && shown("No Results to Display"_s) && toggle("codedTextOnly"_s);
    }

    bool searchSynonyms() {
        if (!shown("Synonyms Disabled"_s) || !toggle("useSynonyms"_s) || !shown("faith"_s) ||
            !shoot("synonyms"_s))
            return false;
        QQuickItem* row = m_driver.itemWithText("faith"_s)->parentItem();
        return expect(m_driver.click(partOf(row, "synonymSwitch"_s)), "the synonym has no switch"_s) &&
               click("Search"_s) && untilResults(5) && shoot("synonym-found"_s);
    }

    // Any search that comes back covers coded text only.
    bool restoreFromHistory() {
        if (!toggle("useSynonyms"_s) || !toggle("wholeWords"_s) ||
            !choose(m_driver.itemNamed("searchHistory"_s),
                    "Term: trusts | ALL: Y | WW: N | SYN: N | ALT: Y | CTO: Y"_s))
            return false;
        const QQuickItem* term = m_driver.itemNamed("searchTerm"_s);
        return untilIs("the term"_s, "trusts"_s, [&] { return term->property("text").toString(); }) &&
               expect(isOn("alternativeEndings"_s) && isOn("codedTextOnly"_s) && !isOn("wholeWords"_s),
                      "the options are not restored"_s) &&
               shoot("restored"_s) && toggle("codedTextOnly"_s) && toggle("alternativeEndings"_s);
    }

    bool searchByCriteria() {
        QQuickItem* row = m_driver.itemsOfType("SearchCriterionRow"_s).value(0);
        return expect(row, "there are no criteria"_s) &&
               choose(partOf(row, "criterionProperty"_s), "Author"_s) &&
               choose(partOf(row, "criterionOperator"_s), "!="_s) && search("trust"_s, 0) &&
               shoot("criteria"_s) && clickOn("clearCriteria"_s) && search("trust"_s, 4);
    }

    QString textOf(QQuickItem* result) {
        QQuickItem* item = partOf(result, "answerText"_s);
        QString text;
        QMetaObject::invokeMethod(item, "getText", Q_RETURN_ARG(QString, text), Q_ARG(int, 0),
                                  Q_ARG(int, item->property("length").toInt()));
        return text;
    }

    int offsetOf(QQuickItem* result) {
        return partOf(result, "answerText"_s)->parentItem()->property("offset").toInt();
    }

    bool readOn() {
        QQuickItem* const second = results().value(1);
        const QList<QQuickItem*> buttons = m_driver.itemsOfType("MoreButton"_s);
        const QString before = textOf(second);
        const int start = offsetOf(second);
        if (!expect(start > 0 && firstText.mid(start, before.size()) == before,
                    "the second result lies at %1 and reads \"%2\""_s.arg(start).arg(before)))
            return false;
        m_driver.click(buttons.value(2));
        if (!until([&] { return offsetOf(second) < start && textOf(second).endsWith(before); },
                   "nothing comes before the result"_s))
            return false;
        const QString longer = textOf(second);
        m_driver.click(buttons.value(3));
        return until(
                   [&] { return textOf(second).size() > longer.size() && textOf(second).startsWith(longer); },
                   "nothing comes after the result"_s) &&
               expect(firstText.mid(offsetOf(second), textOf(second).size()) == textOf(second),
                      "what was read on is not the text"_s) &&
               shoot("read-on"_s);
    }

    bool copiesAll(const std::function<void()>& copy) {
        QClipboard* const clipboard = QGuiApplication::clipboard();
        clipboard->clear();
        copy();
        return until([&] { return clipboard->text().contains("My trust came late."_s); },
                     "nothing is copied"_s) &&
               expect(clipboard->text().count("-- Anna --"_s) == 3 &&
                          clipboard->text().count("-- Ben --"_s) == 1,
                      "copied is \"%1\""_s.arg(clipboard->text()));
    }

    // Above the results, and with Ctrl beside one of them.
    bool copyFromSeveral() {
        return clickOn("selectAllQuotes"_s) && shoot("selected"_s) &&
               copiesAll([this] { clickOn("copySelectedParts"_s); }) && copiesAll([this] {
                   QQuickItem* const first = results().first();
                   QWindow* const window = first->window();
                   partOf(first, "answerText"_s)->forceActiveFocus();
                   QTest::keyPress(window, Qt::Key_Control);
                   m_driver.click(partOf(first, "copyQuote"_s));
                   QTest::keyRelease(window, Qt::Key_Control);
               }) &&
               clickOn("selectAllQuotes"_s);
    }

    // A hit is coded like any text: its place counts in the whole text.
    bool codeHit() {
        QQuickItem* text = partOf(results().last(), "answerText"_s);
        QMetaObject::invokeMethod(text, "selectAll");
        const int start = offsetOf(results().last());
        QQuickItem* const panel = m_driver.itemNamed("searchPanel"_s);
        const qreal out = panel->x();
        const QString selected = text->property("selectedText").toString();
        m_driver.drag(text, QPointF(60, text->property("contentHeight").toReal() / 2), m_canvas.bubble(trust),
                      QPointF(30, 30), [&] { return panel->x() > out + 100; });
        const auto hit = [&] {
            return KRNFile::instance()->highlightsOfKerno(m_canvas.kernoId(trust)).value(0);
        };
        return until([&] { return hit().isValid(); }, "the hit is not coded"_s) &&
               expect(hit().start() == start && hit().length() == selected.size() &&
                          secondText.mid(hit().start(), hit().length()) == selected,
                      "coded is [%1, %2)"_s.arg(hit().start()).arg(hit().end())) &&
               until([&] { return panel->x() == out; }, "the panel does not come back"_s) &&
               shoot("hit-coded"_s) && toggle("codedTextOnly"_s) && search("trust"_s, 1) &&
               toggle("codedTextOnly"_s);
    }

    // The eleventh search takes the place of the one before the oldest.
    bool fillHistory() {
        const auto entries = [&] {
            QStringList texts;
            const QVariant list =
                m_driver.itemNamed("searchHistory"_s)->property("entries").value<QJSValue>().toVariant();
            for (const QVariant& entry : list.toList())
                texts << entry.toMap().value("text"_s).toString().section(QLatin1Char(' '), 1, 1);
            return texts;
        };
        const QString oldest = entries().last();
        QStringList expected;
        for (int number = 1; number <= 11; ++number) {
            const QString term = "term%1"_s.arg(number);
            if (!search(term, 0))
                return false;
            expected.prepend(term);
        }
        expected = expected.mid(0, 9) << oldest;
        return untilIs("the history"_s, expected, entries);
    }

    bool dock() {
        QQuickItem* panel = m_driver.itemNamed("searchPanel"_s);
        const qreal out = panel->x();
        clickOn("dockSearchPanel"_s);
        if (!until([&] { return panel->x() > out + 100; }, "the panel does not fold away"_s) ||
            !shoot("docked"_s))
            return false;
        QQuickItem* button = m_driver.itemNamed("dockSearchPanel"_s);
        m_driver.clickAt(button, QPointF(8, button->height() / 2));
        return until([&] { return panel->x() == out; }, "the panel does not unfold"_s) &&
               clickOn("searchToggle"_s);
    }
};

const Played<SearchJob> played{"search"_s, {"ask"_s}};

}  // namespace
