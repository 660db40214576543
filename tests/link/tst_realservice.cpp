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
    void initTestCase();
    void init();
    void cleanup();
    void manyIdsAreReservedAtOnce();
    void aKilledServiceIsRestartedAndReopened();

private:
    pid_t servicePid() const;
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<DataHelper> m_helper;
    QByteArray m_program;
    QJsonObject m_project;
};

void tst_RealService::initTestCase() {
    m_program = RealService::program().toUtf8();
    QVERIFY2(!m_program.isEmpty(), "KERNOVA_SERVICE_PROGRAM must name the service's executable");
}

void tst_RealService::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    const QString body = QStringLiteral("echo $$ > '%1'\nexec '%2' \"$@\"")
                             .arg(path(QStringLiteral("pid")), QString::fromUtf8(m_program));
    qputenv("KERNOVA_SERVICE_PROGRAM", writeProgram(*m_folder, QStringLiteral("service"), body).toUtf8());
    m_helper = std::make_unique<DataHelper>(calmTimings());
    m_project = localProject(path(QStringLiteral("study.krn")));
    QVERIFY(m_helper->openProject(m_project));
    QVERIFY(m_helper->isOpen());
    QVERIFY(m_helper->isOwner());
}

void tst_RealService::cleanup() {
    m_helper.reset();
}

pid_t tst_RealService::servicePid() const {
    QFile file(path(QStringLiteral("pid")));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
}

// More than one burst of requests, single reservations around it, and none twice.
void tst_RealService::manyIdsAreReservedAtOnce() {
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

void tst_RealService::aKilledServiceIsRestartedAndReopened() {
    QVERIFY(m_helper->save(Question(1, QStringLiteral("Why?"), 1)));
    const pid_t former = servicePid();
    QVERIFY(former > 0);
    SignalLog log;
    log.listen(m_helper.get(), &DataHelper::wsConnected, QStringLiteral("wsConnected"));
    log.listen(m_helper.get(), &DataHelper::wsDisconnected, QStringLiteral("wsDisconnected"));
    QCOMPARE(::kill(former, SIGKILL), 0);
    QVERIFY(log.waitFor(QStringLiteral("wsConnected")));
    QCOMPARE(log.names, QStringList({"wsDisconnected", "wsConnected"}));
    QVERIFY(servicePid() != former);
    QVERIFY(m_helper->isOpen());
    const QList<Question> questions = m_helper->findAll<Question>();
    QCOMPARE(questions.size(), 1);
    QCOMPARE(questions.first().question(), QStringLiteral("Why?"));
}

KERNOVA_TEST_MAIN(tst_RealService)
#include "tst_realservice.moc"
