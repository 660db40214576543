#include "app/UpdateCheck.h"
#include "link/ServiceConfig.h"
#include "tests_support/ScriptedHttp.h"
#include "tests_support/TestMain.h"

#include <QTcpServer>

class tst_UpdateCheck : public QObject {
    Q_OBJECT

private slots:
    void versionsMustAllMatch_data() {
        columns<QByteArray, bool>({"body", "match"});
        const QByteArray good(R"({"auth_service":2,"project_service":3,"kernova_service":7})");
        addRow("all", good, true);
        addRow("one newer", QByteArray(good).replace("3", "4"), false);
        addRow("one missing", QByteArray(good).replace("kernova_service", "other"), false);
        addRow("as texts", QByteArray(good).replace("7", "\"7\""), false);
        addRow("not JSON", QByteArray("<html>"), false);
        addRow("empty", QByteArray(), false);
    }

    void versionsMustAllMatch() {
        QFETCH(QByteArray, body);
        QTEST(updatecheck::versionsMatch(body), "match");
    }

    void theServerIsAsked() {
        ScriptedHttp server([](const HttpAsked&) {
            return HttpAnswer{200, R"({"auth_service":2,"project_service":3,"kernova_service":7})"};
        });
        const QUrl url("http://127.0.0.1:%1/v"_s.arg(server.port()));
        QVERIFY(updatecheck::ask(url).matches);
        const QByteArray asked = server.asked().value(0).head;
        QVERIFY2(asked.startsWith("GET /v HTTP/1.1\r\n"), asked.constData());
        QVERIFY(asked.contains("User-Agent: KernovaClient/2.5.3 Windows\r\n"));
        QVERIFY(asked.contains("Content-Type: application/json\r\n"));
    }

    void anUnreachableServerDoesNotMatch() {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const QUrl url("http://127.0.0.1:%1/"_s.arg(server.serverPort()));
        server.close();
        const updatecheck::Answer answer = updatecheck::ask(url);
        QVERIFY(!answer.matches && !answer.error.isEmpty());
        if (!ServiceConfig::instance().hasCloud())
            QVERIFY(!updatecheck::userLeavesToUpdate());
    }
};

KERNOVA_TEST_MAIN(tst_UpdateCheck)
#include "tst_updatecheck.moc"
