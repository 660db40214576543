#include "search/SourceSearch.h"

#include "link/DataHelper.h"
#include "link/ListReads.h"
#include "models/QuestionAnswerMainModel.h"
#include "models/QuestionModel.h"
#include "models/SourceMetadataModel.h"
#include "models/SourceModel.h"
#include "project/KRNFile.h"
#include "search/CodedRanges.h"

#include <algorithm>

namespace Search {

namespace {

using Place = QPair<int, int>;  ///< source and question

// Up to so many sources, reading the highlights of each is cheaper than reading all.
constexpr int fewSources = 30;

QHash<Place, QList<Highlight>> byPlace(QList<Highlight> highlights) {
    std::stable_sort(highlights.begin(), highlights.end(), highlightLessThan);
    QHash<Place, QList<Highlight>> places;
    for (const Highlight& highlight : qAsConst(highlights))
        places[{highlight.sourceId(), highlight.questionId()}].append(highlight);
    return places;
}

bool canFindNothing(const Criteria& criteria, bool isAnd) {
    return isAnd && criteria.includedAuthors.size() > 1;
}

}  // namespace

SourceSearch::SourceSearch(KRNFile* file, QObject* parent) : QObject(parent), m_file(file) {}

void SourceSearch::search(const Request& request) {
    if (m_running)
        return;
    m_running = true;
    emit started();
    m_hit = request.term.isEmpty() ? QRegularExpression()
                                   : hitExpression(request.term, request.synonyms, request.options);
    QVariantList results;
    if (request.term.isEmpty() || find(request, results))
        emit resultsAvailable(results);
    else
        emit m_file->notifyUser(tr("Not all texts and codings could be loaded, so the search was not made."));
    m_running = false;
    emit finished();
}

// False when texts or codings could not be had.
bool SourceSearch::find(const Request& request, QVariantList& results) const {
    const Criteria criteria = readCriteria(request.criteria);
    if (!m_file->isOpened() || !m_hit.isValid() || canFindNothing(criteria, request.isAnd))
        return true;
    const QList<Source> sources = passingSources(request, criteria);
    if (sources.size() > 1 && !m_file->waitForTexts())
        return false;
    Candidates candidates;
    if (!findCandidates(sources, request, criteria, candidates))
        return false;
    const NarrowScan scan(m_hit);
    for (const auto& [answer, range] : qAsConst(candidates)) {
        if (!mayHaveHits(answer, range, scan))
            continue;
        for (const Stretch& found : excerptRanges(answer.plainAnswer(), range, m_hit))
            results.append(QVariant::fromValue(excerpt(answer, found, m_hit)));
    }
    return true;
}

QuestionAnswer SourceSearch::extendedResult(int sourceId, int questionId, int start, int length) const {
    return excerpt(m_file->answerModel()->answer(sourceId, questionId), {start, start + length}, m_hit);
}

QList<Source> SourceSearch::passingSources(const Request& request, const Criteria& criteria) const {
    QList<Source> all;
    if (request.sourceId > 0)
        all.append(m_file->source(request.sourceId));
    else
        all = m_file->sourceModel()->snapshot();
    QList<Source> passing;
    for (const Source& source : qAsConst(all)) {
        const auto values = [this, &source](int keyId) { return propertyValues(source.sourceId(), keyId); };
        if (source.isValid() && authorPasses(source.author(), criteria) &&
            (criteria.properties.isEmpty() || propertiesPass(criteria.properties, request.isAnd, values)))
            passing.append(source);
    }
    return passing;
}

QVariantList SourceSearch::propertyValues(int sourceId, int keyId) const {
    QVariantList values;
    for (const SourceMetadataValue& value : m_file->metadataModel()->valuesOf(sourceId, keyId))
        values.append(value.value());
    return values;
}

// False when the codings could not be read.
bool SourceSearch::findCandidates(const QList<Source>& sources, const Request& request,
                                  const Criteria& criteria, Candidates& list) const {
    QuestionAnswerMainModel* const answers = m_file->answerModel();
    if (!request.options.testFlag(Option::CodedTextOnly) && criteria.kernos.isEmpty()) {
        for (const Source& source : sources) {
            for (const QuestionAnswer& answer : answers->answers(source.sourceId()))
                list.append({answer, {0, answer.answerLength()}});
        }
        return true;
    }
    QList<Highlight> highlights;
    if (!readHighlights(sources, criteria.kernos, highlights))
        return false;
    const auto highlightsAt = byPlace(highlights);
    const auto codedRanges = request.isAnd ? codedForAll : codedForAny;
    const QList<Question> questions = m_file->questionListModel()->snapshot();
    for (const Source& source : sources) {
        for (const Question& question : questions) {
            const auto found = highlightsAt.constFind({source.sourceId(), question.questionId()});
            if (found == highlightsAt.constEnd())
                continue;
            const QuestionAnswer answer = answers->answer(source.sourceId(), question.questionId());
            for (const passages::Range& range : codedRanges(found.value(), criteria.kernos))
                list.append({answer, {range.first, range.second}});
        }
    }
    return true;
}

// False when the service could not be read.
bool SourceSearch::readHighlights(const QList<Source>& sources, const QList<KernoCriterion>& criteria,
                                  QList<Highlight>& list) const {
    QStringList texts;
    if (needsOnlyNamedKernos(criteria)) {
        for (const KernoCriterion& criterion : criteria)
            texts.append(reads::highlightsOfKerno(criterion.kernoId));
    } else if (sources.size() <= fewSources) {
        for (const Source& source : sources)
            texts.append(reads::highlightPlaces(source.sourceId()));
    } else {
        texts.append(reads::highlightPlaces());
    }
    for (const QString& text : qAsConst(texts)) {
        QList<Highlight> some;
        if (!m_file->dataHelper()->queryList(text, some))
            return false;
        list += some;
    }
    return true;
}

}  // namespace Search
