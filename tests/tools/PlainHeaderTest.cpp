#include "shntool/reading/PlainHeader.h"

#include <string>

#include <gtest/gtest.h>

using zolt::reading::plainHeader;
using zolt::reading::shortenHeader;

namespace {

const std::string subFormat("\x01\x00\x00\x00\x00\x00\x10\x00\x80\x00\x00\xaa\x00\x38\x9b\x71", 16);

std::string format(unsigned channels = 2)
{
    return std::string("fmt \x28\0\0\0\xfe\xff", 10) + char(channels) + '\0' + std::string(20, '.') + subFormat;
}

std::string wav(const std::string& chunks)
{
    return "RIFF....WAVE" + chunks;
}

auto shown(const std::string& head)
{
    return plainHeader(reinterpret_cast<const unsigned char*>(head.data()), head.size());
}

} // namespace

TEST(PlainHeader, ShowsAnExtensibleTagAroundPcmAsPcm)
{
    const auto change = shown(wav(format(6)));
    ASSERT_TRUE(change);
    EXPECT_EQ(change->offset, 20U);
    EXPECT_EQ(change->shown[0], 1);
    EXPECT_EQ(change->shown[1], 0);
    EXPECT_EQ(change->channels, 6U);
}

TEST(PlainHeader, FindsTheFormatBehindOtherChunksOfOddLengthToo)
{
    const auto change = shown(wav(std::string("JUNK\x03\0\0\0abc\0", 12) + format()));
    ASSERT_TRUE(change);
    EXPECT_EQ(change->offset, 32U);
}

TEST(PlainHeader, LeavesEveryOtherFormatAlone)
{
    std::string floats = wav(format()), otherIdentifier = floats, plain = floats;
    floats[44] = 3;
    otherIdentifier[59] = 0;
    plain.replace(20, 2, std::string("\x01\0", 2));
    EXPECT_FALSE(shown(floats));
    EXPECT_FALSE(shown(otherIdentifier));
    EXPECT_FALSE(shown(plain));
}

TEST(PlainHeader, ShowsOnlyTodaysWavpackAsAnOlderOne)
{
    const auto change = shown(std::string("wvpk....\x10\x04", 10));
    ASSERT_TRUE(change);
    EXPECT_EQ(change->offset, 8U);
    EXPECT_EQ(change->shown[0], 0x07);
    EXPECT_EQ(change->shown[1], 0x04);
    EXPECT_FALSE(shown(std::string("wvpk....\x06\x04", 10)));
    EXPECT_FALSE(shown(std::string("wvpk....\x11\x04", 10)));
}

TEST(PlainHeader, ShortensTheHeaderOfAPipe)
{
    const std::string extensible = wav(std::string("JUNK\x03\0\0\0abc\0", 12) + format() + "fact" +
                                       std::string("\x04\0\0\0....", 8) + "data" + std::string("\x03\0\0\0xyz", 7));
    std::string head = extensible;
    head.replace(4, 4, std::string("\x57\0\0\0", 4));
    const std::size_t left = shortenHeader(reinterpret_cast<unsigned char*>(head.data()), head.size());
    EXPECT_EQ(head.substr(0, left), std::string("RIFF\x27\0\0\0WAVEfmt \x10\0\0\0\x01\0\x02\0", 24) +
                                        std::string(12, '.') + std::string("data\x03\0\0\0xyz", 11));
    for (const std::string& unknown : {std::string(4, '\0'), std::string(4, '\xff')}) {
        head = extensible;
        head.replace(4, 4, unknown);
        shortenHeader(reinterpret_cast<unsigned char*>(head.data()), head.size());
        EXPECT_EQ(head.substr(4, 4), unknown);
    }
}

TEST(PlainHeader, ShortensNothingElse)
{
    for (std::string head :
         {wav(format()), wav(std::string("fmt \x10\0\0\0\x01\0", 10) + std::string(14, '.') + "data...."),
          std::string(), std::string("wvpk....\x10\x04", 10), wav("data....")}) {
        const std::string before = head;
        EXPECT_EQ(shortenHeader(reinterpret_cast<unsigned char*>(head.data()), head.size()), before.size());
        EXPECT_EQ(head, before);
    }
}

TEST(PlainHeader, NeverReadsBehindTheEnd)
{
    const std::string whole = wav(std::string("JUNK\x03\0\0\0abc\0", 12) + format());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const auto exact = std::make_unique<unsigned char[]>(size); // so that a sanitizer sees a byte too many
        std::copy_n(whole.begin(), size, exact.get());
        EXPECT_FALSE(plainHeader(exact.get(), size)) << size;
    }
    EXPECT_FALSE(shown("wvpk....\x10"));
    EXPECT_FALSE(shown(wav(std::string("JUNK\xff\xff\xff\xff", 8))));
}
