#include "platform/threads/MainQueue.h"

#include "platform/errors/Exceptions.h"
#include "support/EventLoop.h"
#include "support/LogCapture.h"

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(MainQueue, RunsOnTheMainThreadInTheOrderPosted)
{
    std::vector<int> order;
    bool onMain = false;
    std::thread([&] {
        for (int i = 0; i < 100; ++i)
            postToMain([&order, i] { order.push_back(i); });
        postToMain([&] { onMain = isMainThread(); });
    }).join();
    ASSERT_TRUE(test::runUntil([&] { return order.size() == 100 && onMain; }));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST(MainQueue, WorkThatWaitsInAnEventLoopLetsTheRestRun)
{
    bool later = false, inTime = false;
    postToMain([&] { inTime = test::runUntil([&] { return later; }); });
    postToMain([&] { later = true; });
    ASSERT_TRUE(test::runUntil([&] { return inTime; }));
}

TEST(MainQueue, FaultOfOnePieceIsLoggedAndTheNextRuns)
{
    const test::LogCapture log;
    bool ran = false;
    postToMain([] { throw RangeException(u"too far"_s); });
    postToMain([&] { ran = true; });
    ASSERT_TRUE(test::runUntil([&] { return ran; }));
    EXPECT_EQ(log.count(u"too far"_s), 1);
}

TEST(MainQueue, DrainRunsWhatTheWorkPosts)
{
    int ran = 0;
    postToMain([&] {
        ++ran;
        postToMain([&] { ++ran; });
    });
    test::runPosted();
    EXPECT_EQ(ran, 2);
    EXPECT_TRUE(MainQueue::instance().isEmpty());
}

TEST(MainQueue, TakesPostsFromManyThreads)
{
    std::atomic<int> ran = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 500; ++round)
                postToMain([&] { ++ran; });
        });
    }
    ASSERT_TRUE(test::runUntil([&] { return ran == 2000; }));
    for (auto& thread : threads)
        thread.join();
}
