// A disk that is full, as far as this program is concerned.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace zolt::test {

/// As long as it lives no file of the program grows beyond a size, as on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t size) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limited{size, old_.rlim_max};
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
