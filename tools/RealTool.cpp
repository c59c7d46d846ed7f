#include "RealTool.h"

#include <cstdlib>
#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

namespace zolt::companion {

namespace {

/// Set for what a companion starts. Where two tools directories stand on PATH, each companion would otherwise find
/// the other one for ever.
constexpr char startedByCompanion[] = "ZOLT_COMPANION";
constexpr char packagedPrograms[] = "/usr/bin";

bool isThisProgram(const std::string& path)
{
    struct stat own, other;
    return ::stat("/proc/self/exe", &own) == 0 && ::stat(path.c_str(), &other) == 0 && own.st_dev == other.st_dev &&
           own.st_ino == other.st_ino;
}

bool isProgram(const std::string& path)
{
    struct stat file;
    return ::stat(path.c_str(), &file) == 0 && S_ISREG(file.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

std::string searchPath()
{
    const char* const path = std::getenv("PATH");
    const bool search = path && !std::getenv(startedByCompanion);
    return (search ? std::string(path) + ':' : std::string()) + packagedPrograms;
}

} // namespace

std::optional<std::string> realTool(const std::string& name)
{
    std::istringstream folders(searchPath());
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::string candidate = (folder.empty() ? "." : folder) + '/' + name;
        if (isProgram(candidate) && !isThisProgram(candidate)) return candidate;
    }
    return std::nullopt;
}

void becomeTool(const std::string& path, char** arguments)
{
    ::setenv(startedByCompanion, "1", 1);
    ::execv(path.c_str(), arguments);
}

} // namespace zolt::companion
