#include "app/Crop.h"

#include <algorithm>

QImage cropped(const QImage& image, const QColor& background) {
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
    const QRgb empty = background.rgba();
    int left = pixels.width();
    int right = -1;
    int top = pixels.height();
    int bottom = -1;
    for (int y = 0; y < pixels.height(); ++y) {
        const QRgb* const line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        const QRgb* const end = line + pixels.width();
        const auto differs = [empty](QRgb pixel) { return pixel != empty; };
        const QRgb* const first = std::find_if(line, end, differs);
        if (first == end)
            continue;
        const auto last =
            std::find_if(std::make_reverse_iterator(end), std::make_reverse_iterator(first), differs);
        left = std::min(left, int(first - line));
        right = std::max(right, int(last.base() - line) - 1);
        top = std::min(top, y);
        bottom = y;
    }
    return bottom < 0 ? image : image.copy(QRect(QPoint(left, top), QPoint(right, bottom)));
}
