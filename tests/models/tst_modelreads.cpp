#include "FakeProject.h"
#include "FakeText.h"
#include "link/DataHelper.h"
#include "models/HighlightsModel.h"
#include "models/ModelDelays.h"
#include "models/QuestionAnswerModel.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"

namespace {

QJsonObject highlightJson(int id, int sourceId, int start, int length) {
    return {{"id"_s, id},         {"kernoId"_s, 1},         {"sourceId"_s, sourceId},
            {"questionId"_s, 1},  {"color"_s, "#ff0000"_s}, {"start"_s, start},
            {"length"_s, length}, {"author"_s, "Ann"_s},    {"timestamp"_s, "2024-05-01T10:00:00Z"_s}};
}

}  // namespace

/// What the models ask a service, how often, and what they make of replies that come late.
class tst_ModelReads : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { modelDelays().codingStats = 20; }

    void init() {
        m_service = std::make_unique<ScriptedService>();
        m_helper = std::make_unique<DataHelper>();
        QVERIFY(m_helper->openProject({{"name"_s, "p"_s}}));
        m_project = std::make_unique<FakeProject>(m_helper.get());
        const QJsonArray counts{QJsonObject{{"key"_s, 2}, {"value"_s, 4}}};
        m_service->answer("quoteCountsInKernosQueryList"_s, counts);
        m_service->answer("sourceCodedLengthById"_s, QJsonArray());
        m_service->forgetRequests();
    }

    void cleanup() {
        m_project.reset();
        m_helper.reset();
        m_service.reset();
    }

    void aBurstOfCodingsIsCountedTwiceAtMost() {
        QSignalSpy counted(m_project->kernos.get(), &KernoModel::highlightsChanged);
        emit m_project->highlightSaved(testHighlight(1, 1, 0, 5));  // an empty model asks nothing
        m_project->kernos->setData({testKerno(1), testKerno(2)});
        for (int i = 0; i < 20; ++i)
            emit m_project->highlightSaved(testHighlight(i, 1, 0, 5));
        QVERIFY(waitFor([&] { return counted.count() == 2; }));
        QCOMPARE(asked("quoteCounts"), 2);
        QCOMPARE(m_project->kernos->highlightsCount(2), 4);
        QCOMPARE(m_project->kernos->get(1, "scale"), QVariant(1.5));
        emit m_project->kernoUpdated(1);
        QVERIFY(waitFor([&] { return counted.count() == 3; }));
    }

    void countsWaitForTheEndOfABulkChange() {
        QSignalSpy counted(m_project->kernos.get(), &KernoModel::highlightsChanged);
        m_project->batchOperationManager()->startKernoBatch();
        m_project->kernos->setData({testKerno(1)});
        emit m_project->highlightDeleted(testHighlight(1, 1, 0, 5));
        emit m_project->batchHighlightSaved({1}, {1});
        m_project->batchOperationManager()->finishKernoBatch();
        QVERIFY(waitFor([&] { return counted.count() > 0; }));
        QCOMPARE(asked("quoteCounts"), 1);
    }

    void sharesAreCountedOncePerBurst() {
        m_service->answer("sourceCodedLengthById"_s,
                          QJsonArray{QJsonObject{{"id"_s, 1}, {"coded_length"_s, 3}}});
        m_project->answers->setData({testAnswer(1, 1, 1, "1234567890"_s)});
        m_project->sources->setData({Source(1, "S"_s, {}, {}, {})});
        for (int i = 0; i < 20; ++i) {
            emit m_project->highlightSaved(testHighlight(i, 1, 0, 3));
            emit m_project->highlightDeleted(testHighlight(i, 1, 0, 3, 99));
        }
        QVERIFY(waitFor([&] { return m_project->sources->globalPercentageCoded() == 30; }));
        QCOMPARE(asked("sourceCodedLengthById"), 1);
    }

    void aBatchOfCodingsIsReadOnce() {
        m_service->answer("highlightQueryListWithOffset"_s,
                          QJsonArray{highlightJson(1, 1, 130, 10), highlightJson(2, 1, 90, 20)});
        FakeText text;
        HighlightsModel model(&text, m_helper.get());
        QSignalSpy ready(&model, &HighlightsModel::modelReady);
        model.setSource(1, 1, 100, 400);
        QVERIFY(waitFor([&] { return ready.count() == 1; }));
        QCOMPARE(
            asked("highlightQueryListWithOffset(sourceId:1 questionId:1 sourceOffset:100 sourceLength:400)"),
            1);
        QCOMPARE(idsOf(model), (QList<int>{2, 1}));
        m_project->batchOperationManager()->startHighlightBatch(1, 1);
        emit m_project->batchHighlightSaved({1}, {1});
        m_project->batchOperationManager()->finishHighlightBatch(1, 1);
        QVERIFY(waitFor([&] { return ready.count() == 2; }));
        emit m_project->batchHighlightDeleted({2}, {1});
        QCOMPARE(asked("highlightQueryListWithOffset"), 2);
    }

    void repliesForAnotherTextAreDropped() {
        m_service->on("highlightQueryListWithOffset"_s,
                      [](ScriptedClient& client, const ScriptedRequest& request) {
                          const int sourceId = request.argument("sourceId"_s).toInt();
                          client.reply(request, {{"highlightQueryListWithOffset"_s,
                                                  QJsonArray{highlightJson(sourceId, sourceId, 0, 5)}}});
                      });
        FakeText text;
        HighlightsModel model(&text, m_helper.get());
        QSignalSpy ready(&model, &HighlightsModel::modelReady);
        model.setSource(1, 1, 0, 100);
        model.setSource(2, 1, 0, 100);
        model.setSource(2, 1, 0, 200);
        QVERIFY(waitFor([&] { return ready.count() > 0; }));
        QCOMPARE(idsOf(model), (QList<int>{2}));
        QCOMPARE(ready.count(), 1);
        QCOMPARE(ready.first(), (QVariantList{2, 1, 0, 200}));
    }

    // Through a change, a removal, a failure and a loss of the link while they are on their way.
    void textsArriveSourceBySource() {
        std::atomic<bool> healthy{false};
        m_service->on("questionAnswerQueryList"_s,
                      [&](ScriptedClient& client, const ScriptedRequest& request) {
                          const int id = request.argument("sourceId"_s).toInt();
                          if (id == 0) {
                              // The list of sources that have answers: the last one's source isn't there yet.
                              QJsonArray list;
                              for (int sourceId = 1; sourceId <= 21; ++sourceId)
                                  list.append(QJsonObject{{"sourceId"_s, sourceId}});
                              client.reply(request, {{"questionAnswerQueryList"_s, list}});
                              return;
                          }
                          const QJsonArray answers{QJsonObject{{"id"_s, id},
                                                               {"questionId"_s, 1},
                                                               {"sourceId"_s, id},
                                                               {"author"_s, "Ann"_s},
                                                               {"answer"_s, "text %1"_s.arg(id)},
                                                               {"timestamp"_s, "2024-05-01T10:00:00Z"_s}}};
                          if (id == 7 && !healthy)
                              client.refuse(request);
                          else
                              client.reply(request, {{"questionAnswerQueryList"_s, answers}});
                      });
        QuestionAnswerMainModel& answers = *m_project->answers;
        const QAbstractItemModelTester tester(&answers);
        QuestionAnswerModel shown(m_helper.get());
        shown.setSourceId(15);
        QSignalSpy finished(&answers, &QuestionAnswerMainModel::textsFinished);
        QSignalSpy complete(&answers, &IModelListBase::initialDataSet);
        QList<Source> sources;
        for (int id = 1; id <= 20; ++id)
            sources << Source(id, "S"_s, {}, {}, {});
        m_project->sources->setData(sources);
        m_service->stall();
        answers.refreshAsync();
        QVERIFY(!answers.areTextsHere());
        QVERIFY(waitFor([&] { return answers.textsExpected() > 0; }));
        answers.addOrUpdate(testAnswer(3, 3, 1, "newer"_s));
        answers.removeByKey(4);
        emit m_helper->wsDisconnected();
        emit m_helper->wsConnected();
        m_service->resume();
        // One that is asked for is read at once.
        QCOMPARE(answers.answer(18, 1).plainAnswer(), "text 18"_s);
        QVERIFY(waitFor([&] { return finished.count() == 1; }));
        const QStringList texts = m_service->requestTexts().filter("questionAnswerQueryList("_s);
        QVERIFY(texts.first().contains(QLatin1String("(sourceId:15)")));
        QCOMPARE(shown.at(0).plainAnswer(), "text 15"_s);
        QCOMPARE(answers.rowCount(), 19);
        QCOMPARE(answers.answer(3, 1).plainAnswer(), "newer"_s);
        QCOMPARE(answers.textsFailed(), 1);
        QVERIFY(!answers.areTextsHere());
        healthy = true;
        answers.retryFailedTexts();
        QVERIFY(waitFor([&] { return answers.areTextsHere(); }));
        QCOMPARE(answers.rowCount(), 20);
        QCOMPARE(complete.count(), 1);
    }

    void failedReadsKeepWhatIsThere() {
        FakeText text;
        HighlightsModel highlights(&text, m_helper.get());
        QSignalSpy ready(&highlights, &HighlightsModel::modelReady);
        m_service->answer("highlightQueryListWithOffset"_s, QJsonArray{highlightJson(1, 1, 0, 5)});
        m_service->answer("sourceCodedLengthById"_s,
                          QJsonArray{QJsonObject{{"id"_s, 1}, {"coded_length"_s, 3}}});
        m_project->answers->setData({testAnswer(1, 1, 1, "1234567890"_s)});
        m_project->sources->setData({Source(1, "S"_s, {}, {}, {})});
        m_project->groups->setData({Group(1, "G"_s, true)});
        m_project->kernos->setData({testKerno(1), testKerno(2)});
        highlights.setSource(1, 1, 0, 100);
        QVERIFY(waitFor([&] {
            return highlights.rowCount() == 1 && m_project->kernos->highlightsCount(2) == 4 &&
                   m_project->sources->globalPercentageCoded() == 30;
        }));
        for (const char* operation :
             {"highlightQueryListWithOffset", "sourceCodedLengthById", "groupQueryList", "sourceQueryList",
              "questionAnswerQueryList", "quoteCountsInKernosQueryList"})
            m_service->fail(QLatin1String(operation));
        m_service->forgetRequests();
        highlights.refreshAsync();
        m_project->groups->refreshAsync();
        m_project->sources->refreshAsync();
        m_project->answers->refreshAsync();
        emit m_project->highlightSaved(testHighlight(7, 1, 0, 3));
        QVERIFY(waitFor([&] { return asked("sourceCodedLengthById") > 0 && asked("quoteCounts") > 0; }));
        awaitReplies();
        QCOMPARE(m_project->answers->rowCount(), 1);
        QCOMPARE(m_project->sources->rowCount(), 1);
        QCOMPARE(m_project->groups->rowCount(), 1);
        QCOMPARE(m_project->kernos->highlightsCount(2), 4);
        QCOMPARE(m_project->sources->globalPercentageCoded(), 30);
        QCOMPARE(highlights.rowCount(), 2);  // with the one that was saved
        // The text waits for its rows all the same; those of another text are none of its own.
        const int before = ready.count();
        highlights.setSource(2, 1, 0, 100);
        QVERIFY(waitFor([&] { return ready.count() > before; }));
        QCOMPARE(highlights.rowCount(), 0);
    }

    void repliesOfAClosedProjectAreDropped() {
        m_service->answer("highlightQueryListWithOffset"_s, QJsonArray{highlightJson(1, 1, 0, 5)});
        FakeText text;
        HighlightsModel highlights(&text, m_helper.get());
        m_service->stall();
        m_project->kernos->setData({testKerno(2)});
        highlights.setSource(1, 1, 0, 100);
        m_project->answers->refreshAsync();
        emit m_project->fileClosed();
        m_service->resume();
        awaitReplies();
        QCOMPARE(highlights.rowCount(), 0);
        QCOMPARE(m_project->answers->rowCount(), 0);
        QCOMPARE(m_project->kernos->highlightsCount(2), 0);
    }

    void countsAreAskedAnewWhenTheLinkIsBack() {
        m_service->ignore("quoteCountsInKernosQueryList"_s);
        m_project->kernos->setData({testKerno(1), testKerno(2)});
        emit m_helper->wsDisconnected();
        m_service->answer("quoteCountsInKernosQueryList"_s,
                          QJsonArray{QJsonObject{{"key"_s, 2}, {"value"_s, 4}}});
        emit m_helper->wsConnected();
        QVERIFY(waitFor([&] { return m_project->kernos->highlightsCount(2) == 4; }));
    }

private:
    /// Returns when all replies that were sent have come.
    void awaitReplies() {
        m_helper->queryInt("{highlightMaxId}"_s, "highlightMaxId"_s);
        QCoreApplication::processEvents();
    }
    int asked(const char* operation) const {
        const QStringList texts = m_service->requestTexts();
        return static_cast<int>(std::count_if(texts.cbegin(), texts.cend(), [operation](const QString& text) {
            return text.contains(QLatin1String(operation));
        }));
    }

    std::unique_ptr<ScriptedService> m_service;
    std::unique_ptr<DataHelper> m_helper;
    std::unique_ptr<FakeProject> m_project;
};

KERNOVA_GUI_TEST_MAIN(tst_ModelReads)
#include "moc_FakeText.cpp"
#include "tst_modelreads.moc"
