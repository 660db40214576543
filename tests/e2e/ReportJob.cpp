#include "Job.h"

#include "app/ReportViewer.h"
#include "link/IdManager.h"
#include "project/KRNFile.h"

#include <QApplication>
#include <QDir>
#include <QJSValue>
#include <QWebEngineView>

namespace {

constexpr int answerMs = 10000;

const QString text = "The garden was the first thing that we made when we came here.\n"
                     "My mother had brought seeds in a letter; nobody asked her at the border.\n"
                     "In the evening the neighbours came and told us what would never grow.\n"
                     "Most of it grew. The garden taught us the language, plant by plant.\n"_s;
const QStringList kernos{"Arriving"_s, "Memory"_s, "Neighbours"_s, "Language"_s, "Mother"_s};

/// Makes reports and a word cloud from the menu to the page, gives one up in the middle, and looks at them.
/// Queries in one pane and in two, and makes a report of each.
class ReportJob : public Job {
public:
    using Job::Job;

    bool play(const QString&) override {
        return signIn() && createProject(path("report.krn"_s)) && makeMaterial() && makeReport() &&
               cancelReport() && makeWordCloud() && queryInOnePane() && queryInTwoPanes() &&
               makeQueryReports();
    }

private:
    bool makeMaterial() {
        if (!importTexts({{"The garden"_s, text}}))
            return false;
        KRNFile* const project = KRNFile::instance();
        IdManager* const ids = IdManager::instance();
        const int source = project->sourceIds().value(0).toInt();
        const int question = project->questionIds().value(0).toInt();
        QList<int> kernoIds;
        QList<Highlight> codings;
        for (int i = 0; i < kernos.size(); ++i) {
            const int id = ids->nextKernoId();
            // The last is a child of the second, so that there is a hierarchy.
            project->saveKerno(Kerno(id, i == 4 ? kernoIds.at(1) : -1, QColor::fromHsv(i * 72, 200, 220),
                                     kernos.at(i), QString(), {}, "Ann"_s, 120 + 150 * i,
                                     120 + 80 * (i % 3)));
            kernoIds << id;
            for (int n = 0; n <= i; ++n) {
                const int start = 40 * n + 10 * i;
                codings << Highlight(ids->nextHighlightId(), id, source, question, {}, start, 45, start + 45,
                                     i < 3 ? "Ann"_s : "Ben"_s, {}, 0, 0, 0, false);
            }
        }
        project->batchSaveHighlights(codings);
        return until([&] { return project->totalHighlightsCount() == codings.size(); },
                     "the codings are not stored"_s) &&
               closeProperties() && menu("Settings"_s, "General Project Preferences"_s) &&
               shown("Colour theme:"_s) && flip(0) && flip(1) && click("Save"_s) && gone("Colour theme:"_s);
    }

    // What a script in the page gives; nothing while the page is busy.
    QVariant ask(const QString& script) {
        const auto answer = std::make_shared<QVariant>();
        const auto answered = std::make_shared<bool>(false);
        m_viewer->view()->page()->runJavaScript(script, [=](const QVariant& value) {
            *answer = value;
            *answered = true;
        });
        AppDriver::waitFor([&] { return *answered; }, answerMs);
        return *answer;
    }

    bool untilPage(const QString& script) {
        return until([&] { return ask(script).toBool(); }, "the page does not come to "_s + script);
    }

    // Makes a page by the export menu, works with it in its viewer, and closes that. The viewer comes up
    // inside of a call of the screens, maybe even of the click, so what is done with it is done from its
    // event loop.
    bool inViewer(const QString& entry, const std::function<bool()>& work) {
        bool done = false;
        const auto viewed = [&] {
            m_viewer = qobject_cast<ReportViewer*>(QApplication::activeModalWidget());
            if (!m_viewer || !m_viewer->view())
                return false;
            done = untilPage("!!document.querySelector('body.ng-scope') && "
                             "!document.querySelector('[ng-cloak]')"_s) &&
                   work();
            m_viewer->view()->setFocus();
            QTest::keyClick(m_viewer->windowHandle(), Qt::Key_Escape);
            done = done && expect(!m_viewer->isVisible(), "Escape doesn't close the page"_s);
            m_viewer->close();
            return true;
        };
        return expect(m_driver.during([&] { menu("Export"_s, entry); }, viewed),
                      "no page comes of "_s + entry) &&
               done && noFolderLeft() && gone("Generating Report..."_s);
    }

    bool shootPage(const QString& name) {
        ask("window.drawn = 0; requestAnimationFrame(() => requestAnimationFrame(() => drawn = 1))"_s);
        return untilPage("drawn"_s) && shoot(name);
    }

    bool showsQuotes(int expected) {
        const int quotes = ask("document.querySelectorAll('#text_by_code blockquote').length"_s).toInt();
        return expect(quotes == expected, "a report shows %1 quotes"_s.arg(quotes));
    }

    bool makeReport() {
        return inViewer("Create Report"_s, [&] {
            const QDir data(QFileInfo(m_viewer->view()->url().toLocalFile()).dir().filePath("data"_s));
            QStringList pictures;
            for (const char* order : {"default", "alpha_asc", "alpha_desc", "time_asc", "time_desc"})
                pictures << "main_canvas_"_s + order << "main_canvas_"_s + order + "_num"_s;
            for (const QVariant& id : KRNFile::instance()->kernoIdsForKernosWithChildren())
                pictures << "hierarchy_%1_num"_s.arg(id.toInt());
            for (const QVariant& id : KRNFile::instance()->kernoIdsForKernosWithOverlaps())
                pictures << "overlap_%1"_s.arg(id.toInt()) << "overlap_%1_num"_s.arg(id.toInt());
            for (const QString& picture : qAsConst(pictures)) {
                const QImage image(data.filePath(picture + ".png"_s));
                image.save(path(picture + ".png"_s));
                if (!expect(image.width() > 60 && image.height() > 60, picture + " is missing"_s))
                    return false;
            }
            for (const char* part :
                 {"Main Canvas Views", "Hierarchy Views", "Overlap Views", "Text Sorted by Theme"}) {
                ask("var s = angular.element(document.body).scope(); s.show_hierarchy_views = true;"
                    "s.show_overlap_views = true; s.$digest(); Array.from(document.querySelectorAll('h2'))"
                    ".find(e => e.textContent === '%1').scrollIntoView()"_s.arg(part));
                if (!shootPage(QString(part).toLower().replace(' ', '-')))
                    return false;
            }
            return showsQuotes(KRNFile::instance()->totalHighlightsCount());
        });
    }

    // In the middle: at the first picture of some twenty, as a quick machine is done soon.
    bool cancelReport() {
        const auto giveUp = [&] {
            const QQuickItem* progress = m_driver.itemNamed("pagesProgress"_s, 0);
            if (!progress || progress->property("value").toReal() <= 0)
                return false;
            m_driver.snapshot("progress"_s);
            return m_driver.clickText("Cancel"_s);
        };
        const bool cancelled = m_driver.during([&] { menu("Export"_s, "Create Report"_s); }, giveUp);
        return expect(cancelled, "a report can't be cancelled"_s) && gone("Generating Report..."_s) &&
               noFolderLeft() &&
               expect(!QApplication::activeModalWidget(), "a report that was given up is shown"_s);
    }

    bool makeWordCloud() {
        const QString words = "angular.element(document.body).scope().wordlist"_s;
        return inViewer("Create WordCloud"_s, [&] {
            return untilPage(words + ".length > 0"_s) && shootPage("word-cloud"_s) &&
                   expect(ask(words + "[0][0]"_s) == "came"_s, "another word is the most frequent one"_s);
        });
    }

    // The titles of the kernos in a pane, each followed by its number of quotes.
    QString kernosOf(const QString& pane) {
        QStringList found;
        const QQuickItem* panel = m_driver.itemNamed(pane);
        const QVariantList rows =
            panel ? panel->property("result").value<QJSValue>().toVariant().toList() : QVariantList();
        for (const QVariant& row : rows) {
            const QVariantMap map = row.toMap();
            found << map.value("kerno"_s).toMap().value("title"_s).toString() +
                         map.value("count"_s).toString();
        }
        return found.join(QLatin1Char(' '));
    }

    bool queryInOnePane() {
        const auto quotesStand = [&] {
            const QList<QQuickItem*> quotes = m_driver.itemsOfType("SearchResultsItem"_s);
            return quotes.size() == 2 && quotes.first()->opacity() == 1;
        };
        const QString found = "Mother5 Language4 Neighbours3 Memory2 Arriving1"_s;
        return click("Query"_s) && shown("Main Query:"_s) && click("Update"_s) &&
               shown("Main Query Highlights: 15"_s) &&
               until([&] { return kernosOf("leftResult"_s) == found; }, "the query gives other kernos"_s) &&
               // The rows glide to their places; the picture waits for that.
               shoot("query-result"_s) && click("Memory"_s) &&
               until(quotesStand, "the kerno's quotes do not come"_s) && shoot("query-quotes"_s);
    }

    bool untilOrder(const QString& left, const QString& right) {
        const auto orders = [&] {
            return kernosOf("leftResult"_s) + QLatin1Char('/') + kernosOf("rightResult"_s);
        };
        return until([&] { return orders() == left + QLatin1Char('/') + right; },
                     "the panes are in another order: "_s + orders());
    }

    // Each side asks for one author. Its rows stay while the screen is left.
    bool queryInTwoPanes() {
        const auto askFor = [&](const QString& side, const QString& author) {
            QQuickItem* const rows = m_driver.itemNamed(side);
            return choose(partOf(rows, "queryType"_s), "Highlight Author"_s) &&
                   choose(partOf(rows, "queryValue"_s), author);
        };
        return click("Compare"_s) && shown("Right Query:"_s) && askFor("leftQuery"_s, "Ben"_s) &&
               askFor("rightQuery"_s, "Ann"_s) && click("Home"_s) && gone("Right Query:"_s) &&
               click("Query"_s) && click("Update"_s) &&
               shown("Left Query Highlights: 9 / Right Query Highlights: 6"_s) &&
               untilOrder("Mother5 Language4 Arriving0 Memory0 Neighbours0"_s,
                          "Mother0 Language0 Arriving1 Memory2 Neighbours3"_s) &&
               menu("View"_s, "Sort by Right Query"_s) && click("Update"_s) &&
               untilOrder("Neighbours0 Memory0 Arriving0 Language4 Mother5"_s,
                          "Neighbours3 Memory2 Arriving1 Language0 Mother0"_s) &&
               shoot("query-compared"_s);
    }

    // Only what each query finds.
    bool makeQueryReports() {
        const auto reports = [&](const QString& entry, int quotes) {
            return inViewer(entry, [&] { return shootPage("query-report"_s) && showsQuotes(quotes); });
        };
        return reports("Left Query Report"_s, 9) && reports("Right Query Report"_s, 6) && click("Home"_s);
    }

    bool noFolderLeft() {
        return until(
            [] {
                return QDir(QDir::tempPath())
                    .entryList({"KernovaReport_*"_s, "KernovaWordCloud_*"_s}, QDir::Dirs)
                    .isEmpty();
            },
            "the folder stays"_s);
    }

    ReportViewer* m_viewer = nullptr;
};

const Played<ReportJob> played{"report"_s, {"report"_s}};

}  // namespace
