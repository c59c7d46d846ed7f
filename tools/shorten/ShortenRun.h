// What a call of shorten does.
#pragma once

#include <string>
#include <vector>

namespace zolt::companion {

/// @param arguments  without the program's name: [-x] INPUT OUTPUT, "-" a pipe
/// @throws Failure
int runShorten(const std::vector<std::string>& arguments);

} // namespace zolt::companion
