#pragma once

#include <QColor>
#include <QImage>

/// The smallest part of an image that holds every pixel which differs from `background`. An image of the
/// background alone is given back whole.
QImage cropped(const QImage& image, const QColor& background);
