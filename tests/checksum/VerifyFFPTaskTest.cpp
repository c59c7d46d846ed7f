#include "ListFixture.h"

#include "checksum/VerifyFFPTask.h"
#include "platform/errors/Exceptions.h"
#include "support/FakeTool.h"
#include "support/FakeTools.h"
#include "support/LogCapture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class VerifyFfp : protected FakeTools, public ListTest
{
protected:
    VerifyFfp() { install(u"flac"_s, {u"out"_s, u"$2: testing, 99% complete"_s, u"out"_s, u"ok"_s}); }
    void metaflacPrints(const QString& text) { install(u"metaflac"_s, {u"out"_s, text}); }
    QString reportFor(const QByteArray& list)
    {
        write(u"set.ffp"_s, list);
        const auto task = VerifyFFPTask::initWithQueueForFileNameWithResults(&queue_, pathOf(u"set.ffp"_s), results_);
        const QString report = reportOf({task}, results_);
        failed_ = task->error();
        status_ = task->topTextField()->stringValue();
        return report;
    }
    std::shared_ptr<ZOLTTaskResults> results_ = std::make_shared<ZOLTTaskResults>();
    bool failed_ = false;
    QString status_;
};

} // namespace

TEST_F(VerifyFfp, ComparesEveryEntryThenTestsThoseThatMatchInTheOrderOfTheirPaths)
{
    metaflacPrints(u"ab12\n"_s);
    const QString report = reportFor("; comment\r\n\n  b.flac : ab12  \na.flac:ab12\nc.flac:AB12\n");
    EXPECT_TRUE(report.startsWith(u"Verify FFP: set.ffp\nb.flac : OK\na.flac : OK\n"
                                  "c.flac : did not match fingerprint file\n"
                                  "\nVerify Flac Files in set.ffp\n"_s))
        << report.toStdString();
    ASSERT_EQ(calls(u"flac"_s).size(), 2);
    EXPECT_EQ(calls(u"flac"_s)[0], QStringList({u"-t"_s, pathOf(u"a.flac"_s)}));
    EXPECT_EQ(calls(u"flac"_s)[1], QStringList({u"-t"_s, pathOf(u"b.flac"_s)}));
    EXPECT_EQ(calls(u"metaflac"_s)[0], QStringList({u"--show-md5"_s, pathOf(u"b.flac"_s)}));
    EXPECT_FALSE(failed_);
}

TEST_F(VerifyFfp, DecodesCapitalsBeforeSmallLetters)
{
    metaflacPrints(u"ab12\n"_s);
    reportFor("a.flac:ab12\nB.flac:ab12\n");
    EXPECT_EQ(calls(u"flac"_s), QList<QStringList>({{u"-t"_s, pathOf(u"B.flac"_s)}, {u"-t"_s, pathOf(u"a.flac"_s)}}));
}

TEST_F(VerifyFfp, AnEntryInAFolderNeverMatchesAndIsNotDecoded)
{
    metaflacPrints(u"ab12\n"_s);
    EXPECT_EQ(reportFor("disc/a.flac:ab12\n"), u"Verify FFP: set.ffp\na.flac : did not match fingerprint file\n\n"_s);
    EXPECT_EQ(calls(u"metaflac"_s), QList<QStringList>({{u"--show-md5"_s, pathOf(u"disc/a.flac"_s)}}));
    EXPECT_TRUE(calls(u"flac"_s).isEmpty());
}

TEST_F(VerifyFfp, TheToolsMessageComesBeforeTheName)
{
    metaflacPrints(u"status = \"FLAC__METADATA_CHAIN_STATUS_ERROR_OPENING_FILE\"\n"_s);
    EXPECT_EQ(reportFor("gone.flac:ab12\n"),
              u"Verify FFP: set.ffp\nstatus = \"FLAC__METADATA_CHAIN_STATUS_ERROR_OPENING_FILE\" : gone.flac\n\n"_s);
    EXPECT_TRUE(calls(u"flac"_s).isEmpty()) << "nothing matched";
}

TEST_F(VerifyFfp, AFurtherColonCutsTheDigest)
{
    metaflacPrints(u"ab12\n"_s);
    EXPECT_TRUE(reportFor("a.flac:ab12:more\n").contains(u"a.flac : OK\n"_s));
}

TEST_F(VerifyFfp, AListOfCommentsGivesTheHeadingAloneAndAnEmptyOneIsAFailure)
{
    EXPECT_EQ(reportFor("; a\n"), u"Verify FFP: set.ffp\n\n"_s);
    EXPECT_FALSE(failed_);
}

TEST_F(VerifyFfp, AnEmptyListIsAFailure)
{
    const LogCapture log;
    EXPECT_EQ(reportFor(""), u"Verify FFP: set.ffp\n\n"_s);
    EXPECT_TRUE(failed_);
    EXPECT_EQ(status_, u"Error"_s);
}

TEST_F(VerifyFfp, AListThatIsNotThereIsAFailure)
{
    const LogCapture log;
    const auto task = VerifyFFPTask::initWithQueueForFileNameWithResults(&queue_, pathOf(u"gone.ffp"_s), results_);
    EXPECT_EQ(reportOf({task}, results_), u"Verify FFP: gone.ffp\n\n"_s);
    EXPECT_TRUE(task->error());
    EXPECT_EQ(task->topTextField()->stringValue(), u"Error"_s);
}

TEST_F(VerifyFfp, HowFlacEndsIsNotLookedAt)
{
    metaflacPrints(u"ab12\n"_s);
    install(u"flac"_s, {u"out"_s, u"a.flac: ERROR while decoding data"_s, u"exit"_s, u"1"_s});
    EXPECT_TRUE(reportFor("a.flac:ab12\n").endsWith(u"\na.flac: ERROR while decoding data\n\n"_s));
    EXPECT_FALSE(failed_);
}

TEST_F(VerifyFfp, ACancelShowsOnTheRowAloneAndBothPartsRunToTheirEnds)
{
    metaflacPrints(u"ab12\n"_s);
    const auto task = VerifyFFPTask::initWithQueueForFileNameWithResults(&queue_, pipe(u"set.ffp"_s), results_);
    const QString report = reportOfCancelled(task, results_, u"set.ffp"_s, "a.flac:ab12\nb.flac:ab12\n");
    EXPECT_TRUE(report.startsWith(u"Verify FFP: set.ffp\na.flac : OK\nb.flac : OK\n"_s)) << report.toStdString();
    EXPECT_EQ(calls(u"flac"_s).size(), 2);
}

TEST_F(VerifyFfp, TheStatusLineTellsOfTheListThenOfEachEntryThenOfTheDecoding)
{
    const QString read = pathOf(u"read"_s), decode = pathOf(u"decode"_s);
    install(u"metaflac"_s, {u"wait-file"_s, read, u"out"_s, u"ab12\n"_s});
    install(u"flac"_s, {u"wait-file"_s, decode});
    const auto task = VerifyFFPTask::initWithQueueForFileNameWithResults(&queue_, pipe(u"set.ffp"_s), results_);
    const auto shows = [&](const QString& status) {
        return runUntil([&] { return task->topTextField()->stringValue() == status; });
    };
    results_->addTaskInSet(task);
    queue_.addTask(task);
    EXPECT_TRUE(shows(u"Verifying FFP"_s));
    fillPipe(u"set.ffp"_s, "a.flac:ab12\n");
    EXPECT_TRUE(shows(u"Verifying a.flac"_s));
    touch(read);
    EXPECT_TRUE(shows(u"Verify FLAC File"_s));
    touch(decode);
    runQueue();
}

TEST_F(VerifyFfp, AnEntryWithoutAColonIsMetBeforeTheBarMoves)
{
    const auto task =
        VerifyFFPTask::initWithQueueForFileNameWithResults(&queue_, write(u"set.ffp"_s, "# no entry\n"), results_);
    EXPECT_THROW(task->doVerifyFPP(), RangeException);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 0.0);
}

TEST_F(VerifyFfp, AListThatIsNoTextIsAFailure)
{
    const LogCapture log;
    EXPECT_EQ(reportFor("\xff"), u"Verify FFP: set.ffp\n\n"_s);
    EXPECT_TRUE(failed_);
    EXPECT_EQ(status_, u"Error"_s);
}

TEST_F(VerifyFfp, AnEntryWithoutAColonEndsTheTaskWithAFault)
{
    const LogCapture log;
    metaflacPrints(u"ab12\n"_s);
    EXPECT_TRUE(reportFor("a.flac:ab12\n# a comment\n").startsWith(u"Verify FFP: set.ffp\n"_s));
    EXPECT_TRUE(failed_);
}

TEST_F(VerifyFfp, TheBarCountsEntriesAgainstAllLines)
{
    metaflacPrints(u"x\n"_s);
    write(u"set.ffp"_s, "; comment\na.flac:ab12\n");
    const auto task = VerifyFFPTask::initWithQueueForFileNameWithResults(&queue_, pathOf(u"set.ffp"_s), results_);
    results_->addTaskInSet(task);
    EXPECT_EQ(task->doVerifyFPP(), QStringList());
    EXPECT_NEAR(task->progressIndicator()->doubleValue(), 100.0 / 3, 1e-9);
    EXPECT_EQ(task->description(), pathOf(u"set.ffp"_s));
    task->setResults(nullptr);
}

TEST_F(VerifyFfp, TheTestOfAFileMovesBarAndStatus)
{
    const auto task = VerifyFFPTask::initWithQueueForFileNameWithResults(&queue_, u"/x/set.ffp"_s, results_);
    EXPECT_EQ(task->processFlacFileOutputForFile(u" a.flac: testing, 42% complete \n"_s, u"a.flac"_s),
              u"a.flac: testing, 42% complete"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Verifying a.flac: 42.000000%"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 42.0);
    EXPECT_EQ(task->processFlacFileOutputForFile(u"banner"_s, u"a.flac"_s), u"banner"_s);
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 42.0);
    EXPECT_THROW(task->processFlacFileOutputForFile(u"42%"_s, u"a.flac"_s), RangeException);
}
