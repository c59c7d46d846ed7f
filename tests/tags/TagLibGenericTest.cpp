#include "tags/TagLibTagsHelper.h"

#include "platform/errors/Exceptions.h"
#include "tags/TagFiles.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const TagLibTagsHelper helper;

/// Monkey's Audio and Wavpack are one design: every test runs for both.
struct Pair
{
    const char* name;
    QString (TagFiles::*sample)();
    std::shared_ptr<TagsObject> (TagLibTagsHelper::*read)(const QString&) const;
    void (TagLibTagsHelper::*write)(const QString&, const TagsObject&, bool) const;
};

void PrintTo(const Pair& tested, std::ostream* out)
{
    *out << tested.name;
}

const Pair pairs[] = {
    {"APE", &TagFiles::ape, &TagLibTagsHelper::tagsForAPEFile,
     &TagLibTagsHelper::writeTagsForAPEFileTagObjectWriteEmptyTags},
    {"Wavpack", &TagFiles::wavpack, &TagLibTagsHelper::tagsForWavpackFile,
     &TagLibTagsHelper::writeTagsForWavpackFileTagObjectWriteEmptyTags},
};

class TagLibGeneric : public testing::TestWithParam<Pair>
{
protected:
    QString path() { return (files.*GetParam().sample)(); }
    std::shared_ptr<TagsObject> read() { return (helper.*GetParam().read)(path()); }
    void write(const TagsObject& tags, bool writeEmptyTags = false)
    {
        (helper.*GetParam().write)(path(), tags, writeEmptyTags);
    }

    TagFiles files;
};

TagsObject fullRecord()
{
    TagsObject tags;
    tags.setTitleText(u"Название"_s);
    tags.setArtistText(u"Künstler"_s);
    tags.setDateText(u"1999-05-01"_s);
    tags.setAlbumText(u"アルバム"_s);
    tags.setTrackText(u"3/12"_s);
    tags.setCommentText(u"הערה"_s);
    tags.setGenreText(u"Жанр"_s);
    tags.setTrackTotalText(u"12"_s);
    tags.setDiscText(u"1"_s);
    tags.setDiscTotalText(u"2"_s);
    tags.setComposerText(u"composer"_s);
    tags.setAlbumArt(Image::fromPixels(QImage(2, 2, QImage::Format_RGB32)));
    tags.setCustomTagsDictionary({{u"MOOD"_s, u"calm"_s}});
    return tags;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Formats, TagLibGeneric, testing::ValuesIn(pairs),
                         [](const auto& formatInfo) { return std::string(formatInfo.param.name); });

TEST_P(TagLibGeneric, WritesSevenFieldsAndNothingElse)
{
    write(fullRecord());
    const auto seen = seenTags(path());
    const std::pair<QString, QString> expected[] = {
        {u"Title"_s, u"Название"_s}, {u"Artist"_s, u"Künstler"_s}, {u"Year"_s, u"1999"_s}, {u"Album"_s, u"アルバム"_s},
        {u"Track"_s, u"3"_s},        {u"Comment"_s, u"הערה"_s},    {u"Genre"_s, u"Жанр"_s}};
    EXPECT_EQ(seen.size(), 7u);
    for (const auto& [key, text] : expected) {
        const QStringList texts = textsOf(seen, key) + textsOf(seen, key.toUpper());
        EXPECT_EQ(texts, QStringList(text)) << key.toStdString();
    }
}

TEST_P(TagLibGeneric, ReadsSevenFieldsAndLeavesTheOthersBlank)
{
    write(fullRecord());
    const auto tags = read();
    EXPECT_EQ(tags->titleText(), OptionalText(u"Название"_s));
    EXPECT_EQ(tags->artistText(), OptionalText(u"Künstler"_s));
    EXPECT_EQ(tags->dateText(), OptionalText(u"1999"_s));
    EXPECT_EQ(tags->albumText(), OptionalText(u"アルバム"_s));
    EXPECT_EQ(tags->trackText(), OptionalText(u"3"_s));
    EXPECT_EQ(tags->commentText(), OptionalText(u"הערה"_s));
    EXPECT_EQ(tags->genreText(), OptionalText(u"Жанр"_s));
    for (const OptionalText& text :
         {tags->trackTotalText(), tags->discText(), tags->discTotalText(), tags->composerText()})
        EXPECT_EQ(text, OptionalText(QString()));
    EXPECT_FALSE(tags->albumArt());
    EXPECT_TRUE(tags->customTagsDictionary().isEmpty());
}

TEST_P(TagLibGeneric, ReadsWhatAnotherProgramWrote)
{
    setTagsElsewhere(path(),
                     {u"Title=タイトル"_s, u"Artist=Артист"_s, u"Year=2001"_s, u"Track=7/9"_s, u"Composer=x"_s});
    const auto tags = read();
    EXPECT_EQ(tags->titleText(), OptionalText(u"タイトル"_s));
    EXPECT_EQ(tags->artistText(), OptionalText(u"Артист"_s));
    EXPECT_EQ(tags->dateText(), OptionalText(u"2001"_s));
    EXPECT_EQ(tags->trackText(), OptionalText(u"7"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(QString()));
}

TEST_P(TagLibGeneric, YearAndTrackOfZeroReadEmpty)
{
    setTagsElsewhere(path(), {u"Title=x"_s, u"Year=0"_s, u"Track=0"_s});
    EXPECT_EQ(read()->titleText(), OptionalText(u"x"_s));
    EXPECT_EQ(read()->dateText(), OptionalText(QString()));
    EXPECT_EQ(read()->trackText(), OptionalText(QString()));
}

TEST_P(TagLibGeneric, EmptyAndAbsentFieldsLeaveTheFileAsItIs)
{
    write(fullRecord());
    TagsObject tags;
    tags.setTitleText(QString());
    tags.setDateText(QString());
    tags.setArtistText(u"another"_s);
    write(tags);
    EXPECT_EQ(read()->titleText(), OptionalText(u"Название"_s));
    EXPECT_EQ(read()->dateText(), OptionalText(u"1999"_s));
    EXPECT_EQ(read()->artistText(), OptionalText(u"another"_s));
}

TEST_P(TagLibGeneric, WritingEmptyTagsClearsAllSevenAndKeepsTheRest)
{
    setTagsElsewhere(path(), {u"Composer=kept"_s});
    write(fullRecord());
    TagsObject tags;
    helper.setBlankTags(tags);
    write(tags, true);
    EXPECT_TRUE(isBlank(*read()));
    const auto seen = seenTags(path());
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0][u"text"_s].toString(), u"kept"_s);
}

TEST_P(TagLibGeneric, AbsentFieldsAreClearedTooWhenEmptyTagsAreWritten)
{
    write(fullRecord());
    write(TagsObject(), true);
    EXPECT_TRUE(isBlank(*read()));
}
