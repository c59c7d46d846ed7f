#include "audio/Console.h"

#include <new>

#include <unistd.h>

namespace zolt::companion {

namespace {

int failed(const Failure& failure, const std::function<void(const Failure&)>& tell)
{
    tell(failure);
    return 1;
}

} // namespace

void say(const std::string& text)
{
    [[maybe_unused]] const ssize_t ignored = ::write(STDERR_FILENO, text.data(), text.size());
}

int runProgram(const std::function<int()>& work, const std::function<void(const Failure&)>& tell)
{
    try {
        return work();
    } catch (const Failure& failure) {
        return failed(failure, tell);
    } catch (const std::bad_alloc&) {
        return failed(Failure(Fault::Memory, "there is too little memory"), tell);
    }
}

} // namespace zolt::companion
