// Gives "fix" and "conv" their files under endings that the packaged tool takes off their names.
#pragma once

#include "shntool/ConvCall.h"

namespace zolt::companion {

/// The name under which the tool drops a file's ending: "A.WAV" as "A.wav", "a.aif" as "a.aiff".
/// @return nothing where it does so anyway, or never
std::optional<std::string> knownName(const std::string& path);

/// Whether the call is a "fix" or "conv" with a file whose ending would stay in the name of its output.
/// @param arguments  without the program's name
bool keepsEndings(const Arguments& arguments);

/// Runs the call on links of those names, in a folder that goes afterwards. A file whose name is taken there, and all
/// of them where the folder cannot be made, are given as they are.
/// @return the exit status, the tool's
int runOnKnownNames(const std::string& tool, const std::string& programName, Arguments arguments);

} // namespace zolt::companion
