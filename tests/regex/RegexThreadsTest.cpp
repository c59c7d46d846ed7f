#include "RegexTesting.h"
#include "regex/RegularExpressions.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

constexpr int threadCount = 8;
constexpr int patternCount = 40;
constexpr int rounds = 30;

/// Every pattern in every way the layer is used, on texts that only this thread has and on one that all share.
void useEveryPattern(int thread, const QString& shared)
{
    for (int step = 0; step < patternCount; ++step) {
        const int number = (step * 7 + thread) % patternCount;
        const QString pattern = u"n%1;"_s.arg(number);
        const QString own = u"thread %1 has n%2; and n%3;"_s.arg(thread).arg(number).arg(number + 100);
        EXPECT_EQ(stringByMatching(own, pattern), pattern);
        EXPECT_EQ(stringByMatching(shared, pattern), pattern);
        EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(own, pattern, u"it"_s),
                  u"thread %1 has it and n%2;"_s.arg(thread).arg(number + 100));
        EXPECT_EQ(stringByMatching(latin1Text(own.toLatin1()), pattern), pattern);
        EXPECT_EQ(stringByMatching(*EncodedText::fromUtf8(own.toUtf8().repeated(80)), pattern), pattern);
    }
}

} // namespace

TEST(RegexThreads, EightThreadsShareFortyPatterns)
{
    QString shared;
    for (int number = 0; number < patternCount; ++number)
        shared += u"n%1; "_s.arg(number);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([thread, shared] {
            for (int round = 0; round < rounds; ++round)
                useEveryPattern(thread, shared);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_FALSE(sharedRegexCache().rkl_cacheSpinLock.isHeld());
}

TEST(RegexThreads, FaultsOnEveryThreadNeverKeepTheLock)
{
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([thread] {
            for (int time = 0; time < 100; ++time) {
                EXPECT_THROW(stringByMatching(u"text"_s, u"(%1"_s.arg(thread)), PlatformException);
                EXPECT_EQ(stringByMatching(u"text"_s, u"te."_s), u"tex"_s);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_FALSE(sharedRegexCache().rkl_cacheSpinLock.isHeld());
}

TEST(RegexThreads, LargeReplacementsOfManyThreadsKeepTheirScratchSpaceApart)
{
    std::vector<std::thread> threads;
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([thread] {
            const QString digit = QString::number(thread);
            for (int time = 0; time < 10; ++time) {
                EXPECT_EQ(stringByReplacingOccurrencesOfRegexWithString(QString(70000, u'x'), u"x"_s, digit),
                          digit.repeated(70000));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}
