#include "audio/Progress.h"

#include <algorithm>

namespace zolt::companion {

namespace {

// Two readings that meet in the pipe would be read as one piece.
constexpr std::chrono::milliseconds apart(50);

} // namespace

Progress::Progress(std::uint64_t total, Print print) : total_(total), print_(std::move(print)) {}

void Progress::reached(std::uint64_t done)
{
    if (!print_ || total_ == 0) return;
    const double percent = std::min(100.0, 100.0 * double(done) / double(total_));
    const Clock::time_point now = Clock::now();
    if (unsigned(percent) <= shown_ || (shown_ > 0 && now - last_ < apart && done < total_)) return;
    shown_ = unsigned(percent);
    last_ = now;
    print_({.percent = percent, .elapsed = std::chrono::duration<double>(now - start_).count()});
}

} // namespace zolt::companion
