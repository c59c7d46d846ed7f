// A cover for a person to read about.
#pragma once

#include "platform/images/Image.h"

namespace zolt {

/// "JPEG, 600 × 600, 84.2 kB": what the picture is now; it is written as PNG. Any thread.
QString coverInWords(const Image& cover);

} // namespace zolt
