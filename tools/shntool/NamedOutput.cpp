#include "shntool/NamedOutput.h"

#include "ToolRun.h"
#include "shntool/OwnFolder.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace zolt::companion {

namespace {

namespace fs = std::filesystem;

/// In the wording of the real tool, whose place this program takes.
int failed(const std::string& what)
{
    std::fprintf(stderr, "shntool [conv]: error: %s\n", what.c_str());
    return 1;
}

bool moveTo(const std::string& output, const fs::path& result, bool overwrites)
{
    if (overwrites) return ::rename(result.c_str(), output.c_str()) == 0;
    if (::renameat2(AT_FDCWD, result.c_str(), AT_FDCWD, output.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // A file system that knows no such rename: a link never replaces either, and where there are no links it was looked
    // for the output before.
    if (::link(result.c_str(), output.c_str()) == 0) return true;
    return errno != EEXIST && ::rename(result.c_str(), output.c_str()) == 0;
}

int putInPlace(const ConvCall& call, const OwnFolder& folder)
{
    const fs::path result = folder.onlyFile();
    if (result.empty()) return failed("the conversion did not give one file for: [" + call.output + "]");
    if (moveTo(call.output, result, call.overwrites)) return 0;
    return failed("could not write: [" + call.output + "]: " + std::strerror(errno));
}

int convert(const std::string& tool, const std::string& programName, ConvCall& call, const OwnFolder& folder,
            int& status)
{
    Arguments vector{programName};
    call.arguments[call.folderIndex] = folder.path();
    vector.insert(vector.end(), call.arguments.begin(), call.arguments.end());
    status = runTool(tool, vector);
    return status == 0 ? putInPlace(call, folder) : 0;
}

} // namespace

int convertToNamedOutput(const std::string& tool, const std::string& programName, ConvCall call)
{
    std::error_code unknown; // then the conversion itself meets what is wrong with the path
    if (!call.overwrites && fs::exists(fs::symlink_status(call.output, unknown))) {
        return failed("output file exists and is not to be overwritten: [" + call.output + "]");
    }
    int status = -1, ownStatus = 0;
    {
        const fs::path parent = fs::path(call.output).parent_path();
        const OwnFolder folder(parent.empty() ? "." : parent);
        if (!folder) return failed("could not write beside: [" + call.output + "]: " + std::strerror(errno));
        ownStatus = convert(tool, programName, call, folder, status);
    }
    return ownStatus != 0 ? ownStatus : statusToExitWith(status);
}

} // namespace zolt::companion
