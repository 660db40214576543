#pragma once

#include "store/Outcome.h"
#include "store/ProjectStore.h"

#include <QByteArray>
#include <QString>
#include <vector>

/// A whole project as one JSON object: an array of records under each key.
namespace projectjson {

struct Part {
    QString key;
    wire::Record record;
};

/// The keys in the order in which they are written.
const std::vector<Part>& parts();

/// `{"status":true,"message":"","project":{...},"project_json":{...}}` for a project that was opened as
/// `name`. With `only`, the key of a part, `project_json` holds that part alone.
Outcome exportProject(ProjectStore& store, const QString& name, const QString& only, QByteArray* reply);

/// What a body that brings a project says, without the records.
struct Upload {
    QString name;        ///< path of the file to be written
    QByteArray project;  ///< the project object without `project_json`, as JSON
    int begin = 0;       ///< where the value of `project_json` stands in the body
    int end = 0;
};

/// Reads the outline of the body; `Refused` with a sentence when it isn't a project.
Outcome readUpload(const QByteArray& body, Upload* upload);

/// Writes the records of the upload into a new file beside its name, forces it to the disk and renames it
/// into place. On failure nothing is left behind.
Outcome importProject(const QByteArray& body, const Upload& upload);

/// `{"status":true,"message":"","project":{...}}`
QByteArray importReply(const Upload& upload);

/// `{"status":false,"message":...}`
QByteArray failureReply(const QString& message);

}  // namespace projectjson
