// M4A files that other people's programs wrote, some of them broken on purpose. They are not part of the project.
#include "tags/AACTagsHelper.h"

#include "platform/errors/Exceptions.h"
#include "tags/m4a/M4AFiles.h"

#include <gtest/gtest.h>

#include <QFileInfo>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class M4AFixtures : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!QFileInfo::exists(fixture("has-tags"))) GTEST_SKIP() << "left out: there are no files in " ZOLT_FIXTURES;
    }

    static QString fixture(const char* name)
    {
        return u"%1/%2.m4a"_s.arg(QStringLiteral(ZOLT_FIXTURES), QString::fromLatin1(name));
    }

    std::shared_ptr<TagsObject> tagsOf(const QString& path) { return AACTagsHelper().tagsForFile(path); }

    void writeTitle(const QString& path)
    {
        TagsObject tags;
        tags.setTitleText(u"New title"_s);
        AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(path, tags, false, false);
    }

    M4AFiles files_;
};

} // namespace

TEST_F(M4AFixtures, TagsAndCoverAreRead)
{
    const auto tags = tagsOf(fixture("has-tags"));
    EXPECT_EQ(tags->artistText(), u"Test Artist"_s);
    EXPECT_TRUE(tags->albumArt());
    EXPECT_EQ(tagsOf(fixture("covr-junk"))->artistText(), u"Test Artist"_s);
    EXPECT_TRUE(tagsOf(fixture("covr-junk"))->albumArt());
    EXPECT_EQ(tagsOf(fixture("non-full-meta"))->artistText(), u"Test Artist!!!!"_s);
    EXPECT_EQ(tagsOf(fixture("empty_alac"))->titleText(), u"empty_alac"_s);
    EXPECT_EQ(tagsOf(fixture("no-tags"))->artistText(), QString());
    EXPECT_EQ(tagsOf(fixture("ilst-is-last"))->artistText(), u"Pearl Jam"_s);
    EXPECT_EQ(tagsOf(fixture("ilst-is-last"))->trackText(), u"1"_s);
}

TEST_F(M4AFixtures, WholeFilesAreTaggedAndKeepTheirAudio)
{
    for (const char* name : {"has-tags", "covr-junk", "non-full-meta", "no-tags", "empty_alac"}) {
        const QString path = files_.copyOf(fixture(name));
        const QVariantList cover = seenItem(path, "covr");
        writeTitle(path);
        EXPECT_EQ(tagsOf(path)->titleText(), u"New title"_s) << name;
        EXPECT_EQ(packets(path), packets(fixture(name))) << name;
        EXPECT_EQ(seenItem(path, "covr"), cover) << name;
        EXPECT_FALSE(atomNames(contentOf(path)).contains("free")) << name;
    }
}

TEST_F(M4AFixtures, AFileWhoseMediaDataAreMissingIsTaggedAsItLies)
{
    const QString path = files_.copyOf(fixture("ilst-is-last"));
    EXPECT_THROW(writeTitle(path), PlatformException);
    EXPECT_EQ(tagsOf(path)->titleText(), u"New title"_s);
    EXPECT_EQ(tagsOf(path)->artistText(), u"Pearl Jam"_s);
}

TEST_F(M4AFixtures, ABrokenFileIsReadAndNotTouched)
{
    const QString path = files_.copyOf(fixture("infloop"));
    const QByteArray before = contentOf(path);
    EXPECT_TRUE(tagsOf(path));
    EXPECT_THROW(writeTitle(path), PlatformException);
    EXPECT_EQ(contentOf(path), before);
}
