#include "tags/TagLibTagsHelper.h"

#include <taglib/tstring.h>

#include "tags/TagFiles.h"

#include <QImage>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

TEST(TagsObject, NewRecordHasAbsentFieldsAndAnEmptyDictionary)
{
    const TagsObject tags;
    for (const OptionalText& text :
         {tags.titleText(), tags.artistText(), tags.dateText(), tags.albumText(), tags.commentText(), tags.discText(),
          tags.discTotalText(), tags.trackText(), tags.trackTotalText(), tags.genreText(), tags.composerText(),
          tags.encoderSettings()})
        EXPECT_FALSE(text.has_value());
    EXPECT_EQ(tags.albumArt(), nullptr);
    EXPECT_TRUE(tags.customTagsDictionary().isEmpty());
}

TEST(TagsObject, AbsentAndEmptyAreKeptApart)
{
    TagsObject tags;
    tags.setTitleText(QString());
    EXPECT_EQ(tags.titleText(), OptionalText(QString()));
    tags.setTitleText(std::nullopt);
    EXPECT_FALSE(tags.titleText().has_value());
}

TEST(TagLibTagsHelper, BlankingSetsElevenEmptyTextsAndKeepsCustomTags)
{
    TagsObject tags;
    tags.setAlbumArt(Image::fromPixels(QImage(1, 1, QImage::Format_RGB32)));
    tags.setEncoderSettings(u"kept"_s);
    tags.setCustomTagsDictionary({{u"MOOD"_s, u"calm"_s}});
    TagLibTagsHelper().setBlankTags(tags);
    EXPECT_EQ(tags.encoderSettings(), OptionalText(u"kept"_s));
    EXPECT_EQ(tags.customTagsDictionary().value(u"MOOD"_s), u"calm"_s);
    tags.setCustomTagsDictionary({});
    EXPECT_TRUE(isBlank(tags));
}

TEST(TagLibTagsHelper, StringOfTheLibraryHoldsEveryScript)
{
    for (const QString& text : difficultTexts())
        EXPECT_EQ(TagLibTagsHelper().tagLibString(text).to8Bit(true), text.toStdString());
}
