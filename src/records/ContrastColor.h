#pragma once

#include <QColor>

/// Black or white, whichever is easier to read on an opaque `background`.
QColor contrastFontColor(const QColor& background);
