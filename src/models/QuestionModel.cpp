#include "models/QuestionModel.h"

#include <QDebug>
#include <QMutexLocker>
#include <algorithm>

namespace {

bool ordered(const Question& a, const Question& b) {
    return a.questionOrder() < b.questionOrder();
}

}  // namespace

QuestionModel::QuestionModel(DataHelper* helper, QObject* parent) : IModelList(helper, parent) {
    connect(this, &QuestionModel::requestSortInternal, this, &QuestionModel::sortInternal);
}

QString QuestionModel::questionText(int questionId) const {
    return record(questionId).question();
}

int QuestionModel::questionOrder(int questionId) const {
    return record(questionId).questionOrder();
}

bool QuestionModel::hasQuestion(const QString& text) const {
    const QMutexLocker lock(&m_mutex);
    return std::any_of(items().cbegin(), items().cend(),
                       [&text](const Row* row) { return row->question() == text; });
}

int QuestionModel::maxQuestionOrder() const {
    const QMutexLocker lock(&m_mutex);
    int highest = 0;
    for (const Row* row : items())
        highest = qMax(highest, row->questionOrder());
    return highest;
}

bool QuestionModel::fetchAll(QList<Question>& list) {
    const bool read = IModelList::fetchAll(list);
    std::stable_sort(list.begin(), list.end(), ordered);
    return read;
}

int QuestionModel::insertionRow(const Question& question) const {
    int row = items().size();
    while (row > 0 && items().at(row - 1)->questionOrder() > question.questionOrder())
        --row;
    return row;
}

void QuestionModel::onModelUpdated(int, const Question&, const QVector<int>& changedRoles) {
    if (changedRoles.contains(static_cast<int>(QuestionField::questionOrder)))
        emit requestSortInternal();
}

void QuestionModel::sortInternal() {
    const QMutexLocker lock(&m_mutex);
    QList<Question> sorted = snapshot();
    if (sorted.isEmpty())
        return;
    qDebug() << "sortint";
    std::stable_sort(sorted.begin(), sorted.end(), ordered);
    bool moved = false;
    for (int target = sorted.size() - 1; target >= 0; --target) {
        const int current = indexOfKey(sorted.at(target).questionId());
        if (current == target)
            continue;
        const int destination = target > current ? target + 1 : target;
        qDebug() << "1) move oI" << current << destination << target;
        if (!beginMoveRows({}, current, current, {}, destination))
            continue;
        qDebug() << "2) move oI" << current << destination << target;
        moveRow(current, target);
        endMoveRows();
        moved = true;
    }
    if (moved)
        emit questionsOrderChanged();
}
