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

/// The project file that an upload becomes. It has another name beside its own until it is moved into place;
/// one that isn't goes with this object.
class UploadedFile {
public:
    UploadedFile() = default;
    ~UploadedFile();
    UploadedFile(const UploadedFile&) = delete;
    UploadedFile& operator=(const UploadedFile&) = delete;

    /// Reads the body and writes its records, to the disk. Takes seconds for a large project; any thread.
    Outcome store(const QByteArray& body);
    /// What `store` has read.
    const Upload& upload() const { return m_upload; }
    /// Renames the file into place.
    Outcome moveIntoPlace();

private:
    Upload m_upload;
    QString m_temporary;
};

/// `{"status":true,"message":"","project":{...}}`
QByteArray importReply(const Upload& upload);

/// `{"status":false,"message":...}`
QByteArray failureReply(const QString& message);

}  // namespace projectjson
