#include "BatchTesting.h"
#include "support/SampleFlac.h"

#include <QDir>
#include <QFile>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

namespace {

class Batch : public BatchTest
{
};

} // namespace

TEST_F(Batch, DecodesFilesAndFoldersBesideTheirSources)
{
    ASSERT_TRUE(QDir().mkpath(in(u"show/disc1"_s)));
    makeFlac(in(u"a.flac"_s));
    makeFlac(in(u"show/b.FLAC"_s));
    makeFlac(in(u"show/disc1/c.flac"_s));
    const auto outcome = run({u"decode"_s, u"a.flac"_s, u"show"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.rows,
                UnorderedElementsAre(u"Complete  a.flac"_s, u"Complete  b.FLAC"_s, u"Complete  c.flac"_s));
    for (const QString& output : {u"a.wav"_s, u"show/b.wav"_s, u"show/disc1/c.wav"_s}) {
        EXPECT_TRUE(contents(in(output)).startsWith("RIFF"));
    }
    EXPECT_THAT(outcome.errors.toStdString(),
                testing::MatchesRegex("[0-9]+ complete, 0 failed, 0 canceled, 0:0[0-9]\n"));
}

TEST_F(Batch, LoadsNoLibraryAheadOfItsUse)
{
    environment.insert(u"LD_TRACE_LOADED_OBJECTS"_s, u"1"_s);
    const auto libraries = run({u"--version"_s}).output;
    EXPECT_TRUE(libraries.contains(u"libQt6Core.so"_s));
    for (const QString& name :
         {u"libavcodec"_s, u"libavformat"_s, u"libswresample"_s, u"libQt6Gui"_s, u"libX11"_s, u"libpng16"_s})
        EXPECT_FALSE(libraries.contains(name)) << name.toStdString();
}

TEST_F(Batch, OpensTheLibraryOfDigestsWithTheFirstOfThem)
{
    environment.insert(u"LD_TRACE_LOADED_OBJECTS"_s, u"1"_s);
    EXPECT_FALSE(run({u"--version"_s}).output.contains(u"libcrypto"_s));
}

TEST_F(Batch, GivesTheSamplesThatWentIn)
{
    makeFlac(in(u"a.flac"_s), 0.5);
    ASSERT_EQ(QProcess::execute(u"flac"_s, {u"-s"_s, u"-d"_s, in(u"a.flac"_s), u"-o"_s, in(u"wanted.wav"_s)}), 0);
    EXPECT_EQ(run({u"decode"_s, u"a.flac"_s}).status, 0);
    EXPECT_EQ(contents(in(u"a.wav"_s)), contents(in(u"wanted.wav"_s)));
}

TEST_F(Batch, WritesIntoTheFolderAskedForAndInTheFormatAskedFor)
{
    ASSERT_TRUE(QDir().mkpath(in(u"out"_s)));
    makeFlac(in(u"a.flac"_s), 0.1, {u"TITLE=Prelude"_s});
    EXPECT_EQ(run({u"decode"_s, u"--format"_s, u"AIFF"_s, u"--out"_s, u"out"_s, u"a.flac"_s}).status, 0);
    const QByteArray aiff = contents(in(u"out/a.aiff"_s));
    EXPECT_TRUE(aiff.startsWith("FORM"));
    EXPECT_TRUE(aiff.contains("Prelude")) << "the tags go with it";
    EXPECT_FALSE(QFile::exists(in(u"a.aiff"_s)));
}

TEST_F(Batch, HandsTheFlacOptionsOn)
{
    standInForFlac(u"printf '%s\\n' \"$@\" >\"$dir/arguments\"\n"_s);
    makeFlac(in(u"a.flac"_s));
    run({u"decode"_s, u"--through-errors"_s, u"--keep-foreign-metadata"_s, u"a.flac"_s});
    const QString expected = u"-d\n--keep-foreign-metadata\n-F\n%1\n-o\n%2\n"_s.arg(in(u"a.flac"_s), in(u"a.wav"_s));
    EXPECT_EQ(QString::fromUtf8(contents(in(u"arguments"_s))), expected);
}

TEST_F(Batch, ANameGivenTwiceIsDoneOnce)
{
    makeFlac(in(u"a.flac"_s));
    const auto outcome = run({u"decode"_s, u"a.flac"_s, u".//a.flac"_s, in(u"a.flac"_s)});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  a.flac"_s));
}

TEST_F(Batch, DeletesTheOriginalsThatWereDecoded)
{
    makeFlac(in(u"good.flac"_s));
    makeFlac(in(u"bad.flac"_s), 1);
    damage(in(u"bad.flac"_s));
    const auto outcome = run({u"decode"_s, u"--delete-originals"_s, u"--yes"_s, u"good.flac"_s, u"bad.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, UnorderedElementsAre(u"Complete  good.flac"_s, u"Error  bad.flac"_s));
    EXPECT_FALSE(QFile::exists(in(u"good.flac"_s)));
    EXPECT_TRUE(QFile::exists(in(u"bad.flac"_s)));
}

TEST_F(Batch, DeletesNothingUnaskedWhereNobodyCanBeAsked)
{
    makeFlac(in(u"a.flac"_s));
    const auto outcome = run({u"decode"_s, u"--delete-originals"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, QString());
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("--yes"));
    EXPECT_TRUE(QFile::exists(in(u"a.flac"_s)));
    EXPECT_FALSE(QFile::exists(in(u"a.wav"_s)));
}

TEST_F(Batch, RunsAsManyAtATimeAsItIsTold)
{
    // Each run waits until three of them run, which only three at a time can end.
    standInForFlac(u"echo start >>\"$dir/log\"\nwhile [ $(grep -c start \"$dir/log\") -lt 3 ]; do sleep 0.01; done\n"
                   "\"$real\" \"$@\"; status=$?; echo end >>\"$dir/log\"; exit $status\n"_s);
    QStringList arguments{u"decode"_s, u"--jobs"_s, u"3"_s};
    for (int i = 0; i < 7; ++i) {
        arguments += u"%1.flac"_s.arg(i);
        makeFlac(in(arguments.last()));
    }
    EXPECT_EQ(run(arguments).status, 0);
    int running = 0, most = 0;
    for (const QByteArray& line : contents(in(u"log"_s)).split('\n')) {
        if (line == "start")
            most = std::max(most, ++running);
        else if (line == "end")
            --running;
    }
    EXPECT_EQ(most, 3);
}

TEST_F(Batch, SavesNoSetting)
{
    makeFlac(in(u"a.flac"_s));
    ASSERT_TRUE(QDir().mkpath(in(u"home/zolt"_s)));
    write(in(u"home/zolt/settings.ini"_s), "[General]\nmaxThreads=4\n");
    EXPECT_EQ(run({u"decode"_s, u"--jobs"_s, u"1"_s, u"a.flac"_s}).status, 0);
    EXPECT_EQ(contents(in(u"home/zolt/settings.ini"_s)), "[General]\nmaxThreads=4\n");
    EXPECT_EQ(QDir(in(u"home"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"zolt"_s});
}

TEST_F(Batch, TellsVersionAndHelp)
{
    EXPECT_EQ(run({u"--version"_s}).output, u"Zolt Toolkit 1.0 (Build 1)\n"_s);
    const auto help = run({u"decode"_s, u"--help"_s});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output.toStdString(), HasSubstr("--keep-foreign-metadata"));
    const auto wrong = run({u"decode"_s, u"--nonsense"_s});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_THAT(wrong.errors.toStdString(), HasSubstr("--nonsense"));
}
