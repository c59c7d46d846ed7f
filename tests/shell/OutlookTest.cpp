#include "shell/Outlook.h"

#include "platform/desktop/UserDefaults.h"
#include "shell/Wording.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QSet>

namespace zolt {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

/// A disk that exists in words alone.
class ToldDisk : public OutlookDisk
{
public:
    QSet<QString> present;
    QSet<QString> closed;
    std::int64_t available = 1'000'000'000;
    std::int64_t sourceSize = 10;
    std::int64_t decodedSize = 20;

    bool exists(const QString& path) const override { return present.contains(path); }
    bool isWritable(const QString& folder) const override { return !closed.contains(folder); }
    std::uint64_t device(const QString&) const override { return 1; }
    std::int64_t freeBytes(const QString&) const override { return available; }
    std::int64_t size(const QString&) const override { return sourceSize; }
    std::int64_t decodedBytes(const QString&) const override
    {
        ++headersRead;
        return decodedSize;
    }
    QString trueFolder(const QString& folder) const override { return links.value(folder, folder); }
    QList<MissingTool> missing(const QStringList& tools) const override
    {
        QList<MissingTool> gone;
        for (const QString& tool : tools)
            gone += {tool, tool};
        return gone;
    }

    QHash<QString, QString> links; ///< folders and where they lead
    mutable int headersRead = 0;
};

/// A plan such as a tab makes: each source becomes a file of the same name that ends in "wav".
class OutlookTest : public testing::Test
{
protected:
    OutlookTest() { plan.setPlaces(true, std::nullopt); }

    void planFor(const QStringList& files)
    {
        plan.files = files;
        plan.items.clear();
        for (qsizetype row = 0; row < files.size(); ++row) {
            const QString base = path::deletingExtension(path::lastComponent(files[row]));
            plan.items.push_back({.row = row,
                                  .source = files[row],
                                  .outputs = {path::appendingComponent(plan.folderFor(files[row]), base + u".wav"_s)},
                                  .existing = way,
                                  .outputSize = WorkItem::Size::PlainAudio});
        }
        plan.words = filesInWords(files) + u" to WAV"_s;
    }
    Outlook told(const QStringList& files)
    {
        planFor(files);
        for (const QString& file : files)
            disk.present += file;
        return outlookOf(plan, disk, stop);
    }
    static QList<qsizetype> rowsOf(const Outlook& outlook, OutlookProblem::Kind kind)
    {
        const auto* const problem = outlook.problem(kind);
        return problem ? problem->rows : QList<qsizetype>{-1};
    }

    using Kind = OutlookProblem::Kind;
    WorkPlan plan;
    WorkItem::Existing way = WorkItem::Existing::Refused;
    ToldDisk disk;
    const std::atomic<bool> stop = false;
};

TEST_F(OutlookTest, AnEmptyListHasNothingToTell)
{
    EXPECT_EQ(outlookOf(WorkPlan(), disk, stop), Outlook());
}

TEST_F(OutlookTest, TellsWhatWillHappen)
{
    const auto outlook = told({u"/a/1.flac"_s, u"/a/2.FLAC"_s});
    EXPECT_EQ(outlook.intention, u"2 FLAC files to WAV beside their sources"_s);
    EXPECT_THAT(outlook.problems, IsEmpty());
}

TEST_F(OutlookTest, SpeaksOfOneFileInTheSingular)
{
    plan.deletes = true;
    EXPECT_EQ(told({u"/a/1.flac"_s}).intention,
              u"1 FLAC file to WAV beside its source, and delete the original for good"_s);
}

TEST_F(OutlookTest, TellsOfTheTrashWhereTheOriginalsGoThere)
{
    UserDefaults::standard().set(u"trashOrDelete"_s, 1);
    const auto back = qScopeGuard([] { UserDefaults::standard().remove(u"trashOrDelete"_s); });
    plan.deletes = true;
    EXPECT_TRUE(told({u"/a/1.flac"_s}).intention.endsWith(u", and move the original to the trash"_s));
    plan.neverToTrash = true;
    EXPECT_TRUE(told({u"/a/1.flac"_s}).intention.endsWith(u", and delete the original for good"_s));
}

TEST_F(OutlookTest, TellsOfDeletionAndOfTheFolder)
{
    plan.setPlaces(false, std::nullopt);
    plan.deletes = true;
    EXPECT_EQ(told({u"/a/1.flac"_s, u"/a/2.flac"_s}).intention,
              u"2 FLAC files to WAV in a folder that you choose, and delete the 2 originals for good"_s);
    plan.setPlaces(false, u"/out"_s);
    disk.present += u"/out"_s;
    EXPECT_EQ(told({u"/a/1.flac"_s}).intention, u"1 FLAC file to WAV in /out, and delete the original for good"_s);
}

TEST_F(OutlookTest, ACommandThatWritesNothingTellsNoPlace)
{
    plan.setPlaces(false, std::nullopt);
    plan.needsFolder = false;
    EXPECT_EQ(told({u"/a/1.flac"_s}).intention, u"1 FLAC file to WAV"_s);
}

TEST_F(OutlookTest, NamesFilesThatTheCommandPassesOver)
{
    planFor({u"/a/1.flac"_s, u"/a/2.xyz"_s, u"/a/README"_s});
    disk.present = {u"/a/1.flac"_s};
    plan.items.resize(1);
    plan.passedOver = {1, 2};
    const auto outlook = outlookOf(plan, disk, stop);
    EXPECT_THAT(outlook.sentences(), ElementsAre(u"2 files will be passed over: this command is not for "
                                                 "XYZ and files without an extension"_s));
    EXPECT_THAT(rowsOf(outlook, Kind::PassedOver), ElementsAre(1, 2));
}

TEST_F(OutlookTest, SaysSoWhenThereIsNothingToDo)
{
    plan.files = {u"/a/2.xyz"_s};
    EXPECT_EQ(outlookOf(plan, disk, stop).intention, u"Nothing in the list can be used here"_s);
    plan.words = u"Nothing in the list can be decoded"_s;
    EXPECT_EQ(outlookOf(plan, disk, stop).intention, plan.words);
}

TEST_F(OutlookTest, NamesTheMissingTools)
{
    plan.tools = {u"flac"_s, u"sox"_s};
    EXPECT_THAT(told({u"/a/1.flac"_s}).sentences(),
                ElementsAre(missingToolMessage({u"flac"_s, u"flac"_s}), missingToolMessage({u"sox"_s, u"sox"_s})));
}

TEST_F(OutlookTest, FindsTwoSourcesForOneOutput)
{
    const auto outlook = told({u"/a/1.FLAC"_s, u"/a/1.flac"_s, u"/b/1.flac"_s});
    EXPECT_THAT(outlook.sentences(),
                ElementsAre(u"2 files in the list would be written to one 1.wav: only the first one can be"_s));
    EXPECT_THAT(rowsOf(outlook, Kind::Collision), ElementsAre(1));
    EXPECT_THAT(outlook.problems[0].details,
                ElementsAre(u"/a/1.FLAC and /a/1.flac would both be written to /a/1.wav"_s));
}

TEST_F(OutlookTest, TheSameFileTwiceIsTwoSources)
{
    const auto outlook = told({u"/a/1.flac"_s, u"/a/1.flac"_s, u"/a/1.flac"_s});
    EXPECT_EQ(outlook.problems.size(), 1U);
    EXPECT_THAT(rowsOf(outlook, Kind::Collision), ElementsAre(1, 2));
}

TEST_F(OutlookTest, TwoWaysToOneFolderMeet)
{
    disk.links[u"/link"_s] = u"/a"_s;
    EXPECT_THAT(rowsOf(told({u"/a/1.flac"_s, u"/link/1.wv"_s}), Kind::Collision), ElementsAre(1));
}

TEST_F(OutlookTest, AnOutputThatIsMeantToBeSharedIsNoCollision)
{
    planFor({u"/a/1.flac"_s, u"/a/1.wv"_s});
    disk.present = {u"/a/1.flac"_s, u"/a/1.wv"_s};
    for (WorkItem& item : plan.items)
        item.sharesOutput = true;
    EXPECT_THAT(outlookOf(plan, disk, stop).problems, IsEmpty());
}

TEST_F(OutlookTest, InAChosenFolderTheNamesOfAllFoldersMeet)
{
    plan.setPlaces(false, std::nullopt);
    EXPECT_THAT(
        told({u"/a/1.flac"_s, u"/a/2.flac"_s, u"/b/1.flac"_s, u"/b/2.flac"_s}).sentences(),
        ElementsAre(
            u"2 outputs would each come from several files in the list, such as 1.wav: only the first one can be written"_s));
}

TEST_F(OutlookTest, FindsOutputsThatExist)
{
    disk.present = {u"/a/2.wav"_s};
    const auto outlook = told({u"/a/1.flac"_s, u"/a/2.flac"_s});
    EXPECT_THAT(outlook.sentences(), ElementsAre(u"2.wav exists already and will not be overwritten"_s));
    EXPECT_THAT(rowsOf(outlook, Kind::Existing), ElementsAre(1));
    disk.present += u"/a/1.wav"_s;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/a/2.flac"_s}).sentences(),
                ElementsAre(u"2 of the outputs exist already and will not be overwritten, such as 1.wav"_s));
}

TEST_F(OutlookTest, SaysSoWhereWhatExistsIsOverwritten)
{
    way = WorkItem::Existing::Overwritten;
    disk.present = {u"/a/1.wav"_s};
    EXPECT_THAT(told({u"/a/1.flac"_s}).sentences(), ElementsAre(u"1.wav exists already and will be overwritten"_s));
}

TEST_F(OutlookTest, LooksIntoAFolderThatIsSet)
{
    plan.setPlaces(false, u"/out"_s);
    disk.present = {u"/out"_s, u"/out/1.wav"_s, u"/a/2.wav"_s};
    EXPECT_THAT(rowsOf(told({u"/a/1.flac"_s, u"/a/2.flac"_s}), Kind::Existing), ElementsAre(0));
    disk.closed = {u"/out"_s};
    EXPECT_THAT(rowsOf(told({u"/a/1.flac"_s, u"/b/2.flac"_s}), Kind::Unwritable), ElementsAre(0, 1));
}

TEST_F(OutlookTest, MissesTheFolderThatIsSet)
{
    plan.setPlaces(false, u"/out"_s);
    const auto outlook = told({u"/a/1.flac"_s});
    EXPECT_THAT(outlook.sentences(), ElementsAre(u"The folder /out is not there: choose another, or make it first"_s));
    EXPECT_EQ(outlook.problems[0].kind, Kind::MissingFolder);
}

TEST_F(OutlookTest, FindsSourcesThatHaveVanished)
{
    planFor({u"/a/1.flac"_s});
    EXPECT_THAT(outlookOf(plan, disk, stop).sentences(), ElementsAre(u"1.flac is no longer there"_s));
    planFor({u"/a/1.flac"_s, u"/a/2.flac"_s});
    const auto outlook = outlookOf(plan, disk, stop);
    EXPECT_THAT(outlook.sentences(), ElementsAre(u"2 files are no longer there, first of them 1.flac"_s));
    EXPECT_THAT(rowsOf(outlook, Kind::Vanished), ElementsAre(0, 1));
}

TEST_F(OutlookTest, TellsWhatTheTabHasToSay)
{
    plan.cautions = {u"It takes long."_s};
    plan.inspect = [](const WorkPlan& seen, const std::atomic<bool>&) {
        return std::vector<WorkCaution>{{u"Cut: %1"_s.arg(path::lastComponent(seen.files[1])), {1}}};
    };
    planFor({u"/a/1.flac"_s, u"/a/2.flac"_s, u"/a/3.flac"_s});
    disk.present = {u"/a/1.flac"_s, u"/a/2.flac"_s, u"/a/3.flac"_s};
    plan.items[0].caution = plan.items[2].caution = u"Its cover is lost."_s;
    const auto outlook = outlookOf(plan, disk, stop);
    EXPECT_THAT(outlook.sentences(), ElementsAre(u"It takes long."_s, u"Its cover is lost."_s, u"Cut: 2.flac"_s));
    EXPECT_THAT(outlook.problems[1].rows, ElementsAre(0, 2));
    EXPECT_THAT(outlook.problems[2].rows, ElementsAre(1));
}

TEST_F(OutlookTest, FindsFoldersThatCannotBeWritten)
{
    disk.present = {u"/a"_s, u"/b"_s};
    disk.closed = {u"/a"_s};
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/1.flac"_s}).sentences(),
                ElementsAre(u"The folder /a cannot be written to: have the output written elsewhere"_s));
    disk.closed += u"/b"_s;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/1.flac"_s}).sentences(),
                ElementsAre(u"2 folders, such as /a, cannot be written to: have the output written elsewhere"_s));
    plan.setPlaces(false, std::nullopt);
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/2.flac"_s}).problems, IsEmpty());
}

TEST_F(OutlookTest, FindsTooLittleRoom)
{
    disk.available = 39'000;
    disk.sourceSize = 10'000;
    disk.decodedSize = 20'000;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/1.flac"_s}).sentences(),
                ElementsAre(u"Too little room on the disk of /a: about 40.0 kB are needed and 39.0 kB are free"_s));
    disk.available = 40'000;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/1.flac"_s}).sentences(), IsEmpty());
}

TEST_F(OutlookTest, ReadsHeadersOnlyWhereRoomIsScarce)
{
    disk.available = 1000;
    told({u"/a/1.flac"_s});
    EXPECT_EQ(disk.headersRead, 0);
    disk.available = 39;
    told({u"/a/1.flac"_s});
    EXPECT_EQ(disk.headersRead, 1);
}

TEST_F(OutlookTest, CountsWhatIsAsLargeAsItsSource)
{
    planFor({u"/a/1.flac"_s});
    disk.present = {u"/a/1.flac"_s};
    disk.available = 9;
    plan.items[0].outputSize = WorkItem::Size::LikeSource;
    EXPECT_TRUE(outlookOf(plan, disk, stop).problem(Kind::Room));
    plan.items[0].outputBytes = 8;
    EXPECT_FALSE(outlookOf(plan, disk, stop).problem(Kind::Room));
    EXPECT_EQ(disk.headersRead, 0);
    plan.items[0].outputBytes = -1;
    plan.items[0].outputSize = WorkItem::Size::Unknown;
    EXPECT_FALSE(outlookOf(plan, disk, stop).problem(Kind::Room));
}

TEST_F(OutlookTest, CountsTheWavOnTheWayOnce)
{
    planFor({u"/a/1.shn"_s, u"/a/2.shn"_s});
    disk.present = {u"/a/1.shn"_s, u"/a/2.shn"_s};
    for (WorkItem& item : plan.items) {
        item.outputSize = WorkItem::Size::LikeSource;
        item.staged = true;
    }
    disk.sourceSize = 10'000;
    disk.decodedSize = 30'000;
    disk.available = 49'000;
    EXPECT_THAT(outlookOf(plan, disk, stop).sentences(),
                ElementsAre(u"Too little room on the disk of /a: about 50.0 kB are needed and 49.0 kB are free"_s));
    disk.available = 50'000;
    EXPECT_FALSE(outlookOf(plan, disk, stop).problem(Kind::Room));
}

TEST_F(OutlookTest, EndsEarlyWhenTold)
{
    planFor({u"/a/1.flac"_s});
    const std::atomic<bool> stopped = true;
    EXPECT_THAT(outlookOf(plan, disk, stopped).problems, IsEmpty());
}

TEST(LocalDiskTest, ReadsTheDecodedSizeFromTheHeader)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.flac"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // 44100 Hz, 2 channels, 16 bits, 1000 samples.
    file.write(QByteArray::fromHex("664c614300000022100010000000000000000ac442f0000003e8"));
    file.close();
    EXPECT_EQ(LocalDisk().decodedBytes(path), 4000);
}

TEST(LocalDiskTest, TakesTheSourcesOwnSizeWhereTheHeaderTellsNothing)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.shn"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("ajkg and more");
    file.close();
    EXPECT_EQ(LocalDisk().decodedBytes(path), 13);
}

TEST(LocalDiskTest, LooksAtTheRealDisk)
{
    const QTemporaryDir folder;
    const LocalDisk disk;
    EXPECT_TRUE(disk.exists(folder.path()));
    EXPECT_FALSE(disk.exists(folder.filePath(u"none"_s)));
    EXPECT_TRUE(disk.isWritable(folder.path()));
    EXPECT_FALSE(disk.isWritable(folder.filePath(u"none"_s)));
    EXPECT_GT(disk.freeBytes(folder.path()), 0);
    EXPECT_EQ(disk.device(folder.path()), disk.device(folder.filePath(u"."_s)));
    EXPECT_EQ(disk.trueFolder(folder.filePath(u"."_s)), disk.trueFolder(folder.path()));
    EXPECT_EQ(disk.trueFolder(u"/none/at/all"_s), u"/none/at/all"_s);
}

} // namespace
} // namespace zolt
