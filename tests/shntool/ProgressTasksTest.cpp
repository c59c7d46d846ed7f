#include "ShntoolFixture.h"
#include "engine/Run.h"
#include "platform/errors/Exceptions.h"
#include "shntool/SHNToolJoinTask.h"
#include "shntool/SHNToolPadTask.h"
#include "shntool/SHNToolStripTask.h"
#include "shntool/SHNToolTrimTask.h"
#include "support/EveryCut.h"
#include "support/FakeTool.h"

using namespace zolt;
using namespace zolt::test;

namespace {

const QStringList padArguments{u"pad"_s, u"-d"_s, u"/o"_s, u"-o"_s, u"wav"_s, u"-O"_s, u"never"_s, u"/s/a b.wav"_s};

template <class Task> std::shared_ptr<Task> made(const QStringList& arguments = padArguments)
{
    return unqueued(Task::initAsyncTaskWithQueueLaunchPathArguments(nullptr, fakeTool(), arguments));
}

QString name(const ZOLTTask& task)
{
    return task.textField()->stringValue();
}

QString status(const ZOLTTask& task)
{
    return task.topTextField()->stringValue();
}

QString report(const ZOLTTask& task)
{
    return task.results()->results();
}

} // namespace

TEST(ProgressTasks, SayWhatTheyAreWhileTheyWait)
{
    EXPECT_EQ(name(*made<SHNToolJoinTask>()), u"Joining Files"_s);
    EXPECT_FALSE(made<SHNToolJoinTask>()->optionalTitle());
    EXPECT_EQ(name(*made<SHNToolStripTask>()), u"Running SHNTool Strip"_s);
    EXPECT_EQ(name(*made<SHNToolTrimTask>()), u"Running SHNTool Trim"_s);
    const auto pad = made<SHNToolPadTask>();
    EXPECT_EQ(name(*pad), u"a b.wav"_s);
    EXPECT_EQ(pad->title(), u"a b.wav"_s);
    EXPECT_EQ(pad->fileName(), u"/s/a b.wav"_s);
    EXPECT_THROW(made<SHNToolPadTask>(padArguments.first(7)), RangeException);
}

TEST(ProgressTasks, OfOneFileTellTheirSource)
{
    const auto pad = made<SHNToolPadTask>();
    const auto strip = made<SHNToolStripTask>();
    for (const std::shared_ptr<ZOLTTask>& task : {std::shared_ptr<ZOLTTask>(pad), std::shared_ptr<ZOLTTask>(strip)}) {
        task->setTitle(u"title"_s);
        EXPECT_EQ(task->source(), u"/s/a b.wav"_s);
        EXPECT_EQ(nameOf(*task), u"title: a b.wav"_s);
    }
}

TEST(ProgressTasks, JoinHasANameAndNoSourceThoughItsFolderEndsInASlash)
{
    const auto join = made<SHNToolJoinTask>({u"join"_s, u"-d"_s, u"/tmp/out/"_s, u"/s/a.wav"_s, u"/s/b.wav"_s});
    EXPECT_EQ(join->source(), QString());
    EXPECT_EQ(nameOf(*join), u"Joining Files"_s);
}

TEST(ProgressTasks, TrimFollowsWhatIsUnderWay)
{
    const auto task = made<SHNToolTrimTask>();
    EXPECT_EQ(task->operation(), u"Trimming"_s);
    task->processTaskOutput(u"Scanning [/s/one.wav] (0:01.00) : "_s);
    EXPECT_EQ(task->operation(), u"Scanning"_s);
    EXPECT_EQ(task->fileName(), u"one.wav"_s);
    EXPECT_EQ(name(*task), u"one.wav"_s);
    task->processTaskOutput(u"\b\b 27% \b"_s);
    EXPECT_EQ(status(*task), u"Scanning Files:  27%"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 27);
    task->processTaskOutput(u"OK\nScanning ends, Trimming [/s/two].wav] (0:02.00)"_s);
    EXPECT_EQ(task->operation(), u"Trimming"_s) << "with both it is the latter";
    EXPECT_EQ(name(*task), u"two"_s) << "up to the first bracket";
    EXPECT_EQ(task->progressIndicator()->doubleValue(), -1);
}

TEST(ProgressTasks, TrimKeepsHeadsAndClosingWordsTwice)
{
    const auto task = made<SHNToolTrimTask>();
    task->processTaskOutput(u"Trimming [/s/a.wav] (0:01.00) : "_s);
    task->processTaskOutput(u"OK"_s);
    task->processTaskOutput(u"plain"_s);
    EXPECT_EQ(report(*task), u"Trimming [/s/a.wav] (0:01.00) Trimming [/s/a.wav] (0:01.00) : OKOKplain\n"_s);
}

TEST(ProgressTasks, TrimNeedsAWholeHeadForAName)
{
    const auto task = made<SHNToolTrimTask>();
    task->processTaskOutput(u"Trimming [/s/a.wav"_s);
    task->processTaskOutput(u"Trimming /s/a] (b.wav"_s);
    EXPECT_EQ(name(*task), u"Running SHNTool Trim"_s);
    EXPECT_EQ(task->fileName(), QString());
}

TEST(ProgressTasks, JoinTakesTheNameUpToTheTime)
{
    const auto task = made<SHNToolJoinTask>();
    task->processTaskOutput(u"Joining [/s/a]b.wav] (0:01.00) --> [/o/joined.wav] (0:02.00) : "_s);
    EXPECT_EQ(name(*task), u"a]b.wav"_s);
    task->processTaskOutput(u"50% "_s);
    EXPECT_EQ(status(*task), u"Joining Files: 50%"_s);
    task->processTaskOutput(u"ERROR"_s);
    EXPECT_EQ(report(*task), u"Joining [/s/a]b.wav] (0:01.00) --> [/o/joined.wav] (0:02.00) "
                             "Joining [/s/a]b.wav] (0:01.00) --> [/o/joined.wav] (0:02.00) : 50% ERRORERROR\n"_s);
}

TEST(ProgressTasks, JoinPassesOverTheWordsOfTrim)
{
    const auto task = made<SHNToolJoinTask>();
    task->processTaskOutput(u"Trimming [/s/a.wav] (0:01.00) : "_s);
    EXPECT_EQ(name(*task), u"Joining Files"_s);
    EXPECT_EQ(report(*task), u"Trimming [/s/a.wav] (0:01.00) : \n"_s);
}

TEST(ProgressTasks, PadAndStripBothSayPadding)
{
    const auto pad = made<SHNToolPadTask>();
    const auto strip = made<SHNToolStripTask>();
    for (const std::shared_ptr<ZOLTAsyncNSTask>& task :
         {std::shared_ptr<ZOLTAsyncNSTask>(pad), std::shared_ptr<ZOLTAsyncNSTask>(strip)}) {
        task->setTitle(u"title"_s);
        task->processTaskOutput(u"\b12% \b"_s);
        EXPECT_EQ(status(*task), u"Padding: 12%"_s);
        EXPECT_EQ(task->progressIndicator()->doubleValue(), 12);
        EXPECT_EQ(name(*task), u"title"_s);
        task->processTaskOutput(u"Post-Padding Stripping: OK"_s);
        EXPECT_EQ(task->progressIndicator()->doubleValue(), -1);
        EXPECT_EQ(report(*task), u"12% Post-Padding Stripping: OK\n"_s) << "once each";
    }
}

TEST(ProgressTasks, DropTheirTextUnlessTheyFailed)
{
    const auto good = made<SHNToolJoinTask>(), bad = made<SHNToolJoinTask>();
    good->processTaskOutput(u"ERROR"_s); // kept: the status alone counts
    good->cleanup();
    EXPECT_FALSE(good->results());
    bad->setError(true);
    bad->cleanup();
    EXPECT_TRUE(bad->results());
}

TEST(ProgressTasks, ShowNamesAndNumbersWhereverAReadParts)
{
    const QByteArray run =
        "Scanning [/s/a.wav] (0:01.08) :   0% \b\b\b\b\b 99% \b\b\b\b\b100% OK\n"
        "Trimming [/s/a.wav] (0:01.08) --> [/o/a-trimmed.flac] :   0% \b\b\b\b\b 27% \b\b\b\b\b100% OK\n";
    everyCut(run, [](const QList<QByteArray>& pieces) {
        const auto task = made<SHNToolTrimTask>();
        feed(*task, pieces);
        EXPECT_EQ(task->operation(), u"Trimming"_s);
        EXPECT_EQ(name(*task), u"a.wav"_s);
        EXPECT_TRUE(status(*task).startsWith(u"Trimming Files: "_s) || status(*task).startsWith(u"Scanning Files: "_s));
    });
}
