#include "text/TextLog.h"

Q_LOGGING_CATEGORY(logHighlighter, "highlighter")
