#include "util/CDExtractTask.h"

#include "UtilFixture.h"

#include "engine/ZOLTTaskResults.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "support/EveryCut.h"
#include "util/DiscVolumes.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// Composed from the formats that stand in the packaged tool; no drive was there to record from.
const QByteArray banner = "Type: ROM, Vendor 'MAKER' Model 'DRIVE' Revision '1.0' MMC+CDDA\n"
                          "cdda2wav: 569344 bytes buffer memory requested, transfer size 64 kB\n"
                          "samplefile size will be 1411244 bytes.\n";
const QByteArray endOfTrack = "100%  0 rderr, 0 skip, 0 atom, 0 edge, 0 drop, 0 dup, 0 drift\n";

class CDExtractTest : public UtilTest
{
protected:
    std::shared_ptr<CDExtractTask> make(const QStringList& files, const QString& range)
    {
        const auto task = made(CDExtractTask::initAsyncTaskWithQueueLaunchPathArguments(
            &queue(), tools_.directory() + u"/cdda2wav"_s, {u"-t"_s, range}));
        task->setFileNames(files);
        task->setTrackString(range);
        task->setDiscName(u"My Disc"_s);
        task->setDirectory(folder());
        return task;
    }
    QStringList tracks(int first, int last) const
    {
        QStringList files;
        for (int track = first; track <= last; ++track)
            files += QStringLiteral("/disc/%1 Song %1.aiff").arg(track);
        return files;
    }
    QString textOf(const QString& name) const
    {
        QFile read(pathOf(name));
        EXPECT_TRUE(read.open(QIODevice::ReadOnly)) << name.toStdString();
        return QString::fromUtf8(read.readAll());
    }
    /// A drive in which lies the disc whose tracks are listed.
    QStringList discInOurFolder(int count)
    {
        const QString disc = folderOfDisc(u"sr7"_s);
        QStringList files;
        for (int track = 1; track <= count; ++track)
            files += QStringLiteral("%1/%2 Track %2.wav").arg(disc).arg(track);
        return files;
    }
};

} // namespace

TEST_F(CDExtractTest, ProgressShowsTheTrackAndTheLastPercentage)
{
    const auto task = make(tracks(9, 11), u"9+11"_s);
    task->processTaskOutput(u"  3%\r  4%"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"09 Song 9"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Extracting CD Track: 4%"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 4);
}

TEST_F(CDExtractTest, EachEndOfATrackBringsTheNextAndTheLastStays)
{
    const auto task = make(tracks(1, 2), u"1+2"_s);
    for (int times = 0; times < 3; ++times)
        task->processTaskOutput(QString::fromLatin1(endOfTrack));
    task->processTaskOutput(u"5%"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"02 Song 2"_s);
    EXPECT_FALSE(CDExtractTask::isEndOfTrack(u"0 rderr, 0 skip"_s));
}

TEST_F(CDExtractTest, PercentagesAtTheEndOfAPieceStayOutOfTheResults)
{
    EXPECT_EQ(CDExtractTask::stripPercent(u"\nreading 12%"_s), u"reading "_s);
    EXPECT_EQ(CDExtractTask::stripPercent(u"12% of it\n"_s), u"12% of it"_s);
}

TEST_F(CDExtractTest, TheToolsFilesTakeTheNamesOfTheTracksInOrder)
{
    for (const char* name : {"audio_09.wav", "audio_10.wav", "audio_11.wav"})
        file(QLatin1String(name), name);
    const auto task = make(tracks(9, 11), u"9+11"_s);
    task->progressIndicator()->stopAnimation();
    task->cleanup();
    EXPECT_EQ(textOf(u"09 Song 9.wav"_s), u"audio_09.wav"_s);
    EXPECT_EQ(textOf(u"10 Song 10.wav"_s), u"audio_10.wav"_s);
    EXPECT_EQ(textOf(u"11 Song 11.wav"_s), u"audio_11.wav"_s);
    EXPECT_TRUE(task->progressIndicator()->isIndeterminate() && task->progressIndicator()->isAnimating());
}

TEST_F(CDExtractTest, OneTrackIsOneFileWithoutANumber)
{
    file(u"audio.wav"_s, "sound");
    make(tracks(3, 3), u"3+3"_s)->cleanup();
    EXPECT_EQ(textOf(u"03 Song 3.wav"_s), u"sound"_s);
}

TEST_F(CDExtractTest, AllTracksInOneFileKeepTheToolsName)
{
    file(u"audio.wav"_s, "sound");
    const auto task = make(tracks(1, 5), u"1+5"_s);
    task->setOneTrack(true);
    task->cleanup();
    EXPECT_EQ(textOf(u"audio.wav"_s), u"sound"_s);
}

TEST_F(CDExtractTest, WhatHasANameAlreadyIsNotWrittenOver)
{
    file(u"audio.wav"_s, "new");
    file(u"03 Song 3.wav"_s, "old");
    make(tracks(3, 3), u"3+3"_s)->cleanup();
    EXPECT_EQ(textOf(u"03 Song 3.wav"_s), u"old"_s);
    EXPECT_EQ(textOf(u"audio.wav"_s), u"new"_s);
}

TEST_F(CDExtractTest, NinetyNineTracks)
{
    for (int track = 1; track <= 99; ++track)
        file(QStringLiteral("audio_%1.wav").arg(track, 2, 10, QChar(u'0')));
    make(tracks(1, 99), u"1+99"_s)->cleanup();
    EXPECT_TRUE(exists(u"01 Song 1.wav"_s) && exists(u"99 Song 99.wav"_s));
    EXPECT_TRUE(names().filter(u"audio"_s).isEmpty());
}

TEST_F(CDExtractTest, TheLogBeginsWithTheToolAndHoldsEverything)
{
    const auto task = make(tracks(1, 1), u"1+1"_s);
    task->processTaskOutput(QString::fromLatin1(banner));
    task->processTaskOutput(u" 50%"_s);
    task->cleanup();
    const QString log = textOf(u"My Disc.log.txt"_s);
    EXPECT_TRUE(log.startsWith(u"Zolt ")) << log.toStdString();
    EXPECT_TRUE(log.contains(u"(build ")) << log.toStdString();
    EXPECT_TRUE(log.section(u'\n', 1).startsWith(u"cdda2wav: 569344")) << log.toStdString();
    EXPECT_TRUE(log.endsWith(u" 50%"));
    EXPECT_EQ(task->textField()->stringValue(), u"Writing log file"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), QString());
}

TEST_F(CDExtractTest, RecordedTextIsReadWhereverItIsCut)
{
    everyCut(banner + "  0%\r 50%\r" + endOfTrack, [this](const QList<QByteArray>& pieces) {
        const auto task = make(tracks(1, 2), u"1+2"_s);
        for (const QByteArray& piece : pieces)
            task->processTaskOutput(QString::fromLatin1(piece));
        EXPECT_LE(task->progressIndicator()->doubleValue(), 100.0);
        // A piece behind the end of the track is the next track's already.
        EXPECT_TRUE(task->textField()->stringValue().endsWith(u"Song 1") || pieces.size() > 1);
    });
}

TEST_F(CDExtractTest, AWholeExtraction)
{
    tools_.install(u"diskutil"_s, {u"touch"_s, pathOf(u"called"_s)});
    tools_.install(u"cdda2wav"_s, {u"out"_s, QString::fromLatin1(banner), u"touch"_s, u"audio_01.wav"_s, u"out"_s,
                                   QString::fromLatin1(endOfTrack), u"touch"_s, u"audio_02.wav"_s});
    choose(UtilTab::extraction);
    tab.addFiles(discInOurFolder(2));
    tab.setDestination(folder());
    tab.executeCommand(nullptr);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(tools_.calls(u"diskutil"_s),
              (QList<QStringList>{{u"unmountDisk"_s, u"force"_s, u"sr7"_s}, {u"mountDisk"_s, u"sr7"_s}}));
    ASSERT_EQ(queue().taskArray().size(), 1U);
    EXPECT_EQ(queue().taskArray()[0]->title(), u"CD Tracks 1 - 2"_s);
    EXPECT_EQ(queue().taskArray()[0]->topTextField()->stringValue(), u"Waiting for the drive and the title server"_s);
    runQueue();
    EXPECT_TRUE(exists(u"01 Track 1.wav"_s) && exists(u"02 Track 2.wav"_s));
    EXPECT_TRUE(exists(u"Audio CD (sr7).log.txt"_s));
    // There is no such drive here, so the device stays empty.
    EXPECT_EQ(tools_.calls(u"cdda2wav"_s),
              QList<QStringList>{QStringList(
                  {u"-B"_s, u"-L"_s, u"1"_s, u"-H"_s, u"-t"_s, u"1+2"_s, u"-paranoia"_s, u"-Owav"_s, u"dev="_s})});
}

TEST_F(CDExtractTest, AWholeDiscOfNinetyNineTracksIsReadFromTheDriveThatItIsIn)
{
    file(u"drives/sr7/size"_s);
    qputenv("ZOLT_DRIVES", pathOf(u"drives"_s).toUtf8());
    tools_.install(u"diskutil"_s);
    QStringList script;
    for (int track = 1; track <= 99; ++track)
        script += {u"touch"_s, QStringLiteral("audio_%1.wav").arg(track, 2, 10, QChar(u'0'))};
    tools_.install(u"cdda2wav"_s, script);
    choose(UtilTab::extraction);
    tab.addFiles(discInOurFolder(99));
    tab.setDestination(folder());
    tab.executeCommand(nullptr);
    qunsetenv("ZOLT_DRIVES");
    ASSERT_EQ(queue().taskArray().size(), 1U);
    EXPECT_EQ(queue().taskArray()[0]->title(), u"CD Tracks 1 - 99"_s);
    runQueue();
    ASSERT_EQ(tools_.calls(u"cdda2wav"_s).size(), 1);
    EXPECT_EQ(tools_.calls(u"cdda2wav"_s)[0].mid(4),
              QStringList({u"-t"_s, u"1+99"_s, u"-paranoia"_s, u"-Owav"_s, u"dev=/dev/sr7"_s}));
    EXPECT_TRUE(exists(u"01 Track 1.wav"_s) && exists(u"50 Track 50.wav"_s) && exists(u"99 Track 99.wav"_s));
    EXPECT_TRUE(names().filter(u"audio"_s).isEmpty());
}

TEST_F(CDExtractTest, OneFileForAllTracksLeavesTheSwitchAway)
{
    tools_.install(u"diskutil"_s);
    tools_.install(u"cdda2wav"_s);
    choose(UtilTab::extraction);
    tab.setOneTrack(true);
    tab.addFiles(discInOurFolder(2));
    tab.setDestination(folder());
    tab.executeCommand(nullptr);
    runQueue();
    ASSERT_EQ(tools_.calls(u"cdda2wav"_s).size(), 1);
    EXPECT_FALSE(tools_.calls(u"cdda2wav"_s)[0].contains(u"-B"_s));
}

TEST_F(CDExtractTest, FilesOfNoDiscQueueNothingAndTheListGoes)
{
    tools_.install(u"diskutil"_s);
    choose(UtilTab::extraction);
    tab.addFiles({file(u"1 a.wav"_s)});
    panels_.answerOpenPanel(std::nullopt); // does not stop the command
    LogCapture log;
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tools_.calls(u"diskutil"_s).isEmpty());
    EXPECT_EQ(log.count(u"Error The files are not on the disc of a drive."_s), 1);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(CDExtractTest, AReadErrorIsInTheLogAndTheFilesAreNamedAllTheSame)
{
    tools_.install(u"diskutil"_s);
    tools_.install(u"cdda2wav"_s, {u"touch"_s, u"audio.wav"_s, u"err"_s,
                                   u"cdda2wav: Input/output error. Error on READ\n"_s, u"exit"_s, u"1"_s});
    choose(UtilTab::extraction);
    tab.addFiles(discInOurFolder(1));
    tab.setDestination(folder());
    tab.executeCommand(nullptr);
    runQueue();
    EXPECT_TRUE(exists(u"01 Track 1.wav"_s));
    EXPECT_TRUE(textOf(u"Audio CD (sr7).log.txt"_s).contains(u"Input/output error"));
}

TEST_F(CDExtractTest, ARowThatIsLeftOutKeepsTheTracksBehindItInTheList)
{
    tools_.install(u"diskutil"_s);
    tools_.install(u"cdda2wav"_s);
    choose(UtilTab::extraction);
    const QStringList files = discInOurFolder(5);
    tab.addFiles(files);
    tab.setDestination(folder());
    tab.executeCommandWithout({2});
    EXPECT_EQ(tab.fileNames().copy(), files.mid(2));
    runQueue();
    ASSERT_EQ(tools_.calls(u"cdda2wav"_s).size(), 1);
    EXPECT_TRUE(tools_.calls(u"cdda2wav"_s)[0].contains(u"1+2"_s));
}

TEST_F(CDExtractTest, WithoutTheMountingToolTheDiscIsReadAllTheSame)
{
    tools_.install(u"cdda2wav"_s);
    choose(UtilTab::extraction);
    tab.addFiles(discInOurFolder(1));
    tab.setDestination(folder());
    const LogCapture log;
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 1);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(log.count(u"diskutil "_s), 2);
    runQueue();
}

TEST_F(CDExtractTest, ACancelNamesWhatIsThereAndWritesTheLog)
{
    tools_.install(u"diskutil"_s);
    tools_.install(u"cdda2wav"_s,
                   {u"touch"_s, u"audio_01.wav"_s, u"touch"_s, pathOf(u"runs"_s), u"wait-file"_s, pathOf(u"go"_s)});
    choose(UtilTab::extraction);
    tab.addFiles(discInOurFolder(2));
    tab.setDestination(folder());
    tab.executeCommand(nullptr);
    ASSERT_TRUE(runUntil([this] { return exists(u"runs"_s); }));
    const auto task = queue().taskArray()[0];
    file(u"go"_s);
    task->cancelTask(nullptr);
    runQueue();
    EXPECT_TRUE(task->cancelled());
    EXPECT_TRUE(exists(u"01 Track 1.wav"_s));
    EXPECT_TRUE(exists(u"Audio CD (sr7).log.txt"_s));
}

TEST_F(CDExtractTest, OtherFilesBeginWithTheirFirstTrack)
{
    const auto task = make(tracks(1, 2), u"1+2"_s);
    task->processTaskOutput(QString::fromLatin1(endOfTrack));
    task->setFileNames(tracks(5, 6));
    task->processTaskOutput(u"1%"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"05 Song 5"_s);
}

TEST_F(CDExtractTest, TheResultsHoldTheTextWithoutItsPercentages)
{
    const auto task = make(tracks(1, 1), u"1+1"_s);
    const auto results = std::make_shared<ZOLTTaskResults>();
    task->setResults(results);
    results->addTaskInSet(task);
    task->processTaskOutput(u"recording\n"_s);
    task->processTaskOutput(u" 12%"_s);
    task->processTaskOutput(u"done"_s);
    EXPECT_EQ(results->results(), u"recording done\n"_s);
}

TEST_F(CDExtractTest, WithoutAFolderTheFilesAreNamedWhereTheProgramRuns)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folder()));
    file(u"audio.wav"_s, "sound");
    const auto task = make(tracks(3, 3), u"3+3"_s);
    task->setDirectory(QString());
    task->cleanup();
    QDir::setCurrent(before);
    EXPECT_EQ(textOf(u"03 Song 3.wav"_s), u"sound"_s);
    EXPECT_TRUE(exists(u"My Disc.log.txt"_s));
}

TEST_F(CDExtractTest, ARangeOfMoreTracksThanThereAreFilesEndsTheRenaming)
{
    const auto task = make(tracks(1, 1), u"1+2"_s);
    EXPECT_THROW(task->cleanup(), RangeException);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Renaming CD Tracks"_s);
}

TEST_F(CDExtractTest, TheLogIsCutAheadOfTheToolsFirstLineAloneAndNotAtAllWithoutOne)
{
    const auto logOf = [this](const QString& output) {
        const auto task = make(tracks(1, 1), u"1+1"_s);
        task->processTaskOutput(output);
        task->cleanup();
        return textOf(u"My Disc.log.txt"_s).section(u'\n', 1);
    };
    EXPECT_EQ(logOf(u"Type: ROM\ncdda2wav: a\ncdda2wav: b"_s), u"cdda2wav: a\ncdda2wav: b"_s);
    EXPECT_EQ(logOf(u"Type: ROM"_s), u"Type: ROM"_s);
}

TEST_F(CDExtractTest, TheDiscIsThatOfTheFirstFile)
{
    tools_.install(u"diskutil"_s);
    tools_.install(u"cdda2wav"_s);
    choose(UtilTab::extraction);
    tab.addFiles(discInOurFolder(2) + QStringList{u"/zzz/3 Other.wav"_s});
    tab.setDestination(folder());
    tab.executeCommand(nullptr);
    runQueue();
    ASSERT_EQ(tools_.calls(u"diskutil"_s).size(), 2);
    EXPECT_EQ(tools_.calls(u"diskutil"_s)[0].last(), u"sr7"_s);
}

TEST_F(CDExtractTest, TheDiscIsMountedAgainThoughTheToolCannotBeStarted)
{
    tools_.install(u"diskutil"_s);
    choose(UtilTab::extraction);
    tab.addFiles(discInOurFolder(1));
    tab.setDestination(folder());
    const LogCapture log;
    tab.executeCommand(nullptr);
    EXPECT_EQ(log.count(u"Error "_s), 1);
    EXPECT_EQ(tools_.calls(u"diskutil"_s),
              (QList<QStringList>{{u"unmountDisk"_s, u"force"_s, u"sr7"_s}, {u"mountDisk"_s, u"sr7"_s}}));
    EXPECT_TRUE(tab.fileNames().isEmpty());
}
