#include "AudioSamples.h"
#include "decode/DecodeAPETask.h"
#include "decode/DecodeTTATask.h"
#include "decode/DecodeWavpackTask.h"
#include "platform/errors/Exceptions.h"
#include "shell/Constants.h"
#include "support/ToolRun.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

struct Family
{
    const char* name;
    QString tool;
    QString source;
    QString firstStatus;
    QStringList (*arguments)(const QString& source, const QString& output, bool aiff);
    std::shared_ptr<ToolDecoder> (*make)(ZOLTTaskQueue* queue, const QString& file, const QString& folder,
                                         const QString& format);
    int outputAt, outputAtForAiff; ///< in the tool's vector, from 1
    QString progress;              ///< a piece with a number in it
    QString status;                ///< what the row shows of it
    int kept;                      ///< how often each piece reaches the results
    bool seesFailure;              ///< of the tool
};

void PrintTo(const Family& family, std::ostream* out)
{
    *out << family.name;
}

template <class Task>
std::shared_ptr<ToolDecoder> makeTask(ZOLTTaskQueue* queue, const QString& file, const QString& folder,
                                      const QString& format)
{
    return Task::initDecodeTaskWithQueueFileNameOutputPathFormat(queue, file, folder, format);
}

const std::vector<Family>& families()
{
    static const std::vector<Family> table{
        {"Wavpack", u"wvunpack"_s, u"a.wv"_s, u"Decoding from Wavpack"_s,
         [](const QString& source, const QString& output, bool aiff) {
             return aiff ? QStringList{source, u"-y"_s, u"-o"_s, output} : QStringList{source, u"-o"_s, output};
         },
         makeTask<DecodeWavpackTask>, 3, 4, u"\b 42% done..."_s, u"Decoding From Wavpack:  42%"_s, 2, true},
        {"TrueAudio", u"ttaenc"_s, u"a.tta"_s, u"Decoding from TTA"_s,
         [](const QString& source, const QString& output, bool) {
             return QStringList{source, u"-o"_s, output};
         },
         makeTask<DecodeTTATask>, 3, 3, u"\bPercent Progress: 42\b"_s, u"Decoding From TTA: 42%"_s, 2, false},
        {"MonkeysAudio", u"mac"_s, u"a.ape"_s, u"Decoding from Monkey's Audio"_s,
         [](const QString& source, const QString& output, bool) {
             return QStringList{source, output, u"-d"_s};
         },
         makeTask<DecodeAPETask>, 2, 2, u"Progress: 42% (7 seconds remaining, 9 seconds total)"_s,
         u"Decoding from Monkey's Audio: 42%   7 seconds remaining"_s, 1, true},
    };
    return table;
}

class ToolDecoders : public ToolRun<Family>
{
protected:
    QString source() const { return path(row().source); }
    std::shared_ptr<ToolDecoder> make(const QString& format = Constants::WAV)
    {
        file(row().source);
        return row().make(&queue_, source(), folder(), format);
    }
    /// The tool writes a WAV file of 5000 frames where it is told to, for AIFF output.
    QStringList writing() const
    {
        writeFile(elsewhere_.filePath(u"whole.wav"_s), waveFile(samples_));
        return {u"copy"_s, elsewhere_.filePath(u"whole.wav"_s), u"$%1"_s.arg(row().outputAtForAiff)};
    }
    QStringList onlyCall() const
    {
        const auto calls = tools_.calls(row().tool);
        EXPECT_EQ(calls.size(), 1);
        return calls.value(0);
    }
    QByteArray aiffSamples() const { return decodedByFfmpeg(path(u"a.aiff"_s), 16); }

    const Samples samples_ = makeSamples(44100, 2, 16, 5000);
};

INSTANTIATE_TEST_SUITE_P(Of, ToolDecoders, testing::ValuesIn(families()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

TEST_P(ToolDecoders, WavIsWrittenByTheToolUnderItsPlainName)
{
    install({});
    const auto task = make();
    const auto set = task->results();
    run(task);
    EXPECT_TRUE(set->taskSetDone());
    EXPECT_EQ(onlyCall(), row().arguments(source(), path(u"a.wav"_s), false));
    EXPECT_EQ(task->stageCount(), 1);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_EQ(othersThan({row().source}), QStringList()) << "no temporary file";
}

TEST_P(ToolDecoders, AnyOtherFormatIsWav)
{
    install({});
    EXPECT_EQ(run(make(u"OTHER"_s))->outFile(), path(u"a.wav"_s));
    EXPECT_EQ(onlyCall(), row().arguments(source(), path(u"a.wav"_s), false));
}

TEST_P(ToolDecoders, AiffIsMadeOfATemporaryWavInTheOutputFolderThatIsGoneAfterwards)
{
    install(writing());
    const auto task = make(Constants::AIFF);
    const QString temporary = task->outFile();
    EXPECT_EQ(path::deletingLastComponent(temporary), folder());
    EXPECT_EQ(path::extension(temporary), u"wav"_s);
    EXPECT_TRUE(QFile::exists(temporary));
    run(task);
    EXPECT_EQ(onlyCall(), row().arguments(source(), temporary, true));
    EXPECT_EQ(task->stageCount(), 2);
    EXPECT_EQ(task->stage(), 2);
    EXPECT_FALSE(task->error());
    EXPECT_EQ(othersThan({row().source}), QStringList{u"a.aiff"_s});
    EXPECT_TRUE(aiffSamples() == samples_.little);
}

TEST_P(ToolDecoders, RowFollowsTheTool)
{
    expectRowFollowsTheTool(make(), row().source);
}

TEST_P(ToolDecoders, FailureOfTheToolIsSeenWhereItsStatusIsRead)
{
    const LogCapture log;
    install({u"out"_s, u"why"_s, u"exit"_s, u"1"_s});
    const auto task = make();
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_EQ(task->error(), row().seesFailure);
    EXPECT_EQ(exists(row().source), row().seesFailure) << "kept: the source of a TTA file goes";
    EXPECT_EQ(task->topTextField()->stringValue(), row().seesFailure ? u"Error"_s : u"Complete"_s);
    EXPECT_EQ(queue_.outputWindows().empty(), !row().seesFailure);
    if (!row().seesFailure) return;
    EXPECT_EQ(onlyReport(), u"why"_s.repeated(row().kept) + u'\n');
}

TEST_P(ToolDecoders, GoodEndOpensNoWindowAndDeletesTheSourceIfAsked)
{
    expectGoodEndToOpenNoWindowAndToDeleteTheSourceIfAsked([this] { return make(); }, row().source);
}

TEST_P(ToolDecoders, ConversionIsTriedOnWhatAFailedToolLeft)
{
    const LogCapture log;
    install(writing() + QStringList{u"exit"_s, u"1"_s});
    run(make(Constants::AIFF));
    EXPECT_EQ(othersThan({row().source}), QStringList{u"a.aiff"_s});
    EXPECT_TRUE(aiffSamples() == samples_.little);
}

TEST_P(ToolDecoders, NothingToConvertIsAFailureAndKeepsTheSource)
{
    const LogCapture log;
    install({});
    const auto task = make(Constants::AIFF);
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(row().source));
    EXPECT_EQ(queue_.outputWindows().size(), 1U);
    EXPECT_EQ(othersThan({u"a.aiff"_s}), QStringList{row().source}) << "the temporary file is gone";
}

TEST_P(ToolDecoders, CancelKeepsTheSourceAndReportsTwice)
{
    const LogCapture log;
    const auto task = make();
    task->setDeleteOriginal(true);
    cancelAtTheTool(task);
    EXPECT_TRUE(exists(row().source));
    EXPECT_EQ(exists(u"ended"_s), row().seesFailure) << "ttaenc alone is ended by a cancel";
    EXPECT_EQ(log.count(u"Exception in queue taskCompleted"_s), 1);
}

TEST_P(ToolDecoders, CancelOfAnAiffLeavesNoTemporaryFile)
{
    const LogCapture log;
    install(writing() + QStringList{u"wait-file"_s, path(u"go"_s), u"flood"_s, u"300000"_s});
    cancelAt(make(Constants::AIFF), row().firstStatus);
    EXPECT_EQ(othersThan({row().source, u"go"_s}), QStringList(u"a.aiff"_s)) << "kept: the conversion begins";
    EXPECT_EQ(statedLength(path(u"a.aiff"_s)), 0);
}

TEST_P(ToolDecoders, TaskThatIsWithdrawnBeforeItBeganLeavesNothing)
{
    install({});
    queue_.setHeld(true);
    queue_.addTask(make(Constants::AIFF));
    EXPECT_EQ(othersThan({row().source}).size(), 1);
    queue_.withdrawTask(queue_.taskArray().at(0));
    queue_.setHeld(false);
    settle();
    EXPECT_EQ(othersThan({row().source}), QStringList());
    EXPECT_TRUE(tools_.calls(row().tool).isEmpty());
}

TEST_P(ToolDecoders, ToolThatIsNotThereLeavesNoTemporaryFile)
{
    expectMissingToolToLeaveNothingBut(row().source, make(Constants::AIFF));
}

TEST_P(ToolDecoders, FolderThatTakesNoTemporaryFileMakesNoTask)
{
    EXPECT_THROW(row().make(&queue_, source(), u"/proc"_s, Constants::AIFF), AssertionException);
}

class DecodersTexts : public TaskRun
{
};

TEST_F(DecodersTexts, CancelOfTtaencShowsAtOnceAndEndsItAtItsNextWords)
{
    const LogCapture log;
    const QString go = path(u"go"_s);
    tools_.install(u"ttaenc"_s, {u"touch"_s, path(u"begun"_s), u"wait-file"_s, go, u"out"_s, u"x"_s, u"wait-file"_s,
                                 path(u"never"_s)});
    const auto task = makeTask<DecodeTTATask>(&queue_, file(u"a.tta"_s), folder(), Constants::WAV);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return exists(u"begun"_s); }));
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { touch(go); }, Qt::QueuedConnection);
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_FALSE(QFile::exists(go)) << "nothing was waited for";
    settle();
    EXPECT_TRUE(QFile::exists(go));
}

TEST_F(DecodersTexts, MonkeysAudioFailsByItsTextThoughItExitsWithZero)
{
    const LogCapture log;
    for (const QString& text : {u"Error: 1000"_s, u"Error: 2000"_s, u"Error: 10999"_s}) {
        tools_.install(u"mac"_s, {u"out"_s, text});
        EXPECT_TRUE(run(makeTask<DecodeAPETask>(&queue_, file(u"a.ape"_s), folder(), Constants::WAV))->error());
    }
    tools_.install(u"mac"_s, {u"out"_s, u"Error: 3000"_s});
    EXPECT_FALSE(run(makeTask<DecodeAPETask>(&queue_, file(u"a.ape"_s), folder(), Constants::WAV))->error());
}

TEST_F(DecodersTexts, MonkeysAudioIsReadOnBehindAnError)
{
    const LogCapture log;
    tools_.install(u"mac"_s, {u"out"_s, u"Error: 1000"_s, u"wait-file"_s, path(u"go"_s), u"out"_s, u" more"_s});
    const auto task = makeTask<DecodeAPETask>(&queue_, file(u"a.ape"_s), folder(), Constants::WAV);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->error(); }));
    touch(path(u"go"_s));
    settle();
    EXPECT_EQ(onlyReport(), u"Error: 1000 more\n"_s);
}

TEST_F(DecodersTexts, MonkeysProgressWithoutSecondsLeavesTheStatusLine)
{
    const auto task = makeTask<DecodeAPETask>(nullptr, path(u"a.ape"_s), folder(), Constants::WAV);
    task->processTaskOutput(u"Progress: 5% (3 seconds remaining, 4 seconds total)"_s);
    task->processTaskOutput(u"Progress: 42% "_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Decoding from Monkey's Audio: 5%   3 seconds remaining"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), -1);
    task->setResults(nullptr);
}
