#pragma once

#include "exchange/ExchangeForm.h"
#include "exchange/QDPXReader.h"
#include "link/Message.h"
#include "project/Progress.h"

class DataHelper;
class KRNFile;

/// Whole archives in and out of projects. The work runs on a thread of its own, on which the progress is
/// told; the caller waits in a local event loop. Main thread.
namespace archive {

/// Makes the new project that `target` names of an archive. The message's `json` holds `project`, and in
/// `skipped` what could not be taken over: a list of objects with `kind`, a name for people, and `count`. A
/// local file that is there is replaced when all else has succeeded. Work that the progress has ended leaves
/// nothing new and has no text.
Message import(DataHelper& helper, const QString& file, const QJsonObject& target,
               const QDPXImportOptions& options, const QString& password, const Progress& progress = {});

/// Writes the open project as an archive. Waits for its texts first. False when something can't be read or
/// written, or the progress ends it; then a file that was there stays.
bool exportOpen(KRNFile& project, const QString& file, ExchangeForm form, const Progress& progress = {});

}  // namespace archive
