#include "records/ContrastColor.h"

QColor contrastFontColor(const QColor& background) {
    const double brightness =
        (0.299 * background.red() + 0.587 * background.green() + 0.114 * background.blue()) / 255.0;
    return 1.0 - brightness < 0.5 ? QColor(0, 0, 0) : QColor(255, 255, 255);
}
