#include "protocol/Arguments.h"
#include "protocol/Rows.h"
#include "protocol/StatisticsRequests.h"
#include "store/Criterion.h"

#include <algorithm>

namespace {

/// The requested columns of a table, followed by those that the criteria look at and nobody requested.
struct Columns {
    std::vector<int> requested;
    Selection selection;
    std::vector<int> examinedPlaces;

    Columns(const Table& table, const std::vector<wire::QueryField>& fields, const QString& nested,
            const QStringList& examined, std::vector<Fault>* faults)
        : requested(requestedColumns(table, fields, faults, nested)) {
        selection.table = &table;
        selection.columns = requested;
        for (const QString& name : examined) {
            std::vector<int>& columns = selection.columns;
            const auto found = std::find(columns.cbegin(), columns.cend(), table.indexOf(name));
            examinedPlaces.push_back(static_cast<int>(found - columns.cbegin()));
            if (found == columns.cend())
                columns.push_back(table.indexOf(name));
        }
    }

    /// Where the nth examined column stands in a row.
    int examined(int n) const { return examinedPlaces[static_cast<size_t>(n)]; }
};

/// A bit for each criterion for which `passes` holds, the first in the lowest.
template <typename Passes> qint64 passing(const std::vector<Criterion>& criteria, Passes passes) {
    qint64 bits = 0;
    for (size_t i = 0; i < criteria.size(); ++i)
        bits |= static_cast<qint64>(passes(criteria[i])) << i;
    return bits;
}

/// A criterion that isn't there is met by all.
Outcome readCriterion(ProjectStore& store, const wire::ParsedQuery& query, std::vector<Fault>* faults,
                      Criterion* criterion) {
    Arguments arguments(query);
    const QString fieldName = QStringLiteral("fieldName");
    const bool given = arguments.has(fieldName);
    QString field, op, value;
    qint64 keyId = -1;
    if (given) {
        field = arguments.text(fieldName);
        op = arguments.text(QStringLiteral("operator"));
        value = arguments.text(QStringLiteral("value"));
        keyId = arguments.integer(QStringLiteral("keyId"), -1);
    }
    const bool readable = arguments.finish();
    faults->insert(faults->end(), arguments.faults.begin(), arguments.faults.end());
    return given && readable ? Criterion::read(store.database(), field, op, value, keyId, criterion)
                             : Outcome::done();
}

Outcome readCriteria(ProjectStore& store, const wire::ParsedQuery& query, std::vector<Fault>* faults,
                     std::vector<Criterion>* criteria) {
    Arguments arguments(query);
    const auto records = arguments.records(QStringLiteral("criteria"));
    if (arguments.finish() && (records.empty() || static_cast<int>(records.size()) > wire::maxCriteria))
        arguments.faults.push_back(
            {QStringLiteral("There must be 1 to %1 criteria.").arg(wire::maxCriteria), query.position});
    *faults = arguments.faults;
    Outcome outcome;
    for (const std::vector<wire::QueryArgument>* record : records) {
        wire::ParsedQuery one = query;
        one.arguments = *record;
        criteria->emplace_back();
        if (faults->empty() && outcome.ok())
            outcome = readCriterion(store, one, faults, &criteria->back());
    }
    return outcome;
}

/// Every kerno, with those of its highlights that pass; with `many`, of several criteria at least one.
Answer kernosWithHighlights(ProjectStore& store, const wire::ParsedQuery& query, bool many) {
    const QString nested = QStringLiteral("highlights");
    const QString author = QStringLiteral("author");
    const QString timestamp = QStringLiteral("timestamp");
    std::vector<Fault> faults;
    std::vector<wire::QueryField> highlightFields;
    for (const wire::QueryField& field : query.fields) {
        if (field.name == nested)
            highlightFields = field.fields;
    }
    Columns kernos(tableOf(wire::Record::Kerno), query.fields, nested,
                   {QStringLiteral("id"), author, timestamp}, &faults);
    Columns highlights(tableOf(wire::Record::Highlight), highlightFields, {},
                       {QStringLiteral("sourceId"), author, timestamp}, &faults);
    std::vector<Criterion> criteria(many ? 0 : 1);
    const Outcome understood = many ? readCriteria(store, query, &faults, &criteria)
                                    : readCriterion(store, query, &faults, &criteria.front());
    if (!faults.empty())
        return Answer::refused(faults);
    if (!understood.ok())
        return Answer::from(understood);

    DataPayload payload(query.operation);
    JsonWriter& json = payload.json;
    const bool readsTexts = std::any_of(criteria.cbegin(), criteria.cend(), [](const Criterion& criterion) {
        return criterion.readsTextsOfHighlights();
    });
    const int kernoIdColumn = highlights.selection.table->indexOf(QStringLiteral("kernoId"));
    Outcome inner;
    json.beginArray();
    const Outcome outer = store.select(kernos.selection, [&](const RowView& kerno) {
        const qint64 kernoId = kerno.integer(kernos.examined(0));
        json.beginObject();
        writeFields(json, *kernos.selection.table, kernos.requested, kerno);
        json.key(nested).beginArray();
        const qint64 candidates = passing(criteria, [&](const Criterion& criterion) {
            return criterion.kernoPasses(kernoId, kerno.text(kernos.examined(1)),
                                         kerno.text(kernos.examined(2)));
        });
        if (inner.ok() && candidates != 0) {
            highlights.selection.filters = {{kernoIdColumn, kernoId}};
            inner = store.select(highlights.selection, [&](const RowView& row) {
                const qint64 source = row.integer(highlights.examined(0));
                const QString by = readsTexts ? row.text(highlights.examined(1)) : QString();
                const QString at = readsTexts ? row.text(highlights.examined(2)) : QString();
                const qint64 passed = candidates & passing(criteria, [&](const Criterion& criterion) {
                                          return criterion.highlightPasses(source, by, at);
                                      });
                if (passed == 0)
                    return;
                json.beginObject();
                writeFields(json, *highlights.selection.table, highlights.requested, row);
                if (many)
                    json.key(wire::name::passes).value(passed);
                json.endObject();
            });
        }
        json.endArray().endObject();
    });
    json.endArray();
    return payload.finish(outer.ok() ? inner : outer);
}

Answer oneCriterion(ProjectStore& store, const wire::ParsedQuery& query) {
    return kernosWithHighlights(store, query, false);
}

Answer manyCriteria(ProjectStore& store, const wire::ParsedQuery& query) {
    return kernosWithHighlights(store, query, true);
}

}  // namespace

ReadHandler criteriaHandler(const QString& operation) {
    if (operation == wire::name::kernoQueryListWithHighlightsAndManyCriteria)
        return manyCriteria;
    return operation == wire::name::kernoQueryListWithHighlightsAndCriteria ? oneCriterion : nullptr;
}
