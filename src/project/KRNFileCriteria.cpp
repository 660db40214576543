#include "project/KRNFile.h"

#include "link/DataHelper.h"
#include "models/QuestionModel.h"
#include "models/SourceModel.h"
#include "project/PassageRanges.h"
#include "project/Places.h"
#include "project/QueryCriterion.h"
#include "project/QueryRecords.h"

#include <QDebug>
#include <algorithm>

namespace {

QList<QueryCriterion> validCriteria(const QVariantList& maps) {
    QList<QueryCriterion> valid;
    for (const QVariant& map : maps) {
        const QueryCriterion criterion(map.toMap());
        if (criterion.isValid())
            valid.append(criterion);
        else
            qDebug() << "Invalid criterion:" << map;
    }
    return valid;
}

/// The answers to all rows, read at once; none when the rows have to be asked one by one.
QVector<criteria::Results> answersToAll(DataHelper& helper, const QList<QueryCriterion>& rows,
                                        QueryRecords& records) {
    const QString text = QueryCriterion::commonQueryText(rows);
    if (text.isEmpty())
        return {};
    const QJsonValue answer =
        helper.queryValue(text, wire::name::kernoQueryListWithHighlightsAndManyCriteria);
    return answer.isArray() ? records.read(answer.toArray(), rows.size()) : QVector<criteria::Results>();
}

/// A passage as screens show it: the record's fields, and what the record looks up.
QVariantMap passageMap(const QuestionAnswer& answer) {
    QVariantMap map = answer.toVariantMap();
    map.insert(QStringLiteral("offset"), answer.offset());
    map.insert(QStringLiteral("question"), answer.question());
    map.insert(QStringLiteral("sourceTitle"), answer.sourceTitle());
    return map;
}

QVariantMap passageMap(const KRNFile& file, const Place& place, const passages::Range& range) {
    return passageMap(file.partialAnswer(place.first, place.second, range.first, range.second - range.first));
}

}  // namespace

QVariantList KRNFile::kernosWithHighlightsAndCriteria(const QVariantList& criteriaMaps) const {
    if (!isOpened())
        return {};
    QueryRecords records;
    const auto ask = [&](const QString& text) {
        const QString& name = wire::name::kernoQueryListWithHighlightsAndCriteria;
        return records.read(m_dataHelper->queryValue(text, name).toArray());
    };
    const QList<QueryCriterion> rows = validCriteria(criteriaMaps);
    if (rows.isEmpty())
        return records.toMaps(ask(QueryCriterion::unconditionalQueryText()));
    QVector<criteria::Results> answers = answersToAll(*m_dataHelper, rows, records);
    // A row that the service refuses goes without an answer, and must not take those of the others away.
    for (int i = answers.size(); i < rows.size(); ++i)
        answers.append(ask(rows.at(i).queryText()));
    QVector<criteria::Term> terms;
    for (int i = 0; i < rows.size(); ++i)
        terms.append({rows.at(i).level(), rows.at(i).isAnd(), answers.at(i)});
    return records.toMaps(criteria::evaluate(terms));
}

// One read for each kerno gives what a read for each source and question would, in the same order.
QVariantList KRNFile::partialAnswersForKernos(const QList<int>& kernoIds) const {
    QList<Highlight> highlights;
    for (int kernoId : QSet<int>(kernoIds.begin(), kernoIds.end()))
        highlights += highlightsOfKerno(kernoId);
    const QHash<Place, QList<Highlight>> found = byPlace(highlights);
    QVariantList list;
    if (found.isEmpty())
        return list;
    for (const Place& place : allPlaces(*sourceModel(), *questionListModel())) {
        for (const passages::Range& range : passages::mergedRanges(found.value(place)))
            list.append(passageMap(*this, place, range));
    }
    return list;
}

QVariantList KRNFile::partialAnswersForOverlapsBetweenKernos(int kerno1Id, int kerno2Id) const {
    QVariantList list;
    const QList<Highlight> first = highlightsOfKerno(kerno1Id);
    if (kerno1Id == kerno2Id) {
        for (const Highlight& highlight : first)
            list.append(passageMap(*this, {highlight.sourceId(), highlight.questionId()},
                                   {highlight.start(), highlight.end()}));
        return list;
    }
    const QHash<Place, QList<Highlight>> firstByPlace = byPlace(first);
    const QHash<Place, QList<Highlight>> secondByPlace = byPlace(highlightsOfKerno(kerno2Id));
    for (const Place& place : allPlaces(*sourceModel(), *questionListModel())) {
        for (const passages::Range& range :
             passages::overlapRanges(firstByPlace.value(place), secondByPlace.value(place)))
            list.append(passageMap(*this, place, range));
    }
    return list;
}
