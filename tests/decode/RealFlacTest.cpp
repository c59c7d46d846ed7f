// The tab and its tasks against the real flac.
#include "DecodeFixture.h"

#include "platform/desktop/ToolsDirectory.h"

#include <sys/mount.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

class RealFlac : public DecodeTest
{
protected:
    /// Makes a FLAC file of noise with a title and an artist. @return its path
    QString makeFlac(const QString& name, const QString& seconds = u"0.5"_s)
    {
        const QString wav = pathOf(u"source.wav"_s), flac = pathOf(name);
        QDir().mkpath(path::deletingLastComponent(flac));
        test::run(u"sox"_s, {u"-R"_s, u"-n"_s, u"-r"_s, u"44100"_s, u"-c"_s, u"2"_s, u"-b"_s, u"16"_s, wav, u"synth"_s,
                             seconds, u"pinknoise"_s});
        test::run(u"flac"_s, {u"-s"_s, u"-T"_s, u"TITLE=Späti"_s, u"-T"_s, u"ARTIST=Nobody"_s, u"-o"_s, flac, wav});
        EXPECT_TRUE(QFile::exists(flac));
        QFile::remove(wav);
        return flac;
    }
    void decode(const QStringList& files)
    {
        tab.addFiles(files);
        tab.executeCommand(nullptr);
        runQueue();
    }
    /// The MD5 of a file's samples as ffmpeg decodes them.
    static QByteArray samples(const QString& file)
    {
        return test::run(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, file, u"-map"_s, u"0:a"_s, u"-c:a"_s,
                                       u"pcm_s16le"_s, u"-f"_s, u"md5"_s, u"-"_s});
    }
};

TEST_F(RealFlac, FilesOfTwoFoldersBecomeWavBesideTheirSources)
{
    const QString one = makeFlac(u"one/a.flac"_s), two = makeFlac(u"two/b.flac"_s);
    decode({folder()});
    EXPECT_EQ(samples(pathOf(u"one/a.wav"_s)), samples(one));
    EXPECT_EQ(samples(pathOf(u"two/b.wav"_s)), samples(two));
    EXPECT_TRUE(QFile::exists(one));
    EXPECT_TRUE(queue().outputWindows().empty());
}

TEST_F(RealFlac, AiffGetsTheTagsAndDeletionComesAfterThem)
{
    const QString source = makeFlac(u"a.flac"_s);
    const QByteArray before = samples(source);
    tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    decode({source});
    EXPECT_FALSE(QFile::exists(source));
    EXPECT_EQ(samples(pathOf(u"a.aiff"_s)), before);
    const QByteArray facts =
        test::run(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format_tags"_s, pathOf(u"a.aiff"_s)});
    EXPECT_TRUE(facts.contains("TAG:title=Späti")) << facts.toStdString();
    EXPECT_TRUE(facts.contains("TAG:artist=Nobody")) << facts.toStdString();
}

TEST_F(RealFlac, SourceWithoutTagsBecomesAiffWithoutAnError)
{
    const QString source = makeFlac(u"a.flac"_s);
    test::run(u"metaflac"_s, {u"--remove-all-tags"_s, source});
    tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
    decode({source});
    EXPECT_EQ(samples(pathOf(u"a.aiff"_s)), samples(source));
    EXPECT_TRUE(queue().panelArray().empty());
}

TEST_F(RealFlac, FailedDecodeIntoAiffStillCopiesTheTags)
{
    const LogCapture log;
    const QString source = makeFlac(u"a.flac"_s);
    tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
    decode({source});
    test::run(u"metaflac"_s, {u"--remove-tag=TITLE"_s, u"--set-tag=TITLE=Later"_s, source});
    decode({source}); // refused: the output exists
    EXPECT_EQ(queue().panelArray().size(), 1U);
    const QByteArray facts =
        test::run(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format_tags"_s, pathOf(u"a.aiff"_s)});
    EXPECT_TRUE(facts.contains("TAG:title=Later")) << facts.toStdString();
}

TEST_F(RealFlac, CancelledDecodeIntoAiffWritesTheSameTagsTwiceAndKeepsTheSource)
{
    const LogCapture log;
    const QString source = makeFlac(u"a.flac"_s, u"60"_s);
    tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    tab.addFiles({source});
    tab.executeCommand(nullptr);
    queue().taskArray().at(0)->cancelTask(nullptr);
    EXPECT_TRUE(QFile::exists(source));
    EXPECT_EQ(samples(pathOf(u"a.aiff"_s)), samples(source));
    const QByteArray facts =
        test::run(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s, u"format_tags"_s, pathOf(u"a.aiff"_s)});
    EXPECT_EQ(facts.count("TAG:title=Späti"), 1) << facts.toStdString();
}

TEST_F(RealFlac, LongDecodeShowsItsProgressThoughThisFlacTellsItWithoutTheName)
{
    const LogCapture log;
    const QString source = makeFlac(u"long.flac"_s, u"600"_s);
    tab.addFiles({source});
    tab.executeCommand(nullptr);
    const auto task = queue().taskArray().at(0);
    QSet<double> readings;
    QSet<QString> statuses;
    ASSERT_TRUE(runUntil([&] {
        readings += task->progressIndicator()->doubleValue();
        statuses += task->topTextField()->stringValue();
        return queue().taskCount() == 0;
    }));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(samples(pathOf(u"long.wav"_s)), samples(source));
    EXPECT_GE(readings.size(), 3) << "0, -1, and at least one that flac told";
    EXPECT_TRUE(std::any_of(statuses.begin(), statuses.end(), [](const QString& status) {
        return status.startsWith(u"Decoding Flac: "_s) && status.endsWith(u'%');
    }));
    EXPECT_EQ(log.count(u"Exception"_s), 0);
}

TEST_F(RealFlac, DamagedSourceFailsWithTheToolsTextAndTheQueueGoesOn)
{
    const LogCapture log;
    const QString good = makeFlac(u"b.flac"_s);
    QFile damaged(pathOf(u"a.flac"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("fLaC and then nonsense");
    damaged.close();
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    decode({damaged.fileName(), good});
    EXPECT_TRUE(QFile::exists(damaged.fileName())) << "a failed decode keeps its source";
    EXPECT_FALSE(QFile::exists(good));
    EXPECT_TRUE(exists(u"b.wav"_s));
    ASSERT_EQ(queue().outputWindows().size(), 1U);
    EXPECT_EQ(queue().outputWindows()[0]->window()->title(), u"a.flac"_s);
    EXPECT_TRUE(queue().outputWindows()[0]->textField()->string().contains(u"a.flac"_s));
    EXPECT_EQ(queue().panelArray().size(), 1U);
}

TEST_F(RealFlac, SourceThatVanishesFailsItsRowAlone)
{
    const LogCapture log;
    const QString good = makeFlac(u"b.flac"_s);
    decode({pathOf(u"gone.flac"_s), good});
    EXPECT_TRUE(exists(u"b.wav"_s));
    EXPECT_EQ(queue().panelArray().size(), 1U);
}

TEST_F(RealFlac, OddNamesAreDecodedLikeOthers)
{
    const LogCapture log; // a name that holds the tool's own marks may upset the reading of its progress
    const QStringList names{u"a: b.flac"_s,       u"50% off.flac"_s,   u"it's \"quoted\".flac"_s,
                            u"two\nlines.flac"_s, u"日本 Ωмир.flac"_s, u"-dash.flac"_s};
    QStringList files;
    for (const QString& name : names)
        files += makeFlac(name);
    decode(files);
    for (const QString& name : names)
        EXPECT_TRUE(exists(path::deletingExtension(name) + u".wav"_s)) << name.toStdString();
    EXPECT_TRUE(queue().panelArray().empty());
}

TEST_F(RealFlac, OutputFolderThatCannotBeWrittenFailsAndKeepsTheSource)
{
    const LogCapture log;
    const QString source = makeFlac(u"a.flac"_s);
    tab.sourceDecodeButton->setState(false);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    panels_.answerOpenPanel(QStringList{u"/proc"_s}); // where even root makes no file
    decode({source});
    EXPECT_TRUE(QFile::exists(source));
    EXPECT_EQ(queue().outputWindows().size(), 1U);
}

TEST_F(RealFlac, FullOutputFolderFailsAndKeepsTheSource)
{
    const QString small = pathOf(u"small"_s);
    QDir().mkpath(small);
    if (::mount("tmpfs", small.toUtf8().constData(), "tmpfs", 0, "size=64k") != 0) {
        GTEST_SKIP() << "no right to mount a small file system here";
    }
    const LogCapture log;
    const QString source = makeFlac(u"a.flac"_s, u"5"_s);
    tab.sourceDecodeButton->setState(false);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    panels_.answerOpenPanel(QStringList{small});
    decode({source});
    ::umount(small.toUtf8().constData());
    EXPECT_TRUE(QFile::exists(source));
    EXPECT_EQ(queue().panelArray().size(), 1U);
}

TEST_F(RealFlac, TagsForWhichThereIsNoRoomAreToldInTheLogAlone)
{
    const QString small = pathOf(u"small"_s);
    QDir().mkpath(small);
    // Room for half a second of sound and little more.
    if (::mount("tmpfs", small.toUtf8().constData(), "tmpfs", 0, "size=128k") != 0) {
        GTEST_SKIP() << "no right to mount a small file system here";
    }
    const LogCapture log;
    tab.sourceDecodeButton->setState(false);
    tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
    panels_.answerOpenPanel(QStringList{small});
    decode({makeFlac(u"a.flac"_s)});
    const bool isThere = QFile::exists(small + u"/a.aiff"_s);
    ::umount(small.toUtf8().constData());
    EXPECT_TRUE(isThere);
    EXPECT_TRUE(queue().panelArray().empty()) << "the sound was decoded";
    EXPECT_TRUE(queue().outputWindows().empty());
    EXPECT_EQ(log.count(u"more bytes of tags"_s), 1);
}

TEST_F(RealFlac, OutputThatExistsIsNotOverwritten)
{
    const LogCapture log;
    const QString source = makeFlac(u"a.flac"_s);
    QFile output(pathOf(u"a.wav"_s));
    ASSERT_TRUE(output.open(QIODevice::WriteOnly));
    output.write("precious");
    output.close();
    decode({source});
    ASSERT_TRUE(output.open(QIODevice::ReadOnly));
    EXPECT_EQ(output.readAll(), "precious");
    EXPECT_EQ(queue().panelArray().size(), 1U);
}

TEST_F(RealFlac, QuitWithTasksRunningWaitsForTheToolsAndKeepsTheSources)
{
    const LogCapture log;
    QStringList sources;
    for (int i = 0; i < 6; ++i)
        sources += makeFlac(u"%1.flac"_s.arg(i), u"30"_s);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    tab.addFiles(sources);
    tab.executeCommand(nullptr);
    const auto tasks = queue().taskArray();
    controller.applicationWillTerminate();
    EXPECT_EQ(queue().taskCount(), 0);
    // One that ended by itself before the walk came to it has done its job; every cancelled one kept its source.
    for (std::size_t i = 0; i < tasks.size(); ++i)
        EXPECT_EQ(QFile::exists(sources[qsizetype(i)]), tasks[i]->cancelled());
    EXPECT_TRUE(tasks.back()->cancelled());
}
