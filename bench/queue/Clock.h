// Times and memory of this process.
#pragma once

#include <functional>

namespace zolt::bench {

/// How long the work takes, in milliseconds; what it posts to the main thread is part of it.
double millisecondsOf(const std::function<void()>& work);

/// The memory of this process that is in use now, in MiB.
double residentMebibytes();

} // namespace zolt::bench
