#include "util/DiscContents.h"

#include "util/DiscSearch.h"
#include "util/DiscVolumes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

/// What a drive answers for two audio tracks, a data track and the lead-out, in its own form.
const QByteArray answer = QByteArray::fromHex("0022"
                                              "0103"
                                              "0010010000000000"
                                              "00100200000046b1"
                                              "0014030000008f20"
                                              "0014aa00000123ff");

} // namespace

TEST(DiscContents, TracksAreToldFromDataAndFromTheLeadOut)
{
    EXPECT_EQ(tracksOfContents(answer), (QList<DiscTrack>{{1, false}, {2, false}, {3, true}}));
}

TEST(DiscContents, AnAnswerCutAnywhereGivesItsWholeEntries)
{
    for (qsizetype size = 0; size <= answer.size(); ++size) {
        const auto tracks = tracksOfContents(answer.first(size));
        EXPECT_EQ(tracks.size(), size < 12 ? 0 : std::min<qsizetype>((size - 4) / 8, 3)) << size;
    }
    QByteArray boasting = answer;
    boasting[0] = '\x7f';
    EXPECT_EQ(tracksOfContents(boasting).size(), 3);
    EXPECT_TRUE(tracksOfContents(QByteArray(12, '\0')).isEmpty());
}

TEST(DiscContents, NamesTakeTheTitlesOfTheDiscWhereItHasThem)
{
    const auto titles = titlesOf(u"Album title: 'x' from 'y'\n"
                                 "T01:  3:42.12 title 'Intro/Outro' from 'Me'\n"
                                 "T02:  2:01.00 title '' from ''\n"
                                 "T03:  2:01.00 title '  Coda ' from ''\n"
                                 "T10:  2:01.00 title 'It's \"on\"' from ''\n"_s);
    EXPECT_EQ(titles.size(), 3);
    EXPECT_EQ(trackFileNames({{3, false}}, titles), QStringList{u"3 Coda.wav"_s});
    EXPECT_EQ(titles.value(10), u"It's \"on\""_s);
    EXPECT_EQ(trackFileNames({{1, false}, {2, false}, {3, true}, {10, false}}, titles),
              QStringList({u"1 Intro-Outro.wav"_s, u"2 Track 02.wav"_s, u"10 It's \"on\".wav"_s}));
}

TEST(DiscContents, TrackFilesTakeThePlaceOfThoseBefore)
{
    const QByteArray saved = qgetenv("XDG_CACHE_HOME");
    const QTemporaryDir cache;
    qputenv("XDG_CACHE_HOME", cache.path().toUtf8());
    placeTrackFiles(u"sr0"_s, {u"1 Old.wav"_s});
    const QStringList paths = placeTrackFiles(u"sr0"_s, {u"1 a.wav"_s, u"2 b.wav"_s});
    EXPECT_EQ(paths, QStringList({folderOfDisc(u"sr0"_s) + u"/1 a.wav"_s, folderOfDisc(u"sr0"_s) + u"/2 b.wav"_s}));
    EXPECT_EQ(QDir(folderOfDisc(u"sr0"_s)).entryList(QDir::Files), QStringList({u"1 a.wav"_s, u"2 b.wav"_s}));
    EXPECT_EQ(discOfVolume(folderOfDisc(u"sr0"_s), {}), u"sr0"_s);
    qputenv("XDG_CACHE_HOME", saved);
}

TEST(DiscContents, ADriveThatIsNotThereSaysSo)
{
    QString fault;
    EXPECT_TRUE(readDiscContents(u"/dev/no-such-drive"_s, fault).isEmpty());
    EXPECT_EQ(fault, u"/dev/no-such-drive tells no tracks: No such file or directory"_s);
}

TEST(DiscContents, DrivesAreListedFromTheFirst)
{
    const QTemporaryDir block;
    for (const QString& name : {u"sr1"_s, u"sr3"_s, u"sda"_s, u"sr0"_s, u"sr2"_s}) // in no order of a folder
        QDir(block.path()).mkdir(name);
    EXPECT_EQ(discDrives(block.path()), QStringList({u"sr0"_s, u"sr1"_s, u"sr2"_s, u"sr3"_s}));
    EXPECT_TRUE(discDrives(block.path() + u"/none"_s).isEmpty());
}

TEST(DiscContents, ALongTitleIsCutToWhatAFileMayBeCalled)
{
    const QString title = QString(u"\u00e9"_s).repeated(300) + QString::fromUcs4(U"\U0001f3b5", 1);
    for (const QString& each : {title, QString::fromUcs4(U"\U0001f3b5", 1).repeated(90)}) {
        const QStringList names = trackFileNames({{1, false}}, {{1, each}});
        EXPECT_LE(names[0].toUtf8().size(), 220);
        EXPECT_TRUE(names[0].isValidUtf16());
        EXPECT_TRUE(names[0].startsWith(u"1 "_s + each.first(2)) && names[0].endsWith(u".wav"));
    }
}

TEST(DiscContents, ATrackWhoseFileCannotBeMadeLeavesNoGap)
{
    const QByteArray saved = qgetenv("XDG_CACHE_HOME");
    const QTemporaryDir cache;
    qputenv("XDG_CACHE_HOME", cache.path().toUtf8());
    EXPECT_EQ(placeTrackFiles(u"sr0"_s, {u"1 a.wav"_s, u"2 %1.wav"_s.arg(QString(300, u'x')), u"3 c.wav"_s}).size(), 3);
    qputenv("XDG_CACHE_HOME", saved);
}

TEST(DiscContents, TheStatedLengthCountsFromBehindItself)
{
    EXPECT_EQ(tracksOfContents(QByteArray::fromHex("000a0101"
                                                   "0010010000000000"
                                                   "0010020000000000")),
              (QList<DiscTrack>{{1, false}}))
        << "what stands behind is of an older answer";
    EXPECT_EQ(tracksOfContents(QByteArray::fromHex("00120101"
                                                   "0010000000000000"
                                                   "0010010000000000")),
              (QList<DiscTrack>{{1, false}}))
        << "there is no track 0";
}

TEST(DiscContents, AFullDiscHasNinetyNineTracks)
{
    QByteArray full = QByteArray::fromHex("03220163"); // 2 and 100 entries of 8
    for (int number = 1; number <= 100; ++number)
        full += QByteArray("\0\x10", 2) + char(number == 100 ? 0xaa : number) + QByteArray(5, '\0');
    const auto tracks = tracksOfContents(full);
    ASSERT_EQ(tracks.size(), 99);
    EXPECT_EQ(tracks.last().number, 99);
}

TEST(DiscContents, WhatIsNoDriveSaysSoAtOnceAndIsClosedAgain)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe"_s); // whose opening would wait for a writer
    ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
    const auto openFiles = [] { return QDir(u"/proc/self/fd"_s).entryList(QDir::System | QDir::Files).size(); };
    const auto before = openFiles();
    QString fault;
    EXPECT_TRUE(readDiscContents(pipe, fault).isEmpty());
    EXPECT_EQ(fault, u"%1 tells no tracks: Inappropriate ioctl for device"_s.arg(pipe));
    EXPECT_EQ(openFiles(), before);
}

TEST(DiscContents, WithoutACacheThereAreNoTrackFiles)
{
    const QByteArray saved = qgetenv("XDG_CACHE_HOME");
    const QTemporaryDir folder;
    QFile blocker(folder.filePath(u"cache"_s));
    ASSERT_TRUE(blocker.open(QFile::WriteOnly));
    qputenv("XDG_CACHE_HOME", blocker.fileName().toUtf8());
    EXPECT_TRUE(placeTrackFiles(u"sr0"_s, {u"1 a.wav"_s}).isEmpty());
    qputenv("XDG_CACHE_HOME", saved);
}

TEST(DiscSearch, TheFirstDriveWithAnAudioDiscIsTakenAndNoFaultOfAnotherStays)
{
    QStringList asked;
    const auto read = [&asked](const QString& device, QString& fault) {
        asked += device;
        if (device == u"/dev/sr0") fault = u"no disc"_s;
        return fault.isEmpty() ? QList<DiscTrack>{{1, false}} : QList<DiscTrack>();
    };
    const FoundDisc found = lookForDisc({u"/dev/sr0"_s, u"/dev/sr1"_s, u"/dev/sr2"_s}, u"/no/such/tool"_s, read);
    EXPECT_EQ(found.drive, u"sr1"_s);
    EXPECT_EQ(found.fault, QString());
    EXPECT_EQ(found.names, QStringList{u"1 Track 01.wav"_s});
    EXPECT_EQ(asked, QStringList({u"/dev/sr0"_s, u"/dev/sr1"_s}));
    const FoundDisc none = lookForDisc({u"/dev/sr0"_s}, u"/no/such/tool"_s, read);
    EXPECT_EQ(none.fault, u"no disc"_s);
    EXPECT_TRUE(none.names.isEmpty());
}
