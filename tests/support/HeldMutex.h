// Whether what an object does waits for its mutex. No clock: the waiting thread is asked for its state.
#pragma once

#include <atomic>
#include <fstream>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include <unistd.h>

namespace zolt::test {

/// Opens a class's private mutex to a test, which declares `std::mutex& mutexOf(const Class&);` and says
/// `template struct OpenMutex<Class, &Class::mutex_>;`.
template <class Owner, std::mutex Owner::*mutex> struct OpenMutex
{
    friend std::mutex& mutexOf(const Owner& owner) { return const_cast<Owner&>(owner).*mutex; }
};

/// Whether the thread of this process sleeps, as one does that waits for a mutex.
inline bool sleeps(pid_t thread)
{
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
    std::string state;
    std::getline(file, state);
    const auto name = state.rfind(") ");
    return name != std::string::npos && state[name + 2] == 'S';
}

/// Does the work on another thread while this one holds the mutex.
/// @return false if the work was done in spite of that
inline bool waitsFor(std::mutex& mutex, const std::function<void()>& work)
{
    std::atomic<pid_t> thread = 0;
    std::atomic<bool> done = false;
    std::unique_lock held(mutex);
    std::thread other([&] {
        thread = gettid();
        work();
        done = true;
    });
    while (!done && !(thread != 0 && sleeps(thread)))
        std::this_thread::yield();
    const bool waited = !done;
    held.unlock();
    other.join();
    return waited;
}

} // namespace zolt::test
