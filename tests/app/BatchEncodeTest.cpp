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
    QString wav(const QString& name, double seconds = 0.2)
    {
        const QStringList arguments{u"-q"_s,    u"-D"_s,  u"-R"_s,  u"-n"_s,    u"-r"_s,
                                    u"44100"_s, u"-c"_s,  u"2"_s,   u"-b"_s,    u"16"_s,
                                    u"-t"_s,    u"wav"_s, in(name), u"synth"_s, QString::number(seconds),
                                    u"noise"_s, u"vol"_s, u"0.5"_s};
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

namespace {

/// The folder "small" is a disk of its own, of 200 kB, for as long as the program runs.
class BatchSmallDisk : public BatchEncode
{
protected:
    void SetUp() override
    {
        QDir().mkpath(in(u"small"_s));
        if (QProcess::execute(u"unshare"_s, {u"-Urm"_s, u"mount"_s, u"-t"_s, u"tmpfs"_s, u"none"_s, in(u"small"_s)}) !=
            0)
            GTEST_SKIP() << "this system gives nobody a disk of his own";
        launcher = {u"unshare"_s,
                    u"-Urm"_s,
                    u"sh"_s,
                    u"-c"_s,
                    u"mount -t tmpfs -o size=200k none small && \"$@\"; status=$?; ls -A small >left; exit $status"_s,
                    u"sh"_s};
    }
    /// Encodes one file onto the small disk and expects that it fails.
    void expectNoRoom(const QString& source, const QString& target, const QStringList& more = {})
    {
        const auto outcome = run(QStringList{u"encode"_s, u"--to"_s, target, u"--out"_s, u"small"_s, u"--yes"_s} +
                                 more + QStringList{source});
        const std::string which = (source + u" to "_s + target + u'\n' + outcome.output + outcome.errors).toStdString();
        EXPECT_EQ(outcome.status, 1) << which;
        EXPECT_THAT(outcome.rows, ElementsAre(u"Error  "_s + source)) << which;
        EXPECT_TRUE(exists(source)) << which;
        EXPECT_FALSE(contents(in(u"left"_s)).contains("Zolt-")) << "a temporary file stayed; " << which;
    }
    /// The same sound as another kind of file.
    QString as(const QString& name, const QString& program, const QStringList& arguments)
    {
        EXPECT_EQ(QProcess::execute(program, arguments), 0) << name.toStdString();
        return name;
    }

    QStringList usual_; ///< the program without a disk of its own
};

} // namespace

TEST_F(BatchSmallDisk, FullDiskIsAnErrorOfEveryEncoderAndKeepsTheSource)
{
    wav(u"a.wav"_s, 5);
    for (const QString& target : {u"FLAC"_s, u"SHN"_s, u"APE"_s, u"WV"_s, u"TTA"_s, u"M4A"_s})
        expectNoRoom(u"a.wav"_s, target, {u"--delete-originals"_s});
}

TEST_F(BatchSmallDisk, FullDiskIsAnErrorOfEveryWayThroughAWav)
{
    wav(u"a.wav"_s, 5);
    as(u"a.aiff"_s, u"sox"_s, {in(u"a.wav"_s), in(u"a.aiff"_s)});
    as(u"a.flac"_s, u"flac"_s, {u"-s"_s, in(u"a.wav"_s)});
    as(u"a.m4a"_s, u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, in(u"a.wav"_s), u"-c:a"_s, u"alac"_s, in(u"a.m4a"_s)});
    launcher.swap(usual_);
    for (const QString& target : {u"SHN"_s, u"APE"_s})
        ASSERT_EQ(run({u"encode"_s, u"--to"_s, target, u"a.wav"_s}).status, 0);
    launcher.swap(usual_);
    for (const QString& source : {u"a.aiff"_s, u"a.m4a"_s}) {
        for (const QString& target : {u"FLAC"_s, u"APE"_s, u"WV"_s, u"TTA"_s})
            expectNoRoom(source, target);
    }
    for (const QString& source : {u"a.shn"_s, u"a.flac"_s, u"a.ape"_s})
        expectNoRoom(source, u"M4A"_s);
    for (const QString& source : {u"a.shn"_s, u"a.ape"_s})
        expectNoRoom(source, u"FLAC"_s);
}
