#include "models/QuestionAnswerProxyModel.h"

#include "models/ProjectEvents.h"
#include "models/QuestionAnswerModel.h"

QuestionAnswerProxyModel::QuestionAnswerProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent),
      m_answers(new QuestionAnswerModel(
          ProjectEvents::current() ? ProjectEvents::current()->dataHelper() : nullptr, this)) {
    connect(m_answers, &QuestionAnswerModel::sourceIdChanged, this,
            &QuestionAnswerProxyModel::sourceIdChanged);
    setSortRole(QuestionAnswerModelBase::QuestionOrderRole);
    setSourceModel(m_answers);
    sort(0, Qt::AscendingOrder);
}

int QuestionAnswerProxyModel::sourceId() const {
    return m_answers->sourceId();
}

void QuestionAnswerProxyModel::setSourceId(int sourceId) {
    m_answers->setSourceId(sourceId);
}
