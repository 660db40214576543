#include "LinkSupport.h"
#include "link/Connection.h"
#include "link/DataHelper.h"
#include "link/IdManager.h"
#include "link/ListReads.h"
#include "records/Group.h"
#include "records/Highlight.h"
#include "records/Kerno.h"
#include "records/Preference.h"
#include "records/Question.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

#include <QFile>
#include <QSignalSpy>

namespace {

QJsonObject idObject(int id) {
    return {{QStringLiteral("id"), id}};
}

}  // namespace

/// The query layer: guards, texts, replies, and the state of the project.
class tst_DataHelper : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aClosedProjectIsNotAsked();
    void accessDecidesWhatIsSent_data();
    void accessDecidesWhatIsSent();
    void highlightsAreFoundUnderThreeKeys_data();
    void highlightsAreFoundUnderThreeKeys();

    void someSavesWaitForTheReply();

    void openingComparesTheReply_data();
    void openingComparesTheReply();
    void closingComparesTheReply_data();
    void closingComparesTheReply();
    void closingEndsWithTheLink();
    void openingClosesTheProjectBefore();
    void aLostLinkWithoutProjectOnlyTells();

    void idsAreReservedAtTheService();
    void aReservationIsWholeOrEmpty();

private:
    QStringList texts() const { return m_service->requestTexts(); }

    std::unique_ptr<ScriptedService> m_service;
    std::unique_ptr<DataHelper> m_helper;
    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("a \"b\"\\c.krn"));
    const QJsonObject m_project = localProject(m_path);
};

void tst_DataHelper::init() {
    QVERIFY(QFile(m_path).open(QIODevice::WriteOnly));
    m_service = std::make_unique<ScriptedService>();
    m_helper = std::make_unique<DataHelper>(calmTimings());
    QVERIFY(m_helper->openProject(m_project));
    QVERIFY(m_helper->isOpen());
    m_service->forgetRequests();
}

void tst_DataHelper::cleanup() {
    m_helper.reset();
    m_service.reset();
}

void tst_DataHelper::aClosedProjectIsNotAsked() {
    QVERIFY(m_helper->closeProject());
    m_service->forgetRequests();
    QVERIFY(m_helper->findAll<Kerno>().isEmpty());
    QVERIFY(!m_helper->findById<Highlight>(1).isValid());
    QCOMPARE(m_helper->maxId(QStringLiteral("kerno"), true), 0);
    QVERIFY(m_helper->queryAuthors(QStringLiteral("kerno")).isEmpty());
    QVERIFY(!m_helper->queryListAsync(reads::kernoIds()));
    QVERIFY(!m_helper->save(Group()));
    QVERIFY(!m_helper->save(Kerno()));
    QVERIFY(m_helper->closeProject());
    // A request that is answered shows that nothing else is on its way.
    QVERIFY(m_helper->openProject(m_project));
    QCOMPARE(texts().size(), 1);
}

void tst_DataHelper::accessDecidesWhatIsSent_data() {
    QTest::addColumn<QString>("access");
    QTest::addColumn<bool>("reads");
    QTest::addColumn<bool>("writes");
    QTest::addColumn<bool>("owns");
    QTest::newRow("owner") << "owner" << true << true << true;
    QTest::newRow("write") << "write" << true << true << false;
    QTest::newRow("read") << "read" << true << false << false;
    QTest::newRow("unknown") << "admin" << false << false << false;
}

void tst_DataHelper::accessDecidesWhatIsSent() {
    QFETCH(QString, access);
    QFETCH(bool, reads);
    QFETCH(bool, writes);
    m_service->setAccess(access);
    QVERIFY(m_helper->openProject(m_project));
    m_service->forgetRequests();
    QSignalSpy queryNotAllowed(m_helper.get(), &DataHelper::queryNotAllowed);
    QSignalSpy mutationNotAllowed(m_helper.get(), &DataHelper::mutationNotAllowed);
    QTEST(m_helper->isOwner(), "owns");
    m_helper->findAll<Kerno>();
    QCOMPARE(texts().size(), reads ? 1 : 0);
    QCOMPARE(queryNotAllowed.count(), reads ? 0 : 1);
    QCOMPARE(m_helper->save(Preference(QStringLiteral("k"), 1)), writes);
    QCOMPARE(texts().size(), (reads ? 1 : 0) + (writes ? 1 : 0));
    QCOMPARE(mutationNotAllowed.count(), writes ? 0 : 1);
    QCOMPARE(m_helper->canMutate(false), writes);
    QCOMPARE(mutationNotAllowed.count(), writes ? 0 : 1);
}

void tst_DataHelper::highlightsAreFoundUnderThreeKeys_data() {
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<int>("id");
    const auto named = [](const char* key, const QJsonArray& list) {
        return QJsonObject{{QLatin1String(key), list}};
    };
    QTest::newRow("list") << named("highlightQueryList", {idObject(1)}) << 1;
    QTest::newRow("window") << named("highlightQueryListWithOffset", {idObject(2)}) << 2;
    QTest::newRow("memo window") << named("memoQueryListWithOffset", {idObject(3)}) << 3;
    QJsonObject both = named("highlightQueryListWithOffset", {idObject(5)});
    both.insert(QStringLiteral("highlightQueryList"), QJsonArray());
    QTest::newRow("empty one skipped") << both << 5;
    QTest::newRow("none") << named("kernoQueryList", {idObject(6)}) << 0;
}

void tst_DataHelper::highlightsAreFoundUnderThreeKeys() {
    QFETCH(QJsonObject, data);
    m_service->on(
        QStringLiteral("highlightQueryListWithOffset"),
        [data](ScriptedClient& client, const ScriptedRequest& request) { client.reply(request, data); });
    const QList<Highlight> found =
        m_helper->queryList<Highlight>(reads::highlightsInWindow(1, 2, 0, 100), DataHelper::highlightKeys());
    QTEST(found.isEmpty() ? 0 : found.first().id(), "id");
}

void tst_DataHelper::someSavesWaitForTheReply() {
    const auto fail = [](ScriptedClient& client, const ScriptedRequest& request) {
        const QJsonArray errors{QJsonObject{{QStringLiteral("message"), QStringLiteral("no")}}};
        client.send({request.frame.messageId, 400, {{QStringLiteral("errors"), errors}}});
    };
    for (const char* operation : {"kernoCreateOrUpdate", "questionCreateOrUpdate", "groupCreateOrUpdate"})
        m_service->on(QLatin1String(operation), fail);
    QVERIFY(!m_helper->save(Kerno()));
    QVERIFY(!m_helper->save(Question(1, QStringLiteral("Why?"), 1)));
    QVERIFY(m_helper->save(Question(1, QStringLiteral("Why?"), 1), true));
    QVERIFY(m_helper->save(Group()));
    QVERIFY(m_helper->save(Preference(QStringLiteral("k"), 1)));
    QCOMPARE(texts().size(), 5);

    // What got no answer is not done.
    QSignalSpy unanswered(m_helper.get(), &DataHelper::writeUnanswered);
    m_service->on(QStringLiteral("preferenceCreateOrUpdate"),
                  [](ScriptedClient& client, const ScriptedRequest&) { client.abort(); });
    QVERIFY(!m_helper->save(Preference(QStringLiteral("k"), 1)));
    QCOMPARE(unanswered.count(), 1);
}

void tst_DataHelper::openingComparesTheReply_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("uuid");
    QTest::addColumn<QString>("status");
    QTest::addColumn<bool>("answered");
    QTest::addColumn<bool>("open");
    QTest::newRow("no uuid") << "/p.krn" << wire::nullUuid << "open" << true << true;
    QTest::newRow("same uuid") << "/p.krn"
                               << "u-1"
                               << "open" << true << true;
    QTest::newRow("not open") << "/p.krn"
                              << "u-1"
                              << "failed" << true << false;
    QTest::newRow("other name") << "/P.krn"
                                << "u-1"
                                << "open" << false << false;
    QTest::newRow("other uuid") << "/p.krn"
                                << "u-2"
                                << "open" << false << false;
}

void tst_DataHelper::openingComparesTheReply() {
    QFETCH(QString, name);
    QFETCH(QString, uuid);
    QFETCH(QString, status);
    QFETCH(bool, answered);
    QVERIFY(m_helper->closeProject());
    m_service->answer(wire::name::dbOpen, QJsonObject{{QStringLiteral("name"), name},
                                                      {QStringLiteral("uuid"), uuid},
                                                      {QStringLiteral("status"), status},
                                                      {QStringLiteral("access"), QStringLiteral("write")}});
    const QJsonObject project{{QStringLiteral("name"), QStringLiteral("/p.krn")},
                              {QStringLiteral("project_uuid"), QStringLiteral("u-1")}};
    QTEST(m_helper->openProject(project), "answered");
    QTEST(m_helper->isOpen(), "open");
    QCOMPARE(m_helper->access(), answered ? QStringLiteral("write") : QString());
    QCOMPARE(m_helper->currentProject(), answered ? project : QJsonObject());
    QCOMPARE(texts().last(),
             QStringLiteral("mutation{dbOpen(name:\"/p.krn\", uuid:\"u-1\"){name, uuid, status, access}}"));
}

void tst_DataHelper::closingComparesTheReply_data() {
    QTest::addColumn<QJsonObject>("reply");
    QTest::addColumn<bool>("closed");
    const QString name = QStringLiteral("name");
    const QString uuid = QStringLiteral("uuid");
    QTest::newRow("closed") << QJsonObject{{name, QString()}, {uuid, wire::nullUuid}} << true;
    QTest::newRow("still a name") << QJsonObject{{name, QStringLiteral("/p.krn")}, {uuid, wire::nullUuid}}
                                  << false;
    QTest::newRow("still a uuid") << QJsonObject{{name, QString()}, {uuid, QStringLiteral("u-1")}} << false;
    QTest::newRow("nothing") << QJsonObject() << false;
}

void tst_DataHelper::closingComparesTheReply() {
    QFETCH(QJsonObject, reply);
    QFETCH(bool, closed);
    m_service->answer(wire::name::dbClose, reply);
    QCOMPARE(m_helper->closeProject(), closed);
    QCOMPARE(m_helper->isOpen(), !closed);
    QCOMPARE(m_helper->access().isEmpty(), closed);
    QCOMPARE(m_helper->currentProject().isEmpty(), closed);
}

void tst_DataHelper::closingEndsWithTheLink() {
    m_service->on(wire::name::dbClose,
                  [](ScriptedClient& client, const ScriptedRequest&) { client.abort(); });
    QVERIFY(m_helper->closeProject());
    QVERIFY(!m_helper->isOpen());
    QVERIFY(m_helper->currentProject().isEmpty());
}

void tst_DataHelper::openingClosesTheProjectBefore() {
    QVERIFY(m_helper->openProject(localProject(QStringLiteral("/other.krn"))));
    QCOMPARE(texts().size(), 2);
    QCOMPARE(texts().first(), QStringLiteral("mutation{dbClose{name, uuid, status}}"));
    QVERIFY(texts().last().startsWith(QStringLiteral("mutation{dbOpen(name:\"/other.krn\"")));
}

void tst_DataHelper::aLostLinkWithoutProjectOnlyTells() {
    QVERIFY(m_helper->closeProject());
    m_service->forgetRequests();
    QSignalSpy connected(m_helper.get(), &DataHelper::wsConnected);
    m_service->abortAll();
    QVERIFY(connected.wait(patience));
    QVERIFY(texts().isEmpty());
}

void tst_DataHelper::idsAreReservedAtTheService() {
    const auto last = std::make_shared<int>(6);
    m_service->on(QStringLiteral("kernoMaxId"),
                  [last](ScriptedClient& client, const ScriptedRequest& request) {
                      if (request.query.argument(QStringLiteral("next"))->integer)
                          ++*last;
                      client.reply(request, {{QStringLiteral("kernoMaxId"), *last}});
                  });
    IdManager* ids = IdManager::instance();
    QCOMPARE(ids->parent(), QCoreApplication::instance());
    ids->init(true, m_helper.get());
    QCOMPARE(texts().size(), 12);
    QStringList distinct = texts();
    QCOMPARE(distinct.removeDuplicates(), 0);
    QCOMPARE(ids->maxKernoId(), 6);
    QCOMPARE(ids->nextKernoId(), 7);
    QCOMPARE(ids->nextKernoId(), 8);
    QCOMPARE(ids->maxKernoId(), 8);
    QCOMPARE(ids->nextIds(wire::Record::Kerno, 3), QList<int>({9, 10, 11}));
    QCOMPARE(ids->maxKernoId(), 11);
    // A stock is asked for at once, and then hands out one by one.
    ids->stock(wire::Record::Kerno, 3);
    QCOMPARE(*last, 14);
    QCOMPARE(ids->maxKernoId(), 11);
    QCOMPARE(ids->nextKernoId(), 12);
    QCOMPARE(ids->nextKernoId(), 13);
    QCOMPARE(ids->maxKernoId(), 13);
    QCOMPARE(*last, 14);
    ids->dropStock();
    QCOMPARE(ids->nextKernoId(), 15);
    ids->stock(wire::Record::Kerno, 1);
    ids->init(false, m_helper.get());
    QCOMPARE(ids->maxKernoId(), 0);
    m_helper.reset();
    QCOMPARE(ids->nextKernoId(), 0);
}

// Part of a reservation is of no use to anyone who needs an id for each of his records.
void tst_DataHelper::aReservationIsWholeOrEmpty() {
    LinkTimings timings = calmTimings();
    timings.request = 300;
    m_helper = std::make_unique<DataHelper>(timings);
    QVERIFY(m_helper->openProject(m_project));
    IdManager* ids = IdManager::instance();
    ids->init(false, m_helper.get());
    const auto last = std::make_shared<int>(0);
    m_service->on(QStringLiteral("memoMaxId"),
                  [last](ScriptedClient& client, const ScriptedRequest& request) {
                      if (++*last != 2)
                          client.reply(request, {{QStringLiteral("memoMaxId"), *last}});
                  });
    QVERIFY(ids->nextIds(wire::Record::Memo, 3).isEmpty());
    QCOMPARE(ids->maxMemoId(), 0);
    QCOMPARE(ids->nextIds(wire::Record::Memo, 3), QList<int>({4, 5, 6}));
    QCOMPARE(ids->nextMemoId(), 7);
}

KERNOVA_TEST_MAIN(tst_DataHelper)
#include "tst_datahelper.moc"
