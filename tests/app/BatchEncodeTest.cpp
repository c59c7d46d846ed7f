// zolt-batch encode
#include "BatchTesting.h"

#include <QDir>
#include <QFile>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

class BatchEncode : public BatchTest
{
protected:
    QString wav(const QString& name)
    {
        const QStringList arguments{u"-q"_s,  u"-D"_s,    u"-R"_s,  u"-n"_s,    u"-r"_s,  u"44100"_s,
                                    u"-c"_s,  u"2"_s,     u"-b"_s,  u"16"_s,    u"-t"_s,  u"wav"_s,
                                    in(name), u"synth"_s, u"0.2"_s, u"noise"_s, u"vol"_s, u"0.5"_s};
        EXPECT_EQ(QProcess::execute(u"sox"_s, arguments), 0);
        return name;
    }
    QString appleLossless(const QString& name)
    {
        EXPECT_EQ(QProcess::execute(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, in(wav(u"source.wav"_s)), u"-c:a"_s,
                                                  u"alac"_s, in(name)}),
                  0);
        QFile::remove(in(u"source.wav"_s));
        return name;
    }
    bool exists(const QString& name) const { return QFile::exists(in(name)); }
};

} // namespace

TEST_F(BatchEncode, WritesFlacBesideTheSourceUnlessTold)
{
    const auto outcome = run({u"encode"_s, wav(u"a.wav"_s)});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  a.wav"_s));
    EXPECT_TRUE(contents(in(u"a.flac"_s)).startsWith("fLaC"));
    EXPECT_TRUE(exists(u"a.wav"_s));
}

TEST_F(BatchEncode, WritesWavpackIntoAFolderAndDeletesTheOriginal)
{
    QDir().mkpath(in(u"out"_s));
    const auto outcome = run({u"encode"_s, u"--to"_s, u"wv"_s, u"--level"_s, u"high"_s, u"--out"_s, u"out"_s,
                              u"--delete-originals"_s, u"--yes"_s, wav(u"a.wav"_s)});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_TRUE(contents(in(u"out/a.wv"_s)).startsWith("wvpk"));
    EXPECT_FALSE(exists(u"a.wav"_s));
}

TEST_F(BatchEncode, OptionsReachFlac)
{
    standInForFlac(u"printf '%s ' \"$@\" >\"$dir/call\"; exec \"$real\" \"$@\""_s);
    EXPECT_EQ(run({u"encode"_s, u"--level"_s, u"8"_s, u"--verify"_s, wav(u"a.wav"_s)}).status, 0);
    EXPECT_TRUE(contents(in(u"call"_s)).startsWith("-8 -V "));
    QFile::remove(in(u"a.flac"_s));
    EXPECT_EQ(run({u"encode"_s, u"--lax"_s, u"--keep-foreign-metadata"_s, u"a.wav"_s}).status, 0);
    EXPECT_TRUE(contents(in(u"call"_s)).startsWith("--lax --keep-foreign-metadata "));
}

TEST_F(BatchEncode, LevelThatTheTargetDoesNotHaveIsWrongUsage)
{
    wav(u"a.wav"_s);
    const auto refused = [&](const QString& target, const QString& level) {
        const auto outcome = run({u"encode"_s, u"--to"_s, target, u"--level"_s, level, u"a.wav"_s});
        return outcome.status == 2 && outcome.errors.contains(u"--level"_s);
    };
    EXPECT_TRUE(refused(u"FLAC"_s, u"9"_s));
    EXPECT_TRUE(refused(u"FLAC"_s, u"-1"_s));
    EXPECT_TRUE(refused(u"FLAC"_s, u"fast"_s));
    EXPECT_TRUE(refused(u"APE"_s, u"1500"_s));
    EXPECT_TRUE(refused(u"WV"_s, u"5"_s));
    EXPECT_TRUE(refused(u"TTA"_s, u"5"_s));
    EXPECT_FALSE(exists(u"a.flac"_s));
}

TEST_F(BatchEncode, ListFollowsAShortenSet)
{
    const auto outcome = run({u"encode"_s, u"--to"_s, u"SHN"_s, u"--md5"_s, wav(u"a.wav"_s), wav(u"b.wav"_s)});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_TRUE(contents(in(u"md5sum.md5"_s)).contains(" *b.shn\n"));
}

TEST_F(BatchEncode, TwoSourcesOfOneOutputAreRefusedBeforeAnythingStarts)
{
    wav(u"a.wav"_s);
    QFile::copy(in(u"a.wav"_s), in(u"a.aiff"_s));
    const auto outcome = run({u"encode"_s, u"a.wav"_s, u"a.aiff"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_FALSE(exists(u"a.flac"_s));
}

TEST_F(BatchEncode, AppleLosslessOriginalThatIsToGoStopsTheCommandBehindWhatIsQueued)
{
    const auto outcome = run({u"encode"_s, u"--delete-originals"_s, u"--yes"_s, wav(u"a.wav"_s),
                              appleLossless(u"b.m4a"_s), wav(u"c.wav"_s)});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.output.contains(u"cannot be deleted after encoding to FLAC"_s) ||
                outcome.errors.contains(u"cannot be deleted after encoding to FLAC"_s))
        << outcome.output.toStdString();
    EXPECT_TRUE(exists(u"a.flac"_s)) << "what was queued ends";
    EXPECT_FALSE(exists(u"a.wav"_s));
    EXPECT_TRUE(exists(u"b.m4a"_s) && exists(u"c.wav"_s));
    EXPECT_FALSE(exists(u"c.flac"_s));
}
