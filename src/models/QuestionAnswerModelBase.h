#pragma once

#include "models/IModelList.h"
#include "records/QuestionAnswer.h"

class QuestionModel;

extern template class IModelList<QuestionAnswer, int, QuestionAnswerField>;

/// Answers with the text and the order of their questions.
class QuestionAnswerModelBase : public IModelList<QuestionAnswer, int, QuestionAnswerField> {
    Q_OBJECT
    Q_PROPERTY(int sourceId READ sourceId WRITE setSourceId NOTIFY sourceIdChanged)

public:
    enum Role { QuestionRole = static_cast<int>(QuestionAnswerField::isHtml) + 1, QuestionOrderRole };

    explicit QuestionAnswerModelBase(DataHelper* helper, QObject* parent = nullptr);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    int sourceId() const { return m_sourceId; }
    void setSourceId(int sourceId);

signals:
    void sourceIdChanged();

protected:
    QuestionModel* questionModel() const;

private:
    QPointer<QObject> m_questionModel;
    int m_sourceId = 0;
};
