#include "audio/Progress.h"

using namespace zolt::companion;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Told
{
    std::vector<unsigned> percents;
    Progress progress;

    explicit Told(std::uint64_t total)
        : progress(total, [this](const Reading& reading) { percents.push_back(unsigned(reading.percent)); })
    {
    }
};

} // namespace

TEST(Progress, TellsTheEndOnceHoweverFreshTheLastReadingIs)
{
    Told told(1000);
    told.progress.reached(5); // no whole percent yet
    told.progress.reached(10);
    told.progress.reached(1000);
    told.progress.reached(1000);
    EXPECT_THAT(told.percents, ElementsAre(1, 100));
}

TEST(Progress, TellsNothingWhereTheLengthIsNotKnown)
{
    Told told(0);
    told.progress.reached(10);
    EXPECT_THAT(told.percents, IsEmpty());
}
