#include "BatchTesting.h"

#include "support/Programs.h"
#include "support/SampleFlac.h"

#include <QDir>
#include <QFile>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

class BatchUtil : public BatchTest
{
protected:
    BatchUtil() { environment.insert(u"XDG_CACHE_HOME"_s, in(u"home/cache"_s)); }

    void wav(const QString& name, const QString& rate = u"44100"_s, const QString& seconds = u"2"_s)
    {
        int status = -1;
        zolt::test::run(u"sox"_s,
                        {u"-q"_s, u"-n"_s, u"-r"_s, rate, u"-b"_s, u"16"_s, u"-c"_s, u"2"_s, in(name), u"synth"_s,
                         seconds, u"sine"_s, u"440"_s},
                        &status);
        ASSERT_EQ(status, 0);
    }
    void script(const QString& tool, const QByteArray& text)
    {
        ASSERT_TRUE(QDir().mkpath(in(u"tools"_s)));
        const QString path = in(u"tools/"_s + tool);
        QFile::remove(path);
        write(path, "#!/bin/sh\n" + text);
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        environment.insert(u"ZOLT_TOOLS"_s, in(u"tools"_s));
    }
    QString gainOf(const QString& file) const
    {
        return QString::fromUtf8(zolt::test::run(u"metaflac"_s, {u"--show-tag=REPLAYGAIN_TRACK_GAIN"_s, in(file)}));
    }
    /// A machine with one drive, which is also known by a link.
    void makeDrive()
    {
        ASSERT_TRUE(QDir().mkpath(in(u"drives/sr0"_s)));
        ASSERT_TRUE(QDir().mkpath(in(u"dev"_s)));
        write(in(u"dev/sr0"_s), {});
        ASSERT_TRUE(QFile::link(in(u"dev/sr0"_s), in(u"dev/usb-MAKER_DRIVE"_s)));
        environment.insert(u"ZOLT_DRIVES"_s, in(u"drives"_s));
        script(u"diskutil"_s, "exit 0\n");
    }
    QStringList files(const QString& folder) const { return QDir(in(folder)).entryList(QDir::Files, QDir::Name); }
};

} // namespace

TEST_F(BatchUtil, RenamesToAPrefixAndANumber)
{
    QDir().mkpath(in(u"show"_s));
    for (const QString& name : {u"show/b.wav"_s, u"show/a.x.flac"_s})
        write(in(name), name.toUtf8());
    const auto outcome = run({u"util"_s, u"rename"_s, u"--prefix"_s, u"My "_s, u"show"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(files(u"show"_s), QStringList({u"My 01.flac"_s, u"My 02.wav"_s}));
    EXPECT_EQ(contents(in(u"show/My 02.wav"_s)), "show/b.wav");
    EXPECT_THAT(outcome.rows, testing::ElementsAre(u"Complete  a.x.flac"_s, u"Complete  b.wav"_s));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("2 complete, 0 failed, 0 canceled"));
}

TEST_F(BatchUtil, ANameThatIsTakenRenamesNothingAndFails)
{
    QDir().mkpath(in(u"show"_s));
    for (const QString& name : {u"show/a.wav"_s, u"show/b.wav"_s})
        write(in(name), "x");
    write(in(u"show/x02.wav"_s), "taken");
    const auto outcome = run({u"util"_s, u"rename"_s, u"--prefix"_s, u"x"_s, u"show/a.wav"_s, u"show/b.wav"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(),
                HasSubstr("File at \"" + in(u"show/x02.wav"_s).toStdString() + "\" already exists"));
    EXPECT_EQ(files(u"show"_s), QStringList({u"a.wav"_s, u"b.wav"_s, u"x02.wav"_s}));
}

TEST_F(BatchUtil, ARenameNeedsAPrefix)
{
    write(in(u"a.wav"_s), "x");
    EXPECT_EQ(run({u"util"_s, u"rename"_s, u"a.wav"_s}).status, 2);
    EXPECT_TRUE(QFile::exists(in(u"a.wav"_s)));
}

TEST_F(BatchUtil, GainIsAddedAndRemoved)
{
    makeFlac(in(u"a.flac"_s), 1.0);
    ASSERT_TRUE(QFile::copy(in(u"a.flac"_s), in(u"hand.flac"_s)));
    zolt::test::run(u"metaflac"_s, {u"--add-replay-gain"_s, in(u"hand.flac"_s)});
    EXPECT_EQ(run({u"util"_s, u"gain"_s, u"--add"_s, u"a.flac"_s}).status, 0);
    EXPECT_FALSE(gainOf(u"a.flac"_s).isEmpty());
    EXPECT_EQ(gainOf(u"a.flac"_s), gainOf(u"hand.flac"_s));
    EXPECT_EQ(run({u"util"_s, u"gain"_s, u"--remove"_s, u"a.flac"_s}).status, 0);
    EXPECT_EQ(gainOf(u"a.flac"_s), QString());
}

TEST_F(BatchUtil, EmphasisIsTakenOffIntoAFolder)
{
    wav(u"a.wav"_s);
    const auto outcome = run({u"util"_s, u"deemphasis"_s, u"--out"_s, u"out"_s, u"a.wav"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(files(u"out"_s), QStringList{u"a-deemph.wav"_s});
    EXPECT_EQ(run({u"util"_s, u"deemphasis"_s, u"a.wav"_s}).status, 2) << "it needs --out";
}

TEST_F(BatchUtil, AnOutputThatIsCutShortFailsTheRunThoughTheRowIsComplete)
{
    wav(u"a.wav"_s);
    script(u"sox"_s, "head -c 1000 \"$2\" >\"$3\"\n");
    const auto outcome = run({u"util"_s, u"deemphasis"_s, u"--out"_s, u"out"_s, u"--json"_s, u"a.wav"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output.toStdString(), HasSubstr("\"outcome\":\"complete\""));
    EXPECT_THAT(outcome.output.toStdString(), HasSubstr("a-deemph.wav is shorter than its source"));
}

TEST_F(BatchUtil, DiscInfoPrintsTheTableAndTheTotals)
{
    wav(u"a.wav"_s);
    wav(u"b.wav"_s, u"44100"_s, u"61"_s);
    const auto outcome = run({u"util"_s, u"disc-info"_s, u"b.wav"_s, u"a.wav"_s, u"a.wav"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.output, u"0:02\t44100\t16\ta.wav\n1:01\t44100\t16\tb.wav\n1:03\t11.11 MB\n"_s);
}

TEST_F(BatchUtil, AFileThatCannotGoOnADiscIsTheOneReasonThatIsTold)
{
    wav(u"a.wav"_s);
    wav(u"b.wav"_s, u"48000"_s);
    const auto outcome = run({u"util"_s, u"disc-info"_s, u"a.wav"_s, u"b.wav"_s});
    EXPECT_NE(outcome.status, 0);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("b.wav differs from the files before it"));
    EXPECT_THAT(outcome.errors.toStdString(), testing::Not(HasSubstr("does not take files of this kind")));
}

TEST_F(BatchUtil, AnImageIsMadeOfTheFiles)
{
    wav(u"a.wav"_s);
    script(u"dvda"_s, "mkdir -p \"$7\"\necho \"[Zolt]  Processing 0::x\"\n");
    script(u"mkisofs"_s, "echo '-dvd-audio makes such an image'\n[ \"$1\" != -o ] || echo image >\"$2\"\n");
    const auto outcome = run({u"util"_s, u"dvd"_s, u"--out"_s, u"out"_s, u"a.wav"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(files(u"out"_s), QStringList{u"image.iso"_s});
    EXPECT_FALSE(QDir(in(u"out/DVD-AUDIO"_s)).exists());
}

TEST_F(BatchUtil, TracksOfADriveThatIsNamedByALinkAreRead)
{
    makeDrive();
    script(u"cdda2wav"_s, "echo \"$@\" >\"$ZOLT_TOOLS/../called\"\ntouch audio_02.wav audio_03.wav\n");
    const auto outcome = run({u"util"_s, u"cd"_s, u"--device"_s, in(u"dev/usb-MAKER_DRIVE"_s), u"--tracks"_s, u"2-3"_s,
                              u"--out"_s, u"out"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(files(u"out"_s), QStringList({u"02 Track 02.wav"_s, u"03 Track 03.wav"_s, u"Audio CD (sr0).log.txt"_s}));
    EXPECT_EQ(contents(in(u"called"_s)), "-B -L 1 -H -t 2+3 -paranoia -Owav dev=/dev/sr0\n");
}

TEST_F(BatchUtil, AllTracksGoIntoOneFile)
{
    makeDrive();
    script(u"cdda2wav"_s, "touch audio.wav\n");
    const auto outcome = run({u"util"_s, u"cd"_s, u"--device"_s, in(u"dev/sr0"_s), u"--tracks"_s, u"1-3"_s,
                              u"--one-file"_s, u"--out"_s, u"out"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_EQ(files(u"out"_s), QStringList({u"Audio CD (sr0).log.txt"_s, u"audio.wav"_s}));
}

TEST_F(BatchUtil, WhatIsNoDriveAndWhatIsNoRangeAreRefused)
{
    makeDrive();
    write(in(u"dev/sda"_s), {});
    for (const QString& device : {in(u"dev/sda"_s), u"/dev/no-such"_s}) {
        const auto outcome =
            run({u"util"_s, u"cd"_s, u"--device"_s, device, u"--tracks"_s, u"1-2"_s, u"--out"_s, u"out"_s});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("is no drive for discs"));
    }
    for (const QString& range : {u"3-1"_s, u"0-2"_s, u"1-100"_s, u"all"_s}) {
        const auto outcome =
            run({u"util"_s, u"cd"_s, u"--device"_s, in(u"dev/sr0"_s), u"--tracks"_s, range, u"--out"_s, u"out"_s});
        EXPECT_EQ(outcome.status, 2) << range.toStdString();
        EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("--tracks takes a range"));
    }
    EXPECT_EQ(run({u"util"_s, u"cd"_s, u"--device"_s, in(u"dev/sr0"_s), u"--tracks"_s, u"1-2"_s}).status, 2)
        << "it needs --out";
}

TEST_F(BatchUtil, DamagedSettingsAreToldAndLeftAlone)
{
    const QString settings = in(u"home/zolt/settings.ini"_s);
    QDir().mkpath(in(u"home/zolt"_s));
    write(settings, "[General]\nhalf a line\n");
    makeFlac(in(u"a.flac"_s));
    const auto outcome = run({u"util"_s, u"gain"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("are damaged"));
    EXPECT_EQ(contents(settings), "[General]\nhalf a line\n");
}
