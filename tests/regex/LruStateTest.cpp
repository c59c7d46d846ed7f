#include "regex/LruState.h"

#include "support/test.h"

#include <deque>

using namespace zolt;

TEST(LruState, FreshGroupGivesUpItsWaysFromThreeDown)
{
    LruState state;
    EXPECT_EQ(state.bits(), 0x0137);
    for (const int way : {3, 2, 1, 0, 3}) {
        EXPECT_EQ(state.victim(), way);
        state.touch(way);
    }
}

TEST(LruState, TouchFillsTheRowAndEmptiesTheColumn)
{
    LruState state;
    state.touch(3);
    EXPECT_EQ(state.bits(), 0xE026);
    state.touch(0);
    EXPECT_EQ(state.bits(), 0x6027);
    EXPECT_EQ(state.victim(), 2);
}

TEST(LruState, VictimIsAlwaysTheWayUsedLongestAgo)
{
    LruState state;
    std::deque<int> order{3, 2, 1, 0};
    unsigned random = 12345;
    for (int step = 0; step < 5000; ++step) {
        EXPECT_EQ(state.victim(), order.front());
        random = random * 1103515245 + 12345;
        const int way = static_cast<int>((random >> 16) % LruState::ways);
        state.touch(way);
        order.erase(std::find(order.begin(), order.end(), way));
        order.push_back(way);
    }
}

TEST(LruStateDeathTest, StateWithoutAVictimAbortsWithTheConditionLogged)
{
    EXPECT_DEATH((void)LruState(0xFFFF).victim(), "LruState.cpp:[0-9]+: Invalid parameter not satisfying: way >= 0");
}
