#pragma once

#include <QSortFilterProxyModel>

class QuestionAnswerModel;

/// The answers of one source by the order of their questions.
class QuestionAnswerProxyModel : public QSortFilterProxyModel {
    Q_OBJECT
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId NOTIFY sourceIdChanged)

public:
    explicit QuestionAnswerProxyModel(QObject* parent = nullptr);

    int sourceId() const;
    void setSourceId(int sourceId);

signals:
    void sourceIdChanged();

private:
    QuestionAnswerModel* m_answers;
};
