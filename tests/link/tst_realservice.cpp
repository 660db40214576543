#include "LinkSupport.h"
#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "records/Question.h"
#include "tests_support/RealService.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

#include <algorithm>
#include <signal.h>

/// The link and the data service together.
class tst_RealService : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_program = RealService::program().toUtf8();
        QVERIFY2(!m_program.isEmpty(), "KERNOVA_SERVICE_PROGRAM must name the service's executable");
    }

    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        const QString body =
            "echo $$ > '%1'\nexec '%2' \"$@\""_s.arg(path("pid"_s), QString::fromUtf8(m_program));
        qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(*m_folder, "service"_s, body).toUtf8());
        m_helper = std::make_unique<DataHelper>(calmTimings());
        m_project = localProject(path("study.krn"_s));
        QVERIFY(m_helper->openProject(m_project));
        QVERIFY(m_helper->isOpen());
        QVERIFY(m_helper->isOwner());
    }

    void cleanup() { m_helper.reset(); }

    // More than one burst of requests, single reservations around it, and none twice.
    void manyIdsAreReservedAtOnce() {
        constexpr int count = 2500;
        IdManager* ids = IdManager::instance();
        ids->init(true, m_helper.get());
        const int before = ids->nextHighlightId();
        const QList<int> many = ids->nextHighlightIds(count);
        QCOMPARE(many.size(), count);
        QVERIFY(many.first() > before);
        QVERIFY(std::adjacent_find(many.begin(), many.end(), std::greater_equal<int>()) == many.end());
        QCOMPARE(ids->maxHighlightId(), many.last());
        QVERIFY(m_helper->closeProject());
        QVERIFY(m_helper->openProject(m_project));
        QVERIFY(ids->nextHighlightId() > many.last());
        QCOMPARE(ids->nextKernoId(), 1);
        QVERIFY(ids->nextHighlightIds(0).isEmpty());
    }

    void aKilledServiceIsRestartedAndReopened() {
        QVERIFY(m_helper->save(Question(1, "Why?"_s, 1)));
        const pid_t former = servicePid();
        QVERIFY(former > 0);
        SignalLog log;
        log.listen(m_helper.get(), &DataHelper::wsConnected, "wsConnected"_s);
        log.listen(m_helper.get(), &DataHelper::wsDisconnected, "wsDisconnected"_s);
        QCOMPARE(::kill(former, SIGKILL), 0);
        QVERIFY(log.waitFor("wsConnected"_s));
        QCOMPARE(log.names, QStringList({"wsDisconnected", "wsConnected"}));
        QVERIFY(servicePid() != former);
        QVERIFY(m_helper->isOpen());
        const QList<Question> questions = m_helper->findAll<Question>();
        QCOMPARE(questions.size(), 1);
        QCOMPARE(questions.first().question(), "Why?"_s);
    }

private:
    pid_t servicePid() const {
        QFile file(path("pid"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
    }

    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DataHelper> m_helper;
    QByteArray m_program;
    QJsonObject m_project;
};

KERNOVA_TEST_MAIN(tst_RealService)
#include "tst_realservice.moc"
