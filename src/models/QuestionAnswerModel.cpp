#include "models/QuestionAnswerModel.h"

#include "models/ProjectEvents.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"

#include <QMutexLocker>
#include <QTimer>
#include <algorithm>

QuestionAnswerModel::QuestionAnswerModel(DataHelper* helper, QObject* parent)
    : QuestionAnswerModelBase(helper, parent), m_mainModel(project() ? project()->answerModel() : nullptr) {
    connect(this, &QuestionAnswerModelBase::sourceIdChanged, this, &QuestionAnswerModel::updateFromMainModel);
    if (m_mainModel) {
        const auto later = &QuestionAnswerModel::delayedUpdateFromMainModel;
        connect(m_mainModel, &QuestionAnswerMainModel::dataFetched, this,
                &QuestionAnswerModel::onDataFetched);
        connect(m_mainModel, &QuestionAnswerMainModel::modelAdded, this,
                &QuestionAnswerModel::onModelAddedToMainModel);
        connect(m_mainModel, &QuestionAnswerMainModel::modelUpdated, this,
                &QuestionAnswerModel::onModelUpdatedInMainModel);
        connect(m_mainModel, &IModelListBase::initialDataSet, this, later);
        connect(m_mainModel, &QAbstractItemModel::modelReset, this, later);
        connect(m_mainModel, &QAbstractItemModel::dataChanged, this, later);
        connect(m_mainModel, &QAbstractItemModel::rowsInserted, this, later);
        connect(m_mainModel, &QAbstractItemModel::rowsRemoved, this, later);
    }
    if (QuestionModel* questions = questionModel())
        connect(questions, &QuestionModel::questionsOrderChanged, this,
                &QuestionAnswerModel::onQuestionsOrderChanged);
}

void QuestionAnswerModel::onDataFetched(QList<QuestionAnswer> data) {
    filterAndSetData(data);
}

void QuestionAnswerModel::updateFromMainModel() {
    m_updatePending = false;
    if (!m_mainModel)
        return;
    const QList<QuestionAnswer> answers = m_mainModel->answers(sourceId());
    const bool sameRows = !answers.isEmpty() && answers.size() == rowCount() &&
                          std::all_of(answers.cbegin(), answers.cend(), [this](const QuestionAnswer& answer) {
                              return contains(answer.answerId());
                          });
    if (!sameRows) {
        setData(answers);
        return;
    }
    // Each row keeps its place, so that the text that somebody reads in it stays where it is.
    for (const QuestionAnswer& answer : answers)
        addOrUpdate(answer);
}

void QuestionAnswerModel::delayedUpdateFromMainModel() {
    if (m_updatePending)
        return;
    m_updatePending = true;
    QTimer::singleShot(0, this, &QuestionAnswerModel::updateFromMainModel);
}

void QuestionAnswerModel::onModelAddedToMainModel(QuestionAnswer answer) {
    if (answer.sourceId() == sourceId())
        addOrUpdate(answer);
}

void QuestionAnswerModel::onModelUpdatedInMainModel(QuestionAnswer answer) {
    if (answer.sourceId() == sourceId())
        addOrUpdate(answer);
}

void QuestionAnswerModel::filterAndSetData(QList<QuestionAnswer> list) {
    QList<QuestionAnswer> own;
    for (const QuestionAnswer& answer : qAsConst(list)) {
        if (answer.sourceId() == sourceId())
            own.append(answer);
    }
    setData(own);
}

void QuestionAnswerModel::onQuestionsOrderChanged() {
    const QMutexLocker lock(&m_mutex);
    emitAllChanged({QuestionOrderRole});
}
