#include "text/TextLog.h"

Q_LOGGING_CATEGORY(logHighlighter, "highlighter")
Q_LOGGING_CATEGORY(logDocumentChangeTracker, "documentChangeTracker")
