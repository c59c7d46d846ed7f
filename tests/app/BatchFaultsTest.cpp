#include "BatchTesting.h"
#include "support/Programs.h"
#include "support/SampleFlac.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

#include <sys/mount.h>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

namespace {

class BatchFaults : public BatchTest
{
};

/// A file system in memory that holds little, if this process may mount one.
class SmallDisk
{
public:
    SmallDisk(const QString& at, const char* size) : path_(QFile::encodeName(at))
    {
        QDir().mkpath(at);
        mounted_ = ::mount("tmpfs", path_.constData(), "tmpfs", 0, (QByteArray("size=") + size).constData()) == 0;
    }
    ~SmallDisk()
    {
        if (mounted_) ::umount2(path_.constData(), MNT_DETACH);
    }
    bool isThere() const { return mounted_; }

private:
    QByteArray path_;
    bool mounted_ = false;
};

} // namespace

TEST_F(BatchFaults, AMissingToolIsToldBeforeAnythingIsQueued)
{
    useTools({});
    makeFlac(in(u"a.flac"_s));
    const auto outcome = run({u"decode"_s, u"--format"_s, u"AIFF"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output, QString());
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("\"flac\" is missing"));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("\"metaflac\" is missing"));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("package \"flac\""));
}

TEST_F(BatchFaults, AToolThatCannotBeStartedHangsNothing)
{
    standInForFlac({});
    write(in(u"tools/flac"_s), "neither a program nor a script");
    makeFlac(in(u"a.flac"_s));
    const auto outcome = run({u"decode"_s, u"--delete-originals"_s, u"--yes"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("tools/flac"));
    EXPECT_TRUE(QFile::exists(in(u"a.flac"_s)));
}

TEST_F(BatchFaults, AFullDiskFailsTheRowAndKeepsTheSource)
{
    const SmallDisk disk(in(u"disk"_s), "256k");
    if (!disk.isThere()) GTEST_SKIP() << "this process may not mount a small disk";
    makeFlac(in(u"long.flac"_s), 10);
    makeFlac(in(u"short.flac"_s), 0.1);
    const auto outcome = run({u"decode"_s, u"--jobs"_s, u"1"_s, u"--delete-originals"_s, u"--yes"_s, u"--out"_s,
                              u"disk"_s, u"long.flac"_s, u"short.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Error  long.flac"_s, u"Complete  short.flac"_s));
    EXPECT_THAT(outcome.output.toStdString(), HasSubstr("\n\nlong.flac\n")) << "the tool's text follows under the name";
    EXPECT_TRUE(QFile::exists(in(u"long.flac"_s)));
    EXPECT_FALSE(QFile::exists(in(u"short.flac"_s)));
}

TEST_F(BatchFaults, AFolderThatCannotBeWrittenFailsTheRow)
{
    makeFlac(in(u"a.flac"_s));
    const auto outcome = run({u"decode"_s, u"--delete-originals"_s, u"--yes"_s, u"--out"_s, u"/proc"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Error  a.flac"_s));
    EXPECT_THAT(outcome.output.toStdString(), HasSubstr("/proc/a.wav"));
    EXPECT_TRUE(QFile::exists(in(u"a.flac"_s)));
}

TEST_F(BatchFaults, AFolderThatIsNotThereIsMadeAndTold)
{
    makeFlac(in(u"a.flac"_s));
    const auto outcome = run({u"decode"_s, u"--out"_s, u"new/one"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("made the folder"));
    EXPECT_TRUE(QFile::exists(in(u"new/one/a.wav"_s)));
}

TEST_F(BatchFaults, AFolderOfAStartThatIsRefusedIsNotLeftBehind)
{
    useTools({});
    makeFlac(in(u"a.flac"_s));
    ASSERT_TRUE(QDir().mkpath(in(u"mine"_s)));
    for (const QString& folder : {u"new/one"_s, u"mine/one/two"_s, u"mine"_s}) {
        const auto outcome = run({u"decode"_s, u"--out"_s, folder, u"a.flac"_s});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_THAT(outcome.errors.toStdString(), Not(HasSubstr("made the folder")));
    }
    EXPECT_FALSE(QFile::exists(in(u"new"_s)));
    EXPECT_TRUE(QFile::exists(in(u"mine"_s)));
    EXPECT_FALSE(QFile::exists(in(u"mine/one"_s)));
}

TEST_F(BatchFaults, AnAnswerThatCannotBeWrittenIsNoSuccess)
{
    makeFlac(in(u"a.flac"_s));
    const QStringList show{u"tags"_s, u"show"_s, u"a.flac"_s};
    launcher = {u"sh"_s, u"-c"_s, u"exec \"$@\" > /dev/full"_s, u"sh"_s};
    for (const QStringList& arguments : {QStringList{u"--version"_s}, QStringList{u"--help"_s}, show}) {
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.status, 1) << arguments.first().toStdString();
        EXPECT_EQ(outcome.errors.count(u"the standard output could not be written: "_s), 1);
    }
    launcher = {u"bash"_s, u"-c"_s, u"trap '' PIPE; exec > >(exec true); wait $!; exec \"$@\""_s, u"bash"_s};
    const auto outcome = run(show);
    EXPECT_EQ(outcome.status, 0) << "a reader who has gone away has had enough";
    EXPECT_EQ(outcome.errors, QString());
}

TEST_F(BatchFaults, AFolderThatCannotBeMadeIsToldAtOnce)
{
    makeFlac(in(u"a.flac"_s));
    write(in(u"file"_s), "in the way");
    const auto outcome = run({u"decode"_s, u"--out"_s, u"file/below"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("file/below"));
}

TEST_F(BatchFaults, ExistingOutputsAreLeftOutWhereAskedFor)
{
    makeFlac(in(u"a.flac"_s));
    makeFlac(in(u"b.flac"_s));
    write(in(u"a.wav"_s), "precious");
    const auto first = run({u"decode"_s, u"--skip-existing"_s, u"a.flac"_s, u"b.flac"_s});
    EXPECT_EQ(first.status, 0);
    EXPECT_THAT(first.rows, ElementsAre(u"Complete  b.flac"_s));
    EXPECT_THAT(first.errors.toStdString(), HasSubstr("1 file left out"));
    EXPECT_EQ(contents(in(u"a.wav"_s)), "precious");
    const auto second = run({u"decode"_s, u"--skip-existing"_s, u"a.flac"_s, u"b.flac"_s});
    EXPECT_EQ(second.status, 0) << "all was done before";
    EXPECT_TRUE(second.rows.isEmpty());
}

TEST_F(BatchFaults, SourcesOfOneOutputThatAreAllLeftOutAreInNobodysWay)
{
    ASSERT_TRUE(QDir().mkpath(in(u"other"_s)) && QDir().mkpath(in(u"out"_s)));
    makeFlac(in(u"a.flac"_s));
    makeFlac(in(u"other/a.flac"_s));
    makeFlac(in(u"b.flac"_s));
    write(in(u"out/a.wav"_s), "precious");
    const QStringList files{u"a.flac"_s, u"other/a.flac"_s, u"b.flac"_s};
    const auto refused = run(QStringList{u"decode"_s, u"--out"_s, u"out"_s} + files);
    EXPECT_EQ(refused.status, 2);
    const auto outcome = run(QStringList{u"decode"_s, u"--out"_s, u"out"_s, u"--skip-existing"_s} + files);
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  b.flac"_s));
    EXPECT_EQ(contents(in(u"out/a.wav"_s)), "precious");
}

TEST_F(BatchFaults, OutputsOfEitherFateAreLeftOutWhereAskedFor)
{
    makeFlac(in(u"a.flac"_s));
    write(in(u"a.wav"_s), "stays");
    write(in(u"b.tta"_s), "a decoder that overwrites");
    write(in(u"b.wav"_s), "stays too");
    const auto outcome = run({u"decode"_s, u"--skip-existing"_s, u"a.flac"_s, u"b.tta"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("2 files left out"));
    EXPECT_EQ(contents(in(u"b.wav"_s)), "stays too");
}

TEST_F(BatchFaults, AListIsMadeInAFolderThatIsNotThere)
{
    makeFlac(in(u"a.flac"_s));
    for (const QString& kind : {u"MD5"_s, u"ST5"_s, u"FFP"_s}) {
        const QString list = u"lists/%1/sums"_s.arg(kind);
        const auto outcome = run({u"checksum"_s, u"create"_s, u"--kind"_s, kind, u"--out"_s, list, u"a.flac"_s});
        EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
        EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("made the folder"));
        EXPECT_TRUE(QFile::exists(in(list))) << kind.toStdString();
        const bool hasRow = !outcome.rows.isEmpty();
        EXPECT_EQ(hasRow, kind != u"FFP") << "made without a task";
        EXPECT_NE(hasRow, outcome.errors.contains(u"wrote "_s + in(list)));
    }
}

TEST_F(BatchFaults, AListThatCannotBeWrittenIsNoSuccess)
{
    makeFlac(in(u"a.flac"_s));
    write(in(u"file"_s), "in the way");
    QDir().mkpath(in(u"folder"_s));
    const auto creation = [&](const QString& kind, const QString& list) {
        return run({u"checksum"_s, u"create"_s, u"--kind"_s, kind, u"--out"_s, list, u"a.flac"_s});
    };
    EXPECT_EQ(creation(u"MD5"_s, u"file/sums.md5"_s).status, 2);
    EXPECT_EQ(creation(u"MD5"_s, u"folder"_s).status, 2);
    for (const QString& kind : {u"MD5"_s, u"FFP"_s}) {
        const auto outcome = creation(kind, u"/proc/sums"_s); // where root too can write nothing
        EXPECT_NE(outcome.status, 0) << kind.toStdString();
        EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("/proc"));
    }
    EXPECT_NE(run({u"shntool"_s, u"cue"_s, u"--out"_s, u"/proc/show.cue"_s, u"a.flac"_s}).status, 0);
}

TEST_F(BatchFaults, AListThatNamesABadFileEndsWithOne)
{
    write(in(u"a"_s), "text");
    write(in(u"list.md5"_s), "1cb251ec0d568de6a929b520c4aed8d1 *a\n");
    EXPECT_EQ(run({u"checksum"_s, u"verify"_s, u"list.md5"_s}).status, 0);
    write(in(u"a"_s), "other");
    const auto outcome = run({u"checksum"_s, u"verify"_s, u"list.md5"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  list.md5"_s)) << "the row itself is complete";
    write(in(u"list.md5"_s), "no entry\n");
    EXPECT_EQ(run({u"checksum"_s, u"verify"_s, u"list.md5"_s}).status, 1);
    write(in(u"list.md5"_s), "# comments alone\n");
    EXPECT_EQ(run({u"checksum"_s, u"verify"_s, u"list.md5"_s}).status, 1) << "nothing was checked";
}

TEST_F(BatchFaults, ATestSaysWhichFileFailed)
{
    makeFlac(in(u"a.flac"_s));
    QByteArray damaged = contents(in(u"a.flac"_s));
    damaged[damaged.size() - 20] = char(~damaged[damaged.size() - 20]);
    write(in(u"b.flac"_s), damaged);
    const auto outcome = run({u"checksum"_s, u"test"_s, u"--jobs"_s, u"1"_s, u"a.flac"_s, u"b.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  Verify FLAC: a.flac"_s, u"Error  Verify FLAC: b.flac"_s));
}

TEST_F(BatchFaults, ACommandThatGivesUpHalfwayLetsWhatIsQueuedEnd)
{
    zolt::test::run(u"sox"_s, {u"-q"_s, u"-D"_s, u"-n"_s, u"-b"_s, u"16"_s, u"-r"_s, u"44100"_s, in(u"b.wav"_s),
                               u"synth"_s, u"0.1"_s});
    ASSERT_EQ(run({u"encode"_s, u"--to"_s, u"M4A"_s, u"b.wav"_s}).status, 0);
    ASSERT_TRUE(QFile::rename(in(u"b.wav"_s), in(u"a.wav"_s)));
    const auto outcome = run({u"encode"_s, u"--delete-originals"_s, u"--yes"_s, u"a.wav"_s, u"b.m4a"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  a.wav"_s));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("is not answered by"));
    EXPECT_TRUE(contents(in(u"a.flac"_s)).startsWith("fLaC"));
    EXPECT_TRUE(QFile::exists(in(u"b.m4a"_s)));
}

TEST_F(BatchFaults, ToolsSucceedThoughChildrenAreIgnoredByWhoeverStartedIt)
{
    makeFlac(in(u"a.flac"_s));
    const auto before = std::signal(SIGCHLD, SIG_IGN); // inherited by what is started now
    const auto process = start({u"decode"_s, u"a.flac"_s});
    std::signal(SIGCHLD, before);
    EXPECT_THAT(finish(*process).rows, ElementsAre(u"Complete  a.flac"_s));
}

TEST_F(BatchFaults, JsonTellsEachRowWithItsReport)
{
    makeFlac(in(u"a.flac"_s));
    write(in(u"b.flac"_s), "no audio at all");
    const auto outcome = run({u"decode"_s, u"--jobs"_s, u"1"_s, u"--json"_s, u"a.flac"_s, u"b.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    const QStringList lines = outcome.output.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    const QJsonObject good = QJsonDocument::fromJson(lines[0].toUtf8()).object();
    EXPECT_EQ(good[u"title"_s], u"a.flac"_s);
    EXPECT_EQ(good[u"source"_s], in(u"a.flac"_s));
    EXPECT_EQ(good[u"outputs"_s], QJsonArray{in(u"a.wav"_s)});
    EXPECT_EQ(good[u"outcome"_s], u"complete"_s);
    EXPECT_FALSE(good.contains(u"report"_s));
    const QJsonObject bad = QJsonDocument::fromJson(lines[1].toUtf8()).object();
    EXPECT_EQ(bad[u"outcome"_s], u"failed"_s);
    EXPECT_THAT(bad[u"report"_s].toString().toStdString(), HasSubstr("ERROR"));
    EXPECT_EQ(bad[u"bad"_s], 1);
    EXPECT_THAT(bad[u"cause"_s].toString().toStdString(), HasSubstr("damaged"));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("1 complete, 1 failed, 0 canceled, 0:0"));
}

TEST_F(BatchFaults, OddNamesAreDecodedAndShownOnOneLineEach)
{
    const QStringList names{
        u"a: b"_s, u"100% done % "_s, u"\"quoted\" 'both' `ways`"_s, u"line\nbreak\r"_s, u"Ωmega 日本 ñ 🎵"_s,
        u"-o"_s,   u"--help"_s,       u"back\\slash $HOME *?"_s,     u" blanks "_s,      u".hidden"_s};
    QStringList arguments{u"decode"_s, u"--"_s};
    for (const QString& name : names) {
        makeFlac(in(name + u".flac"_s));
        arguments += name + u".flac"_s;
    }
    const auto outcome = run(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.output.toStdString() << outcome.errors.toStdString();
    EXPECT_EQ(outcome.rows.size(), names.size());
    EXPECT_TRUE(outcome.rows.contains(u"Complete  line\\nbreak\\r.flac"_s));
    EXPECT_TRUE(outcome.rows.contains(u"Complete  Ωmega 日本 ñ 🎵.flac"_s));
    for (const QString& name : names)
        EXPECT_TRUE(contents(in(name + u".wav"_s)).startsWith("RIFF"));
}

TEST_F(BatchFaults, ASourceThatVanishesFailsItsRowAlone)
{
    standInForFlac(
        u"touch \"$dir/started\"\nwhile [ ! -e \"$dir/go\" ]; do sleep 0.01; done\nexec \"$real\" \"$@\"\n"_s);
    for (const QString& name : {u"1.flac"_s, u"2.flac"_s, u"3.flac"_s})
        makeFlac(in(name));
    const auto process = start({u"decode"_s, u"--jobs"_s, u"1"_s, u"1.flac"_s, u"2.flac"_s, u"3.flac"_s});
    waitUntil([&] { return QFile::exists(in(u"started"_s)); });
    ASSERT_TRUE(QFile::remove(in(u"2.flac"_s)));
    write(in(u"go"_s), {});
    const auto outcome = finish(*process);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  1.flac"_s, u"Error  2.flac"_s, u"Complete  3.flac"_s));
}

TEST_F(BatchFaults, AFolderThatLinksToItselfIsWalkedOnce)
{
    ASSERT_TRUE(QDir().mkpath(in(u"show/disc"_s)));
    makeFlac(in(u"show/a.flac"_s));
    ASSERT_TRUE(QFile::link(in(u"show"_s), in(u"show/disc/again"_s)));
    const auto outcome = run({u"decode"_s, u"show"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  a.flac"_s));
}

TEST_F(BatchFaults, EachBadInputIsNamedAndTheOthersAreDone)
{
    makeFlac(in(u"good.flac"_s));
    for (const QString& name : {u"noext"_s, u"notes.txt"_s, u"later.wv"_s})
        write(in(name), "no audio");
    const auto outcome =
        run({u"decode"_s, u"good.flac"_s, u"missing.flac"_s, u"noext"_s, u"notes.txt"_s, u"later.xyz.wv2"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  good.flac"_s));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("missing.flac: No such file or directory"));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("noext: decode does not take files of this kind"));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("notes.txt: decode does not take files of this kind"));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("later.xyz.wv2: No such file"));
    EXPECT_THAT(outcome.errors.toStdString(),
                HasSubstr("Some files types were not recognized by this tab and were skipped"));
}

TEST_F(BatchFaults, FilesOfOtherKindsInAFolderAreNoFault)
{
    ASSERT_TRUE(QDir().mkpath(in(u"show"_s)));
    makeFlac(in(u"show/a.flac"_s));
    write(in(u"show/notes.txt"_s), "text");
    ASSERT_EQ(run({u"checksum"_s, u"create"_s, u"show"_s}).status, 0);
    const auto outcome = run({u"checksum"_s, u"verify"_s, u"show"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("2 files of other kinds left alone\n"));
    EXPECT_THAT(outcome.errors.toStdString(), Not(HasSubstr("notes.txt")));
    const auto named = run({u"checksum"_s, u"verify"_s, u"show"_s, u"show/notes.txt"_s});
    EXPECT_EQ(named.status, 1) << "one that is asked for by its name is told";
    EXPECT_THAT(named.errors.toStdString(), HasSubstr("notes.txt: checksum verify does not take files of this kind"));
}

TEST_F(BatchFaults, WhatAWalkFindsAndCannotBeReadIsNamed)
{
    ASSERT_TRUE(QDir().mkpath(in(u"show"_s)));
    makeFlac(in(u"show/good.flac"_s));
    ASSERT_TRUE(QFile::link(in(u"nowhere"_s), in(u"show/broken.flac"_s)));
    const auto outcome = run({u"decode"_s, u"show"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  good.flac"_s));
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("show/broken.flac: No such file"));
}

TEST_F(BatchFaults, ANameThatIsNotUtf8KeepsItsBytes)
{
    ASSERT_TRUE(QDir().mkpath(in(u"show"_s)));
    makeFlac(in(u"a.flac"_s));
    const QByteArray folder = QFile::encodeName(in(u"show/"_s));
    ASSERT_EQ(::rename(QFile::encodeName(in(u"a.flac"_s)).constData(), (folder + "caf\xe9.flac").constData()), 0);
    const auto outcome = run({u"decode"_s, u"--delete-originals"_s, u"--yes"_s, u"show"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors.toStdString();
    EXPECT_THAT(outcome.rows, ElementsAre(u"Complete  café.flac"_s));
    EXPECT_EQ(::access((folder + "caf\xe9.wav").constData(), R_OK), 0);
    EXPECT_NE(::access((folder + "caf\xe9.flac").constData(), R_OK), 0);
}

TEST_F(BatchFaults, NothingToDoIsSaid)
{
    ASSERT_TRUE(QDir().mkpath(in(u"empty"_s)));
    const auto missing = run({u"decode"_s, u"missing.flac"_s});
    EXPECT_EQ(missing.status, 2);
    EXPECT_THAT(missing.errors.toStdString(), HasSubstr("missing.flac"));
    const auto empty = run({u"decode"_s, u"empty"_s});
    EXPECT_EQ(empty.status, 2);
    EXPECT_THAT(empty.errors.toStdString(), HasSubstr("nothing to decode"));
}

TEST_F(BatchFaults, TwoSourcesForOneOutputAreRefusedBeforeTheStart)
{
    ASSERT_TRUE(QDir().mkpath(in(u"d1"_s)) && QDir().mkpath(in(u"d2"_s)) && QDir().mkpath(in(u"out"_s)));
    makeFlac(in(u"d1/01.flac"_s));
    makeFlac(in(u"d2/01.flac"_s));
    const auto outcome =
        run({u"decode"_s, u"--delete-originals"_s, u"--yes"_s, u"--out"_s, u"out"_s, u"d1"_s, u"d2"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("would both be written to"));
    EXPECT_TRUE(QDir(in(u"out"_s)).isEmpty());
    EXPECT_TRUE(QFile::exists(in(u"d1/01.flac"_s)) && QFile::exists(in(u"d2/01.flac"_s)));
}

TEST_F(BatchFaults, OneSourceByTwoWaysIsRefusedBeforeTheStart)
{
    ASSERT_TRUE(QDir().mkpath(in(u"d1"_s)));
    makeFlac(in(u"d1/01.flac"_s));
    ASSERT_TRUE(QFile::link(in(u"d1"_s), in(u"d2"_s)));
    EXPECT_EQ(run({u"decode"_s, u"d1"_s, u"d2"_s}).status, 2);
    EXPECT_EQ(run({u"decode"_s, u"d1/01.flac"_s, u"d1/../d1/01.flac"_s}).status, 2);
    EXPECT_FALSE(QFile::exists(in(u"d1/01.wav"_s)));
}

TEST_F(BatchFaults, AnExistingOutputIsKept)
{
    makeFlac(in(u"a.flac"_s));
    write(in(u"a.wav"_s), "precious");
    const auto outcome = run({u"decode"_s, u"--delete-originals"_s, u"--yes"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(contents(in(u"a.wav"_s)), "precious");
    EXPECT_TRUE(QFile::exists(in(u"a.flac"_s)));
}

TEST_F(BatchFaults, AFileThatIsNoFlacFailsWithTheToolsText)
{
    write(in(u"a.flac"_s), "no audio at all");
    const auto outcome = run({u"decode"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.rows, ElementsAre(u"Error  a.flac"_s));
    EXPECT_THAT(outcome.output.toStdString(), HasSubstr("\n\na.flac\n"));
    EXPECT_THAT(outcome.output.toStdString(), HasSubstr("ERROR"));
}

struct OddTool
{
    const char* name;
    const char* script;
    const char* row;
};

void PrintTo(const OddTool& tool, std::ostream* out)
{
    *out << tool.name;
}

class BatchOddTool : public BatchTest, public testing::WithParamInterface<OddTool>
{
};

TEST_P(BatchOddTool, EndsItsRowAndTheQueueGoesOn)
{
    standInForFlac(u"case \"$*\" in */odd.flac*) ;; *) exec \"$real\" \"$@\";; esac\n"_s +
                   QString::fromUtf8(GetParam().script));
    makeFlac(in(u"odd.flac"_s));
    makeFlac(in(u"other.flac"_s));
    const auto outcome = run({u"decode"_s, u"--jobs"_s, u"1"_s, u"odd.flac"_s, u"other.flac"_s});
    EXPECT_THAT(outcome.rows,
                ElementsAre(QString::fromUtf8(GetParam().row) + u"  odd.flac"_s, u"Complete  other.flac"_s));
    EXPECT_TRUE(QFile::exists(in(u"odd.flac"_s)));
}

INSTANTIATE_TEST_SUITE_P(
    Tools, BatchOddTool,
    testing::Values(OddTool{"DiesByASignal", "kill -KILL $$", "Error"},
                    OddTool{"FloodsThePipe", "head -c 20000000 /dev/zero; exit 0", "Complete"},
                    OddTool{"FloodsThePipeAndFails", "yes '1: 2% ' | head -c 300000; exit 3", "Error"},
                    OddTool{"PrintsNothing", "exit 0", "Complete"},
                    OddTool{"BreaksACharacter", "printf '\\303'; sleep 0.1; printf '\\251'; exit 1", "Error"},
                    OddTool{"MakesTheParserThrow", "echo '50% of nothing'; exit 0", "Complete"},
                    OddTool{"ClosesItsOutputEarly", "exec >/dev/null 2>&1; sleep 0.2; exit 4", "Error"}),
    [](const auto& each) { return each.param.name; });

TEST_F(BatchFaults, AParserFaultIsLogged)
{
    standInForFlac(u"echo '50% of nothing'\n"_s);
    makeFlac(in(u"a.flac"_s));
    const auto outcome = run({u"decode"_s, u"a.flac"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.errors.toStdString(), HasSubstr("zolt."));
}
