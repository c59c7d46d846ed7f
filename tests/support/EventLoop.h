// Runs the main thread's event loop until something has happened.
#pragma once

#include <functional>

namespace zolt::test {

/// @return false if it has not happened within a minute, which only a broken program needs
bool runUntil(const std::function<bool()>& happened);

/// Runs what is posted to the main thread and what it posts in turn.
void runPosted();

} // namespace zolt::test
