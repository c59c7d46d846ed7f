// Runs a queue to its end.
#pragma once

#include "engine/ZOLTTaskQueue.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EventLoop.h"

namespace zolt::test {

/// Waits until the queue is empty, every thread of its tasks has ended and what they posted has run: a row leaves the
/// queue ahead of its report, which its thread has still to show.
/// @return false if the queue is not empty within a minute
inline bool runToEnd(const ZOLTTaskQueue& queue)
{
    const bool emptied = runUntil([&] { return queue.taskCount() == 0; });
    waitForDetachedThreads();
    runPosted();
    return emptied;
}

} // namespace zolt::test
