#include "FakeProject.h"
#include "link/DataHelper.h"
#include "models/HighlightsModel.h"
#include "models/ModelDelays.h"
#include "models/QuestionAnswerModel.h"
#include "tests_support/ScriptedService.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"

#include <QAbstractItemModelTester>
#include <QLoggingCategory>
#include <QSignalSpy>

namespace {

QJsonObject highlightJson(int id, int sourceId, int start, int length) {
    return {{QStringLiteral("id"), id},
            {QStringLiteral("kernoId"), 1},
            {QStringLiteral("sourceId"), sourceId},
            {QStringLiteral("questionId"), 1},
            {QStringLiteral("color"), QStringLiteral("#ff0000")},
            {QStringLiteral("start"), start},
            {QStringLiteral("length"), length},
            {QStringLiteral("author"), QStringLiteral("Ann")},
            {QStringLiteral("timestamp"), QStringLiteral("2024-05-01T10:00:00Z")}};
}

class StillText : public QObject, public TextGeometry {
    Q_OBJECT

public:
    QRectF rectangleAt(int position) const override { return {0, position * 1.0, 1, 1}; }
    double lineHeight() const override { return 1; }
    int textLength() const override { return 1000; }
    bool isReadOnlyText() const override { return true; }
    bool isComplete() const override { return true; }
    QObject* item() override { return this; }

signals:
    void contentSizeChanged();
    void readOnlyChanged(bool readOnly);
};

}  // namespace

/// What the models ask a service, how often, and what they make of replies that come late.
class tst_ModelReads : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aBurstOfCodingsIsCountedTwiceAtMost();
    void countsWaitForTheEndOfABulkChange();
    void sharesAreCountedOncePerBurst();
    void windowsAreCutAndSorted();
    void repliesForAnotherTextAreDropped();
    void openingFillsTheModels();
    void textsArriveSourceBySource();
    void failedReadsKeepWhatIsThere();
    void repliesOfAClosedProjectAreDropped();
    void countsAreAskedAnewWhenTheLinkIsBack();

private:
    /// From now on the operation is answered by an error, and by nothing else.
    void fail(const char* operation) {
        m_service->on(QLatin1String(operation), [](ScriptedClient& client, const ScriptedRequest& request) {
            const QJsonArray errors{
                QJsonObject{{QStringLiteral("message"), QStringLiteral("the disk is full")}}};
            client.send({request.frame.messageId, 200, {{QStringLiteral("errors"), errors}}});
        });
    }
    /// Returns when all replies that were sent have come.
    void awaitReplies() {
        m_helper->queryInt(QStringLiteral("{highlightMaxId}"), QStringLiteral("highlightMaxId"));
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

void tst_ModelReads::initTestCase() {
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    modelDelays().codingStats = 20;
}

void tst_ModelReads::init() {
    m_service = std::make_unique<ScriptedService>();
    m_helper = std::make_unique<DataHelper>();
    QVERIFY(m_helper->openProject({{QStringLiteral("name"), QStringLiteral("p")}}));
    m_project = std::make_unique<FakeProject>(m_helper.get());
    const QJsonArray counts{QJsonObject{{QStringLiteral("key"), 2}, {QStringLiteral("value"), 4}}};
    m_service->answer(QStringLiteral("quoteCountsInKernosQueryList"), counts);
    m_service->answer(QStringLiteral("sourceCodedLengthById"), QJsonArray());
    m_service->forgetRequests();
}

void tst_ModelReads::cleanup() {
    m_project.reset();
    m_helper.reset();
    m_service.reset();
}

void tst_ModelReads::aBurstOfCodingsIsCountedTwiceAtMost() {
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

void tst_ModelReads::countsWaitForTheEndOfABulkChange() {
    QSignalSpy counted(m_project->kernos.get(), &KernoModel::highlightsChanged);
    m_project->batchOperationManager()->startKernoBatch();
    m_project->kernos->setData({testKerno(1)});
    emit m_project->highlightDeleted(testHighlight(1, 1, 0, 5));
    emit m_project->batchHighlightSaved({1}, {1});
    m_project->batchOperationManager()->finishKernoBatch();
    QVERIFY(waitFor([&] { return counted.count() > 0; }));
    QCOMPARE(asked("quoteCounts"), 1);
}

void tst_ModelReads::sharesAreCountedOncePerBurst() {
    m_service->answer(
        QStringLiteral("sourceCodedLengthById"),
        QJsonArray{QJsonObject{{QStringLiteral("id"), 1}, {QStringLiteral("coded_length"), 3}}});
    m_project->answers->setData({testAnswer(1, 1, 1, QStringLiteral("1234567890"))});
    m_project->sources->setData({Source(1, QStringLiteral("S"), {}, {}, {})});
    for (int i = 0; i < 20; ++i) {
        emit m_project->highlightSaved(testHighlight(i, 1, 0, 3));
        emit m_project->highlightDeleted(testHighlight(i, 1, 0, 3, 99));
    }
    QVERIFY(waitFor([&] { return m_project->sources->globalPercentageCoded() == 30; }));
    QCOMPARE(asked("sourceCodedLengthById"), 1);
}

void tst_ModelReads::windowsAreCutAndSorted() {
    m_service->answer(QStringLiteral("highlightQueryListWithOffset"),
                      QJsonArray{highlightJson(1, 1, 130, 10), highlightJson(2, 1, 90, 20),
                                 highlightJson(3, 1, 50, 50), highlightJson(4, 1, 130, 15)});
    StillText text;
    HighlightsModel model(&text, m_helper.get());
    QSignalSpy ready(&model, &HighlightsModel::modelReady);
    model.setSource(1, 1, 100, 400);
    QVERIFY(waitFor([&] { return ready.count() == 1; }));
    QCOMPARE(asked("highlightQueryListWithOffset(sourceId:1 questionId:1 sourceOffset:100 sourceLength:400)"),
             1);
    QCOMPARE(idsOf(model), (QList<int>{2, 4, 1}));
    QCOMPARE(model.at(0).start(), 0);
    QCOMPARE(model.at(0).end(), 10);
    // One reload at the end of a batch.
    m_project->batchOperationManager()->startHighlightBatch(1, 1);
    emit m_project->batchHighlightSaved({1}, {1});
    m_project->batchOperationManager()->finishHighlightBatch(1, 1);
    QVERIFY(waitFor([&] { return ready.count() == 2; }));
    QCOMPARE(asked("highlightQueryListWithOffset"), 2);
    emit m_project->batchHighlightDeleted({2}, {1});
    QCOMPARE(asked("highlightQueryListWithOffset"), 2);
}

void tst_ModelReads::repliesForAnotherTextAreDropped() {
    m_service->on(QStringLiteral("highlightQueryListWithOffset"),
                  [](ScriptedClient& client, const ScriptedRequest& request) {
                      const int sourceId = request.argument(QStringLiteral("sourceId")).toInt();
                      client.reply(request, {{QStringLiteral("highlightQueryListWithOffset"),
                                              QJsonArray{highlightJson(sourceId, sourceId, 0, 5)}}});
                  });
    StillText text;
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

void tst_ModelReads::openingFillsTheModels() {
    const auto record = [](std::initializer_list<QPair<QString, QJsonValue>> fields) {
        return QJsonArray{QJsonObject(fields)};
    };
    const QString author = QStringLiteral("author");
    const QString timestamp = QStringLiteral("timestamp");
    const QString time = QStringLiteral("2024-05-01T10:00:00Z");
    m_service->answer(QStringLiteral("questionQueryList"),
                      QJsonArray{QJsonObject{{QStringLiteral("id"), 1},
                                             {QStringLiteral("question"), QStringLiteral("a")},
                                             {QStringLiteral("questionOrder"), 2}},
                                 QJsonObject{{QStringLiteral("id"), 2},
                                             {QStringLiteral("question"), QStringLiteral("b")},
                                             {QStringLiteral("questionOrder"), 1}}});
    m_service->answer(QStringLiteral("questionAnswerQueryList"),
                      record({{QStringLiteral("id"), 1},
                              {QStringLiteral("questionId"), 1},
                              {QStringLiteral("sourceId"), 1},
                              {author, author},
                              {QStringLiteral("answer"), QStringLiteral("text")},
                              {timestamp, time}}));
    m_service->answer(QStringLiteral("sourceQueryList"),
                      record({{QStringLiteral("id"), 1},
                              {QStringLiteral("title"), QStringLiteral("S")},
                              {QStringLiteral("icon"), QString()},
                              {author, author},
                              {timestamp, time}}));
    QSignalSpy first(m_project->answers.get(), &IModelListBase::initialDataSet);
    emit m_project->fileOpened();
    QVERIFY(waitFor([&] { return first.count() == 1; }));
    QCOMPARE(idsOf(*m_project->questions), (QList<int>{2, 1}));
    QCOMPARE(m_project->sources->rowCount(), 1);
    QCOMPARE(m_project->answers->answer(1, 1).plainAnswer(), QStringLiteral("text"));
    QVERIFY(waitFor([&] { return asked("sourceCodedLengthById") > 0; }));
    QCOMPARE(asked("kernoQueryList"), 0);  // the project hands the kernos over
}

// Through a change, a removal, a failure and a loss of the link while they are on their way.
void tst_ModelReads::textsArriveSourceBySource() {
    std::atomic<bool> healthy{false};
    m_service->on(QStringLiteral("questionAnswerQueryList"), [&](ScriptedClient& client,
                                                                 const ScriptedRequest& request) {
        const int id = request.argument(QStringLiteral("sourceId")).toInt();
        if (id == 0) {
            // The list of sources that have answers: the last one's source isn't there yet.
            QJsonArray list;
            for (int sourceId = 1; sourceId <= 21; ++sourceId)
                list.append(QJsonObject{{QStringLiteral("sourceId"), sourceId}});
            client.reply(request, {{QStringLiteral("questionAnswerQueryList"), list}});
            return;
        }
        const QJsonArray answers{
            QJsonObject{{QStringLiteral("id"), id},
                        {QStringLiteral("questionId"), 1},
                        {QStringLiteral("sourceId"), id},
                        {QStringLiteral("author"), QStringLiteral("Ann")},
                        {QStringLiteral("answer"), QStringLiteral("text %1").arg(id)},
                        {QStringLiteral("timestamp"), QStringLiteral("2024-05-01T10:00:00Z")}}};
        if (id == 7 && !healthy)
            client.send(
                {request.frame.messageId, 200, {{QStringLiteral("errors"), QJsonArray{QJsonObject()}}}});
        else
            client.reply(request, {{QStringLiteral("questionAnswerQueryList"), answers}});
    });
    QuestionAnswerMainModel& answers = *m_project->answers;
    const QAbstractItemModelTester tester(&answers);
    QuestionAnswerModel shown(m_helper.get());
    shown.setSourceId(15);
    QSignalSpy finished(&answers, &QuestionAnswerMainModel::textsFinished);
    QSignalSpy complete(&answers, &IModelListBase::initialDataSet);
    QList<Source> sources;
    for (int id = 1; id <= 20; ++id)
        sources << Source(id, QStringLiteral("S"), {}, {}, {});
    m_project->sources->setData(sources);
    m_service->stall();
    answers.refreshAsync();
    QVERIFY(!answers.areTextsHere());
    QVERIFY(waitFor([&] { return answers.textsExpected() > 0; }));
    answers.addOrUpdate(testAnswer(3, 3, 1, QStringLiteral("newer")));
    answers.removeByKey(4);
    emit m_helper->wsDisconnected();
    emit m_helper->wsConnected();
    m_service->resume();
    // One that is asked for is read at once.
    QCOMPARE(answers.answer(18, 1).plainAnswer(), QStringLiteral("text 18"));
    QVERIFY(waitFor([&] { return finished.count() == 1; }));
    const QStringList texts = m_service->requestTexts().filter(QStringLiteral("questionAnswerQueryList("));
    QVERIFY(texts.first().contains(QLatin1String("(sourceId:15)")));
    QCOMPARE(shown.at(0).plainAnswer(), QStringLiteral("text 15"));
    QCOMPARE(answers.rowCount(), 19);
    QCOMPARE(answers.answer(3, 1).plainAnswer(), QStringLiteral("newer"));
    QCOMPARE(answers.textsFailed(), 1);
    QVERIFY(!answers.areTextsHere());
    healthy = true;
    answers.retryFailedTexts();
    QVERIFY(waitFor([&] { return answers.areTextsHere(); }));
    QCOMPARE(answers.rowCount(), 20);
    QCOMPARE(complete.count(), 1);
}

void tst_ModelReads::failedReadsKeepWhatIsThere() {
    StillText text;
    HighlightsModel highlights(&text, m_helper.get());
    QSignalSpy ready(&highlights, &HighlightsModel::modelReady);
    m_service->answer(QStringLiteral("highlightQueryListWithOffset"), QJsonArray{highlightJson(1, 1, 0, 5)});
    m_service->answer(
        QStringLiteral("sourceCodedLengthById"),
        QJsonArray{QJsonObject{{QStringLiteral("id"), 1}, {QStringLiteral("coded_length"), 3}}});
    m_project->answers->setData({testAnswer(1, 1, 1, QStringLiteral("1234567890"))});
    m_project->sources->setData({Source(1, QStringLiteral("S"), {}, {}, {})});
    m_project->groups->setData({Group(1, QStringLiteral("G"), true)});
    m_project->kernos->setData({testKerno(1), testKerno(2)});
    highlights.setSource(1, 1, 0, 100);
    QVERIFY(waitFor([&] {
        return highlights.rowCount() == 1 && m_project->kernos->highlightsCount(2) == 4 &&
               m_project->sources->globalPercentageCoded() == 30;
    }));
    for (const char* operation :
         {"highlightQueryListWithOffset", "sourceCodedLengthById", "groupQueryList", "sourceQueryList",
          "questionAnswerQueryList", "quoteCountsInKernosQueryList"})
        fail(operation);
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

void tst_ModelReads::repliesOfAClosedProjectAreDropped() {
    m_service->answer(QStringLiteral("highlightQueryListWithOffset"), QJsonArray{highlightJson(1, 1, 0, 5)});
    StillText text;
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

void tst_ModelReads::countsAreAskedAnewWhenTheLinkIsBack() {
    m_service->ignore(QStringLiteral("quoteCountsInKernosQueryList"));
    m_project->kernos->setData({testKerno(1), testKerno(2)});
    emit m_helper->wsDisconnected();
    m_service->answer(QStringLiteral("quoteCountsInKernosQueryList"),
                      QJsonArray{QJsonObject{{QStringLiteral("key"), 2}, {QStringLiteral("value"), 4}}});
    emit m_helper->wsConnected();
    QVERIFY(waitFor([&] { return m_project->kernos->highlightsCount(2) == 4; }));
}

KERNOVA_GUI_TEST_MAIN(tst_ModelReads)
#include "tst_modelreads.moc"
