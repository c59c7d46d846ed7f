// The two colours that carry meaning, so that they read on any palette.
#pragma once

#include "platform/controls/Colour.h"

#include <QColor>

class QPalette;

namespace zolt {

/// The colour as it stands on a light background; its lighter twin on a dark one; the palette's own text colour for
/// Colour::text().
QColor shownColour(const Colour& colour, const QPalette& palette);

/// True if text on this palette's background is light.
bool isDark(const QPalette& palette);

} // namespace zolt
