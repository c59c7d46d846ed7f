#include "shntool/PreloadedObject.h"

#include <cstdlib>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace zolt::companion {

namespace {

namespace fs = std::filesystem;

constexpr char variable[] = "LD_PRELOAD";

/// The loader cuts its list at colons and blanks: a path that has one is given as an open descriptor, which the
/// object closes.
std::string loadable(const std::string& path)
{
    if (path.find_first_of(": ") == std::string::npos) return path;
    const int descriptor = ::open(path.c_str(), O_RDONLY);
    return descriptor < 0 ? std::string() : "/proc/self/fd/" + std::to_string(descriptor);
}

} // namespace

void preloadObject()
{
    std::error_code unknown;
    const fs::path own = fs::read_symlink("/proc/self/exe", unknown);
    const std::string object = (own.parent_path().parent_path() / ZOLT_SHNTOOL_OBJECT).string();
    if (unknown || ::access(object.c_str(), R_OK) != 0) return;
    const std::string entry = loadable(object);
    if (entry.empty()) return;
    const char* const others = std::getenv(variable);
    ::setenv(variable, (others && *others ? entry + ':' + others : entry).c_str(), 1);
}

} // namespace zolt::companion
