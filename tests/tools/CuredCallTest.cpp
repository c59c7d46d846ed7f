#include "shntool/CuredCall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using zolt::companion::Arguments;
using zolt::companion::curedCall;

TEST(CuredCall, FixKeepsNamesAndOrder)
{
    const Arguments cured = curedCall({"fix", "-d", "/o", "b.wav", "a.wav"});
    EXPECT_EQ(Arguments(cured.end() - 4, cured.end()), Arguments({"-d", "/o", "b.wav", "a.wav"}));
    EXPECT_EQ(cured.size(), 9U);
    EXPECT_THAT(cured, testing::IsSupersetOf({"-z", "", "-r", "none"}));
    EXPECT_EQ(cured[0], "fix");
    EXPECT_EQ(*(std::find(cured.begin(), cured.end(), "-z") + 1), "");
    EXPECT_EQ(*(std::find(cured.begin(), cured.end(), "-r") + 1), "none");
}

TEST(CuredCall, JoinKeepsItsOrder)
{
    EXPECT_EQ(curedCall({"join", "a"}), Arguments({"join", "-r", "none", "a"}));
}

TEST(CuredCall, WhatACallSaysItselfStands)
{
    EXPECT_EQ(curedCall({"fix", "-z", "-x", "-r", "ask", "a"}), Arguments({"fix", "-z", "-x", "-r", "ask", "a"}));
    EXPECT_EQ(curedCall({"join", "-r", "ask", "a"}), Arguments({"join", "-r", "ask", "a"}));
}

TEST(CuredCall, OtherCallsStayAsTheyAre)
{
    EXPECT_EQ(curedCall({"len", "fix"}), Arguments({"len", "fix"}));
    EXPECT_EQ(curedCall({}), Arguments());
}
