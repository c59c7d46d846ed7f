// Fonts of models as this desktop has them.
#pragma once

#include "platform/controls/TextView.h"

#include <QFont>

namespace zolt {

/// Whether narrow and wide letters take the same room in the face that stands for the font here. Main thread.
bool keepsPitch(const QFont& font);

/// The font of the model where what stands for it on this desktop is of fixed pitch, otherwise the desktop's own of
/// that kind, in the same size. Main thread.
QFont shownFont(const Font& font);

} // namespace zolt
