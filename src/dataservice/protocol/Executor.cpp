#include "protocol/Executor.h"

#include "protocol/RecordRequests.h"
#include "protocol/StatisticsRequests.h"

#include <array>

namespace {

using wire::Operation;

struct OperationRow {
    Operation operation;
    bool mutates;
    Answer (*answer)(ProjectStore&, const Table&, const wire::ParsedQuery&);
};

/// One row for each operation, in the order of `Operation`.
const std::array<OperationRow, 8> operations{{
    {Operation::QueryList, false, recordrequests::list},
    {Operation::QueryById, false, recordrequests::byId},
    {Operation::QueryListWithOffset, false, recordrequests::listInWindow},
    {Operation::MaxId, false, recordrequests::maxId},
    {Operation::CreateOrUpdate, true, recordrequests::save},
    {Operation::BatchCreateOrUpdate, true, recordrequests::saveBatch},
    {Operation::Remove, true, recordrequests::remove},
    {Operation::BatchRemove, true, recordrequests::removeBatch},
}};

bool isAnnounced(const wire::RecordOperation& request) {
    const bool isBatch =
        request.operation == Operation::BatchCreateOrUpdate || request.operation == Operation::BatchRemove;
    if (isBatch && !wire::isAnsweredWithPlaces(request.record))
        return true;
    for (const wire::NotificationRow& row : wire::notificationTable()) {
        if (row.record == request.record && row.operation == request.operation)
            return true;
    }
    return false;
}

Answer refusedAt(const wire::ParsedQuery& query, const QString& message) {
    return Answer::refused({{message, query.position}});
}

ReadHandler readHandler(const QString& operation) {
    for (ReadHandler handler :
         {statisticsHandler(operation), joinedReadHandler(operation), criteriaHandler(operation)}) {
        if (handler)
            return handler;
    }
    return nullptr;
}

}  // namespace

Answer execute(ProjectStore& store, const wire::ParsedQuery& query, AccessLevel access) {
    const std::optional<wire::RecordOperation> request = wire::recordOperation(query.operation);
    const ReadHandler handler = request ? nullptr : readHandler(query.operation);
    if (!request && !handler)
        return refusedAt(query, QStringLiteral("There is no operation \"%1\".").arg(query.operation));
    const OperationRow* row = request ? &operations[static_cast<size_t>(request->operation)] : nullptr;
    const bool mutates = row && row->mutates;
    if (mutates != query.isMutation) {
        return refusedAt(query, (mutates ? QStringLiteral("\"%1\" is a mutation.")
                                         : QStringLiteral("\"%1\" is a read, not a mutation."))
                                    .arg(query.operation));
    }
    if (access < (mutates ? AccessLevel::Write : AccessLevel::Read))
        return refusedAt(query, QStringLiteral("You have no right to do this in this project."));
    if (handler)
        return handler(store, query);
    Answer answer = row->answer(store, tableOf(request->record), query);
    answer.notifies = answer.ok() && isAnnounced(*request);
    return answer;
}
