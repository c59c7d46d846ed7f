// What the cache does when its own state makes no sense: say where, and stop the program.
#pragma once

#include <source_location>

namespace zolt {

/// Logs the place and the condition that does not hold, then aborts. Any thread, the cache's lock held or not.
[[noreturn]] void abortOverBookkeeping(const char* condition,
                                       std::source_location where = std::source_location::current());

} // namespace zolt

/// The condition must hold, or the cache's own bookkeeping is at fault: searching on could only give wrong texts.
#define RKL_REQUIRE(condition) ((condition) ? static_cast<void>(0) : ::zolt::abortOverBookkeeping(#condition))
