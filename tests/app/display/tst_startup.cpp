#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"
#include "tests_support/TestMain.h"

#include <QFontDatabase>
#include <QQuickWindow>

namespace {

/// The windows that are on the display.
QList<QQuickWindow*> shownWindows() {
    QList<QQuickWindow*> windows;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        auto* const quick = qobject_cast<QQuickWindow*>(window);
        if (quick && quick->isExposed())
            windows << quick;
    }
    return windows;
}

bool isMainWindow(const QQuickWindow* window) {
    return window->inherits("KernovaWindow");
}

}  // namespace

/// The program from its first step to its window, on a display. A QML warning on the way fails the test.
class tst_Startup : public QObject {
    Q_OBJECT

private slots:
    void theScreensAppear() {
        Session session(*static_cast<KernovaApplication*>(qApp), startup::setUp());
        QVERIFY(session.load());
        QVERIFY(waitFor([] {
            const QList<QQuickWindow*> windows = shownWindows();
            return windows.size() == 1 && isMainWindow(windows.first());
        }));
        const QImage picture = shownWindows().first()->grabWindow();
        QVERIFY(picture.width() > 200 && picture.height() > 200);
        QVERIFY(QDir().mkpath(QStringLiteral(KERNOVA_SCREENSHOTS)));
        QVERIFY(picture.save(QStringLiteral(KERNOVA_SCREENSHOTS "/startup.png")));
    }

    void theFontsAreTheProgramsOwn() {
        const QStringList families = QFontDatabase().families();
        for (const char* family : {"Lato", "Open Sans", "Source Code Pro"})
            QVERIFY2(families.contains(QString::fromLatin1(family)), family);
        QCOMPARE(QApplication::font().family(), "Lato"_s);
    }
};

int main(int argc, char** argv) {
    TestEnvironment environment;
    // The backend is asked for everywhere; where there is none, Qt falls back.
    expectWarning("Could not create scene graph context for backend 'd3d12'");
    startup::prepare();
    KernovaApplication application(argc, argv);
    tst_Startup test;
    return environment.run(&test, QCoreApplication::arguments());
}
#include "tst_startup.moc"
