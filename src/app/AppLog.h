#pragma once

#include <QLoggingCategory>

/// The category "appHelper".
Q_DECLARE_LOGGING_CATEGORY(logAppHelper)
