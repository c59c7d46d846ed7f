// The command line of mac.
#pragma once

#include <string>
#include <vector>

namespace zolt::companion {

struct MacCall
{
    enum class Task { Decode, Verify, Encode };

    Task task = Task::Decode;
    std::string input, output; ///< "-" is the standard input or output; no output for a verification
    unsigned level = 0;        ///< of an encoding: 1000 to 5000

    /// Nothing but errors is printed where audio passes through a pipe.
    bool quiet() const { return input == "-" || output == "-"; }
};

/// @param arguments  without the program's name
/// @throws Failure (Usage)
MacCall readMacCall(const std::vector<std::string>& arguments);

} // namespace zolt::companion
