#pragma once

#include "store/Outcome.h"

#include <QString>
#include <map>
#include <set>
#include <vector>

class Database;

/// Counts over a project. None of these holds more of it in memory than its answer and the highlights of one
/// text.
namespace statistics {

struct CoverageRow {
    qint64 kernoId = 0;
    QString author;
    qint64 length = 0;       ///< characters under at least one highlight
    qint64 totalLength = 0;  ///< sum of `length` over the rows that are compared with this one
    qint64 count = 0;        ///< highlights
};

Outcome coverageByKerno(Database& database, std::vector<CoverageRow>* rows);
/// Compared are all authors.
Outcome coverageByAuthor(Database& database, std::vector<CoverageRow>* rows);
/// Ordered by kerno, then author. Compared are the authors of a kerno.
Outcome coverageByKernoAndAuthor(Database& database, std::vector<CoverageRow>* rows);

/// Covered characters of every source, by id.
Outcome codedLengths(Database& database, std::map<qint64, qint64>* lengths);

/// The number of pairs of overlapping highlights, one of each kerno.
Outcome overlapCount(Database& database, qint64 kernoId1, qint64 kernoId2, qint64* count);
/// The kernos that overlap with this one, itself left out.
Outcome overlappingKernos(Database& database, qint64 kernoId, std::set<qint64>* others);
/// The kernos that overlap with any other.
Outcome kernosWithOverlap(Database& database, std::set<qint64>* kernoIds);

/// The greatest number of highlights of any kerno.
Outcome maxHighlightsCount(Database& database, qint64* count);

struct QuoteCount {
    qint64 kernoId = 0;
    qint64 highlights = 0;
    qint64 sources = 0;
};
Outcome quoteCounts(Database& database, std::vector<QuoteCount>* rows);

struct SourceOverview {
    qint64 kernoHighlights = 0;
    qint64 sourceHighlights = 0;
    QString sourceTitle;
};
/// A row for each source in which the kerno has a highlight, by id.
Outcome overviewPerSource(Database& database, qint64 kernoId, std::vector<SourceOverview>* rows);

struct MetadataOverview {
    QString value;                  ///< text of a JSON value
    qint64 valueOccurrences = 0;    ///< links to the value
    qint64 keyOccurrences = 0;      ///< links to the key
    qint64 sourcesCount = 0;        ///< all sources
    qint64 sourcesOccurrences = 0;  ///< sources that have the key
};
/// A row for each value of the key that some source has, by the value's id.
Outcome metadataOverview(Database& database, qint64 keyId, std::vector<MetadataOverview>* rows);
/// The same over the sources in which one of the kernos has a highlight; `sourcesOccurrences` is their
/// number.
Outcome metadataOverview(Database& database, qint64 keyId, const std::vector<qint64>& kernoIds,
                         std::vector<MetadataOverview>* rows);

}  // namespace statistics
