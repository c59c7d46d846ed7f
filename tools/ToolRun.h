// Runs a tool as a child that shares this process's standard streams.
#pragma once

#include <string>
#include <vector>

namespace zolt::companion {

/// Hands SIGINT, SIGTERM and SIGHUP on to the tool and returns at its end.
/// @param arguments  the whole vector, the program's name first
/// @return the tool's wait status; -1 if it could not be started
int runTool(const std::string& path, std::vector<std::string> arguments);

/// The status to exit with for a wait status; ends this process by the tool's signal if one ended the tool.
int statusToExitWith(int waitStatus);

} // namespace zolt::companion
