// The text that a companion prints: on the standard error, as the standard output may be the audio.
#pragma once

#include "audio/Failure.h"

#include <functional>
#include <string>

namespace zolt::companion {

/// Prints a text in one write. What cannot be printed is no failure.
void say(const std::string& text);

/// Runs the work of a program to its end.
/// @param tell  is handed what went wrong; every exception comes as a Failure
/// @return the exit status: the work's own, or 1 after a failure
int runProgram(const std::function<int()>& work, const std::function<void(const Failure&)>& tell);

} // namespace zolt::companion
