#include "models/QuestionAnswerModelBase.h"

#include "models/ProjectEvents.h"
#include "models/QuestionModel.h"

#include <QMutexLocker>

QuestionAnswerModelBase::QuestionAnswerModelBase(DataHelper* helper, QObject* parent)
    : IModelList(helper, parent), m_questionModel(project() ? project()->questionListModel() : nullptr) {}

QuestionModel* QuestionAnswerModelBase::questionModel() const {
    return qobject_cast<QuestionModel*>(m_questionModel);
}

QVariant QuestionAnswerModelBase::data(const QModelIndex& index, int role) const {
    if (role <= static_cast<int>(QuestionAnswerField::isHtml))
        return IModelList::data(index, role);
    const QuestionModel* questions = questionModel();
    const QMutexLocker lock(&m_mutex);
    const int row = index.row();
    if (!questions || row < 0 || row >= items().size())
        return {};
    switch (role) {
    case QuestionRole:
        return questions->questionText(items().at(row)->questionId());
    case QuestionOrderRole:
        return questions->questionOrder(items().at(row)->questionId());
    default:
        return {};
    }
}

QHash<int, QByteArray> QuestionAnswerModelBase::roleNames() const {
    QHash<int, QByteArray> names = IModelList::roleNames();
    names.insert(QuestionRole, "question");
    names.insert(QuestionOrderRole, "questionOrder");
    return names;
}

void QuestionAnswerModelBase::setSourceId(int sourceId) {
    if (m_sourceId == sourceId)
        return;
    m_sourceId = sourceId;
    emit sourceIdChanged();
}
