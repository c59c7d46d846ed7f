#include "platform/threads/Lock.h"

using namespace zolt;

TEST(Lock, MayBeReleasedWhenNobodyHoldsIt)
{
    Lock lock;
    lock.unlock();
    EXPECT_TRUE(lock.tryLock());
}

TEST(Lock, IsNotRecursive)
{
    Lock lock;
    lock.lock();
    EXPECT_FALSE(lock.tryLock());
    EXPECT_TRUE(lock.isHeld());
}

TEST(Lock, StrayReleaseFreesNobodyElsesHold)
{
    Lock lock;
    lock.lock();
    std::thread([&] { lock.unlock(); }).join();
    EXPECT_TRUE(lock.isHeld());
    lock.unlock();
    EXPECT_FALSE(lock.isHeld());
}

TEST(Lock, KeepsThreadsApart)
{
    Lock lock;
    int count = 0; // guarded by the lock alone: the thread checker would see a hole
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 1000; ++round) {
                lock.lock();
                ++count;
                lock.unlock();
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(count, 4000);
}
