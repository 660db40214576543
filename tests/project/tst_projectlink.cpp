#include "ProjectSupport.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

namespace {

const QString answersName = "questionAnswerWithQuestionQueryList"_s;

}  // namespace

/// What reaches the project over the link.
class TestProjectLink : public QObject {
    Q_OBJECT

private:
    /// An open project at the scripted service.
    bool openScripted(ProjectUnderTest& file, ScriptedService& service) {
        service.on("preferenceQueryById", [](ScriptedClient& client, const ScriptedRequest& request) {
            const QString key = request.argument("key");
            QJsonObject record;
            if (key == QLatin1String("___single_question") || key == QLatin1String("___cloud_version"))
                record = {{"key", key}, {"value", 1}};
            client.reply(request, {{"preferenceQueryById", record}});
        });
        writeBytes(file.path());
        return file.connectLink() && file.open("study.krn", {}, true);
    }

private slots:
    void sameAnswerIsAskedForOnce() {
        ScriptedService service;
        service.on(answersName, [](ScriptedClient& client, const ScriptedRequest& request) {
            const int source = request.argument("sourceId").toInt();
            const QJsonObject answer{
                {"id", 8},         {"sourceId", source}, {"questionId", 1}, {"question", "Why?"},
                {"author", "Ann"}, {"timestamp", ""},    {"answer", "x"}};
            client.reply(request, {{answersName, source == 9 ? QJsonArray() : QJsonArray{answer}}});
        });
        ProjectUnderTest file;
        QVERIFY(openScripted(file, service));
        const auto queries = [&] { return service.requestTexts().filter(answersName).size(); };
        const QVariantMap expected{{"answerId", 8.0},    {"sourceId", 4.0}, {"questionId", 1.0},
                                   {"question", "Why?"}, {"author", "Ann"}, {"timestamp", ""},
                                   {"answer", "x"}};
        QCOMPARE(file->answer(4, 1), expected);
        QCOMPARE(file->answer(4, 1), expected);
        QCOMPARE(queries(), 1);
        file->answer(5, 1);
        QCOMPARE(queries(), 2);
        QVERIFY(file->answer(9, 1).isEmpty());
        QVERIFY(file->answer(9, 1).isEmpty());
        QCOMPARE(queries(), 4);
        file->saveAnswer(QuestionAnswer(8, 1, 4, "Ann", "y", {}));
        file->answer(4, 1);
        QCOMPARE(queries(), 5);
        emit file->isOpenedChanged();
        file->answer(4, 1);
        QCOMPARE(queries(), 6);
        // Someone else has changed it.
        service.push({{"data", QJsonObject{{"questionAnswerCreateOrUpdate", QJsonObject{{"id", 8}}}}}});
        QVERIFY(waitFor([&] { return !file->answer(4, 1).isEmpty() && queries() == 7; }));
    }

    void readersAreRefused() {
        ScriptedService service;
        service.setAccess("read");
        ProjectUnderTest file;
        QVERIFY(openScripted(file, service));
        QVERIFY(!file->canMutate());
        QVERIFY(!file->isOwner());
        QSignalSpy notes(file.get(), &KRNFile::notifyUser);
        service.forgetRequests();
        file->saveHighlight(ProjectUnderTest::highlight(1, 0, 5));
        QVERIFY(waitFor([&] { return notes.count() == 1; }));
        QCOMPARE(notes.first().first().toString(), "You are not allowed to change this project."_s);
        QVERIFY(service.requestTexts().filter("mutation").isEmpty());
        service.push({{"access_privilege", "write"}});
        QVERIFY(waitFor([&] { return notes.count() == 2; }));
        QCOMPARE(notes.last().first().toString(), "Your access has been changed by the project owner. "
                                                  "You can now write to the project."_s);
        QVERIFY(file->canMutate());
    }

    void revokedProjectsAreGone() {
        ScriptedService service;
        ProjectUnderTest file;
        QVERIFY(openScripted(file, service));
        service.push(
            {{"data", QJsonObject{{"kernoCreateOrUpdate", QJsonObject{{"id", 3}, {"title", "t"}}}}}});
        QVERIFY(waitFor([&] { return file->kernoModel()->rowCount() == 1; }));
        QSignalSpy notes(file.get(), &KRNFile::notifyUser);
        QSignalSpy closed(file.get(), &KRNFile::fileClosed);
        service.push({}, 403);
        QVERIFY(waitFor([&] { return notes.count() == 1; }));
        QCOMPARE(notes.first().first().toString(),
                 "Your access to the project has been revoked by the project owner."_s);
        QCOMPARE(closed.count(), 1);
        QVERIFY(!file->isOpened());
        QCOMPARE(file->kernoModel()->rowCount(), 0);
    }

    void aListThatFailsEndsTheOpening() {
        using wire::Record;
        for (Record record : {Record::Kerno, Record::Source, Record::Question, Record::SourceMetadataKey,
                              Record::SourceMetadataValue, Record::SourceMetadata, Record::Group,
                              Record::KernoGroup, Record::KernoShortcutKey, Record::ChatMessage}) {
            ScriptedService service;
            const QString list = wire::operationName(record, wire::Operation::QueryList);
            service.fail(list);
            ProjectUnderTest file;
            QSignalSpy opened(file.get(), &KRNFile::fileOpened);
            QVERIFY2(!openScripted(file, service), qPrintable(list));
            QCOMPARE(file->getLastOpenError(), "Unable to open project."_s);
            QCOMPARE(opened.count(), 0);
            QVERIFY(!file->isOpened());
            service.answer(list, QJsonArray());
            QVERIFY2(file.open("study.krn", {}, true), qPrintable(list));
        }
    }

    void lateNotificationsDoNotFillAClosedProject() {
        ScriptedService service;
        ProjectUnderTest file;
        QVERIFY(openScripted(file, service));
        service.push(
            {{"data", QJsonObject{{"kernoCreateOrUpdate", QJsonObject{{"id", 3}, {"title", "t"}}}}}});
        service.push({{"errors", QJsonArray{QJsonObject{{"message", "late"}}}}});
        QSignalSpy errors(file.get(), &KRNFile::errorOccurred);
        file->close();
        QVERIFY(waitFor([&] { return errors.count() == 1; }));
        QCOMPARE(file->kernoModel()->rowCount(), 0);
    }

    void aLostFileClosesTheProject() {
        ScriptedService service;
        ProjectUnderTest file;
        QVERIFY(openScripted(file, service));
        QSignalSpy errors(file.get(), &KRNFile::errorOccurred);
        QSignalSpy closed(file.get(), &KRNFile::fileClosed);
        QVERIFY(QFile::remove(file.path()));
        service.abortAll();
        QVERIFY(waitFor([&] { return errors.count() == 1; }));
        QVERIFY(errors.first().first().toString().contains(file.path()));
        QCOMPARE(closed.count(), 1);
        QVERIFY(!file->isOpened());
        // Opening it would make an empty one.
        QCOMPARE(service.requestTexts().filter("dbOpen").size(), 1);
    }

    void aPasswordIsSetWholeOrNotAtAll_data() {
        QTest::addColumn<QString>("key");
        addRow("proof", "___db_hash");
        addRow("mark", "___db_encrypted");
    }

    void aPasswordIsSetWholeOrNotAtAll() {
        QFETCH(QString, key);
        ScriptedService service;
        service.on("preferenceCreateOrUpdate", [key](ScriptedClient& client, const ScriptedRequest& request) {
            if (request.argument("key") == key)
                client.refuse(request);
            else
                client.reply(request, {{"preferenceCreateOrUpdate", QJsonObject()}});
        });
        ProjectUnderTest file;
        QVERIFY(!file.create("sesame"));
        QVERIFY(!file->isOpened());
        QVERIFY(!file->getLastOpenError().isEmpty());
    }
};

KERNOVA_TEST_MAIN(TestProjectLink)
#include "tst_projectlink.moc"
