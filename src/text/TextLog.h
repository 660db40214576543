#pragma once

#include <QLoggingCategory>

Q_DECLARE_LOGGING_CATEGORY(logHighlighter)
Q_DECLARE_LOGGING_CATEGORY(logDocumentChangeTracker)
