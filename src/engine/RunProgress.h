// How far a run is, each row weighted by its bytes. No rows are kept: what is asked costs the same for any number.
#pragma once

#include <QtGlobal>

#include <optional>

namespace zolt {

/// One thread.
class RunProgress
{
public:
    /// What has become of a row.
    enum class Part {
        Open,   ///< it waits or runs
        Worked, ///< it ended by its own work
        Canceled,
        Count
    };
    static constexpr qint64 unknown = -1;

    /// A row more. @param bytes  its source's, or `unknown`: then it weighs as much as the others on average
    void add(qint64 bytes) { sums_[0].change(bytes, 1); }
    /// The row, which was open, has ended.
    void end(qint64 bytes, Part how);
    /// The bytes of a row have become known.
    void learn(Part part, qint64 bytes);

    /// The weight of a row of so many bytes.
    double weight(qint64 bytes) const;
    /// From 0 to 1. @param runningWork  the sum over the running rows of weight times how far each is
    double fraction(double runningWork) const;
    /// How much longer, in the unit of `elapsed`; absent while too little is done to tell. What was cancelled is
    /// neither work done nor work to do.
    /// @param elapsed  for how long rows have run
    std::optional<double> remaining(double runningWork, double elapsed) const;

private:
    struct Sum
    {
        double bytes = 0.0;
        qint64 known = 0;
        qint64 unknown = 0;
        void change(qint64 size, int by);
    };
    double average() const;
    double weightOf(Part part) const;

    Sum sums_[int(Part::Count)];
};

} // namespace zolt
