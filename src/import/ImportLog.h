#pragma once

#include <QLoggingCategory>

/// The category "fileImport".
Q_DECLARE_LOGGING_CATEGORY(logFileImport)
