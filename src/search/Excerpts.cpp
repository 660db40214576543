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

namespace {

Stretch inText(const Stretch& stretch, int size) {
    const int start = std::clamp(stretch.start, 0, size);
    return {start, std::max(std::min(stretch.end, size), start)};
}

}  // namespace

bool mayHaveHits(const QuestionAnswer& answer, const Stretch& within, const NarrowScan& scan) {
    const QByteArray& text = answer.text().narrowPlain();
    if (text.isNull())
        return true;
    const Stretch part = inText(within, text.size());
    return scan.mayMatch(text.constData() + part.start, part.length());
}

QVector<Stretch> excerptRanges(const QString& text, const Stretch& within, const QRegularExpression& hit) {
    const Stretch part = inText(within, text.size());
    const bool whole = part.length() == text.size();
    QVector<Stretch> ranges =
        merged(contextMatches(whole ? text : readable(text.mid(part.start, part.length())), hit));
    for (Stretch& range : ranges)
        range = {range.start + part.start, range.end + part.start};
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
