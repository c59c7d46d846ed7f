#include "BatchTesting.h"
#include "app/batch/BatchCommands.h"
#include "app/batch/BatchRun.h"
#include "support/EndlessFolders.h"
#include "support/SampleFlac.h"

#include <QFile>

#include <csignal>

using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

namespace {

/// Three sources, one at a time; a tool that waits for the file "go".
class BatchInterrupt : public BatchTest
{
protected:
    void SetUp() override
    {
        standInForFlac(u"echo $$ >\"$dir/pid.new\"; mv \"$dir/pid.new\" \"$dir/pid\"\n"
                       "while [ ! -e \"$dir/go\" ]; do sleep 0.01; done\nexec \"$real\" \"$@\"\n"_s);
        for (const QString& name : files)
            makeFlac(in(name));
        process = start(QStringList{u"decode"_s, u"--jobs"_s, jobs(), u"--delete-originals"_s, u"--yes"_s} + files);
        waitUntil([&] { return QFile::exists(in(u"pid"_s)); });
    }

    virtual QString jobs() const { return u"1"_s; }

    void signal(int number) { ASSERT_EQ(::kill(pid_t(process->processId()), number), 0); }

    /// Waits until the program has said on standard error that it cancels.
    void waitForCancel()
    {
        QByteArray said;
        while (!said.contains("Ctrl-C once more")) {
            ASSERT_TRUE(process->waitForReadyRead(60000)) << said.toStdString();
            process->setReadChannel(QProcess::StandardError);
            said += process->readAllStandardError();
        }
    }

    bool toolRuns() const { return ::kill(pid_t(contents(in(u"pid"_s)).trimmed().toInt()), 0) == 0; }

    void expectSourcesKept() const
    {
        for (const QString& name : files)
            EXPECT_TRUE(QFile::exists(in(name))) << name.toStdString();
    }

    const QStringList files{u"1.flac"_s, u"2.flac"_s, u"3.flac"_s};
    std::unique_ptr<QProcess> process;
};

/// As BatchInterrupt, with two of the three at work.
class BatchInterruptOfTwo : public BatchInterrupt
{
protected:
    QString jobs() const override { return u"2"_s; }
};

/// A program that looks for files where the search never ends; one is there at once.
class BatchWalk : public BatchTest
{
protected:
    void SetUp() override
    {
        makeFlac(in(u"1.flac"_s));
        process_ = start({u"decode"_s, in(u"1.flac"_s), folders_.path(), u"--out"_s, in(u"out"_s)});
        waitUntil([this] { return handlesSignals(); });
    }
    bool handlesSignals() const
    {
        const QByteArray facts = contents(u"/proc/%1/status"_s.arg(process_->processId()));
        const auto caught = facts.mid(facts.indexOf("SigCgt:") + 7).trimmed().left(16).toULongLong(nullptr, 16);
        return caught & (1ULL << (SIGHUP - 1));
    }
    /// @return the exit status
    int endWith(int signal)
    {
        ::kill(pid_t(process_->processId()), signal);
        const auto outcome = finish(*process_);
        EXPECT_TRUE(outcome.rows.isEmpty()) << "nothing is pressed on a part of the files";
        EXPECT_FALSE(QFile::exists(in(u"out"_s)));
        return outcome.status;
    }

    const EndlessFolders folders_;
    std::unique_ptr<QProcess> process_;
};

} // namespace

TEST_F(BatchTest, ASignalThatComesAheadOfTheCommandKeepsItFromBeingPressed)
{
    using namespace zolt::batch;
    makeFlac(in(u"1.flac"_s));
    BatchRun run(parseOptions({u"decode"_s, in(u"1.flac"_s)}, batchSyntax()));
    ASSERT_EQ(::raise(SIGINT), 0); // nobody looks at it before the files are in
    EXPECT_EQ(run.run(), 130);
    EXPECT_FALSE(QFile::exists(in(u"1.wav"_s)));
}

TEST_F(BatchWalk, CtrlCEndsTheSearchForFiles)
{
    EXPECT_EQ(endWith(SIGINT), 130);
}

TEST_F(BatchWalk, TerminatingEndsTheSearchForFiles)
{
    EXPECT_EQ(endWith(SIGTERM), 128 + SIGTERM);
}

TEST_F(BatchInterrupt, CtrlCCancelsAndLetsTheRunningToolEnd)
{
    process->setReadChannel(QProcess::StandardError);
    signal(SIGINT);
    waitForCancel();
    EXPECT_TRUE(toolRuns());
    write(in(u"go"_s), {});
    const auto outcome = finish(*process);
    EXPECT_EQ(outcome.status, 130);
    EXPECT_THAT(outcome.rows,
                UnorderedElementsAre(u"Canceled  1.flac"_s, u"Canceled  2.flac"_s, u"Canceled  3.flac"_s));
    EXPECT_TRUE(contents(in(u"1.wav"_s)).startsWith("RIFF")) << "the running tool went on to its end";
    EXPECT_FALSE(QFile::exists(in(u"2.wav"_s)) || QFile::exists(in(u"3.wav"_s)));
    expectSourcesKept();
}

TEST_F(BatchInterrupt, ASecondCtrlCEndsTheRunningTools)
{
    process->setReadChannel(QProcess::StandardError);
    signal(SIGINT);
    waitForCancel();
    signal(SIGINT);
    const auto outcome = finish(*process);
    EXPECT_EQ(outcome.status, 130);
    EXPECT_EQ(outcome.rows.filter(u"Canceled  "_s).size(), 3);
    EXPECT_FALSE(toolRuns());
    expectSourcesKept();
}

TEST_F(BatchInterrupt, TerminatingEndsTheRunningToolsAtOnce)
{
    signal(SIGTERM);
    const auto outcome = finish(*process);
    EXPECT_EQ(outcome.status, 128 + SIGTERM);
    EXPECT_EQ(outcome.rows.filter(u"Canceled  "_s).size(), 3);
    EXPECT_FALSE(toolRuns());
    expectSourcesKept();
}

TEST_F(BatchInterruptOfTwo, ToolThatEndsWhileAnotherIsWaitedForIsCanceledToo)
{
    process->setReadChannel(QProcess::StandardError);
    signal(SIGINT);
    waitForCancel();
    write(in(u"go"_s), {});
    const auto outcome = finish(*process);
    EXPECT_THAT(outcome.rows,
                UnorderedElementsAre(u"Canceled  1.flac"_s, u"Canceled  2.flac"_s, u"Canceled  3.flac"_s));
    EXPECT_FALSE(QFile::exists(in(u"3.wav"_s))) << "no tool is started only to be cancelled";
    expectSourcesKept();
}
