#pragma once

#include "protocol/Answer.h"
#include "store/ProjectStore.h"
#include "wire/QueryParser.h"

/// The operations that every record has: reads, ids, writes. Each answers one parsed query.
namespace recordrequests {

Answer list(ProjectStore& store, const Table& table, const wire::ParsedQuery& query);
Answer listInWindow(ProjectStore& store, const Table& table, const wire::ParsedQuery& query);
/// Null instead of a record when there is none.
Answer byId(ProjectStore& store, const Table& table, const wire::ParsedQuery& query);
Answer maxId(ProjectStore& store, const Table& table, const wire::ParsedQuery& query);
Answer save(ProjectStore& store, const Table& table, const wire::ParsedQuery& query);
Answer remove(ProjectStore& store, const Table& table, const wire::ParsedQuery& query);
/// All records of the batch or none. The answer names the places that were touched, or holds the records.
Answer saveBatch(ProjectStore& store, const Table& table, const wire::ParsedQuery& query);
Answer removeBatch(ProjectStore& store, const Table& table, const wire::ParsedQuery& query);

}  // namespace recordrequests
