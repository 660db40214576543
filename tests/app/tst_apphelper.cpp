#include "app/AppHelper.h"
#include "app/CommandLine.h"
#include "app/Crop.h"
#include "app/KernovaApplication.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"
#include "undo/UndoManager.h"

#include <QClipboard>
#include <QDir>
#include <QFileOpenEvent>
#include <QLoggingCategory>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_AppHelper : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("appHelper.debug=false")); }
    void init();
    void cleanup();
    void theCommandLineNamesAProject_data();
    void theCommandLineNamesAProject();
    void filesOpenedByTheSystemAreAnnouncedOnce();
    void theClipboardIsFollowed();
    void picturesLoseTheirMargins_data();
    void picturesLoseTheirMargins();
    void newKernosLieOnTheCanvas();
    void temporaryFoldersStayUntilDeleted();
    void pathsAreMade();

private:
    std::unique_ptr<KRNFile> m_file;
    std::unique_ptr<UndoManager> m_undo;
    std::unique_ptr<AppHelper> m_helper;
};

void tst_AppHelper::init() {
    m_file = std::make_unique<KRNFile>();
    m_undo = std::make_unique<UndoManager>(m_file.get());
    m_helper = std::make_unique<AppHelper>(m_undo.get(), m_file.get());
}

void tst_AppHelper::cleanup() {
    m_helper.reset();
    m_undo.reset();
    m_file.reset();
}

void tst_AppHelper::theCommandLineNamesAProject_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("file");
    QTest::newRow("none") << QStringList{} << "";
    QTest::newRow("a project") << QStringList{"a.krn"} << "a.krn";
    QTest::newRow("capitals") << QStringList{"b.KRN"} << "b.KRN";
    QTest::newRow("the last counts") << QStringList{"a.krn", "b.KRN"} << "b.KRN";
    QTest::newRow("another kind last") << QStringList{"a.krn", "c.txt"} << "";
    QTest::newRow("no such file") << QStringList{"missing.krn"} << "";
    QTest::newRow("a folder") << QStringList{"folder.krn"} << "";
}

void tst_AppHelper::theCommandLineNamesAProject() {
    QFETCH(QStringList, arguments);
    QFETCH(QString, file);
    QTemporaryDir folder;
    for (const char* name : {"a.krn", "b.KRN", "c.txt"}) {
        QFile made(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(made.open(QIODevice::WriteOnly));
    }
    QDir(folder.path()).mkdir(QStringLiteral("folder.krn"));
    for (QString& argument : arguments)
        argument = folder.filePath(argument);
    arguments.prepend(QStringLiteral("kernova"));
    QCOMPARE(projectFileOf(arguments), file.isEmpty() ? QString() : folder.filePath(file));
}

void tst_AppHelper::filesOpenedByTheSystemAreAnnouncedOnce() {
    auto* const application = static_cast<KernovaApplication*>(qApp);
    QSignalSpy changed(m_helper.get(), &AppHelper::userInvokedFileChanged);
    m_helper->clearUserInvokedFile();
    QFileOpenEvent event(QStringLiteral("/x/any.txt"));
    QCoreApplication::sendEvent(application, &event);
    QCOMPARE(changed.count(), 0);
    application->setAppHelper(m_helper.get());
    QCoreApplication::sendEvent(application, &event);
    QCoreApplication::sendEvent(application, &event);
    application->setAppHelper(nullptr);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(m_helper->userInvokedFile(), QStringLiteral("/x/any.txt"));
    m_helper->clearUserInvokedFile();
    m_helper->clearUserInvokedFile();
    QCOMPARE(changed.count(), 2);
    QVERIFY(m_helper->userInvokedFile().isEmpty());
}

void tst_AppHelper::theClipboardIsFollowed() {
    QGuiApplication::clipboard()->clear();
    QSignalSpy changed(m_helper.get(), &AppHelper::clipboardContainsTextChanged);
    m_helper->setClipboardText(QStringLiteral("Q: one A: two"));
    m_helper->setClipboardText(QStringLiteral("Q: three A: four"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_helper->clipboardContainsText());
    const QVariantList pairs =
        m_helper->importQuestionsFromClipboard(QStringLiteral("Q:"), QStringLiteral("A:"));
    QCOMPARE(pairs.size(), 1);
    QCOMPARE(pairs.first().toMap().value(QStringLiteral("answer")).toString(), QStringLiteral("four"));
    QGuiApplication::clipboard()->clear();
    QCOMPARE(changed.count(), 2);
    QVERIFY(!m_helper->clipboardContainsText());
}

void tst_AppHelper::picturesLoseTheirMargins_data() {
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QRect>("drawn");
    QTest::addColumn<QSize>("size");
    const QColor white(Qt::white);
    QTest::newRow("inside") << white << QRect(3, 2, 5, 4) << QSize(5, 4);
    QTest::newRow("one pixel") << white << QRect(0, 0, 1, 1) << QSize(1, 1);
    QTest::newRow("the last pixel") << white << QRect(19, 9, 1, 1) << QSize(1, 1);
    QTest::newRow("everything") << white << QRect(0, 0, 20, 10) << QSize(20, 10);
    QTest::newRow("nothing") << white << QRect() << QSize(20, 10);
    QTest::newRow("on transparent") << QColor(Qt::transparent) << QRect(4, 4, 3, 2) << QSize(3, 2);
}

void tst_AppHelper::picturesLoseTheirMargins() {
    QFETCH(QColor, background);
    QFETCH(QRect, drawn);
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

void tst_AppHelper::newKernosLieOnTheCanvas() {
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

void tst_AppHelper::temporaryFoldersStayUntilDeleted() {
    const QString first = m_helper->createReportFolder();
    const QString second = m_helper->createReportFolder();
    const QString cloud = m_helper->createWordCloudFolder();
    QVERIFY(first != second);
    QVERIFY(QFileInfo(first).fileName().startsWith(QStringLiteral("KernovaReport_")));
    QVERIFY(QFileInfo(cloud).fileName().startsWith(QStringLiteral("KernovaWordCloud_")));
    QVERIFY(QFile(first + QStringLiteral("/page.html")).open(QIODevice::WriteOnly));
    QVERIFY(m_helper->deleteFolder(first));
    QVERIFY(m_helper->deleteFolder(QUrl::fromLocalFile(second).toString()));
    QVERIFY(m_helper->deleteFolder(QStringLiteral("file://") + cloud));
    for (const QString& folder : {first, second, cloud})
        QVERIFY(!QFile::exists(folder));
    QVERIFY(!m_helper->deleteFolder(QString()));
    QVERIFY(QFile::exists(QDir::currentPath()));
}

void tst_AppHelper::pathsAreMade() {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a/b c/%41"));
    QVERIFY(!m_helper->isDirectoryWritable(path));
    QVERIFY(m_helper->createPath(path));
    QVERIFY(m_helper->createPath(path));
    QVERIFY(m_helper->isDirectoryWritable(path));
    QVERIFY(!m_helper->saveGrabbedItem(nullptr, path + QStringLiteral("/none.png")));
    m_helper->grab(m_file.get(), path + QStringLiteral("/none.png"));
    QVERIFY(QDir(path).isEmpty());
}

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_AppHelper>(argc, argv);
}
#include "tst_apphelper.moc"
