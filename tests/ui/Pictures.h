// Looks of the windows: palettes, and what a picture shows.
#pragma once

#include <QImage>
#include <QPalette>

namespace zolt::test {

QPalette lightPalette();
QPalette darkPalette();

/// How many colours the picture has.
qsizetype colourCount(const QImage& picture);

/// The contrast of two colours as readers' guidelines reckon it, from 1 to 21.
double contrast(const QColor& one, const QColor& other);

} // namespace zolt::test
