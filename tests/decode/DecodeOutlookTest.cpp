#include "decode/DecodeOutlook.h"

#include <QDir>
#include <QFile>
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
    std::int64_t decodedBytes(const QString&) const override { return decodedSize; }
};

class DecodeOutlookTest : public testing::Test
{
protected:
    DecodeOutlook told(const QStringList& files)
    {
        plan.files = files;
        for (const QString& file : files)
            disk.present += file;
        return decodeOutlook(plan, disk, stop);
    }

    DecodePlan plan{
        .files = {}, .format = u"WAV"_s, .besideSource = true, .deleteOriginals = false, .missingTools = {}};
    ToldDisk disk;
    const std::atomic<bool> stop = false;
};

TEST_F(DecodeOutlookTest, AnEmptyListHasNothingToTell)
{
    EXPECT_EQ(told({}), DecodeOutlook());
}

TEST_F(DecodeOutlookTest, TellsWhatWillHappen)
{
    const auto outlook = told({u"/a/1.flac"_s, u"/a/2.FLAC"_s});
    EXPECT_EQ(outlook.intention, u"2 FLAC files to WAV beside their sources"_s);
    EXPECT_THAT(outlook.problems, IsEmpty());
}

TEST_F(DecodeOutlookTest, SpeaksOfOneFileInTheSingular)
{
    plan.format = u"AIFF"_s;
    plan.deleteOriginals = true;
    EXPECT_EQ(told({u"/a/1.flac"_s}).intention, u"1 FLAC file to AIFF beside its source, and delete the original"_s);
}

TEST_F(DecodeOutlookTest, TellsOfDeletionAndOfTheFolderToBeChosen)
{
    plan.besideSource = false;
    plan.deleteOriginals = true;
    EXPECT_EQ(told({u"/a/1.flac"_s, u"/a/2.flac"_s}).intention,
              u"2 FLAC files to WAV in a folder that you choose, and delete the 2 originals"_s);
}

TEST_F(DecodeOutlookTest, NamesFilesThatNothingDecodes)
{
    const auto outlook = told({u"/a/1.flac"_s, u"/a/2.xyz"_s, u"/a/README"_s});
    EXPECT_EQ(outlook.intention, u"1 FLAC file to WAV beside its source"_s);
    EXPECT_THAT(outlook.problems,
                ElementsAre(u"2 files will be passed over and stay in the list: this version does not decode XYZ "
                            "and files without an extension"_s));
    EXPECT_THAT(passedOverByDecode(plan.files), ElementsAre(u"/a/2.xyz"_s, u"/a/README"_s));
}

TEST_F(DecodeOutlookTest, SaysSoWhenNothingCanBeDecoded)
{
    EXPECT_EQ(told({u"/a/2.xyz"_s}).intention, u"Nothing in the list can be decoded"_s);
}

TEST_F(DecodeOutlookTest, NamesTheMissingTool)
{
    plan.missingTools = {{u"flac"_s, u"flac"_s}};
    EXPECT_THAT(told({u"/a/1.flac"_s}).problems, ElementsAre(missingToolMessage(plan.missingTools.first())));
}

TEST_F(DecodeOutlookTest, FindsTwoSourcesForOneOutput)
{
    EXPECT_THAT(told({u"/a/1.FLAC"_s, u"/a/1.flac"_s, u"/b/1.flac"_s}).problems,
                ElementsAre(u"2 files in the list would be written to one 1.wav: only the first one can be"_s));
}

TEST_F(DecodeOutlookTest, TheSameFileTwiceIsTwoSources)
{
    EXPECT_EQ(told({u"/a/1.flac"_s, u"/a/1.flac"_s}).problems.size(), 1);
}

TEST_F(DecodeOutlookTest, InAChosenFolderTheNamesOfAllFoldersMeet)
{
    plan.besideSource = false;
    EXPECT_THAT(
        told({u"/a/1.flac"_s, u"/a/2.flac"_s, u"/b/1.flac"_s, u"/b/2.flac"_s}).problems,
        ElementsAre(
            u"2 outputs would each come from several files in the list, such as 1.wav: only the first one can be written"_s));
}

TEST_F(DecodeOutlookTest, FindsOutputsThatExist)
{
    disk.present = {u"/a/1.wav"_s};
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/a/2.flac"_s}).problems,
                ElementsAre(u"1.wav exists already and will not be overwritten: move it away first"_s));
    disk.present += u"/a/2.wav"_s;
    EXPECT_THAT(
        told({u"/a/1.flac"_s, u"/a/2.flac"_s}).problems,
        ElementsAre(
            u"2 of the outputs exist already and will not be overwritten, such as 1.wav: move them away first"_s));
    plan.format = u"AIFF"_s;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/a/2.flac"_s}).problems, IsEmpty());
}

TEST_F(DecodeOutlookTest, FindsSourcesThatHaveVanished)
{
    plan.files = {u"/a/1.flac"_s};
    EXPECT_THAT(decodeOutlook(plan, disk, stop).problems, ElementsAre(u"1.flac is no longer there"_s));
    plan.files += u"/a/2.flac"_s;
    EXPECT_THAT(decodeOutlook(plan, disk, stop).problems,
                ElementsAre(u"2 files are no longer there, first of them 1.flac"_s));
}

TEST_F(DecodeOutlookTest, FindsFoldersThatCannotBeWritten)
{
    disk.present = {u"/a"_s, u"/b"_s};
    disk.closed = {u"/a"_s};
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/1.flac"_s}).problems,
                ElementsAre(u"The folder /a cannot be written to: have the output written elsewhere"_s));
    disk.closed += u"/b"_s;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/1.flac"_s}).problems,
                ElementsAre(u"2 folders, such as /a, cannot be written to: have the output written elsewhere"_s));
    plan.besideSource = false;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/2.flac"_s}).problems, IsEmpty());
}

TEST_F(DecodeOutlookTest, FindsTooLittleRoom)
{
    disk.available = 39'000;
    disk.sourceSize = 10'000;
    disk.decodedSize = 20'000;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/1.flac"_s}).problems,
                ElementsAre(u"Too little room on the disk of /a: about 40.0 kB are needed and 39.0 kB are free"_s));
    disk.available = 40'000;
    EXPECT_THAT(told({u"/a/1.flac"_s, u"/b/1.flac"_s}).problems, IsEmpty());
}

TEST_F(DecodeOutlookTest, EndsEarlyWhenTold)
{
    plan.files = {u"/a/1.flac"_s};
    const std::atomic<bool> stopped = true;
    EXPECT_THAT(decodeOutlook(plan, disk, stopped).problems, IsEmpty());
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
}

} // namespace
} // namespace zolt
