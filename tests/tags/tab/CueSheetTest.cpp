#include "tags/CueSheetTagImporter.h"

#include "platform/threads/NotificationCenter.h"
#include "shell/Constants.h"
#include "support/LogCapture.h"
#include "support/ScriptedPanels.h"

#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class CueSheet : public testing::Test
{
protected:
    CueSheet()
    {
        NotificationCenter::standard().addObserver(
            this, Constants::ZOLTTrackNamesEnteredNotification, nullptr, [this](const Notification& notification) {
                posted.push_back(std::any_cast<QStringList>(notification.object));
                EXPECT_EQ(notification.userInfo.at(u"source"_s), u"CueSheetTagImporter"_s);
            });
    }
    ~CueSheet() override
    {
        NotificationCenter::standard().removeObserver(this, Constants::ZOLTTrackNamesEnteredNotification, nullptr);
    }

    std::shared_ptr<TagsObject> imported(const QByteArray& sheet)
    {
        QFile file(folder.filePath(u"show.cue"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(sheet);
        file.close();
        panels.answerOpenPanel(QStringList{file.fileName()});
        return CueSheetTagImporter().loadTagsFromCueSheet();
    }

    QTemporaryDir folder;
    ScriptedPanels panels;
    std::vector<QStringList> posted;
};

} // namespace

TEST_F(CueSheet, AlbumArtistAndTitlesAreTaken)
{
    const auto tags = imported("REM GENRE Jam\r\nPERFORMER \"The Nobodies\"\r\nTITLE \"Barn Hall\"\r\n"
                               "FILE \"show.wav\" WAVE\r\n  TRACK 01 AUDIO\r\n    TITLE \"Intro\"\r\n"
                               "    PERFORMER \"Somebody\"\r\n    INDEX 01 00:00:00\r\n"
                               "FILE \"two.wav\" WAVE\r\n  TRACK 02 AUDIO\r\n    TITLE Ночь\r\n");
    ASSERT_TRUE(tags);
    EXPECT_EQ(tags->albumText(), u"Barn Hall"_s);
    EXPECT_EQ(tags->artistText(), u"The Nobodies"_s);
    EXPECT_FALSE(tags->titleText());
    EXPECT_EQ(posted, std::vector<QStringList>{QStringList({u"Intro"_s, u"Ночь"_s})});
}

TEST_F(CueSheet, AsksForOneCueFile)
{
    panels.answerOpenPanel(std::nullopt);
    EXPECT_FALSE(CueSheetTagImporter().loadTagsFromCueSheet());
    EXPECT_TRUE(posted.empty());
    const OpenPanelRequest asked = panels.openRequests().front();
    EXPECT_EQ(asked.title, u"Choose CUE file"_s);
    EXPECT_EQ(asked.fileTypes, QStringList{u"cue"_s});
    EXPECT_TRUE(asked.canChooseFiles && !asked.canChooseDirectories && !asked.allowsMultipleSelection);
    EXPECT_FALSE(asked.treatsFilePackagesAsDirectories);
}

TEST_F(CueSheet, WithoutAFirstTrackOfItsKindEveryTitleIsTheAlbum)
{
    for (const char* track : {"TRACK 02 AUDIO", "TRACK 01 MODE1/2352", "track 01 audio"}) {
        const auto tags = imported(QByteArray("TITLE \"Album\"\n  ") + track + "\n    TITLE \"Last\"\n");
        EXPECT_EQ(tags->albumText(), u"Last"_s);
        EXPECT_EQ(posted.back(), QStringList());
    }
}

TEST_F(CueSheet, WhatWasNotFoundStaysAbsentAndTheNamesAreToldAllTheSame)
{
    const auto tags = imported("title \"small\"\nperformer \"small\"\n");
    ASSERT_TRUE(tags);
    EXPECT_FALSE(tags->albumText());
    EXPECT_FALSE(tags->artistText());
    EXPECT_EQ(posted, std::vector<QStringList>{QStringList()});
}

TEST_F(CueSheet, QuotesGoFromTheEndsAlone)
{
    imported("TRACK 01 AUDIO\nTITLE \"\"A \"B\" C\"\"\nTITLE  plain \nTITLE\t\"no blank\"\nTITLEX no\nTITLE \"\"\n");
    EXPECT_EQ(posted.back(), QStringList({u"A \"B\" C"_s, u"plain"_s, QString()}));
}

TEST_F(CueSheet, AHeaderKeywordMayGoOnAndTheLastOneStands)
{
    const auto tags = imported("TITLE One\nTITLEX Two\nPERFORMER A\nPERFORMERS B\nTRACK 01 AUDIO\n");
    EXPECT_EQ(tags->albumText(), u"X Two"_s);
    EXPECT_EQ(tags->artistText(), u"S B"_s);
}

TEST_F(CueSheet, TitlesComeInTheOrderOfTheFile)
{
    imported("TRACK 01 AUDIO\nTITLE b\nTRACK 07 AUDIO\nTITLE a\nTRACK 03 AUDIO\nTITLE c\n");
    EXPECT_EQ(posted.back(), QStringList({u"b"_s, u"a"_s, u"c"_s}));
}

TEST_F(CueSheet, AFileThatCannotBeReadIsToldInTheLogAlone)
{
    const LogCapture log;
    EXPECT_FALSE(imported("TITLE \"Caf\xe9\"\n"));
    EXPECT_TRUE(posted.empty());
    EXPECT_THAT(
        log.lines(),
        testing::ElementsAre(u"error The file has no byte-order mark."_s, u"Trying to open as unicode..."_s,
                             u"error The text is not UTF-8."_s, u"Last hope: opening using NSASCIIStringEncoding..."_s,
                             u"error The text is not ASCII."_s,
                             u"Could not open file...%1 The text is not ASCII."_s.arg(folder.filePath(u"show.cue"_s))));
}
