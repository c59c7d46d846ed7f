#include "AudioSamples.h"
#include "encode/EncodeApeTask.h"
#include "encode/EncodeTTATask.h"
#include "encode/EncodeWavpackTask.h"
#include "support/ToolRun.h"
#include "support/TrashIn.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

struct Encoder
{
    const char* name;
    QString tool;
    QString extension;
    QString firstStatus;
    QStringList (*arguments)(const QString& input, const QString& output);
    std::shared_ptr<TwoStageEncoder> (*make)(ZOLTTaskQueue* queue, const QString& file, const QString& folder);
    QString progress; ///< a piece with a number in it
    QString status;   ///< what the row shows of it
    int kept;         ///< how often each piece reaches the results
    bool stopsOnError;
};

void PrintTo(const Encoder& encoder, std::ostream* out)
{
    *out << encoder.name;
}

const std::vector<Encoder>& encoders()
{
    static const std::vector<Encoder> table{
        {"Wavpack", u"wavpack"_s, u"wv"_s, u"Encoding to Wavpack"_s,
         [](const QString& input, const QString& output) {
             return QStringList{u"-f"_s, input, u"-o"_s, output};
         },
         [](ZOLTTaskQueue* queue, const QString& file, const QString& folder) -> std::shared_ptr<TwoStageEncoder> {
             return EncodeWavpackTask::initEncodeTaskWithQueueFileNameLevelOutputPath(queue, file, u"-f"_s, folder);
         },
         u"\b 42% done..."_s, u"Encoding to Wavpack:  42%"_s, 1, true},
        {"TrueAudio", u"ttaenc"_s, u"tta"_s, u"Encoding to TTA"_s,
         [](const QString& input, const QString& output) {
             return QStringList{input, u"-o"_s, output};
         },
         [](ZOLTTaskQueue* queue, const QString& file, const QString& folder) -> std::shared_ptr<TwoStageEncoder> {
             return EncodeTTATask::initEncodeTaskWithQueueFileNameOutputPath(queue, file, folder);
         },
         u"Percent Progress: 42"_s, u"Encoding to TTA: 42%"_s, 2, false},
        {"MonkeysAudio", u"mac"_s, u"ape"_s, u"Encoding to Monkey's Audio"_s,
         [](const QString& input, const QString& output) {
             return QStringList{input, output, u"-c2000"_s};
         },
         [](ZOLTTaskQueue* queue, const QString& file, const QString& folder) -> std::shared_ptr<TwoStageEncoder> {
             return EncodeApeTask::initEncodeTaskWithQueueFileNameLevelOutputPath(queue, file, u"2000"_s, folder);
         },
         u"Progress: 42% (7 seconds remaining, 9 seconds total)"_s,
         u"Encoding to Monkey's Audio: 42%   7 seconds remaining"_s, 1, true},
    };
    return table;
}

class TwoStages : public ToolRun<Encoder>
{
protected:
    std::shared_ptr<TwoStageEncoder> make(const QString& file) { return row().make(&queue_, file, folder()); }
    QString out(const QString& base) const { return base + u'.' + row().extension; }
    QString aiff(const QString& name = u"a.aiff"_s) const
    {
        return writeFile(path(name), aiffFile(makeSamples(44100, 2, 16, 5000)));
    }
    QStringList expectedCall(const QString& input) const { return row().arguments(input, path(out(u"a"_s))); }
};

INSTANTIATE_TEST_SUITE_P(Of, TwoStages, testing::ValuesIn(encoders()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(TwoStages, AnyOtherSourceGoesToTheToolAsItIs)
{
    install({});
    for (const QString& name : {u"a.wav"_s, u"a.flac"_s, u"a.m4a"_s, u"a"_s}) {
        const auto task = run(make(path(name)));
        EXPECT_EQ(tools_.calls(row().tool).last(), expectedCall(path(name)));
        EXPECT_EQ(task->stageCount(), 1);
        EXPECT_EQ(task->stage(), 1);
        EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    }
    EXPECT_EQ(othersThan({}), QStringList()) << "no temporary file";
}

TEST_P(TwoStages, SourceGoesWhereTheSettingSays)
{
    const TrashIn trash(elsewhere_.path());
    install({});
    const auto task = make(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(u"a.wav"_s));
    EXPECT_TRUE(trash.holds(u"a.wav"_s));
}

TEST_P(TwoStages, OutputOfAFailedToolStays)
{
    install({u"touch"_s, path(out(u"a"_s)), u"exit"_s, u"1"_s});
    run(make(file(u"a.wav"_s)));
    EXPECT_EQ(othersThan({u"a.wav"_s}), QStringList({out(u"a"_s)})) << "kept: only the temporary WAV is taken away";
}

TEST_P(TwoStages, AiffBecomesATemporaryWavInTheOutputFolderThatIsGoneAfterwards)
{
    for (const QString& name : {u"a.aiff"_s, u"a.AIF"_s}) {
        install({u"size"_s, u"$%1"_s.arg(row().tool == u"wavpack"_s ? 2 : 1), u"exit"_s, u"1"_s});
        const LogCapture log;
        const auto task = run(make(aiff(name)));
        const QStringList call = tools_.calls(row().tool).last();
        const QString input = call.at(row().tool == u"wavpack"_s ? 1 : 0);
        EXPECT_EQ(path::deletingLastComponent(input), folder());
        EXPECT_EQ(path::extension(input), u"wav"_s);
        EXPECT_EQ(call, expectedCall(input));
        EXPECT_EQ(queue_.outputWindows().back()->textField()->string(), u"20044"_s.repeated(row().kept) + u'\n')
            << "the tool found 5000 frames behind a header";
        EXPECT_EQ(othersThan({u"a.aiff"_s, u"a.AIF"_s}), QStringList()) << "also when it failed";
        EXPECT_EQ(task->stageCount(), 2);
        EXPECT_EQ(task->stage(), 2);
    }
}

TEST_P(TwoStages, RowFollowsTheTool)
{
    expectRowFollowsTheTool(make(file(u"a.wav"_s)), u"a.wav"_s);
}

TEST_P(TwoStages, FailureKeepsSourceAndText)
{
    const LogCapture log;
    install({u"out"_s, u"why"_s, u"exit"_s, u"1"_s});
    const auto task = make(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(u"a.wav"_s));
    EXPECT_EQ(onlyReport(), u"why"_s.repeated(row().kept) + u'\n');
}

TEST_P(TwoStages, GoodEndOpensNoWindowAndDeletesTheSourceIfAsked)
{
    file(u"a.wav"_s);
    expectGoodEndToOpenNoWindowAndToDeleteTheSourceIfAsked([this] { return make(path(u"a.wav"_s)); }, u"a.wav"_s);
}

TEST_P(TwoStages, CancelWaitsForTheToolAndKeepsTheSource)
{
    const LogCapture log;
    const auto task = make(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    cancelAtTheTool(task);
    EXPECT_TRUE(exists(u"ended"_s));
    EXPECT_TRUE(exists(u"a.wav"_s));
}

TEST_P(TwoStages, CancelDuringTheConversionStillClearsUp)
{
    const LogCapture log;
    install({});
    writeFile(path(u"a.aiff"_s), aiffFile(makeSamples(44100, 2, 16, 700000)));
    const auto task = make(path(u"a.aiff"_s));
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->stage() >= 1; }));
    task->cancelTask(nullptr);
    settle();
    EXPECT_EQ(othersThan({u"a.aiff"_s}), QStringList());
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
}

TEST_P(TwoStages, SourceThatCannotBeConvertedFailsWithItsReasonThoughTheToolIsRun)
{
    const LogCapture log;
    install({});
    const auto task = make(file(u"a.aiff"_s, "no audio"));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(onlyReport().startsWith(u"Error encoding %1 to Apple Lossless:\n"_s.arg(path(u"a.aiff"_s))));
    EXPECT_EQ(tools_.calls(row().tool).size(), 1);
    EXPECT_EQ(othersThan({}), QStringList({u"a.aiff"_s}));
}

TEST_P(TwoStages, ToolThatIsNotThereLeavesNoTemporaryFile)
{
    expectMissingToolToLeaveNothingBut(u"a.aiff"_s, make(aiff()));
}

class EncodersTexts : public TaskRun
{
};

TEST_F(EncodersTexts, WavpackThatAsksAboutOverwritingFailsAndIsNotReadOn)
{
    const LogCapture log;
    tools_.install(u"wavpack"_s, {u"out"_s, u"overwrite a.wv (yes/no/all)? "_s, u"wait-file"_s, path(u"go"_s), u"out"_s,
                                  u"more"_s, u"touch"_s, path(u"ended"_s)});
    const auto task =
        EncodeWavpackTask::initEncodeTaskWithQueueFileNameLevelOutputPath(&queue_, file(u"a.wav"_s), u"-h"_s, folder());
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->error(); }));
    touch(path(u"go"_s));
    settle();
    EXPECT_TRUE(exists(u"ended"_s)) << "the row waits for the tool's end";
    EXPECT_EQ(onlyReport(), u"overwrite a.wv (yes/no/all)? \n"_s);
    EXPECT_EQ(tools_.calls(u"wavpack"_s).at(0).at(0), u"-h"_s);
}

TEST_F(EncodersTexts, TrueAudioIsReadOnWhateverItSays)
{
    tools_.install(u"ttaenc"_s, {u"out"_s, u"overwrite (yes/no/all)? Error: 10"_s});
    const auto task = EncodeTTATask::initEncodeTaskWithQueueFileNameOutputPath(&queue_, file(u"a.wav"_s), folder());
    EXPECT_FALSE(run(task)->error());
}

TEST_F(EncodersTexts, TrueAudioIsReadOnBehindAFailedConversion)
{
    const LogCapture log;
    tools_.install(u"ttaenc"_s, {u"out"_s, u"heard"_s});
    const auto task =
        EncodeTTATask::initEncodeTaskWithQueueFileNameOutputPath(&queue_, file(u"a.aiff"_s, "no audio"), folder());
    EXPECT_TRUE(run(task)->error());
    EXPECT_TRUE(onlyReport().endsWith(u"heardheard\n"_s));
}

TEST_F(EncodersTexts, MonkeysAudioFailsByItsTextThoughItExitsWithZero)
{
    const LogCapture log;
    tools_.install(u"mac"_s, {u"out"_s, u"Error: 1002"_s});
    const auto task =
        EncodeApeTask::initEncodeTaskWithQueueFileNameLevelOutputPath(&queue_, file(u"a.wav"_s), u"1000"_s, folder());
    EXPECT_TRUE(run(task)->error());
    EXPECT_EQ(onlyReport(), u"Error: 1002\n"_s);
}
