#include "FakeProject.h"
#include "models/ModelDelays.h"
#include "models/QuestionAnswerModel.h"
#include "models/QuestionAnswerProxyModel.h"
#include "models/SourceProxyModel.h"
#include "tests_support/TestMain.h"

namespace {

QString text(int length) {
    return QString(length, QLatin1Char('x'));
}

Question question(int id, int order) {
    return Question(id, "Q%1"_s.arg(id), order);
}

}  // namespace

/// Sources with their shares, questions in their order, and answers by source.
class tst_SourceModels : public QObject {
    Q_OBJECT

private slots:
    void init() { m_project = std::make_unique<FakeProject>(); }
    void cleanup() { m_project.reset(); }

    void sharesAreWholePercents() {
        SourceModel& sources = *m_project->sources;
        const QAbstractItemModelTester tester(&sources);
        SourceProxyModel proxy;
        m_project->answers->setData({testAnswer(1, 1, 1, text(100)), testAnswer(2, 1, 2, text(50)),
                                     testAnswer(3, 2, 1, text(50)), testAnswer(4, 3, 1, QString())});
        for (int id = 1; id <= 4; ++id)
            sources.addOrUpdate(Source(id, "S%1"_s.arg(id), {}, {}, {}));
        QCOMPARE(sources.globalPercentageCoded(), 0);
        QSignalSpy global(&proxy, &SourceProxyModel::globalPercentageCodedChanged);
        QSignalSpy changed(&sources, &QAbstractItemModel::dataChanged);
        sources.applyCodedLengths({{1, 50}, {2, 49}, {3, 5}, {9, 99}});
        QCOMPARE(sources.percentageCoded(1), 33);
        QCOMPARE(sources.percentageCoded(2), 98);
        QCOMPARE(sources.percentageCoded(3), 0);
        QCOMPARE(sources.percentageCoded(4), 0);
        QCOMPARE(sources.globalPercentageCoded(), 52);
        QCOMPARE(proxy.globalPercentageCoded(), 52);
        QCOMPARE(global.count(), 1);
        QCOMPARE(
            changed.last().at(2).value<QVector<int>>(),
            (QVector<int>{SourceModel::SourcePercentageCodedRole, SourceModel::GlobalPercentageCodedRole}));
        // The row's role of the project's name gives the row's own share.
        QCOMPARE(proxy.get(0, "globalPercentageCoded"), QVariant(33));
        QVERIFY(!proxy.get(0, "nothing").isValid());
        const QJsonArray reply{QJsonObject{{"id"_s, 2}, {"coded_length"_s, 10}}};
        QCOMPARE(SourceModel::codedLengthsFromJson(reply), (QHash<int, int>{{2, 10}}));
        emit m_project->fileClosed();
        QCOMPARE(sources.globalPercentageCoded(), 0);
    }

    void sortModes_data() {
        columns<int, QList<int>>({"mode", "order"});
        addRow("default", 0, QList<int>{1, 2, 3});
        addRow("default down", 1, QList<int>{3, 2, 1});
        addRow("title", 2, QList<int>{2, 3, 1});
        addRow("title down", 3, QList<int>{1, 3, 2});
        addRow("author", 4, QList<int>{3, 1, 2});
        addRow("author down", 5, QList<int>{2, 1, 3});
        addRow("share", 6, QList<int>{2, 1, 3});
        addRow("share down", 7, QList<int>{3, 1, 2});
        addRow("unknown", 8, QList<int>{1, 2, 3});
    }

    void sortModes() {
        QFETCH(int, mode);
        m_project->sources->setData({Source(3, "b"_s, {}, "Ann"_s, {}), Source(1, "c"_s, {}, "Bob"_s, {}),
                                     Source(2, "a"_s, {}, "Cy"_s, {})});
        m_project->answers->setData(
            {testAnswer(1, 1, 1, text(10)), testAnswer(2, 2, 1, text(10)), testAnswer(3, 3, 1, text(10))});
        m_project->sources->applyCodedLengths({{1, 5}, {2, 1}, {3, 9}});
        SourceProxyModel proxy;
        QSignalSpy changed(&proxy, &SourceProxyModel::sortModeChanged);
        proxy.setSortMode(mode == 0 ? 3 : 0);
        proxy.setSortMode(mode);
        QTEST(idsOf(proxy), "order");
        QVERIFY(changed.count() >= 1);
        QCOMPARE(proxy.getSortModes().size(), 8);
        QCOMPARE(proxy.getSortModes().at(7).toString(), "Percentage Coded - Descending"_s);
    }

    void questionsKeepTheirOrder() {
        QuestionModel& questions = *m_project->questions;
        const QAbstractItemModelTester tester(&questions);
        questions.addOrUpdate(question(1, 5));
        questions.addOrUpdate(question(2, 3));
        questions.addOrUpdate(question(3, 5));
        questions.addOrUpdate(question(4, 9));
        questions.addOrUpdate(question(5, 3));
        QCOMPARE(idsOf(questions), (QList<int>{2, 5, 1, 3, 4}));
        QCOMPARE(questions.maxQuestionOrder(), 9);
        QCOMPARE(questions.questionText(4), "Q4"_s);
        QCOMPARE(questions.questionOrder(77), 0);
        QVERIFY(questions.hasQuestion("Q2"_s));
        QVERIFY(!questions.hasQuestion("q2"_s));
        QCOMPARE(questions.get(0).questionId(), 2);
        QCOMPARE(questions.IModelListBase::get(0, "question").toString(), "Q2"_s);
    }

    void aNewOrderMovesRows() {
        QuestionModel& questions = *m_project->questions;
        const QAbstractItemModelTester tester(&questions);
        questions.setData({question(1, 1), question(2, 2), question(3, 3), question(4, 4)});
        QSignalSpy moved(&questions, &QAbstractItemModel::rowsMoved);
        QSignalSpy reset(&questions, &QAbstractItemModel::modelReset);
        QSignalSpy ordered(&questions, &QuestionModel::questionsOrderChanged);
        questions.addOrUpdate(question(1, 9));
        QCOMPARE(idsOf(questions), (QList<int>{2, 3, 4, 1}));
        QCOMPARE(moved.count(), 1);
        QCOMPARE(moved.first().at(4).toInt(), 4);
        questions.addOrUpdate(question(1, 10));
        questions.addOrUpdate(Question(1, "other"_s, 10));
        QCOMPARE(moved.count(), 1);
        QCOMPARE(ordered.count(), 1);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(questions.indexOfKey(1), 3);
    }

    void answersAreFound() {
        QuestionAnswerMainModel& answers = *m_project->answers;
        answers.setData({testAnswer(1, 1, 1, text(5)), testAnswer(2, 2, 1, text(7)),
                         testAnswer(3, 1, 2, text(4)), testAnswer(4, 1, 2, text(9))});
        QCOMPARE(answers.answer(1, 2).answerId(), 3);
        QVERIFY(answers.answer(2, 2).answerId() < 1);
        QCOMPARE(answers.answers(1).size(), 3);
        QCOMPARE(answers.partialAnswer(2, 1, 3, 2).offset(), 3);
        for (const auto& [start, length] : {std::pair{2, 0}, {7, 1}, {-1, 3}})
            QVERIFY(answers.partialAnswer(2, 1, start, length).answerId() < 1);
        QCOMPARE(answers.lengthsBySource(), (QHash<int, int>{{1, 18}, {2, 7}}));
        answers.removeByKey(3);
        QCOMPARE(answers.answer(1, 2).answerId(), 4);
        answers.addOrUpdate(testAnswer(4, 2, 2, text(1)));
        QVERIFY(answers.answer(1, 2).answerId() < 1);
        QCOMPARE(answers.answer(2, 2).answerId(), 4);
    }

    void oneSourceShowsItsAnswers() {
        m_project->questions->setData({question(2, 1), question(1, 2)});
        m_project->answers->setData(
            {testAnswer(1, 1, 1, text(5)), testAnswer(2, 2, 1, text(7)), testAnswer(3, 1, 2, text(4))});
        QuestionAnswerProxyModel proxy;
        const QAbstractItemModelTester tester(&proxy);
        QSignalSpy sourceChanged(&proxy, &QuestionAnswerProxyModel::sourceIdChanged);
        proxy.setSourceId(1);
        QCOMPARE(sourceChanged.count(), 1);
        QCOMPARE(idsOf(proxy), (QList<int>{3, 1}));
        QCOMPARE(proxy.index(0, 0).data(QuestionAnswerModelBase::QuestionRole).toString(), "Q2"_s);
        m_project->questions->addOrUpdate(question(2, 5));
        QCOMPARE(idsOf(proxy), (QList<int>{1, 3}));
        m_project->answers->addOrUpdate(testAnswer(9, 1, 1, text(2)));
        QCOMPARE(proxy.rowCount(), 3);
        m_project->answers->removeByKey(1);
        QVERIFY(waitFor([&] { return proxy.rowCount() == 2; }));
        emit m_project->fileClosed();
        QVERIFY(waitFor([&] { return proxy.rowCount() == 0; }));
    }

    void answersOfAnotherSourceDisturbNobody() {
        m_project->answers->setData({testAnswer(1, 1, 1, text(5)), testAnswer(2, 2, 1, text(7))});
        QuestionAnswerModel model(nullptr);
        model.setSourceId(1);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        m_project->answers->addOrUpdate(testAnswer(2, 2, 1, text(3)));
        m_project->answers->addOrUpdate(testAnswer(3, 2, 2, text(4)));
        QCoreApplication::processEvents();
        QCOMPARE(changed.count() + inserted.count(), 0);
        // One of the shown source's comes in its own row.
        m_project->answers->addOrUpdate(testAnswer(1, 1, 1, text(6)));
        QCoreApplication::processEvents();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(model.at(0).answerLength(), 6);
    }

private:
    std::unique_ptr<FakeProject> m_project;
};

KERNOVA_GUI_TEST_MAIN(tst_SourceModels)
#include "tst_sourcemodels.moc"
