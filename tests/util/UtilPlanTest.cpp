#include "UtilFixture.h"

#include <QProcess>

#include "shell/Outlook.h"
#include "support/SampleFlac.h"
#include "util/DiscVolumes.h"
#include "util/UtilPlan.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class UtilPlanTest : public UtilTest
{
protected:
    const std::atomic<bool> stop = false;
};

} // namespace

TEST_F(UtilPlanTest, DeEmphasisPassesOverWhatIsNotWavOrAiff)
{
    choose(UtilTab::deEmphasis);
    tab.setDestination(u"/out"_s);
    tab.addFiles({u"/a/x.wav"_s, u"/b/x.wav"_s, u"/b/y.flac"_s});
    const WorkPlan plan = tab.workPlan();
    ASSERT_EQ(plan.items.size(), 2U);
    EXPECT_EQ(plan.items[0].outputs, QStringList{u"/out/x-deemph.wav"_s});
    EXPECT_EQ(plan.passedOver, QList<qsizetype>{2});
    EXPECT_EQ(plan.tools, QStringList{u"sox"_s});
    EXPECT_TRUE(outlookOf(plan, LocalDisk(), stop).problem(OutlookProblem::Kind::Collision)); // only names count
}

TEST_F(UtilPlanTest, ADesktopsViewOfADiscIsRefused)
{
    choose(UtilTab::extraction);
    tab.addFiles({u"/run/user/1/gvfs/cdda:host=sr0/Track 1.wav"_s});
    EXPECT_TRUE(tab.workPlan().items.empty());
    EXPECT_TRUE(intentionOf(tab.workPlan()).contains(u"Tracks of Disc"));
}

TEST_F(UtilPlanTest, ExtractionForeseesTheNames)
{
    choose(UtilTab::extraction);
    tab.setDestination(u"/out"_s);
    tab.addFiles({folderOfDisc(u"sr0"_s) + u"/1 Intro.aiff"_s});
    EXPECT_EQ(tab.workPlan().items[0].outputs, QStringList{u"/out/01 Intro.wav"_s});
    EXPECT_EQ(tab.workPlan().tools, QStringList({u"cdda2wav"_s, u"diskutil"_s}));
}

TEST_F(UtilPlanTest, AllTracksTogetherAreOneOutputThatIsWrittenOver)
{
    choose(UtilTab::extraction);
    tab.setDestination(u"/out"_s);
    tab.setOneTrack(true);
    tab.addFiles({folderOfDisc(u"sr0"_s) + u"/1 a.wav"_s});
    EXPECT_EQ(tab.workPlan().items[0].outputs, QStringList{u"/out/01 a.wav"_s}) << "one track bears its name";
    tab.addFiles({folderOfDisc(u"sr0"_s) + u"/2 b.wav"_s});
    for (const WorkItem& item : tab.workPlan().items) {
        EXPECT_EQ(item.outputs, QStringList{u"/out/audio.wav"_s});
        EXPECT_TRUE(item.sharesOutput);
        EXPECT_EQ(item.existing, WorkItem::Existing::Overwritten);
    }
}

TEST_F(UtilPlanTest, TracksBehindAGapAreNoneOfThoseThatAreRead)
{
    choose(UtilTab::extraction);
    for (const char16_t* name : {u"1 a.wav", u"2 b.wav", u"4 d.wav", u"5 e.wav"})
        tab.addFiles({folderOfDisc(u"sr0"_s) + u'/' + QString::fromUtf16(name)});
    const WorkPlan plan = tab.workPlan();
    EXPECT_EQ(plan.items.size(), 2U);
    EXPECT_EQ(plan.words, u"2 tracks to WAV"_s);
    EXPECT_EQ(plan.cautions,
              QStringList{u"2 tracks, such as 4 d.wav, lie behind a gap: read the tracks ahead of it first"_s});
}

TEST_F(UtilPlanTest, NoTrackIsOfferedToBeLeftOut)
{
    choose(UtilTab::extraction);
    tab.setDestination(folder());
    file(u"01 a.wav"_s);
    tab.addFiles({folderOfDisc(u"sr0"_s) + u"/1 a.wav"_s, folderOfDisc(u"sr0"_s) + u"/2 b.wav"_s});
    const Outlook outlook = outlookOf(tab.workPlan(), LocalDisk(), stop);
    ASSERT_TRUE(outlook.problem(OutlookProblem::Kind::Existing));
    for (const OutlookProblem& problem : outlook.problems)
        EXPECT_TRUE(problem.rows.isEmpty()) << problem.text.toStdString();
}

TEST_F(UtilPlanTest, WhatIsMountedButNoDriveForDiscsIsTold)
{
    choose(UtilTab::extraction);
    tab.addFiles({file(u"1 a.wav"_s)});
    EXPECT_TRUE(outlookOf(tab.workPlan(), LocalDisk(), stop)
                    .sentences()
                    .contains(u"The files are not on the disc of a drive: nothing will be read"_s));
    tab.clearFiles();
    tab.addFiles({folderOfDisc(u"sr7"_s) + u"/1 a.wav"_s});
    EXPECT_TRUE(outlookOf(tab.workPlan(), LocalDisk(), stop)
                    .sentences()
                    .contains(u"sr7 is no drive for discs: it would be unmounted, and nothing read"_s));
}

TEST_F(UtilPlanTest, GainTellsAFileThatIsNoFlac)
{
    choose(UtilTab::replayGain);
    makeFlac(pathOf(u"b.flac"_s));
    tab.addFiles({file(u"a.flac"_s, "no audio"), pathOf(u"b.flac"_s), pathOf(u"gone.flac"_s)});
    QList<qsizetype> rows;
    for (const OutlookProblem& problem : outlookOf(tab.workPlan(), LocalDisk(), stop).problems) {
        if (problem.kind == OutlookProblem::Kind::Caution) rows += problem.rows;
    }
    EXPECT_EQ(rows, (QList<qsizetype>{0, 2})) << "the second is the first with a rate";
}

TEST_F(UtilPlanTest, GainForeseesWhatTheToolDeclines)
{
    choose(UtilTab::replayGain); // without the tool: the files' first bytes tell it
    makeFlac(pathOf(u"a.flac"_s));
    makeFlac(pathOf(u"b.flac"_s));
    tab.addFiles({pathOf(u"a.flac"_s), pathOf(u"b.flac"_s)});
    EXPECT_FALSE(outlookOf(tab.workPlan(), LocalDisk(), stop).problem(OutlookProblem::Kind::Caution));
    QProcess::execute(u"sox"_s, {u"-q"_s, u"-n"_s, u"-r"_s, u"48000"_s, u"-c"_s, u"2"_s, pathOf(u"c.flac"_s),
                                 u"synth"_s, u"0.1"_s, u"noise"_s});
    QProcess::execute(u"sox"_s, {u"-q"_s, u"-n"_s, u"-r"_s, u"44100"_s, u"-c"_s, u"3"_s, pathOf(u"d.flac"_s),
                                 u"synth"_s, u"0.1"_s, u"noise"_s});
    tab.addFiles({pathOf(u"c.flac"_s), pathOf(u"d.flac"_s)});
    const Outlook outlook = outlookOf(tab.workPlan(), LocalDisk(), stop);
    QList<qsizetype> rows;
    for (const OutlookProblem& problem : outlook.problems)
        rows += problem.rows;
    EXPECT_EQ(rows, (QList<qsizetype>{2, 3}));
}

TEST_F(UtilPlanTest, TakingGainAwayNeedsNothingOfTheFiles)
{
    choose(UtilTab::replayGain);
    tab.replayGainMatrix->clickCell(1, 0);
    tab.addFiles({file(u"a.flac"_s, "no audio")});
    EXPECT_FALSE(outlookOf(tab.workPlan(), LocalDisk(), stop).problem(OutlookProblem::Kind::Caution));
}

TEST_F(UtilPlanTest, DeEmphasisWritesOverWithAboutAsMuch)
{
    choose(UtilTab::deEmphasis);
    tab.setDestination(u"/out"_s);
    tab.addFiles({u"/a/x.wav"_s});
    const WorkItem item = tab.workPlan().items.at(0);
    EXPECT_EQ(item.existing, WorkItem::Existing::Overwritten);
    EXPECT_EQ(item.outputSize, WorkItem::Size::LikeSource);
}

TEST_F(UtilPlanTest, ADiscIsOneImageOfAllFiles)
{
    WorkPlan plan;
    plan.files = {u"/a/x.wav"_s, u"/a/y.flac"_s};
    utilPlan::authoring(plan, u"/out"_s);
    EXPECT_TRUE(plan.indivisible);
    EXPECT_EQ(plan.tools, QStringList({u"dvda"_s, u"mkisofs"_s}));
    EXPECT_EQ(plan.words, u"2 files to the image of a DVD-Audio disc"_s);
    ASSERT_EQ(plan.items.size(), 2U);
    for (const WorkItem& item : plan.items) {
        EXPECT_EQ(item.outputs, QStringList{u"/out/image.iso"_s});
        EXPECT_TRUE(item.sharesOutput);
        EXPECT_EQ(item.existing, WorkItem::Existing::Overwritten);
        EXPECT_EQ(item.outputSize, WorkItem::Size::PlainAudio);
    }
}

TEST_F(UtilPlanTest, OfADriveThatIsThereNothingIsTold)
{
    file(u"drives/sr7/size"_s);
    qputenv("ZOLT_DRIVES", pathOf(u"drives"_s).toUtf8());
    choose(UtilTab::extraction);
    tab.addFiles({folderOfDisc(u"sr7"_s) + u"/1 a.wav"_s});
    const QString told = outlookOf(tab.workPlan(), LocalDisk(), stop).sentences().join(u'\n');
    qunsetenv("ZOLT_DRIVES");
    EXPECT_FALSE(told.contains(u"drive")) << told.toStdString();
}

TEST_F(UtilPlanTest, EveryCommandSaysWhatItWillDo)
{
    tab.addFiles({u"/a.wav"_s, u"/b.flac"_s});
    choose(UtilTab::renaming);
    EXPECT_EQ(intentionOf(tab.workPlan()), u"Give 2 files a prefix and a number"_s);
    choose(UtilTab::replayGain);
    EXPECT_EQ(intentionOf(tab.workPlan()), u"Add replay gain to 1 FLAC file"_s);
    tab.replayGainMatrix->clickCell(1, 0);
    EXPECT_EQ(intentionOf(tab.workPlan()), u"Remove replay gain from 1 FLAC file"_s);
    choose(UtilTab::deEmphasis);
    EXPECT_EQ(intentionOf(tab.workPlan()), u"De-emphasize 1 WAV file in a folder that you choose"_s);
    tab.commandMatrix->deselectAllCells();
    EXPECT_EQ(intentionOf(tab.workPlan()), u"Choose what to do with the files"_s);
}

TEST_F(UtilPlanTest, RenamingTellsAFolderInWhichNothingCanBeRenamed)
{
    choose(UtilTab::renaming);
    tab.addFiles({file(u"a.wav"_s), u"/no-such-folder/b.wav"_s, u"/no-such-folder/c.wav"_s});
    const auto problems = outlookOf(tab.workPlan(), LocalDisk(), stop).problems;
    const auto found = std::find_if(problems.begin(), problems.end(),
                                    [](const auto& each) { return each.kind == OutlookProblem::Kind::Caution; });
    ASSERT_NE(found, problems.end());
    EXPECT_EQ(found->text, u"The folder /no-such-folder cannot be written to: its files keep their names"_s);
    EXPECT_EQ(found->rows.size(), 2);
}
