#include "codec/CompanionFixture.h"

using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class MacEncode : public Companions
{
protected:
    Outcome encode(const QByteArray& wav, int level) const
    {
        file(u"a.wav"_s, wav);
        return run(u"mac"_s, {u"a.wav"_s, u"a.ape"_s, u"-c%1"_s.arg(level)});
    }
    void expectRoundTrip(const WavShape& shape, int level)
    {
        const QByteArray wav = makeWav(shape, random_);
        const Outcome encoded = encode(wav, level);
        ASSERT_EQ(encoded.status, 0) << encoded.errors.toStdString();
        const Outcome back = run(u"mac"_s, {u"a.ape"_s, u"-"_s, u"-d"_s}); // by FFmpeg, every checksum looked at
        EXPECT_EQ(back.status, 0) << back.errors.toStdString();
        EXPECT_TRUE(back.output == wav) << "level " << level << ", " << shape.samples << " of " << shape.bits
                                        << " bits, " << shape.channels << " channels, sound " << int(shape.sound);
    }
};

constexpr int levels[] = {1000, 2000, 3000, 4000, 5000};

} // namespace

TEST_F(MacEncode, EverySoundComesBackAtEveryLevel)
{
    for (const int level : levels) {
        for (const Sound sound : sounds) {
            for (const unsigned bits : {8u, 16u, 24u})
                expectRoundTrip({.channels = bits == 8 ? 1u : 2u, .bits = bits, .samples = 9001, .sound = sound},
                                level);
        }
    }
}

TEST_F(MacEncode, AnyShapeComesBack)
{
    for (int i = 0; i < 40; ++i) {
        WavShape shape = randomShape(random_, 20000, {8, 16, 24});
        shape.samples += 1;
        expectRoundTrip(shape, levels[i % 5]);
    }
    expectRoundTrip({.samples = 1}, 1000);
    expectRoundTrip({.samples = 294912 * 2 + 3, .sound = Sound::Sines}, 2000);
}

TEST_F(MacEncode, TheLoudestSquareWavesComeBackInFull)
{
    // Their predictions go beyond 32 bits, which decoders treat by kind of file.
    for (const unsigned channels : {1u, 2u}) {
        QByteArray wav = makeWav({.channels = channels, .bits = 24, .samples = 6000}, random_);
        for (qsizetype at = 44, sample = 0; at < wav.size(); at += 3, ++sample)
            wav.replace(at, 3, QByteArray::fromHex(sample / channels / 30 % 2 == 0 ? "ffff7f" : "000080"));
        for (const int level : levels) {
            EXPECT_EQ(encode(wav, level).status, 0) << level;
            EXPECT_TRUE(decodedByFfmpeg(u"a.ape"_s, u"s24le"_s) == wav.sliced(44)) << level << ", " << channels;
        }
    }
}

TEST_F(MacEncode, KeepsWhatStandsAroundTheSamples)
{
    const WavShape shape{.samples = 1000};
    const QByteArray wav = makeWav(shape, random_) + QByteArray("LIST\4\0\0\0abcd", 12);
    EXPECT_EQ(encode(wav, 1000).status, 0);
    EXPECT_TRUE(run(u"mac"_s, {u"a.ape"_s, u"-"_s, u"-d"_s}).output == wav);
}

TEST_F(MacEncode, FfmpegAloneFindsTheSamplesToo)
{
    const QByteArray wav = makeWav({.samples = 50000, .sound = Sound::Sines}, random_);
    encode(wav, 3000);
    EXPECT_TRUE(decodedByFfmpeg(u"a.ape"_s, u"s16le"_s) == wav.sliced(44));
    EXPECT_LT(contents(u"a.ape"_s).size(), wav.size() * 3 / 4);
}

TEST_F(MacEncode, TakesItsSourceFromShntool)
{
    const QByteArray wav = makeWav({.samples = 50000}, random_);
    file(u"a.wav"_s, wav);
    const Outcome made = shell(u"shntool conv -q -o ape a.wav && mkdir o && shntool conv -q -o wav -d o a.ape"_s);
    EXPECT_EQ(made.status, 0) << made.errors.toStdString();
    EXPECT_TRUE(contents(u"o/a.wav"_s) == wav);
}

TEST_F(MacEncode, TellsOfEveryFlippedBit)
{
    encode(makeWav({.samples = 50000, .sound = Sound::Sines}, random_), 2000);
    expectFlipsToBeTold(u"mac"_s, {u"SOURCE"_s, u"-"_s, u"-d"_s}, contents(u"a.ape"_s), 25);
}

TEST_F(MacEncode, RefusesWithANumberAndLeavesNoOutput)
{
    const QByteArray wav = makeWav({.samples = 90000}, random_);
    const auto expect = [this](const QByteArray& source, int level, const char* number) {
        const Outcome outcome = encode(source, level);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr(number));
        EXPECT_FALSE(exists(u"a.ape"_s));
    };
    expect(wav.first(100000), 2000, "\nError: 1000 ");
    expect("no sound", 2000, "\nError: 1002 ");
    expect(wav, 2500, "\nError: 1002 ");
    expect(wav, 6000, "\nError: 1002 ");
    expect(makeWav({.channels = 3, .samples = 10}, random_), 2000, "\nError: 1002 ");
    expect(makeWav({.samples = 0}, random_), 2000, "\nError: 1002 ");
    file(u"a.wav"_s, wav);
    EXPECT_EQ(shell(u"trap '' XFSZ; ulimit -f 100; mac a.wav part.ape -c1000"_s).status, 1);
    EXPECT_FALSE(exists(u"part.ape"_s));
    EXPECT_EQ(shell(u"mac a.wav /dev/full -c1000"_s).status, 1);
    EXPECT_EQ(shell(u"mac a.wav a.wav -c1000"_s).status, 1);
    EXPECT_TRUE(contents(u"a.wav"_s) == wav);
}
