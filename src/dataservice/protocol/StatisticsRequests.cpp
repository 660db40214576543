#include "protocol/StatisticsRequests.h"

#include "protocol/Arguments.h"
#include "protocol/Rows.h"
#include "store/Statistics.h"

#include <QHash>

namespace {

using wire::ParsedQuery;

const QString idArgument = QStringLiteral("id");

double ratio(qint64 part, qint64 whole) {
    return whole == 0 ? 0.0 : static_cast<double>(part) / static_cast<double>(whole);
}

Answer finishIds(const ParsedQuery& query, const Outcome& outcome, const std::set<qint64>& ids) {
    DataPayload payload(query.operation);
    payload.json.beginArray();
    for (qint64 id : ids)
        payload.json.value(id);
    payload.json.endArray();
    return payload.finish(outcome);
}

Answer finishNumber(const ParsedQuery& query, const Outcome& outcome, qint64 number) {
    DataPayload payload(query.operation);
    payload.json.value(number);
    return payload.finish(outcome);
}

Answer kernosWithOverlap(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    std::set<qint64> ids;
    const Outcome outcome = statistics::kernosWithOverlap(store.database(), &ids);
    return finishIds(query, outcome, ids);
}

Answer maxHighlightsCount(ProjectStore& store, const ParsedQuery& query) {
    qint64 count = 0;
    const Outcome outcome = statistics::maxHighlightsCount(store.database(), &count);
    return finishNumber(query, outcome, count);
}

Answer highlightOverlapCount(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    const qint64 first = arguments.integer(QStringLiteral("kernoId1"));
    const qint64 second = arguments.integer(QStringLiteral("kernoId2"));
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    qint64 count = 0;
    const Outcome outcome = statistics::overlapCount(store.database(), first, second, &count);
    return finishNumber(query, outcome, count);
}

Answer kernoOverlapCount(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    const qint64 kernoId = arguments.integer(idArgument);
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    std::set<qint64> others;
    const Outcome outcome = statistics::overlappingKernos(store.database(), kernoId, &others);
    return finishNumber(query, outcome, static_cast<qint64>(others.size()));
}

/// The three coverage reads differ in what their rows are told apart by.
Answer finishCoverage(const ParsedQuery& query, const Outcome& outcome,
                      const std::vector<statistics::CoverageRow>& rows, bool byKerno, bool byAuthor) {
    DataPayload payload(query.operation);
    payload.json.beginArray();
    for (const statistics::CoverageRow& row : rows) {
        payload.json.beginObject();
        if (byKerno)
            payload.json.key(QStringLiteral("kernoId")).value(row.kernoId);
        if (byAuthor)
            payload.json.key(QStringLiteral("author")).value(row.author);
        payload.json.key(QStringLiteral("len")).value(row.length);
        if (byAuthor)
            payload.json.key(QStringLiteral("totalLen")).value(row.totalLength);
        payload.json.key(QStringLiteral("count")).value(row.count).endObject();
    }
    payload.json.endArray();
    return payload.finish(outcome);
}

Answer coverageByKerno(ProjectStore& store, const ParsedQuery& query) {
    std::vector<statistics::CoverageRow> rows;
    const Outcome outcome = statistics::coverageByKerno(store.database(), &rows);
    return finishCoverage(query, outcome, rows, true, false);
}

Answer coverageByAuthor(ProjectStore& store, const ParsedQuery& query) {
    std::vector<statistics::CoverageRow> rows;
    const Outcome outcome = statistics::coverageByAuthor(store.database(), &rows);
    return finishCoverage(query, outcome, rows, false, true);
}

Answer coverageByKernoAndAuthor(ProjectStore& store, const ParsedQuery& query) {
    std::vector<statistics::CoverageRow> rows;
    const Outcome outcome = statistics::coverageByKernoAndAuthor(store.database(), &rows);
    return finishCoverage(query, outcome, rows, true, true);
}

Answer overviewPerSource(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    const qint64 kernoId = arguments.integer(idArgument);
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    std::vector<statistics::SourceOverview> rows;
    const Outcome outcome = statistics::overviewPerSource(store.database(), kernoId, &rows);
    DataPayload payload(query.operation);
    payload.json.beginArray();
    for (const statistics::SourceOverview& row : rows) {
        payload.json.beginObject();
        payload.json.key(QStringLiteral("kernoHighlights")).value(row.kernoHighlights);
        payload.json.key(QStringLiteral("sourceHighlights")).value(row.sourceHighlights);
        payload.json.key(QStringLiteral("sourceTitle")).value(row.sourceTitle).endObject();
    }
    payload.json.endArray();
    return payload.finish(outcome);
}

Answer metadataOverview(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    const qint64 keyId = arguments.integer(QStringLiteral("keyId"));
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    std::vector<statistics::MetadataOverview> rows;
    const Outcome outcome = statistics::metadataOverview(store.database(), keyId, &rows);
    DataPayload payload(query.operation);
    payload.json.beginArray();
    for (const statistics::MetadataOverview& row : rows) {
        payload.json.beginObject().key(QStringLiteral("value"));
        writeValue(payload.json, FieldType::Scalar, row.value);
        payload.json.key(QStringLiteral("valueFactor")).value(ratio(row.valueOccurrences, row.sourcesCount));
        payload.json.key(QStringLiteral("valueOccurrences")).value(row.valueOccurrences);
        payload.json.key(QStringLiteral("keyOccurrences")).value(row.keyOccurrences);
        payload.json.key(QStringLiteral("keyFactor")).value(ratio(row.valueOccurrences, row.keyOccurrences));
        payload.json.key(QStringLiteral("sourcesCount")).value(row.sourcesCount);
        payload.json.key(QStringLiteral("sourcesOccurrences")).value(row.sourcesOccurrences).endObject();
    }
    payload.json.endArray();
    return payload.finish(outcome);
}

Answer metadataOverviewForKernos(ProjectStore& store, const ParsedQuery& query) {
    Arguments arguments(query);
    const qint64 keyId = arguments.integer(QStringLiteral("keyId"));
    const std::vector<qint64> kernoIds = arguments.ids(QStringLiteral("kernoIds"));
    if (!arguments.finish())
        return Answer::refused(arguments.faults);
    std::vector<statistics::MetadataOverview> rows;
    const Outcome outcome = statistics::metadataOverview(store.database(), keyId, kernoIds, &rows);
    DataPayload payload(query.operation);
    payload.json.beginArray();
    for (const statistics::MetadataOverview& row : rows) {
        payload.json.beginObject().key(QStringLiteral("value"));
        writeValue(payload.json, FieldType::Scalar, row.value);
        payload.json.key(QStringLiteral("valueOccurrences")).value(row.valueOccurrences);
        payload.json.key(QStringLiteral("sourcesOccurrences")).value(row.sourcesOccurrences).endObject();
    }
    payload.json.endArray();
    return payload.finish(outcome);
}

Answer sourceCodedLengthById(ProjectStore& store, const ParsedQuery& query) {
    std::map<qint64, qint64> lengths;
    const Outcome outcome = statistics::codedLengths(store.database(), &lengths);
    DataPayload payload(query.operation);
    payload.json.beginArray();
    for (const auto& length : lengths) {
        payload.json.beginObject().key(idArgument).value(length.first);
        payload.json.key(QStringLiteral("coded_length")).value(length.second).endObject();
    }
    payload.json.endArray();
    return payload.finish(outcome);
}

Answer quoteCounts(ProjectStore& store, const ParsedQuery& query) {
    std::vector<statistics::QuoteCount> rows;
    const Outcome outcome = statistics::quoteCounts(store.database(), &rows);
    DataPayload payload(query.operation);
    payload.json.beginArray();
    for (const statistics::QuoteCount& row : rows) {
        payload.json.beginObject().key(QStringLiteral("key")).value(row.kernoId);
        payload.json.key(QStringLiteral("value")).value(row.highlights);
        payload.json.key(QStringLiteral("subvalue")).value(row.sources).endObject();
    }
    payload.json.endArray();
    return payload.finish(outcome);
}

}  // namespace

ReadHandler statisticsHandler(const QString& operation) {
    static const QHash<QString, ReadHandler> handlers{
        {wire::name::kernoIdsForKernosWithOverlap, kernosWithOverlap},
        {wire::name::maxHighlightsCount, maxHighlightsCount},
        {wire::name::highlightOverlapCount, highlightOverlapCount},
        {wire::name::kernoOverlapCount, kernoOverlapCount},
        {wire::name::highlightsCoverageByKerno, coverageByKerno},
        {wire::name::highlightsCoverageByAuthor, coverageByAuthor},
        {wire::name::highlightsCoverageByKernoAndAuthor, coverageByKernoAndAuthor},
        {wire::name::highlightsOverviewPerSourceForKerno, overviewPerSource},
        {wire::name::sourceMetadataOverviewForKeyId, metadataOverview},
        {wire::name::sourceMetadataOverviewForKeyAndKernosId, metadataOverviewForKernos},
        {wire::name::sourceCodedLengthById, sourceCodedLengthById},
        {wire::name::quoteCountsInKernos, quoteCounts}};
    return handlers.value(operation, nullptr);
}
