#include "decode/DecodeSHNTask.h"
#include "decode/DecodeTab.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "shell/Constants.h"
#include "support/TaskRun.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class ShortenTask : public TaskRun
{
protected:
    std::shared_ptr<DecodeSHNTask> make(const QStringList& script)
    {
        tools_.install(u"shntool"_s, script);
        return DecodeSHNTask::initAsyncTaskWithQueueLaunchPathArguments(
            &queue_, tools_.directory() + u"/shntool"_s,
            DecodeTab::shnArguments(file(u"a.shn"_s), folder(), Constants::WAV));
    }
};

} // namespace

TEST_F(ShortenTask, TakesItsNameFromTheVector)
{
    const auto task = make({});
    EXPECT_EQ(task->title(), u"a.shn"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.shn"_s);
    task->setResults(nullptr);
    EXPECT_THROW(DecodeSHNTask::initAsyncTaskWithQueueLaunchPathArguments(&queue_, u"x"_s, {u"conv"_s}),
                 RangeException);
}

TEST_F(ShortenTask, ShowsItsNumberWithSixDecimals)
{
    const auto task = make({});
    EXPECT_EQ(task->topTextField()->stringValue(), u"Waiting..."_s);
    task->processTaskOutput(u"Converting [a.shn] (0:20.00) --> [a.wav] : "_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Waiting..."_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), -1);
    task->textField()->setStringValue(u"changed"_s);
    task->processTaskOutput(u"\b\b\b 25% "_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Decoding SHN: 25.000000%"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 25);
    EXPECT_EQ(task->textField()->stringValue(), u"a.shn"_s);
    EXPECT_EQ(task->results()->results(), u"Converting [a.shn] (0:20.00) --> [a.wav] :  25% \n"_s);
    task->setResults(nullptr);
}

TEST_F(ShortenTask, GoodEndOpensNoWindowAndDeletesTheSourceIfAsked)
{
    run(make({u"out"_s, u"100% OK"_s}));
    EXPECT_TRUE(exists(u"a.shn"_s));
    const auto task = make({});
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(u"a.shn"_s));
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(ShortenTask, SourceIsTheFileWhateverItsName)
{
    const QString old = nameOfBytes("/nowhere/s\xe4tze.shn");
    const auto task = DecodeSHNTask::initAsyncTaskWithQueueLaunchPathArguments(
        &queue_, u"/nowhere/shntool"_s, DecodeTab::shnArguments(old, folder(), Constants::WAV));
    EXPECT_EQ(task->source(), old);
    task->setResults(nullptr);
}

TEST_F(ShortenTask, CancelWhileRunningLetsTheToolEndAndKeepsTheSource)
{
    const LogCapture log;
    const auto task = make({u"out"_s, u" 25% "_s, u"wait-file"_s, path(u"go"_s), u"touch"_s, path(u"ended"_s)});
    task->setDeleteOriginal(true);
    cancelAt(task, u"Decoding SHN: 25.000000%"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_TRUE(exists(u"a.shn"_s));
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(ShortenTask, FailureKeepsSourceAndTextOnce)
{
    const LogCapture log;
    const auto task = make({u"out"_s, u"ERROR"_s, u"exit"_s, u"1"_s});
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(u"a.shn"_s));
    EXPECT_EQ(onlyReport(), u"ERROR\n"_s);
}
