#include "tags/TagFormats.h"

#include "platform/errors/Exceptions.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const TagLibTagsHelper helper;

} // namespace

TEST(TagLibAIFF, WritesNineFieldsAndNothingElse)
{
    TagFiles files;
    helper.writeTagsForAIFFFileTagObject(files.aiff(), fullRecord());
    const auto frames = rawFrames(files.aiff());
    EXPECT_EQ(frames.size(), 9u);
    const std::tuple<QString, int, QString> expected[] = {
        {u"TIT2"_s, 3, u"Название"_s},      {u"TPE1"_s, 3, u"Künstler"_s}, {u"TALB"_s, 3, u"アルバム"_s},
        {u"TCON"_s, 3, u"Жанр"_s},          {u"TDRC"_s, 3, u"1999"_s},     {u"TRCK"_s, 3, u"3"_s},
        {u"TCOM"_s, 0, u"Compositeur é"_s}, {u"TPOS"_s, 0, u"2"_s}};
    for (const auto& [key, encoding, text] : expected) {
        EXPECT_EQ(textsOf(frames, key), QStringList(text)) << key.toStdString();
        for (const SeenTag& frame : frames) {
            if (frame[u"key"_s] == key) {
                EXPECT_EQ(frame[u"encoding"_s].toInt(), encoding) << key.toStdString();
            }
        }
    }
    EXPECT_EQ(countOf(frames, u"COMM"_s), 1);
}

TEST(TagLibAIFF, ComposerMirrorsTheDiscText)
{
    TagFiles files;
    setTagsElsewhere(files.aiff(), {u"TPOS=2/3"_s, u"TCOM=never read"_s, u"TRCK=4/12"_s, u"TDRC=2001"_s});
    const auto tags = helper.tagsForAIFFFile(files.aiff());
    EXPECT_EQ(tags->discText(), OptionalText(u"2"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(u"2/3"_s));
    EXPECT_EQ(tags->discTotalText(), OptionalText(QString()));
    EXPECT_EQ(tags->trackText(), OptionalText(u"4"_s));
    EXPECT_EQ(tags->trackTotalText(), OptionalText(QString()));
    EXPECT_EQ(tags->dateText(), OptionalText(u"2001"_s));
}

TEST(TagLibAIFF, WithoutADiscTheComposerStaysEmpty)
{
    TagFiles files;
    setTagsElsewhere(files.aiff(), {u"TCOM=never read"_s, u"TIT2=title"_s});
    const auto tags = helper.tagsForAIFFFile(files.aiff());
    EXPECT_EQ(tags->titleText(), OptionalText(u"title"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(QString()));
    EXPECT_EQ(tags->discText(), OptionalText(QString()));
    EXPECT_EQ(tags->dateText(), OptionalText(QString()));
    EXPECT_EQ(tags->trackText(), OptionalText(QString()));
}

TEST(TagLibAIFF, WrittenTwiceHasTwoComposersAndTwoDiscs)
{
    TagFiles files;
    helper.writeTagsForAIFFFileTagObject(files.aiff(), fullRecord());
    helper.writeTagsForAIFFFileTagObject(files.aiff(), fullRecord());
    const auto frames = rawFrames(files.aiff());
    EXPECT_EQ(countOf(frames, u"TCOM"_s), 2);
    EXPECT_EQ(countOf(frames, u"TPOS"_s), 2);
    EXPECT_EQ(countOf(frames, u"TIT2"_s), 1);
}

TEST(TagLibAIFF, EmptyAndAbsentFieldsLeaveTheFileAsItIs)
{
    TagFiles files;
    helper.writeTagsForAIFFFileTagObject(files.aiff(), fullRecord());
    TagsObject tags;
    helper.setBlankTags(tags);
    helper.writeTagsForAIFFFileTagObject(files.aiff(), tags);
    helper.writeTagsForAIFFFileTagObject(files.aiff(), TagsObject());
    EXPECT_EQ(rawFrames(files.aiff()).size(), 9u);
}

TEST(TagLibAIFF, ReadsBackWhatTheReaderCarries)
{
    TagFiles files;
    helper.writeTagsForAIFFFileTagObject(files.aiff(), fullRecord());
    const auto tags = helper.tagsForAIFFFile(files.aiff());
    EXPECT_EQ(tags->titleText(), OptionalText(u"Название"_s));
    EXPECT_EQ(tags->artistText(), OptionalText(u"Künstler"_s));
    EXPECT_EQ(tags->albumText(), OptionalText(u"アルバム"_s));
    EXPECT_EQ(tags->commentText(), OptionalText(u"הערה"_s));
    EXPECT_EQ(tags->genreText(), OptionalText(u"Жанр"_s));
    EXPECT_EQ(tags->dateText(), OptionalText(u"1999"_s));
    EXPECT_EQ(tags->trackText(), OptionalText(u"3"_s));
    EXPECT_EQ(tags->discText(), OptionalText(u"2"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(u"2"_s));
    EXPECT_FALSE(tags->albumArt());
}

TEST(TagLibAIFF, FileOfAnotherKindIsNotTouched)
{
    TagFiles files;
    for (const QString& path : {files.wav(), files.flac(), files.picture("png")}) {
        const QByteArray before = contentOf(path);
        EXPECT_THROW(helper.writeTagsForAIFFFileTagObject(path, fullRecord()), AssertionException);
        EXPECT_EQ(contentOf(path), before) << path.toStdString();
        EXPECT_TRUE(isBlank(*helper.tagsForAIFFFile(path)));
    }
}

TEST(TagLibAIFF, CompressedKindIsTagged)
{
    TagFiles files;
    const QString path = files.pathOf(u"sound.aifc"_s);
    printed(u"ffmpeg"_s,
            {u"-v"_s, u"error"_s, u"-i"_s, files.wav(), u"-c:a"_s, u"pcm_s16le"_s, u"-f"_s, u"aiff"_s, path});
    ASSERT_EQ(contentOf(path).sliced(8, 4), "AIFC");
    helper.writeTagsForAIFFFileTagObject(path, fullRecord());
    EXPECT_EQ(helper.tagsForAIFFFile(path)->titleText(), OptionalText(u"Название"_s));
}

TEST(TagLibAIFF, DiscIsWrittenAsAnUnsignedNumber)
{
    const std::pair<QString, QString> discs[] = {{u"-1"_s, u"4294967295"_s}, {u"one"_s, u"0"_s}, {u" 07"_s, u"7"_s}};
    for (const auto& [text, written] : discs) {
        TagFiles files;
        TagsObject tags;
        tags.setDiscText(text);
        helper.writeTagsForAIFFFileTagObject(files.aiff(), tags);
        EXPECT_EQ(textsOf(rawFrames(files.aiff()), u"TPOS"_s), QStringList(written));
    }
}

TEST(TagLibAIFF, ComposerOutsideLatin1IsUtf8InALatin1Frame)
{
    TagFiles files;
    TagsObject tags;
    tags.setComposerText(u"Ān"_s);
    helper.writeTagsForAIFFFileTagObject(files.aiff(), tags);
    const auto frames = rawFrames(files.aiff());
    ASSERT_EQ(frames.size(), 1u);
    EXPECT_EQ(frames[0][u"encoding"_s].toInt(), 0);
    EXPECT_EQ(frames[0][u"text"_s].toString(), QString::fromLatin1("\xc4\x80n"));
}

TEST(TagLibAIFF, FileWhoseSoundRunsPastItsEndIsLeftAlone)
{
    TagFiles files;
    const QString path = files.pathOf(u"cut.aiff"_s);
    const QByteArray whole = contentOf(files.aiff());
    for (const qsizetype missing : {1, 100, 4000}) {
        writeContent(path, whole.chopped(missing));
        EXPECT_THROW(helper.writeTagsForAIFFFileTagObject(path, fullRecord()), AssertionException);
        EXPECT_EQ(contentOf(path), whole.chopped(missing));
    }
}

TEST(TagLibAIFF, Latin1FramesStaySoWhenTheyAreNotWritten)
{
    TagFiles files;
    TagsObject composer;
    composer.setComposerText(u"Чайковский"_s);
    composer.setDiscText(u"1"_s);
    helper.writeTagsForAIFFFileTagObject(files.aiff(), composer);
    TagsObject title;
    title.setTitleText(u"Вальс"_s);
    helper.writeTagsForAIFFFileTagObject(files.aiff(), title);
    for (const SeenTag& frame : rawFrames(files.aiff())) {
        const bool isLatin1 = frame[u"key"_s] != u"TIT2"_s;
        EXPECT_EQ(frame[u"encoding"_s].toInt(), isLatin1 ? 0 : 3) << frame[u"key"_s].toString().toStdString();
    }
}
