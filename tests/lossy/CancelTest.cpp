// A cancel at each stage of both tasks, by every way that a source takes.
#include "encode/M4aTargetRun.h"
#include "lossy/EncodeAACTask.h"
#include "lossy/EncodeMP3Task.h"
#include "lossy/LossyTitles.h"
#include "support/HeldControl.h"
#include "tags/TagLibTagsHelper.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// A source's name, as which its file is made.
using Source = const char*;

class Cancel : public M4aTargetRun, public testing::WithParamInterface<Source>
{
protected:
    QString name() const { return QString::fromLatin1(GetParam()); }
    QString kind() const { return path::extension(name()).toLower(); }

    /// The source: real where the program itself reads it, any bytes where only a tool does.
    QString makeSource() const
    {
        if (kind() == u"wav"_s) return writeFile(path(name()), waveFile(decoded_));
        if (kind().startsWith(u"aif"_s)) return writeFile(path(name()), aiffFile(decoded_));
        const QString wav = writeFile(elsewhere_.filePath(u"s.wav"_s), waveFile(decoded_));
        if (kind() == u"flac"_s)
            runTool(u"flac"_s, {u"-s"_s, u"-T"_s, u"TITLE=Späti"_s, u"-o"_s, path(name()), wav});
        else if (kind() == u"m4a"_s)
            runTool(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, wav, u"-c:a"_s, u"alac"_s, u"-metadata"_s,
                                  u"title=Späti"_s, path(name())});
        else
            return file(name());
        return path(name());
    }
    /// The words of a tool that says that it has begun, waits for the file "go" and says that it goes to its end.
    QStringList waiting() const
    {
        return {u"touch"_s, path(u"begun"_s), u"wait-file"_s, path(u"go"_s), u"touch"_s, path(u"ended"_s)};
    }
    bool isDecodedFirst() const { return kind() == u"flac"_s || kind() == u"shn"_s; }
    /// The words of a decoder that gets to 42 per cent and waits then.
    QStringList waitingDecoder() const
    {
        return QStringList{u"out"_s, kind() == u"flac"_s ? u"a.flac: 42% complete"_s : u" 42% "_s} + waiting();
    }
    /// The task knows its tool then, and a cancel waits for it.
    void waitForTheDecoding()
    {
        ASSERT_TRUE(runUntil([&] { return bar_.model()->doubleValue() == 42; }));
    }
    /// @param before  what the decoder does ahead of writing its WAV
    void installDecoderOfKind(const QStringList& before)
    {
        kind() == u"flac"_s ? installDecoder(u"flac"_s, 4, before) : installDecoder(u"shntool"_s, 9, before);
    }
    void start(const std::shared_ptr<ZOLTTask>& task)
    {
        task->setDeleteOriginal(true);
        task->setProgressIndicator(bar_.model());
        task->setTopTextField(status_.model());
        queue_.addTask(task);
    }
    void waitFor(const QString& fileName)
    {
        ASSERT_TRUE(runUntil([&] { return exists(fileName); })) << fileName.toStdString();
    }
    void waitForStatus(const QString& text)
    {
        ASSERT_TRUE(runUntil([&] { return status_.model()->stringValue() == text; })) << text.toStdString();
    }
    void expectCanceledRowAndSource(const ZOLTTask& task, const QStringList& outputs)
    {
        EXPECT_EQ(task.textField()->stringValue(), u"Canceled"_s);
        EXPECT_TRUE(exists(name()));
        EXPECT_EQ(othersThan({name(), u"begun"_s, u"go"_s, u"ended"_s}), outputs) << "no temporary file";
        EXPECT_TRUE(queue_.outputWindows().empty());
        EXPECT_TRUE(queue_.panelArray().empty());
        EXPECT_EQ(test::run(u"pgrep"_s, {u"-f"_s, path(u"go"_s)}), QByteArray()) << "no tool is left";
    }

    HeldControl<ProgressIndicator> bar_;
    HeldControl<TextField> status_;
};

class CancelledMP3 : public Cancel
{
protected:
    std::shared_ptr<EncodeMP3Task> make()
    {
        return EncodeMP3Task::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(&queue_, makeSource(), lossyTitle::CBR,
                                                                                 folder(), 192);
    }
    /// A shntool that leaves an MP3 named after its input before or after it waits.
    void installNamingShntool(bool writesFirst)
    {
        const QString mp3 = elsewhere_.filePath(u"e.mp3"_s);
        runTool(u"lame"_s, {u"--quiet"_s, writeFile(elsewhere_.filePath(u"e.wav"_s), waveFile(decoded_)), mp3});
        const QString writes = u"cp '%1' \"${in%.*}.mp3\"\n"_s.arg(mp3);
        const QString waits = u"touch '%1/begun'\nwhile [ ! -e '%1/go' ]; do sleep 0.01; done\n"_s.arg(folder());
        tools_.install(u"shntool"_s);
        QFile script(tools_.directory() + u"/shntool"_s);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write((u"#!/bin/sh\neval in=\\${$#}\n"_s + (writesFirst ? writes + waits : waits + writes) +
                      u"touch '%1/ended'\n"_s.arg(folder()))
                         .toUtf8());
    }
    QString title() const { return textOrEmpty(TagLibTagsHelper().tagsForMP3File(path(u"a.mp3"_s))->titleText()); }
};

class CancelledMP3WithTags : public CancelledMP3
{
};

class CancelledMP3OfAppleLossless : public CancelledMP3
{
};

class CancelledAAC : public Cancel
{
protected:
    std::shared_ptr<EncodeAACTask> make()
    {
        return EncodeAACTask::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(&queue_, makeSource(), lossyTitle::CBR,
                                                                                 folder(), 160);
    }
    void expectToolStringAndGaplessPass() const
    {
        EXPECT_TRUE(tagsOf(u"a.m4a"_s).contains("CBR 160kbps")) << "kept: what is there gets tags";
        EXPECT_EQ(tagsOf(u"a.m4a"_s).contains("title=Späti"), kind() == u"flac"_s);
        EXPECT_EQ(tools_.calls(u"AtomicParsley"_s).size(), 1);
    }
};

class CancelledAACOfADecodedSource : public CancelledAAC
{
};

class CancelledAACOfAnotherKind : public CancelledAAC
{
};

/// Test names hold letters alone.
std::string nameOfRow(const testing::TestParamInfo<Source>& row)
{
    return row.param + 2;
}

INSTANTIATE_TEST_SUITE_P(Of, CancelledMP3,
                         testing::Values("a.wav", "a.aif", "a.aiff", "a.flac", "a.FLAC", "a.shn", "a.wv", "a.tta",
                                         "a.m4a"),
                         nameOfRow);
INSTANTIATE_TEST_SUITE_P(Of, CancelledMP3WithTags, testing::Values("a.flac", "a.m4a"), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Of, CancelledMP3OfAppleLossless, testing::Values("a.m4a"), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Of, CancelledAAC, testing::Values("a.wav", "a.aif", "a.aiff", "a.flac", "a.shn"), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Of, CancelledAACOfADecodedSource, testing::Values("a.flac", "a.FLAC", "a.shn"), nameOfRow);
INSTANTIATE_TEST_SUITE_P(Of, CancelledAACOfAnotherKind, testing::Values("a.wv", "a.tta", "a.m4a"), nameOfRow);

} // namespace

TEST_P(CancelledMP3, EndsTheToolWhileItEncodes)
{
    tools_.install(u"shntool"_s, waiting());
    const auto task = make();
    start(task);
    waitFor(u"begun"_s);
    task->cancelTask(nullptr);
    settle();
    expectCanceledRowAndSource(*task, {});
    EXPECT_FALSE(exists(u"ended"_s)) << "the tool was not left to its end";
    EXPECT_FALSE(task->error());
}

TEST_P(CancelledMP3WithTags, WritesThemAllTheSame)
{
    installNamingShntool(false);
    const auto task = make();
    start(task);
    waitFor(u"begun"_s);
    status_.hold(); // the thread gets as far as to say that it copies tags
    touch(path(u"go"_s));
    waitFor(u"ended"_s);
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    status_.letGo();
    settle();
    expectCanceledRowAndSource(*task, {u"a.mp3"_s});
    EXPECT_EQ(title(), u"Späti"_s);
    EXPECT_TRUE(status_.model()->stringValue().startsWith(u"Copying "_s));
}

TEST_P(CancelledMP3OfAppleLossless, NamesWhatTheToolHasWrittenByThen)
{
    installNamingShntool(true);
    const auto task = make();
    start(task);
    waitFor(u"begun"_s);
    task->cancelTask(nullptr);
    settle();
    expectCanceledRowAndSource(*task, {u"a.mp3"_s});
    EXPECT_EQ(title(), u"Späti"_s);
    EXPECT_FALSE(exists(u"ended"_s));
}

TEST_P(CancelledMP3OfAppleLossless, RemovesTheTemporaryWavAndEndsTheToolAsItStarts)
{
    tools_.install(u"shntool"_s, waiting());
    const auto task = make();
    bar_.hold(); // the thread gets as far as to begin the decoding
    start(task);
    waitForStatus(u"Decoding ALAC to Wav"_s);
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s) << "at once: no tool runs";
    bar_.letGo();
    settle();
    expectCanceledRowAndSource(*task, {});
    EXPECT_FALSE(exists(u"ended"_s));
    EXPECT_FALSE(task->error());
}

TEST_P(CancelledAACOfADecodedSource, LetsTheDecoderEndAndLeavesAnEmptyFile)
{
    installDecoderOfKind(waitingDecoder());
    const auto task = make();
    start(task);
    waitForTheDecoding();
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { touch(path(u"go"_s)); }, Qt::QueuedConnection);
    task->cancelTask(nullptr);
    EXPECT_TRUE(exists(u"ended"_s)) << "the cancel waits for the tool";
    settle();
    expectCanceledRowAndSource(*task, {u"a.m4a"_s});
    EXPECT_EQ(statedLength(path(u"a.m4a"_s)), 0);
    expectToolStringAndGaplessPass();
    EXPECT_FALSE(task->error());
}

TEST_P(CancelledAAC, LeavesAnEmptyFileWhereTheEncodingBegins)
{
    installDecoderOfKind(waitingDecoder());
    const auto task = make();
    if (!isDecodedFirst()) bar_.hold();
    start(task);
    if (isDecodedFirst()) {
        waitForTheDecoding();
        bar_.hold();
        touch(path(u"go"_s));
    }
    waitForStatus(u"Encoding to AAC"_s);
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    bar_.letGo();
    settle();
    expectCanceledRowAndSource(*task, {u"a.m4a"_s});
    EXPECT_EQ(statedLength(path(u"a.m4a"_s)), 0);
    expectToolStringAndGaplessPass();
    EXPECT_FALSE(task->error());
}

TEST_P(CancelledAAC, KeepsTheSourceAndLetsTheGaplessPassEnd)
{
    installDecoderOfKind({});
    tools_.install(u"AtomicParsley"_s, waiting());
    const auto task = make();
    start(task);
    waitFor(u"begun"_s);
    EXPECT_EQ(status_.model()->stringValue(), u"Making Gapless"_s);
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s) << "at once: it is no tool of the task's own";
    EXPECT_FALSE(exists(u"ended"_s));
    touch(path(u"go"_s));
    settle();
    expectCanceledRowAndSource(*task, {u"a.m4a"_s});
    EXPECT_TRUE(exists(u"ended"_s));
    EXPECT_GE(statedLength(path(u"a.m4a"_s)), decoded_.frames);
    expectToolStringAndGaplessPass();
}

TEST_P(CancelledAACOfAnotherKind, LeavesNothingOfWhatTheServiceDeclines)
{
    const auto task = make();
    bar_.hold();
    start(task);
    waitForStatus(u"Encoding to AAC"_s);
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    const QByteArray before = fileBytes(path(name()));
    bar_.letGo();
    settle();
    expectCanceledRowAndSource(*task, {});
    EXPECT_EQ(fileBytes(path(name())), before);
    EXPECT_TRUE(tools_.calls(u"AtomicParsley"_s).isEmpty());
}
