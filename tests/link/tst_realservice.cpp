#include "LinkSupport.h"
#include "records/Group.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "records/Preference.h"
#include "records/Question.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "link/ListReads.h"
#include "link/WebSocketHandler.h"
#include "tests_support/RealService.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

#include <QSignalSpy>
#include <algorithm>
#include <functional>
#include <signal.h>

/// The link and the data service together.
class tst_RealService : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void whatIsSavedIsReadBack();
    void ownChangesAreAnnounced();
    void batchesAreAnnouncedByTheirPlaces();
    void errorsAreReported();
    void idsAreUniqueAcrossReopening();
    void manyIdsAreReservedAtOnce();
    void aKilledServiceIsRestartedAndReopened();
    void theWholeProjectTravelsBothWays();

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

void tst_RealService::whatIsSavedIsReadBack() {
    const QString odd = QString::fromUtf8("a \"quoted\"\\n\n\ttab \xF0\x9F\x98\x80 \xC3\xA9");
    QVERIFY(m_helper->save(Preference(QStringLiteral("k"), odd)));
    QCOMPARE(m_helper->findById<Preference>(QStringLiteral("k")).value().toString(), odd);
    QVERIFY(m_helper->save(Kerno(1, -1, QColor(Qt::red), odd, odd, {}, QStringLiteral("Ann"), 3, 4)));
    const QList<Kerno> kernos = m_helper->findAll<Kerno>();
    QCOMPARE(kernos.size(), 1);
    QCOMPARE(kernos.first().title(), odd);
    QCOMPARE(kernos.first().color(), QColor(Qt::red));
    QVERIFY(kernos.first().timestamp().isValid());
    QCOMPARE(m_helper->queryAuthors(QStringLiteral("kerno")), QStringList{QStringLiteral("Ann")});
    QCOMPARE(m_helper->queryIds(reads::kernoIds(), QStringLiteral("kerno"), QStringLiteral("id")),
             QVariantList{1});
    QVERIFY(m_helper->closeProject());
    QVERIFY(m_helper->openProject(m_project));
    QCOMPARE(m_helper->findAll<Kerno>().size(), 1);
}

void tst_RealService::ownChangesAreAnnounced() {
    QSignalSpy saved(m_helper->notifications(), &WebSocketHandler::groupSaved);
    QSignalSpy deleted(m_helper->notifications(), &WebSocketHandler::groupDeleted);
    Group group;
    group.setGroupId(5);
    group.setTitle(QStringLiteral("First"));
    QVERIFY(m_helper->save(group));
    QVERIFY(waitFor([&] { return saved.count() == 1; }));
    QCOMPARE(saved.first().first().toJsonObject().value(QStringLiteral("id")).toInt(), 5);
    QVERIFY(m_helper->remove(group));
    QVERIFY(waitFor([&] { return deleted.count() == 1; }));
    QVERIFY(m_helper->findAll<Group>().isEmpty());
}

void tst_RealService::batchesAreAnnouncedByTheirPlaces() {
    QSignalSpy saved(m_helper->notifications(), &WebSocketHandler::batchHighlightsSaved);
    QList<Highlight> highlights;
    for (int i = 1; i <= 3; ++i)
        highlights << Highlight(i, 1, 7, 2, {}, i * 10, 5, i * 10 + 5, QStringLiteral("Ann"), {}, 0, 0, 0,
                                false);
    QVERIFY(m_helper->batchSave(highlights));
    QVERIFY(waitFor([&] { return saved.count() == 1; }));
    const QJsonObject places = saved.first().first().toJsonObject();
    QCOMPARE(places.value(QStringLiteral("sourceIds")).toArray(), QJsonArray{7});
    QCOMPARE(places.value(QStringLiteral("questionIds")).toArray(), QJsonArray{2});
    const QList<Highlight> window =
        m_helper->queryList<Highlight>(reads::highlightsInWindow(7, 2, 18, 3), DataHelper::highlightKeys());
    QCOMPARE(window.size(), 1);
    QCOMPARE(window.first().id(), 2);
    QCOMPARE(m_helper->findById<Highlight>(3).start(), 30);
}

void tst_RealService::errorsAreReported() {
    QSignalSpy errors(m_helper->notifications(), &WebSocketHandler::errorOccurred);
    const ReplyBase reply = m_helper->connection()->request(QStringLiteral("{thisIsNoOperation{id}}"));
    QVERIFY(!reply.errors().isEmpty());
    QVERIFY(!reply.errors().first().toObject().value(QStringLiteral("message")).toString().isEmpty());
    QVERIFY(waitFor([&] { return errors.count() == 1; }));
}

void tst_RealService::idsAreUniqueAcrossReopening() {
    IdManager* ids = IdManager::instance();
    ids->init(true, m_helper.get());
    const int first = ids->nextKernoId();
    const int second = ids->nextKernoId();
    QVERIFY(first > 0);
    QVERIFY(second > first);
    QVERIFY(m_helper->closeProject());
    QVERIFY(m_helper->openProject(m_project));
    QVERIFY(ids->nextKernoId() > second);
}

// More than one burst of requests, and single reservations around it.
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

void tst_RealService::theWholeProjectTravelsBothWays() {
    QVERIFY(m_helper->save(
        Kerno(1, -1, QColor(Qt::blue), QStringLiteral("Trust"), {}, {}, QStringLiteral("Ann"), 3, 4)));
    const Message exported = m_helper->exportProjectJson(m_project);
    QVERIFY2(exported.status, qPrintable(exported.message));
    const QJsonValue json = exported.json.value(QStringLiteral("project_json"));
    QVERIFY(json.isObject());
    const QJsonObject copy = localProject(path(QStringLiteral("copy.krn")));
    const Message imported = m_helper->importProjectJson(copy, json);
    QVERIFY2(imported.status, qPrintable(imported.message));
    QVERIFY(m_helper->openProject(copy));
    QCOMPARE(m_helper->findAll<Kerno>().first().title(), QStringLiteral("Trust"));
}

KERNOVA_TEST_MAIN(tst_RealService)
#include "tst_realservice.moc"
