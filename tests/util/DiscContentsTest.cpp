#include "util/DiscContents.h"

#include "util/DiscVolumes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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
                                 "T10:  2:01.00 title 'It's \"on\"' from ''\n"_s);
    EXPECT_EQ(titles.size(), 2);
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
    for (const QString& name : {u"sr1"_s, u"sda"_s, u"sr0"_s})
        QDir(block.path()).mkdir(name);
    EXPECT_EQ(discDrives(block.path()), QStringList({u"sr0"_s, u"sr1"_s}));
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
