#include "codec/CompanionFixture.h"

using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Shorten : public Companions
{
protected:
    Outcome shorten(const QStringList& arguments, const QByteArray& input = {}) const
    {
        return run(u"shorten"_s, arguments, input);
    }

    QByteArray encoded(const QByteArray& wav) const
    {
        file(u"source.wav"_s, wav);
        EXPECT_EQ(shorten({u"source.wav"_s, u"encoded.shn"_s}).status, 0);
        return contents(u"encoded.shn"_s);
    }
};

} // namespace

TEST_F(Shorten, GivesBackAnyFileByteForByte)
{
    for (int i = 0; i < 60; ++i) {
        const WavShape shape = randomShape(random_, 20000, {8, 16}, 3);
        const QByteArray wav = makeWav(shape, random_);
        encoded(wav);
        const Outcome back = shorten({u"-x"_s, u"encoded.shn"_s, u"-"_s});
        EXPECT_EQ(back.status, 0) << back.errors.toStdString();
        EXPECT_TRUE(back.output == wav) << i << ": " << shape.samples << " of " << shape.bits << " bits";
    }
}

TEST_F(Shorten, WritesWhatFfmpegDecodes)
{
    for (const Sound sound : sounds) {
        for (const unsigned bits : {8u, 16u}) {
            const QByteArray wav = makeWav({.bits = bits, .samples = 9999, .sound = sound}, random_);
            encoded(wav);
            EXPECT_TRUE(decodedByFfmpeg(u"encoded.shn"_s, bits == 8 ? u"u8"_s : u"s16le"_s) == wav.sliced(44));
        }
    }
}

TEST_F(Shorten, KeepsWhatStandsAroundTheSamples)
{
    const WavShape shape{.samples = 1000};
    const QByteArray header = wavHeaderOf(shape), samples = makeSamples(shape, random_);
    const QByteArray list = QByteArray("LIST\x40\x9c\0\0", 8) + QByteArray(40000, 'x');
    const QByteArray ahead = header.first(36) + list + header.sliced(36) + samples;
    const QByteArray behind = header + samples + list, odd = header + samples + "a";
    for (const QByteArray& wav : {ahead, behind, odd}) {
        encoded(wav);
        EXPECT_TRUE(shorten({u"-x"_s, u"encoded.shn"_s, u"-"_s}).output == wav);
    }
}

TEST_F(Shorten, PassesThroughPipesWithoutAWord)
{
    const QByteArray wav = makeWav({.samples = 5000}, random_), shn = encoded(wav);
    const Outcome piped = shorten({u"-"_s, u"piped.shn"_s}, wav);
    EXPECT_EQ(piped.errors, "");
    EXPECT_TRUE(contents(u"piped.shn"_s) == shn);
    const Outcome back = shorten({u"-x"_s, u"-"_s, u"-"_s}, shn);
    EXPECT_TRUE(back.output == wav);
    EXPECT_EQ(shorten({u"-x"_s, u"encoded.shn"_s, u"back.wav"_s}).errors, "");
    EXPECT_TRUE(contents(u"back.wav"_s) == wav);
}

TEST_F(Shorten, PassesOverATableBehindTheStream)
{
    const QByteArray wav = makeWav({.samples = 5000}, random_);
    file(u"table.shn"_s, encoded(wav) + "SEEK" + QByteArray(200, '\1') + "SHNAMPSK");
    const Outcome back = shorten({u"-x"_s, u"table.shn"_s, u"-"_s});
    EXPECT_EQ(back.status, 0);
    EXPECT_TRUE(back.output == wav);
}

TEST_F(Shorten, IsSmallerWhereThereIsSomethingToGain)
{
    const QByteArray wav = makeWav({.samples = 50000, .sound = Sound::Sines}, random_);
    EXPECT_LT(encoded(wav).size(), wav.size() * 3 / 4);
    EXPECT_LT(encoded(makeWav({.samples = 50000, .sound = Sound::Silence}, random_)).size(), 1000);
}

TEST_F(Shorten, TellsOfACutFileAtEveryLength)
{
    const QByteArray shn = encoded(makeWav({.samples = 300, .sound = Sound::Sines}, random_));
    for (qsizetype length = 0; length < shn.size() - 4; length += 7) { // the last word may hold nothing but zeros
        file(u"cut.shn"_s, shn.first(length));
        EXPECT_EQ(shorten({u"-x"_s, u"cut.shn"_s, u"-"_s}).status, 1) << length;
    }
}

TEST_F(Shorten, SurvivesEveryDamage)
{
    const QByteArray shn = encoded(makeWav({.samples = 3000, .sound = Sound::Steps}, random_));
    for (int i = 0; i < 200; ++i) {
        QByteArray damaged = shn;
        for (int flips = 0; flips < 3; ++flips) {
            const auto at = std::uniform_int_distribution<qsizetype>(4, i % 2 ? 60 : shn.size() - 1)(random_);
            damaged[at] = char(random_());
        }
        file(u"damaged.shn"_s, damaged);
        EXPECT_GE(shell(u"ulimit -t 20; shorten -x damaged.shn - | head -c 100000000 >/dev/null"_s).status, 0);
        EXPECT_NE(shell(u"shorten -x damaged.shn /dev/null"_s).status, 134);
    }
}

TEST_F(Shorten, NamesWhatItCannotRead)
{
    file(u"text.shn"_s, "not a sound");
    file(u"old.shn"_s, QByteArray("ajkg\0\0\0\0\0", 9));
    file(u"companded.shn"_s, QByteArray("ajkg\2\xf8\0\0\0", 9));
    file(u"deep.wav"_s, makeWav({.bits = 24, .samples = 10}, random_));
    for (const QStringList& call : {QStringList{u"-x"_s, u"text.shn"_s, u"out"_s},
                                    {u"-x"_s, u"old.shn"_s, u"out"_s},
                                    {u"-x"_s, u"companded.shn"_s, u"out"_s},
                                    {u"-x"_s, u"none.shn"_s, u"out"_s},
                                    {u"text.shn"_s, u"out"_s},
                                    {u"deep.wav"_s, u"out"_s}}) {
        const Outcome outcome = shorten(call);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr(call[call.size() - 2].toStdString() + ": "));
        EXPECT_FALSE(exists(u"out"_s));
    }
    EXPECT_THAT(shorten({u"-x"_s}).errors.toStdString(), testing::HasSubstr("usage: shorten"));
}

TEST_F(Shorten, LeavesNothingOfACutWavOrAFullDisk)
{
    const QByteArray wav = makeWav({.samples = 90000}, random_);
    encoded(wav);
    file(u"cut.wav"_s, wav.first(100000));
    EXPECT_EQ(shorten({u"cut.wav"_s, u"cut.shn"_s}).status, 1);
    EXPECT_FALSE(exists(u"cut.shn"_s));
    EXPECT_EQ(shell(u"trap '' XFSZ; ulimit -f 100; shorten source.wav part.shn"_s).status, 1);
    EXPECT_FALSE(exists(u"part.shn"_s));
    EXPECT_EQ(shell(u"shorten -x encoded.shn /dev/full"_s).status, 1);
    EXPECT_EQ(shell(u"shorten source.wav - >/dev/full"_s).status, 1);
}

TEST_F(Shorten, RefusesAnOutputThatIsTheSource)
{
    const QByteArray shn = encoded(makeWav({.samples = 100}, random_));
    EXPECT_EQ(shorten({u"-x"_s, u"encoded.shn"_s, u"./encoded.shn"_s}).status, 1);
    EXPECT_TRUE(contents(u"encoded.shn"_s) == shn);
}

TEST_F(Shorten, DecodesTheFilesOfOthers)
{
    const auto silence = sharedFixture(u"2sec-silence.shn"_s);
    if (!silence) GTEST_SKIP() << "left out: no folder of foreign files beside this checkout";
    file(u"s.shn"_s, *silence);
    const Outcome back = shorten({u"-x"_s, u"s.shn"_s, u"-"_s});
    EXPECT_EQ(back.status, 0);
    EXPECT_TRUE(back.output.sliced(44) == decodedByFfmpeg(u"s.shn"_s, u"s16le"_s));
}
