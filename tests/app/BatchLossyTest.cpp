// zolt-batch lossy
#include "BatchTesting.h"

#include <QDir>
#include <QFile>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class BatchLossy : public BatchTest
{
protected:
    BatchLossy()
    {
        // shntool tells how it was called and makes nothing; AAC is made by the program itself.
        useTools({u"lame"_s, u"AtomicParsley"_s});
        standInFor(u"shntool"_s, u"for word; do printf '%s\\n' \"$word\"; done >\"$dir/call\"\n"_s);
    }

    QString wav(const QString& name)
    {
        EXPECT_EQ(QProcess::execute(u"sox"_s,
                                    {u"-q"_s, u"-D"_s, u"-R"_s, u"-n"_s, u"-r"_s, u"44100"_s, u"-c"_s, u"2"_s, u"-b"_s,
                                     u"16"_s, in(name), u"synth"_s, u"0.2"_s, u"noise"_s, u"vol"_s, u"0.5"_s}),
                  0);
        return name;
    }
    /// What ffprobe says of a file, a value a line.
    QString probed(const QString& entries, const QString& name)
    {
        QProcess probe;
        probe.start(u"ffprobe"_s,
                    {u"-v"_s, u"error"_s, u"-show_entries"_s, entries, u"-of"_s, u"default=nw=1:nk=1"_s, in(name)});
        EXPECT_TRUE(probe.waitForFinished(120000));
        return QString::fromUtf8(probe.readAllStandardOutput()).trimmed();
    }
    /// How shntool was called: one word a line.
    QStringList call() const { return QString::fromUtf8(contents(in(u"call"_s))).split(u'\n', Qt::SkipEmptyParts); }
    /// The words with which shntool calls lame, after a run with these options.
    QString lameAfter(const QStringList& options)
    {
        const auto outcome = run(QStringList{u"lossy"_s} + options + QStringList{u"a.wav"_s});
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        return call().value(6);
    }
    /// What the AAC file says of its settings, after a run with these options.
    QString settingsAfter(const QStringList& options)
    {
        const auto outcome = run(QStringList{u"lossy"_s, u"--to"_s, u"AAC"_s} + options + QStringList{u"a.wav"_s});
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        return probed(u"format_tags=encoder"_s, u"a.m4a"_s).section(u", "_s, -1);
    }
    /// Whether the options are wrong usage that names this one, and nothing was made.
    bool isRefused(const QStringList& options, const QString& which)
    {
        const auto outcome = run(QStringList{u"lossy"_s} + options + QStringList{u"a.wav"_s});
        return outcome.status == 2 && outcome.errors.contains(which) && outcome.rows.isEmpty() && !exists(u"call"_s) &&
               !exists(u"a.m4a"_s);
    }
    bool exists(const QString& name) const { return QFile::exists(in(name)); }
};

} // namespace

TEST_F(BatchLossy, MakesMP3BesideTheSourceUnlessTold)
{
    const auto outcome = run({u"lossy"_s, wav(u"a.wav"_s)});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  a.wav"_s));
    EXPECT_EQ(call(), QStringList({u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-o"_s,
                                   u"cust ext=mp3 lame -V 3 - %f"_s, u"-d"_s, in({}), in(u"a.wav"_s)}));
    EXPECT_TRUE(exists(u"a.wav"_s));
}

TEST_F(BatchLossy, RealToolsMakeAFileThatPlays)
{
    environment.remove(u"ZOLT_TOOLS"_s);
    ASSERT_EQ(run({u"lossy"_s, u"--mode"_s, u"CBR"_s, u"--level"_s, u"192"_s, wav(u"a.wav"_s)}).status, 0);
    EXPECT_EQ(probed(u"stream=codec_name,bit_rate"_s, u"a.mp3"_s), u"mp3\n192000"_s);
}

TEST_F(BatchLossy, EachModeOfMP3HasItsOwnLevel)
{
    wav(u"a.wav"_s);
    EXPECT_EQ(lameAfter({u"--mode"_s, u"VBR"_s}), u"cust ext=mp3 lame -V 3 - %f"_s);
    EXPECT_EQ(lameAfter({u"--mode"_s, u"cbr"_s}), u"cust ext=mp3 lame -b 160 - %f"_s);
    EXPECT_EQ(lameAfter({u"--to"_s, u"mp3"_s, u"--level"_s, u"0"_s}), u"cust ext=mp3 lame -V 0 - %f"_s);
    EXPECT_EQ(lameAfter({u"--level"_s, u"9"_s}), u"cust ext=mp3 lame -V 9 - %f"_s);
    EXPECT_EQ(lameAfter({u"--mode=CBR"_s, u"--level=320"_s}), u"cust ext=mp3 lame -b 320 - %f"_s);
}

TEST_F(BatchLossy, EachModeOfAACHasItsOwnLevel)
{
    wav(u"a.wav"_s);
    EXPECT_EQ(settingsAfter({}), u"True VBR Quality 88"_s);
    EXPECT_EQ(settingsAfter({u"--mode"_s, u"VBR"_s, u"--level"_s, u"127"_s}), u"True VBR Quality 127"_s);
    EXPECT_EQ(settingsAfter({u"--mode"_s, u"VBR"_s, u"--level"_s, u"0"_s}), u"True VBR Quality 0"_s);
    EXPECT_EQ(settingsAfter({u"--mode"_s, u"CBR"_s}), u"CBR 160kbps"_s);
    EXPECT_EQ(settingsAfter({u"--mode"_s, u"ABR"_s, u"--level"_s, u"128"_s}), u"ABR 128kbps"_s);
    EXPECT_EQ(settingsAfter({u"--mode"_s, u"ABR"_s}), u"ABR 160kbps"_s);
    EXPECT_EQ(settingsAfter({u"--mode"_s, u"vbr constrained"_s}), u"VBR Constrained 160kbps"_s);
}

TEST_F(BatchLossy, ALevelLeftOutIsTheUsualOneWhateverTheWindowSaved)
{
    wav(u"a.wav"_s);
    const QByteArray saved = "[General]\nlossySliderLevel=7\nlossyComboLevel=320\nlossyStepperLevel=10\n";
    ASSERT_TRUE(QDir().mkpath(in(u"home/zolt"_s)));
    write(in(u"home/zolt/settings.ini"_s), saved);
    EXPECT_EQ(lameAfter({}), u"cust ext=mp3 lame -V 3 - %f"_s);
    EXPECT_EQ(lameAfter({u"--mode"_s, u"CBR"_s}), u"cust ext=mp3 lame -b 160 - %f"_s);
    EXPECT_EQ(settingsAfter({}), u"True VBR Quality 88"_s);
    EXPECT_EQ(contents(in(u"home/zolt/settings.ini"_s)), saved) << "and stays as it is";
}

TEST_F(BatchLossy, AModeThatTheFormatDoesNotHaveIsWrongUsage)
{
    wav(u"a.wav"_s);
    EXPECT_TRUE(isRefused({u"--mode"_s, u"ABR"_s}, u"MP3 has no --mode ABR"_s));
    EXPECT_TRUE(isRefused({u"--to"_s, u"MP3"_s, u"--mode"_s, u"VBR Constrained"_s}, u"MP3 has no --mode"_s));
    EXPECT_TRUE(isRefused({u"--mode"_s, u"fast"_s}, u"--mode takes CBR or VBR or ABR or VBR Constrained"_s));
    EXPECT_TRUE(isRefused({u"--to"_s, u"OGG"_s}, u"--to takes MP3 or AAC"_s));
}

TEST_F(BatchLossy, ALevelThatTheModeDoesNotHaveIsWrongUsage)
{
    wav(u"a.wav"_s);
    for (const QString& level : {u"10"_s, u"-1"_s, u"3.5"_s, u"best"_s, u""_s})
        EXPECT_TRUE(isRefused({u"--level="_s + level}, u"--level must be a number from 0 to 9"_s))
            << level.toStdString();
    for (const QString& level : {u"128"_s, u"-1"_s})
        EXPECT_TRUE(isRefused({u"--to"_s, u"AAC"_s, u"--level="_s + level}, u"from 0 to 127"_s));
    for (const QString& format : {u"MP3"_s, u"AAC"_s})
        for (const QString& level : {u"0"_s, u"2001"_s})
            EXPECT_TRUE(
                isRefused({u"--to"_s, format, u"--mode"_s, u"CBR"_s, u"--level="_s + level}, u"from 1 to 2000"_s));
}

TEST_F(BatchLossy, WritesIntoTheFolderAskedFor)
{
    EXPECT_EQ(run({u"lossy"_s, u"--to"_s, u"AAC"_s, u"--out"_s, u"out"_s, wav(u"a.wav"_s)}).status, 0);
    EXPECT_TRUE(exists(u"out/a.m4a"_s));
    EXPECT_FALSE(exists(u"a.m4a"_s));
    EXPECT_EQ(run({u"lossy"_s, u"--out"_s, u"out"_s, u"a.wav"_s}).status, 0);
    EXPECT_EQ(call().mid(7), QStringList({u"-d"_s, in(u"out"_s), in(u"a.wav"_s)}));
}

TEST_F(BatchLossy, DeletesTheOriginalsThatWereEncodedIfToldTwice)
{
    wav(u"good.wav"_s);
    write(in(u"bad.wav"_s), "no sound");
    const QStringList words{u"lossy"_s, u"--to"_s, u"AAC"_s, u"--delete-originals"_s};
    const QStringList files{u"good.wav"_s, u"bad.wav"_s};
    const auto refused = run(words + files);
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.errors.toStdString(), HasSubstr("--yes"));
    EXPECT_TRUE(exists(u"good.wav"_s));
    EXPECT_EQ(run(words + QStringList{u"--yes"_s} + files).status, 1);
    EXPECT_FALSE(exists(u"good.wav"_s));
    EXPECT_TRUE(exists(u"bad.wav"_s));
    EXPECT_TRUE(exists(u"good.m4a"_s));
}

TEST_F(BatchLossy, KeepsOriginalsUnlessTold)
{
    EXPECT_EQ(run({u"lossy"_s, u"--to"_s, u"AAC"_s, u"--yes"_s, wav(u"a.wav"_s)}).status, 0);
    EXPECT_TRUE(exists(u"a.wav"_s));
}

TEST_F(BatchLossy, AppleLosslessIsNoFileOfThisTab)
{
    write(in(u"a.m4a"_s), "whatever");
    const auto outcome = run({u"lossy"_s, u"a.m4a"_s, wav(u"b.wav"_s)});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("a.m4a: lossy does not take files of this kind"));
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  b.wav"_s));
}
