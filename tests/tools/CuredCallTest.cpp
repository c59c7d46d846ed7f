#include "shntool/CuredCall.h"
#include "shntool/KnownEndings.h"

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

TEST(KnownNames, AreThoseWhoseEndingTheToolDrops)
{
    using zolt::companion::knownName;
    EXPECT_EQ(knownName("/s/A b.WAV"), "A b.wav");
    EXPECT_EQ(knownName("a.Flac"), "a.flac");
    EXPECT_EQ(knownName("a.b.aif"), "a.b.aiff");
    EXPECT_EQ(knownName("A.AIF"), "A.aiff");
    EXPECT_EQ(knownName("/s.WAV/a.wav"), std::nullopt);
    EXPECT_EQ(knownName("a.MP3"), std::nullopt);
    EXPECT_EQ(knownName("WAV"), std::nullopt);
}

TEST(KnownNames, ConcernTheFilesOfFixAndConvAlone)
{
    using zolt::companion::keepsEndings;
    EXPECT_TRUE(keepsEndings({"fix", "-d", "/o", "-k", "a.wav", "B.WAV"}));
    EXPECT_TRUE(keepsEndings({"fix", "--", "-B.WAV"}));
    EXPECT_TRUE(keepsEndings({"conv", "-o", "shn", "-P", "pct", "-O", "never", "-d", "/o", "/s/a.aif"}));
    EXPECT_FALSE(keepsEndings({"conv", "-o", "shn", "-P", "pct", "-O", "never", "-d", "/o", "/s/a.wav"}));
    EXPECT_FALSE(keepsEndings({"fix", "-d", "/o.WAV", "a.wav"})) << "a folder";
    EXPECT_FALSE(keepsEndings({"len", "B.WAV"}));
    EXPECT_FALSE(keepsEndings({}));
}
