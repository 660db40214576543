#include "search/Excerpts.h"

#include <algorithm>

namespace Search {

QVector<Stretch> merged(const QVector<Stretch>& stretches, int distance) {
    QVector<Stretch> list;
    for (const Stretch& stretch : stretches) {
        if (list.isEmpty() || stretch.start > list.constLast().end + distance)
            list.append(stretch);
        else
            list.last().end = stretch.end;
    }
    return list;
}

QVector<Stretch> excerptRanges(const QString& text, const Stretch& within, const QRegularExpression& hit) {
    const int start = std::clamp(within.start, 0, text.size());
    const int length = std::max(std::min(within.end, text.size()) - start, 0);
    QVector<Stretch> ranges =
        merged(contextMatches(length == text.size() ? text : readable(text.mid(start, length)), hit));
    for (Stretch& range : ranges)
        range = {range.start + start, range.end + start};
    return ranges;
}

QuestionAnswer excerpt(const QuestionAnswer& answer, const Stretch& range, const QRegularExpression& hit) {
    const int end = std::min(range.end, answer.answerLength());
    if (answer.answerId() < 1 || range.start < 0 || range.start >= end)
        return QuestionAnswer();
    const QString text = answer.plainAnswer().mid(range.start, end - range.start);
    AnswerText::Marks marks;
    for (const Stretch& found : hits(readable(text), hit))
        marks.append({found.start, found.end});
    return answer.markedPart(range.start, text.size(), marks);
}

}  // namespace Search
