#include "shntool/ConvCall.h"

#include <cstring>

namespace zolt::companion {

namespace {

/// The options that take the next argument as their text.
constexpr char optionsWithText[] = "FOPadiorz";

bool isOption(const std::string& argument, char letter)
{
    return argument == std::string("-") + letter;
}

} // namespace

bool takesText(const std::string& argument)
{
    return argument.size() == 2 && argument[0] == '-' && std::strchr(optionsWithText, argument[1]);
}

std::optional<ConvCall> namedOutputCall(const Arguments& arguments)
{
    if (arguments.empty() || arguments[0] != "conv") return std::nullopt;
    ConvCall call{.output = {}, .overwrites = false, .arguments = arguments, .folderIndex = 0};
    for (std::size_t i = 1; i + 1 < arguments.size() && arguments[i] != "--"; ++i) {
        if (isOption(arguments[i], 'n')) {
            call.arguments[i] = "-d";
            call.folderIndex = ++i;
            call.output = arguments[i];
        } else if (takesText(arguments[i])) {
            const bool overwrite = isOption(arguments[i], 'O');
            ++i;
            if (overwrite) call.overwrites = arguments[i] == "always";
        }
    }
    if (call.folderIndex == 0) return std::nullopt;
    return call;
}

} // namespace zolt::companion
