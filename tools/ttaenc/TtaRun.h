// What a call of ttaenc does.
#pragma once

#include "ttaenc/TtaCall.h"

namespace zolt::companion {

/// @return the exit status; not 0 if a frame is damaged
/// @throws Failure
int runTta(const TtaCall& call);

} // namespace zolt::companion
