#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"

#include <QDirIterator>
#include <QMessageBox>
#include <QNetworkReply>
#include <QQmlContext>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <unistd.h>

/// What stands before the screens are loaded, and the order of its end.
class tst_Session : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void namesAreSet();
    void noScreenReadsATextAsMarkUp();
    void nothingIsFetched();
    void messageBoxesShowTextsAsTheyStand();
    void screensReachTheProgramByName();
    void everythingEndsInTheReverseOrder();
    void aSignalEndsInOrder();

private:
    KRNFile* m_file = nullptr;
};

namespace {

const char* const contextNames[] = {"krnFile",      "appHelper",     "undoManager",
                                    "instantiator", "projectMerger", "idManager"};

QObject* contextObject(Session& session, const char* name) {
    return session.engine().rootContext()->contextProperty(QString::fromLatin1(name)).value<QObject*>();
}

}  // namespace

void tst_Session::initTestCase() {
    expectWarning("This plugin does not support application fonts");
    m_file = startup::setUp();
}

void tst_Session::namesAreSet() {
    QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("Kernova"));
    QCOMPARE(QCoreApplication::applicationVersion(), QStringLiteral("2.5.3"));
    QVERIFY(!QCoreApplication::organizationName().isEmpty());
    QVERIFY(!QCoreApplication::organizationDomain().isEmpty());
    QCOMPARE(QApplication::font().family(), QStringLiteral("Lato"));
    QVERIFY(m_file->kernoModel());
    QCOMPARE(m_file->parent(), qApp);
}

void tst_Session::noScreenReadsATextAsMarkUp() {
    // What says of itself how it reads its text, and the one text that is stored as mark-up.
    const QStringList allowed{QStringLiteral("PlainText.qml"),
                              QStringLiteral("MarkedText.qml"),
                              QStringLiteral("PlainTextEdit.qml"),
                              QStringLiteral("CentralManagerState.qml"),
                              QStringLiteral("StructuredQuestionItem.qml"),
                              QStringLiteral("StyledTextArea.qml")};
    const QRegularExpression bare(
        QStringLiteral("(^|[^\\w.])(Text|TextEdit|Label|TextArea)\\s*\\{|textFormat:"));
    int files = 0;
    for (QDirIterator it(QStringLiteral(":/qml"), {QStringLiteral("*.qml")}, QDir::Files,
                         QDirIterator::Subdirectories);
         it.hasNext(); ++files) {
        QFile file(it.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString source = QString::fromUtf8(file.readAll());
        QVERIFY2(allowed.contains(it.fileName()) || !bare.match(source).hasMatch(),
                 qPrintable(it.filePath()));
    }
    QVERIFY(files > 50);
}

void tst_Session::nothingIsFetched() {
    Session session(*static_cast<KernovaApplication*>(qApp), m_file);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QUrl away(QStringLiteral("http://127.0.0.1:%1/picture.png").arg(server.serverPort()));
    const auto errorOf = [&](const QUrl& url) {
        const std::unique_ptr<QNetworkReply> reply(
            session.engine().networkAccessManager()->get(QNetworkRequest(url)));
        const bool ended = QTest::qWaitFor([&] { return reply->isFinished(); });
        return ended ? reply->error() : QNetworkReply::NoError;
    };
    QVERIFY(errorOf(away) != QNetworkReply::NoError);
    QVERIFY(errorOf(QUrl(QStringLiteral("file://server/share/picture.png"))) != QNetworkReply::NoError);
    QCOMPARE(errorOf(QUrl(QStringLiteral("qrc:/qml/main.qml"))), QNetworkReply::NoError);
    QVERIFY(!server.hasPendingConnections() && !server.waitForNewConnection(1));
}

void tst_Session::messageBoxesShowTextsAsTheyStand() {
    QMessageBox box;
    box.setText(QStringLiteral("<b>bold</b>"));
    box.ensurePolished();
    QCOMPARE(box.textFormat(), Qt::PlainText);
}

void tst_Session::screensReachTheProgramByName() {
    Session session(*static_cast<KernovaApplication*>(qApp), m_file);
    for (const char* name : contextNames)
        QVERIFY2(contextObject(session, name), name);
    QCOMPARE(contextObject(session, "krnFile"), m_file);
}

void tst_Session::everythingEndsInTheReverseOrder() {
    QStringList ended;
    {
        Session session(*static_cast<KernovaApplication*>(qApp), m_file);
        const auto record = [&ended](QObject* object, const char* name) {
            connect(object, &QObject::destroyed, object,
                    [&ended, name] { ended << QString::fromLatin1(name); });
        };
        for (const char* name : {"undoManager", "appHelper", "instantiator", "projectMerger"})
            record(contextObject(session, name), name);
        record(&session.engine(), "engine");
    }
    QCOMPARE(ended, QStringList({"engine", "projectMerger", "instantiator", "appHelper", "undoManager"}));
}

void tst_Session::aSignalEndsInOrder() {
    QTemporaryDir folder;
    const QJsonObject project{{QStringLiteral("name"), folder.filePath(QStringLiteral("p.krn"))}};
    const auto connectLink = [this] { return m_file->dataHelper()->connection()->connect(false); };
    {
        Session session(*static_cast<KernovaApplication*>(qApp), m_file);
        QVERIFY(connectLink());
        QVERIFY(m_file->openProject(project, true, QString(), true));
        QVERIFY(m_file->holdsLock());
        QTimer::singleShot(0, [] { ::kill(::getpid(), SIGTERM); });
        qApp->exec();
        QVERIFY(m_file->isOpened());
    }
    QVERIFY(!m_file->isOpened());
    QVERIFY(connectLink());
    QVERIFY(m_file->openProject(project, false, QString(), true, true));
    QCOMPARE(m_file->getPreference(QStringLiteral("___db_open_lock")).toBool(), false);
    m_file->closeAndReset();
}

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_Session>(argc, argv);
}
#include "tst_session.moc"
