#include "AudioSamples.h"
#include "DecodeFixture.h"

#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "support/FakeTool.h"
#include "support/SampleFlac.h"

#include <QCoreApplication>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

class FlacTask : public DecodeTest
{
protected:
    /// A task whose flac is the fake tool; its output path is the vector's last element, as flac's is.
    std::shared_ptr<DecodeFlacTask> make(QStringList arguments, const QString& output = u"/nowhere/a.wav"_s)
    {
        QFile source(source_);
        EXPECT_TRUE(source.open(QIODevice::WriteOnly));
        arguments << u"out"_s << output; // the fake tool prints it
        return DecodeFlacTask::initAsyncTaskWithFileNameQueueLaunchPathArguments(source_, &queue(), fakeTool(),
                                                                                 arguments);
    }
    std::shared_ptr<DecodeFlacTask> run(const QStringList& arguments, const QString& output = u"/nowhere/a.wav"_s)
    {
        const auto task = make(arguments, output);
        task->setDeleteOriginal(true);
        queue().addTask(task);
        runQueue();
        return task;
    }
    QString source_ = pathOf(u"a.flac"_s);
};

TEST_F(FlacTask, PiecesMoveBarAndStatusLine)
{
    const auto task = make({});
    task->processTaskOutput(u"track.flac: 42% complete"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 42.0);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Decoding Flac: 42%"_s);
    task->processTaskOutput(u"track.flac: 7.50% complete"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 7.5);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Decoding Flac: 7.50%"_s) << "the tool's own digits";
    task->processTaskOutput(u" banner \n"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), -1.0);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Decoding Flac: 7.50%"_s);
    EXPECT_EQ(task->results()->results(), u"track.flac: 42% completetrack.flac: 7.50% completebanner\n"_s)
        << "each piece trimmed";
    task->setResults(nullptr);
}

TEST_F(FlacTask, NameLineIsSetAgainWithEachPiece)
{
    const auto task = make({});
    task->textField()->setStringValue(u"changed"_s);
    task->processTaskOutput(u"x"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.flac"_s);
    task->setResults(nullptr);
}

TEST_F(FlacTask, PieceThatIsNoTextIsSurvived)
{
    const auto task = make({});
    task->processTaskOutput(std::nullopt);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), -1.0);
    EXPECT_EQ(task->results()->results(), u"\n"_s);
    task->setResults(nullptr);
}

TEST_F(FlacTask, BackspacesAreNotTouched)
{
    const auto task = make({});
    task->processTaskOutput(u"\b\b x "_s);
    EXPECT_EQ(task->results()->results(), u"\b\b x\n"_s);
    task->setResults(nullptr);
}

TEST_F(FlacTask, MarkerWithoutANameIsAFaultThatLeavesTheRowItsEnd)
{
    const LogCapture log;
    const auto task = run({u"out"_s, u"84% complete"_s});
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
}

TEST_F(FlacTask, GoodDecodeDeletesTheSourceAndOpensNoWindow)
{
    run({});
    EXPECT_FALSE(QFile::exists(source_));
    EXPECT_TRUE(queue().outputWindows().empty());
    EXPECT_TRUE(queue().panelArray().empty());
}

TEST_F(FlacTask, SourceGoesToTheTrashIfThatIsTheSetting)
{
    qputenv("XDG_DATA_HOME", pathOf(u"data"_s).toUtf8());
    UserDefaults::standard().set(u"trashOrDelete"_s, 1);
    run({});
    UserDefaults::standard().remove(u"trashOrDelete"_s);
    qunsetenv("XDG_DATA_HOME");
    EXPECT_FALSE(QFile::exists(source_));
    EXPECT_TRUE(exists(u"data/Trash/files/a.flac"_s));
}

TEST_F(FlacTask, FailedDecodeKeepsTheSourceAndShowsTheText)
{
    const LogCapture log;
    const auto task = run({u"out"_s, u"ERROR while decoding"_s, u"exit"_s, u"1"_s});
    EXPECT_TRUE(QFile::exists(source_));
    EXPECT_TRUE(task->error());
    ASSERT_EQ(queue().outputWindows().size(), 1U);
    EXPECT_EQ(queue().outputWindows()[0]->textField()->string(), u"ERROR while decoding\n"_s);
    EXPECT_EQ(queue().outputWindows()[0]->window()->title(), u"a.flac"_s);
}

TEST_F(FlacTask, CancelWhileRunningKeepsSourceAndOpensNoWindow)
{
    const LogCapture log;
    const QString go = pathOf(u"go"_s);
    const auto task = make({u"wait-file"_s, go});
    task->setDeleteOriginal(true);
    queue().addTask(task);
    QMetaObject::invokeMethod(
        qApp, [&] { touch(go); }, Qt::QueuedConnection);
    task->cancelTask(nullptr);
    EXPECT_TRUE(QFile::exists(source_));
    EXPECT_TRUE(queue().outputWindows().empty());
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
}

TEST_F(FlacTask, CancelWhileWaitingRunsNoToolAndStillTriesTheTagsOfAiffOutput)
{
    const LogCapture log;
    holdQueue();
    const auto task = make({}, u"/nowhere/a.aiff"_s);
    queue().addTask(task);
    queue().cancelAllTasks(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Copying FLAC Tags"_s);
    EXPECT_TRUE(QFile::exists(source_));
    EXPECT_TRUE(queue().outputWindows().empty());
}

TEST_F(FlacTask, SourceIsTheFileWhateverItsName)
{
    const QString old = nameOfBytes("/nowhere/s\xe4tze.flac");
    const auto task = DecodeFlacTask::initAsyncTaskWithFileNameQueueLaunchPathArguments(
        old, &queue(), fakeTool(), {old, u"-o"_s, u"/nowhere/a.wav"_s});
    EXPECT_EQ(task->source(), old);
    task->setResults(nullptr);
}

TEST_F(FlacTask, TagsGoFromFlacToAiffAloneWhateverTheirSpelling)
{
    const LogCapture log;
    const auto statusOf = [this](const QString& source, const QString& output) {
        source_ = pathOf(source);
        const auto task = make({}, output);
        queue().addTask(task);
        queue().cancelAllTasks(nullptr);
        return task->topTextField()->stringValue();
    };
    holdQueue();
    EXPECT_EQ(statusOf(u"a.flac"_s, u"/nowhere/a.wav"_s), u"Waiting..."_s);
    EXPECT_EQ(statusOf(u"a.shn"_s, u"/nowhere/a.aiff"_s), u"Waiting..."_s);
    EXPECT_EQ(statusOf(u"a.FLAC"_s, u"/nowhere/a.aiff"_s), u"Copying FLAC Tags"_s);
    EXPECT_EQ(statusOf(u"a.flac"_s, u"/nowhere/a.AIFF"_s), u"Copying FLAC Tags"_s);
}

TEST_F(FlacTask, TagsAreWrittenIntoAiffInSmallLettersAlone)
{
    const LogCapture log;
    makeFlac(source_, 0.1, {u"TITLE=Prelude"_s});
    holdQueue();
    for (const QString& name : {u"a.aiff"_s, u"a.AIFF"_s}) {
        const QString output = writeFile(pathOf(name), aiffFile(makeSamples(44100, 2, 16, 100)));
        const auto task = DecodeFlacTask::initAsyncTaskWithFileNameQueueLaunchPathArguments(
            source_, &queue(), fakeTool(), {u"out"_s, output});
        queue().addTask(task);
        queue().cancelAllTasks(nullptr);
        EXPECT_EQ(fileBytes(output).contains("Prelude"), name == u"a.aiff"_s) << name.toStdString();
    }
}
