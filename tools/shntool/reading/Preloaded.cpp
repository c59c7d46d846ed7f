// Loaded into the packaged shntool alone: what that opens for reading is shown with a header that it takes, and its
// lines are written one at a time for whoever asks for that.

#include "shntool/reading/MarkedText.h"
#include "shntool/reading/ShownFile.h"

#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

using zolt::reading::ShownFile;

constexpr char preloadVariable[] = "LD_PRELOAD";
constexpr char wishForLines[] = "NSUnbufferedIO"; // in the environment of every tool that the program reads from
constexpr char descriptors[] = "/proc/self/fd/";

bool onlyReads(const char* mode)
{
    return mode[0] == 'r' && !std::strchr(mode, '+');
}

template <typename Function> Function* next(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/// Takes this object out of the variable, so that no program that shntool starts is given it.
[[gnu::constructor]] void leaveEnvironment()
{
    Dl_info self;
    const char* const value = std::getenv(preloadVariable);
    if (!value || ::dladdr(reinterpret_cast<void*>(&leaveEnvironment), &self) == 0) return;
    const std::size_t length = std::strlen(self.dli_fname);
    if (std::strncmp(value, self.dli_fname, length) != 0) return;
    if (std::strncmp(value, descriptors, sizeof descriptors - 1) == 0)
        ::close(std::atoi(value + sizeof descriptors - 1));
    if (value[length] == ':')
        ::setenv(preloadVariable, value + length + 1, 1);
    else
        ::unsetenv(preloadVariable);
}

/// Otherwise the hashes of many files would come in blocks, which end within a line and fall into what is printed of
/// the progress meanwhile.
[[gnu::constructor]] void writeByLines()
{
    if (std::getenv(wishForLines)) std::setvbuf(stdout, nullptr, _IOLBF, 0);
}

std::FILE* openShown(const char* path)
{
    const int descriptor = ::open(path, O_RDONLY);
    if (descriptor < 0) return nullptr;
    std::FILE* const text = zolt::reading::markedText(descriptor);
    std::FILE* const stream = text ? text : ShownFile::stream(descriptor);
    if (text || !stream) ::close(descriptor);
    return stream;
}

} // namespace

extern "C" {

[[gnu::visibility("default")]] std::FILE* fopen(const char* path, const char* mode)
{
    return onlyReads(mode) ? openShown(path) : next<std::FILE*(const char*, const char*)>("fopen")(path, mode);
}

[[gnu::visibility("default")]] std::FILE* fdopen(int descriptor, const char* mode) noexcept
{
    return onlyReads(mode) ? ShownFile::stream(descriptor)
                           : next<std::FILE*(int, const char*)>("fdopen")(descriptor, mode);
}

/// flac takes more than two channels in a plain WAV only if it is told not to ask for their places.
[[gnu::visibility("default")]] int execvp(const char* program, char* const* arguments) noexcept
{
    const auto start = next<int(const char*, char* const*)>("execvp");
    constexpr std::size_t most = 64;
    static char placesUnasked[] = "--channel-map=none";
    std::size_t count = 0;
    while (arguments[count])
        ++count;
    const bool encodes = std::strcmp(program, "flac") == 0 && count > 0 && std::strcmp(arguments[count - 1], "-") == 0;
    if (!encodes || ShownFile::mostChannels() <= 2 || count + 2 > most) return start(program, arguments);
    char* vector[most] = {arguments[0], placesUnasked};
    std::memcpy(vector + 2, arguments + 1, count * sizeof *vector);
    return start(program, vector);
}
}
