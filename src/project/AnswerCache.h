#pragma once

#include <QCache>
#include <QPair>
#include <QVariantMap>

/// The answers that were asked for last, as maps, by source and question.
class AnswerCache {
public:
    static constexpr int capacity = 100;

    /// The answer, or an empty map.
    QVariantMap find(int sourceId, int questionId) {
        const QVariantMap* answer = m_answers.object({sourceId, questionId});
        return answer ? *answer : QVariantMap();
    }

    void insert(int sourceId, int questionId, const QVariantMap& answer) {
        m_answers.insert({sourceId, questionId}, new QVariantMap(answer));
    }

    void clear() { m_answers.clear(); }

private:
    QCache<QPair<int, int>, QVariantMap> m_answers{capacity};
};
