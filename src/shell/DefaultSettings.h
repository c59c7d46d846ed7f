// The settings that stand until the user saves others.
#pragma once

#include "platform/desktop/UserDefaults.h"

namespace zolt {

/// Registers every default setting of the program below what the user has saved. Done once, at start; any thread.
void registerDefaultSettings(UserDefaults& defaults = UserDefaults::standard());

} // namespace zolt
