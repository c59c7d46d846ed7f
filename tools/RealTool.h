// Finds the packaged tool that a companion of the same name stands before.
#pragma once

#include <optional>
#include <string>

namespace zolt::companion {

/// The first executable of that name in the folders of PATH, then in /usr/bin, that is no companion itself.
std::optional<std::string> realTool(const std::string& name);

/// Replaces this process by the tool. Returns only if that fails, with errno set.
/// @param arguments  the whole vector, the program's own name first, closed by a null pointer
void becomeTool(const std::string& path, char** arguments);

} // namespace zolt::companion
