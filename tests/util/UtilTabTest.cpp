#include "UtilFixture.h"

#include "engine/ZOLTAsyncNSTask.h"
#include "platform/audio/AudioSamples.h"
#include "support/Programs.h"
#include "support/SampleFlac.h"
#include "util/DiscVolumes.h"

#include <semaphore>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class UtilTabTest : public UtilTest
{
protected:
    UtilTabTest()
    {
        tools_.installReal(u"metaflac"_s, u"/usr/bin/metaflac"_s);
        tab.displayRelevantOptions();
    }
    QString wav(const QString& name, int frames, uint32_t bits = 16, double rate = 44100, uint32_t channels = 2)
    {
        return writeFile(pathOf(name), waveFile(makeSamples(rate, channels, bits, frames)));
    }
    void chooseDvd()
    {
        panels_.answerAlert(alertReply::defaultButton);
        choose(UtilTab::dvdDisc);
    }
    bool showsDvd() const
    {
        return !tab.dvdAudioDiscTime->isHidden() && !tab.dvdAudioDiscSize->isHidden() &&
               !tab.dvdAudioDiscTimeStaticText->isHidden() && !tab.dvdAudioDiscSizeStaticText->isHidden();
    }
    /// Lets what happens in a moment happen.
    void moment(const std::function<bool()>& happened) { EXPECT_TRUE(runUntil(happened)); }
};

} // namespace

TEST_F(UtilTabTest, LengthsAreMinutesAndSeconds)
{
    EXPECT_EQ(UtilTab::parseTimeAsString(65.9), u"1:05"_s);
    EXPECT_EQ(UtilTab::parseTimeAsString(90), u"1:30"_s);
    EXPECT_EQ(UtilTab::parseTimeAsString(0), u"0:00"_s);
    EXPECT_EQ(UtilTab::parseTimeAsString(69), u"1:09"_s);
    EXPECT_EQ(UtilTab::parseTimeAsString(70), u"1:10"_s);
    EXPECT_EQ(UtilTab::parseTimeAsString(3 * 3600 + 59.99), u"180:59"_s);
}

TEST_F(UtilTabTest, SizesCountAMegabyteAsAMillion)
{
    EXPECT_EQ(UtilTab::parseSizeFromTimeAsStringSampleRateBitDepthNumChannels(90, 44100, 16, 2), u"15.88 MB"_s);
}

TEST_F(UtilTabTest, EachCommandShowsWhatBelongsToIt)
{
    EXPECT_FALSE(tab.oneTrackButton->isHidden()); // extraction is the first choice
    EXPECT_TRUE(tab.replayGainMatrix->isHidden());
    EXPECT_FALSE(showsDvd());
    choose(UtilTab::replayGain);
    EXPECT_TRUE(tab.oneTrackButton->isHidden());
    EXPECT_TRUE(tab.tracksOfDiscButton->isHidden());
    EXPECT_FALSE(tab.replayGainMatrix->isHidden());
    choose(UtilTab::deEmphasis);
    EXPECT_TRUE(tab.replayGainMatrix->isHidden());
}

TEST_F(UtilTabTest, EveryKindOfFileMayEnter)
{
    tab.addFiles({u"/a.jpg"_s, u"/b"_s, u"/c.flac"_s});
    EXPECT_EQ(tab.fileNames().count(), 3);
    EXPECT_TRUE(panels_.alerts().empty());
}

TEST_F(UtilTabTest, TheDvdCommandAsksAndThenScansAndGrowsTheTable)
{
    tab.addFiles({wav(u"a.wav"_s, 44100 * 2), wav(u"b.wav"_s, 44100 * 3)});
    chooseDvd();
    ASSERT_EQ(panels_.alerts().size(), 1U);
    EXPECT_EQ(panels_.alerts()[0].title,
              u"You have chosen \"DVD Audio Disc.\" This will scan the files in the list for format information. Are "
              "you sure you want to continue?"_s);
    EXPECT_EQ(panels_.alerts()[0].buttons, QStringList({u"Yes"_s, u"No"_s}));
    EXPECT_TRUE(showsDvd());
    EXPECT_EQ(tab.tableView->columns(),
              (std::vector<TableColumn>{{u"fileName"_s}, {u"length (min)"_s}, {u"sample rate"_s}, {u"bit depth"_s}}));
    EXPECT_TRUE(tab.tableView->showsHeader());
    EXPECT_EQ(tab.dvdAudioDiscTime->stringValue(), u"0:05"_s);
    EXPECT_EQ(tab.dvdAudioDiscSize->stringValue(), u"0.88 MB"_s);
    EXPECT_EQ(tab.tableViewObjectValueForTableColumnRow(0, 1), u"b.wav"_s);
    EXPECT_EQ(tab.tableViewObjectValueForTableColumnRow(1, 1), u"0:03"_s);
    EXPECT_EQ(tab.tableViewObjectValueForTableColumnRow(2, 1), u"44100"_s);
    EXPECT_EQ(tab.tableViewObjectValueForTableColumnRow(3, 1), u"16"_s);
    EXPECT_EQ(tab.tableViewObjectValueForTableColumnRow(4, 1), QString());
}

TEST_F(UtilTabTest, WithoutFormatsTheOtherColumnsAreEmpty)
{
    tab.addFiles({u"/a.wav"_s});
    EXPECT_EQ(tab.tableViewObjectValueForTableColumnRow(1, 0), QString());
}

TEST_F(UtilTabTest, LeavingTheDvdCommandShrinksTheTable)
{
    chooseDvd();
    choose(UtilTab::renaming);
    EXPECT_EQ(tab.tableView->columns(), std::vector<TableColumn>{TableColumn()});
    EXPECT_FALSE(tab.tableView->showsHeader());
    EXPECT_FALSE(showsDvd());
}

TEST_F(UtilTabTest, TheHeaderThatIsPutBackIsTheTablesOwn)
{
    UtilTab fresh;
    const auto header = fresh.tableView->headerView();
    ASSERT_TRUE(header);
    fresh.displayRelevantOptions();
    EXPECT_EQ(fresh.tableView->headerView(), nullptr);
    panels_.answerAlert(alertReply::defaultButton);
    fresh.commandMatrix->selectTitle(UtilTab::dvdDisc);
    fresh.displayRelevantOptions();
    EXPECT_EQ(fresh.tableView->headerView(), header);
}

TEST_F(UtilTabTest, TheTableIsDrawnAnewWithEachChoiceAndAtAnotherPlace)
{
    const unsigned before = tab.scrollView->displays();
    choose(UtilTab::renaming);
    EXPECT_EQ(tab.scrollView->displays(), before + 1);
    EXPECT_TRUE(tab.scrollView->frame().isEmpty());
    tab.resizeFileTable({10, 20, 300, 200});
    EXPECT_EQ(tab.scrollView->frame(), QRectF(10, 20, 300, 200));
    EXPECT_EQ(tab.scrollView->displays(), before + 2);
}

TEST_F(UtilTabTest, ASecondClickTurnsTheDvdCommandOff)
{
    chooseDvd();
    choose(UtilTab::dvdDisc);
    EXPECT_FALSE(showsDvd());
    EXPECT_EQ(tab.command(), UtilTab::dvdDisc); // until a moment later
    moment([this] { return tab.commandMatrix->selectedIndex() == -1; });
    chooseDvd(); // a third asks again
    EXPECT_EQ(panels_.alerts().size(), 2U);
}

TEST_F(UtilTabTest, ComingBackToTheTabTurnsTheDvdCommandOffToo)
{
    chooseDvd();
    tab.displayRelevantOptions();
    moment([this] { return tab.commandMatrix->selectedIndex() == -1; });
    tab.addFiles({u"/a"_s});
    tab.executeCommand(nullptr); // nothing is chosen
    EXPECT_EQ(tab.fileNames().count(), 1);
}

TEST_F(UtilTabTest, ANoBringsTheFormerCommandBack)
{
    choose(UtilTab::replayGain);
    panels_.answerAlert(alertReply::alternateButton);
    choose(UtilTab::dvdDisc);
    EXPECT_FALSE(showsDvd());
    moment([this] { return tab.command() == UtilTab::replayGain; });
    panels_.answerAlert(alertReply::alternateButton);
    choose(UtilTab::dvdDisc); // the former one is still remembered
    moment([this] { return tab.command() == UtilTab::replayGain; });
}

TEST_F(UtilTabTest, FilesThatComeLaterHaveTheWholeListScanned)
{
    chooseDvd();
    tab.addFiles({wav(u"a.wav"_s, 44100)});
    EXPECT_EQ(tab.formatObjects().size(), 1U);
    tab.addFiles({wav(u"b.wav"_s, 44100)});
    EXPECT_EQ(tab.formatObjects().size(), 2U);
    EXPECT_EQ(tab.dvdAudioDiscTime->stringValue(), u"0:02"_s);
    tab.clearFiles();
    EXPECT_TRUE(tab.formatObjects().empty());
    EXPECT_EQ(tab.dvdAudioDiscTime->stringValue(), QString());
    EXPECT_EQ(tab.dvdAudioDiscSize->stringValue(), QString());
}

TEST_F(UtilTabTest, OneAiffEmptiesTheListAndThePageSaysWhy)
{
    chooseDvd();
    tab.addFiles({wav(u"a.wav"_s, 100), file(u"b.AIF"_s)});
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(panels_.alerts().size(), 1U); // the question alone
    EXPECT_EQ(tab.scanNote->stringValue(),
              u"The list was emptied: AIFF files such as b.AIF cannot go on a DVD-Audio disc"_s);
    tab.addFiles({wav(u"c.wav"_s, 100)});
    EXPECT_EQ(tab.scanNote->stringValue(), QString());
}

TEST_F(UtilTabTest, AFileThatIsNoAudioEmptiesTheList)
{
    chooseDvd();
    tab.addFiles({file(u"b.wav"_s, "no audio")});
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(tab.scanNote->stringValue(), u"The list was emptied: b.wav cannot be read as audio"_s);
}

TEST_F(UtilTabTest, FormatsThatDifferAreTold)
{
    chooseDvd();
    const QString plain = wav(u"a.wav"_s, 100);
    for (const QString& other :
         {wav(u"b.wav"_s, 100, 24), wav(u"c.wav"_s, 100, 16, 48000), wav(u"d.wav"_s, 100, 16, 44100, 1)}) {
        panels_.answerAlert(alertReply::defaultButton);
        tab.addFiles({plain, other});
        EXPECT_EQ(panels_.alerts().back().title,
                  u"The Files in the list must match in sample rate, bit depth and number of channels."_s);
        EXPECT_EQ(panels_.alerts().back().buttons, QStringList{u"OK"_s});
        EXPECT_TRUE(tab.fileNames().isEmpty()) << other.toStdString();
        EXPECT_TRUE(tab.formatObjects().empty());
        EXPECT_EQ(tab.dvdAudioDiscTime->stringValue(), QString());
    }
    EXPECT_EQ(panels_.alerts().size(), 4U);
}

TEST_F(UtilTabTest, FlacFilesTellTheirFormatThroughMetaflac)
{
    makeFlac(pathOf(u"a.flac"_s), 2.0);
    chooseDvd();
    tab.addFiles({pathOf(u"a.flac"_s), wav(u"b.wav"_s, 44100)});
    EXPECT_EQ(tab.dvdAudioDiscTime->stringValue(), u"0:03"_s);
}

TEST_F(UtilTabTest, ReplayGainGoesToAllFlacFilesAtOnce)
{
    holdQueue();
    choose(UtilTab::replayGain);
    tab.addFiles({u"/a.flac"_s, u"/b.wav"_s, u"/c.FLAC"_s});
    tab.executeCommand(nullptr);
    const auto tasks = queued<ZOLTAsyncNSTask>();
    ASSERT_EQ(tasks.size(), 1U);
    EXPECT_EQ(tasks[0]->arguments(), QStringList({u"--add-replay-gain"_s, u"/a.flac"_s, u"/c.FLAC"_s}));
    EXPECT_EQ(tasks[0]->title(), u"Adding FLAC replay gain"_s);
    EXPECT_EQ(tasks[0]->textField()->stringValue(), u"Adding FLAC replay gain"_s);
    EXPECT_EQ(tasks[0]->results(), nullptr);
    EXPECT_TRUE(tasks[0]->progressIndicator()->isIndeterminate() && tasks[0]->progressIndicator()->isAnimating());
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(UtilTabTest, ReplayGainIsTakenAwayFromTheOneFlacFile)
{
    holdQueue();
    choose(UtilTab::replayGain);
    tab.replayGainMatrix->clickCell(1, 0);
    tab.addFiles({u"/a.flac"_s, u"/b.wav"_s});
    tab.executeCommand(nullptr);
    EXPECT_EQ(queued<ZOLTAsyncNSTask>()[0]->arguments(), QStringList({u"--remove-replay-gain"_s, u"/a.flac"_s}));
    EXPECT_EQ(queued<ZOLTAsyncNSTask>()[0]->title(), u"Removing FLAC replay gain"_s);
}

TEST_F(UtilTabTest, WithoutFlacFilesReplayGainSaysSo)
{
    choose(UtilTab::replayGain);
    tab.addFiles({u"/b.wav"_s});
    panels_.answerAlert(1);
    tab.executeCommand(nullptr);
    EXPECT_EQ(panels_.alerts()[0].title, u"Error"_s);
    EXPECT_EQ(panels_.alerts()[0].message, u"No Flac files in file list"_s);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(UtilTabTest, ReplayGainIsThatOfARunByHand)
{
    const QString mine = pathOf(u"a.flac"_s), hand = pathOf(u"hand.flac"_s);
    makeFlac(mine, 2.0);
    ASSERT_TRUE(QFile::copy(mine, hand));
    int status = -1;
    run(u"metaflac"_s, {u"--add-replay-gain"_s, hand}, &status);
    ASSERT_EQ(status, 0);
    const QByteArray sound = run(u"metaflac"_s, {u"--show-md5sum"_s, mine});
    choose(UtilTab::replayGain);
    tab.addFiles({mine});
    tab.executeCommand(nullptr);
    runQueue();
    for (const QString& tag : {u"REPLAYGAIN_TRACK_GAIN"_s, u"REPLAYGAIN_TRACK_PEAK"_s, u"REPLAYGAIN_ALBUM_GAIN"_s}) {
        const QByteArray value = run(u"metaflac"_s, {u"--show-tag="_s + tag, mine});
        EXPECT_FALSE(value.isEmpty());
        EXPECT_EQ(value, run(u"metaflac"_s, {u"--show-tag="_s + tag, hand}));
    }
    EXPECT_EQ(run(u"metaflac"_s, {u"--show-md5sum"_s, mine}), sound);
    EXPECT_EQ(run(u"flac"_s, {u"-t"_s, u"-s"_s, mine}, &status), QByteArray());
    EXPECT_EQ(status, 0);
}

TEST_F(UtilTabTest, AnEmptyListDoesNothing)
{
    for (const QString& title : {UtilTab::renaming, UtilTab::replayGain, UtilTab::deEmphasis}) {
        choose(title);
        tab.executeCommand(nullptr);
    }
    EXPECT_TRUE(panels_.alerts().empty() && panels_.openRequests().empty());
}

TEST_F(UtilTabTest, ADriveWithoutADiscSaysSo)
{
    tab.addTracksOfDiscIn({u"/dev/no-such-drive"_s});
    EXPECT_FALSE(tab.tracksOfDiscButton->isEnabled());
    EXPECT_EQ(tab.scanNote->stringValue(), u"Reading the disc"_s);
    moment([this] { return tab.tracksOfDiscButton->isEnabled(); });
    EXPECT_EQ(tab.scanNote->stringValue(), u"/dev/no-such-drive tells no tracks: No such file or directory"_s);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(UtilTabTest, OneDvdTaskTakesTheWholeList)
{
    holdQueue();
    chooseDvd();
    tab.addFiles({wav(u"a.wav"_s, 100), wav(u"b.wav"_s, 100)});
    panels_.answerOpenPanel(std::nullopt);
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab.fileNames().count(), 2);
    panels_.answerOpenPanel(QStringList{folder()});
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 1);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(UtilTabTest, RowsThatGoTakeTheirFormatsAndTheirShareOfTheTotals)
{
    chooseDvd();
    tab.addFiles({wav(u"a.wav"_s, 44100), wav(u"b.wav"_s, 44100 * 2), wav(u"c.wav"_s, 44100 * 4)});
    tab.removeRows({0});
    EXPECT_EQ(tab.tableViewObjectValueForTableColumnRow(1, 0), u"0:02"_s);
    EXPECT_EQ(tab.dvdAudioDiscTime->stringValue(), u"0:06"_s);
    tab.removeRows({0, 1});
    EXPECT_TRUE(tab.formatObjects().empty());
    EXPECT_EQ(tab.dvdAudioDiscTime->stringValue(), QString());
    EXPECT_EQ(tab.dvdAudioDiscSize->stringValue(), QString());
}

TEST_F(UtilTabTest, AFlacFileThatIsNoneEmptiesTheList)
{
    chooseDvd();
    tab.addFiles({file(u"a.flac"_s, "no audio")});
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(tab.scanNote->stringValue(), u"The list was emptied: a.flac cannot be read as audio"_s);
    EXPECT_EQ(tab.dvdAudioDiscTime->stringValue(), QString());
}

TEST_F(UtilTabTest, WhyTheListWentIsToldUntilAnotherCommandIsChosen)
{
    chooseDvd();
    tab.addFiles({file(u"b.AIF"_s)});
    ASSERT_FALSE(tab.scanNote->stringValue().isEmpty());
    choose(UtilTab::renaming);
    EXPECT_EQ(tab.scanNote->stringValue(), QString());
    chooseDvd();
    tab.addFiles({file(u"b.AIF"_s)});
    ASSERT_FALSE(tab.scanNote->stringValue().isEmpty());
    tab.clearFiles();
    EXPECT_EQ(tab.scanNote->stringValue(), QString());
}

TEST_F(UtilTabTest, FilesThatWereNotLookedAtYetAreLookedAtAheadOfTheDisc)
{
    tab.addFiles({wav(u"a.wav"_s, 100), wav(u"b.wav"_s, 100, 24)}); // as if they were still coming in
    tab.commandMatrix->selectTitle(UtilTab::dvdDisc);
    panels_.answerAlert(alertReply::defaultButton);
    tab.executeCommand(nullptr);
    EXPECT_EQ(panels_.alerts()[0].title,
              u"The Files in the list must match in sample rate, bit depth and number of channels."_s);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(panels_.openRequests().empty());
}

TEST_F(UtilTabTest, AScanThatFailsIsLoggedAndEmptiesTheList)
{
    ASSERT_TRUE(QFile::remove(tools_.directory() + u"/metaflac"_s)); // the link alone
    chooseDvd();
    const LogCapture log;
    makeFlac(pathOf(u"a.flac"_s), 1.0);
    tab.addFiles({pathOf(u"a.flac"_s)});
    EXPECT_EQ(log.count(u"error "_s), 1);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_TRUE(tab.scanNote->stringValue().startsWith(u"The list was emptied: "));
}

TEST_F(UtilTabTest, TracksOfADiscTakeThePlaceOfThoseListedBefore)
{
    tools_.install(u"cdda2wav"_s, {u"out"_s, u"T01:  3:42.12 title 'Intro' from 'Me'\n"_s});
    int tracks = 3;
    tab.setContentsReader([&tracks](const QString&, QString& fault) {
        if (tracks == 0) fault = u"no disc"_s;
        QList<DiscTrack> disc;
        for (int number = 1; number <= tracks; ++number)
            disc.append({number, false});
        return disc;
    });
    const auto pressed = [this](const QString& device) {
        tab.addTracksOfDiscIn({device});
        moment([this] { return tab.tracksOfDiscButton->isEnabled(); });
        return tab.fileNames().copy();
    };
    const QStringList three{folderOfDisc(u"sr0"_s) + u"/1 Intro.wav"_s, folderOfDisc(u"sr0"_s) + u"/2 Track 02.wav"_s,
                            folderOfDisc(u"sr0"_s) + u"/3 Track 03.wav"_s};
    EXPECT_EQ(pressed(u"/dev/sr0"_s), three);
    EXPECT_EQ(pressed(u"/dev/sr0"_s), three) << "the same disc once more";
    tracks = 2;
    EXPECT_EQ(pressed(u"/dev/sr0"_s), three.first(2)) << "another disc";
    tracks = 1;
    const QStringList one{folderOfDisc(u"sr1"_s) + u"/1 Intro.wav"_s};
    EXPECT_EQ(pressed(u"/dev/sr1"_s), one) << "another drive";
    tracks = 0;
    EXPECT_EQ(pressed(u"/dev/sr1"_s), one) << "no disc";
    EXPECT_EQ(tab.scanNote->stringValue(), u"no disc"_s);
    tab.addFiles({u"/zzz/other.wav"_s});
    tracks = 1;
    EXPECT_EQ(pressed(u"/dev/sr1"_s), one + QStringList{u"/zzz/other.wav"_s}) << "what is of no disc stays";
}

TEST_F(UtilTabTest, TheSecondDriveIsAskedWhereTheFirstHasNoDisc)
{
    tools_.install(u"cdda2wav"_s);
    tab.setContentsReader([](const QString& device, QString& fault) {
        if (device == u"/dev/sr0") fault = u"no disc"_s;
        return fault.isEmpty() ? QList<DiscTrack>{{1, false}} : QList<DiscTrack>();
    });
    tab.addTracksOfDiscIn({u"/dev/sr0"_s, u"/dev/sr1"_s});
    moment([this] { return tab.tracksOfDiscButton->isEnabled(); });
    EXPECT_EQ(tab.fileNames().copy(), QStringList{folderOfDisc(u"sr1"_s) + u"/1 Track 01.wav"_s});
    EXPECT_EQ(tab.scanNote->stringValue(), QString());
}

TEST_F(UtilTabTest, TheButtonAsksTheDrivesOfTheMachine)
{
    tools_.install(u"cdda2wav"_s);
    ASSERT_TRUE(QDir(folder()).mkpath(u"drives"_s));
    qputenv("ZOLT_DRIVES", pathOf(u"drives"_s).toUtf8());
    tab.tracksOfDiscButton->click();
    EXPECT_EQ(tab.scanNote->stringValue(), u"This machine has no drive for discs"_s);
    EXPECT_TRUE(tab.tracksOfDiscButton->isEnabled());
    file(u"drives/sr7/size"_s);
    QString asked;
    tab.setContentsReader([&asked](const QString& device, QString&) {
        asked = device;
        return QList<DiscTrack>{{1, false}};
    });
    tab.tracksOfDiscButton->click();
    qunsetenv("ZOLT_DRIVES");
    moment([this] { return tab.tracksOfDiscButton->isEnabled(); });
    EXPECT_EQ(asked, u"/dev/sr7"_s);
    EXPECT_EQ(tab.fileNames().copy(), QStringList{folderOfDisc(u"sr7"_s) + u"/1 Track 01.wav"_s});
}

TEST_F(UtilTabTest, ADiscThatIsReadAfterTheTabHasGoneIsNobodys)
{
    tools_.install(u"cdda2wav"_s);
    std::binary_semaphore tabHasGone(0);
    auto reading = std::make_unique<UtilTab>();
    const auto note = reading->scanNote;
    reading->setContentsReader([&tabHasGone](const QString&, QString& fault) {
        tabHasGone.acquire();
        fault = u"no disc"_s;
        return QList<DiscTrack>();
    });
    reading->addTracksOfDiscIn({u"/dev/sr0"_s});
    reading.reset();
    tabHasGone.release();
    waitForDetachedThreads();
    runPosted();
    EXPECT_EQ(note->stringValue(), u"Reading the disc"_s);
}

TEST_F(UtilTabTest, ANoWithNothingChosenBeforeLeavesNothingChosen)
{
    tab.commandMatrix->deselectAllCells();
    tab.displayRelevantOptions();
    panels_.answerAlert(alertReply::alternateButton);
    choose(UtilTab::dvdDisc);
    moment([this] { return tab.commandMatrix->selectedIndex() == -1; });
}

TEST_F(UtilTabTest, AScanHasTheTableAskAgain)
{
    tab.addFiles({wav(u"a.wav"_s, 100)});
    const unsigned before = tab.tableView->reloads();
    tab.findFormatInfo();
    EXPECT_GT(tab.tableView->reloads(), before);
    EXPECT_EQ(tab.tableViewObjectValueForTableColumnRow(2, 0), u"44100"_s);
}
