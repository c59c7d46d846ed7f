#include "ShntoolFixture.h"
#include "shntool/SHNToolSplitTask.h"
#include "support/EveryCut.h"
#include "support/FakeTool.h"
#include "support/LogCapture.h"

#include <QDir>
#include <QFile>

using namespace zolt;
using namespace zolt::test;

namespace {

const QString sheet = u"PERFORMER \"Them\"\nTITLE \"The Album\"\nFILE \"joined.wav\" WAVE\n"
                      "  TRACK 01 AUDIO\n    TITLE \"Intro\"\n    INDEX 01 00:00:00\n"
                      "  TRACK 02 AUDIO\n    TITLE Jam\n    PERFORMER x\n    INDEX 01 03:25:41\n"
                      "  TRACK 03 AUDIO\n    INDEX 01 05:00:00\n"_s;

class SplitTask : public testing::Test
{
protected:
    std::shared_ptr<SHNToolSplitTask> made(const TrackTitles& titles = {}) const
    {
        auto task =
            unqueued(SHNToolSplitTask::initAsyncTaskWithQueueLaunchPathArguments(nullptr, fakeTool(), {u"split"_s}));
        task->setOutputPath(folder_.path());
        task->setTrackTitleMap(titles);
        task->setTitle(u"show.flac"_s);
        return task;
    }
    void piece(const QString& name, const QByteArray& content) const
    {
        QFile file(folder_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray read(const QString& name) const
    {
        QFile file(folder_.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    QTemporaryDir folder_;
};

} // namespace

TEST(TrackTitlesOf, ACueSheetNameThePiecesByNumberAndTitle)
{
    EXPECT_EQ(trackTitles(sheet, u"flac"_s), TrackTitles({{u"split-track01.flac"_s, u"01 Intro.flac"_s},
                                                          {u"split-track02.flac"_s, u"02 Jam.flac"_s},
                                                          {u"split-track03.flac"_s, u"split-track03.flac"_s}}));
}

TEST(TrackTitlesOf, AreTheSameWithAnyLineEnds)
{
    EXPECT_EQ(trackTitles(QString(sheet).replace(u"\n"_s, u"\r\n"_s), u"flac"_s), trackTitles(sheet, u"flac"_s));
}

TEST(TrackTitlesOf, TracksFromTheTenthOnAreNumberedWithoutAZero)
{
    QString text;
    for (int i = 1; i <= 99; ++i)
        text += u"TRACK %1 AUDIO\nTITLE \"t%1\"\n"_s.arg(i);
    const TrackTitles titles = trackTitles(text, u"wav"_s);
    EXPECT_EQ(titles.size(), 99);
    EXPECT_EQ(titles[u"split-track09.wav"_s], u"09 t9.wav"_s);
    EXPECT_EQ(titles[u"split-track10.wav"_s], u"10 t10.wav"_s);
    EXPECT_EQ(titles[u"split-track99.wav"_s], u"99 t99.wav"_s);
}

TEST(TrackTitlesOf, LoseOneQuoteAtEachEnd)
{
    const auto title = [](const QString& text) {
        return trackTitles(u"TRACK 01\nTITLE "_s + text, u"wav"_s).value(u"split-track01.wav"_s);
    };
    EXPECT_EQ(title(u"\"\"Say \"so\"\"\""_s), u"01 \"Say \"so\"\".wav"_s);
    EXPECT_EQ(title(u"  Plain title  "_s), u"01 Plain title.wav"_s);
    EXPECT_EQ(title(u"\"Open"_s), u"01 Open.wav"_s);
    EXPECT_EQ(title(u"a/b"_s), u"01 a/b.wav"_s);
    EXPECT_EQ(title(u"\"AC/\""_s), u"01 AC.wav"_s) << "a slash at the end is none of the name";
    EXPECT_EQ(title(u"\"My TITLE\""_s), u"01 My TITLE.wav"_s);
}

TEST(TrackTitlesOf, LaterTitleOfATrackCounts)
{
    EXPECT_EQ(trackTitles(u"TRACK 01\nTITLE a\nTITLE b"_s, u"wav"_s),
              TrackTitles({{u"split-track01.wav"_s, u"01 b.wav"_s}}));
}

TEST(TrackTitlesOf, AlbumAloneGoesToNumberZeroAndPlainTimesNameNothing)
{
    EXPECT_EQ(trackTitles(u"TITLE Album"_s, u"wav"_s), TrackTitles({{u"split-track00.wav"_s, u"00 Album.wav"_s}}));
    EXPECT_TRUE(trackTitles(u"0:30\n1:00\n"_s, u"wav"_s).isEmpty());
    EXPECT_TRUE(trackTitles(u"Track 01\nTitle a\nxTRACK\n"_s, u"wav"_s).isEmpty()) << "capitals, at the start";
}

TEST(TrackTitlesOf, AreLogged)
{
    const LogCapture log;
    trackTitles(u"TRACK 01\nTITLE a\nTRACK 02\n"_s, u"wav"_s);
    EXPECT_TRUE(log.count(u"set title: 01 a.wav for key: split-track01.wav"_s) == 1);
}

TEST_F(SplitTask, ShowsHowFarItIsAndItsTitle)
{
    const auto task = made();
    task->processTaskOutput(u"\b\b\b 42% \b"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Splitting:  42%"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 42);
    EXPECT_EQ(task->textField()->stringValue(), u"show.flac"_s);
    task->processTaskOutput(u"OK\n"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), -1);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Splitting:  42%"_s);
    EXPECT_EQ(task->results()->results(), u" 42% OK\n\n"_s);
}

TEST_F(SplitTask, PieceThatIsNoTextChangesNothing)
{
    const auto task = made();
    task->processTaskOutput(u"7%"_s);
    task->processTaskOutput(std::nullopt);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 7);
    EXPECT_EQ(task->results()->results(), u"7%\n"_s);
}

TEST_F(SplitTask, GivesPiecesTheirNamesAtTheEndWhateverTheOutcome)
{
    piece(u"split-track01.wav"_s, "one");
    piece(u"split-track02.wav"_s, "two");
    piece(u"split-track03.wav"_s, "three");
    const auto task = made({{u"split-track01.wav"_s, u"01 a.wav"_s}, {u"split-track02.wav"_s, u"split-track02.wav"_s}});
    task->setError(true);
    task->cleanup();
    EXPECT_EQ(read(u"01 a.wav"_s), "one");
    EXPECT_EQ(read(u"split-track01.wav"_s), "none");
    EXPECT_EQ(read(u"split-track02.wav"_s), "two");
    EXPECT_EQ(read(u"split-track03.wav"_s), "three") << "more pieces than tracks";
    EXPECT_TRUE(task->results());
}

TEST_F(SplitTask, TakenNameAndNameInAFolderLeaveThePieceAsItIs)
{
    piece(u"split-track01.wav"_s, "one");
    piece(u"split-track02.wav"_s, "two");
    piece(u"split-track03.wav"_s, "three");
    piece(u"01 a.wav"_s, "old");
    ASSERT_TRUE(QFile::link(u"/nowhere"_s, folder_.filePath(u"03 c.wav"_s)));
    const auto task = made({{u"split-track01.wav"_s, u"01 a.wav"_s},
                            {u"split-track02.wav"_s, u"02 x/y.wav"_s},
                            {u"split-track03.wav"_s, u"03 c.wav"_s}});
    task->cleanup();
    EXPECT_EQ(read(u"01 a.wav"_s), "old");
    EXPECT_EQ(read(u"split-track03.wav"_s), "three") << "a link that leads nowhere takes a name too";
    EXPECT_EQ(read(u"split-track01.wav"_s), "one");
    EXPECT_EQ(read(u"split-track02.wav"_s), "two");
    EXPECT_FALSE(task->results()) << "a good split has no report";
}

TEST_F(SplitTask, ReadsAReportWhereverAReadParts)
{
    const QByteArray run = "Splitting [/s/a.flac] (3:25.41) --> [/o/split-track01.wav] (1:00.00) :   0% \b\b\b\b\b 50% "
                           "\b\b\b\b\b100% OK\n";
    everyCut(run, [this](const QList<QByteArray>& pieces) {
        const auto task = made();
        feed(*task, pieces);
        EXPECT_TRUE(task->results()->results().contains(u"[/o/split-track01.wav] (1:00.00) : "_s));
        EXPECT_TRUE(task->topTextField()->stringValue().startsWith(u"Splitting: "_s));
    });
}
