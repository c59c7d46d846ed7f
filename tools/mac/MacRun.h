// What a call of mac does.
#pragma once

#include "mac/MacCall.h"

namespace zolt::companion {

/// @return the exit status
/// @throws Failure
int runMac(const MacCall& call);

} // namespace zolt::companion
