#pragma once

#include "merge/ProjectRecords.h"
#include "project/Progress.h"
#include "wire/JsonScan.h"

class QIODevice;
class SimpleCipher;

/// Full project JSON: a whole project as one object with an array of records under each key. Read and written
/// record by record, because the texts of a large project would not fit into memory as values, too. These
/// functions may run on any thread.
namespace fullprojectjson {

/// Where the value of "project_json" stands in the reply that brings a project; empty when there is none.
jsonscan::Span contentOf(const QByteArray& reply);

/// Reads all lists. Texts of answers are deciphered when `cipher` has a key. Skips a record that can't be
/// told from others; false when the outline is broken, a text can't be deciphered, or the progress ends it.
bool read(const QByteArray& json, jsonscan::Span content, SimpleCipher& cipher, ProjectRecords& records,
          const Progress& progress = {});

/// Writes the object `target` with the records as its member "project_json". Texts of answers are enciphered
/// when `cipher` has a key. Times are written in UTC. False when the device fails or the progress ends it.
bool write(QIODevice& out, const QJsonObject& target, const ProjectRecords& records, SimpleCipher& cipher,
           const Progress& progress = {});

/// The value of "project_json" alone.
QJsonObject toJson(const ProjectRecords& records, SimpleCipher& cipher);

}  // namespace fullprojectjson
