// A disk that is full, as far as this program is concerned.
#pragma once

#include <concepts>
#include <csignal>
#include <sys/resource.h>

namespace zolt::test {

/// As long as it lives no file of the program or of its tools grows beyond a size, as on a full disk.
class FileSizeLimit
{
public:
    /// @param size  in bytes
    explicit FileSizeLimit(std::integral auto size) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limited{static_cast<rlim_t>(size), old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit old_ = {};
    void (*handler_)(int);
};

} // namespace zolt::test
