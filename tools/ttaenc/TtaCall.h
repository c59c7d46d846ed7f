// The command line of ttaenc.
#pragma once

#include <string>
#include <vector>

namespace zolt::companion {

struct TtaCall
{
    enum class Task { ByContent, Encode, Decode, Test };

    Task task = Task::ByContent;
    std::string input, output; ///< "-" is the standard input or output; no output for a test

    /// Nothing but errors is printed where audio passes through a pipe.
    bool quiet() const { return input == "-" || output == "-"; }
};

/// @param arguments  without the program's name
/// @throws Failure (Usage)
TtaCall readTtaCall(const std::vector<std::string>& arguments);

} // namespace zolt::companion
