#pragma once

#include "protocol/Fault.h"
#include "store/Outcome.h"
#include "wire/JsonWriter.h"

#include <QByteArray>
#include <QString>

/// The answer to one request: the payload of its frame.
struct Answer {
    Outcome::Kind kind = Outcome::Kind::Done;
    QByteArray payload;     ///< `{"data":...}`, or `{"errors":...}` when the kind isn't `Done`
    bool notifies = false;  ///< every other client of the project gets it, too

    bool ok() const { return kind == Outcome::Kind::Done; }

    static Answer refused(const std::vector<Fault>& faults) {
        return {Outcome::Kind::Refused, errorsPayload(faults), false};
    }
    static Answer from(const Outcome& outcome) {
        return {outcome.kind, errorsPayload(outcome.message), false};
    }
};

/// Writes `{"data":{"<operation>":<value>}}`: the caller writes one value in between.
class DataPayload {
public:
    explicit DataPayload(const QString& operation) {
        json.beginObject().key(QStringLiteral("data")).beginObject().key(operation);
    }

    /// Closes the payload. A failed outcome takes its place.
    Answer finish(const Outcome& outcome = Outcome::done()) {
        if (!outcome.ok())
            return Answer::from(outcome);
        json.endObject().endObject();
        return {Outcome::Kind::Done, json.take(), false};
    }

    JsonWriter json;
};
