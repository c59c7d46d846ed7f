#include "codec/CompanionFixture.h"

#include <QDir>
#include <QRegularExpression>
#include <QtEndian>

using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Ttaenc : public Companions
{
protected:
    Outcome ttaenc(const QStringList& arguments, const QByteArray& input = {}) const
    {
        return run(u"ttaenc"_s, arguments, input);
    }

    /// A file that was encoded whole.
    QByteArray encoded(const QByteArray& wav) const
    {
        file(u"source.wav"_s, wav);
        EXPECT_EQ(ttaenc({u"source.wav"_s, u"-o"_s, u"encoded.tta"_s}).status, 0);
        return contents(u"encoded.tta"_s);
    }
};

/// The checksum of a TTA header, by its definition.
QByteArray sumOf(const QByteArray& bytes)
{
    quint32 sum = ~0u;
    for (const char byte : bytes) {
        sum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xedb88320 : 0);
    }
    QByteArray little(4, '\0');
    qToLittleEndian<quint32>(~sum, little.data());
    return little;
}

} // namespace

TEST_F(Ttaenc, GivesBackTheSamplesOfAnyFile)
{
    for (int i = 0; i < 40; ++i) {
        const WavShape shape = randomShape(random_, 100000, {8, 16, 24}, 3);
        const QByteArray wav = makeWav(shape, random_);
        encoded(wav);
        const Outcome decoded = ttaenc({u"encoded.tta"_s, u"-o"_s, u"back.wav"_s});
        EXPECT_EQ(decoded.status, 0) << decoded.errors.toStdString();
        EXPECT_TRUE(contents(u"back.wav"_s) == wav) << i << ": " << shape.samples << " of " << shape.bits << " bits";
    }
}

TEST_F(Ttaenc, WritesWhatFfmpegDecodes)
{
    for (const auto& [bits, form] : {std::pair(8u, u"u8"_s), {16u, u"s16le"_s}, {24u, u"s24le"_s}}) {
        const QByteArray wav = makeWav({.bits = bits, .samples = 60000, .sound = Sound::Sines}, random_);
        encoded(wav);
        EXPECT_TRUE(decodedByFfmpeg(u"encoded.tta"_s, form) == wav.sliced(44)) << bits;
    }
}

TEST_F(Ttaenc, MakesOneFileWhetherItsLengthIsKnownOrNot)
{
    const QByteArray wav = makeWav({.samples = 100000, .sound = Sound::Sines}, random_), tta = encoded(wav);
    QByteArray open = wav;
    open.replace(40, 4, "\xff\xff\xff\xff");
    EXPECT_EQ(ttaenc({u"-e"_s, u"-o"_s, u"open.tta"_s, u"-"_s}, open).status, 0);
    EXPECT_TRUE(contents(u"open.tta"_s) == tta);
    EXPECT_TRUE(ttaenc({u"-e"_s, u"-o"_s, u"-"_s, u"source.wav"_s}).output == tta);
}

TEST_F(Ttaenc, PrintsNothingWhereAudioPassesThroughAPipe)
{
    const QByteArray wav = makeWav({.samples = 100000}, random_);
    encoded(wav);
    const Outcome decoded = ttaenc({u"-d"_s, u"-o"_s, u"-"_s, u"encoded.tta"_s});
    EXPECT_EQ(decoded.errors, "");
    EXPECT_TRUE(decoded.output == wav);
    EXPECT_EQ(ttaenc({u"-e"_s, u"-o"_s, u"piped.tta"_s, u"-"_s}, wav).errors, "");
}

TEST_F(Ttaenc, FramesItsProgressByBackspacesAlone)
{
    const QByteArray wav = makeWav({.samples = 400000}, random_);
    file(u"source.wav"_s, wav);
    const QRegularExpression progress(u"^(\b+Percent Progress: [0-9]+\b+)+$"_s),
        test(u"^(\b+[0-9]+% done\b+)+\n.*\n$"_s);
    const auto text = [this](const QStringList& call) { return QString::fromUtf8(ttaenc(call).errors); };
    EXPECT_TRUE(progress.match(text({u"source.wav"_s, u"-o"_s, u"a.tta"_s})).hasMatch());
    EXPECT_TRUE(progress.match(text({u"a.tta"_s, u"-o"_s, u"a.wav"_s})).hasMatch());
    EXPECT_TRUE(test.match(text({u"-t"_s, u"a.tta"_s})).hasMatch());
}

TEST_F(Ttaenc, TellsOfEveryFlippedBit)
{
    const QByteArray tta = encoded(makeWav({.samples = 90000, .sound = Sound::Sines}, random_));
    expectFlipsToBeTold(u"ttaenc"_s, {u"-d"_s, u"-o"_s, u"-"_s, u"SOURCE"_s}, tta, 25);
}

TEST_F(Ttaenc, TellsWhatIsWrongWithTheStartOfAFile)
{
    const QByteArray whole = encoded(makeWav({.samples = 100000}, random_)); // three frames
    const auto said = [&](const QByteArray& bytes) {
        const Outcome outcome = ttaenc({u"-t"_s, file(u"odd.tta"_s, bytes)});
        EXPECT_EQ(outcome.status, 1);
        return outcome.errors.toStdString();
    };
    const auto flippedAt = [&](qsizetype at) {
        QByteArray bytes = whole;
        bytes[at] = char(bytes[at] ^ 1);
        return bytes;
    };
    const auto ofKind = [&](char kind) {
        const QByteArray header = QByteArray("TTA1") + kind + whole.sliced(5, 13);
        return header + sumOf(header) + whole.sliced(22);
    };
    EXPECT_EQ(ofKind(1), whole);
    EXPECT_THAT(said(flippedAt(18)), testing::HasSubstr("its header is damaged"));
    EXPECT_THAT(said(flippedAt(22 + 3 * 4)), testing::HasSubstr("its table of frames is damaged"));
    EXPECT_THAT(said(ofKind(2)), testing::HasSubstr("locked by a password"));
    EXPECT_THAT(said(ofKind(3)), testing::HasSubstr("of a kind that is not known"));
}

TEST_F(Ttaenc, KeepsTheOtherFramesOfADamagedFile)
{
    const QByteArray wav = makeWav({.samples = 120000, .sound = Sound::Noise}, random_);
    QByteArray tta = encoded(wav);
    tta[tta.size() / 2] = char(tta[tta.size() / 2] ^ 1); // in the second of three frames
    file(u"bad.tta"_s, tta);
    const Outcome outcome = ttaenc({u"bad.tta"_s, u"-o"_s, u"back.wav"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("bad.tta: the checksum is wrong for 1 of 3 frames"));
    const QByteArray back = contents(u"back.wav"_s);
    constexpr qsizetype frame = 46080 * 4;
    ASSERT_EQ(back.size(), wav.size());
    EXPECT_TRUE(back.first(44 + frame) == wav.first(44 + frame));
    EXPECT_TRUE(back.sliced(44 + frame, frame) == QByteArray(frame, '\0'));
    EXPECT_TRUE(back.sliced(44 + 2 * frame) == wav.sliced(44 + 2 * frame));
    EXPECT_EQ(ttaenc({u"-t"_s, u"bad.tta"_s}).status, 1);
}

TEST_F(Ttaenc, SilenceOfEightBitsLiesInTheMiddle)
{
    const QByteArray wav = makeWav({.channels = 1, .bits = 8, .samples = 46080}, random_);
    QByteArray tta = encoded(wav);
    tta[tta.size() / 2] = char(tta[tta.size() / 2] ^ 1);
    file(u"bad.tta"_s, tta);
    EXPECT_EQ(ttaenc({u"bad.tta"_s, u"-o"_s, u"back.wav"_s}).status, 1);
    EXPECT_TRUE(contents(u"back.wav"_s).sliced(44) == QByteArray(46080, '\x80'));
}

TEST_F(Ttaenc, KeepsEveryFrameOfALongFileInItsPlace)
{
    constexpr qsizetype frame = 8359 * 4, frames = 36; // far more than are decoded at once
    const QByteArray wav = makeWav({.rate = 8000, .samples = 300000, .sound = Sound::Noise}, random_);
    QByteArray tta = encoded(wav), expected = wav;
    qsizetype at = 22 + frames * 4 + 4;
    for (qsizetype number = 0; number < frames; ++number) {
        const auto length = qsizetype(qFromLittleEndian<quint32>(tta.constData() + 22 + number * 4));
        if (number == 7 || number == 8 || number == 35) {
            tta[at + length / 2] = char(tta[at + length / 2] ^ 1);
            const qsizetype from = 44 + number * frame, bytes = std::min(frame, wav.size() - from);
            expected.replace(from, bytes, QByteArray(bytes, '\0'));
        }
        at += length;
    }
    EXPECT_EQ(at, tta.size());
    file(u"bad.tta"_s, tta);
    const Outcome outcome = ttaenc({u"bad.tta"_s, u"-o"_s, u"back.wav"_s});
    EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("the checksum is wrong for 3 of 36 frames"));
    EXPECT_TRUE(contents(u"back.wav"_s) == expected);
    EXPECT_TRUE(ttaenc({u"-d"_s, u"-o"_s, u"-"_s, u"bad.tta"_s}).output == wav.first(44 + 7 * frame))
        << "a pipe gets nothing from the first damaged one on";
}

TEST_F(Ttaenc, TellsOfACutFileAndKeepsItsStart)
{
    const QByteArray wav = makeWav({.samples = 120000}, random_), tta = encoded(wav);
    file(u"cut.tta"_s, tta.first(tta.size() * 2 / 3));
    EXPECT_EQ(ttaenc({u"-t"_s, u"cut.tta"_s}).status, 1);
    EXPECT_EQ(ttaenc({u"-d"_s, u"-o"_s, u"-"_s, u"cut.tta"_s}).status, 1);
    const Outcome outcome = ttaenc({u"cut.tta"_s, u"-o"_s, u"back.wav"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("the file is cut"));
    const QByteArray samples = wav.sliced(44, 46080 * 4);
    EXPECT_TRUE(contents(u"back.wav"_s) == wavHeaderOf({.samples = 46080}) + samples); // with its own true length
    for (const qsizetype length : {0, 3, 10, 21, 25, 30})
        EXPECT_EQ(ttaenc({u"-t"_s, file(u"cut.tta"_s, tta.first(length))}).status, 1) << length;
}

TEST_F(Ttaenc, RefusesACutWavAndLeavesNoOutput)
{
    const QByteArray wav = makeWav({.samples = 90000}, random_);
    file(u"cut.wav"_s, wav.first(100000));
    const Outcome outcome = ttaenc({u"cut.wav"_s, u"-o"_s, u"cut.tta"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("cut.wav"));
    EXPECT_FALSE(exists(u"cut.tta"_s));
}

TEST_F(Ttaenc, RefusesToDecodeToATtaFile)
{
    encoded(makeWav({.samples = 100}, random_));
    file(u"other.TTA"_s, "mine");
    EXPECT_EQ(ttaenc({u"encoded.tta"_s, u"-o"_s, u"other.TTA"_s}).status, 1);
    EXPECT_EQ(contents(u"other.TTA"_s), "mine");
}

TEST_F(Ttaenc, RefusesAnOutputThatIsTheSource)
{
    const QByteArray tta = encoded(makeWav({.samples = 5000}, random_));
    QFile::link(in(u"encoded.tta"_s), in(u"symbolic.wav"_s));
    ASSERT_EQ(shell(u"ln encoded.tta hard.wav"_s).status, 0);
    for (const QString& output : {u"symbolic.wav"_s, u"hard.wav"_s, u"./encoded.tta"_s}) {
        const Outcome outcome = ttaenc({u"-d"_s, u"encoded.tta"_s, u"-o"_s, output});
        EXPECT_EQ(outcome.status, 1) << output.toStdString();
        EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("the source itself"));
        EXPECT_TRUE(contents(u"encoded.tta"_s) == tta);
    }
    EXPECT_EQ(shell(u"ttaenc -d -o encoded.tta - <encoded.tta"_s).status, 1);
    EXPECT_TRUE(contents(u"encoded.tta"_s) == tta);
}

TEST_F(Ttaenc, OverwritesAnExistingOutput)
{
    const QByteArray wav = makeWav({.samples = 500}, random_);
    encoded(wav);
    file(u"temporary.wav"_s, QByteArray(100000, 'x'));
    EXPECT_EQ(ttaenc({u"encoded.tta"_s, u"-o"_s, u"temporary.wav"_s}).status, 0);
    EXPECT_TRUE(contents(u"temporary.wav"_s) == wav);
}

TEST_F(Ttaenc, NamesWhatItCannotRead)
{
    file(u"text.wav"_s, "not a sound");
    file(u"song.tta"_s, "ID3\4\0\0\0\0\0\2xxand no TTA");
    for (const QString& name : {u"text.wav"_s, u"song.tta"_s, u"nowhere.wav"_s, u"."_s}) {
        const Outcome outcome = ttaenc({name, u"-o"_s, u"out"_s});
        EXPECT_EQ(outcome.status, 1) << name.toStdString();
        EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("ttaenc: error: " + name.toStdString() + ": "));
        EXPECT_FALSE(exists(u"out"_s));
    }
    for (const QStringList& call : {QStringList(),
                                    {u"a.wav"_s},
                                    {u"-o"_s},
                                    {u"a"_s, u"b"_s, u"-o"_s, u"c"_s},
                                    {u"-x"_s},
                                    {u"-t"_s, u"a"_s, u"-o"_s, u"b"_s}})
        EXPECT_THAT(ttaenc(call).errors.toStdString(), testing::HasSubstr("usage: ttaenc"));
}

TEST_F(Ttaenc, TellsOfAFullDisk)
{
    encoded(makeWav({.samples = 200000}, random_));
    for (const QString& call :
         {u"ttaenc source.wav -o /dev/full"_s, u"ttaenc encoded.tta -o /dev/full"_s,
          u"ttaenc -d -o - encoded.tta >/dev/full"_s, u"ttaenc -e -o - source.wav >/dev/full"_s}) {
        const Outcome outcome = shell(call);
        EXPECT_EQ(outcome.status, 1) << call.toStdString();
        EXPECT_THAT(outcome.errors.toStdString(), testing::HasSubstr("cannot be written"));
    }
    const QString limited = u"trap '' XFSZ; ulimit -f 100; "_s;
    EXPECT_EQ(shell(limited + u"ttaenc source.wav -o part.tta"_s).status, 1);
    EXPECT_FALSE(exists(u"part.tta"_s)) << "it would pass for whole";
    EXPECT_EQ(shell(limited + u"ttaenc encoded.tta -o part.wav"_s).status, 1);
}

TEST_F(Ttaenc, ReadsOverATagAheadOfTheAudio)
{
    const QByteArray wav = makeWav({.samples = 5000}, random_), tta = encoded(wav);
    const QByteArray tag(200, 'x'), footer = QByteArray("3DI\4").leftJustified(10, '\0');
    const auto length = QByteArray("\0\0\1\x48", 4); // 200 in groups of seven bits
    file(u"tagged.tta"_s, QByteArray("ID3\4\0\0", 6) + length + tag + tta);
    file(u"footed.tta"_s, QByteArray("ID3\4\0\x10", 6) + length + tag + footer + tta);
    for (const QString& name : {u"tagged.tta"_s, u"footed.tta"_s}) {
        EXPECT_TRUE(ttaenc({u"-d"_s, u"-o"_s, u"-"_s, name}).output == wav) << name.toStdString();
        EXPECT_EQ(ttaenc({name, u"-o"_s, u"back.wav"_s}).status, 0) << name.toStdString();
        EXPECT_TRUE(contents(u"back.wav"_s) == wav);
    }
}

TEST_F(Ttaenc, DecodesTheFilesOfOthers)
{
    const auto tagged = sharedFixture(u"tagged.tta"_s);
    if (!tagged) GTEST_SKIP() << "left out: no folder of foreign files beside this checkout";
    file(u"tagged.tta"_s, *tagged);
    EXPECT_EQ(ttaenc({u"tagged.tta"_s, u"-o"_s, u"tagged.wav"_s}).status, 0);
    EXPECT_TRUE(decodedByFfmpeg(u"tagged.tta"_s, u"s16le"_s) == contents(u"tagged.wav"_s).sliced(44));
    expectFlipsToBeTold(u"ttaenc"_s, {u"-d"_s, u"-o"_s, u"-"_s, u"SOURCE"_s}, *tagged, 25);
}
