// A disk that gets full, made by the system's limit on the size of files.
#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

namespace zolt::test {

/// As long as it lives, no file of this process grows beyond the size.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = {static_cast<rlim_t>(bytes), before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    void (*handler_)(int);
    rlimit before_ = {};
};

} // namespace zolt::test
