#include "tags/AACTagsHelper.h"

#include "platform/errors/Exceptions.h"
#include "tags/m4a/M4AFiles.h"

#include <gtest/gtest.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AACTagsRead : public testing::Test
{
protected:
    std::shared_ptr<TagsObject> tagsOf(const QString& path) { return AACTagsHelper().tagsForFile(path); }

    std::shared_ptr<TagsObject> tagsOfItems(const QByteArray& items)
    {
        return tagsOf(files_.stored(u"items.m4a"_s, withItems(contentOf(files_.lossless()), items)));
    }

    void expectUnreadable(const QByteArray& bytes) { expectUnreadable(files_.stored(u"broken.m4a"_s, bytes)); }
    void expectUnreadable(const QString& path)
    {
        try {
            tagsOf(path);
            ADD_FAILURE() << "no exception";
        } catch (const AssertionException& fault) {
            EXPECT_EQ(fault.reason(), u"Unable to open the file for reading."_s);
        }
    }

    M4AFiles files_;
};

} // namespace

TEST_F(AACTagsRead, AFileWithoutTagsReadsEmptyTextsAndZeros)
{
    const auto tags = tagsOfItems({});
    for (const auto get :
         {&TagsObject::titleText, &TagsObject::artistText, &TagsObject::dateText, &TagsObject::albumText,
          &TagsObject::commentText, &TagsObject::genreText, &TagsObject::composerText})
        EXPECT_EQ((tags.get()->*get)(), OptionalText(QString()));
    for (const auto get :
         {&TagsObject::discText, &TagsObject::discTotalText, &TagsObject::trackText, &TagsObject::trackTotalText})
        EXPECT_EQ((tags.get()->*get)(), OptionalText(u"0"_s));
    EXPECT_FALSE(tags->albumArt());
    EXPECT_FALSE(tags->encoderSettings());
    EXPECT_TRUE(tags->customTagsDictionary().isEmpty());
}

TEST_F(AACTagsRead, AFileWithoutAnyUserDataReadsTheSame)
{
    const QByteArray bare = withIndex(contentOf(files_.lossless()), [](Mp4Box& index) {
        std::erase_if(index.children, [](const Mp4Box& part) { return part.type == atomType("udta"); });
    });
    const auto tags = tagsOf(files_.stored(u"bare.m4a"_s, bare));
    EXPECT_EQ(tags->titleText(), OptionalText(QString()));
    EXPECT_EQ(tags->discText(), OptionalText(u"0"_s));
}

TEST_F(AACTagsRead, FieldsOfAnotherWriterAreRead)
{
    const QString path = files_.pathOf(u"tagged.m4a"_s);
    printed(u"AtomicParsley"_s, {files_.lossless(),
                                 u"--title"_s,
                                 u"Título"_s,
                                 u"--artist"_s,
                                 u"Anna"_s,
                                 u"--album"_s,
                                 u"Álbum"_s,
                                 u"--year"_s,
                                 u"1999-05-01"_s,
                                 u"--comment"_s,
                                 u"A comment"_s,
                                 u"--genre"_s,
                                 u"Own genre"_s,
                                 u"--composer"_s,
                                 u"Bert"_s,
                                 u"--tracknum"_s,
                                 u"3/12"_s,
                                 u"--disk"_s,
                                 u"1/2"_s,
                                 u"--artwork"_s,
                                 files_.picture(),
                                 u"-o"_s,
                                 path});
    const auto tags = tagsOf(path);
    EXPECT_EQ(tags->titleText(), u"Título"_s);
    EXPECT_EQ(tags->artistText(), u"Anna"_s);
    EXPECT_EQ(tags->albumText(), u"Álbum"_s);
    EXPECT_EQ(tags->dateText(), u"1999-05-01"_s);
    EXPECT_EQ(tags->commentText(), u"A comment"_s);
    EXPECT_EQ(tags->genreText(), u"Own genre"_s);
    EXPECT_EQ(tags->composerText(), u"Bert"_s);
    EXPECT_EQ(tags->trackText(), u"3"_s);
    EXPECT_EQ(tags->trackTotalText(), u"12"_s);
    EXPECT_EQ(tags->discText(), u"1"_s);
    EXPECT_EQ(tags->discTotalText(), u"2"_s);
    ASSERT_TRUE(tags->albumArt());
    EXPECT_EQ(tags->albumArt()->lastBitmap()->pixelsWide(), 60);
}

TEST_F(AACTagsRead, TitleOfTheEncoderIsRead)
{
    EXPECT_EQ(tagsOf(files_.lossless())->titleText(), u"Made elsewhere"_s);
}

TEST_F(AACTagsRead, NumbersAreUnsigned)
{
    const auto tags = tagsOfItems(item("trkn", 0, bigEndian(0, 2) + bigEndian(40000, 2) + bigEndian(65535, 2)));
    EXPECT_EQ(tags->trackText(), u"40000"_s);
    EXPECT_EQ(tags->trackTotalText(), u"65535"_s);
    EXPECT_EQ(tags->discText(), u"0"_s);
}

TEST_F(AACTagsRead, ShortNumbersReadAsFarAsTheyGo)
{
    const auto tags = tagsOfItems(item("trkn", 0, bigEndian(7, 4)) + item("disk", 0, {}));
    EXPECT_EQ(tags->trackText(), u"7"_s);
    EXPECT_EQ(tags->trackTotalText(), u"0"_s);
    EXPECT_EQ(tags->discText(), u"0"_s);
}

TEST_F(AACTagsRead, AGenreThatIsANumberReadsAsItsName)
{
    EXPECT_EQ(tagsOfItems(item("gnre", 0, bigEndian(18, 2)))->genreText(), u"Rock"_s);
}

TEST_F(AACTagsRead, TheFirstOfSeveralValuesCounts)
{
    EXPECT_EQ(tagsOfItems(atom("\251ART", value(1, "Anna") + value(1, "Bert")))->artistText(), u"Anna"_s);
}

TEST_F(AACTagsRead, ATextEndsAtAZero)
{
    EXPECT_EQ(tagsOfItems(item("\251nam", 1, QByteArray("Title\0\0", 7)))->titleText(), u"Title"_s);
}

TEST_F(AACTagsRead, TextsOfEveryKindAreRead)
{
    const QByteArray utf16 = bigEndian(0x041f, 2) + bigEndian(0x0430, 2);
    const auto tags = tagsOfItems(item("\251nam", 0, "Títle") + item("\251ART", 2, utf16) + item("\251alb", 4, "Sort") +
                                  item("\251cmt", 2, "odd") + atom("\251wrt", atom("data", "short")));
    EXPECT_EQ(tags->titleText(), u"Títle"_s);
    EXPECT_EQ(tags->artistText(), u"Па"_s);
    EXPECT_EQ(tags->albumText(), u"Sort"_s);
    ASSERT_TRUE(tags->commentText().has_value());
    EXPECT_EQ(tags->composerText(), QString());
}

TEST_F(AACTagsRead, APictureIsReadWhateverKindItIsSaidToBe)
{
    for (const int kind : {0, 1, 12, 13, 99})
        EXPECT_TRUE(tagsOfItems(item("covr", kind, contentOf(files_.picture())))->albumArt()) << kind;
}

TEST_F(AACTagsRead, TheFirstPictureCounts)
{
    const QByteArray first = contentOf(files_.picture());
    TagFiles others;
    const QByteArray second = contentOf(others.picture("jpeg", 90));
    const auto tags = tagsOfItems(atom("covr", value(14, first) + value(13, second)));
    ASSERT_TRUE(tags->albumArt());
    EXPECT_EQ(tags->albumArt()->lastBitmap()->pixelsWide(), 60);
}

TEST_F(AACTagsRead, APictureThatCannotBeDecodedIsPassedOver)
{
    const auto tags = tagsOfItems(item("covr", 14, "no picture") + item("\251nam", 1, "Title"));
    EXPECT_FALSE(tags->albumArt());
    EXPECT_EQ(tags->titleText(), u"Title"_s);
    EXPECT_FALSE(tagsOfItems(item("covr", 14, {}))->albumArt());
    EXPECT_FALSE(tagsOfItems(atom("covr"))->albumArt());
}

TEST_F(AACTagsRead, ABrokenItemCountsAsMissing)
{
    const QByteArray broken = atom("\251ART", bigEndian(0x7fffffff, 4) + "data" + QByteArray(20, 'x'));
    const auto tags = tagsOfItems(broken + item("\251nam", 1, "Title"));
    EXPECT_EQ(tags->artistText(), QString());
    EXPECT_EQ(tags->titleText(), u"Title"_s);
}

TEST_F(AACTagsRead, MetadataWithoutVersionAreRead)
{
    const QByteArray file = withIndex(contentOf(files_.lossless()), [](Mp4Box& index) {
        index.child(atomType("udta"))->child(atomType("meta"))->head.clear();
    });
    EXPECT_EQ(tagsOf(files_.stored(u"bare.m4a"_s, file))->titleText(), u"Made elsewhere"_s);
}

TEST_F(AACTagsRead, FragmentedFilesAreRead)
{
    EXPECT_EQ(tagsOf(files_.fragmented(u"frag_keyframe+empty_moov"_s))->titleText(), u"Made elsewhere"_s);
}

TEST_F(AACTagsRead, WhatIsNoM4AFileFailsLoudly)
{
    expectUnreadable(files_.pathOf(u"none.m4a"_s));
    expectUnreadable(files_.pathOf(QString()));
    expectUnreadable(files_.picture());
    expectUnreadable(QByteArray());
    expectUnreadable(contentOf(files_.lossless()).chopped(1));
}

TEST_F(AACTagsRead, BlankingLeavesTotalsAndPicture)
{
    TagsObject tags;
    tags.setTrackTotalText(u"12"_s);
    tags.setTitleText(u"Title"_s);
    const auto art = Image::fromData(contentOf(files_.picture()));
    tags.setAlbumArt(art);
    AACTagsHelper().setBlankTags(tags);
    for (const auto get : {&TagsObject::titleText, &TagsObject::artistText, &TagsObject::dateText,
                           &TagsObject::albumText, &TagsObject::discText, &TagsObject::trackText,
                           &TagsObject::commentText, &TagsObject::genreText, &TagsObject::composerText})
        EXPECT_EQ((tags.*get)(), OptionalText(QString()));
    EXPECT_EQ(tags.trackTotalText(), u"12"_s);
    EXPECT_FALSE(tags.discTotalText());
    EXPECT_EQ(tags.albumArt(), art);
}
