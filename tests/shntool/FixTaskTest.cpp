#include "shntool/FixTask.h"
#include "ShntoolFixture.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/Product.h"
#include "platform/files/Files.h"
#include "platform/threads/DetachedThreads.h"
#include "shntool/FixTab.h"
#include "support/EndlessFile.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/FakeTools.h"
#include "support/ScriptedPanels.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace zolt;
using namespace zolt::test;

namespace {

class FixTaskTest : public testing::Test
{
protected:
    FixTaskTest() { UserDefaults::standard().set(u"trashOrDelete"_s, 0); }

    QString in(const QString& name) const { return folder_.filePath(name); }
    QString file(const QString& name, const QByteArray& content = "x") const
    {
        QFile made(in(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(content);
        return in(name);
    }
    QString text(const QString& name) const
    {
        QFile read(in(name));
        return read.open(QIODevice::ReadOnly) ? QString::fromUtf8(read.readAll()) : u"none"_s;
    }
    /// The lines of a list below its heading.
    QStringList lines(const QString& list) const { return text(list).split(u'\n').mid(2); }

    std::shared_ptr<FixTask> made(const QStringList& files, const QString& md5 = FixTask::noMD5,
                                  const QString& format = u"flac"_s)
    {
        for (const QString& path : files)
            tab.addFile(path);
        return unqueued(FixTask::initFixTaskWithQueueFileNamesOutputFormatOutputPathMd5OptionFlacLevelTab(
            &queue, tab.fileList(), format, folder_.path(), md5, 7, &tab));
    }
    void run(const std::shared_ptr<FixTask>& task)
    {
        report_ = task->results();
        queue.addTask(task);
        ASSERT_TRUE(runUntil([this] { return queue.taskCount() == 0 && tab.fileNames().isEmpty(); }));
        waitForDetachedThreads();
    }

    RegisteredSettings settings_;
    QTemporaryDir folder_;
    ScriptedPanels panels_;
    FakeTools tools;
    ZOLTTaskQueue queue;
    FixTab tab;
    std::shared_ptr<ZOLTTaskResults> report_;
};

} // namespace

TEST_F(FixTaskTest, CallsTheToolOnTheWholeSetInItsFirstFilesFolder)
{
    tools.install(u"shntool"_s, {u"cwd"_s});
    ASSERT_TRUE(QDir(folder_.path()).mkdir(u"show"_s));
    const QStringList files{file(u"show/d1t01.wav"_s), file(u"show/d1t02.wav"_s)};
    run(made(files));
    EXPECT_TRUE(report_->results().startsWith(realPath(in(u"show"_s)))) << report_->results().toStdString();
    EXPECT_EQ(tools.calls(u"shntool"_s),
              QList<QStringList>({QStringList{u"fix"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-k"_s, u"-d"_s,
                                              folder_.path(), u"-o"_s, u"flac"_s} +
                                  files}));
}

TEST_F(FixTaskTest, ConstantItselfAsksForAGroupOfArguments)
{
    tools.install(u"shntool"_s);
    const QStringList files{file(u"a.wav"_s)};
    run(made(files, FixTask::noMD5, Constants::FLAC));
    EXPECT_EQ(tools.calls(u"shntool"_s).value(0).mid(8),
              QStringList({u"-o"_s, u"cust"_s, u"ext=flac"_s, u"{"_s, u"flac"_s, u"-s"_s, u"-7"_s, u"-o"_s, u"%f"_s,
                           u"-"_s, u"}"_s}) +
                  files);
}

TEST_F(FixTaskTest, ShowsTheFileItsPlaceAndHowFarItIs)
{
    const auto task = made({u"/s/a.wav"_s, u"/s/b.wav"_s, u"/s/c.wav"_s});
    task->processTaskOutput(u"Fixing [/s/c.wav] (0:01.00) --> [/o/c.flac] : "_s);
    EXPECT_EQ(task->textField()->stringValue(), u"c (3 of 3)"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Waiting..."_s);
    task->processTaskOutput(u"\b\b 27% \b"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Fixing: 27.000000%"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 27);
    task->processTaskOutput(u"OK\n"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 27) << "stays without a number";
    EXPECT_EQ(task->textField()->stringValue(), u"c (3 of 3)"_s);
    EXPECT_EQ(task->totalOutput(), u"Fixing [/s/c.wav] (0:01.00) --> [/o/c.flac] :   OK\n"_s);
}

TEST_F(FixTaskTest, ThirdFileOfSevenIsThreeOfSeven)
{
    QStringList files;
    for (int i = 1; i <= 7; ++i)
        files += u"/s/%1.wav"_s.arg(i);
    const auto task = made(files);
    task->processTaskOutput(u"Fixing [/s/3.wav] (0:01.00) --> [/o/3.flac] : "_s);
    EXPECT_EQ(task->textField()->stringValue(), u"3 (3 of 7)"_s);
    tab.addFile(u"/s/8.wav"_s);
    task->processTaskOutput(u"Fixing [/s/3.wav] (0:01.00) --> [/o/3.flac] : "_s);
    EXPECT_EQ(task->textField()->stringValue(), u"3 (3 of 8)"_s) << "what is added stands in the same list";
}

TEST_F(FixTaskTest, NameThatIsNotInTheSetHasNoPlace)
{
    const auto task = made({u"/s/a.wav"_s});
    task->processTaskOutput(u"x) --> [/o/other.flac] (0:01.00)"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"other ((null) of 1)"_s);
    task->processTaskOutput(u"Fixing [/s/a] (b.wav] (0:01.00)"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a (1 of 1)"_s) << "cut at the first \"] (\"";
}

TEST_F(FixTaskTest, BracketsWithinANameAreItsOwn)
{
    const auto task = made({u"/s/a [x]b.wav"_s});
    task->processTaskOutput(u"Fixing [/s/a [x]b.wav] (0:01.00) --> [/o/a [x]b.flac] : "_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a [x]b (1 of 1)"_s);
}

TEST_F(FixTaskTest, PercentagesGoFromTheText)
{
    EXPECT_EQ(FixTask::stripPercent(u"a 5% b 100%% c %"_s), u"a  b % c %"_s);
}

TEST_F(FixTaskTest, OneListNamesTheOutputsNotTheSources)
{
    tools.install(u"shntool"_s);
    file(u"b.flac"_s, "abc");
    run(made({file(u"a.wav"_s), file(u"b.wav"_s)}, FixTask::oneMD5));
    EXPECT_TRUE(text(u"md5sum.md5"_s)
                    .startsWith(u"#MD5 checksums generated by Zolt "_s + QLatin1String(product::version) + u" on "_s));
    EXPECT_EQ(lines(u"md5sum.md5"_s), QStringList({u"d41d8cd98f00b204e9800998ecf8427e *a.flac"_s, // nothing was written
                                                   u"900150983cd24fb0d6963f7d28e17f72 *b.flac"_s, QString()}));
}

TEST_F(FixTaskTest, ListNamesOutputsInSmallLettersWhateverTheFormatIsWrittenIn)
{
    tools.install(u"shntool"_s);
    run(made({file(u"a.wav"_s)}, FixTask::oneMD5, Constants::FLAC));
    EXPECT_TRUE(lines(u"md5sum.md5"_s).first().endsWith(u" *a.flac"_s));
}

TEST_F(FixTaskTest, ListsByDiscStandInTheOutputFolder)
{
    tools.install(u"shntool"_s);
    run(made({in(u"d1t1.wav"_s), in(u"d2t1.wav"_s), in(u"d1t2.wav"_s)}, FixTask::MD5ByDisc));
    EXPECT_EQ(lines(u"Disc1.md5"_s).size(), 3);
    EXPECT_TRUE(lines(u"Disc1.md5"_s).at(1).endsWith(u" *d1t2.flac"_s));
    EXPECT_EQ(lines(u"Disc2.md5"_s).size(), 2);
}

TEST_F(FixTaskTest, NoListWithoutTheOption)
{
    tools.install(u"shntool"_s);
    run(made({in(u"d1t1.wav"_s)}));
    run(made({in(u"d1t1.wav"_s)}, u"md5 by disc*"_s));
    EXPECT_TRUE(directoryListing(folder_.path()).filter(u".md5"_s).isEmpty());
}

TEST_F(FixTaskTest, ReportIsAlwaysThereAndTheListEmptied)
{
    tools.install(u"shntool"_s, {u"out"_s, u"all 50% well\n"_s});
    const auto task = made({file(u"a.wav"_s)});
    EXPECT_EQ(task->title(), u"Fixing"_s);
    run(task);
    EXPECT_EQ(report_->results(), u"all  well\n\n"_s);
    EXPECT_FALSE(task->error());
    EXPECT_EQ(queue.outputWindows().size(), 1U);
    EXPECT_TRUE(exists(in(u"a.wav"_s)));
}

TEST_F(FixTaskTest, OriginalsGoAfterSuccess)
{
    tools.install(u"shntool"_s);
    const auto task = made({file(u"a.wav"_s), file(u"b.wav"_s)});
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(in(u"a.wav"_s)));
    EXPECT_FALSE(exists(in(u"b.wav"_s)));
}

TEST_F(FixTaskTest, FailureKeepsOriginalsAndWritesTheListsAllTheSame)
{
    tools.install(u"shntool"_s, {u"exit"_s, u"1"_s});
    const auto task = made({file(u"a.wav"_s)}, FixTask::oneMD5);
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(task->error());
    EXPECT_TRUE(exists(in(u"a.wav"_s)));
    EXPECT_EQ(lines(u"md5sum.md5"_s).size(), 2);
}

TEST_F(FixTaskTest, CancelLetsTheToolAndTheChainGoOnAndKeepsOriginals)
{
    tools.install(u"shntool"_s, {u"out"_s, u"begun\n"_s, u"wait-file"_s, in(u"go"_s), u"out"_s, u"ended\n"_s});
    const auto task = made({file(u"a.wav"_s)}, FixTask::oneMD5);
    task->setDeleteOriginal(true);
    report_ = task->results();
    queue.addTask(task);
    ASSERT_TRUE(runUntil([&] { return !tools.calls(u"shntool"_s).isEmpty(); }));
    task->setCancelled(true); // as the cancel of the row does, before it waits for the tool's end
    touch(in(u"go"_s));
    task->cancelTask(nullptr);
    ASSERT_TRUE(runUntil([this] { return queue.taskCount() == 0 && tab.fileNames().isEmpty(); }));
    waitForDetachedThreads();
    EXPECT_EQ(report_->results(), u"begun\nended\n\n"_s) << "read to its end";
    EXPECT_TRUE(exists(in(u"a.wav"_s)));
    EXPECT_EQ(lines(u"md5sum.md5"_s).size(), 2);
    EXPECT_FALSE(task->error());
}

TEST_F(FixTaskTest, CancelDuringTheListsKeepsOriginalsAndLetsTheChainGoOn)
{
    tools.install(u"shntool"_s, {u"out"_s, u"all well\n"_s});
    const EndlessFile output(in(u"b.flac"_s));
    const auto task = made({file(u"a.wav"_s), file(u"b.wav"_s), file(u"c.wav"_s)}, FixTask::oneMD5);
    task->setDeleteOriginal(true);
    report_ = task->results();
    queue.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->textField()->stringValue() == u"b.flac"_s; }));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Creating MD5"_s);
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s) << "at once: the tool has ended";
    EXPECT_EQ(tab.fileNames().count(), 3) << "the chain goes on";
    output.end();
    ASSERT_TRUE(runUntil([this] { return queue.taskCount() == 0 && tab.fileNames().isEmpty(); }));
    waitForDetachedThreads();
    EXPECT_EQ(lines(u"md5sum.md5"_s).replaceInStrings(QRegularExpression(u"^.* \\*"_s), QString()),
              QStringList({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s, QString()}));
    for (const QString& source : {u"a.wav"_s, u"b.wav"_s, u"c.wav"_s})
        EXPECT_TRUE(exists(in(source))) << source.toStdString();
    EXPECT_EQ(report_->results(), u"all well\n\n"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s);
    EXPECT_FALSE(task->error());
}

TEST_F(FixTaskTest, FolderCanBeAddedToThePath)
{
    tools.install(u"shntool"_s, {u"env"_s, u"PATH"_s});
    const auto task = made({in(u"a.wav"_s)});
    task->appendToPATH(u"/more"_s);
    run(task);
    EXPECT_TRUE(report_->results().trimmed().endsWith(tools.directory() + u":/more"_s))
        << report_->results().toStdString();
}

TEST_F(FixTaskTest, StopButtonCanBePressedFromTheStart)
{
    tools.install(u"shntool"_s);
    const auto task = made({file(u"a.wav"_s)});
    task->cancelButton()->setEnabled(false);
    run(task);
    EXPECT_TRUE(task->cancelButton()->isEnabled());
}

TEST_F(FixTaskTest, FileAddedMeanwhileStandsInTheListsToo)
{
    tools.install(u"shntool"_s, {u"wait-file"_s, in(u"go"_s)});
    const auto task = made({file(u"a.wav"_s)}, FixTask::oneMD5);
    queue.addTask(task);
    ASSERT_TRUE(runUntil([&] { return !tools.calls(u"shntool"_s).isEmpty(); }));
    tab.addFile(file(u"b.wav"_s));
    touch(in(u"go"_s));
    ASSERT_TRUE(runUntil([this] { return queue.taskCount() == 0 && tab.fileNames().isEmpty(); }));
    waitForDetachedThreads();
    EXPECT_EQ(lines(u"md5sum.md5"_s).size(), 3);
}

TEST_F(FixTaskTest, EmptiedListLeavesAnEarlierMD5ListAlone)
{
    tools.install(u"shntool"_s, {u"exit"_s, u"1"_s});
    file(u"md5sum.md5"_s, "earlier");
    const auto task = made({}, FixTask::oneMD5);
    run(task);
    EXPECT_EQ(text(u"md5sum.md5"_s), u"earlier"_s);
}

TEST_F(FixTaskTest, ListThatCannotBeWrittenIsNotTold)
{
    tools.install(u"shntool"_s);
    file(u"a.wav"_s);
    tab.addFile(in(u"a.wav"_s));
    const auto task = FixTask::initFixTaskWithQueueFileNamesOutputFormatOutputPathMd5OptionFlacLevelTab(
        &queue, tab.fileList(), u"flac"_s, in(u"nowhere"_s), FixTask::oneMD5, 7, &tab);
    run(task);
    EXPECT_FALSE(task->error());
    EXPECT_FALSE(exists(in(u"nowhere"_s)));
}

TEST_F(FixTaskTest, WorksOnTheListUntilItsEndIncludesTheDeletion)
{
    tools.install(u"shntool"_s);
    const auto task = made({file(u"a.wav"_s)});
    EXPECT_TRUE(task->worksOnList());
    run(task);
    EXPECT_FALSE(task->worksOnList());
}

TEST_F(FixTaskTest, LetsGoOfTheListWhereTheToolCannotBeStarted)
{
    const auto task = made({file(u"a.wav"_s)}); // no tool is installed
    queue.addTask(task);
    ASSERT_TRUE(runUntil([&] { return queue.taskCount() == 0 && !task->worksOnList(); }));
    waitForDetachedThreads();
    EXPECT_TRUE(task->error());
    EXPECT_EQ(tab.fileNames().count(), 1) << "it stays for another try";
}
