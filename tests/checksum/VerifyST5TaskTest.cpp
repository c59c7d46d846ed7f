#include "ListFixture.h"

#include "checksum/VerifyST5Task.h"
#include "support/FakeTool.h"
#include "support/FakeTools.h"
#include "support/LogCapture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const QString hash = u"0123456789abcdef0123456789abcdef"_s;

class VerifySt5 : protected FakeTools, public ListTest
{
protected:
    void toolPrints(const QStringList& pieces)
    {
        QStringList script;
        for (const QString& piece : pieces)
            script << u"out"_s << piece;
        install(u"shntool"_s, script);
    }
    QString reportFor(const QString& list) { return reportFor(list.toUtf8()); }
    QString reportFor(const QByteArray& list)
    {
        write(u"set.st5"_s, list);
        const auto task = VerifyST5Task::initWithQueueForFileNameWithResults(&queue_, pathOf(u"set.st5"_s), results_);
        const QString report = reportOf({task}, results_);
        failed_ = task->error();
        return report;
    }
    std::shared_ptr<ZOLTTaskResults> results_ = std::make_shared<ZOLTTaskResults>();
    bool failed_ = false;
};

} // namespace

TEST_F(VerifySt5, RebuildsEachLineWithTheBareName)
{
    toolPrints({u"  "_s + hash + u"  [shntool]  /some/where/a b.wav\n"_s});
    EXPECT_EQ(reportFor(u";comment\r\n\r\n "_s + hash + u"  [shntool]  a b.wav \n"_s),
              u"Verify ST5: set.st5\na b.wav : OK\n\n"_s);
    EXPECT_EQ(calls(u"shntool"_s), QList<QStringList>({{u"hash"_s, pathOf(u"a b.wav"_s)}}));
}

TEST_F(VerifySt5, AnotherHashAndOneInCapitalsDoNotMatch)
{
    toolPrints({hash + u"  [shntool]  a\n"_s});
    EXPECT_EQ(
        reportFor(hash.toUpper() + u"  [shntool]  a\n"_s + QString(hash).replace(u'0', u'1') + u"  [shntool]  a\n"_s),
        u"Verify ST5: set.st5\na : did not match shntool md5 file\na : did not match shntool md5 file\n\n"_s);
    EXPECT_FALSE(failed_);
}

TEST_F(VerifySt5, AWarningStandsBehindTheName)
{
    toolPrints({u"shntool [hash]: warning: first\nshntool [hash]: warning: failed to open a\n"_s});
    EXPECT_EQ(reportFor(hash + u"  [shntool]  a\n"_s), u"Verify ST5: set.st5\na : warning: failed to open aa\n\n"_s)
        << "the last warning of a piece, and the name that goes behind every text";
}

TEST_F(VerifySt5, WhatIsKeptOfSeveralPiecesAddsUp)
{
    const QString second = pathOf(u"second"_s);
    install(u"shntool"_s, {u"out"_s, u"shntool [hash]: warning: odd\n"_s, u"wait-file"_s, second, u"out"_s,
                           hash + u"  [shntool]  a\n"_s});
    write(u"set.st5"_s, (hash + u"  [shntool]  a\n"_s).toUtf8());
    const auto task = VerifyST5Task::initWithQueueForFileNameWithResults(&queue_, pathOf(u"set.st5"_s), results_);
    results_->addTaskInSet(task);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->progressIndicator()->doubleValue() == -1.0; })) << "the first was read";
    touch(second);
    runQueue();
    EXPECT_EQ(results_->results(), u"Verify ST5: set.st5\na : warning: odda"_s + hash + u"  [shntool]  a\n\n"_s);
}

TEST_F(VerifySt5, ANameThatHoldsTheWordOfAWarningIsTakenForOne)
{
    const QString line = hash + u"  [shntool]  a warning.wav\n"_s;
    toolPrints({line});
    EXPECT_EQ(reportFor(line), u"Verify ST5: set.st5\na warning.wav : "_s + line + u'\n');
}

TEST_F(VerifySt5, AFileThatTheToolSaysNothingOfDoesNotMatch)
{
    toolPrints({u"nothing"_s});
    EXPECT_EQ(reportFor(hash + u"  [shntool]  a\n"_s),
              u"Verify ST5: set.st5\na : did not match shntool md5 file\n\n"_s);
}

TEST_F(VerifySt5, AnEntryWithoutTheSeparatorEndsTheTaskWithAFault)
{
    const LogCapture log;
    toolPrints({});
    const QString report = reportFor(u"# not a comment here\n"_s);
    EXPECT_TRUE(failed_);
    EXPECT_TRUE(report.startsWith(u"Verify ST5: set.st5\n"_s));
    EXPECT_EQ(log.count(u"VerifyST5"_s) + log.count(u"index"_s) > 0, true);
}

TEST_F(VerifySt5, AnEmptyListGivesTheHeadingAlone)
{
    EXPECT_EQ(reportFor(QByteArray()), u"Verify ST5: set.st5\n\n"_s);
    EXPECT_FALSE(failed_);
}

TEST_F(VerifySt5, AListThatIsNoTextGivesTheHeadingAlone)
{
    toolPrints({});
    EXPECT_EQ(reportFor(hash.toUtf8() + "  [shntool]  \xff.wav\n"), u"Verify ST5: set.st5\n\n"_s);
    EXPECT_FALSE(failed_);
    EXPECT_TRUE(calls(u"shntool"_s).isEmpty());
}

TEST_F(VerifySt5, AListThatIsNotThereGivesTheHeadingAlone)
{
    const auto task = VerifyST5Task::initWithQueueForFileNameWithResults(&queue_, pathOf(u"gone.st5"_s), results_);
    EXPECT_EQ(reportOf({task}, results_), u"Verify ST5: gone.st5\n\n"_s);
    EXPECT_FALSE(task->error());
}

TEST_F(VerifySt5, AnEntryInAFolderThatIsNotThereCostsNoOtherLine)
{
    toolPrints({hash + u"  [shntool]  /some/where/a\n"_s});
    EXPECT_EQ(reportFor(hash + u"  [shntool]  a\n"_s + QString(hash).replace(u'0', u'1') + u"  [shntool]  gone/b\n"_s),
              u"Verify ST5: set.st5\na : OK\nb : did not match shntool md5 file\n\n"_s);
    EXPECT_FALSE(failed_);
}

TEST_F(VerifySt5, ACancelShowsOnTheRowAloneAndTheListIsReadToItsEnd)
{
    toolPrints({hash + u"  [shntool]  a\n"_s});
    const auto task = VerifyST5Task::initWithQueueForFileNameWithResults(&queue_, pipe(u"set.st5"_s), results_);
    EXPECT_EQ(reportOfCancelled(task, results_, u"set.st5"_s, (hash + u"  [shntool]  a\n"_s).toUtf8().repeated(2)),
              u"Verify ST5: set.st5\na : OK\na : OK\n\n"_s);
}

TEST_F(VerifySt5, TheStatusLineTellsOfTheListBeforeItIsRead)
{
    const auto task = VerifyST5Task::initWithQueueForFileNameWithResults(&queue_, pipe(u"set.st5"_s), results_);
    results_->addTaskInSet(task);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Verifying ST5 file"_s; }));
    fillPipe(u"set.st5"_s, {});
    runQueue();
}

TEST_F(VerifySt5, PercentagesMoveBarAndStatus)
{
    const auto task = VerifyST5Task::initWithQueueForFileNameWithResults(&queue_, u"/x/set.st5"_s, results_);
    task->processTaskOutput(u"\b\b 42% \b"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Verifying: 42.000000%"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 42.0);
    task->processTaskOutput(std::nullopt);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), -1.0);
}

TEST_F(VerifySt5, RunsTheToolInTheFilesFolderAndShowsTheFile)
{
    install(u"shntool"_s, {u"touch"_s, u"here"_s});
    const auto task = VerifyST5Task::initWithQueueForFileNameWithResults(&queue_, u"/x/set.st5"_s, results_);
    EXPECT_EQ(task->st5(pathOf(u"a.wav"_s)), QString());
    EXPECT_TRUE(QFile::exists(pathOf(u"here"_s)));
    EXPECT_EQ(task->textField()->stringValue(), u"a.wav"_s);
}
