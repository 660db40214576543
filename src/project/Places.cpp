#include "project/Places.h"

#include "models/QuestionModel.h"
#include "models/SourceModel.h"

#include <algorithm>

QHash<Place, QList<Highlight>> byPlace(QList<Highlight> highlights) {
    std::sort(highlights.begin(), highlights.end(), [](const Highlight& a, const Highlight& b) {
        if (highlightLessThan(a, b) || highlightLessThan(b, a))
            return highlightLessThan(a, b);
        return a.highlightId() < b.highlightId();
    });
    QHash<Place, QList<Highlight>> places;
    for (const Highlight& highlight : qAsConst(highlights))
        places[{highlight.sourceId(), highlight.questionId()}].append(highlight);
    return places;
}

QList<Place> allPlaces(const SourceModel& sources, const QuestionModel& questions) {
    QList<Place> places;
    const QList<Question> questionList = questions.snapshot();
    for (const Source& source : sources.snapshot()) {
        for (const Question& question : questionList)
            places.append({source.sourceId(), question.questionId()});
    }
    return places;
}
