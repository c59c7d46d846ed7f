#include "codec/CompanionFixture.h"

#include "audio/Failure.h"
#include "audio/WavReader.h"

using namespace zolt::test;
using namespace zolt::companion;
using namespace Qt::StringLiterals;

namespace {

class ReadWav : public Companions
{
protected:
    void expectRefused(const QByteArray& wav, const std::string& why) const
    {
        ByteSource source(file(u"a.wav"_s, wav).toStdString());
        try {
            WavReader reader(source);
            ADD_FAILURE() << why;
        } catch (const Failure& failure) {
            EXPECT_THAT(failure.what(), testing::HasSubstr("a.wav: "));
            EXPECT_THAT(failure.what(), testing::HasSubstr(why));
        }
    }
};

QByteArray replaced(QByteArray wav, qsizetype at, const QByteArray& bytes)
{
    return wav.replace(at, bytes.size(), bytes);
}

} // namespace

TEST_F(ReadWav, ReadsTheExtensibleFormAsThePlainOne)
{
    const QByteArray plain = makeWav({.bits = 24, .samples = 10}, random_);
    QByteArray extensible = plain.first(16) + QByteArray("\x28\0\0\0\xfe\xff", 6) + plain.sliced(22, 14);
    extensible += QByteArray("\x16\0\x18\0\x03\0\0\0\1\0\0\0\0\0\x10\0\x80\0\0\xaa\0\x38\x9b\x71", 24);
    extensible += plain.sliced(36);
    ByteSource source(file(u"a.wav"_s, extensible).toStdString());
    WavReader reader(source);
    EXPECT_EQ(reader.format(), (PcmFormat{.channels = 2, .rate = 44100, .bits = 24}));
    EXPECT_EQ(reader.dataBytes(), 60u);
    EXPECT_EQ(reader.header().size(), 68u);
}

TEST_F(ReadWav, PassesOverOtherChunksWithTheirPadding)
{
    const QByteArray wav = makeWav({.samples = 10}, random_);
    ByteSource source(
        file(u"a.wav"_s, wav.first(12) + QByteArray("junk\3\0\0\0abc\0", 12) + wav.sliced(12)).toStdString());
    EXPECT_EQ(WavReader(source).header().size(), 56u);
}

TEST_F(ReadWav, RefusesWhatItsUsersCannotHold)
{
    const QByteArray wav = makeWav({.samples = 10}, random_);
    expectRefused("RIFX" + wav.sliced(4), "is not a WAV file");
    expectRefused("", "is not a WAV file");
    expectRefused(replaced(wav, 20, QByteArray("\3\0", 2)), "not PCM");
    expectRefused(replaced(wav, 34, QByteArray("\x20\0", 2)), "8, 16 or 24 bits");
    expectRefused(replaced(wav, 34, QByteArray("\0\0", 2)), "8, 16 or 24 bits");
    expectRefused(replaced(wav, 22, QByteArray("\0\0", 2)), "1 to 8 channels");
    expectRefused(replaced(wav, 22, QByteArray("\x09\0", 2)), "1 to 8 channels");
    expectRefused(replaced(wav, 24, QByteArray("\0\0\0\0", 4)), "sample rate");
    expectRefused(replaced(wav, 32, QByteArray("\x08\0", 2)), "pack its samples");
    expectRefused(replaced(wav, 16, QByteArray("\x0e\0\0\0", 4)), "what its samples are");
    expectRefused(replaced(wav, 12, "nope"), "what its samples are");
    expectRefused(wav.first(30), "cut");
}

TEST_F(ReadWav, EndsWithItsSamplesAndTellsWhereTheyAreCut)
{
    const QByteArray wav = makeWav({.samples = 10}, random_);
    ByteSource source(file(u"a.wav"_s, wav + "tail").toStdString());
    WavReader reader(source);
    Bytes bytes(100);
    EXPECT_EQ(reader.read(bytes.data(), bytes.size()), 40u);
    EXPECT_EQ(reader.trailer(10), (Bytes{'t', 'a', 'i', 'l'}));
    ByteSource cut(file(u"b.wav"_s, wav.first(60)).toStdString());
    WavReader cutReader(cut);
    EXPECT_THROW(cutReader.read(bytes.data(), bytes.size()), Failure);
}
