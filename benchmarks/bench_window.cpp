#include "Pulse.h"
#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "models/KernoModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <cstdio>

// The whole program on a display: opening a project that "bench_opening make FILE" has made, until the window
// has drawn it, until the text of a source is shown, and until all texts are here; and the refresh of all
// bubbles after new counts, with the number of codings on them.
//
//   bench_window FILE

namespace {

constexpr int bound = 120000;  // ms

/// What a person does in the window, said to the screens' shared state.
const char* const hands = R"(
    import QtQml 2.15
    import "Components"
    QtObject {
        function open(path) {
            return CentralManager.openProject({ name: path, project_uuid: "" }, "", false, true, true)
        }
        function showSource(id) { CentralManager.currentSourceId = id }
        function showNumbers(shown) { CentralManager.showNumberOfCodingsInKernos = shown }
    }
)";

template <typename Condition> void until(Condition condition) {
    QElapsedTimer clock;
    clock.start();
    while (!condition() && clock.elapsed() < bound)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

QQuickWindow* mainWindow() {
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        if (window->inherits("KernovaWindow"))
            return static_cast<QQuickWindow*>(window);
    }
    return nullptr;
}

/// Runs the event loop until the window has drawn once more from now on.
void untilDrawn(QQuickWindow* window) {
    bool drawn = false;
    QObject context;
    QObject::connect(window, &QQuickWindow::frameSwapped, &context, [&drawn] { drawn = true; });
    window->update();
    until([&drawn] { return drawn; });
}

QQuickItem* textEdit(QQuickItem* item) {
    if (item->isVisible() && item->inherits("KernovaTextEdit") && item->property("length").toInt() > 1000)
        return item;
    for (QQuickItem* child : item->childItems()) {
        if (QQuickItem* found = textEdit(child))
            return found;
    }
    return nullptr;
}

int measure(Session& session, KRNFile& file, const QString& path) {
    QQmlComponent component(&session.engine());
    component.setData(hands, QUrl(QStringLiteral("qrc:/qml/benchmark.qml")));
    const std::unique_ptr<QObject> person(component.create());
    QQuickWindow* window = mainWindow();
    if (window)
        window->setProperty("showFirstTimeIntro", false);
    if (!person || !window || !file.dataHelper()->connection()->connect(false)) {
        std::fprintf(stderr, "The window can't be driven. %s\n", qPrintable(component.errorString()));
        return 1;
    }
    untilDrawn(window);
    const double before = megabytesResident();
    // A timer of its own makes the event loop look at the conditions often enough.
    Pulse pulse;
    QElapsedTimer clock;
    clock.start();
    QVariant opened;
    QMetaObject::invokeMethod(person.get(), "open", Q_RETURN_ARG(QVariant, opened),
                              Q_ARG(QVariant, QVariant(path)));
    if (!opened.toBool()) {
        std::fprintf(stderr, "%s\n", qPrintable(file.getLastOpenError()));
        return 1;
    }
    const qint64 returned = clock.elapsed();
    untilDrawn(window);
    const qint64 drawn = clock.elapsed();
    const double heldByDrawing = pulse.longest();
    pulse.restart();
    const int sourceId = file.sourceModel()->at(file.sourceModel()->rowCount() / 2).id();
    QMetaObject::invokeMethod(person.get(), "showSource", Q_ARG(QVariant, QVariant(sourceId)));
    until([&] { return textEdit(window->contentItem()) != nullptr; });
    untilDrawn(window);
    const qint64 shown = clock.elapsed();
    const double heldByText = pulse.longest();
    pulse.restart();
    int frames = 0;
    QObject counting;
    QObject::connect(window, &QQuickWindow::frameSwapped, &counting, [&frames] { ++frames; });
    until([&] { return file.allTextsHere(); });
    const qint64 complete = clock.elapsed();
    std::printf("opened after %lld ms, drawn after %lld ms (main thread held %.0f ms), text of a source "
                "after %lld ms "
                "(%.0f ms), all texts after %lld ms (%.0f ms, %d frames drawn)\n",
                static_cast<long long>(returned), static_cast<long long>(drawn), heldByDrawing,
                static_cast<long long>(shown), heldByText, static_cast<long long>(complete), pulse.longest(),
                frames);
    QEventLoop rest;
    QTimer::singleShot(3000, &rest, &QEventLoop::quit);
    rest.exec();
    std::printf("resident %.0f MB, %.0f MB before\n", megabytesResident(), before);

    KernoModel& kernos = *file.kernoModel();
    for (const bool numbers : {false, true}) {
        QMetaObject::invokeMethod(person.get(), "showNumbers", Q_ARG(QVariant, QVariant(numbers)));
        untilDrawn(window);
        double best = 1e9;
        for (int round = 1; round <= 5; ++round) {
            QList<KeyVariantValue<int>> counts;
            for (int row = 0; row < kernos.rowCount(); ++row)
                counts.append({kernos.kernoIdAt(row), row % 100 + round, {}});
            clock.restart();
            kernos.quoteCounts()->replace(counts);
            best = qMin(best, static_cast<double>(clock.nsecsElapsed()) / 1e6);
        }
        std::printf("new counts of all %d kernos, %s their numbers: %.0f ms\n", kernos.rowCount(),
                    numbers ? "with" : "without", best);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    startup::prepare();
    KernovaApplication application(argc, argv);
    KRNFile* const file = startup::setUp();
    Session session(application, file);
    return session.load() ? measure(session, *file, application.arguments().value(1)) : 1;
}
