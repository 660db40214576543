#include "import/ImportLog.h"

Q_LOGGING_CATEGORY(logFileImport, "fileImport")
