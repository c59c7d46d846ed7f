#include "platform/threads/DetachedThreads.h"

#include "platform/threads/MainQueue.h"
#include "support/LogCapture.h"

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(DetachedThreads, AreWaitedForWithThoseTheyStart)
{
    std::atomic<int> ended = 0;
    detachThread([&] {
        detachThread([&] { ++ended; });
        ++ended;
    });
    waitForDetachedThreads();
    EXPECT_EQ(ended, 2);
    EXPECT_EQ(detachedThreadCount(), 0);
}

TEST(DetachedThreads, WhatTheirWorkOwnsIsGoneOnceTheyHaveBeenWaitedFor)
{
    std::atomic<bool> gone = false;
    std::shared_ptr<void> slow(nullptr, [&](void*) {
        for (int chance = 0; chance < 20000; ++chance) // for the wait to end before
            std::this_thread::yield();
        gone = true;
    });
    detachThread([owned = std::move(slow)] {});
    waitForDetachedThreads();
    EXPECT_TRUE(gone);
}

TEST(DetachedThreads, MainThreadDoesWhatTheyHandOverWhileItWaits)
{
    std::atomic<bool> done = false;
    detachThread([&] {
        postToMain([&] { done = true; });
        while (!done)
            std::this_thread::yield(); // would never end if the wait only slept
    });
    waitForDetachedThreads();
    EXPECT_TRUE(done);
}

TEST(DetachedThreads, FaultOfAThreadIsLoggedAndTheThreadIsCountedOut)
{
    const test::LogCapture log;
    detachThread([] { throw std::runtime_error("lost"); });
    waitForDetachedThreads();
    EXPECT_EQ(log.count(u"lost"_s), 1);
}
