#include "FakeProject.h"
#include "models/ModelDelays.h"
#include "models/QuestionAnswerModel.h"
#include "models/QuestionAnswerProxyModel.h"
#include "models/SourceProxyModel.h"
#include "tests_support/TestMain.h"
#include "tests_support/WaitFor.h"

#include <QAbstractItemModelTester>
#include <QLoggingCategory>
#include <QSignalSpy>

namespace {

QString text(int length) {
    return QString(length, QLatin1Char('x'));
}

Question question(int id, int order) {
    return Question(id, QStringLiteral("Q%1").arg(id), order);
}

}  // namespace

/// Sources with their shares, questions in their order, and answers by source.
class tst_SourceModels : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false")); }
    void init() { m_project = std::make_unique<FakeProject>(); }
    void cleanup() { m_project.reset(); }

    void sharesAreWholePercents();
    void sortModes_data();
    void sortModes();
    void titlesAreFiltered();
    void questionsKeepTheirOrder();
    void aNewOrderMovesRows();
    void answersAreFound();
    void partsOfAnswers_data();
    void partsOfAnswers();
    void oneSourceShowsItsAnswers();
    void answersOfAnotherSourceDisturbNobody();

private:
    std::unique_ptr<FakeProject> m_project;
};

void tst_SourceModels::sharesAreWholePercents() {
    SourceModel& sources = *m_project->sources;
    const QAbstractItemModelTester tester(&sources);
    SourceProxyModel proxy;
    m_project->answers->setData({testAnswer(1, 1, 1, text(100)), testAnswer(2, 1, 2, text(50)),
                                 testAnswer(3, 2, 1, text(50)), testAnswer(4, 3, 1, QString())});
    for (int id = 1; id <= 4; ++id)
        sources.addOrUpdate(Source(id, QStringLiteral("S%1").arg(id), {}, {}, {}));
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
    QCOMPARE(changed.last().at(2).value<QVector<int>>(),
             (QVector<int>{SourceModel::SourcePercentageCodedRole, SourceModel::GlobalPercentageCodedRole}));
    // The row's role of the project's name gives the row's own share.
    QCOMPARE(proxy.get(0, "globalPercentageCoded"), QVariant(33));
    QVERIFY(!proxy.get(0, "nothing").isValid());
    const QJsonArray reply{QJsonObject{{QStringLiteral("id"), 2}, {QStringLiteral("coded_length"), 10}}};
    QCOMPARE(SourceModel::codedLengthsFromJson(reply), (QHash<int, int>{{2, 10}}));
    emit m_project->fileClosed();
    QCOMPARE(sources.globalPercentageCoded(), 0);
}

void tst_SourceModels::sortModes_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QList<int>>("order");
    QTest::newRow("default") << 0 << QList<int>{1, 2, 3};
    QTest::newRow("default down") << 1 << QList<int>{3, 2, 1};
    QTest::newRow("title") << 2 << QList<int>{2, 3, 1};
    QTest::newRow("title down") << 3 << QList<int>{1, 3, 2};
    QTest::newRow("author") << 4 << QList<int>{3, 1, 2};
    QTest::newRow("author down") << 5 << QList<int>{2, 1, 3};
    QTest::newRow("share") << 6 << QList<int>{2, 1, 3};
    QTest::newRow("share down") << 7 << QList<int>{3, 1, 2};
    QTest::newRow("unknown") << 8 << QList<int>{1, 2, 3};
}

void tst_SourceModels::sortModes() {
    QFETCH(int, mode);
    m_project->sources->setData({Source(3, QStringLiteral("b"), {}, QStringLiteral("Ann"), {}),
                                 Source(1, QStringLiteral("c"), {}, QStringLiteral("Bob"), {}),
                                 Source(2, QStringLiteral("a"), {}, QStringLiteral("Cy"), {})});
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
    QCOMPARE(proxy.getSortModes().at(7).toString(), QStringLiteral("Percentage Coded - Descending"));
}

void tst_SourceModels::titlesAreFiltered() {
    m_project->sources->setData(
        {Source(1, QStringLiteral("Interview"), {}, {}, {}), Source(2, QStringLiteral("Diary"), {}, {}, {})});
    SourceProxyModel proxy;
    QSignalSpy counted(&proxy, &SourceProxyModel::countChanged);
    proxy.setFilterRegExp(QRegExp(QStringLiteral("inter"), Qt::CaseInsensitive));
    QCOMPARE(proxy.count(), 1);
    QCOMPARE(counted.count(), 1);
}

void tst_SourceModels::questionsKeepTheirOrder() {
    QuestionModel& questions = *m_project->questions;
    const QAbstractItemModelTester tester(&questions);
    questions.addOrUpdate(question(1, 5));
    questions.addOrUpdate(question(2, 3));
    questions.addOrUpdate(question(3, 5));
    questions.addOrUpdate(question(4, 9));
    questions.addOrUpdate(question(5, 3));
    QCOMPARE(idsOf(questions), (QList<int>{2, 5, 1, 3, 4}));
    QCOMPARE(questions.maxQuestionOrder(), 9);
    QCOMPARE(questions.questionText(4), QStringLiteral("Q4"));
    QCOMPARE(questions.questionOrder(77), 0);
    QVERIFY(questions.hasQuestion(QStringLiteral("Q2")));
    QVERIFY(!questions.hasQuestion(QStringLiteral("q2")));
    QCOMPARE(questions.get(0).questionId(), 2);
    QCOMPARE(questions.IModelListBase::get(0, "question").toString(), QStringLiteral("Q2"));
}

void tst_SourceModels::aNewOrderMovesRows() {
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
    questions.addOrUpdate(Question(1, QStringLiteral("other"), 10));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(ordered.count(), 1);
    QCOMPARE(reset.count(), 0);
    QCOMPARE(questions.indexOfKey(1), 3);
}

void tst_SourceModels::answersAreFound() {
    QuestionAnswerMainModel& answers = *m_project->answers;
    answers.setData({testAnswer(1, 1, 1, text(5)), testAnswer(2, 2, 1, text(7)), testAnswer(3, 1, 2, text(4)),
                     testAnswer(4, 1, 2, text(9))});
    QCOMPARE(answers.answer(1, 2).answerId(), 3);
    QVERIFY(answers.answer(2, 2).answerId() < 1);
    QCOMPARE(answers.answers(1).size(), 3);
    QCOMPARE(answers.lengthsBySource(), (QHash<int, int>{{1, 18}, {2, 7}}));
    answers.removeByKey(3);
    QCOMPARE(answers.answer(1, 2).answerId(), 4);
    answers.addOrUpdate(testAnswer(4, 2, 2, text(1)));
    QVERIFY(answers.answer(1, 2).answerId() < 1);
    QCOMPARE(answers.answer(2, 2).answerId(), 4);
}

void tst_SourceModels::partsOfAnswers_data() {
    QTest::addColumn<int>("questionId");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("part");
    QTest::newRow("middle") << 1 << 2 << 3 << QStringLiteral("cde");
    QTest::newRow("no length") << 1 << 2 << 0 << QString();
    QTest::newRow("at the end") << 1 << 6 << 1 << QString();
    QTest::newRow("negative") << 1 << -1 << 3 << QString();
    QTest::newRow("unknown") << 2 << 0 << 3 << QString();
}

void tst_SourceModels::partsOfAnswers() {
    QFETCH(int, questionId);
    QFETCH(int, start);
    QFETCH(int, length);
    m_project->answers->setData({testAnswer(1, 1, 1, QStringLiteral("abcdef"))});
    const QuestionAnswer part = m_project->answers->partialAnswer(1, questionId, start, length);
    QTEST(part.plainAnswer(), "part");
    QCOMPARE(part.offset(), part.answerId() > 0 ? start : 0);
}

void tst_SourceModels::oneSourceShowsItsAnswers() {
    m_project->questions->setData({question(2, 1), question(1, 2)});
    m_project->answers->setData(
        {testAnswer(1, 1, 1, text(5)), testAnswer(2, 2, 1, text(7)), testAnswer(3, 1, 2, text(4))});
    QuestionAnswerProxyModel proxy;
    const QAbstractItemModelTester tester(&proxy);
    QSignalSpy sourceChanged(&proxy, &QuestionAnswerProxyModel::sourceIdChanged);
    proxy.setSourceId(1);
    QCOMPARE(sourceChanged.count(), 1);
    QCOMPARE(idsOf(proxy), (QList<int>{3, 1}));
    QCOMPARE(proxy.index(0, 0).data(QuestionAnswerModelBase::QuestionRole).toString(), QStringLiteral("Q2"));
    m_project->questions->addOrUpdate(question(2, 5));
    QCOMPARE(idsOf(proxy), (QList<int>{1, 3}));
    m_project->answers->addOrUpdate(testAnswer(9, 1, 1, text(2)));
    QCOMPARE(proxy.rowCount(), 3);
    m_project->answers->removeByKey(1);
    QVERIFY(waitFor([&] { return proxy.rowCount() == 2; }));
    emit m_project->fileClosed();
    QVERIFY(waitFor([&] { return proxy.rowCount() == 0; }));
}

void tst_SourceModels::answersOfAnotherSourceDisturbNobody() {
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

KERNOVA_GUI_TEST_MAIN(tst_SourceModels)
#include "tst_sourcemodels.moc"
