// Detached threads that are counted, so that the program can wait at quit for those still running.
#pragma once

#include <functional>

namespace zolt {

/// Starts a thread of its own for the work and returns at once. What the work throws is logged. Any thread.
/// @throws PlatformException if the system gives no thread
void detachThread(std::function<void()> work);

/// How many detached threads have not yet ended. Any thread.
int detachedThreadCount();

/// Returns when no detached thread runs. On the main thread the event loop goes on meanwhile, so that what the
/// threads hand over is done; threads that those start are waited for too.
void waitForDetachedThreads();

} // namespace zolt
