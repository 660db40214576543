#pragma once

#include <QString>

/// How an operation of the store ended.
struct Outcome {
    enum class Kind {
        Done,
        Refused,  ///< the request can't be carried out; nothing has changed
        Failed    ///< the database failed; the open transaction has to be rolled back
    };

    Kind kind = Kind::Done;
    QString message;  ///< one sentence when the kind isn't `Done`

    bool ok() const { return kind == Kind::Done; }

    static Outcome done() { return {}; }
    static Outcome refused(const QString& message) { return {Kind::Refused, message}; }
    static Outcome failed(const QString& message) { return {Kind::Failed, message}; }
};
