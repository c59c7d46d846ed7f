#include "shntool/ConvCall.h"

using namespace zolt::companion;

TEST(ConvCall, NamesTheOutputBehindN)
{
    const auto call = namedOutputCall({"conv", "-P", "pct", "-O", "always", "-o", "wav", "-n", "/t/x.wav", "/s/a.shn"});
    ASSERT_TRUE(call);
    EXPECT_EQ(call->output, "/t/x.wav");
    EXPECT_TRUE(call->overwrites);
    EXPECT_EQ(call->folderIndex, 8u);
    EXPECT_EQ(call->arguments,
              (Arguments{"conv", "-P", "pct", "-O", "always", "-o", "wav", "-d", "/t/x.wav", "/s/a.shn"}));
}

TEST(ConvCall, ForbidsOverwritingUnlessAlwaysIsSaid)
{
    EXPECT_FALSE(namedOutputCall({"conv", "-O", "never", "-n", "x.wav", "a.shn"})->overwrites);
    EXPECT_FALSE(namedOutputCall({"conv", "-n", "x.wav", "a.shn"})->overwrites);
    EXPECT_FALSE(namedOutputCall({"conv", "-O", "always", "-O", "ask", "-n", "x.wav", "a.shn"})->overwrites);
}

TEST(ConvCall, ReadsOptionsBehindTheSourceToo)
{
    const auto call = namedOutputCall({"conv", "a.shn", "-n", "x.wav"});
    ASSERT_TRUE(call);
    EXPECT_EQ(call->folderIndex, 3u);
}

TEST(ConvCall, TakesNoTextOfAnotherOptionForItsOwn)
{
    EXPECT_FALSE(namedOutputCall({"conv", "-a", "-n", "a.shn"}));
    EXPECT_FALSE(namedOutputCall({"conv", "-z", "-n", "-o", "wav", "a.shn"}));
}

TEST(ConvCall, StopsAtTheEndOfOptions)
{
    EXPECT_FALSE(namedOutputCall({"conv", "--", "-n", "a.shn"}));
}

TEST(ConvCall, LeavesEverythingElseAlone)
{
    EXPECT_FALSE(namedOutputCall({}));
    EXPECT_FALSE(namedOutputCall({"conv"}));
    EXPECT_FALSE(namedOutputCall({"conv", "-o", "wav", "-d", "out", "a.shn"}));
    EXPECT_FALSE(namedOutputCall({"conv", "a.shn", "-n"}));
    EXPECT_FALSE(namedOutputCall({"join", "-o", "wav", "-n", "-d", "out", "a.wav"}));
}
