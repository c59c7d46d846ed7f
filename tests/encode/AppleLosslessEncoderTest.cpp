#include "AudioSamples.h"
#include "encode/EncodeALACToAPETask.h"
#include "encode/EncodeALACToFlacTask.h"
#include "encode/EncodeALACToTTATask.h"
#include "encode/EncodeALACToWavpackTask.h"
#include "platform/errors/Exceptions.h"
#include "support/FileSizeLimit.h"
#include "support/ToolRun.h"
#include "tags/FlacTagHelper.h"
#include "tags/TagLibTagsHelper.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

using Base = std::shared_ptr<AppleLosslessEncoder>;

struct Encoder
{
    const char* name;
    QString tool;
    QString extension;
    QString firstStatus;
    QStringList (*arguments)(const QString& input, const QString& output);
    Base (*make)(ZOLTTaskQueue* queue, const QString& file, const QString& folder);
    int input; ///< where the WAV stands in the arguments
    int kept;  ///< how often each piece reaches the results
};

void PrintTo(const Encoder& encoder, std::ostream* out)
{
    *out << encoder.name;
}

const std::vector<Encoder>& encoders()
{
    static const std::vector<Encoder> table{
        {"Flac", u"flac"_s, u"flac"_s, u"Encoding Apple Lossless to Flac"_s,
         [](const QString& input, const QString& output) {
             return QStringList{input, u"-o"_s, output};
         },
         [](ZOLTTaskQueue* queue, const QString& file, const QString& folder) -> Base {
             return EncodeALACToFlacTask::initEncodeTaskWithQueueFileNameOutputPathLevelVerify(queue, file, folder, 8,
                                                                                               false);
         },
         0, 1},
        {"Wavpack", u"wavpack"_s, u"wv"_s, u"Encoding Apple Lossless to Wavpack"_s,
         [](const QString& input, const QString& output) {
             return QStringList{u"-h"_s, input, u"-o"_s, output};
         },
         [](ZOLTTaskQueue* queue, const QString& file, const QString& folder) -> Base {
             return EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(queue, file, folder,
                                                                                            u"-h"_s);
         },
         1, 1},
        {"TrueAudio", u"ttaenc"_s, u"tta"_s, u"Encoding Apple Lossless to TTA"_s,
         [](const QString& input, const QString& output) {
             return QStringList{input, u"-o"_s, output};
         },
         [](ZOLTTaskQueue* queue, const QString& file, const QString& folder) -> Base {
             return EncodeALACToTTATask::initEncodeTaskWithQueueFileNameOutputPath(queue, file, folder);
         },
         0, 2},
        {"MonkeysAudio", u"mac"_s, u"ape"_s, u"Encoding Apple Lossless to APE"_s,
         [](const QString& input, const QString& output) {
             return QStringList{input, output, u"-c3000"_s};
         },
         [](ZOLTTaskQueue* queue, const QString& file, const QString& folder) -> Base {
             return EncodeALACToAPETask::initEncodeTaskWithQueueFileNameOutputPathLevel(queue, file, folder, u"3000"_s);
         },
         0, 1},
    };
    return table;
}

/// Makes an Apple Lossless file with a title. @return its path
QString makeAppleLossless(const QString& path, int frames = 5000, const QString& comment = {})
{
    const QString wav = path + u".source.wav"_s;
    writeFile(wav, waveFile(makeSamples(44100, 2, 16, frames)));
    runTool(u"ffmpeg"_s,
            {u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, wav, u"-c:a"_s, u"alac"_s, u"-metadata"_s, u"title=Späti"_s,
             u"-metadata"_s, u"artist=Nobody"_s, u"-metadata"_s, u"comment="_s + comment, path});
    QFile::remove(wav);
    return path;
}

class FromAppleLossless : public ToolRun<Encoder>
{
protected:
    Base make() { return row().make(&queue_, source_, folder()); }
    QString output() const { return u"a."_s + row().extension; }

    QString source_ = makeAppleLossless(path(u"a.m4a"_s));
};

INSTANTIATE_TEST_SUITE_P(Of, FromAppleLossless, testing::ValuesIn(encoders()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(FromAppleLossless, ToolGetsATemporaryWavOfTheOutputFolderThatIsGoneAfterwards)
{
    const LogCapture log;
    install({u"size"_s, u"$%1"_s.arg(row().input + 1), u"exit"_s, u"1"_s});
    const auto task = run(make());
    const QStringList call = tools_.calls(row().tool).value(0);
    const QString input = call.value(row().input);
    EXPECT_EQ(path::deletingLastComponent(input), folder());
    EXPECT_EQ(call, row().arguments(input, path(output())));
    EXPECT_EQ(onlyReport(), u"20044"_s.repeated(row().kept) + u'\n');
    EXPECT_EQ(othersThan({u"a.m4a"_s}), QStringList());
    EXPECT_EQ(task->stage(), 2);
    EXPECT_EQ(task->stageCount(), 2);
    EXPECT_TRUE(task->error());
}

TEST_P(FromAppleLossless, GoodEndOpensNoWindow)
{
    const LogCapture log;
    install({u"out"_s, u"fine"_s});
    const auto task = make();
    EXPECT_EQ(task->title(), u"a.m4a"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.m4a"_s);
    run(task);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_P(FromAppleLossless, RowNamesTheEncodingBeforeTheToolSpeaks)
{
    const LogCapture log;
    install({u"wait-file"_s, path(u"go"_s)});
    file(u"a.m4a"_s, "no audio"); // a conversion would show how far it is
    const auto task = make();
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return !tools_.calls(row().tool).isEmpty(); }));
    EXPECT_EQ(task->topTextField()->stringValue(), row().firstStatus);
    touch(path(u"go"_s));
    settle();
}

TEST_P(FromAppleLossless, CannotBeToldToDeleteItsSource)
{
    const auto task = make();
    EXPECT_THROW(task->setDeleteOriginal(true), InvalidArgumentException);
    task->setResults(nullptr);
}

TEST_P(FromAppleLossless, SourceThatCannotBeDecodedStillRunsTheTool)
{
    const LogCapture log;
    install({});
    file(u"a.m4a"_s, "no audio");
    const auto task = run(make());
    EXPECT_TRUE(task->error());
    EXPECT_EQ(tools_.calls(row().tool).size(), 1);
    EXPECT_TRUE(onlyReport().startsWith(u"Error encoding "_s));
    EXPECT_EQ(othersThan({u"a.m4a"_s}), QStringList());
}

TEST_P(FromAppleLossless, CancelWaitsForTheToolAndClearsUp)
{
    const LogCapture log;
    install(
        {u"touch"_s, path(u"begun"_s), u"wait-file"_s, path(u"go"_s), u"out"_s, u"y"_s, u"touch"_s, path(u"ended"_s)});
    const auto task = make();
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return exists(u"begun"_s); }));
    cancelAtWork(task);
    EXPECT_TRUE(exists(u"ended"_s));
    EXPECT_EQ(othersThan({u"a.m4a"_s, u"begun"_s, u"go"_s, u"ended"_s}), QStringList());
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
}

TEST_P(FromAppleLossless, CancelDuringTheDecodingClearsUp)
{
    const LogCapture log;
    install({});
    source_ = makeAppleLossless(path(u"a.m4a"_s), 700000);
    const auto task = make();
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->stage() >= 1; }));
    task->cancelTask(nullptr);
    settle();
    EXPECT_EQ(othersThan({u"a.m4a"_s}), QStringList());
}

TEST_P(FromAppleLossless, ToolThatIsNotThereLeavesNoTemporaryFile)
{
    expectMissingToolToLeaveNothingBut(u"a.m4a"_s, make());
}

class AppleLosslessTags : public TaskRun
{
protected:
    /// What a task leaves of tags in an output that its tool "wrote", by a copy of a file made before.
    template <class Task>
    void runWith(const std::shared_ptr<Task>& task, const QString& tool, const QString& made, int status = 0)
    {
        tools_.install(tool,
                       {u"copy"_s, made, task->title() == u"a.m4a"_s ? path(u"a."_s + path::extension(made)) : u""_s,
                        u"exit"_s, QString::number(status)});
        run(task);
    }
    QString source_ = makeAppleLossless(path(u"a.m4a"_s));
    const LogCapture log_;
};

TEST_F(AppleLosslessTags, FlacGetsThemThroughMetaflacAlsoAfterAFailure)
{
    tools_.installReal(u"metaflac"_s, u"/usr/bin/metaflac"_s);
    const QString wav = writeFile(elsewhere_.filePath(u"x.wav"_s), waveFile(makeSamples(44100, 2, 16, 500)));
    const QString flac = elsewhere_.filePath(u"x.flac"_s);
    runTool(u"flac"_s, {u"-s"_s, u"-o"_s, flac, wav});
    for (const int status : {0, 1}) {
        QFile::remove(path(u"a.flac"_s));
        runWith(EncodeALACToFlacTask::initEncodeTaskWithQueueFileNameOutputPathLevelVerify(&queue_, source_, folder(),
                                                                                           5, false),
                u"flac"_s, flac, status);
        EXPECT_EQ(FlacTagHelper().tagForFileTagKey(path(u"a.flac"_s), u"TITLE"_s), u"Späti"_s);
    }
}

TEST_F(AppleLosslessTags, WavpackGetsThem)
{
    const QString wav = writeFile(elsewhere_.filePath(u"x.wav"_s), waveFile(makeSamples(44100, 2, 16, 500)));
    const QString made = elsewhere_.filePath(u"x.wv"_s);
    runTool(u"wavpack"_s, {u"-q"_s, u"-y"_s, wav, u"-o"_s, made});
    runWith(
        EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(&queue_, source_, folder(), u"-f"_s),
        u"wavpack"_s, made);
    EXPECT_EQ(TagLibTagsHelper().tagsForWavpackFile(path(u"a.wv"_s))->titleText(), u"Späti"_s);
}

TEST_F(AppleLosslessTags, CancelAtTheToolStillWritesThem)
{
    const QString wav = writeFile(elsewhere_.filePath(u"x.wav"_s), waveFile(makeSamples(44100, 2, 16, 500)));
    const QString made = elsewhere_.filePath(u"x.wv"_s);
    runTool(u"wavpack"_s, {u"-q"_s, u"-y"_s, wav, u"-o"_s, made});
    tools_.install(u"wavpack"_s,
                   {u"copy"_s, made, path(u"a.wv"_s), u"touch"_s, path(u"begun"_s), u"wait-file"_s, path(u"go"_s)});
    const auto task =
        EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(&queue_, source_, folder(), u"-f"_s);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return exists(u"begun"_s); }));
    cancelAtWork(task);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_EQ(TagLibTagsHelper().tagsForWavpackFile(path(u"a.wv"_s))->titleText(), u"Späti"_s);
}

TEST_F(AppleLosslessTags, TextOfWavpackOrMacFailsTheRowThoughTheToolDoesNot)
{
    tools_.install(u"wavpack"_s, {u"out"_s, u"overwrite a.wv (yes/no/all)? "_s});
    tools_.install(u"mac"_s, {u"out"_s, u"Error: 1002"_s});
    EXPECT_TRUE(run(EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(&queue_, source_, folder(),
                                                                                            u"-f"_s))
                    ->error());
    EXPECT_TRUE(
        run(EncodeALACToAPETask::initEncodeTaskWithQueueFileNameOutputPathLevel(&queue_, source_, folder(), u"2000"_s))
            ->error());
}

TEST_F(AppleLosslessTags, TrueAudioIsNotReadOnBehindAFailedConversion)
{
    tools_.install(u"ttaenc"_s, {u"out"_s, u"unheard"_s});
    file(u"a.m4a"_s, "no audio");
    run(EncodeALACToTTATask::initEncodeTaskWithQueueFileNameOutputPath(&queue_, source_, folder()));
    EXPECT_FALSE(onlyReport().contains(u"unheard"_s));
}

TEST_F(AppleLosslessTags, TagsThatFindNoRoomAreToldThoughTheRowIsComplete)
{
    makeAppleLossless(source_, 5000, QString(100000, u'x'));
    const QString wav = writeFile(elsewhere_.filePath(u"x.wav"_s), waveFile(makeSamples(44100, 2, 16, 500)));
    const QString made = elsewhere_.filePath(u"x.wv"_s);
    runTool(u"wavpack"_s, {u"-q"_s, u"-y"_s, wav, u"-o"_s, made});
    const FileSizeLimit limit(60000);
    const auto task =
        EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(&queue_, source_, folder(), u"-f"_s);
    runWith(task, u"wavpack"_s, made);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_TRUE(onlyReport().startsWith(u"The tags were not saved: "_s));
}

TEST_F(AppleLosslessTags, CancelBeforeTheToolLeavesAFileThatStandsThereAlone)
{
    const QString wav = writeFile(elsewhere_.filePath(u"x.wav"_s), waveFile(makeSamples(44100, 2, 16, 500)));
    runTool(u"wavpack"_s, {u"-q"_s, u"-y"_s, wav, u"-o"_s, path(u"a.wv"_s)});
    const QByteArray before = fileBytes(path(u"a.wv"_s));
    limit(0);
    const auto task =
        EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(&queue_, source_, folder(), u"-f"_s);
    queue_.addTask(task);
    task->cancelTask(nullptr);
    EXPECT_EQ(fileBytes(path(u"a.wv"_s)), before);
}

TEST_F(AppleLosslessTags, VerifyIsAllThatChangesTheVectorOfFlac)
{
    tools_.install(u"flac"_s);
    tools_.install(u"metaflac"_s);
    run(EncodeALACToFlacTask::initEncodeTaskWithQueueFileNameOutputPathLevelVerify(&queue_, source_, folder(), 0,
                                                                                   true));
    const QStringList call = tools_.calls(u"flac"_s).at(0);
    EXPECT_EQ(call, QStringList({u"-V"_s, call.at(1), u"-o"_s, path(u"a.flac"_s)}));
}

TEST_F(AppleLosslessTags, OutputThatWasNotMadeCostsTheRowNothing)
{
    tools_.install(u"wavpack"_s);
    const auto task = run(
        EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(&queue_, source_, folder(), u"-f"_s));
    EXPECT_EQ(task->textField()->stringValue(), u"a.m4a"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(log_.count(u"Unable to open the output file for tagging."_s), 1);
}
