// A system that gives no threads.
#pragma once

#include <cstddef>

#include <pthread.h>

namespace zolt::test {

/// Until it gives them, no thread can be started: each would need a stack larger than all addresses.
class NoMoreThreads
{
public:
    NoMoreThreads()
    {
        ::pthread_getattr_default_np(&attributes_);
        ::pthread_attr_getstacksize(&attributes_, &usual_);
        setStackSize(std::size_t(1) << 48);
    }
    ~NoMoreThreads() { give(); }
    void give() { setStackSize(usual_); }

private:
    void setStackSize(std::size_t bytes)
    {
        ::pthread_attr_setstacksize(&attributes_, bytes);
        ::pthread_setattr_default_np(&attributes_);
    }
    pthread_attr_t attributes_;
    std::size_t usual_ = 0;
};

} // namespace zolt::test
