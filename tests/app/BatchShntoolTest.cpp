// zolt-batch shntool, zolt-batch fix
#include "BatchTesting.h"

#include <QDir>
#include <QFile>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

namespace {

class BatchShntool : public BatchTest
{
protected:
    BatchShntool() { QDir().mkpath(in(u"out"_s)); }

    /// CD audio of so many frames.
    QString wav(const QString& name, int frames = 44100 + 77)
    {
        const QStringList arguments{u"-q"_s,   u"-D"_s, u"-r"_s, u"44100"_s, u"-n"_s,    u"-b"_s,
                                    u"16"_s,   u"-c"_s, u"2"_s,  in(name),   u"synth"_s, QString::number(frames) + u's',
                                    u"sine"_s, u"300"_s};
        EXPECT_EQ(QProcess::execute(u"sox"_s, arguments), 0);
        return name;
    }
    QString text(const QString& name, const QByteArray& content)
    {
        write(in(name), content);
        return name;
    }
    BatchOutcome shntool(const QString& command, const QStringList& arguments)
    {
        return run(QStringList{u"shntool"_s, command} + arguments);
    }
    QStringList outputs() const { return QDir(in(u"out"_s)).entryList(QDir::Files, QDir::Name); }
};

} // namespace

TEST_F(BatchShntool, LenPrintsTheReportOfItsForm)
{
    const QStringList files{wav(u"d1t01.wav"_s, 44100), wav(u"d1t02.wav"_s, 88200)};
    const auto plain = shntool(u"len"_s, files);
    EXPECT_EQ(plain.status, 0) << plain.errors.toStdString();
    EXPECT_THAT(plain.output.toStdString(), HasSubstr("d1t02.wav"));
    EXPECT_THAT(plain.output.toStdString(), HasSubstr("(2 files)"));
    const auto named = shntool(
        u"len"_s, QStringList{u"--by"_s, u"fileset"_s, u"--names"_s, text(u"names.txt"_s, "Intro\n\nJam\n")} + files);
    EXPECT_THAT(named.output.toStdString(), HasSubstr("01. Intro  00:01.00\n02. Jam    00:02.00\n\nTotal: 00:03.00"));
    const auto disc = shntool(u"len"_s, QStringList{u"--by"_s, u"disc"_s, u"--setlist"_s,
                                                    text(u"setlist.txt"_s, "Live!\n1. Opener\n2. Closer\n")} +
                                            files);
    EXPECT_THAT(disc.output.toStdString(), HasSubstr("Disc 1\n\n01. Opener  00:01.00\n02. Closer  00:02.00\n"));
}

TEST_F(BatchShntool, NamesThatCannotBeReadAreToldBeforeAnythingStarts)
{
    const auto missing = shntool(u"len"_s, {u"--names"_s, u"nowhere.txt"_s, wav(u"a.wav"_s)});
    EXPECT_EQ(missing.status, 2);
    EXPECT_THAT(missing.errors.toStdString(), HasSubstr("nowhere.txt cannot be read: No such file or directory"));
    const auto latin = shntool(
        u"split"_s, {u"--out"_s, u"out"_s, u"--points"_s, text(u"show.cue"_s, "TITLE \"\xe9t\xe9\"\n"), u"a.wav"_s});
    EXPECT_EQ(latin.status, 2);
    EXPECT_THAT(latin.errors.toStdString(), HasSubstr("show.cue is not UTF-8; save it as UTF-8"));
}

TEST_F(BatchShntool, CueAndSplitGoThereAndBack)
{
    const QStringList files{wav(u"a.wav"_s, 588 * 75), wav(u"b.wav"_s, 588 * 75)};
    EXPECT_EQ(shntool(u"cue"_s, QStringList{u"--out"_s, u"show.cue"_s} + files).status, 0);
    EXPECT_THAT(contents(in(u"show.cue"_s)).toStdString(), HasSubstr("TRACK 02 AUDIO\n    INDEX 01 0:01:00"));
    const auto joined = shntool(u"join"_s, QStringList{u"--format"_s, u"wav"_s, u"--out"_s, u"out"_s} + files);
    EXPECT_THAT(joined.rows, ElementsAre(u"Complete  Joining Files"_s));
    const auto split = shntool(
        u"split"_s, {u"--format"_s, u"wav"_s, u"--out"_s, u"out"_s, u"--points"_s, u"show.cue"_s, u"out/joined.wav"_s});
    EXPECT_THAT(split.rows, ElementsAre(u"Complete  joined.wav"_s));
    EXPECT_THAT(outputs(), ElementsAre(u"joined.wav"_s, u"split-track01.wav"_s, u"split-track02.wav"_s));
    EXPECT_EQ(contents(in(u"out/split-track02.wav"_s)), contents(in(u"b.wav"_s)));
}

TEST_F(BatchShntool, RowsOfOneFileEachNameIt)
{
    const auto padded = shntool(u"pad"_s, {u"--out"_s, u"out"_s, wav(u"a.wav"_s), wav(u"b.wav"_s)});
    EXPECT_THAT(padded.rows, UnorderedElementsAre(u"Complete  Running SHNTool Pad: a.wav"_s,
                                                  u"Complete  Running SHNTool Pad: b.wav"_s));
    EXPECT_THAT(outputs(), ElementsAre(u"a-padded.flac"_s, u"b-padded.flac"_s));
    const auto stripped = run({u"--json"_s, u"shntool"_s, u"strip"_s, u"--out"_s, u"out"_s, u"a.wav"_s});
    EXPECT_EQ(stripped.status, 1) << "there is nothing to strip";
    EXPECT_THAT(stripped.output.toStdString(), HasSubstr("\"source\":\"" + in(u"a.wav"_s).toStdString()));
}

TEST_F(BatchShntool, CmpAndInfoPrintTheirReports)
{
    wav(u"a.wav"_s);
    ASSERT_TRUE(QFile::copy(in(u"a.wav"_s), in(u"b.wav"_s)));
    EXPECT_THAT(shntool(u"cmp"_s, {u"a.wav"_s, u"b.wav"_s}).output.toStdString(), HasSubstr("identical"));
    EXPECT_THAT(shntool(u"info"_s, {u"a.wav"_s}).output.toStdString(), HasSubstr("CD quality:                 yes"));
}

TEST_F(BatchShntool, FixWritesListsAndDeletesOriginalsWhereTold)
{
    const QStringList files{wav(u"d1t01.wav"_s), wav(u"d2t01.wav"_s)};
    const auto fixed = run(QStringList{u"fix"_s, u"--format"_s, u"wav"_s, u"--out"_s, u"out"_s, u"--md5"_s, u"disc"_s,
                                       u"--delete-originals"_s, u"--yes"_s} +
                           files);
    EXPECT_EQ(fixed.status, 0) << fixed.errors.toStdString();
    EXPECT_THAT(outputs(), ElementsAre(u"Disc1.md5"_s, u"Disc2.md5"_s, u"d1t01.wav"_s, u"d2t01.wav"_s));
    EXPECT_FALSE(QFile::exists(in(files[0])));
    const auto one = run({u"fix"_s, u"--out"_s, u"out"_s, u"--md5"_s, u"one"_s, wav(u"a.wav"_s)});
    EXPECT_EQ(one.status, 0) << one.errors.toStdString();
    EXPECT_THAT(contents(in(u"out/md5sum.md5"_s)).toStdString(), HasSubstr(" *a.flac\n"));
    EXPECT_TRUE(QFile::exists(in(u"a.wav"_s)));
}
