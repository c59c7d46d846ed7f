#include "checksum/ChecksumTab.h"
#include "platform/files/FileNames.h"
#include "support/TabFixture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class ChecksumPlanTest : public TabFixture<ChecksumTab>
{
protected:
    ChecksumPlanTest() : TabFixture(Constants::CHECKSUM) {}

    WorkPlan plan(ChecksumTab::Command command, const QStringList& files, const QString& kind = u"MD5"_s)
    {
        tab.clearFiles();
        tab.addFiles(files);
        tab.commandOptions->selectCell(command, 0);
        tab.createChecksumOptions->selectTitle(kind);
        return tab.workPlan();
    }
};

} // namespace

TEST_F(ChecksumPlanTest, TestsNeedTheToolsOfTheFilesAtHandAndPassOverTheRest)
{
    const WorkPlan found = plan(ChecksumTab::TestFiles, {u"/a.flac"_s, u"/b.ape"_s, u"/c.shn"_s, u"/d.flac"_s});
    EXPECT_EQ(found.tools, QStringList({u"flac"_s, u"mac"_s}));
    EXPECT_EQ(found.passedOver, QList<qsizetype>({2}));
    EXPECT_EQ(found.words, u"3 APE and FLAC files to test"_s);
    EXPECT_EQ(found.items.size(), 3U);
}

TEST_F(ChecksumPlanTest, ListsNeedTheToolsOfTheirKinds)
{
    EXPECT_EQ(plan(ChecksumTab::VerifyLists, {u"/a.md5"_s}).tools, QStringList());
    EXPECT_EQ(plan(ChecksumTab::VerifyLists, {u"/a.st5"_s}).tools, QStringList({u"shntool"_s}));
    EXPECT_EQ(plan(ChecksumTab::VerifyLists, {u"/a.ffp.txt"_s}).tools, QStringList({u"metaflac"_s, u"flac"_s}));
    const WorkPlan found = plan(ChecksumTab::VerifyLists, {u"/a.md5"_s, u"/b.flac"_s, u"/c.txt"_s});
    EXPECT_EQ(found.passedOver, QList<qsizetype>({1, 2}));
    EXPECT_EQ(found.words, u"1 list to verify"_s);
}

TEST_F(ChecksumPlanTest, ANewListIsOneOutputOfAllItsFiles)
{
    const WorkPlan found = plan(ChecksumTab::CreateList, {u"/x/a.txt"_s, u"/y/b.flac"_s, u"/y/c.wav"_s}, u"ST5"_s);
    EXPECT_EQ(found.passedOver, QList<qsizetype>({0}));
    ASSERT_EQ(found.items.size(), 2U);
    EXPECT_EQ(found.items[0].outputs, QStringList({u"/y/checksum.st5"_s}));
    EXPECT_TRUE(found.items[1].sharesOutput);
    EXPECT_EQ(found.items[1].existing, WorkItem::Existing::Overwritten);
    EXPECT_EQ(found.words, u"2 FLAC and WAV files into checksum.st5"_s);
}

TEST_F(ChecksumPlanTest, FilesThatTheListWillLackAreTold)
{
    const WorkPlan found = plan(ChecksumTab::CreateList, {u"/x/a.wav"_s, u"/y/b.wav"_s}, u"ST5"_s);
    EXPECT_TRUE(found.items[0].caution.contains(u"a.wav"_s));
    EXPECT_TRUE(found.items[1].caution.isEmpty());
}

TEST_F(ChecksumPlanTest, EqualNamesOfSeveralFoldersAreTold)
{
    const WorkPlan found = plan(ChecksumTab::CreateList, {u"/x/a.wav"_s, u"/y/a.wav"_s, u"/y/b.wav"_s});
    EXPECT_TRUE(found.items[0].caution.isEmpty());
    EXPECT_TRUE(found.items[1].caution.contains(u"a.wav"_s));
    EXPECT_TRUE(found.items[2].caution.isEmpty());
}

TEST_F(ChecksumPlanTest, ANameThatIsNotUtf8IsToldForEveryKindOfList)
{
    const QString odd = nameOfBytes("/x/s\xe4tze.flac");
    for (const QString& kind : {u"MD5"_s, u"ST5"_s, u"FFP"_s}) {
        const WorkPlan found = plan(ChecksumTab::CreateList, {odd, u"/x/tönt.flac"_s}, kind);
        ASSERT_EQ(found.items.size(), 2U);
        EXPECT_TRUE(found.items[0].caution.contains(u"sätze.flac is not UTF-8"_s)) << kind.toStdString();
        EXPECT_TRUE(found.items[1].caution.isEmpty());
    }
}

TEST_F(ChecksumPlanTest, AFullQueueIsToldForAnMd5ListAlone)
{
    EXPECT_TRUE(plan(ChecksumTab::CreateList, {u"/a.wav"_s}).cautions.isEmpty());
    holdQueue();
    EXPECT_FALSE(plan(ChecksumTab::CreateList, {u"/a.wav"_s}).cautions.isEmpty());
    EXPECT_TRUE(plan(ChecksumTab::CreateList, {u"/a.wav"_s}, u"ST5"_s).cautions.isEmpty());
    EXPECT_TRUE(plan(ChecksumTab::TestFiles, {u"/a.flac"_s}).cautions.isEmpty());
}
