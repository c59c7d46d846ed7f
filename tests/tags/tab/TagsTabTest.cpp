// What the tab shows, and how names reach it.
#include "TagsTabFixture.h"

#include "tags/DifferingFields.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(TagsTabTest, TakesItsFiveKindsOfFiles)
{
    tab.addFiles({file(u"a.flac"_s), file(u"b.M4A"_s), file(u"c.mp3"_s), file(u"d.wv"_s), file(u"e.ape"_s)});
    EXPECT_EQ(tab.fileNames().count(), 5);
    panels_.answerAlert(1);
    tab.addFiles({file(u"f.aiff"_s)});
    EXPECT_EQ(tab.fileNames().count(), 5);
    for (const QString& path : tab.fileNames().copy())
        EXPECT_TRUE(tagRouteFor(path)) << path.toStdString();
    EXPECT_FALSE(tagRouteFor(u"f.aiff"_s));
}

TEST_F(TagsTabTest, OneSelectedFileFillsTheFields)
{
    list({u"a.flac"_s, u"b.flac"_s}, samples.flac());
    setTagsElsewhere(tab.fileNames().at(1), {u"TITLE=Ночь"_s, u"ARTIST=Anna"_s, u"DATE=1977"_s, u"ALBUM=Barn"_s,
                                             u"COMMENT=note"_s, u"DISCNUMBER=1"_s, u"DISCTOTAL=2"_s, u"TRACKNUMBER=3"_s,
                                             u"TRACKTOTAL=12"_s, u"GENRE=Jam"_s, u"COMPOSER=Bert"_s, u"MOOD=calm"_s});
    addArtElsewhere(tab.fileNames().at(1), samples.picture("png"), u"image/png"_s);
    select({1});
    EXPECT_EQ(tab.titleText->stringValue(), u"Ночь"_s);
    EXPECT_EQ(tab.artistText->stringValue(), u"Anna"_s);
    EXPECT_EQ(tab.dateText->stringValue(), u"1977"_s);
    EXPECT_EQ(tab.albumText->stringValue(), u"Barn"_s);
    EXPECT_EQ(tab.commentText->stringValue(), u"note"_s);
    EXPECT_EQ(tab.discText->stringValue(), u"1"_s);
    EXPECT_EQ(tab.discTotalText->stringValue(), u"2"_s);
    EXPECT_EQ(tab.trackText->stringValue(), u"3"_s);
    EXPECT_EQ(tab.trackTotalText->stringValue(), u"12"_s);
    EXPECT_EQ(tab.genreText->stringValue(), u"Jam"_s);
    EXPECT_EQ(tab.composerText->stringValue(), u"Bert"_s);
    EXPECT_TRUE(tab.albumArtImageView->image());
    EXPECT_EQ(tab.customTagsPanel().customTagDictionary()->value(u"MOOD"_s), u"calm"_s);
    EXPECT_TRUE(tab.titleText->isEnabled() && tab.trackText->isEnabled());
    EXPECT_EQ(tab.multipleSelectionsLabel->stringValue(), QString());
    select({0});
    EXPECT_EQ(tab.titleText->stringValue(), QString());
    EXPECT_FALSE(tab.albumArtImageView->image());
    EXPECT_EQ(tab.customTagsPanel().nameText(1)->stringValue(), QString());
}

TEST_F(TagsTabTest, SeveralSelectedFilesEmptyTheFieldsAndSaySo)
{
    list({u"a.flac"_s, u"b.flac"_s}, samples.flac());
    setTagsElsewhere(tab.fileNames().at(0), {u"ARTIST=Anna"_s, u"MOOD=calm"_s});
    select({0});
    select({0, 1});
    EXPECT_EQ(tab.artistText->stringValue(), QString());
    EXPECT_EQ(tab.multipleSelectionsLabel->stringValue(), u"multiple selections"_s);
    EXPECT_FALSE(tab.titleText->isEnabled() || tab.trackText->isEnabled());
    EXPECT_EQ(tab.customTagsPanel().nameText(1)->stringValue(), QString());
    EXPECT_TRUE(tab.customTagsPanel().customTagDictionary()) << "the dictionary stays";
    select({});
    EXPECT_EQ(tab.multipleSelectionsLabel->stringValue(), QString());
    EXPECT_FALSE(tab.titleText->isEnabled() || tab.trackText->isEnabled());
}

TEST_F(TagsTabTest, NamesEnteredInTheirWindowAreKeptQuietly)
{
    enterNames({u"One"_s, u"Two"_s});
    EXPECT_EQ(tab.names(), QStringList({u"One"_s, u"Two"_s}));
    EXPECT_FALSE(tab.autoName());
    enterNames({});
    EXPECT_TRUE(tab.names().isEmpty());
}

TEST_F(TagsTabTest, ACueSheetFillsAlbumArtistAndNamesAndShowsThem)
{
    panels_.answerOpenPanel(QStringList{
        file(u"show.cue"_s,
             "PERFORMER \"Anna\"\nTITLE \"Barn\"\nTRACK 01 AUDIO\nTITLE \"One\"\nTRACK 02 AUDIO\nTITLE Two\n")});
    tab.loadTagsFromCueSheet(nullptr);
    EXPECT_EQ(tab.albumText->stringValue(), u"Barn"_s);
    EXPECT_EQ(tab.artistText->stringValue(), u"Anna"_s);
    EXPECT_EQ(tab.names(), QStringList({u"One"_s, u"Two"_s}));
    EXPECT_TRUE(tab.autoName());
    const auto& window = *controller.trackNameInputController();
    EXPECT_EQ(window.namesText(), u"One\nTwo\n"_s);
    EXPECT_TRUE(window.window()->isVisible());
    tab.clearFiles();
    EXPECT_FALSE(tab.autoName());
}

TEST_F(TagsTabTest, ACueSheetWithoutFactsLeavesTheFields)
{
    tab.albumText->setStringValue(u"typed"_s);
    panels_.answerOpenPanel(QStringList{file(u"show.cue"_s, "REM nothing\n")});
    tab.loadTagsFromCueSheet(nullptr);
    EXPECT_EQ(tab.albumText->stringValue(), u"typed"_s);
    EXPECT_FALSE(tab.autoName());
    panels_.answerOpenPanel(std::nullopt);
    tab.loadTagsFromCueSheet(nullptr);
    EXPECT_EQ(tab.albumText->stringValue(), u"typed"_s);
}

TEST_F(TagsTabTest, TheMenuItemNeedsTheTabInFront)
{
    EXPECT_TRUE(tab.validateMenuItem(u"Load Tags From CUE Sheet..."_s));
    EXPECT_FALSE(tab.validateMenuItem(u"Another"_s));
    controller.tabView->addTabViewItem(std::make_shared<TabViewItem>(Constants::ABOUT));
    controller.tabView->selectTabViewItemAtIndex(1);
    EXPECT_FALSE(tab.validateMenuItem(u"Load Tags From CUE Sheet..."_s));
}

TEST_F(TagsTabTest, TheBoxForNamesBringsTheirWindowUp)
{
    tab.autoNameButton->click();
    EXPECT_TRUE(controller.trackNameInputController()->window()->isVisible());
    controller.trackNameInputController()->inputCancel(nullptr);
    tab.autoNameButton->click();
    EXPECT_FALSE(controller.trackNameInputController()->window()->isVisible());
}

TEST_F(TagsTabTest, ThePlanSaysWhatGoesWhere)
{
    list({u"a.flac"_s, u"b.flac"_s}, samples.flac());
    EXPECT_EQ(tab.workPlan().words, u"Select the files to be tagged"_s);
    select({0, 1});
    tab.artistText->setStringValue(u"Anna"_s);
    tab.albumText->setStringValue(u"Barn"_s);
    EXPECT_EQ(tab.workPlan().words, u"Write artist and album to 2 files"_s);
    tab.setAutoName(true);
    EXPECT_EQ(tab.workPlan().words, u"Write title, track, artist and album to 2 files"_s);
    EXPECT_TRUE(tab.workPlan().cautions.isEmpty());
    tab.setWriteEmptyTags(true);
    EXPECT_THAT(tab.workPlan().cautions,
                testing::ElementsAre(
                    u"Date, disc, comment, genre, composer, disc total and track total will be emptied in 2 files."_s,
                    u"FLAC files lose every tag and picture that is not shown here."_s));
}

TEST_F(TagsTabTest, ThePlanSaysWhatBecomesOfCoversAndCustomTags)
{
    const auto cover = Image::fromData(contentOf(samples.picture("png")));
    list({u"a.flac"_s}, samples.flac());
    list({u"b.mp3"_s}, samples.mp3());
    list({u"c.wv"_s}, samples.wavpack());
    list({u"d.m4a"_s}, samples.m4a());
    select({0, 1, 2, 3});
    EXPECT_THAT(tab.workPlan().cautions, IsEmpty());
    tab.albumArtImageView->replaceImage(cover);
    EXPECT_EQ(tab.workPlan().words, u"Write cover to 4 files"_s);
    EXPECT_THAT(tab.workPlan().cautions, ElementsAre(u"MP3 files keep the covers that they have; this one is added."_s,
                                                     u"FLAC files keep the covers that they have; this one is added."_s,
                                                     u"WV and APE files hold no cover."_s));
    tab.albumArtImageView->replaceImage(nullptr);
    tab.customTagsPanel().fillTags(CustomTags{{u"MOOD"_s, u"calm"_s}});
    EXPECT_EQ(tab.workPlan().words, u"Write custom tags to 4 files"_s);
    EXPECT_THAT(tab.workPlan().cautions, ElementsAre(u"Custom tags go to FLAC files alone."_s));
}

TEST_F(TagsTabTest, ThePlanForgetsTheCustomTagsOfTheFileShownBefore)
{
    list({u"a.flac"_s, u"b.flac"_s}, samples.flac());
    setTagsElsewhere(tab.fileNames().at(0), {u"MOOD=calm"_s});
    select({0});
    EXPECT_EQ(tab.workPlan().words, u"Write custom tags to 1 file"_s);
    select({0, 1});
    EXPECT_EQ(tab.workPlan().words, u"Write nothing to 2 files"_s);
}

TEST_F(TagsTabTest, ThePlanSaysWhichRowsHaveNoName)
{
    list({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s}, samples.flac());
    select({0, 1, 2});
    tab.setAutoName(true);
    const auto cautions = [this] {
        QStringList all;
        for (const WorkItem& item : tab.workPlan().items)
            all += item.caution;
        return all;
    };
    EXPECT_THAT(cautions(), testing::Each(u"There are no track names yet."_s));
    controller.trackNameInputController()->setNames(u"One\nTwo\n"_s);
    controller.trackNameInputController()->inputOK(nullptr);
    EXPECT_THAT(cautions(), ElementsAre(QString(), QString(),
                                        u"The track names end at row 2: enter more of them, or leave out what is "
                                        "behind it."_s));
}

TEST_F(TagsTabTest, ThePlanSaysThatACoverThatWasTakenAwayStays)
{
    TagsObject own;
    own.setAlbumArt(Image::fromData(contentOf(samples.picture("png"))));
    list({u"a.flac"_s}, samples.flac());
    list({u"b.m4a"_s}, samples.m4a());
    for (const QString& path : tab.fileNames().copy())
        tagRouteFor(path)->write(path, own, false);
    select({0});
    tab.albumArtImageView->replaceImage(nullptr);
    EXPECT_THAT(tab.workPlan().cautions,
                ElementsAre(u"The cover stays in the file unless empty fields are written too."_s));
    select({1});
    tab.albumArtImageView->replaceImage(nullptr);
    tab.setWriteEmptyTags(true);
    EXPECT_THAT(tab.workPlan().cautions,
                testing::Contains(u"The cover stays in the file: of M4A files it can only be replaced."_s));
}

TEST_F(TagsTabTest, FilesThatCannotBeReadDifferInNothing)
{
    list({u"a.flac"_s, u"b.flac"_s}, samples.flac());
    setTagsElsewhere(tab.fileNames().at(0), {u"ARTIST=Anna"_s, u"ALBUM=Barn"_s});
    setTagsElsewhere(tab.fileNames().at(1), {u"ARTIST=Bert"_s, u"ALBUM=Barn"_s});
    const QStringList files = QStringList{file(u"0.m4a"_s, "no sound"), pathOf(u"gone.m4a"_s)} +
                              tab.fileNames().copy() + QStringList{u"x.y"_s};
    EXPECT_EQ(differingFields(files, false), QSet<QString>{u"artistText"_s});
}
