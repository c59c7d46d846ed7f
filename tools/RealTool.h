// Finds the packaged tool that a companion of the same name stands before.
#pragma once

#include <optional>
#include <string>

namespace zolt::companion {

/// The first executable of that name in the folders of PATH, then in /usr/bin, that is neither this companion nor one
/// that led to it.
std::optional<std::string> realTool(const std::string& name);

/// Puts the folder that this program was called in last on PATH, so that the tool finds the other companions there.
/// @param calledAs  the program's own name, as it was called
void offerNeighbours(const std::string& calledAs);

/// Replaces this process by the tool. Returns only if that fails, with errno set.
/// @param arguments  the whole vector, the program's own name first, closed by a null pointer
void becomeTool(const std::string& path, char** arguments);

} // namespace zolt::companion
