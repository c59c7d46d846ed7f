#include "shntool/CuredCall.h"

#include <algorithm>

namespace zolt::companion {

namespace {

/// One option with its text for one command.
struct Cure
{
    const char* command;
    const char* option;
    const char* text;
};

constexpr Cure cures[] = {{"fix", "-z", ""}, {"fix", "-r", "none"}, {"join", "-r", "none"}};

} // namespace

Arguments curedCall(const Arguments& arguments)
{
    Arguments cured = arguments;
    for (const Cure& cure : cures) {
        if (arguments.empty() || arguments[0] != cure.command) continue;
        if (std::find(arguments.begin(), arguments.end(), cure.option) != arguments.end()) continue;
        cured.insert(cured.begin() + 1, {cure.option, cure.text});
    }
    return cured;
}

} // namespace zolt::companion
