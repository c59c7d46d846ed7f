#include "lossy/LossyLevel.h"
#include "lossy/LossyTitles.h"

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

QString words(bool mp3, const QString& mode, int32_t level)
{
    return levelInWords({.mp3 = mp3, .mode = mode, .level = level});
}

int32_t rate(bool mp3, const QString& mode, int32_t level)
{
    return expectedRate({.mp3 = mp3, .mode = mode, .level = level});
}

} // namespace

TEST(LossyLevel, AnMP3RateIsToldWithItsSize)
{
    EXPECT_EQ(words(true, lossyTitle::CBR, 160), u"160 kbit/s, 1.2 MB a minute"_s);
    EXPECT_EQ(words(true, lossyTitle::CBR, 320), u"320 kbit/s, 2.4 MB a minute"_s);
}

TEST(LossyLevel, AnMP3RateThatLameChangesIsToldWithWhatItMakesOfIt)
{
    EXPECT_EQ(words(true, lossyTitle::CBR, 150), u"MP3 has no 150 kbit/s, lame takes 160 kbit/s, 1.2 MB a minute"_s);
    // As near to one as to the other: the lower.
    EXPECT_EQ(words(true, lossyTitle::CBR, 144), u"MP3 has no 144 kbit/s, lame takes 128 kbit/s, 1.0 MB a minute"_s);
    EXPECT_EQ(rate(true, lossyTitle::CBR, 1000), 320);
    EXPECT_EQ(rate(true, lossyTitle::CBR, 3), 8);
    EXPECT_EQ(rate(true, lossyTitle::CBR, 0), 128);
    EXPECT_EQ(rate(true, lossyTitle::CBR, -5), 128);
}

TEST(LossyLevel, LowMP3RatesLowerTheSampleRate)
{
    EXPECT_TRUE(words(true, lossyTitle::CBR, 112).endsWith(u"; the sample rate is lowered"_s));
    EXPECT_FALSE(words(true, lossyTitle::CBR, 128).contains(u"sample rate"_s));
}

TEST(LossyLevel, AnMP3QualityIsToldAsARate)
{
    EXPECT_EQ(words(true, lossyTitle::VBR, 3), u"VBR 3: about 175 kbit/s, 1.3 MB a minute"_s);
    EXPECT_EQ(words(true, lossyTitle::VBR, 0), u"VBR 0: about 245 kbit/s, 1.8 MB a minute"_s);
    EXPECT_EQ(words(true, lossyTitle::VBR, 9), u"VBR 9: about 65 kbit/s, 0.5 MB a minute"_s);
    EXPECT_EQ(words(true, lossyTitle::VBR, 10), u"VBR 10: lame decides"_s);
    EXPECT_EQ(rate(true, lossyTitle::VBR, 4), 165);
    EXPECT_EQ(rate(true, lossyTitle::VBR, -1), 0);
}

TEST(LossyLevel, AnAACRateIsHeldOrHeldOverTheWhole)
{
    EXPECT_EQ(words(false, lossyTitle::CBR, 160), u"160 kbit/s, 1.2 MB a minute"_s);
    EXPECT_EQ(words(false, lossyTitle::ABR, 160), u"about 160 kbit/s, 1.2 MB a minute"_s);
    EXPECT_EQ(words(false, lossyTitle::VBR_CONSTRAINED, 150), u"about 150 kbit/s, 1.1 MB a minute"_s);
    EXPECT_EQ(words(false, lossyTitle::ABR, 0), u"the encoder's own rate"_s);
    EXPECT_EQ(rate(false, lossyTitle::ABR, 150), 150);
    EXPECT_EQ(rate(false, lossyTitle::ABR, -1), 0);
}

TEST(LossyLevel, AnAACQualityIsToldOfItsRange)
{
    EXPECT_EQ(words(false, lossyTitle::VBR, 88), u"quality 88 of 127"_s);
    EXPECT_EQ(words(false, lossyTitle::VBR, 0), u"the encoder's own quality"_s);
    EXPECT_EQ(rate(false, lossyTitle::VBR, 88), 0);
}
