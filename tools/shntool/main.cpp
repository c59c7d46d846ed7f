// Stands before the packaged shntool: has it take 24 bits, many channels and today's Wavpack, gives calls the options
// that the program relies on, and knows "conv -n FILE", which that one does not.

#include "RealTool.h"
#include "shntool/CuredCall.h"
#include "shntool/KnownEndings.h"
#include "shntool/NamedOutput.h"
#include "shntool/PreloadedObject.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

/// The vector of an exec call, whose texts live as long as this process needs them.
std::vector<char*> vectorOf(char* name, const zolt::companion::Arguments& arguments)
{
    std::vector<char*> vector{name};
    for (const std::string& argument : arguments)
        vector.push_back(::strdup(argument.c_str()));
    vector.push_back(nullptr);
    return vector;
}

} // namespace

int main(int argc, char** argv)
{
    using namespace zolt::companion;
    const auto tool = realTool("shntool");
    if (!tool) {
        std::fputs("shntool: error: the tool itself is not installed; install the package \"shntool\"\n", stderr);
        return 127;
    }
    offerNeighbours(argv[0]);
    preloadObject();
    const Arguments given(argv + (argc > 0), argv + argc);
    if (const auto call = namedOutputCall(given)) return convertToNamedOutput(*tool, argv[0], *call);
    const Arguments cured = curedCall(given);
    if (keepsEndings(cured)) return runOnKnownNames(*tool, argv[0], cured);
    becomeTool(*tool, vectorOf(argv[0], cured).data());
    std::fprintf(stderr, "shntool: error: cannot start \"%s\": %s\n", tool->c_str(), std::strerror(errno));
    return 126;
}
