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
        connect(m_mainModel, &QuestionAnswerMainModel::modelAdded, this,
                &QuestionAnswerModel::onModelAddedToMainModel);
        connect(m_mainModel, &QuestionAnswerMainModel::modelUpdated, this,
                &QuestionAnswerModel::onModelUpdatedInMainModel);
        connect(m_mainModel, &IModelListBase::initialDataSet, this, later);
        connect(m_mainModel, &QAbstractItemModel::modelReset, this, later);
        connect(m_mainModel, &QAbstractItemModel::dataChanged, this, later);
        connect(m_mainModel, &QAbstractItemModel::rowsInserted, this,
                &QuestionAnswerModel::onRowsInsertedInMainModel);
        connect(m_mainModel, &QAbstractItemModel::rowsRemoved, this, later);
    }
    if (QuestionModel* questions = questionModel())
        connect(questions, &QuestionModel::questionsOrderChanged, this,
                &QuestionAnswerModel::onQuestionsOrderChanged);
}

void QuestionAnswerModel::updateFromMainModel() {
    m_updatePending = false;
    if (!m_mainModel)
        return;
    m_mainModel->prefer(sourceId());
    const QList<QuestionAnswer> answers = m_mainModel->arrivedAnswers(sourceId());
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

// While a project's texts arrive, those of other sources come by the hundred.
void QuestionAnswerModel::onRowsInsertedInMainModel(const QModelIndex&, int first, int last) {
    for (int row = first; row <= last; ++row) {
        if (m_mainModel->sourceIdAt(row) == sourceId()) {
            delayedUpdateFromMainModel();
            return;
        }
    }
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

void QuestionAnswerModel::onQuestionsOrderChanged() {
    const QMutexLocker lock(&m_mutex);
    emitAllChanged({QuestionOrderRole});
}
