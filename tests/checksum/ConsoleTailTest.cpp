#include "checksum/ConsoleTail.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(ConsoleTail, OfFlacBeginsWithTheLastProgressLine)
{
    EXPECT_EQ(flacClosingWords(u"banner\na: testing, 10% complete\na: testing, 90% complete\nok\n"_s),
              u"a: testing, 90% complete\nok\n"_s);
}

TEST(ConsoleTail, OfFlacWithoutProgressIsTheWholeTextBehindALineEnd)
{
    EXPECT_EQ(flacClosingWords(u"banner\nok\n"_s), u"\nbanner\nok\n"_s);
    EXPECT_EQ(flacClosingWords(QString()), u"\n"_s);
}

TEST(ConsoleTail, OfMacHasTheTitleBeforeItAndALineEndMore)
{
    EXPECT_EQ(apeClosingWords(u"banner\nProgress: 10%\nProgress: 90%\nSuccess\n"_s, u"a.ape"_s),
              u"a.ape\nProgress: 90%\nSuccess\n\n"_s);
}

TEST(ConsoleTail, OfMacWithoutProgressHasNoTitle)
{
    EXPECT_EQ(apeClosingWords(u"banner\nError: 1002"_s, u"a.ape"_s), u"banner\nError: 1002\n"_s);
}
