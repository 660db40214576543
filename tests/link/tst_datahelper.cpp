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
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

#include <QSignalSpy>

namespace {

QJsonArray objects(const QList<QJsonObject>& list) {
    QJsonArray array;
    for (const QJsonObject& object : list)
        array.append(object);
    return array;
}

QJsonObject idObject(int id) {
    return {{QStringLiteral("id"), id}};
}

Highlight highlight(int id) {
    return Highlight(id, 1, 2, 3, {}, 10, 5, 15, QStringLiteral("Ann"), {}, 0, 0, 0, false);
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
    void listsBecomeRecords();
    void highlightsAreFoundUnderThreeKeys_data();
    void highlightsAreFoundUnderThreeKeys();
    void oneRecordIsInvalidWhenThereIsNone();
    void scalarsIdsAndAuthors();
    void aListCanBeAwaited();

    void someSavesWaitForTheReply();
    void writesHaveTheirText();

    void openingComparesTheReply_data();
    void openingComparesTheReply();
    void closingComparesTheReply_data();
    void closingComparesTheReply();
    void openingClosesTheProjectBefore();
    void openingWithoutAServiceGivesUp();
    void aLostLinkIsReopened();
    void aLostLinkWithoutProjectOnlyTells();
    void revokedAccessForgetsTheProject();

    void idsAreReservedAtTheService();
    void aReservationIsWholeOrEmpty();
    void whatWasAskedBeforeIsNoAnswer();

private:
    QStringList texts() const { return m_service->requestTexts(); }
    bool reachesService(const std::function<bool()>& written);

    std::unique_ptr<ScriptedService> m_service;
    std::unique_ptr<DataHelper> m_helper;
    const QJsonObject m_project = localProject(QStringLiteral("/data/a \"b\"\\c.krn"));
};

void tst_DataHelper::init() {
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

/// Whether the write was accepted and one frame went out.
bool tst_DataHelper::reachesService(const std::function<bool()>& written) {
    m_service->forgetRequests();
    return written() && waitFor([&] { return m_service->requests().size() == 1; });
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

void tst_DataHelper::listsBecomeRecords() {
    m_service->answer(
        QStringLiteral("kernoQueryList"),
        objects({{{QStringLiteral("id"), 4}, {QStringLiteral("title"), QStringLiteral("Trust")}},
                 {{QStringLiteral("id"), 9}, {QStringLiteral("title"), QStringLiteral("Doubt")}}}));
    const QList<Kerno> kernos = m_helper->findAll<Kerno>();
    QCOMPARE(kernos.size(), 2);
    QCOMPARE(kernos[0].title(), QStringLiteral("Trust"));
    QCOMPARE(kernos[1].id(), 9);
    QCOMPARE(m_helper->queryOne<Kerno>(reads::kernoIds()).id(), 4);
    QVERIFY(m_helper->queryList<Kerno>(reads::kernoIds(), QStringLiteral("otherKey")).isEmpty());
    QCOMPARE(m_helper->queryWhere<Kerno>({wire::argument(QStringLiteral("parentKernoId"), 3)}).size(), 2);
    QCOMPARE(
        texts().first(),
        QStringLiteral("{kernoQueryList{id parentKernoId color title description timestamp author x y}}"));
    QCOMPARE(texts().last(), QStringLiteral("{kernoQueryList(parentKernoId:3){id parentKernoId color title "
                                            "description timestamp author x y}}"));
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

void tst_DataHelper::oneRecordIsInvalidWhenThereIsNone() {
    m_service->answer(
        QStringLiteral("preferenceQueryById"),
        QJsonObject{{QStringLiteral("key"), QStringLiteral("a\"b")}, {QStringLiteral("value"), 3}});
    m_service->on(
        QStringLiteral("highlightQueryById"), [](ScriptedClient& client, const ScriptedRequest& request) {
            const QJsonArray errors{QJsonObject{{QStringLiteral("message"), QStringLiteral("no such id")}}};
            client.send({request.frame.messageId, 404, {{QStringLiteral("errors"), errors}}});
        });
    QCOMPARE(m_helper->findById<Preference>(QStringLiteral("a\"b")).value().toInt(), 3);
    QVERIFY(!m_helper->findById<Highlight>(7).isValid());
    QVERIFY(!m_helper->queryOne<Kerno>(reads::kernoIds()).isValid());
    QCOMPARE(texts()[0], QStringLiteral("{preferenceQueryById(key:\"a\\\"b\"){key value}}"));
    QVERIFY(texts()[1].startsWith(QStringLiteral("{highlightQueryById(id:7){id kernoId ")));
}

void tst_DataHelper::scalarsIdsAndAuthors() {
    m_service->answer(QStringLiteral("maxHighlightsCount"), 12);
    QCOMPARE(m_helper->queryInt(wire::maxHighlightsCount(), wire::name::maxHighlightsCount), 12);
    QCOMPARE(m_helper->queryValue(wire::maxHighlightsCount(), wire::name::maxHighlightsCount),
             QJsonValue(12));
    QVERIFY(m_helper->queryValue(wire::maxHighlightsCount(), QStringLiteral("other")).isNull());

    m_service->answer(QStringLiteral("highlightQueryList"), objects({idObject(3), idObject(8)}));
    const QVariantList ids =
        m_helper->queryIds(reads::highlightIdsOfSource(2), QStringLiteral("highlight"), QStringLiteral("id"));
    QCOMPARE(ids, (QVariantList{3, 8}));

    QList<QJsonObject> authors;
    for (const char* author : {"Bo", "ann", "Ann", "Bo", "ann"})
        authors << QJsonObject{{QStringLiteral("author"), QLatin1String(author)}};
    m_service->answer(QStringLiteral("memoQueryList"), objects(authors));
    QCOMPARE(m_helper->queryAuthors(QStringLiteral("memo")), QStringList({"Bo", "ann", "Ann"}));

    m_service->answer(QStringLiteral("groupKernoMaxId"), 41);
    QCOMPARE(m_helper->maxId(QStringLiteral("groupKerno"), true), 41);
    QCOMPARE(texts().mid(3), QStringList({"{highlightQueryList(sourceId:2){id}}", "{memoQueryList{author}}",
                                          "{groupKernoMaxId(next: true)}"}));
}

void tst_DataHelper::aListCanBeAwaited() {
    m_service->answer(QStringLiteral("highlightQueryList"), objects({idObject(3)}));
    const std::unique_ptr<ReplyBase> reply(m_helper->queryListAsync(reads::highlights(1, 2)));
    QSignalSpy finished(reply.get(), &ReplyBase::finished);
    QVERIFY(finished.wait(patience));
    QCOMPARE(DataHelper::records<Highlight>(reply->data(), DataHelper::highlightKeys()).first().id(), 3);
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
}

void tst_DataHelper::writesHaveTheirText() {
    QVERIFY(reachesService(
        [&] { return m_helper->save(Preference(QStringLiteral("k"), QStringLiteral("a\n\"\\"))); }));
    QCOMPARE(
        texts().first(),
        QStringLiteral("mutation{preferenceCreateOrUpdate(key:\"k\" value:\"a\\n\\\"\\\\\"){key value}}"));
    QVERIFY(reachesService([&] { return m_helper->remove(highlight(4)); }));
    const QString arguments = highlight(4).mutationArguments().join(QLatin1Char(' '));
    QVERIFY(texts().first().startsWith(
        QStringLiteral("mutation{highlightRemove(%1){id kernoId ").arg(arguments)));
    QVERIFY(reachesService([&] { return m_helper->batchSave<Highlight>({highlight(4), highlight(5)}); }));
    QCOMPARE(texts().first(),
             QStringLiteral(
                 "mutation{highlightBatchCreateOrUpdate(highlights:[{%1},{%2}]){sourceIds questionIds}}")
                 .arg(arguments, highlight(5).mutationArguments().join(QLatin1Char(' '))));
    QVERIFY(reachesService([&] { return m_helper->batchRemove<Highlight>({highlight(4)}); }));
    QCOMPARE(texts().first(),
             QStringLiteral("mutation{highlightBatchRemove(highlights:[{%1}]){sourceIds questionIds}}")
                 .arg(arguments));
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

void tst_DataHelper::openingClosesTheProjectBefore() {
    QVERIFY(m_helper->openProject(localProject(QStringLiteral("/other.krn"))));
    QCOMPARE(texts().size(), 2);
    QCOMPARE(texts().first(), QStringLiteral("mutation{dbClose{name, uuid, status}}"));
    QVERIFY(texts().last().startsWith(QStringLiteral("mutation{dbOpen(name:\"/other.krn\"")));
}

void tst_DataHelper::openingWithoutAServiceGivesUp() {
    qputenv("KERNOVA_SERVICE_PROGRAM", "/nowhere/kernova-service");
    DataHelper helper(shortTimings());
    QVERIFY(!helper.openProject(m_project));
    QVERIFY(!helper.isOpen());
}

void tst_DataHelper::aLostLinkIsReopened() {
    SignalLog log;
    log.listen(m_helper.get(), &DataHelper::wsConnected, QStringLiteral("wsConnected"));
    log.listen(m_helper.get(), &DataHelper::wsDisconnected, QStringLiteral("wsDisconnected"));
    m_service->abortAll();
    QVERIFY(log.waitFor(QStringLiteral("wsDisconnected")));
    QVERIFY(log.waitFor(QStringLiteral("wsConnected")));
    QCOMPARE(log.names, QStringList({"wsDisconnected", "wsConnected"}));
    QVERIFY(m_helper->isOpen());
    const QList<wire::RequestFrame> requests = m_service->requests();
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests.first().messageId, 1);
    QVERIFY(requests.first().text.startsWith(QStringLiteral("mutation{dbOpen")));
}

void tst_DataHelper::aLostLinkWithoutProjectOnlyTells() {
    QVERIFY(m_helper->closeProject());
    m_service->forgetRequests();
    QSignalSpy connected(m_helper.get(), &DataHelper::wsConnected);
    m_service->abortAll();
    QVERIFY(connected.wait(patience));
    QVERIFY(texts().isEmpty());
}

void tst_DataHelper::revokedAccessForgetsTheProject() {
    QSignalSpy changed(m_helper.get(), &DataHelper::accessChanged);
    QSignalSpy revoked(m_helper.get(), &DataHelper::accessRevoked);
    m_service->push({{QStringLiteral("access_privilege"), QStringLiteral("read")}});
    QVERIFY(changed.wait(patience));
    QCOMPARE(m_helper->access(), QStringLiteral("read"));
    QVERIFY(m_helper->isOpen());
    m_service->push({}, wire::statusRevoked);
    QVERIFY(revoked.wait(patience));
    QVERIFY(!m_helper->isOpen());
    QVERIFY(m_helper->access().isEmpty());
    QVERIFY(m_helper->currentProject().isEmpty());
    QCOMPARE(changed.count(), 1);
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

void tst_DataHelper::whatWasAskedBeforeIsNoAnswer() {
    LinkTimings timings = calmTimings();
    timings.request = 300;
    m_helper = std::make_unique<DataHelper>(timings);
    QVERIFY(m_helper->openProject(m_project));
    const QString key = QStringLiteral("highlightOverlapCount");
    const auto asked = std::make_shared<int>(0);
    m_service->on(key, [asked, key](ScriptedClient& client, const ScriptedRequest& request) {
        if (++*asked == 1)
            client.reply(request, {{key, 5}});
    });
    QCOMPARE(m_helper->queryInt(wire::highlightOverlapCount(1, 2), key), 5);
    QCOMPARE(m_helper->queryInt(wire::highlightOverlapCount(1, 3), key), 0);
}

KERNOVA_TEST_MAIN(tst_DataHelper)
#include "tst_datahelper.moc"
