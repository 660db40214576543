#pragma once

#include "store/Outcome.h"
#include "store/ProjectStore.h"

#include <optional>

/// Reads that bring records of several tables together.
namespace joinedreads {

/// The number of kernos under another one.
Outcome childCount(Database& database, qint64 parentKernoId, qint64* count);

/// Answers of a source with their questions' texts, by id. Columns: id, questionId, sourceId, question,
/// author, timestamp, answer.
Outcome answersWithQuestion(Database& database, qint64 sourceId, std::optional<qint64> questionId,
                            const RowVisitor& visit);

/// The metadata of a source, by id. Columns: id, key, value, keyId, valueId, sourceId, author, timestamp.
Outcome metadataOfSource(Database& database, qint64 sourceId, const RowVisitor& visit);

}  // namespace joinedreads
