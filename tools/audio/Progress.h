// Tells how far a run is, in the words that its program is known for.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace zolt::companion {

/// How far a run is, for the texts that programs make of it.
struct Reading
{
    double percent = 0;
    double elapsed = 0; ///< seconds since the start

    /// Seconds that the rest will take at the speed so far.
    double remaining() const { return percent > 0 ? elapsed * (100 - percent) / percent : 0; }
    double total() const { return elapsed + remaining(); }
};

class Progress
{
public:
    /// Prints one reading, in a single write so that a reader gets it as one piece.
    using Print = std::function<void(const Reading&)>;

    /// @param total  of whatever reached() counts; 0 where it is unknown, and then nothing is printed
    /// @param print  empty for a quiet run
    Progress(std::uint64_t total, Print print);

    /// Prints where a percent has passed and the last reading is not too fresh.
    void reached(std::uint64_t done);

private:
    using Clock = std::chrono::steady_clock;

    std::uint64_t total_;
    Print print_;
    unsigned shown_ = 0;
    Clock::time_point start_ = Clock::now(), last_ = start_;
};

} // namespace zolt::companion
