// What a call of the companion asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zolt::companion {

using Arguments = std::vector<std::string>;

/// A call of "conv" that names its output file, which the real tool cannot do.
struct ConvCall
{
    std::string output;          ///< the file behind -n
    bool overwrites = false;     ///< "-O always" was given
    Arguments arguments;         ///< the call with "-d" and an empty text in place of "-n" and the file
    std::size_t folderIndex = 0; ///< where in `arguments` the folder is to be filled in
};

/// Whether the next argument is the text of this one, an option of any of the tool's modes.
bool takesText(const std::string& argument);

/// Reads a call as the real tool would: the text behind an option that takes one is never an option itself, and
/// nothing behind "--" is.
/// @param arguments  without the program's name
/// @return nothing for every call that the real tool understands as it stands
std::optional<ConvCall> namedOutputCall(const Arguments& arguments);

} // namespace zolt::companion
