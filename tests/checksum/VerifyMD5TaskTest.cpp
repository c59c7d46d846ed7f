#include "ListFixture.h"

#include "checksum/MD5Helper.h"
#include "checksum/VerifyMD5Task.h"
#include "engine/ReportVerdict.h"
#include "platform/files/FileNames.h"
#include "platform/files/NamedFile.h"
#include "support/EndlessFile.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

constexpr char abc[] = "900150983cd24fb0d6963f7d28e17f72";
constexpr char nothing[] = "d41d8cd98f00b204e9800998ecf8427e";

class VerifyMd5 : public ListTest
{
protected:
    VerifyMd5() { write(u"a.wav"_s, "abc"); }
    std::shared_ptr<VerifyMD5Task> make(const QByteArray& list)
    {
        return VerifyMD5Task::initWithQueueForFileNameWithResults(&queue_, write(u"set.md5"_s, list), results_);
    }
    /// What is reported of a list, without heading and the last empty line.
    QString linesFor(const QByteArray& list)
    {
        const QString report = reportOf({make(list)}, results_);
        EXPECT_TRUE(report.startsWith(u"Verify MD5: set.md5\n"_s)) << report.toStdString();
        EXPECT_TRUE(report.endsWith(u"\n"_s));
        return report.mid(20).chopped(1);
    }

    std::shared_ptr<ZOLTTaskResults> results_ = std::make_shared<ZOLTTaskResults>();
};

} // namespace

TEST_F(VerifyMd5, TellsOfEachEntryInTheOrderOfTheList)
{
    write(u"b.wav"_s, "other");
    EXPECT_EQ(linesFor(QByteArray(abc) + " *b.wav\n" + abc + " *a.wav\n"), u"b.wav : FAILED\na.wav : OK\n"_s);
}

TEST_F(VerifyMd5, BadFilesLeaveTheRowComplete)
{
    const auto task = make(QByteArray(abc) + " *missing.wav\n");
    EXPECT_EQ(reportOf({task}, results_), u"Verify MD5: set.md5\nmissing.wav : FAILED\n\n"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_FALSE(task->error());
}

TEST_F(VerifyMd5, AMissingFileEqualsAnEmptyOne)
{
    EXPECT_EQ(linesFor(QByteArray(nothing) + " *missing.wav\n"), u"missing.wav : OK\n"_s);
}

TEST_F(VerifyMd5, CommentsAndEmptyLinesArePassedOverAndLineEndsOfAnyKindDo)
{
    EXPECT_EQ(linesFor(QByteArray("# a\r\n; b\r\n\r\n") + abc + " *a.wav\r\n" + abc + " *a.wav\r" + abc + " *a.wav"),
              u"a.wav : OK\na.wav : OK\na.wav : OK\n"_s);
}

TEST_F(VerifyMd5, ALineWithoutBlankAndAsteriskIsInvalid)
{
    EXPECT_EQ(linesFor(QByteArray(" ") + abc + "  a.wav \n   \n # indented\n"),
              QLatin1String(abc) + u"  a.wav : Invalid checksum format\n : Invalid checksum format\n"
                                   "# indented : Invalid checksum format\n"_s);
}

TEST_F(VerifyMd5, ANameThatHoldsTheSeparatorIsCutThere)
{
    write(u"a"_s, "abc");
    EXPECT_EQ(linesFor(QByteArray(abc) + " *a *b.wav\n"), u"a : OK\n"_s);
}

TEST_F(VerifyMd5, ADigestInCapitalsFails)
{
    EXPECT_EQ(linesFor(QByteArray(abc).toUpper() + " *a.wav\n"), u"a.wav : FAILED\n"_s);
}

TEST_F(VerifyMd5, BlanksAroundDigestAndNameDoNotMatter)
{
    EXPECT_EQ(linesFor(QByteArray("\t") + abc + "   *  a.wav \t\n"), u"a.wav : OK\n"_s);
}

TEST_F(VerifyMd5, ANameWithASlashLeadsOnFromTheListsFolderAndShowsItsEnd)
{
    ASSERT_TRUE(QDir(folder_.path()).mkdir(u"disc 1"_s));
    write(u"disc 1/t01 Ünïcode 夜.wav"_s, "abc");
    EXPECT_EQ(linesFor(QByteArray(abc) + " *disc 1/t01 Ünïcode 夜.wav\n"), u"t01 Ünïcode 夜.wav : OK\n"_s);
}

TEST_F(VerifyMd5, AListThatIsNoTextGivesTheHeadingAlone)
{
    EXPECT_EQ(linesFor("\xff\xfe not text"), QString());
}

TEST_F(VerifyMd5, AnEmptyListGivesTheHeadingAlone)
{
    EXPECT_EQ(linesFor(""), QString());
}

TEST_F(VerifyMd5, AListOfCommentsGivesTheHeadingAlone)
{
    EXPECT_EQ(linesFor("#MD5 checksums\r\n\r\n; nothing else\r\n"), QString());
}

TEST_F(VerifyMd5, AnyBitThatFlipsIsTold)
{
    const QByteArray whole = "sixteen bytes ok";
    const QByteArray digest = MD5Helper::getMD5FromFile(write(u"b.wav"_s, whole)).toLatin1();
    const auto task = make(digest + " *b.wav\n");
    for (qsizetype bit = 0; bit < 8 * whole.size(); ++bit) {
        QByteArray flipped = whole;
        flipped[bit / 8] = char(flipped[bit / 8] ^ 1 << bit % 8);
        write(u"b.wav"_s, flipped);
        results_->setTasksInSet({});
        results_->addTaskInSet(task);
        task->doCreateMD5();
        EXPECT_EQ(results_->results(), u"b.wav : FAILED\n\n"_s) << bit;
    }
    task->setResults(nullptr);
}

TEST_F(VerifyMd5, ACancelThroughTheQueueLeavesOneWordBehindTheHeading)
{
    const auto task = VerifyMD5Task::initWithQueueForFileNameWithResults(&queue_, pipe(u"set.md5"_s), results_);
    EXPECT_EQ(reportOfCancelled(task, results_, u"set.md5"_s, QByteArray(abc) + " *a.wav\n"),
              u"Verify MD5: set.md5\nCanceled\n\n"_s);
}

TEST_F(VerifyMd5, ACancelHalfwayDropsWhatWasFoundAndLooksAtNoFurtherEntry)
{
    const EndlessFile second(pathOf(u"b.wav"_s));
    const auto task = make(QByteArray(abc) + " *a.wav\n" + abc + " *b.wav\n" + abc + " *a.wav\n");
    results_->addTaskInSet(task);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Verifying b.wav"_s; }));
    task->cancelTask(nullptr);
    EXPECT_EQ(task->textField()->stringValue(), u"Canceled"_s) << "at once";
    second.end();
    runQueue();
    EXPECT_EQ(results_->results(), u"Verify MD5: set.md5\nCanceled\n\n"_s);
    EXPECT_DOUBLE_EQ(task->progressIndicator()->doubleValue(), 200.0 / 3);
}

TEST_F(VerifyMd5, TheStatusLineTellsOfTheListBeforeItIsRead)
{
    const auto task = VerifyMD5Task::initWithQueueForFileNameWithResults(&queue_, pipe(u"set.md5"_s), results_);
    results_->addTaskInSet(task);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Verifying MD5 file"_s; }));
    fillPipe(u"set.md5"_s, {});
    runQueue();
}

TEST_F(VerifyMd5, AListThatIsNotThereGivesTheHeadingAlone)
{
    const auto task = VerifyMD5Task::initWithQueueForFileNameWithResults(&queue_, pathOf(u"missing.md5"_s), results_);
    EXPECT_EQ(reportOf({task}, results_), u"Verify MD5: missing.md5\n\n"_s);
    EXPECT_FALSE(task->error());
}

TEST_F(VerifyMd5, TheBarCountsBadLinesToo)
{
    const auto task = make("bad\nbad\nbad\n");
    results_->addTaskInSet(task);
    task->doCreateMD5();
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 100.0);
    task->setResults(nullptr);
}

TEST_F(VerifyMd5, TheStatusLineHasTheNameAsItStandsInTheList)
{
    const auto task = make(QByteArray(abc) + " *  a.wav\n");
    results_->addTaskInSet(task);
    task->doCreateMD5();
    EXPECT_EQ(task->topTextField()->stringValue(), u"Verifying   a.wav"_s);
    task->setResults(nullptr);
}

TEST_F(VerifyMd5, ACancelLeavesOneWordInsteadOfWhatWasFound)
{
    const auto task = make(QByteArray(abc) + " *a.wav\n");
    results_->addTaskInSet(task);
    task->setCancelled(true);
    task->doCreateMD5();
    EXPECT_EQ(results_->results(), u"Canceled\n\n"_s);
    task->setResults(nullptr);
}

TEST_F(VerifyMd5, SeveralListsMakeOneReportInTheirOrder)
{
    std::vector<std::shared_ptr<ZOLTTask>> tasks;
    QString expected;
    for (int number = 0; number < 2000; ++number) {
        const QString name = u"list%1.md5"_s.arg(number, 4, 10, QChar(u'0'));
        tasks.push_back(VerifyMD5Task::initWithQueueForFileNameWithResults(
            &queue_, write(name, QByteArray(abc) + " *a.wav\n"), results_));
        expected += u"Verify MD5: "_s + name + u"\na.wav : OK\n\n"_s;
    }
    EXPECT_EQ(reportOf(tasks, results_), expected);
}

TEST_F(VerifyMd5, AListWhoseOwnNameIsNotUtf8IsRead)
{
    const QString list = nameOfBytes(QFile::encodeName(folder_.path()) + "/s\xe4tze.md5");
    NamedFile file(list);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(abc) + " *a.wav\n");
    file.close();
    const auto task = VerifyMD5Task::initWithQueueForFileNameWithResults(&queue_, list, results_);
    EXPECT_TRUE(reportOf({task}, results_).endsWith(u"\na.wav : OK\n\n"_s));
}

TEST_F(VerifyMd5, WhoeverSumsTheReportUpLearnsThatAListHoldsNothingToCheck)
{
    for (const QByteArray& list : {QByteArray(), QByteArray("# comment\n"), QByteArray("\xff")}) {
        const auto results = std::make_shared<ZOLTTaskResults>();
        const auto task =
            VerifyMD5Task::initWithQueueForFileNameWithResults(&queue_, write(u"no.md5"_s, list), results);
        results->addTaskInSet(task);
        queue_.addTask(task);
        runQueue();
        const ReportVerdict verdict = verdictOf(results->results(), results->notes());
        EXPECT_EQ(inWords(verdict), u"1 failed"_s) << list.toStdString();
        EXPECT_TRUE(verdict.cause.startsWith(u"Nothing of no.md5 was checked: "_s)) << verdict.cause.toStdString();
    }
}

TEST_F(VerifyMd5, WhoeverSumsTheReportUpLearnsWhichFilesAreNotThere)
{
    const QString report = reportOf({make(QByteArray(abc) + " *a.wav\n" + abc + " *gone.wav\n" + nothing +
                                          " *gone too.wav\n" + nothing + " *a.wav\n")},
                                    results_);
    EXPECT_EQ(report, u"Verify MD5: set.md5\na.wav : OK\ngone.wav : FAILED\ngone too.wav : OK\na.wav : FAILED\n\n"_s)
        << "the text is as ever";
    EXPECT_EQ(inWords(verdictOf(report, results_->notes())), u"1 OK, 1 failed, 2 missing"_s);
}
