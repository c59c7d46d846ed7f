// Nothing that a tool writes is read because its moment is over.
#pragma once

#include "platform/process/ReadPace.h"

namespace zolt::test {

/// While it lives no moment ends for which small pieces of output gather.
class EndlessMoment
{
public:
    EndlessMoment()
    {
        ReadPace::instance().endMoment(); // one that began before
        ReadPace::instance().setMoment(std::chrono::hours(1));
    }
    ~EndlessMoment()
    {
        ReadPace::instance().setMoment(moment_);
        ReadPace::instance().endMoment();
    }

private:
    const std::chrono::milliseconds moment_ = ReadPace::instance().moment();
};

} // namespace zolt::test
