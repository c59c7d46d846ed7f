// A tool and the processes that it has started.
#pragma once

#include <sys/types.h>

namespace zolt {

/// Waits until no process of the group runs any more; those that have ended and were not collected do not count. For
/// the children that a tool leaves behind when it ends. Any thread but the main one.
void waitForProcessGroup(pid_t group);

} // namespace zolt
