#include "ui/LatestJob.h"

#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "support/EventLoop.h"
#include "support/NoMoreThreads.h"

#include <semaphore>

namespace zolt::test {
namespace {

TEST(LatestJobTest, DeliversOnTheMainThread)
{
    LatestJob job;
    bool delivered = false;
    job.start([&](const std::atomic<bool>&) -> LatestJob::Delivery {
        EXPECT_FALSE(isMainThread());
        return [&] { delivered = isMainThread(); };
    });
    EXPECT_TRUE(runUntil([&] { return delivered; }));
    EXPECT_TRUE(job.isIdle());
}

TEST(LatestJobTest, OnlyTheNewestIsDelivered)
{
    LatestJob job;
    std::binary_semaphore started{0};
    std::vector<int> delivered;
    std::atomic<int> runs = 0;
    job.start([&](const std::atomic<bool>& stop) -> LatestJob::Delivery {
        ++runs;
        started.release();
        while (!stop)
            std::this_thread::yield();
        return [&] { delivered.push_back(1); };
    });
    started.acquire();
    for (int number = 2; number <= 5; ++number) {
        job.start([&, number](const std::atomic<bool>&) -> LatestJob::Delivery {
            ++runs;
            return [&, number] { delivered.push_back(number); };
        });
    }
    EXPECT_TRUE(runUntil([&] { return job.isIdle(); }));
    runPosted();
    EXPECT_THAT(delivered, testing::ElementsAre(5));
    EXPECT_EQ(runs, 2);
}

TEST(LatestJobTest, GoesOnOnceThereAreThreadsAgain)
{
    LatestJob job;
    bool delivered = false;
    const auto work = [&](const std::atomic<bool>&) -> LatestJob::Delivery { return [&] { delivered = true; }; };
    NoMoreThreads none;
    EXPECT_THROW(job.start(work), PlatformException);
    EXPECT_TRUE(job.isIdle());
    none.give();
    job.start(work);
    EXPECT_TRUE(runUntil([&] { return delivered; }));
}

TEST(LatestJobTest, NothingIsDeliveredAfterItsEnd)
{
    bool delivered = false;
    {
        LatestJob job;
        job.start([&](const std::atomic<bool>&) -> LatestJob::Delivery { return [&] { delivered = true; }; });
    }
    waitForDetachedThreads();
    runPosted();
    EXPECT_FALSE(delivered);
}

} // namespace
} // namespace zolt::test
