// What a press of the command writes.
#include "TagsTabFixture.h"

#include "platform/errors/Exceptions.h"
#include "support/OrdinaryRights.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

TEST_F(TagsTabTest, AnEmptyListDoesNothing)
{
    tab.setAutoName(true);
    write();
    EXPECT_TRUE(tab.autoName());
    EXPECT_EQ(tab.lastRun().asked, 0);
}

TEST_F(TagsTabTest, OneFileGetsWhatStandsInTheFields)
{
    for (const auto& [name, sample] : {std::pair{u"a.flac"_s, samples.flac()},
                                       {u"b.mp3"_s, samples.mp3()},
                                       {u"c.wv"_s, samples.wavpack()},
                                       {u"d.ape"_s, samples.ape()}}) {
        list({name}, sample);
        select({tab.fileNames().count() - 1});
        tab.titleText->setStringValue(u"Ночь"_s);
        tab.trackText->setStringValue(u"7"_s);
        tab.artistText->setStringValue(u"Anna"_s);
        write();
        const auto tags = tagsAt(tab.fileNames().count() - 1);
        EXPECT_EQ(tags->titleText(), u"Ночь"_s) << name.toStdString();
        EXPECT_EQ(tags->artistText(), u"Anna"_s) << name.toStdString();
        EXPECT_EQ(tab.lastRun().sentence(), u"1 of 1 file written."_s);
        EXPECT_EQ(tab.titleText->stringValue(), u"Ночь"_s) << "the fields keep their texts";
    }
}

TEST_F(TagsTabTest, M4AFilesAreWrittenWithoutAToolString)
{
    list({u"a.m4a"_s}, samples.m4a());
    const QString m4a = tab.fileNames().at(0);
    select({0});
    EXPECT_EQ(tab.discText->stringValue(), u"0"_s);
    tab.titleText->setStringValue(u"Ночь"_s);
    write();
    EXPECT_EQ(tagsAt(0)->titleText(), u"Ночь"_s);
    EXPECT_FALSE(contentOf(m4a).contains("Zolt"));
}

TEST_F(TagsTabTest, AnEmptyTitleLeavesTheFilesOwnUnlessEmptyFieldsAreWritten)
{
    list({u"a.flac"_s}, samples.flac());
    setTagsElsewhere(tab.fileNames().at(0), {u"TITLE=kept"_s});
    select({0});
    tab.titleText->setStringValue(QString());
    write();
    EXPECT_EQ(tagsAt(0)->titleText(), u"kept"_s);
    tab.setWriteEmptyTags(true);
    write();
    EXPECT_EQ(tagsAt(0)->titleText(), QString());
}

TEST_F(TagsTabTest, SeveralFilesGetTheSharedFieldsAndKeepTitleAndTrack)
{
    list({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s}, samples.flac());
    for (int row = 0; row < 3; ++row)
        setTagsElsewhere(tab.fileNames().at(row), {u"TITLE=t%1"_s.arg(row), u"TRACKNUMBER=%1"_s.arg(row)});
    select({0, 2});
    tab.artistText->setStringValue(u"Anna"_s);
    int between = 0;
    tab.setBetweenFiles([&] { return ++between > 0; });
    write();
    EXPECT_EQ(tagsAt(0)->artistText(), u"Anna"_s);
    EXPECT_EQ(tagsAt(2)->titleText(), u"t2"_s);
    EXPECT_EQ(tagsAt(2)->trackText(), u"2"_s);
    EXPECT_EQ(tagsAt(1)->artistText(), QString()) << "not selected";
    EXPECT_EQ(between, 3) << "ahead of each, and behind the last";
}

TEST_F(TagsTabTest, NamesGoByTheRowInTheWholeList)
{
    list({u"1.flac"_s, u"2.flac"_s, u"3.flac"_s, u"4.flac"_s, u"5.flac"_s, u"6.flac"_s}, samples.flac());
    enterNames({u"n1"_s, u"n2"_s, u"n3"_s, u"n4"_s, u"n5"_s});
    tab.setAutoName(true);
    select({3, 4});
    write();
    EXPECT_EQ(tagsAt(3)->titleText(), u"n4"_s);
    EXPECT_EQ(tagsAt(3)->trackText(), u"4"_s);
    EXPECT_EQ(tagsAt(4)->titleText(), u"n5"_s);
    EXPECT_EQ(tagsAt(0)->titleText(), QString());
    EXPECT_FALSE(tab.autoName());
}

TEST_F(TagsTabTest, TooFewNamesAreToldBeforeAnythingIsWritten)
{
    list({u"1.flac"_s, u"2.flac"_s}, samples.flac());
    enterNames({u"n1"_s});
    tab.setAutoName(true);
    select({0, 1});
    panels_.answerAlert(1);
    const QByteArray before = contentOf(tab.fileNames().at(0));
    write();
    EXPECT_EQ(panels_.alerts().front().title, u"Error"_s);
    EXPECT_EQ(panels_.alerts().front().message,
              u"Number of selected files to tag is greater than number of track names entered"_s);
    EXPECT_EQ(panels_.alerts().front().buttons, QStringList{u"OK"_s});
    EXPECT_EQ(contentOf(tab.fileNames().at(0)), before);
    EXPECT_TRUE(tab.autoName());
}

TEST_F(TagsTabTest, ARowBehindTheLastNameIsOutOfRange)
{
    list({u"1.flac"_s, u"2.flac"_s, u"3.flac"_s, u"4.flac"_s}, samples.flac());
    enterNames({u"n1"_s, u"n2"_s, u"n3"_s});
    tab.setAutoName(true);
    select({2, 3});
    EXPECT_THROW(write(), RangeException);
    EXPECT_EQ(tagsAt(2)->titleText(), u"n3"_s) << "the row before was written";
    EXPECT_TRUE(tab.autoName());
}

TEST_F(TagsTabTest, AFileThatFailsEndsTheRunAndIsNamed)
{
    list({u"a.flac"_s, u"b.flac"_s, u"c.flac"_s, u"d.flac"_s}, samples.flac());
    writeContent(tab.fileNames().at(1), "no sound");
    select({0, 1, 2, 3});
    tab.setAutoName(true);
    enterNames({u"1"_s, u"2"_s, u"3"_s, u"4"_s});
    tab.artistText->setStringValue(u"Anna"_s);
    EXPECT_THROW(write(), AssertionException);
    EXPECT_EQ(tagsAt(0)->artistText(), u"Anna"_s);
    EXPECT_EQ(tagsAt(2)->artistText(), QString());
    EXPECT_EQ(contentOf(tab.fileNames().at(1)), "no sound");
    EXPECT_TRUE(tab.autoName());
    EXPECT_TRUE(tab.lastRun().failed);
    EXPECT_EQ(tab.lastRun().sentence(), u"1 of 4 files written. b.flac: Unable to open the output file for tagging. "
                                        "2 behind it not written."_s);
}

TEST_F(TagsTabTest, CustomTagsAndCoverGoToEveryFile)
{
    list({u"a.flac"_s, u"b.flac"_s}, samples.flac());
    select({0, 1});
    tab.albumArtImageView->replaceImage(Image::fromData(contentOf(samples.picture("png", 33))));
    panels_.answerModal([&](Window&) {
        tab.customTagsPanel().setValueValueCount(u"MOOD"_s, u"calm"_s, 1);
        tab.customTagsPanel().stop(nullptr);
    });
    tab.openCustomTagsPanel(nullptr);
    write();
    for (qsizetype row = 0; row < 2; ++row) {
        EXPECT_EQ(tagsAt(row)->customTagsDictionary(), (CustomTags{{u"MOOD"_s, u"calm"_s}}));
        ASSERT_TRUE(tagsAt(row)->albumArt());
        EXPECT_EQ(tagsAt(row)->albumArt()->lastBitmap()->pixelsWide(), 33);
    }
}

TEST_F(TagsTabTest, AFileThatCannotBeSavedIsNamedAndTheRunGoesOn)
{
    const OrdinaryRights rights;
    if (!rights.hold()) GTEST_SKIP() << "this root may not give its rights away";
    list({u"a.flac"_s, u"b.flac"_s}, samples.flac());
    QFile::setPermissions(tab.fileNames().at(0), QFile::ReadOwner);
    select({0, 1});
    tab.artistText->setStringValue(u"Anna"_s);
    write();
    EXPECT_EQ(tagsAt(1)->artistText(), u"Anna"_s);
    EXPECT_EQ(tab.lastRun().written(), 1);
}
