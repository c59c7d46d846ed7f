#include "shntool/SectorBoundary.h"
#include "SampleShow.h"
#include "tags/AudioFacts.h"

#include <QTemporaryDir>

using namespace zolt;
using namespace zolt::test;

namespace {

class SectorBoundary : public testing::Test
{
protected:
    QString in(const QString& name) const { return folder_.filePath(name); }
    QString encoded(const QString& tool, const QStringList& arguments, const QString& name) const
    {
        int status = -1;
        run(tool, arguments, &status);
        EXPECT_EQ(status, 0);
        return in(name);
    }
    QString words(const QStringList& files) const { return boundariesInWords(files, stop_).sentences; }
    QString list(const QStringList& files) const { return boundariesInWords(files, stop_).list; }

private:
    QTemporaryDir folder_;
    std::atomic<bool> stop_ = false;
};

} // namespace

TEST_F(SectorBoundary, IsToldFromEveryKindOfFileThatTellsItsLength)
{
    const QString wav = tone(in(u"a.wav"_s), 588 * 3 + 5);
    const QStringList files{wav, tone(in(u"b.aiff"_s), 588 * 3 + 5), encoded(u"flac"_s, {u"-s"_s, wav}, u"a.flac"_s),
                            encoded(u"wavpack"_s, {u"-q"_s, wav}, u"a.wv"_s)};
    for (const QString& file : files) {
        const auto format = audioFormatOf(file);
        ASSERT_TRUE(format) << file.toStdString();
        EXPECT_TRUE(isCdAudio(*format)) << file.toStdString();
        EXPECT_EQ(bytesOffBoundary(*format), 20) << file.toStdString();
    }
}

TEST_F(SectorBoundary, OnlyCdAudioHasSectors)
{
    EXPECT_FALSE(isCdAudio(*audioFormatOf(tone(in(u"a.wav"_s), 588, 48000))));
    EXPECT_FALSE(isCdAudio(*audioFormatOf(tone(in(u"b.wav"_s), 588, 44100, 24))));
    EXPECT_FALSE(isCdAudio(*audioFormatOf(tone(in(u"c.wav"_s), 588, 44100, 16, 1))));
}

TEST_F(SectorBoundary, FileThatTellsNothingIsNotKnown)
{
    EXPECT_FALSE(audioFormatOf(in(u"none.wav"_s)));
    QFile file(in(u"x.shn"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("ajkg");
    file.close();
    EXPECT_FALSE(audioFormatOf(in(u"x.shn"_s)));
}

TEST_F(SectorBoundary, IsSaidInWords)
{
    const QString on = tone(in(u"on.wav"_s), 588), off = tone(in(u"off.wav"_s), 589),
                  other = tone(in(u"x.wav"_s), 588, 48000);
    EXPECT_EQ(words({on}), u"Every file of CD audio ends on a sector boundary."_s);
    EXPECT_EQ(words({on, off}), u"Off a sector boundary: off.wav by 4 bytes."_s);
    EXPECT_EQ(words({other}), u"No CD audio, so without sectors: x.wav."_s);
    EXPECT_EQ(words({off, other, in(u"y.shn"_s)}),
              u"Off a sector boundary: off.wav by 4 bytes. No CD audio, so without sectors: x.wav. "
              "Not known without the tool: y.shn."_s);
    EXPECT_EQ(words({}), u"A sector holds 588 frames of 44.1 kHz, 16 bits and stereo; other audio has none."_s);
}

TEST_F(SectorBoundary, LongListIsCutInWords)
{
    const QString off = tone(in(u"a.wav"_s), 589);
    EXPECT_EQ(words(QStringList(5, off)),
              u"Off a sector boundary: a.wav by 4 bytes, a.wav by 4 bytes, a.wav by 4 bytes and 2 more."_s);
}

TEST_F(SectorBoundary, FilesThatTheSentenceLeavesOutAreListed)
{
    const QString on = tone(in(u"on.wav"_s), 588), off = tone(in(u"a.wav"_s), 589);
    EXPECT_EQ(list({on, off, off, off}), QString()) << "the sentence names them all";
    EXPECT_EQ(list({off, off, on, off, off}), u"a.wav by 4 bytes\n"_s.repeated(4).chopped(1));
    EXPECT_EQ(list(QStringList(30, off)).count(u'\n'), 29);
    EXPECT_TRUE(list(QStringList(32, off)).endsWith(u"a.wav by 4 bytes\nand 2 more"_s));
}

TEST_F(SectorBoundary, IsGivenUpWhenNobodyWantsItAnyMore)
{
    EXPECT_EQ(boundariesInWords({in(u"a.wav"_s)}, true).sentences, QString());
}
