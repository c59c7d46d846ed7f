// Stands before the packaged shntool, which does not know "conv -n FILE", and hands every other call through.

#include "RealTool.h"
#include "shntool/NamedOutput.h"

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
    const auto call = namedOutputCall(Arguments(argv + (argc > 0), argv + argc));
    if (call) return convertToNamedOutput(*tool, argv[0], *call);
    becomeTool(*tool, argv);
    std::fprintf(stderr, "shntool: error: cannot start \"%s\": %s\n", tool->c_str(), std::strerror(errno));
    return 126;
}
