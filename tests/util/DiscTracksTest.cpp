#include "util/DiscTracks.h"

#include "util/CDExtractSCSIProviderHelper.h"
#include "util/DiscVolumes.h"

#include <QDir>
#include <QTemporaryDir>

using namespace zolt;
using namespace Qt::StringLiterals;

TEST(DiscTracks, NumbersBelowTenGetAZeroAndThenTheNamesAreSorted)
{
    EXPECT_EQ(tracksInOrder({u"/d/10 J.aiff"_s, u"/d/9 I.aiff"_s, u"/d/1 A.aiff"_s}),
              QStringList({u"01 A.aiff"_s, u"09 I.aiff"_s, u"10 J.aiff"_s}));
    EXPECT_EQ(tracksInOrder({u"/d/07 G.aiff"_s}), QStringList{u"07 G.aiff"_s});
    EXPECT_EQ(tracksInOrder({u"/d/Intro.aiff"_s}), QStringList{u"0Intro.aiff"_s});
}

TEST(DiscTracks, PathsKeepTheirFolders)
{
    EXPECT_EQ(trackPathsInOrder({u"/d/10 J.aiff"_s, u"/d/3 C.aiff"_s}),
              QStringList({u"/d/03 C.aiff"_s, u"/d/10 J.aiff"_s}));
}

TEST(DiscTracks, TheNumberEndsAtTheFirstWhiteSpace)
{
    EXPECT_EQ(leadingNumber(u"12 a"_s), 12);
    EXPECT_EQ(leadingNumber(u"12\ta"_s), 12);
    EXPECT_EQ(leadingNumber(u"12"_s), 12);
    EXPECT_EQ(leadingNumber(u"\t12 a"_s), 0);
    EXPECT_EQ(leadingNumber(u"a 12"_s), 0);
    EXPECT_EQ(leadingNumber(u""_s), 0);
}

TEST(DiscTracks, ARangeStopsAtAGap)
{
    EXPECT_EQ(trackRange({u"01 a"_s, u"02 b"_s, u"04 d"_s}), u"1+2"_s);
    EXPECT_EQ(trackRange({u"03 c"_s}), u"3+3"_s);
    EXPECT_EQ(trackRange({}), u"-1+0"_s);
}

TEST(DiscTracks, BehindAGapTheRunGoesOnWithTheMissingNumberAlone)
{
    EXPECT_EQ(trackRange({u"01 a"_s, u"03 c"_s, u"02 b"_s, u"03 d"_s}), u"1+3"_s);
}

TEST(DiscTracks, NinetyNineTracksAreOneRange)
{
    QStringList files;
    for (int track = 1; track <= 99; ++track)
        files += QStringLiteral("/d/%1 Track.cdda").arg(track);
    EXPECT_EQ(trackRange(tracksInOrder(files)), u"1+99"_s);
}

TEST(DiscVolumes, TheMountTableNamesTheDrive)
{
    const QString table = u"/dev/sda1 / ext4 rw 0 0\n/dev/sr0 /media/me/My\\040Disc iso9660 ro 0 0\n"
                          "/dev/sr1 /media/me/b iso9660 ro 0 0\n"_s;
    EXPECT_EQ(discOfVolume(u"/media/me/My Disc"_s, table), u"sr0"_s);
    EXPECT_EQ(discOfVolume(u"/media/me/b"_s, table), u"sr1"_s);
    EXPECT_EQ(discOfVolume(u"/media/me"_s, table), std::nullopt);
    EXPECT_EQ(discOfVolume(u"/media/me/b"_s, {}), std::nullopt);
    EXPECT_FALSE(mountTable().isEmpty());
}

TEST(DiscVolumes, WhatIsMountedWithoutADeviceIsNoDisc)
{
    const QString table = u"tmpfs /tmp tmpfs rw 0 0\nserver:/share /media/me/share nfs rw 0 0\n"
                          "portal /media/me/b fuse rw 0 0\n/dev/sr0 /media/me/b iso9660 ro 0 0\n"_s;
    EXPECT_EQ(discOfVolume(u"/tmp"_s, table), std::nullopt);
    EXPECT_EQ(discOfVolume(u"/media/me/share"_s, table), std::nullopt);
    EXPECT_EQ(discOfVolume(u"/media/me/b"_s, table), u"sr0"_s);
}

TEST(DiscVolumes, AFolderOfOursNamesItsDrive)
{
    EXPECT_EQ(discOfVolume(folderOfDisc(u"sr1"_s), {}), u"sr1"_s);
    EXPECT_EQ(discOfVolume(u"/elsewhere/Audio CD (sr1)"_s, {}), std::nullopt);
    EXPECT_EQ(discOfVolume(folderOfDisc(u"sr1"_s) + u"/x"_s, {}), std::nullopt);
}

TEST(DiscVolumes, TheDesktopsViewOfADiscIsTold)
{
    EXPECT_TRUE(isInVirtualDiscFolder(u"/run/user/1000/gvfs/cdda:host=sr0/Track 1.wav"_s));
    EXPECT_FALSE(isInVirtualDiscFolder(u"/music/cdda/Track 1.wav"_s));
}

TEST(ScsiProvider, GivesTheDeviceOfADriveThatIsThere)
{
    const QTemporaryDir drives;
    for (const QString& drive : {u"sr0"_s, u"sr1"_s})
        QDir(drives.path()).mkdir(drive);
    const auto deviceOf = [&](const OptionalText& name) {
        return CDExtractSCSIProviderHelper::initWithBSDName(name, drives.path()).runTask();
    };
    EXPECT_EQ(deviceOf(u"sr0"_s), u"/dev/sr0"_s);
    EXPECT_EQ(deviceOf(u"sr1"_s), u"/dev/sr1"_s);
    EXPECT_EQ(deviceOf(u"sr2"_s), std::nullopt);
    EXPECT_EQ(deviceOf(u""_s), std::nullopt);
    EXPECT_EQ(deviceOf(std::nullopt), std::nullopt);
}

TEST(DiscTracks, RowsBehindAGapAreThoseThatTheRangeDoesNotHold)
{
    EXPECT_EQ(rowsOutsideRange({u"/d/1 a"_s, u"/d/10 j"_s, u"/d/2 b"_s, u"/d/4 d"_s}), (QList<qsizetype>{1, 3}));
    EXPECT_TRUE(rowsOutsideRange({u"/d/3 c"_s, u"/d/4 d"_s}).isEmpty());
    EXPECT_TRUE(rowsOutsideRange({}).isEmpty());
}

TEST(DiscVolumes, BytesOfAPlaceAreReadBackWhateverTheyAre)
{
    EXPECT_EQ(discOfVolume(u"/m/a\\b\tc\\"_s, u"/dev/sr0 /m/a\\134b\\011c\\ iso9660 ro 0 0\n"_s), u"sr0"_s);
    EXPECT_EQ(discOfVolume(u"/m/a\\04"_s, u"/dev/sr0 /m/a\\04 iso9660 ro 0 0\n"_s), u"sr0"_s);
    EXPECT_EQ(discOfVolume(u"/m/\\040"_s, u"/dev/sr0 /m/\\134040 iso9660 ro 0 0\n"_s), u"sr0"_s);
}
