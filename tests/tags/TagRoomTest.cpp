// Saving where the disk has little room, or none.
#include "support/FileSizeLimit.h"
#include "support/LogCapture.h"
#include "tags/TagFormats.h"

#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

using TagRoom = TagFormatTest;

INSTANTIATE_TEST_SUITE_P(Formats, TagRoom, testing::ValuesIn(tagFormats()), nameOfFormat);

TEST_P(TagRoom, TextThatFitsIntoThePlaceOfTheOldOneIsSavedOnAFullDisk)
{
    TagsObject tags;
    tags.setTitleText(QString(600, u'x'));
    write(tags);
    const qsizetype size = contentOf(path()).size();
    tags.setTitleText(u"Название"_s);
    {
        const FileSizeLimit limit{rlim_t(size)};
        EXPECT_FALSE(write(tags));
    }
    EXPECT_EQ(read()->titleText(), tags.titleText());
}

TEST_P(TagRoom, TextThatFitsIntoThePaddingIsSavedOnAFullDisk)
{
    if (path().endsWith(u".ape"_s) || path().endsWith(u".wv"_s)) return; // their tags lie at the end, without padding
    TagsObject tags;
    tags.setTitleText(u"short"_s);
    write(tags);
    const qsizetype size = contentOf(path()).size();
    tags.setTitleText(QString(700, u'x'));
    {
        const FileSizeLimit limit{rlim_t(size)};
        EXPECT_FALSE(write(tags));
    }
    EXPECT_EQ(read()->titleText(), tags.titleText());
}

TEST_P(TagRoom, SaveThatIsSkippedIsToldInWordsAndInTheLog)
{
    TagsObject tags;
    tags.setCommentText(QString(300000, u'x'));
    const FileSizeLimit limit(rlim_t(contentOf(path()).size() + 200000));
    const LogCapture log;
    const SaveRefusal refusal = write(tags);
    ASSERT_TRUE(refusal);
    EXPECT_TRUE(refusal->startsWith(u"The tags were not saved: the disk has no room for "_s));
    EXPECT_EQ(log.count(u"No room for"_s), 1);
    EXPECT_EQ(log.count(path()), 1);
}
