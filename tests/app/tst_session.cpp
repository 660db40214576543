#include "app/KernovaApplication.h"
#include "app/Session.h"
#include "app/Startup.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "project/KRNFile.h"
#include "tests_support/TestMain.h"

#include <QMessageBox>
#include <QNetworkReply>
#include <QQmlComponent>
#include <QQmlContext>
#include <QTcpServer>
#include <csignal>
#include <unistd.h>

namespace {

const char* const contextNames[] = {"krnFile",      "appHelper",     "undoManager",
                                    "instantiator", "projectMerger", "idManager"};

QObject* contextObject(Session& session, const char* name) {
    return session.engine().rootContext()->contextProperty(QString::fromLatin1(name)).value<QObject*>();
}

}  // namespace

/// What stands before the screens are loaded, and the order of its end.
class tst_Session : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        expectWarning("This plugin does not support application fonts");
        expectWarning("This plugin does not support createPlatformOpenGLContext!");
        m_file = startup::setUp();
    }

    void noScreenReadsATextAsMarkUp() {
        // What says of itself how it reads its text, and the one text that is stored as mark-up.
        const QStringList allowed{"PlainText.qml"_s,
                                  "MarkedText.qml"_s,
                                  "PlainTextEdit.qml"_s,
                                  "CentralManagerState.qml"_s,
                                  "StructuredQuestionItem.qml"_s,
                                  "StyledTextArea.qml"_s};
        const QRegularExpression bare("(^|[^\\w.])(Text|TextEdit|Label|TextArea)\\s*\\{|textFormat:"_s);
        int files = 0;
        for (QDirIterator it(":/qml"_s, {"*.qml"_s}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();
             ++files) {
            const QString source = QString::fromUtf8(bytesOf(it.next()));
            QVERIFY(!source.isEmpty());
            QVERIFY2(allowed.contains(it.fileName()) || !bare.match(source).hasMatch(),
                     qPrintable(it.filePath()));
        }
        QVERIFY(files > 50);
    }

    void nothingIsFetched() {
        Session session(*static_cast<KernovaApplication*>(qApp), m_file);
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const QUrl away("http://127.0.0.1:%1/picture.png"_s.arg(server.serverPort()));
        const auto errorOf = [&](const QUrl& url) {
            const std::unique_ptr<QNetworkReply> reply(
                session.engine().networkAccessManager()->get(QNetworkRequest(url)));
            const bool ended = QTest::qWaitFor([&] { return reply->isFinished(); });
            return ended ? reply->error() : QNetworkReply::NoError;
        };
        QVERIFY(errorOf(away) != QNetworkReply::NoError);
        QVERIFY(errorOf(QUrl("file://server/share/picture.png"_s)) != QNetworkReply::NoError);
        QCOMPARE(errorOf(QUrl("qrc:/qml/main.qml"_s)), QNetworkReply::NoError);
        QVERIFY(!server.hasPendingConnections() && !server.waitForNewConnection(1));
    }

    void messageBoxesShowTextsAsTheyStand() {
        QMessageBox box;
        box.setText("<b>bold</b>"_s);
        box.ensurePolished();
        QCOMPARE(box.textFormat(), Qt::PlainText);
    }

    void everythingEndsInTheReverseOrder() {
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
            // One item is still being loaded when it is let go.
            QQmlComponent loading(&session.engine());
            loading.setData("import QtQuick 2.15\nLoader { asynchronous: true; sourceComponent: Item {} }",
                            QUrl());
            loading.create()->deleteLater();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(ended, QStringList({"engine", "projectMerger", "instantiator", "appHelper", "undoManager"}));
    }

    void aSignalEndsInOrder() {
        QTemporaryDir folder;
        const QJsonObject project{{"name"_s, folder.filePath("p.krn"_s)}};
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
        QCOMPARE(m_file->getPreference("___db_open_lock"_s).toBool(), false);
        m_file->closeAndReset();
    }

private:
    KRNFile* m_file = nullptr;
};

int main(int argc, char** argv) {
    return runTest<KernovaApplication, tst_Session>(argc, argv);
}
#include "tst_session.moc"
