#include "tags/TagLibTagsHelper.h"

#include "platform/Product.h"
#include "platform/errors/Exceptions.h"
#include "support/LogCapture.h"
#include "tags/TagFiles.h"

#include <QImage>

#include <random>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const TagLibTagsHelper helper;

void write(const QString& path, const TagsObject& tags, bool writeEmptyTags = false)
{
    helper.writeTagsForFLACFileTagObjectWriteEmptyTags(path, tags, writeEmptyTags);
}

QString encoder()
{
    return u"Zolt "_s + QLatin1StringView(product::version);
}

TagsObject fullRecord()
{
    TagsObject tags;
    tags.setTitleText(u"a title"_s);
    tags.setArtistText(u"an artist"_s);
    tags.setDateText(u"1999-05-01"_s);
    tags.setAlbumText(u"an album"_s);
    tags.setCommentText(u"a comment"_s);
    tags.setDiscText(u"1"_s);
    tags.setDiscTotalText(u"2"_s);
    tags.setTrackText(u"3"_s);
    tags.setTrackTotalText(u"12"_s);
    tags.setGenreText(u"a genre"_s);
    tags.setComposerText(u"a composer"_s);
    return tags;
}

} // namespace

TEST(TagLibFlac, WritesEveryFieldUnderItsKey)
{
    TagFiles files;
    write(files.flac(), fullRecord());
    const QString shown = printed(u"metaflac"_s, {u"--export-tags-to=-"_s, files.flac()});
    EXPECT_EQ(shown.trimmed().split(u'\n').size(), 13);
    for (const QString& line :
         {u"TITLE=a title"_s, u"ARTIST=an artist"_s, u"DATE=1999-05-01"_s, u"ALBUM=an album"_s, u"COMMENT=a comment"_s,
          u"DESCRIPTION=a comment"_s, u"DISCNUMBER=1"_s, u"DISCTOTAL=2"_s, u"TRACKNUMBER=3"_s, u"TRACKTOTAL=12"_s,
          u"GENRE=a genre"_s, u"COMPOSER=a composer"_s, QString(u"ENCODER="_s + encoder())})
        EXPECT_TRUE(shown.split(u'\n').contains(line)) << line.toStdString();
}

TEST(TagLibFlac, ReadsBackEveryFieldAndTheTotalsAlsoAsCustomTags)
{
    TagFiles files;
    write(files.flac(), fullRecord());
    const auto tags = helper.tagsForFlacFile(files.flac());
    EXPECT_EQ(tags->titleText(), OptionalText(u"a title"_s));
    EXPECT_EQ(tags->artistText(), OptionalText(u"an artist"_s));
    EXPECT_EQ(tags->dateText(), OptionalText(u"1999-05-01"_s));
    EXPECT_EQ(tags->albumText(), OptionalText(u"an album"_s));
    EXPECT_EQ(tags->commentText(), OptionalText(u"a comment"_s));
    EXPECT_EQ(tags->discText(), OptionalText(u"1"_s));
    EXPECT_EQ(tags->discTotalText(), OptionalText(u"2"_s));
    EXPECT_EQ(tags->trackText(), OptionalText(u"3"_s));
    EXPECT_EQ(tags->trackTotalText(), OptionalText(u"12"_s));
    EXPECT_EQ(tags->genreText(), OptionalText(u"a genre"_s));
    EXPECT_EQ(tags->composerText(), OptionalText(u"a composer"_s));
    EXPECT_EQ(tags->customTagsDictionary(), (CustomTags{{u"DISCTOTAL"_s, u"2"_s}, {u"TRACKTOTAL"_s, u"12"_s}}));
    EXPECT_FALSE(tags->encoderSettings().has_value());
}

TEST(TagLibFlac, CommentStandsOverDescriptionAndIsWrittenToBoth)
{
    TagFiles files;
    setTagsElsewhere(files.flac(), {u"COMMENT=the comment"_s, u"DESCRIPTION=the description"_s});
    const auto tags = helper.tagsForFlacFile(files.flac());
    EXPECT_EQ(tags->commentText(), OptionalText(u"the comment"_s));
    write(files.flac(), *tags);
    const auto seen = seenTags(files.flac());
    EXPECT_EQ(textsOf(seen, u"COMMENT"_s), QStringList(u"the comment"_s));
    EXPECT_EQ(textsOf(seen, u"DESCRIPTION"_s), QStringList(u"the comment"_s));
}

TEST(TagLibFlac, DescriptionAloneReadsAsTheComment)
{
    TagFiles files;
    setTagsElsewhere(files.flac(), {u"DESCRIPTION=only this"_s});
    EXPECT_EQ(helper.tagsForFlacFile(files.flac())->commentText(), OptionalText(u"only this"_s));
}

TEST(TagLibFlac, SeveralValuesAreJoinedWithOneBlank)
{
    TagFiles files;
    setTagsElsewhere(files.flac(), {u"ARTIST=Anna"_s, u"ARTIST=Bert"_s, u"MOOD=calm"_s, u"MOOD=x=y"_s});
    const auto tags = helper.tagsForFlacFile(files.flac());
    EXPECT_EQ(tags->artistText(), OptionalText(u"Anna Bert"_s));
    EXPECT_EQ(tags->customTagsDictionary(), (CustomTags{{u"MOOD"_s, u"calm x=y"_s}}));
}

TEST(TagLibFlac, LowerCaseKeyIsCustomInUpperCaseUnlessItIsAField)
{
    TagFiles files;
    setTagsElsewhere(files.flac(), {u"mood=calm"_s, u"title=small"_s, u"encoder=other"_s});
    const auto tags = helper.tagsForFlacFile(files.flac());
    EXPECT_EQ(tags->titleText(), OptionalText(u"small"_s));
    EXPECT_EQ(tags->customTagsDictionary(), (CustomTags{{u"MOOD"_s, u"calm"_s}}));
}

TEST(TagLibFlac, EmptyAndAbsentFieldsLeaveTheFileAsItIs)
{
    TagFiles files;
    write(files.flac(), fullRecord());
    TagsObject tags;
    tags.setTitleText(QString());
    tags.setArtistText(u"another"_s);
    write(files.flac(), tags);
    const auto read = helper.tagsForFlacFile(files.flac());
    EXPECT_EQ(read->titleText(), OptionalText(u"a title"_s));
    EXPECT_EQ(read->artistText(), OptionalText(u"another"_s));
    EXPECT_EQ(read->genreText(), OptionalText(u"a genre"_s));
}

TEST(TagLibFlac, WritingEmptyTagsWithAnEmptyRecordLeavesTheEncoderAlone)
{
    TagFiles files;
    TagsObject tags = fullRecord();
    tags.setAlbumArt(Image::fromData(contentOf(files.picture("png"))));
    tags.setCustomTagsDictionary({{u"MOOD"_s, u"calm"_s}});
    write(files.flac(), tags);
    // A picture inside the comment, which the library keeps apart from the fields.
    setTagsElsewhere(files.flac(),
                     {u"METADATA_BLOCK_PICTURE="_s + QString::fromLatin1(QByteArray(32, '\0').toBase64())});
    write(files.flac(), TagsObject(), true);
    const auto seen = seenTags(files.flac());
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(textsOf(seen, u"ENCODER"_s), QStringList(encoder()));
}

TEST(TagLibFlac, WritingEmptyTagsKeepsWhatTheRecordHolds)
{
    TagFiles files;
    setTagsElsewhere(files.flac(), {u"MOOD=gone"_s, u"TITLE=gone"_s, u"ARTIST=gone"_s});
    TagsObject tags;
    tags.setTitleText(u"kept"_s);
    tags.setCustomTagsDictionary({{u"key"_s, u"kept too"_s}});
    write(files.flac(), tags, true);
    const auto seen = seenTags(files.flac());
    EXPECT_EQ(seen.size(), 3u);
    EXPECT_EQ(textsOf(seen, u"TITLE"_s), QStringList(u"kept"_s));
    EXPECT_EQ(textsOf(seen, u"KEY"_s), QStringList(u"kept too"_s));
}

TEST(TagLibFlac, EncoderIsReplacedAlways)
{
    TagFiles files;
    setTagsElsewhere(files.flac(), {u"ENCODER=other"_s, u"ENCODER=another"_s});
    write(files.flac(), TagsObject());
    EXPECT_EQ(textsOf(seenTags(files.flac()), u"ENCODER"_s), QStringList(encoder()));
}

TEST(TagLibFlac, CustomTagsComeLastAndEmptyOnesAreLeftOut)
{
    TagFiles files;
    TagsObject tags;
    tags.setTrackTotalText(u"12"_s);
    tags.setCustomTagsDictionary({{u"TRACKTOTAL"_s, u"99"_s}, {u"EMPTY"_s, QString()}, {u"MOOD"_s, u"calm"_s}});
    write(files.flac(), tags);
    const auto seen = seenTags(files.flac());
    EXPECT_EQ(textsOf(seen, u"TRACKTOTAL"_s), QStringList(u"99"_s));
    EXPECT_EQ(textsOf(seen, u"MOOD"_s), QStringList(u"calm"_s));
    EXPECT_EQ(countOf(seen, u"EMPTY"_s), 0);
}

TEST(TagLibFlac, CustomKeyThatNoCommentCanHoldIsLoggedAndTheOthersAreWritten)
{
    TagFiles files;
    TagsObject tags;
    tags.setCustomTagsDictionary({{u"A=B"_s, u"bad"_s}, {u"Ключ"_s, u"bad"_s}, {u"ZEBRA"_s, u"good"_s}});
    const LogCapture log;
    write(files.flac(), tags);
    EXPECT_EQ(log.count(u"Error setting custom tag: A=B"_s), 1);
    EXPECT_EQ(log.count(u"Error setting custom tag: Ключ"_s), 1);
    EXPECT_EQ(log.count(u"setting custom tag: ZEBRA good"_s), 1);
    const auto seen = seenTags(files.flac());
    EXPECT_EQ(seen.size(), 2u);
    EXPECT_EQ(textsOf(seen, u"ZEBRA"_s), QStringList(u"good"_s));
}

TEST(TagLibFlac, PictureIsWrittenAsPngWithItsSizeAndDepth)
{
    TagFiles files;
    TagsObject tags;
    tags.setAlbumArt(Image::fromData(contentOf(files.picture("jpeg"))));
    write(files.flac(), tags);
    const QString shown = printed(u"metaflac"_s, {u"--list"_s, u"--block-type=PICTURE"_s, files.flac()});
    for (const QString& line :
         {u"type: 0 (Other)"_s, u"MIME type: image/png"_s, u"width: 60"_s, u"height: 40"_s, u"depth: 24"_s})
        EXPECT_TRUE(shown.contains(line)) << line.toStdString();
    printed(u"metaflac"_s, {u"--export-picture-to="_s + files.pathOf(u"out.png"_s), files.flac()});
    const auto art = Image::fromData(contentOf(files.pathOf(u"out.png"_s)));
    ASSERT_TRUE(art);
    EXPECT_EQ(art->drawn().convertToFormat(QImage::Format_RGB32),
              tags.albumArt()->drawn().convertToFormat(QImage::Format_RGB32));
}

TEST(TagLibFlac, OfAPictureInSeveralSizesTheLastIsWritten)
{
    TagFiles files;
    const QByteArray narrow = contentOf(files.picture("png", 16)), wide = contentOf(files.picture("png", 32));
    const auto number = [](quint32 value) { return QByteArray(reinterpret_cast<const char*>(&value), 4); };
    QByteArray icon = QByteArray::fromHex("000001000200"); // two entries, each pointing at a PNG
    icon += QByteArray::fromHex("1028000001002000") + number(narrow.size()) + number(38);
    icon += QByteArray::fromHex("2028000001002000") + number(wide.size()) + number(38 + narrow.size());
    TagsObject tags;
    tags.setAlbumArt(Image::fromData(icon + narrow + wide));
    write(files.flac(), tags);
    const QString shown = printed(u"metaflac"_s, {u"--list"_s, u"--block-type=PICTURE"_s, files.flac()});
    EXPECT_TRUE(shown.contains(u"width: 32"_s)) << shown.toStdString();
}

TEST(TagLibFlac, PictureWrittenTwiceIsThereTwice)
{
    TagFiles files;
    TagsObject tags;
    tags.setAlbumArt(Image::fromData(contentOf(files.picture("png"))));
    write(files.flac(), tags);
    write(files.flac(), tags);
    EXPECT_EQ(countOf(seenTags(files.flac()), u"PICTURE"_s), 2);
    write(files.flac(), tags, true);
    EXPECT_EQ(countOf(seenTags(files.flac()), u"PICTURE"_s), 1);
}

TEST(TagLibFlac, FirstPictureOfAnotherProgramIsRead)
{
    TagFiles files;
    addArtElsewhere(files.flac(), files.picture("jpeg", 33), u"image/jpeg"_s);
    addArtElsewhere(files.flac(), files.picture("png", 44), u"image/png"_s);
    const auto tags = helper.tagsForFlacFile(files.flac());
    ASSERT_TRUE(tags->albumArt());
    EXPECT_EQ(tags->albumArt()->lastBitmap()->pixelsWide(), 33);
}

TEST(TagLibFlac, PictureThatNoReaderKnowsIsNoPicture)
{
    TagFiles files;
    writeContent(files.pathOf(u"bad.png"_s), "nothing like a picture");
    setTagsElsewhere(files.flac(), {u"TITLE=still here"_s});
    addArtElsewhere(files.flac(), files.pathOf(u"bad.png"_s), u"image/png"_s);
    const auto tags = helper.tagsForFlacFile(files.flac());
    EXPECT_FALSE(tags->albumArt());
    EXPECT_EQ(tags->titleText(), OptionalText(u"still here"_s));
}

TEST(TagLibFlac, FileWithoutACommentReadsBlankAndCanBeTagged)
{
    TagFiles files;
    addArtElsewhere(files.flac(), files.picture("png"), u"image/png"_s);
    printed(u"metaflac"_s, {u"--remove"_s, u"--block-type=VORBIS_COMMENT"_s, u"--dont-use-padding"_s, files.flac()});
    EXPECT_TRUE(isBlank(*helper.tagsForFlacFile(files.flac())));
    write(files.flac(), fullRecord());
    EXPECT_EQ(helper.tagsForFlacFile(files.flac())->titleText(), OptionalText(u"a title"_s));
}

TEST(TagLibFlac, SoundSurvivesTagging)
{
    TagFiles files;
    const QString path = files.flac();
    TagsObject tags = fullRecord();
    tags.setCommentText(QString(100000, u'c')); // more than the padding holds
    write(path, tags);
    printed(u"flac"_s, {u"-t"_s, u"-s"_s, path});
    EXPECT_EQ(helper.tagsForFlacFile(path)->commentText()->size(), 100000);
}

TEST(TagLibFlac, TextThatLooksLikeAnotherTagIsOnlyText)
{
    TagFiles files;
    TagsObject tags;
    // Taken for the header of an ID3v2 tag and of a frame, these letters are a compressed frame of many mebibytes.
    tags.setCommentText(u"ID3v2.4 tags from an older file "_s.repeated(2000));
    write(files.flac(), tags);
    EXPECT_EQ(helper.tagsForFlacFile(files.flac())->commentText(), tags.commentText());
    EXPECT_NO_THROW(write(files.flac(), tags));
}

TEST(TagLibFlac, PictureThatNoBlockCanHoldLeavesSoundAndOldPictureWhole)
{
    TagFiles files;
    addArtElsewhere(files.flac(), files.picture("jpeg", 33), u"image/jpeg"_s);
    QImage noise(2600, 2600, QImage::Format_RGB32);
    std::mt19937 random(1);
    std::generate_n(reinterpret_cast<quint32*>(noise.bits()), noise.sizeInBytes() / 4, std::ref(random));
    TagsObject tags = fullRecord();
    tags.setAlbumArt(Image::fromPixels(noise));
    for (const bool writeEmptyTags : {false, true}) {
        write(files.flac(), tags, writeEmptyTags);
        printed(u"flac"_s, {u"-t"_s, u"-s"_s, files.flac()});
        const auto read = helper.tagsForFlacFile(files.flac());
        EXPECT_EQ(read->titleText(), OptionalText(u"a title"_s));
        ASSERT_TRUE(read->albumArt());
        EXPECT_EQ(read->albumArt()->lastBitmap()->pixelsWide(), 33);
    }
}

TEST(TagLibFlac, TextsThatNoBlockCanHoldLeaveTheFileAsItIs)
{
    TagFiles files;
    const QByteArray before = contentOf(files.flac());
    TagsObject tags;
    tags.setCustomTagsDictionary({{u"LYRICS"_s, QString(17 << 20, u'x')}});
    const LogCapture log; // which would show the text whole
    write(files.flac(), tags);
    EXPECT_EQ(contentOf(files.flac()), before);
}

TEST(TagLibFlac, TagOfAnotherKindAheadOfTheStreamStaysAndIsNotRead)
{
    TagFiles files;
    const QByteArray foreign("ID3\4\0\0\0\0\0\x10TIT2\0\0\0\6\0\0\3other", 26);
    writeContent(files.flac(), foreign + contentOf(files.flac()));
    EXPECT_TRUE(isBlank(*helper.tagsForFlacFile(files.flac())));
    write(files.flac(), fullRecord(), true);
    EXPECT_EQ(helper.tagsForFlacFile(files.flac())->titleText(), OptionalText(u"a title"_s));
    const QByteArray after = contentOf(files.flac());
    EXPECT_TRUE(after.startsWith("ID3"));
    EXPECT_TRUE(after.contains("other"));
    printed(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-xerror"_s, u"-i"_s, files.flac(), u"-f"_s, u"null"_s, u"-"_s});
}
