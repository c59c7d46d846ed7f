// Tags that were put ahead of files that do not know them.
#pragma once

#include "audio/ByteSource.h"

namespace zolt::companion {

/// Reads over an ID3v2 tag, if one stands next.
void skipId3(ByteSource& source);

} // namespace zolt::companion
