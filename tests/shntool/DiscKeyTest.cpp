#include "shntool/DiscKey.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(DiscKey, StandsBetweenTheLastDAndTheTBehindIt)
{
    EXPECT_EQ(discKey(u"/shows/live1977d2t03.shn"_s), u"2"_s);
    EXPECT_EQ(discKey(u"/dead/set/a1977d12t3.shn"_s), u"12"_s);
}

TEST(DiscKey, PathWithoutADIsTakenToItsFirstT)
{
    EXPECT_EQ(discKey(u"/music/set1/01.flac"_s), u"/music/se"_s);
}

TEST(DiscKey, NameWithoutATGoesToItsEnd)
{
    EXPECT_EQ(discKey(u"/x/disc2.flac"_s), u"isc2.flac"_s);
}

TEST(DiscKey, CapitalsAreNoMarks)
{
    EXPECT_EQ(discKey(u"/x/aD1T2d3t4"_s), u"3"_s);
    EXPECT_EQ(discKey(u"/x/aD1T2"_s), u"/x/aD1T2"_s);
}

TEST(DiscKey, GroupsKeepTheOrderOfTheList)
{
    const auto discs = filesByDisc({u"/x/d2t1"_s, u"/x/d1t1"_s, u"/x/d2t2"_s, u"/x/d1t2"_s});
    ASSERT_EQ(discs.size(), 2U);
    EXPECT_EQ(discs[0].key, u"2"_s);
    EXPECT_EQ(discs[0].files, QStringList({u"/x/d2t1"_s, u"/x/d2t2"_s}));
    EXPECT_EQ(discs[1].files, QStringList({u"/x/d1t1"_s, u"/x/d1t2"_s}));
}
