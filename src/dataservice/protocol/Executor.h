#pragma once

#include "protocol/Answer.h"
#include "store/ProjectStore.h"
#include "wire/AccessLevel.h"
#include "wire/QueryParser.h"

/// Answers a query about an open project. A write leaves the store's transaction open for the caller to
/// commit; when the answer's kind is `Failed` the caller has to roll it back.
Answer execute(ProjectStore& store, const wire::ParsedQuery& query, AccessLevel access);
