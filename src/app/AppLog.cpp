#include "app/AppLog.h"

Q_LOGGING_CATEGORY(logAppHelper, "appHelper")
