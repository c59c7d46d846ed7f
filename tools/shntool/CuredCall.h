// The options that a call needs so that the packaged tool answers it as the program relies on.
#pragma once

#include "shntool/ConvCall.h"

namespace zolt::companion {

/// "fix" gives its outputs the names of their sources, and "fix" and "join" keep the order of the files given, unless
/// the call says otherwise. All other calls stay as they are.
/// @param arguments  without the program's name
Arguments curedCall(const Arguments& arguments);

} // namespace zolt::companion
