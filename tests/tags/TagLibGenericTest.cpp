#include "tags/TagFormats.h"

#include "platform/errors/Exceptions.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const TagLibTagsHelper helper;

/// Monkey's Audio and Wavpack are one design: every test runs for both.
using TagLibGeneric = TagFormatTest;

} // namespace

INSTANTIATE_TEST_SUITE_P(Formats, TagLibGeneric, testing::ValuesIn(genericFormats()), nameOfFormat);

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

TEST_P(TagLibGeneric, FileWithTheOldestTagAloneKeepsWhatIsWrittenWhole)
{
    const auto padded = [](const QByteArray& text, int length) { return text.leftJustified(length, '\0'); };
    writeContent(path(), contentOf(path()) + "TAG" + padded("an older title", 30) + padded("Anna", 30) +
                             padded("older album", 30) + "1987" + padded("note", 28) + QByteArray("\0\5\x11", 3));
    ASSERT_EQ(read()->titleText(), OptionalText(u"an older title"_s));
    TagsObject tags;
    tags.setTitleText(u"Название, longer than thirty letters"_s);
    tags.setGenreText(u"Жанр"_s);
    write(tags);
    EXPECT_EQ(read()->titleText(), tags.titleText());
    EXPECT_EQ(read()->genreText(), tags.genreText());
    EXPECT_EQ(read()->artistText(), OptionalText(u"Anna"_s));
    EXPECT_EQ(read()->albumText(), OptionalText(u"older album"_s));
    EXPECT_EQ(textsOf(seenTags(path()), u"Title"_s) + textsOf(seenTags(path()), u"TITLE"_s),
              QStringList(*tags.titleText()));
}
