#include "RealTool.h"

#include <cstdlib>
#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

namespace zolt::companion {

namespace {

/// The companions that a process was started through, by device and inode. Where two tools directories stand on PATH,
/// each companion would otherwise find the other one for ever.
constexpr char passedVariable[] = "ZOLT_COMPANIONS";
constexpr char packagedPrograms[] = "/usr/bin";

std::string identity(const std::string& path)
{
    struct stat file;
    if (::stat(path.c_str(), &file) != 0) return {};
    return std::to_string(file.st_dev) + ':' + std::to_string(file.st_ino) + ' ';
}

/// With this program, each followed by a blank.
std::string passedCompanions()
{
    const char* const passed = std::getenv(passedVariable);
    const std::string list = passed ? passed : "", own = identity("/proc/self/exe");
    return (' ' + list).find(' ' + own) == std::string::npos ? list + own : list;
}

bool wasPassed(const std::string& path)
{
    return (' ' + passedCompanions()).find(' ' + identity(path)) != std::string::npos;
}

bool isProgram(const std::string& path)
{
    struct stat file;
    return ::stat(path.c_str(), &file) == 0 && S_ISREG(file.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

std::string searchPath()
{
    const char* const path = std::getenv("PATH");
    return (path ? std::string(path) + ':' : std::string()) + packagedPrograms;
}

} // namespace

std::optional<std::string> realTool(const std::string& name)
{
    std::istringstream folders(searchPath());
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::string candidate = (folder.empty() ? "." : folder) + '/' + name;
        if (isProgram(candidate) && !wasPassed(candidate)) return candidate;
    }
    return std::nullopt;
}

void offerNeighbours(const std::string& calledAs)
{
    const std::size_t slash = calledAs.rfind('/');
    if (slash == std::string::npos) return; // found in a folder of PATH
    const std::string folder = ':' + calledAs.substr(0, slash), path = searchPath();
    if ((':' + path + ':').find(folder + ':') == std::string::npos) ::setenv("PATH", (path + folder).c_str(), 1);
}

void becomeTool(const std::string& path, char** arguments)
{
    ::setenv(passedVariable, passedCompanions().c_str(), 1);
    ::execv(path.c_str(), arguments);
}

} // namespace zolt::companion
