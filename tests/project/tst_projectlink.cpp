#include "ProjectSupport.h"
#include "link/ServiceConfig.h"
#include "link/WebSocketHandler.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"
#include "wire/QueryText.h"

#include <QWebSocket>

namespace {

/// Another person's program on the same service: a bare socket.
class SecondClient {
public:
    bool open(const QUrl& endpoint, const QString& path) {
        QNetworkRequest request(endpoint);
        request.setRawHeader("Kernova-Service-Token", ServiceConfig::instance().serviceToken());
        QObject::connect(&m_socket, &QWebSocket::textMessageReceived, [this](const QString& text) {
            m_frames << wire::responseFromJson(wire::readFrame(text).object);
        });
        m_socket.open(request);
        return waitFor([&] { return m_socket.state() == QAbstractSocket::ConnectedState; }) &&
               !ask(wire::openProject(path, {})).isEmpty();
    }

    /// The `data` of the reply.
    QJsonObject ask(const QString& text) {
        const int id = ++m_number;
        m_socket.sendTextMessage(wire::RequestFrame{{}, id, text}.toText());
        QJsonObject data;
        waitFor([&] {
            for (const wire::ResponseFrame& frame : qAsConst(m_frames)) {
                if (frame.messageId == id)
                    data = frame.payload.value("data").toObject();
            }
            return !data.isEmpty();
        });
        return data;
    }

    bool hasSeen(const QString& key) const {
        return std::any_of(m_frames.begin(), m_frames.end(), [&](const wire::ResponseFrame& frame) {
            return frame.payload.value("data").toObject().contains(key);
        });
    }

    template <typename T> QJsonObject save(const T& record) {
        return ask(wire::mutation(wire::operationName(T::record(), wire::Operation::CreateOrUpdate),
                                  record.mutationArguments(), T::queryFields()));
    }

private:
    QWebSocket m_socket;
    QList<wire::ResponseFrame> m_frames;
    int m_number = 0;
};

const QString answersName = QStringLiteral("questionAnswerWithQuestionQueryList");

}  // namespace

/// What reaches the project over the link, from a scripted service and from a second client of the real one.
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
        QCOMPARE(notes.first().first().toString(),
                 QStringLiteral("You are not allowed to change this project."));
        QVERIFY(service.requestTexts().filter("mutation").isEmpty());
        QVERIFY(!file->canMutate(true));
        QCOMPARE(notes.count(), 2);

        service.push({{"access_privilege", "write"}});
        QVERIFY(waitFor([&] { return notes.count() == 3; }));
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
                 QStringLiteral("Your access to the project has been revoked by the project owner."));
        QCOMPARE(closed.count(), 1);
        QVERIFY(!file->isOpened());
        QCOMPARE(file->kernoModel()->rowCount(), 0);
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

    void lossesOfTheLinkAreTold() {
        ScriptedService service;
        ProjectUnderTest file;
        QVERIFY(openScripted(file, service));
        SignalLog log;
        log.listen(file.get(), &KRNFile::disconnected, "disconnected");
        log.listen(file.get(), &KRNFile::closedDueToAnotherSession, "another session");
        service.closeAll(4000);
        QVERIFY(waitFor([&] { return log.names == QStringList{"another session"}; }));
    }

    void twoClientsSeeTheSame() {
        ProjectUnderTest file;
        QVERIFY(file.create());
        SecondClient other;
        QVERIFY(other.open(QUrl(file->dataHelper()->notifications()->endpoint()), file.path()));
        QVERIFY(waitFor([&] { return file->connectedUserCount() == 2; }));

        QSignalSpy added(file.get(), &KRNFile::newKernoAdded);
        QSignalSpy highlights(file.get(), &KRNFile::highlightSaved);
        const int id = IdManager::instance()->nextKernoId();
        other.save(Kerno(id + 10, -1, QColor(Qt::red), "theirs", {}, {}, "Bob", 1, 1));
        QVERIFY(waitFor([&] { return file->kerno(id + 10).isValid(); }));
        QCOMPARE(added.count(), 0);
        file->saveKerno(Kerno(id, -1, QColor(Qt::red), "mine", {}, {}, "Ann", 1, 1));
        QCOMPARE(added.count(), 1);
        QVERIFY(waitFor([&] { return other.hasSeen("kernoCreateOrUpdate"); }));

        QVERIFY(file.addContents("0123456789"));
        QVERIFY(file->answer(1, 1).value("answer").toString().contains("0123456789"));
        other.save(QuestionAnswer(1, 1, 1, "Bob", "changed by Bob", {}));
        QVERIFY(waitFor([&] { return file->answer(1, 1).value("answer").toString().contains("Bob"); }));
        file->saveHighlight(ProjectUnderTest::highlight(1, 0, 5));
        QVERIFY(waitFor([&] { return highlights.count() == 1; }));
        QVERIFY(waitFor([&] { return other.hasSeen("highlightCreateOrUpdate"); }));
        QCOMPARE(highlights.count(), 1);
    }
};

KERNOVA_TEST_MAIN(TestProjectLink)
#include "tst_projectlink.moc"
