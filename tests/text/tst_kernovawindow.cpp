#include "tests_support/TestMain.h"
#include "text/KernovaWindow.h"

#include <QCloseEvent>
#include <QResizeEvent>
#include <private/qquickevents_p_p.h>

class tst_KernovaWindow : public QObject {
    Q_OBJECT

private slots:
    void resizingLastsUntilItSettles() {
        KernovaWindow window;
        QSignalSpy changed(&window, &KernovaWindow::isResizingChanged);
        for (int width : {100, 200, 300}) {
            QResizeEvent event(QSize(width, 50), QSize(1, 1));
            QCoreApplication::sendEvent(&window, &event);
            QVERIFY(window.isResizing());
        }
        QCOMPARE(changed.count(), 1);
        QVERIFY(changed.wait());
        QVERIFY(!window.isResizing());
        QCOMPARE(changed.count(), 2);
    }

    void aCloseCanBeRefused() {
        KernovaWindow window;
        bool accept = false;
        connect(&window, &KernovaWindow::windowClosing,
                [&](QQuickCloseEvent* close) { close->setAccepted(accept); });
        QCloseEvent refused;
        QCoreApplication::sendEvent(&window, &refused);
        QVERIFY(!refused.isAccepted());
        accept = true;
        QCloseEvent accepted;
        QCoreApplication::sendEvent(&window, &accepted);
        QVERIFY(accepted.isAccepted());
    }
};

KERNOVA_GUI_TEST_MAIN(tst_KernovaWindow)
#include "tst_kernovawindow.moc"
