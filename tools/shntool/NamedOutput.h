// Runs a conversion whose output file has a name of its own.
#pragma once

#include "shntool/ConvCall.h"

namespace zolt::companion {

/// Lets the tool write into a new folder beside the wanted file and moves the result there. The folder goes in every
/// case; the wanted file changes only after success. Where a signal ends the tool or this program, the folder goes too
/// and this program ends by that signal.
/// @param tool         path of the real tool
/// @param programName  handed on as the tool's own name
/// @return the exit status: the tool's, or 1 where the result cannot be put in place
int convertToNamedOutput(const std::string& tool, const std::string& programName, ConvCall call);

} // namespace zolt::companion
