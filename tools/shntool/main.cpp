// Stands before the packaged shntool: has it take 24 bits, many channels and today's Wavpack, and knows "conv -n FILE",
// which that one does not.

#include "RealTool.h"
#include "shntool/NamedOutput.h"
#include "shntool/PreloadedObject.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

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
    const auto call = namedOutputCall(Arguments(argv + (argc > 0), argv + argc));
    if (call) return convertToNamedOutput(*tool, argv[0], *call);
    becomeTool(*tool, argv);
    std::fprintf(stderr, "shntool: error: cannot start \"%s\": %s\n", tool->c_str(), std::strerror(errno));
    return 126;
}
