#include "app/AppHelper.h"
#include "app/CommandLine.h"
#include "app/Crop.h"
#include "app/KernovaApplication.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"
#include "undo/UndoManager.h"

#include <QFileOpenEvent>
#include <QPainter>

class tst_AppHelper : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_file = std::make_unique<KRNFile>();
        m_undo = std::make_unique<UndoManager>(m_file.get());
        m_helper = std::make_unique<AppHelper>(m_undo.get(), m_file.get());
    }

    void cleanup() {
        m_helper.reset();
        m_undo.reset();
        m_file.reset();
    }

    void theCommandLineNamesAProject_data() {
        columns<QStringList, QString>({"arguments", "file"});
        addRow("none", QStringList{}, "");
        addRow("a project", QStringList{"a.krn"}, "a.krn");
        addRow("capitals", QStringList{"b.KRN"}, "b.KRN");
        addRow("the last counts", QStringList{"a.krn", "b.KRN"}, "b.KRN");
        addRow("another kind last", QStringList{"a.krn", "c.txt"}, "");
        addRow("no such file", QStringList{"missing.krn"}, "");
        addRow("a folder", QStringList{"folder.krn"}, "");
    }

    void theCommandLineNamesAProject() {
        FETCH(QStringList, arguments, QString, file);
        QTemporaryDir folder;
        for (const char* name : {"a.krn", "b.KRN", "c.txt"})
            writeBytes(folder.filePath(QString::fromLatin1(name)));
        QDir(folder.path()).mkdir("folder.krn"_s);
        for (QString& argument : arguments)
            argument = folder.filePath(argument);
        arguments.prepend("kernova"_s);
        QCOMPARE(projectFileOf(arguments), file.isEmpty() ? QString() : folder.filePath(file));
    }

    void filesOpenedByTheSystemAreAnnouncedOnce() {
        auto* const application = static_cast<KernovaApplication*>(qApp);
        QSignalSpy changed(m_helper.get(), &AppHelper::userInvokedFileChanged);
        m_helper->clearUserInvokedFile();
        QFileOpenEvent event("/x/any.txt"_s);
        QCoreApplication::sendEvent(application, &event);
        QCOMPARE(changed.count(), 0);
        application->setAppHelper(m_helper.get());
        QCoreApplication::sendEvent(application, &event);
        QCoreApplication::sendEvent(application, &event);
        application->setAppHelper(nullptr);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(m_helper->userInvokedFile(), "/x/any.txt"_s);
        m_helper->clearUserInvokedFile();
        m_helper->clearUserInvokedFile();
        QCOMPARE(changed.count(), 2);
        QVERIFY(m_helper->userInvokedFile().isEmpty());
    }

    void picturesLoseTheirMargins_data() {
        columns<QColor, QRect, QSize>({"background", "drawn", "size"});
        const QColor white(Qt::white);
        addRow("inside", white, QRect(3, 2, 5, 4), QSize(5, 4));
        addRow("one pixel", white, QRect(0, 0, 1, 1), QSize(1, 1));
        addRow("the last pixel", white, QRect(19, 9, 1, 1), QSize(1, 1));
        addRow("everything", white, QRect(0, 0, 20, 10), QSize(20, 10));
        addRow("nothing", white, QRect(), QSize(20, 10));
        addRow("on transparent", QColor(Qt::transparent), QRect(4, 4, 3, 2), QSize(3, 2));
    }

    void picturesLoseTheirMargins() {
        FETCH(QColor, background, QRect, drawn);
        for (const auto format : {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied}) {
            QImage image(20, 10, format);
            image.fill(background);
            QPainter(&image).fillRect(drawn, Qt::red);
            const QImage part = cropped(image, background);
            QTEST(part.size(), "size");
            if (!drawn.isEmpty())
                QCOMPARE(part.pixelColor(part.width() - 1, part.height() - 1), QColor(Qt::red));
        }
    }

    void newKernosLieOnTheCanvas() {
        for (const QSize& canvas : {QSize(2, 2), QSize(7, 9), QSize(1000, 800)}) {
            const QRect allowed(0, 0, canvas.width() - qMax(1, canvas.width() / 5),
                                canvas.height() - qMax(1, canvas.height() / 8));
            for (int round = 0; round < 200; ++round) {
                const QPoint point =
                    m_helper->calculateNewKernoPosition(canvas.width(), canvas.height()).toPoint();
                QVERIFY(allowed.contains(point));
            }
        }
    }

    void temporaryFoldersStayUntilDeleted() {
        const QString first = m_helper->createReportFolder();
        const QString second = m_helper->createReportFolder();
        const QString cloud = m_helper->createWordCloudFolder();
        QVERIFY(first != second && QFileInfo(cloud).fileName().startsWith("KernovaWordCloud_"_s));
        writeBytes(first + "/page.html"_s);
        QVERIFY(m_helper->deleteFolder(first));
        QVERIFY(m_helper->deleteFolder(QUrl::fromLocalFile(second).toString()));
        QVERIFY(m_helper->deleteFolder("file://"_s + cloud));
        QVERIFY(!QFile::exists(first) && !QFile::exists(second) && !QFile::exists(cloud));
        QVERIFY(!m_helper->deleteFolder(QString()) && QFile::exists(QDir::currentPath()));
    }

private:
    std::unique_ptr<KRNFile> m_file;
    std::unique_ptr<UndoManager> m_undo;
    std::unique_ptr<AppHelper> m_helper;
};

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_AppHelper>(argc, argv);
}
#include "tst_apphelper.moc"
