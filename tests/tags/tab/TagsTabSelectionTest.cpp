// The list and the selection change under the tab.
#include "TagsTabFixture.h"

#include "platform/errors/Exceptions.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

/// Three files b, c and d, whose titles say which they are.
class TagsTabSelection : public TagsTabTest
{
protected:
    TagsTabSelection()
    {
        list({u"b.flac"_s, u"c.flac"_s, u"d.flac"_s}, samples.flac());
        for (const QString& path : tab.fileNames().copy())
            setTagsElsewhere(path, {u"TITLE="_s + path::lastComponent(path).first(1)});
    }
    QString title() { return tab.titleText->stringValue(); }
    /// What the view does behind each reload: it tells which rows are selected now.
    void reloadWith(const QList<qsizetype>& rows)
    {
        tab.tableView->selectRows(rows);
        tab.tableView->performAction();
    }
};

} // namespace

TEST_F(TagsTabSelection, TheFileThatTakesTheRowOfARemovedOneIsShown)
{
    select({0});
    EXPECT_EQ(title(), u"b"_s);
    tab.removeRows({0});
    reloadWith({0});
    EXPECT_EQ(title(), u"c"_s);
    type(u"Anna"_s);
    write();
    EXPECT_EQ(tagsAt(0)->titleText(), u"c"_s);
}

TEST_F(TagsTabSelection, OneFileLeftOfSeveralIsShown)
{
    select({0, 1});
    tab.removeRows({0});
    reloadWith({0});
    EXPECT_EQ(title(), u"c"_s);
    EXPECT_EQ(tab.multipleSelectionsLabel->stringValue(), QString());
    EXPECT_TRUE(tab.titleText->isEnabled());
}

TEST_F(TagsTabSelection, WhatIsTypedStaysWhenFilesComeInAhead)
{
    for (const QList<qsizetype>& rows : {QList<qsizetype>{0}, QList<qsizetype>{0, 1}}) {
        select(rows);
        type(u"typed"_s);
        list({u"a%1.flac"_s.arg(rows.size())}, samples.flac());
        QList<qsizetype> further;
        for (const qsizetype row : rows)
            further += row + 1;
        reloadWith(further);
        EXPECT_EQ(tab.artistText->stringValue(), u"typed"_s);
        tab.clearFiles();
        list({u"b.flac"_s, u"c.flac"_s}, samples.flac());
    }
}

TEST_F(TagsTabSelection, AnEmptiedListShowsNothingOfAFile)
{
    select({0});
    tab.albumArtImageView->replaceImage(Image::fromData(contentOf(samples.picture("png"))));
    tab.clearFiles();
    EXPECT_EQ(title(), QString());
    EXPECT_FALSE(tab.albumArtImageView->image());
    EXPECT_FALSE(tab.titleText->isEnabled());
}

TEST_F(TagsTabSelection, RowsThatMovedSinceTheyWereToldMeanTheirFiles)
{
    select({0, 2});
    type(u"Anna"_s);
    list({u"a.flac"_s}, samples.flac()); // and the view has not told yet
    EXPECT_THAT(tab.selectedFiles(), ElementsAre(pathOf(u"b.flac"_s), pathOf(u"d.flac"_s)));
    write();
    EXPECT_EQ(artistAt(0), QString());
    EXPECT_EQ(artistAt(1), u"Anna"_s);
    EXPECT_EQ(artistAt(2), QString());
    EXPECT_EQ(artistAt(3), u"Anna"_s);
}

TEST_F(TagsTabSelection, RowsThatAreLeftOutTakeNoOtherFileIn)
{
    select({0, 1});
    type(u"Anna"_s);
    const QByteArray left = contentOf(tab.fileNames().at(0)), unselected = contentOf(tab.fileNames().at(2));
    tab.executeCommandWithout({0});
    EXPECT_EQ(contentOf(tab.fileNames().at(0)), left);
    EXPECT_EQ(contentOf(tab.fileNames().at(2)), unselected);
    EXPECT_EQ(artistAt(1), u"Anna"_s);
    EXPECT_EQ(tagsAt(1)->titleText(), u"c"_s) << "two were selected: titles stay";
}

TEST_F(TagsTabSelection, RowsBehindOneThatIsLeftOutKeepTheirNamesAndNumbers)
{
    select({0, 1, 2});
    enterNames({u"n1"_s, u"n2"_s, u"n3"_s});
    tab.setAutoName(true);
    EXPECT_EQ(tab.workPlanWithout({0}).words, u"Write title and track to 2 files"_s);
    tab.executeCommandWithout({0});
    EXPECT_EQ(tagsAt(0)->titleText(), u"b"_s);
    EXPECT_EQ(tagsAt(1)->titleText(), u"n2"_s);
    EXPECT_EQ(tagsAt(1)->trackText(), u"2"_s);
    EXPECT_EQ(tagsAt(2)->titleText(), u"n3"_s);
    EXPECT_EQ(tagsAt(2)->trackText(), u"3"_s);
    EXPECT_EQ(tab.lastRun().sentence(), u"2 of 2 files written."_s);
}

TEST_F(TagsTabSelection, WithEveryRowLeftOutNothingIsPressed)
{
    select({0, 1, 2});
    tab.setAutoName(true);
    tab.executeCommandWithout({0, 1, 2});
    EXPECT_TRUE(tab.autoName());
    EXPECT_TRUE(panels_.alerts().empty());
}

TEST_F(TagsTabSelection, ARunWritesWhatStoodThereWhenItBegan)
{
    select({0, 1, 2});
    type(u"Anna"_s);
    tab.setWriteEmptyTags(false);
    inTheMiddle(2, [this] {
        select({1});
        type(u"Bert"_s);
        tab.setWriteEmptyTags(true);
        tab.executeCommand(nullptr); // a second press: nothing
    });
    write();
    for (qsizetype row = 0; row < 3; ++row) {
        EXPECT_EQ(artistAt(row), u"Anna"_s);
        EXPECT_EQ(tagsAt(row)->titleText(), QString(u"bcd"_s[row]));
    }
    EXPECT_EQ(tab.lastRun().asked, 3);
}

TEST_F(TagsTabSelection, AListThatGrowsInTheMiddleOfARunChangesNoFileOfIt)
{
    select({1, 2});
    type(u"Anna"_s);
    inTheMiddle(2, [this] {
        list({u"a.flac"_s}, samples.flac());
        reloadWith({2, 3});
    });
    write();
    EXPECT_EQ(artistAt(0), QString());
    EXPECT_EQ(artistAt(1), QString());
    EXPECT_EQ(artistAt(2), u"Anna"_s);
    EXPECT_EQ(artistAt(3), u"Anna"_s);
}

TEST_F(TagsTabSelection, ARunEndsWhereItIsToldTo)
{
    select({0, 1, 2});
    type(u"Anna"_s);
    tab.setBetweenFiles([asked = 0]() mutable { return ++asked < 2; });
    write();
    EXPECT_EQ(artistAt(0), u"Anna"_s);
    EXPECT_EQ(artistAt(1), QString());
    EXPECT_EQ(tab.resultLabel->stringValue(), u"1 of 3 files written. 2 behind it not written."_s);
}

TEST_F(TagsTabSelection, OneThatIsLeftOfSeveralIsNamedAsOneOfThem)
{
    select({0, 1});
    enterNames({u"n1"_s, u"n2"_s});
    tab.setAutoName(true);
    tab.removeRows({0}); // and the view has not told yet
    write();
    EXPECT_EQ(tagsAt(0)->titleText(), u"n1"_s);
    EXPECT_EQ(tagsAt(0)->trackText(), u"1"_s);
}

TEST_F(TagsTabSelection, OneSelectedFileIsNamedByItsFieldsAlone)
{
    select({2});
    enterNames({u"n1"_s, u"n2"_s, u"n3"_s});
    tab.setAutoName(true);
    tab.titleText->enterText(u"mine"_s);
    tab.trackText->enterText(u"9"_s);
    write();
    EXPECT_EQ(tagsAt(2)->titleText(), u"mine"_s);
    EXPECT_EQ(tagsAt(2)->trackText(), u"9"_s);
    EXPECT_FALSE(tab.autoName());
}

TEST_F(TagsTabSelection, RowsBehindAllNamesAreOutOfRangeWithNothingWritten)
{
    list({u"e.flac"_s, u"f.flac"_s, u"g.flac"_s, u"h.flac"_s}, samples.flac());
    enterNames({u"n1"_s, u"n2"_s, u"n3"_s});
    tab.setAutoName(true);
    select({5, 6});
    const QByteArray before = contentOf(tab.fileNames().at(5));
    EXPECT_THROW(write(), RangeException);
    EXPECT_EQ(contentOf(tab.fileNames().at(5)), before);
    EXPECT_TRUE(panels_.alerts().empty());
    EXPECT_TRUE(tab.autoName());
}

TEST_F(TagsTabSelection, WithNoFileSelectedTheCustomTagsAreLeftAsTheyAre)
{
    setTagsElsewhere(tab.fileNames().at(0), {u"MOOD=calm"_s});
    select({0});
    select({});
    write();
    EXPECT_EQ(tab.customTagsPanel().customTagDictionary()->value(u"MOOD"_s), u"calm"_s);
}

TEST_F(TagsTabSelection, CustomTagsOfOneFileDoNotReachSeveral)
{
    setTagsElsewhere(tab.fileNames().at(0), {u"MOOD=calm"_s});
    select({0});
    select({1, 2});
    type(u"Anna"_s);
    write();
    for (const qsizetype row : {1, 2})
        EXPECT_TRUE(tagsAt(row)->customTagsDictionary().isEmpty());
}

TEST_F(TagsTabSelection, OfTenCustomTagsEightAreWrittenAndTheOthersGoWithTheEmptyOnes)
{
    QStringList pairs;
    for (int i = 0; i < 10; ++i)
        pairs += u"KEY%1=%1"_s.arg(i);
    setTagsElsewhere(tab.fileNames().at(0), pairs);
    select({0});
    tab.customTagsPanel().valueText(1)->enterText(u"new"_s);
    write();
    EXPECT_EQ(tagsAt(0)->customTagsDictionary().size(), 10);
    EXPECT_EQ(tagsAt(0)->customTagsDictionary().value(u"KEY0"_s), u"new"_s);
    tab.setWriteEmptyTags(true);
    write();
    EXPECT_EQ(tagsAt(0)->customTagsDictionary().size(), 8);
    EXPECT_FALSE(tagsAt(0)->customTagsDictionary().contains(u"KEY9"_s));
}

TEST_F(TagsTabSelection, ABrokenM4AFileThrowsAndLeavesTheFormerCoverAway)
{
    list({u"z.m4a"_s}, samples.wav());
    select({0});
    tab.albumArtImageView->replaceImage(Image::fromData(contentOf(samples.picture("png"))));
    EXPECT_THROW(select({3}), AssertionException);
    EXPECT_FALSE(tab.albumArtImageView->image());
    EXPECT_TRUE(tab.titleText->isEnabled());
}

TEST_F(TagsTabSelection, TheResultGoesWithTheSelectionThatItIsAbout)
{
    select({0});
    write();
    EXPECT_EQ(tab.resultLabel->stringValue(), u"1 of 1 file written."_s);
    select({1});
    EXPECT_EQ(tab.resultLabel->stringValue(), QString());
}
