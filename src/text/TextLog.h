#pragma once

#include <QLoggingCategory>

/// The category "highlighter".
Q_DECLARE_LOGGING_CATEGORY(logHighlighter)
