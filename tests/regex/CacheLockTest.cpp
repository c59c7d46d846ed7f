#include "RegexTesting.h"
#include "support/LogCapture.h"

using namespace zolt;
using zolt::test::LogCapture;
using namespace Qt::StringLiterals;

namespace {

/// Lets another thread try something, and waits for it.
void onAnotherThread(const std::function<void()>& work)
{
    std::thread(work).join();
}

void endWithoutUnlock(RegexCache& cache)
{
    const CacheSpinLockStatus status(cache.rkl_cacheSpinLock, cache.warnings);
    throw std::bad_alloc();
}

void unlockBehindItsBack(RegexCache& cache)
{
    const CacheSpinLockStatus status(cache.rkl_cacheSpinLock, cache.warnings);
    cache.rkl_cacheSpinLock.unlock();
}

} // namespace

TEST(CacheSpinLock, UnlockByAnotherThreadFreesNobodysHold)
{
    CacheSpinLock lock;
    lock.lock();
    onAnotherThread([&] {
        EXPECT_FALSE(lock.unlock());
        EXPECT_FALSE(lock.isHeldByCaller());
        EXPECT_TRUE(lock.isHeld());
    });
    EXPECT_TRUE(lock.isHeldByCaller());
    EXPECT_TRUE(lock.unlock());
    EXPECT_FALSE(lock.unlock());
    EXPECT_FALSE(lock.isHeld());
}

TEST(CacheSpinLock, OneThreadAtATimeIsInside)
{
    CacheSpinLock lock;
    int inside = 0;
    int total = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread) {
        threads.emplace_back([&] {
            for (int time = 0; time < 2000; ++time) {
                lock.lock();
                EXPECT_EQ(++inside, 1);
                ++total;
                --inside;
                lock.unlock();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(total, 16000);
}

TEST(CacheSpinLockDeathTest, TakingItTwiceAborts)
{
    CacheSpinLock lock;
    lock.lock();
    EXPECT_DEATH(lock.lock(), "CacheSpinLock.cpp:[0-9]+: Invalid parameter not satisfying: !isHeldByCaller");
}

TEST(CacheSpinLockStatus, WordTellsWhetherTheOperationHasUnlocked)
{
    RegexCache cache;
    CacheSpinLockStatus status(cache.rkl_cacheSpinLock, cache.warnings);
    EXPECT_EQ(status.word(), 1U);
    EXPECT_TRUE(cache.rkl_cacheSpinLock.isHeldByCaller());
    status.unlock();
    EXPECT_EQ(status.word(), 3U);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
}

TEST(CacheSpinLockStatus, CleanUpUnlocksWhenAnExceptionPassesAndSaysSoOnce)
{
    LogCapture log;
    RegexCache cache;
    EXPECT_THROW(endWithoutUnlock(cache), std::bad_alloc);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
    EXPECT_THROW(endWithoutUnlock(cache), std::bad_alloc);
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().contains(u"found still held"_s));
}

TEST(CacheSpinLockStatus, CleanUpFindsTheLockStrangelyFreeAndSaysSoOnce)
{
    LogCapture log;
    RegexCache cache;
    unlockBehindItsBack(cache);
    unlockBehindItsBack(cache);
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().contains(u"strangely free"_s));
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
}

TEST(CacheSpinLockStatus, CleanUpLeavesAnothersHoldAlone)
{
    LogCapture log;
    RegexCache cache;
    onAnotherThread([&] {
        {
            const CacheSpinLockStatus status(cache.rkl_cacheSpinLock, cache.warnings);
            cache.rkl_cacheSpinLock.unlock();
            onAnotherThread([&] { cache.rkl_cacheSpinLock.lock(); });
        }
        EXPECT_TRUE(cache.rkl_cacheSpinLock.isHeld());
    });
    EXPECT_EQ(log.lines().size(), 1);
}

TEST(CacheSpinLockStatus, OrdinaryOperationsGiveNoWarning)
{
    LogCapture log;
    RegexCache cache;
    match(cache, u"text"_s, u"t"_s);
    replace(cache, u"text"_s, u"t"_s, u"d"_s);
    EXPECT_THROW(match(cache, u"text"_s, u"("_s), PlatformException);
    EXPECT_TRUE(log.lines().isEmpty());
    EXPECT_FALSE(cache.rkl_cacheSpinLock.isHeld());
}
