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

/// The query layer: guards, texts, replies, and the state of the project.
class tst_DataHelper : public QObject {
    Q_OBJECT

private slots:
    void init() {
        writeBytes(m_path);
        m_service = std::make_unique<ScriptedService>();
        m_helper = std::make_unique<DataHelper>(calmTimings());
        QVERIFY(m_helper->openProject(m_project));
        QVERIFY(m_helper->isOpen());
        m_service->forgetRequests();
    }

    void cleanup() {
        m_helper.reset();
        m_service.reset();
    }

    void aClosedProjectIsNotAsked() {
        QVERIFY(m_helper->closeProject());
        m_service->forgetRequests();
        QVERIFY(m_helper->findAll<Kerno>().isEmpty());
        QVERIFY(!m_helper->findById<Highlight>(1).isValid());
        QCOMPARE(m_helper->maxId("kerno"_s, true), 0);
        QVERIFY(m_helper->queryAuthors("kerno"_s).isEmpty());
        QVERIFY(!m_helper->queryListAsync(reads::kernoIds()));
        QVERIFY(!m_helper->save(Group()));
        QVERIFY(!m_helper->save(Kerno()));
        QVERIFY(m_helper->closeProject());
        // A request that is answered shows that nothing else is on its way.
        QVERIFY(m_helper->openProject(m_project));
        QCOMPARE(texts().size(), 1);
    }

    void accessDecidesWhatIsSent_data() {
        columns<QString, bool, bool, bool>({"access", "reads", "writes", "owns"});
        addRow("owner", "owner", true, true, true);
        addRow("write", "write", true, true, false);
        addRow("read", "read", true, false, false);
        addRow("unknown", "admin", false, false, false);
    }

    void accessDecidesWhatIsSent() {
        FETCH(QString, access, bool, reads, bool, writes);
        m_service->setAccess(access);
        QVERIFY(m_helper->openProject(m_project));
        m_service->forgetRequests();
        QSignalSpy queryNotAllowed(m_helper.get(), &DataHelper::queryNotAllowed);
        QSignalSpy mutationNotAllowed(m_helper.get(), &DataHelper::mutationNotAllowed);
        QTEST(m_helper->isOwner(), "owns");
        m_helper->findAll<Kerno>();
        QCOMPARE(texts().size(), reads ? 1 : 0);
        QCOMPARE(queryNotAllowed.count(), reads ? 0 : 1);
        QCOMPARE(m_helper->save(Preference("k"_s, 1)), writes);
        QCOMPARE(texts().size(), (reads ? 1 : 0) + (writes ? 1 : 0));
        QCOMPARE(mutationNotAllowed.count(), writes ? 0 : 1);
        QCOMPARE(m_helper->canMutate(false), writes);
        QCOMPARE(mutationNotAllowed.count(), writes ? 0 : 1);
    }

    void someSavesWaitForTheReply() {
        for (const char* operation : {"kernoCreateOrUpdate", "questionCreateOrUpdate", "groupCreateOrUpdate"})
            m_service->fail(QLatin1String(operation));
        QVERIFY(!m_helper->save(Kerno()));
        QVERIFY(!m_helper->save(Question(1, "Why?"_s, 1)));
        QVERIFY(m_helper->save(Question(1, "Why?"_s, 1), true));
        QVERIFY(m_helper->save(Group()));
        QVERIFY(m_helper->save(Preference("k"_s, 1)));
        QCOMPARE(texts().size(), 5);

        // What got no answer is not done.
        QSignalSpy unanswered(m_helper.get(), &DataHelper::writeUnanswered);
        m_service->on("preferenceCreateOrUpdate"_s,
                      [](ScriptedClient& client, const ScriptedRequest&) { client.abort(); });
        QVERIFY(!m_helper->save(Preference("k"_s, 1)));
        QCOMPARE(unanswered.count(), 1);
    }

    void openingComparesTheReply_data() {
        columns<QString, QString, QString, bool, bool>({"name", "uuid", "status", "answered", "open"});
        addRow("no uuid", "/p.krn", wire::nullUuid, "open", true, true);
        addRow("same uuid", "/p.krn", "u-1", "open", true, true);
        addRow("not open", "/p.krn", "u-1", "failed", true, false);
        addRow("other name", "/P.krn", "u-1", "open", false, false);
        addRow("other uuid", "/p.krn", "u-2", "open", false, false);
    }

    void openingComparesTheReply() {
        FETCH(QString, name, QString, uuid, QString, status, bool, answered);
        QVERIFY(m_helper->closeProject());
        m_service->answer(
            wire::name::dbOpen,
            QJsonObject{{"name"_s, name}, {"uuid"_s, uuid}, {"status"_s, status}, {"access"_s, "write"_s}});
        const QJsonObject project{{"name"_s, "/p.krn"_s}, {"project_uuid"_s, "u-1"_s}};
        QTEST(m_helper->openProject(project), "answered");
        QTEST(m_helper->isOpen(), "open");
        QCOMPARE(m_helper->access(), answered ? "write"_s : QString());
        QCOMPARE(m_helper->currentProject(), answered ? project : QJsonObject());
        QCOMPARE(texts().last(),
                 "mutation{dbOpen(name:\"/p.krn\", uuid:\"u-1\"){name, uuid, status, access}}"_s);
    }

    void closingComparesTheReply_data() {
        columns<QJsonObject, bool>({"reply", "closed"});
        const QString name = "name"_s;
        const QString uuid = "uuid"_s;
        addRow("closed", QJsonObject{{name, QString()}, {uuid, wire::nullUuid}}, true);
        addRow("still a name", QJsonObject{{name, "/p.krn"_s}, {uuid, wire::nullUuid}}, false);
        addRow("still a uuid", QJsonObject{{name, QString()}, {uuid, "u-1"_s}}, false);
        addRow("nothing", QJsonObject(), false);
    }

    void closingComparesTheReply() {
        FETCH(QJsonObject, reply, bool, closed);
        m_service->answer(wire::name::dbClose, reply);
        QCOMPARE(m_helper->closeProject(), closed);
        QCOMPARE(m_helper->isOpen(), !closed);
        QCOMPARE(m_helper->access().isEmpty(), closed);
        QCOMPARE(m_helper->currentProject().isEmpty(), closed);
    }

    void closingEndsWithTheLink() {
        m_service->on(wire::name::dbClose,
                      [](ScriptedClient& client, const ScriptedRequest&) { client.abort(); });
        QVERIFY(m_helper->closeProject());
        QVERIFY(!m_helper->isOpen());
        QVERIFY(m_helper->currentProject().isEmpty());
    }

    void idsAreReservedAtTheService() {
        const auto last = std::make_shared<int>(6);
        m_service->on("kernoMaxId"_s, [last](ScriptedClient& client, const ScriptedRequest& request) {
            const wire::QueryValue* const count = request.query.argument("count"_s);
            if (request.query.argument("next"_s)->integer)
                *last += count ? static_cast<int>(count->integer) : 1;
            client.reply(request, {{"kernoMaxId"_s, *last}});
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
    void aReservationIsWholeOrEmpty() {
        LinkTimings timings = calmTimings();
        timings.request = 300;
        m_helper = std::make_unique<DataHelper>(timings);
        QVERIFY(m_helper->openProject(m_project));
        IdManager* ids = IdManager::instance();
        ids->init(false, m_helper.get());
        // The last of 3 is no 2, and none comes at all.
        const auto answers = std::make_shared<QList<int>>(QList<int>{2, 0, 6, 7});
        m_service->on("memoMaxId"_s, [answers](ScriptedClient& client, const ScriptedRequest& request) {
            if (const int last = answers->takeFirst())
                client.reply(request, {{"memoMaxId"_s, last}});
        });
        QVERIFY(ids->nextIds(wire::Record::Memo, 3).isEmpty());
        QVERIFY(ids->nextIds(wire::Record::Memo, 3).isEmpty());
        QCOMPARE(ids->maxMemoId(), 0);
        QCOMPARE(ids->nextIds(wire::Record::Memo, 3), QList<int>({4, 5, 6}));
        QCOMPARE(ids->nextMemoId(), 7);
    }

private:
    QStringList texts() const { return m_service->requestTexts(); }

    std::unique_ptr<ScriptedService> m_service;
    std::unique_ptr<DataHelper> m_helper;
    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath("a \"b\"\\c.krn"_s);
    const QJsonObject m_project = localProject(m_path);
};

KERNOVA_TEST_MAIN(tst_DataHelper)
#include "tst_datahelper.moc"
