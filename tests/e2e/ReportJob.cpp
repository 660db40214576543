#include "ReportJob.h"

#include "app/ReportViewer.h"
#include "link/IdManager.h"
#include "project/KRNFile.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QJSValue>
#include <QThread>
#include <QTimer>
#include <QWebEngineView>

namespace {

const QString text =
    QString::fromUtf8("The garden was the first thing that we made when we came here.\n"
                      "My mother had brought seeds in a letter; nobody asked her at the border.\n"
                      "In the evening the neighbours came and told us what would never grow.\n"
                      "Most of it grew. The garden taught us the language, plant by plant.\n");
const QStringList kernos{QStringLiteral("Arriving"), QStringLiteral("Memory"), QStringLiteral("Neighbours"),
                         QStringLiteral("Language"), QStringLiteral("Mother")};

}  // namespace

bool ReportJob::play(const QString&) {
    return signIn() && createProject(path(QStringLiteral("report.krn"))) && makeMaterial() && makeReport() &&
           cancelReport() && makeWordCloud() && queryInOnePane() && queryInTwoPanes() && makeQueryReports();
}

bool ReportJob::makeMaterial() {
    const QString file = path(QStringLiteral("The garden.txt"));
    if (!writeFile(file, text) || !importFiles({file}))
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
                                 kernos.at(i), QString(), {}, QStringLiteral("Ann"), 120 + 150 * i,
                                 120 + 80 * (i % 3)));
        kernoIds << id;
        for (int n = 0; n <= i; ++n) {
            const int start = 40 * n + 10 * i;
            codings << Highlight(ids->nextHighlightId(), id, source, question, {}, start, 45, start + 45,
                                 i < 3 ? QStringLiteral("Ann") : QStringLiteral("Ben"), {}, 0, 0, 0, false);
        }
    }
    project->batchSaveHighlights(codings);
    return until([&] { return project->totalHighlightsCount() == codings.size(); },
                 QStringLiteral("the codings are not stored")) &&
           closeProperties() && click(QStringLiteral("Settings")) &&
           click(QStringLiteral("General Project Preferences")) && shown(QStringLiteral("Colour theme:")) &&
           switchOn(0) && switchOn(1) && click(QStringLiteral("Save")) &&
           gone(QStringLiteral("Colour theme:"));
}

bool ReportJob::switchOn(int index) {
    QQuickItem* const found = m_driver.itemsOfType(QStringLiteral("Switch")).value(index);
    return expect(found && m_driver.click(found) && found->property("checked").toBool(),
                  QStringLiteral("a switch does not go on"));
}

bool ReportJob::chooseInMenu(const QString& entry) {
    return click(QStringLiteral("Export")) && click(entry);
}

QVariant ReportJob::ask(const QString& script) {
    QVariant answer;
    QEventLoop loop;
    m_viewer->view()->page()->runJavaScript(script, [&](const QVariant& value) {
        answer = value;
        loop.quit();
    });
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    loop.exec();
    return answer;
}

// The viewer comes up inside of a call of the screens, so what is done with it is done from its event loop.
bool ReportJob::inViewer(const std::function<bool()>& work) {
    bool done = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        m_viewer = qobject_cast<ReportViewer*>(QApplication::activeModalWidget());
        if (!m_viewer || !m_viewer->view())
            return;
        timer.stop();
        const QString ready = QStringLiteral(
            "!!document.querySelector('body.ng-scope') && !document.querySelector('[ng-cloak]')");
        for (int tries = 0; tries < 100 && !ask(ready).toBool(); ++tries)
            QThread::msleep(50);
        done = work();
        m_viewer->close();
    });
    timer.start(100);
    return until([&] { return !timer.isActive(); }, QStringLiteral("the viewer does not come"), 90000) &&
           done;
}

bool ReportJob::shootPage(const QString& name) {
    // Once the page has drawn what changed.
    ask(QStringLiteral(
        "window.drawn = 0; requestAnimationFrame(() => requestAnimationFrame(() => drawn = 1))"));
    for (int tries = 0; tries < 100 && ask(QStringLiteral("drawn")).toInt() == 0; ++tries)
        QThread::msleep(20);
    return shoot(name);
}

bool ReportJob::makeReport() {
    return chooseInMenu(QStringLiteral("Create Report")) && inViewer([&] {
               const QStringList stems{QStringLiteral("default"), QStringLiteral("alpha_asc"),
                                       QStringLiteral("alpha_desc"), QStringLiteral("time_asc"),
                                       QStringLiteral("time_desc")};
               const QDir data(
                   QFileInfo(m_viewer->view()->url().toLocalFile()).dir().filePath(QStringLiteral("data")));
               QStringList pictures;
               for (const QString& stem : stems)
                   pictures << QStringLiteral("main_canvas_%1.png").arg(stem)
                            << QStringLiteral("main_canvas_%1_num.png").arg(stem);
               for (const QVariant& id : KRNFile::instance()->kernoIdsForKernosWithChildren())
                   pictures << QStringLiteral("hierarchy_%1_num.png").arg(id.toInt());
               for (const QVariant& id : KRNFile::instance()->kernoIdsForKernosWithOverlaps())
                   pictures << QStringLiteral("overlap_%1.png").arg(id.toInt())
                            << QStringLiteral("overlap_%1_num.png").arg(id.toInt());
               for (const QString& picture : qAsConst(pictures)) {
                   const QImage image(data.filePath(picture));
                   image.save(path(picture));
                   if (!expect(image.width() > 60 && image.height() > 60,
                               picture + QStringLiteral(" is missing")))
                       return false;
               }
               shootPage(QStringLiteral("report"));
               for (const char* part :
                    {"Main Canvas Views", "Hierarchy Views", "Overlap Views", "Text Sorted by Theme"}) {
                   ask(QStringLiteral(
                           "var s = angular.element(document.body).scope(); s.show_hierarchy_views = true;"
                           "s.show_overlap_views = true; s.$digest(); "
                           "Array.from(document.querySelectorAll('h2'))"
                           ".find(e => e.textContent === '%1').scrollIntoView()")
                           .arg(QString::fromLatin1(part)));
                   shootPage(QString::fromLatin1(part).toLower().replace(QLatin1Char(' '), QLatin1Char('-')));
               }
               const int quotes =
                   ask(QStringLiteral("document.querySelectorAll('#text_by_code blockquote').length"))
                       .toInt();
               return expect(quotes == KRNFile::instance()->totalHighlightsCount(),
                             QStringLiteral("the report shows %1 quotes").arg(quotes));
           }) &&
           noFolderLeft() && gone(QStringLiteral("Generating Report..."));
}

// At the first sight of the progress: a quick machine is done soon.
bool ReportJob::cancelReport() {
    const QString title = QStringLiteral("Generating Report...");
    const bool cancelled = m_driver.during([&] { chooseInMenu(QStringLiteral("Create Report")); },
                                           [&] {
                                               if (!m_driver.isShown(title))
                                                   return false;
                                               shoot(QStringLiteral("progress"));
                                               return m_driver.clickText(QStringLiteral("Cancel"));
                                           });
    return expect(cancelled, QStringLiteral("a report can't be cancelled")) && gone(title) &&
           noFolderLeft() &&
           expect(!QApplication::activeModalWidget(), QStringLiteral("a report that was given up is shown"));
}

bool ReportJob::makeWordCloud() {
    return chooseInMenu(QStringLiteral("Create WordCloud")) && inViewer([&] {
               QThread::msleep(500);
               shootPage(QStringLiteral("word-cloud"));
               const QString most =
                   ask(QStringLiteral("angular.element(document.body).scope().wordlist[0][0]")).toString();
               return expect(most == QLatin1String("came"),
                             QStringLiteral("the most frequent word is ") + most);
           }) &&
           noFolderLeft();
}

QString ReportJob::kernosOf(const QString& pane) {
    QStringList kernos;
    const QQuickItem* panel = m_driver.itemNamed(pane);
    const QVariantList rows =
        panel ? panel->property("result").value<QJSValue>().toVariant().toList() : QVariantList();
    for (const QVariant& row : rows) {
        const QVariantMap map = row.toMap();
        kernos << map.value(QStringLiteral("kerno")).toMap().value(QStringLiteral("title")).toString() +
                      QString::number(map.value(QStringLiteral("highlights")).toList().size());
    }
    return kernos.join(QLatin1Char(' '));
}

bool ReportJob::queryInOnePane() {
    const auto quotesStand = [&] {
        const QList<QQuickItem*> quotes = m_driver.itemsOfType(QStringLiteral("SearchResultsItem"));
        return quotes.size() == 2 && quotes.first()->opacity() == 1;
    };
    return click(QStringLiteral("Query")) && shown(QStringLiteral("Main Query:")) &&
           click(QStringLiteral("Update")) && shown(QStringLiteral("Main Query Highlights: 15")) &&
           expect(kernosOf(QStringLiteral("leftResult")) ==
                      QLatin1String("Mother5 Language4 Neighbours3 Memory2 Arriving1"),
                  QStringLiteral("the query gives ") + kernosOf(QStringLiteral("leftResult"))) &&
           // The rows glide to their places; the picture waits for that.
           shoot(QStringLiteral("query-result")) && click(QStringLiteral("Memory")) &&
           until(quotesStand, QStringLiteral("the kerno's quotes do not come")) &&
           shoot(QStringLiteral("query-quotes"));
}

bool ReportJob::untilOrder(const QString& left, const QString& right) {
    const auto orders = [&] {
        return kernosOf(QStringLiteral("leftResult")) + QLatin1Char('/') +
               kernosOf(QStringLiteral("rightResult"));
    };
    return until([&] { return orders() == left + QLatin1Char('/') + right; },
                 QStringLiteral("the panes are in another order: ") + orders());
}

// Each side asks for one author. Its rows stay while the screen is left.
bool ReportJob::queryInTwoPanes() {
    const auto askFor = [&](const QString& side, const QString& author) {
        QQuickItem* const rows = m_driver.itemNamed(side);
        return choose(partOf(rows, QStringLiteral("queryType")), QStringLiteral("Highlight Author")) &&
               choose(partOf(rows, QStringLiteral("queryValue")), author);
    };
    return click(QStringLiteral("Compare")) && shown(QStringLiteral("Right Query:")) &&
           askFor(QStringLiteral("leftQuery"), QStringLiteral("Ben")) &&
           askFor(QStringLiteral("rightQuery"), QStringLiteral("Ann")) && click(QStringLiteral("Home")) &&
           gone(QStringLiteral("Right Query:")) && click(QStringLiteral("Query")) &&
           click(QStringLiteral("Update")) &&
           shown(QStringLiteral("Left Query Highlights: 9 / Right Query Highlights: 6")) &&
           untilOrder(QStringLiteral("Mother5 Language4 Arriving0 Memory0 Neighbours0"),
                      QStringLiteral("Mother0 Language0 Arriving1 Memory2 Neighbours3")) &&
           click(QStringLiteral("View")) && click(QStringLiteral("Sort by Right Query")) &&
           click(QStringLiteral("Update")) &&
           untilOrder(QStringLiteral("Neighbours0 Memory0 Arriving0 Language4 Mother5"),
                      QStringLiteral("Neighbours3 Memory2 Arriving1 Language0 Mother0")) &&
           shoot(QStringLiteral("query-compared"));
}

// Only what each query finds.
bool ReportJob::makeQueryReports() {
    const auto reports = [&](const QString& entry, int expected) {
        return chooseInMenu(entry) && inViewer([&] {
                   shootPage(QStringLiteral("query-report"));
                   const int quotes =
                       ask(QStringLiteral("document.querySelectorAll('#text_by_code blockquote').length"))
                           .toInt();
                   return expect(quotes == expected,
                                 QStringLiteral("%1 shows %2 quotes").arg(entry).arg(quotes));
               }) &&
               noFolderLeft();
    };
    return reports(QStringLiteral("Left Query Report"), 9) &&
           reports(QStringLiteral("Right Query Report"), 6) && click(QStringLiteral("Home"));
}

bool ReportJob::noFolderLeft() {
    return until(
        [] {
            return QDir(QDir::tempPath())
                .entryList({QStringLiteral("KernovaReport_*"), QStringLiteral("KernovaWordCloud_*")},
                           QDir::Dirs)
                .isEmpty();
        },
        QStringLiteral("the folder stays"));
}
