#include "engine/RunProgress.h"

#include <algorithm>

namespace zolt {

namespace {

constexpr double leastWork = 0.01; // of all there is; less tells nothing of the pace

/// An empty file is some work too.
double bytesOf(qint64 size)
{
    return double(std::max<qint64>(size, 1));
}

} // namespace

void RunProgress::Sum::change(qint64 size, int by)
{
    if (size == RunProgress::unknown) {
        unknown += by;
        return;
    }
    known += by;
    bytes += by * bytesOf(size);
}

void RunProgress::end(qint64 bytes, Part how)
{
    sums_[int(Part::Open)].change(bytes, -1);
    sums_[int(how)].change(bytes, 1);
}

void RunProgress::learn(Part part, qint64 bytes)
{
    sums_[int(part)].change(unknown, -1);
    sums_[int(part)].change(bytes, 1);
}

double RunProgress::average() const
{
    double bytes = 0.0;
    qint64 known = 0;
    for (const Sum& sum : sums_) {
        bytes += sum.bytes;
        known += sum.known;
    }
    return known > 0 ? bytes / double(known) : 1.0;
}

double RunProgress::weight(qint64 bytes) const
{
    return bytes == unknown ? average() : bytesOf(bytes);
}

double RunProgress::weightOf(Part part) const
{
    const Sum& sum = sums_[int(part)];
    return sum.bytes + double(sum.unknown) * average();
}

double RunProgress::fraction(double runningWork) const
{
    const double ended = weightOf(Part::Worked) + weightOf(Part::Canceled);
    const double all = ended + weightOf(Part::Open);
    return all > 0.0 ? std::clamp((ended + runningWork) / all, 0.0, 1.0) : 0.0;
}

std::optional<double> RunProgress::remaining(double runningWork, double elapsed) const
{
    const double work = weightOf(Part::Worked) + runningWork;
    const double toDo = std::max(0.0, weightOf(Part::Open) - runningWork);
    if (elapsed <= 0.0 || work <= 0.0 || work < leastWork * (work + toDo)) return std::nullopt;
    return elapsed * toDo / work;
}

} // namespace zolt
