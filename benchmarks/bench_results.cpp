#include "Screens.h"
#include "app/AppHelper.h"

// The results of a search in the window, of 5,000 hits or of as many as the first argument says: how soon the
// first of them stands after the signal, what loading all of them and scrolling through them costs the main
// thread, and how long synonyms take. Then a query over 100,000 codings, as far as its screen.

namespace {

constexpr int sources = 20;
constexpr int screensScrolled = 300;
constexpr int stepMs = 30;
constexpr int rounds = 5;

// The hits lie far enough apart for one result each.
void makeTexts(int hitsPerSource) {
    DataHelper& helper = *KRNFile::instance()->dataHelper();
    const QString filler = text("they spoke of many other things that day and nobody wrote them down ");
    for (int id = 1; id <= sources; ++id) {
        helper.save(QuestionAnswer(
            id, 1, id, author,
            (filler + filler + text("in the end trust came late ")).repeated(hitsPerSource), {}));
    }
    KRNFile::instance()->kernoIds();
    settle();
}

void measureResults(Screens& screens, AppHelper& helper, int hits) {
    screens.makeProject(text("results"), 100, 101);
    makeTexts(hits / sources);
    screens.addHighlights(25000, 100);
    screens.set(text("CentralManager.showSearchPanel = true"));
    settle();

    QElapsedTimer sinceSignal;
    QObject::connect(&helper, &AppHelper::searchResultsAvailable, [&] { sinceSignal.start(); });
    helper.search(text("trust"), 0, false, false, false, {}, {}, true);
    Pulse pulse;
    if (!until([&] { return !screens.shown("SearchResultsItem").isEmpty(); }))
        std::printf("no result comes\n");
    std::printf("the first of %d results stands %lld ms after the signal\n", helper.searchResults()->count(),
                static_cast<long long>(sinceSignal.elapsed()));

    pulse.restart();
    const double before = threadMilliseconds();
    QElapsedTimer loading;
    loading.start();
    QQuickItem* const panel = screens.shown("SearchResultsPanel").value(0);
    const auto* const repeater = panel->property("quotes").value<QQuickItem*>();
    auto* const quotes = panel->findChild<QQuickItem*>(text("quotesView"));
    const auto standing = [&] { return repeater->property("completedComponents").toInt(); };
    until([&] { return standing() >= hits; });
    std::printf("all %d stand after %lld ms, %.0f ms of the main thread; longest pause %.0f ms; %.0f MB\n",
                standing(), static_cast<long long>(loading.elapsed()), threadMilliseconds() - before,
                pulse.longest(), megabytesResident());

    QList<double> steps;
    pulse.restart();
    const double end = quotes->property("contentHeight").toReal() - quotes->height();
    for (int step = 1; step <= screensScrolled; ++step) {
        const double start = threadMilliseconds();
        quotes->setProperty("contentY", end * step / screensScrolled);
        QQuickWindowPrivate::get(screens.window())->polishItems();
        QElapsedTimer rest;
        rest.start();
        until([&] { return rest.elapsed() > stepMs; });
        steps << threadMilliseconds() - start;
    }
    tell("one step of scrolling through them, main thread", steps);
    std::printf(
        "longest pause while scrolling %.0f ms, of which at most %.0f ms were the main thread's own\n",
        pulse.longest(), pulse.longestOwn());
}

// Every quote is found, and the list of kernos stands.
void measureQuery(Screens& screens, int highlights) {
    screens.makeProject(text("query"), 100, 101);
    screens.addHighlights(highlights, 100);
    screens.set(text("CentralManager.showQueryScreen = true"));
    until([&] { return !screens.shown("KernoQueryScreen").isEmpty(); });
    settle();
    QQuickItem* const screen = screens.shown("KernoQueryScreen").value(0);
    const auto* const list = screen->findChild<QQuickItem*>(text("queryKernos"));
    const Took took = timeUntil(
        [&] { QMetaObject::invokeMethod(screen, "query", Q_ARG(QVariant, false), Q_ARG(QVariant, true)); },
        [&] { return list->property("count").toInt() == 100; }, "the query's result");
    tell("a query that finds all codings, to its list of kernos", took);
}

void measureSynonyms(const AppHelper& helper) {
    for (const char* const word : {"trust", "run", "work"}) {
        double best = 1e9;
        int found = 0;
        for (int round = 0; round < rounds; ++round) {
            QElapsedTimer timer;
            timer.start();
            found = helper.synonyms(text(word)).size();
            best = std::min(best, static_cast<double>(timer.nsecsElapsed()) / 1e6);
        }
        std::printf("%d synonyms of \"%s\": %.2f ms\n", found, word, best);
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    startup::prepare();
    KernovaApplication application(argc, argv);
    Session session(application, startup::setUp());
    Screens screens(session);
    if (!screens.start()) {
        std::fputs("The window or the service does not come.\n", stderr);
        return 1;
    }
    measureSynonyms(session.appHelper());
    measureResults(screens, session.appHelper(), argc > 1 ? std::atoi(argv[1]) : 5000);
    measureQuery(screens, 100000);
    KRNFile::instance()->closeAndReset();
    return 0;
}
