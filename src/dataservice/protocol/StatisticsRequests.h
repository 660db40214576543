#pragma once

#include "protocol/Answer.h"
#include "store/ProjectStore.h"
#include "wire/QueryParser.h"

#include <QString>

/// Answers one of the reads that count or join, by its name.
using ReadHandler = Answer (*)(ProjectStore& store, const wire::ParsedQuery& query);

/// Null for a name that is none of them.
ReadHandler statisticsHandler(const QString& operation);
ReadHandler joinedReadHandler(const QString& operation);
ReadHandler criteriaHandler(const QString& operation);
